include(CMakePackageConfigHelpers)

# Headers keep their subsystem folders and rooms under include/zowidgets/;
# the private ones in detail/ folders are not installed.
set(ZO_HEADER_DIRS host ${ZO_SUBSYSTEMS})
foreach(dir IN LISTS ZO_HEADER_DIRS)
  install(DIRECTORY ${dir}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zowidgets/${dir}
          FILES_MATCHING PATTERN "*.h" PATTERN "detail" EXCLUDE)
endforeach()
install(FILES zowidgets.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zowidgets)

install(TARGETS zohost zowidgets EXPORT zowidgetsTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT zowidgetsTargets NAMESPACE zowidgets::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zowidgets)

configure_package_config_file(cmake/zowidgetsConfig.cmake.in
  ${CMAKE_BINARY_DIR}/zowidgetsConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zowidgets)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/zowidgetsConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/zowidgetsConfig.cmake ${CMAKE_BINARY_DIR}/zowidgetsConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zowidgets)

# The .pc file finds its prefix from where it lies, so that an install with
# --prefix gives a working file.
file(RELATIVE_PATH ZO_PC_PREFIX_FROM_PCFILEDIR ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/zowidgets.pc.in ${CMAKE_BINARY_DIR}/zowidgets.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/zowidgets.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# The sanitizers' suppressions of what the system's font libraries keep for
# the whole process, for programs built on the library to check themselves.
install(FILES scripts/lsan.supp scripts/tsan.supp DESTINATION ${CMAKE_INSTALL_DATADIR}/zowidgets)

# The first program of the docs, to build against the install as it stands.
install(DIRECTORY apps/examples/first-panel DESTINATION ${CMAKE_INSTALL_DATADIR}/zowidgets/examples)
