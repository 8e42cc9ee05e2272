# Font enumeration for Glib::getAvailableFonts. Its headers stay inside
# host/drawing/Fonts.cpp, so the link is private.
find_package(PkgConfig REQUIRED)
pkg_check_modules(FONTCONFIG REQUIRED IMPORTED_TARGET fontconfig)
target_link_libraries(zohost PRIVATE PkgConfig::FONTCONFIG)
