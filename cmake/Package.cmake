# The Debian package: what is installed, and what Debian wants to know of it.
find_program(DATE date REQUIRED)
execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C ${DATE} --utc --rfc-email --date ${PELRATH_RELEASED}
                OUTPUT_VARIABLE PELRATH_RELEASED_LONG OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(packaging/debian/changelog.in ${made}/changelog.Debian @ONLY)
execute_process(COMMAND gzip -9nkf ${made}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${made}/changelog.Debian.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pelrath)
set(CPACK_PACKAGE_VERSION ${PELRATH_VERSION})
set(CPACK_PACKAGE_CONTACT ${PELRATH_MAINTAINER})
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The program's terms allow it to be used for some things only.
set(CPACK_DEBIAN_PACKAGE_SECTION non-free/graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# A Wayland desktop's window system, and what opens folders and web pages.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "look at and repaint the textures in CDDS archives")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Pelrath opens the texture archives (.cdds) of a combat flight simulator. It
finds one texture among thousands while its name is typed, shows it at any
scale, level by level and channel by channel, extracts it as DDS, BMP or TGA
for an image editor, and puts the edited picture back in its place.
.
The archive is copied before it is changed. An insertion that was interrupted
is completed at the next start, or as if it had never begun.")
include(CPack)
