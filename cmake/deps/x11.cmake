# Xlib and its shared-memory extension read the desktop's pixels, the pointer
# outside our windows, cursors and the display's density for the display
# backend; the input extension's raw events tell of every button press.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_X11 REQUIRED IMPORTED_TARGET x11 xext xi)
target_sources(zohost PRIVATE ${CMAKE_SOURCE_DIR}/host/display/detail/X11Screen.cpp)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_X11)
