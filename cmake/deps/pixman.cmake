# pixman, cairo's own pixel engine, lays whole-pixel fills and masked colour
# straight into canvases (host/drawing/detail/PixelCompositor.cpp) without cairo's per-call
# setup.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_PIXMAN REQUIRED IMPORTED_TARGET pixman-1)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_PIXMAN)
