# A complete installation below a prefix: the program, its shared data, and what a desktop needs to show it.
install(TARGETS vantle-settings DESTINATION ${CMAKE_INSTALL_BINDIR})

# The program looks for its shared data relative to its own folder, in ../share/vantle-settings.
file(CONFIGURE OUTPUT version CONTENT "${PROJECT_VERSION}\n" @ONLY)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/VantleSettings/Resources/Fonts
    DESTINATION ${CMAKE_INSTALL_DATADIR}/vantle-settings)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/version DESTINATION ${CMAKE_INSTALL_DATADIR}/vantle-settings)

# The day of the release, as the newest section of CHANGELOG.md says it once it is no longer "unreleased".
set(VANTLE_RELEASE_DATE 2026-11-21)
string(REGEX MATCH "^(....)-(..)-0?(.*)$" parts ${VANTLE_RELEASE_DATE})
set(months January February March April May June July August September October November December)
math(EXPR month "${CMAKE_MATCH_2} - 1")
list(GET months ${month} month)
set(VANTLE_RELEASE_DATE_MAN "${month} ${CMAKE_MATCH_3}, ${CMAKE_MATCH_1}")
configure_file(linux/com.vantle.settings.metainfo.xml.in com.vantle.settings.metainfo.xml @ONLY)
configure_file(linux/vantle-settings.1.in vantle-settings.1 @ONLY)
configure_file(linux/copyright.in copyright @ONLY)
install(FILES linux/com.vantle.settings.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

# Desktops start the program through the session bus, which needs its absolute path. That is known only when the
# program is installed.
install(CODE "
    set(VANTLE_PROGRAM \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/vantle-settings\")
    configure_file([[${CMAKE_CURRENT_SOURCE_DIR}/linux/com.vantle.settings.service.in]]
        [[${CMAKE_CURRENT_BINARY_DIR}/com.vantle.settings.service]] @ONLY)")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/com.vantle.settings.service
    DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)

install(FILES ${CMAKE_CURRENT_BINARY_DIR}/com.vantle.settings.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vantle-settings.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(icons)
foreach(size IN ITEMS 16 22 24 32 48 64 96 128 256 512)
    set(picture ${CMAKE_CURRENT_BINARY_DIR}/icon-${size}.png)
    vantle_icon(${size} ${picture})
    list(APPEND icons ${picture})
    install(FILES ${picture} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
        RENAME com.vantle.settings.png)
endforeach()
add_custom_target(icons ALL DEPENDS ${icons})
install(FILES icon/vantle-settings.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
    RENAME com.vantle.settings.svg)
