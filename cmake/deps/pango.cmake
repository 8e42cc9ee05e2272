# pango lays out and measures text and draws it through cairo.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_PANGO REQUIRED IMPORTED_TARGET pangocairo)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_PANGO)
