# The program as an application bundle, which is complete in the build folder already.
set_target_properties(vantle-settings PROPERTIES
    MACOSX_BUNDLE TRUE
    OUTPUT_NAME "Vantle Settings"
    MACOSX_BUNDLE_INFO_PLIST ${CMAKE_CURRENT_SOURCE_DIR}/macos/Info.plist.in)

function(vantle_bundle_resources location)
    target_sources(vantle-settings PRIVATE ${ARGN})
    set_source_files_properties(${ARGN} TARGET_DIRECTORY vantle-settings
        PROPERTIES MACOSX_PACKAGE_LOCATION ${location})
endfunction()

file(GLOB fonts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/VantleSettings/Resources/Fonts/*)
vantle_bundle_resources(Resources/Fonts ${fonts})
file(GLOB licenses CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/licenses/*)
vantle_bundle_resources(Resources/Licenses
    ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/THIRD-PARTY.md ${licenses})

# The icon set needs a tool that only a Mac has; a cross build goes without.
if(CMAKE_HOST_APPLE)
    set(iconset ${CMAKE_CURRENT_BINARY_DIR}/VantleSettings.iconset)
    file(MAKE_DIRECTORY ${iconset})
    set(pictures)
    # Icons of macOS have a margin of a tenth of the width on each side. The drawings have a part of that margin; the
    # inset adds the rest.
    foreach(entry IN ITEMS 16:16x16 32:16x16@2x 32:32x32 64:32x32@2x 128:128x128 256:128x128@2x 256:256x256
            512:256x256@2x 512:512x512 1024:512x512@2x)
        string(REGEX MATCH "^([0-9]+):(.+)$" entry ${entry})
        set(size ${CMAKE_MATCH_1})
        set(picture ${iconset}/icon_${CMAKE_MATCH_2}.png)
        set(drawing ${CMAKE_CURRENT_SOURCE_DIR}/icon/vantle-settings.svg)
        set(inset 0.056)
        if(size LESS_EQUAL 16)
            set(drawing ${CMAKE_CURRENT_SOURCE_DIR}/icon/vantle-settings-small.svg)
            set(inset 0.03)
        endif()
        add_custom_command(OUTPUT ${picture}
            COMMAND render-icon ${drawing} ${inset} ${size} ${picture}
            DEPENDS render-icon ${drawing}
            VERBATIM)
        list(APPEND pictures ${picture})
    endforeach()
    set(icns ${CMAKE_CURRENT_BINARY_DIR}/VantleSettings.icns)
    add_custom_command(OUTPUT ${icns}
        COMMAND iconutil --convert icns --output ${icns} ${iconset}
        DEPENDS ${pictures}
        VERBATIM)
    vantle_bundle_resources(Resources ${icns})
    # The program is a target of another folder, and only dependencies between targets apply across folders.
    add_custom_target(icons DEPENDS ${icns})
    add_dependencies(vantle-settings icons)
endif()

install(TARGETS vantle-settings BUNDLE DESTINATION .)

set(VANTLE_SIGNING_IDENTITY "" CACHE STRING
    "Whose certificate signs the bundle, as `security find-identity` names it; ad hoc where none is named")
set(VANTLE_NOTARY_PROFILE "" CACHE STRING
    "The name under which `xcrun notarytool store-credentials` keeps the credentials; none: nothing is notarised")

# An installed bundle contains the toolkit, which may need a newer macOS than the program and has to be signed too.
if(CMAKE_HOST_APPLE)
    # The script that the toolkit would generate ends the bundle's name at the space in it.
    set(deploy ${CMAKE_CURRENT_BINARY_DIR}/deploy.cmake)
    file(GENERATE OUTPUT ${deploy} CONTENT "include(\"${QT_DEPLOY_SUPPORT}\")
qt6_deploy_runtime_dependencies(EXECUTABLE \"Vantle Settings.app\")
")
    install(SCRIPT ${deploy})
    install(CODE [[set(BUNDLE "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/Vantle Settings.app")]])
    install(CODE "set(IDENTITY \"${VANTLE_SIGNING_IDENTITY}\")")
    install(SCRIPT ${CMAKE_CURRENT_SOURCE_DIR}/macos/MinimumSystem.cmake)
    install(SCRIPT ${CMAKE_CURRENT_SOURCE_DIR}/macos/Sign.cmake)
endif()
