# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian package.
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarvokol)
set(CPACK_PACKAGE_VENDOR "The TARVO-KOL authors")
set(CPACK_PACKAGE_CONTACT "The TARVO-KOL authors <support@oltek.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_COMPONENTS_ALL program)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_TARVOKOL_SOURCE ${CMAKE_SOURCE_DIR})
set(CPACK_TARVOKOL_VERSION ${TARVOKOL_VERSION_TEXT})
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/debian/cpack_version.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_NAME tarvokol)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://www.oltek.example/tarvokol/)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "design of web and barrier pillars of highwall mining panels")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A highwall miner drives a row of parallel holes into a coal seam. Web
pillars stand between the holes, and a wider barrier pillar closes each
group. TARVO-KOL tells the mining engineer whether a layout will stand,
and how wide webs and barriers must be for a wanted margin of safety.

The package has the desktop program tarvokol and the command line
tarvokol-cli, help, manual, reference notes and example projects.")

# The libraries are found in the programs. What they load by name, or ask the system for, is listed where the build's own
# packages are; only the workbook library's package carries the number of its interface.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
string(REPLACE ".so." "" workbook_package ${TARVOKOL_XLSX_LIBRARY})
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/packaging/debian_packages.sh)
execute_process(COMMAND bash -c ". packaging/debian_packages.sh && echo $RUN_PACKAGES" WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
                OUTPUT_VARIABLE run_packages OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE " " ", " run_packages "${workbook_package} ${run_packages}")
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${run_packages}")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, evince | pdf-viewer, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libreoffice-calc | gnumeric")
include(CPack)
