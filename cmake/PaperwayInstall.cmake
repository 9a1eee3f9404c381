# What a host takes, by find_package(paperway) and by pkg-config: `paperway`, which needs no other
# library, and a product of its own for each part that does. A product is made of the objects of
# some rooms: an archive, and with PAPERWAY_SHARED a shared library too.
include(CMakePackageConfigHelpers)

set(paperway_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/paperway)
set(paperway_so_version ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
file(RELATIVE_PATH PAPERWAY_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" PAPERWAY_PC_PREFIX ${PAPERWAY_PC_PREFIX})

function(paperway_install_library target name kind)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME ${file} EXPORT_NAME ${name} LINKER_LANGUAGE CXX)
  target_include_directories(${target} INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${target} INTERFACE cxx_std_20)
  install(TARGETS ${target} EXPORT paperway-${name}-${kind} COMPONENT ${product_COMPONENT}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(EXPORT paperway-${name}-${kind} NAMESPACE paperway:: COMPONENT ${product_COMPONENT}
          DESTINATION ${paperway_cmake_dir})
endfunction()

# The shared library exports the public headers alone: one that stands on another takes what it needs
# of the inner parts from their archives.
function(paperway_shared_library name)
  set(target lib${file}-shared)
  add_library(${target} SHARED ${objects})
  set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION}
                                             SOVERSION ${paperway_so_version})
  target_link_options(${target} PRIVATE -Wl,--exclude-libs,ALL)
  if(PAPERWAY_SANITIZE)
    target_link_options(${target} PRIVATE -fsanitize=${PAPERWAY_SANITIZE})
  else()
    target_link_options(${target} PRIVATE -Wl,-z,defs)
  endif()
  if(NOT name STREQUAL paperway)
    target_link_libraries(${target} PUBLIC libpaperway-shared
      PRIVATE $<TARGET_FILE:paperway_system> $<TARGET_FILE:paperway_core>)
    add_dependencies(${target} paperway_system paperway_core)
  endif()
  # By their files, so that a host need not find the packages that they come from.
  target_link_libraries(${target} PRIVATE ${product_FILES})
  paperway_install_library(${target} ${name} shared)
endfunction()

