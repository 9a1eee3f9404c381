# cpack -G DEB: four packages, of the library and its headers, of the command, of what has windows,
# and of the browser window.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME paperway)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The maintainers of Paperway")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library command desktop web)
if(NOT PAPERWAY_APP)
  list(REMOVE_ITEM CPACK_COMPONENTS_ALL command)
endif()
if(NOT PAPERWAY_DESKTOP)
  list(REMOVE_ITEM CPACK_COMPONENTS_ALL desktop)
endif()
if(NOT PAPERWAY_WEB)
  list(REMOVE_ITEM CPACK_COMPONENTS_ALL web)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(this_version "(= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libpaperway-dev)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SUGGESTS "libsqlite3-dev, unixodbc-dev, libisal-dev, paperway-desktop, paperway-web")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "${PROJECT_DESCRIPTION}: library and headers
 For hosts without windows; hosts with windows need paperway-desktop as well.")

set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME paperway)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION text)
set(CPACK_DEBIAN_COMMAND_PACKAGE_RECOMMENDS "paperway-desktop ${this_version}")
set(CPACK_COMPONENT_COMMAND_DESCRIPTION "${PROJECT_DESCRIPTION}: the command
 Writes, prints and shows paged reports of the rows of a database.")

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME paperway-desktop)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SECTION text)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "fonts-liberation2 | fonts-liberation")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS "paperway ${this_version}, paperway-web ${this_version}")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SUGGESTS
    "libpaperway-dev ${this_version}, qt6-base-dev, libcups2-dev")
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION "${PROJECT_DESCRIPTION}: windows
 The windows of the command paperway, and the library of hosts with windows.")
set(CPACK_DEBIAN_WEB_PACKAGE_NAME paperway-web)
set(CPACK_DEBIAN_WEB_PACKAGE_SECTION text)
set(CPACK_DEBIAN_WEB_PACKAGE_DEPENDS "fonts-liberation, paperway-desktop ${this_version}")
set(CPACK_DEBIAN_WEB_PACKAGE_SUGGESTS
    "libpaperway-dev ${this_version}, qt6-webengine-dev, qt6-pdf-dev, libqpdf-dev")
set(CPACK_COMPONENT_WEB_DESCRIPTION "${PROJECT_DESCRIPTION}: the browser window
 Shows and prints reports that are HTML, and the library of hosts that do.")
include(CPack)
