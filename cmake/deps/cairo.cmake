# cairo draws every primitive of the host's renderer into image surfaces.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ZO_CAIRO REQUIRED IMPORTED_TARGET cairo)
target_link_libraries(zohost PRIVATE PkgConfig::ZO_CAIRO)
