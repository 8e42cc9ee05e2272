# Keeps the direction of the layers: fails, naming each file and line, when
#  - a source file of host/ or values/ sits outside every room;
#  - a file includes a header from a room above its own;
#  - a public header includes a private one (from a detail/ folder);
#  - a private header is included from outside the part that owns it (the
#    host, values/, or one subsystem);
#  - a subsystem or values/ includes anything but the standard library and
#    zowidgets' own headers;
#  - a room other than the backends includes SDL or X11.
#
# cmake -DSOURCE_DIR=<tree> "-DSUBSYSTEMS=builder;colour;..." -P CheckLayers.cmake
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Layers.cmake)

if(NOT SOURCE_DIR)
  message(FATAL_ERROR "CheckLayers.cmake needs -DSOURCE_DIR")
endif()

# values/ is in rooms, not a subsystem of its own.
list(REMOVE_ITEM SUBSYSTEMS values)
list(LENGTH ZO_ROOMS subsystem_rank)

# Sets `room` and `rank` for a path below the source root; `room` is empty
# when the path lies in no room and no subsystem.
function(zo_room_of path)
  set(found "")
  set(found_rank -1)
  set(index 0)
  foreach(candidate IN LISTS ZO_ROOMS)
    string(LENGTH "${candidate}/" length)
    string(SUBSTRING "${path}" 0 ${length} head)
    if(head STREQUAL "${candidate}/")
      set(found ${candidate})
      set(found_rank ${index})
    endif()
    math(EXPR index "${index} + 1")
  endforeach()
  if(NOT found)
    foreach(subsystem IN LISTS SUBSYSTEMS)
      if(path MATCHES "^${subsystem}/")
        set(found ${subsystem})
        set(found_rank ${subsystem_rank})
      endif()
    endforeach()
  endif()
  set(room "${found}" PARENT_SCOPE)
  set(rank ${found_rank} PARENT_SCOPE)
endfunction()

# The part that owns a private header: the host, values/, or a subsystem.
function(zo_part_of path)
  string(REGEX MATCH "^[^/]+" first "${path}")
  set(part ${first} PARENT_SCOPE)
endfunction()

list(JOIN ZO_ROOMS ", " room_names)
list(JOIN ZO_WINDOWING_ROOMS " and " windowing_names)
set(problems)
set(scanned 0)
file(GLOB_RECURSE sources RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/host/*.h ${SOURCE_DIR}/host/*.cpp
     ${SOURCE_DIR}/values/*.h ${SOURCE_DIR}/values/*.cpp)
foreach(subsystem IN LISTS SUBSYSTEMS)
  file(GLOB_RECURSE subsystem_sources RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/${subsystem}/*.h
       ${SOURCE_DIR}/${subsystem}/*.cpp)
  list(APPEND sources ${subsystem_sources})
endforeach()

foreach(source IN LISTS sources)
  math(EXPR scanned "${scanned} + 1")
  zo_room_of(${source})
  if(NOT room)
    list(APPEND problems "${source}: lies in no room, move it into one of ${room_names}")
    continue()
  endif()
  set(source_room ${room})
  set(source_rank ${rank})
  zo_part_of(${source})
  set(source_part ${part})
  set(source_is_public_header FALSE)
  if(source MATCHES "\\.h$" AND NOT source MATCHES "/detail/")
    set(source_is_public_header TRUE)
  endif()
  get_filename_component(source_dir ${source} DIRECTORY)

  file(STRINGS ${SOURCE_DIR}/${source} lines)
  set(line_number 0)
  foreach(line IN LISTS lines)
    math(EXPR line_number "${line_number} + 1")
    if(NOT line MATCHES "^[ \t]*#[ \t]*include[ \t]*([<\"])([^>\"]+)[>\"]")
      continue()
    endif()
    set(bracket "${CMAKE_MATCH_1}")
    set(name "${CMAKE_MATCH_2}")
    set(where "${source}:${line_number}")

    set(target "")
    if(name MATCHES "^zowidgets/(.+)$")
      set(target "${CMAKE_MATCH_1}")
    elseif(bracket STREQUAL "\"" AND EXISTS ${SOURCE_DIR}/${source_dir}/${name})
      get_filename_component(absolute ${SOURCE_DIR}/${source_dir}/${name} ABSOLUTE)
      file(RELATIVE_PATH target ${SOURCE_DIR} ${absolute})
    endif()

    if(NOT target)
      if(name MATCHES "${ZO_WINDOWING_HEADERS_REGEX}" AND NOT source_room IN_LIST ZO_WINDOWING_ROOMS)
        list(APPEND problems "${where}: includes <${name}>, but only ${windowing_names} may use the windowing libraries")
      elseif(NOT source_part STREQUAL "host" AND name MATCHES "[./]")
        list(APPEND problems "${where}: includes <${name}>, but outside host/ only the standard library and zowidgets' headers may be used")
      endif()
      continue()
    endif()

    zo_room_of(${target})
    if(NOT room)
      continue() # the umbrella header, or a file outside the libraries
    endif()
    if(rank GREATER source_rank)
      list(APPEND problems "${where}: ${source} includes ${target}, a room above it")
    endif()
    if(target MATCHES "/detail/")
      zo_part_of(${target})
      if(source_is_public_header)
        list(APPEND problems "${where}: public header ${source} includes private header ${target}")
      elseif(NOT part STREQUAL source_part)
        list(APPEND problems "${where}: ${source} includes ${target}, private to ${room}")
      endif()
    endif()
  endforeach()
endforeach()

if(problems)
  list(JOIN problems "\n  " text)
  message(FATAL_ERROR "The layers are crossed:\n  ${text}")
endif()
message(STATUS "Layers kept: ${scanned} files checked")