# paperway_product(name COMPONENT ROOMS USES FILES PC_REQUIRES PC_LIBS DESCRIPTION): paperway::name,
# and paperway-name.pc. What the rooms need is said three times: as targets for a host's CMake, as files
# for the shared library, and for pkg-config.
function(paperway_product name)
  cmake_parse_arguments(product "" "COMPONENT;DESCRIPTION" "ROOMS;USES;FILES;PC_REQUIRES;PC_LIBS" ${ARGN})
  set(file paperway-${name})
  set(PAPERWAY_PC_REQUIRES paperway ${product_PC_REQUIRES})
  if(name STREQUAL paperway)
    set(file paperway)
    set(PAPERWAY_PC_REQUIRES "")
  endif()
  foreach(room ${product_ROOMS})
    list(APPEND objects $<TARGET_OBJECTS:paperway_${room}>)
  endforeach()
  add_library(lib${file} STATIC ${objects})
  target_link_libraries(lib${file} INTERFACE ${product_USES})
  if(NOT name STREQUAL paperway)
    target_link_libraries(lib${file} INTERFACE libpaperway)
  endif()
  paperway_install_library(lib${file} ${name} static)

  set(PAPERWAY_PC_NAME ${file})
  set(PAPERWAY_PC_DESCRIPTION ${product_DESCRIPTION})
  list(JOIN product_PC_LIBS " " PAPERWAY_PC_LIBS)
  if(PAPERWAY_SHARED)
    paperway_shared_library(${name})
    list(REMOVE_ITEM PAPERWAY_PC_REQUIRES ${product_PC_REQUIRES})
    set(PAPERWAY_PC_LIBS "")
  endif()
  list(JOIN PAPERWAY_PC_REQUIRES ", " PAPERWAY_PC_REQUIRES)
  configure_file(cmake/paperway.pc.in ${file}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${file}.pc COMPONENT ${product_COMPONENT}
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

paperway_product(paperway COMPONENT library ROOMS core headless memory system
                 DESCRIPTION ${PROJECT_DESCRIPTION})
set(excluded PATTERN desktop.h EXCLUDE PATTERN web.h EXCLUDE)
if(PAPERWAY_DATA)
  find_package(SQLite3 REQUIRED)
  find_package(ODBC REQUIRED)
  find_package(Threads REQUIRED)
  paperway_product(sqlite COMPONENT library ROOMS sqlite USES SQLite::SQLite3
                   FILES $<TARGET_FILE:SQLite::SQLite3> PC_REQUIRES sqlite3
                   DESCRIPTION "Recordsets of Paperway over SQLite")
  paperway_product(odbc COMPONENT library ROOMS odbc USES ODBC::ODBC Threads::Threads
                   FILES $<TARGET_FILE:ODBC::ODBC> PC_REQUIRES odbc PC_LIBS -pthread
                   DESCRIPTION "Recordsets of Paperway over ODBC")
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(ISAL libisal)
  if(ISAL_FOUND)
    set(deflate isal libisal)
  else()
    set(deflate z zlib)
  endif()
  list(POP_FRONT deflate deflate_library)
  paperway_product(workbook COMPONENT library ROOMS workbook USES ${deflate_library}
                   FILES ${deflate_library} PC_REQUIRES ${deflate}
                   DESCRIPTION "Workbook files of Paperway")
else()
  list(APPEND excluded PATTERN sqlite.h EXCLUDE PATTERN odbc.h EXCLUDE REGEX "paperway/workbook\\.h$" EXCLUDE)
endif()
if(PAPERWAY_DESKTOP)
  find_package(Qt6 REQUIRED COMPONENTS Widgets PrintSupport)
  find_package(Cups REQUIRED)
  paperway_product(desktop COMPONENT desktop ROOMS desktop cups qt
                   USES Qt6::Widgets Qt6::PrintSupport Cups::Cups
                   FILES $<TARGET_FILE:Qt6::PrintSupport> $<TARGET_FILE:Qt6::Widgets>
                         $<TARGET_FILE:Qt6::Gui> $<TARGET_FILE:Qt6::Core> ${CUPS_LIBRARIES}
                   PC_REQUIRES Qt6Widgets Qt6PrintSupport PC_LIBS -lcups
                   DESCRIPTION "The desktop of Paperway: windows, dialogs, printers")
  install(FILES include/paperway/desktop.h COMPONENT desktop
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/paperway)
endif()
if(PAPERWAY_WEB)
  find_package(Qt6 REQUIRED COMPONENTS WebEngineWidgets Pdf)
  find_package(qpdf REQUIRED)
  paperway_product(web COMPONENT web ROOMS web
                   USES Qt6::WebEngineWidgets Qt6::Pdf qpdf::libqpdf
                   FILES $<TARGET_FILE:Qt6::WebEngineWidgets> $<TARGET_FILE:Qt6::WebEngineCore>
                         $<TARGET_FILE:Qt6::Pdf> $<TARGET_FILE:Qt6::Widgets> $<TARGET_FILE:Qt6::Gui>
                         $<TARGET_FILE:Qt6::Core> $<TARGET_FILE:qpdf::libqpdf>
                   PC_REQUIRES Qt6WebEngineWidgets Qt6Pdf libqpdf
                   DESCRIPTION "The browser window of Paperway")
  install(FILES include/paperway/web.h COMPONENT web
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/paperway)
endif()
install(DIRECTORY include/paperway COMPONENT library DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        ${excluded})

configure_package_config_file(cmake/paperway-config.cmake.in paperway-config.cmake
  INSTALL_DESTINATION ${paperway_cmake_dir})
write_basic_package_version_file(paperway-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/paperway-config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/paperway-config-version.cmake
        COMPONENT library DESTINATION ${paperway_cmake_dir})
include(PaperwayPackages)
