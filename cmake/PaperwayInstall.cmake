# find_package(paperway) and pkg-config. A host includes <paperway/class1.h>, as the library itself
# does; nothing but include/ is installed.
include(CMakePackageConfigHelpers)

set(installed paperway_core paperway_headless paperway_system paperway_memory)
set(PAPERWAY_CONFIG_DEPENDENCIES "")
set(PAPERWAY_PC_REQUIRES "")
set(PAPERWAY_PC_SYSTEM_LIBS "")
if(PAPERWAY_DATA)
  list(APPEND installed paperway_sqlite paperway_odbc)
  set(PAPERWAY_PC_REQUIRES "sqlite3, odbc")
  set(PAPERWAY_PC_SYSTEM_LIBS "-pthread")
  string(APPEND PAPERWAY_CONFIG_DEPENDENCIES "find_dependency(SQLite3)\nfind_dependency(ODBC)\nfind_dependency(Threads)\n")
endif()

# All are archives: each stands before the ones that it uses. A program without windows is not to
# load Qt, so that the desktop is for find_package alone.
set(PAPERWAY_PC_LIBS ${installed})
list(REVERSE PAPERWAY_PC_LIBS)
list(TRANSFORM PAPERWAY_PC_LIBS PREPEND "-l")
list(JOIN PAPERWAY_PC_LIBS " " PAPERWAY_PC_LIBS)

if(PAPERWAY_DESKTOP)
  list(APPEND installed paperway_qt paperway_cups)
  string(APPEND PAPERWAY_CONFIG_DEPENDENCIES "find_dependency(Qt6 COMPONENTS Widgets PrintSupport)\nfind_dependency(Cups)\n")
endif()

install(TARGETS ${installed} EXPORT paperway ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT paperway NAMESPACE paperway:: FILE paperway-targets.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/paperway)
install(DIRECTORY include/paperway DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

configure_package_config_file(cmake/paperway-config.cmake.in paperway-config.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/paperway)
write_basic_package_version_file(paperway-config-version.cmake COMPATIBILITY SameMinorVersion)
configure_file(cmake/paperway.pc.in paperway.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/paperway-config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/paperway-config-version.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/paperway)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/paperway.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
