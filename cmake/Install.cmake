# What an installation has, in its place under any prefix.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/pelrath)

set(PELRATH_RELEASED 2026-11-22)
set(PELRATH_MAINTAINER "The author of Pelrath <author@pelrath.example>")
# Names that are reserved and nobody's, until the program has a page of its own.
set(PELRATH_SITE https://pelrath.example)
set(PELRATH_ID example.pelrath.pelrath)

set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(made ${CMAKE_CURRENT_BINARY_DIR}/desktop)
set(drawn ${CMAKE_CURRENT_SOURCE_DIR}/packaging/desktop)
file(MAKE_DIRECTORY ${made})
configure_file(${drawn}/metainfo.xml.in ${made}/${PELRATH_ID}.metainfo.xml @ONLY)
configure_file(${drawn}/pelrath.1.in ${made}/pelrath.1 @ONLY)

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
foreach(side 16 22 24 32 48 64 128 256 512)
    set(icon ${made}/pelrath-${side}.png)
    add_custom_command(OUTPUT ${icon} DEPENDS ${drawn}/pelrath.svg VERBATIM
                       COMMAND ${RSVG_CONVERT} -w ${side} -h ${side} -o ${icon} ${drawn}/pelrath.svg)
    list(APPEND icons ${icon})
    install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${side}x${side}/apps RENAME pelrath.png)
endforeach()
configure_file(packaging/pelrath-batch.1.in ${made}/pelrath-batch.1 @ONLY)
foreach(page pelrath pelrath-batch)
    add_custom_command(OUTPUT ${made}/${page}.1.gz DEPENDS ${made}/${page}.1 VERBATIM
                       COMMAND gzip -9nkf ${made}/${page}.1)
    list(APPEND pages ${made}/${page}.1.gz)
endforeach()
add_custom_target(desktop-files ALL DEPENDS ${icons} ${pages})

install(TARGETS pelrath pelrath-batch)
install(FILES ${drawn}/pelrath.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${drawn}/pelrath.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${drawn}/pelrath.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${made}/${PELRATH_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/pelrath-batch.bash RENAME pelrath-batch
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES packaging/debian/copyright docs/guide.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/pictures DESTINATION ${CMAKE_INSTALL_DOCDIR})
# What the console program is compiled with wants its terms to go along.
foreach(library libcli11-dev nlohmann-json3-dev)
    install(FILES /usr/share/doc/${library}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright.${library})
endforeach()
