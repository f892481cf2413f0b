# Run by CPack when the disk image is made: has Apple notarise it and staples the ticket to it, so that it opens on a
# Mac without a network. Without an identity to sign with, or without credentials for the service, it does neither.
#
# CPACK_VANTLE_NOTARY_PROFILE is the name under which `xcrun notarytool store-credentials` keeps the credentials.
if(NOT CPACK_VANTLE_SIGNING_IDENTITY OR NOT CPACK_VANTLE_NOTARY_PROFILE)
    message(STATUS "Not notarised: set VANTLE_SIGNING_IDENTITY and VANTLE_NOTARY_PROFILE for that")
    return()
endif()
foreach(image IN LISTS CPACK_PACKAGE_FILES)
    execute_process(COMMAND codesign --force --sign "${CPACK_VANTLE_SIGNING_IDENTITY}" --timestamp "${image}"
        COMMAND_ERROR_IS_FATAL ANY)
    execute_process(
        COMMAND xcrun notarytool submit "${image}" --keychain-profile "${CPACK_VANTLE_NOTARY_PROFILE}" --wait
        COMMAND_ERROR_IS_FATAL ANY)
    # This also fails if the service has refused the image.
    execute_process(COMMAND xcrun stapler staple "${image}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
