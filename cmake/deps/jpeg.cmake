# libjpeg-turbo decodes JPEG pictures for ZoImage::Loader, at reduced scale
# when only a thumbnail is wanted.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_JPEG REQUIRED IMPORTED_TARGET libjpeg)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_JPEG)
