# SDL2 gives the display backend its windows, their input and the clipboard.
# The top-level build globs only host/ and host/headless/, so the backend's
# sources join zohost here.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_SDL2 REQUIRED IMPORTED_TARGET sdl2)
target_sources(zohost PRIVATE
  ${CMAKE_SOURCE_DIR}/host/display/BackendChoice.cpp
  ${CMAKE_SOURCE_DIR}/host/display/DisplayScreen.cpp
  ${CMAKE_SOURCE_DIR}/host/display/detail/DisplayShell.cpp
  ${CMAKE_SOURCE_DIR}/host/display/detail/NativeWindow.cpp)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_SDL2)
