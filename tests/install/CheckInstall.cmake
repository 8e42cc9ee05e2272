# Run by the install test with cmake -P. Every step that fails stops the
# script with an error, which fails the test.
#   BUILD_DIR, CONFIG, LIBDIR, CONSUMER_SOURCE_DIR, WORK_DIR, CXX_COMPILER,
#   CXX_COMPILER_LAUNCHER (may be empty)

set(expected_output "zowidgets installed 1.2.3 hue 210")
set(prefix ${WORK_DIR}/prefix)
set(libdir ${prefix}/${LIBDIR})

function(run_step description)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${description} failed (${result}):\n${output}")
  endif()
endfunction()

function(check_program description program)
  execute_process(COMMAND ${program} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${description}: ${program} failed (${result}):\n${output}\n${errors}")
  endif()
  if(NOT output STREQUAL expected_output)
    message(FATAL_ERROR "${description}: printed \"${output}\", expected \"${expected_output}\"")
  endif()
  message(STATUS "${description}: ${output}")
endfunction()

# True when `path` lies inside the install prefix, links resolved.
function(require_inside_prefix what path)
  file(REAL_PATH ${path} real_path)
  file(REAL_PATH ${prefix} real_prefix)
  cmake_path(IS_PREFIX real_prefix ${real_path} NORMALIZE inside)
  if(NOT inside)
    message(FATAL_ERROR "${what} ${path} is outside the install prefix ${prefix}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

set(config_args)
if(CONFIG)
  set(config_args --config ${CONFIG})
endif()
run_step("Installing" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix} ${config_args})

# Public headers are installed by room; private ones (detail/) are not.
set(include_root ${prefix}/include/zowidgets)
foreach(public_header host/widgets/values/Slider.h values/notify/ValServer.h host/base/Ptr.h)
  if(NOT EXISTS ${include_root}/${public_header})
    message(FATAL_ERROR "The public header ${public_header} was not installed")
  endif()
endforeach()
file(GLOB_RECURSE installed_private LIST_DIRECTORIES true ${include_root}/*)
list(FILTER installed_private INCLUDE REGEX "/detail(/|$)")
if(installed_private)
  message(FATAL_ERROR "Private headers were installed: ${installed_private}")
endif()

foreach(suppressions lsan.supp tsan.supp)
  if(NOT EXISTS ${prefix}/share/zowidgets/${suppressions})
    message(FATAL_ERROR "The sanitizer suppressions ${suppressions} were not installed")
  endif()
endforeach()

# The installed programs start from the prefix, with nothing on the loader's
# path: they find the installed libraries themselves.
if(EXISTS ${prefix}/bin/zopanel)
  run_step("Starting the installed zopanel" ${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH ${prefix}/bin/zopanel --help)
endif()

# --- find_package -------------------------------------------------------
set(consumer_build ${WORK_DIR}/consumer-build)
set(launcher_arg)
if(CXX_COMPILER_LAUNCHER)
  set(launcher_arg -DCMAKE_CXX_COMPILER_LAUNCHER=${CXX_COMPILER_LAUNCHER})
endif()
run_step("Configuring the consumer" ${CMAKE_COMMAND} -S ${CONSUMER_SOURCE_DIR} -B ${consumer_build}
         -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX_COMPILER} ${launcher_arg}
         -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
file(STRINGS ${consumer_build}/CMakeCache.txt found_dir REGEX "^zowidgets_DIR:")
string(REGEX REPLACE "^[^=]*=" "" found_dir "${found_dir}")
require_inside_prefix("find_package found zowidgets in" "${found_dir}")
run_step("Building the consumer" ${CMAKE_COMMAND} --build ${consumer_build} ${config_args})
check_program("find_package consumer" ${consumer_build}/consumer)
# The first program of the docs, as installed: a window, headless, saved as
# a picture.
set(first_build ${WORK_DIR}/first-panel-build)
run_step("Configuring the installed first program" ${CMAKE_COMMAND}
         -S ${prefix}/share/zowidgets/examples/first-panel -B ${first_build}
         -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX_COMPILER} ${launcher_arg}
         -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
run_step("Building the installed first program" ${CMAKE_COMMAND} --build ${first_build} ${config_args})
set(first_picture ${WORK_DIR}/first_panel.png)
run_step("Running the first program" ${first_build}/first_panel ${first_picture})
file(READ ${first_picture} png_signature LIMIT 8 HEX)
if(NOT png_signature STREQUAL "89504e470d0a1a0a")
  message(FATAL_ERROR "The first program wrote no PNG at ${first_picture}")
endif()

# --- pkg-config ---------------------------------------------------------
find_program(pkg_config NAMES pkg-config pkgconf)
if(NOT pkg_config)
  message(FATAL_ERROR "pkg-config is needed to check the installed zowidgets.pc")
endif()
set(ENV{PKG_CONFIG_PATH} ${libdir}/pkgconfig)
execute_process(COMMAND ${pkg_config} --cflags --libs zowidgets RESULT_VARIABLE result OUTPUT_VARIABLE flags
                ERROR_VARIABLE errors OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "pkg-config found no zowidgets in ${libdir}/pkgconfig:\n${errors}")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
# Headers and libraries must come from this install, not from an older one
# elsewhere on the machine.
set(after_isystem FALSE)
foreach(flag IN LISTS flags)
  if(after_isystem)
    require_inside_prefix("pkg-config gives -isystem ${flag}:" "${flag}")
    set(after_isystem FALSE)
  elseif(flag STREQUAL "-isystem")
    set(after_isystem TRUE)
  elseif(flag MATCHES "^-[IL](.+)$")
    require_inside_prefix("pkg-config gives ${flag}:" "${CMAKE_MATCH_1}")
  endif()
endforeach()
set(pc_program ${WORK_DIR}/consumer-pkgconfig)
# The library's headers come in as the system's do: a program built with
# strict warnings, as errors, hears nothing from them.
run_step("Compiling with pkg-config flags" ${CXX_COMPILER_LAUNCHER} ${CXX_COMPILER} ${CONSUMER_SOURCE_DIR}/main.cpp
         -Wall -Wextra -Wshadow -Woverloaded-virtual -Werror ${flags} -Wl,-rpath,${libdir} -o ${pc_program})
check_program("pkg-config consumer" ${pc_program})
