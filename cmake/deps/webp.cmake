# libwebp decodes WebP pictures for ZoImage::Loader.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_WEBP REQUIRED IMPORTED_TARGET libwebp)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_WEBP)
