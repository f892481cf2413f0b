# `cpack` makes the system's package of a build, `cpack --config CPackSourceConfig.cmake` the source archive.
set(VANTLE_PACKAGE_MAINTAINER "The Vantle maintainers" CACHE STRING
    "Who answers for packages made of this build: a name, and an address in angle brackets")

set(CPACK_PACKAGE_NAME vantle-settings)
set(CPACK_PACKAGE_VENDOR Vantle)
set(CPACK_PACKAGE_CONTACT "${VANTLE_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "settings window of the Vantle notification agent")
set(CPACK_PACKAGE_DESCRIPTION_FILE ${CMAKE_CURRENT_SOURCE_DIR}/description.txt)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)

set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME vantle-settings-${PROJECT_VERSION})
set(CPACK_SOURCE_IGNORE_FILES "/build/" "/\\.git/" "/\\.git$" "/\\.cache/" "/__pycache__/" "/compile_commands\\.json$"
    "/CMakeUserPresets\\.json$" "\\.user$")

if(APPLE)
    set(CPACK_GENERATOR DragNDrop)
    set(CPACK_DMG_VOLUME_NAME "Vantle Settings")
    set(CPACK_VANTLE_SIGNING_IDENTITY "${VANTLE_SIGNING_IDENTITY}")
    set(CPACK_VANTLE_NOTARY_PROFILE "${VANTLE_NOTARY_PROFILE}")
    set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/macos/Notarise.cmake)
else()
    set(CPACK_GENERATOR DEB)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_SECTION utils)
    # Dependencies on linked libraries are read from the program. The others are needed only at run time: the toolkit's
    # Wayland platform is a plug-in, and without any font a window shows no text.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-wayland, fontconfig, fonts-dejavu-core | fonts-liberation | fonts-inter")
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-inter, at-spi2-core, xdg-utils")
    set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
    # The same modes whatever the umask of the user who makes the package.
    set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
        OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/copyright ${PROJECT_SOURCE_DIR}/THIRD-PARTY.md
        DESTINATION share/doc/vantle-settings)
endif()
include(CPack)
