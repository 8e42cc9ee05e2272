# The codec libraries give the media services their real containers and
# encoders, and write the gallery's test clips. Optional: without them the
# services have only their built-in table.
option(ZO_WITH_LIBAV "Build the media services on the system's codec libraries" ON)
if(ZO_WITH_LIBAV)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(ZO_LIBAV IMPORTED_TARGET libavformat libavcodec libavutil libswscale)
  if(ZO_LIBAV_FOUND)
    target_link_libraries(zohost PRIVATE PkgConfig::ZO_LIBAV)
    target_compile_definitions(zohost PRIVATE ZO_HAVE_LIBAV=1)
  else()
    message(STATUS "Codec libraries not found: the media services keep to their built-in table")
  endif()
endif()
