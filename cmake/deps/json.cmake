# JSON reading (host/base/JSONParse.cpp). Header-only, and kept out of the public
# headers, so it is needed only to build zohost.
find_package(PkgConfig REQUIRED)
pkg_check_modules(RAPIDJSON REQUIRED IMPORTED_TARGET RapidJSON)
target_link_libraries(zohost PRIVATE PkgConfig::RAPIDJSON)
