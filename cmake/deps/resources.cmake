# The string tables (resources/strings/<language>.json) ship with zohost. The
# library finds them beside itself once installed (the data folder, reached
# from the library folder by ZO_STRINGS_RELATIVE_DIR) and in the source tree
# before that (ZO_STRINGS_SOURCE_DIR). dladdr tells the library where it is.
set(ZO_STRINGS_INSTALL_DIR ${CMAKE_INSTALL_DATADIR}/zowidgets/strings)
file(GLOB ZO_STRING_TABLES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/strings/*.json)
install(FILES ${ZO_STRING_TABLES} DESTINATION ${ZO_STRINGS_INSTALL_DIR})

file(RELATIVE_PATH ZO_STRINGS_RELATIVE_DIR ${CMAKE_INSTALL_FULL_LIBDIR}
     ${CMAKE_INSTALL_FULL_DATADIR}/zowidgets/strings)
target_compile_definitions(zohost PRIVATE
  ZO_STRINGS_RELATIVE_DIR="${ZO_STRINGS_RELATIVE_DIR}"
  ZO_STRINGS_SOURCE_DIR="${CMAKE_SOURCE_DIR}/resources/strings")
target_link_libraries(zohost PRIVATE ${CMAKE_DL_LIBS})
