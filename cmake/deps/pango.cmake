# pango lays out and measures text and draws it through cairo; harfbuzz,
# under pango, tells which of its fonts draw glyphs in colour.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_PANGO REQUIRED IMPORTED_TARGET pangocairo)
pkg_check_modules(ZO_HARFBUZZ REQUIRED IMPORTED_TARGET harfbuzz)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_PANGO PkgConfig::ZO_HARFBUZZ)
