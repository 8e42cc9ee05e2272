# librsvg draws the icon theme's SVG artwork through cairo
# (host/drawing/SvgIcon.cpp). Its headers stay in that source, so the link is
# private.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_RSVG REQUIRED IMPORTED_TARGET librsvg-2.0)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_RSVG)
