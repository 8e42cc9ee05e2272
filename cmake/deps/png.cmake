# libpng reads and writes the PNG files of Zo::Image::Surface.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_PNG REQUIRED IMPORTED_TARGET libpng)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_PNG)
