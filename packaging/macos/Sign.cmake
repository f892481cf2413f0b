# Signs a bundle, after the libraries and frameworks in it. With an identity the code gets the hardened runtime
# and a time stamp, as notarisation requires; without one it is signed ad hoc, which runs on the machine that
# built it.
#
#   cmake -DBUNDLE=… [-DIDENTITY=…] -P Sign.cmake
if(IDENTITY)
    set(how --sign "${IDENTITY}" --options runtime --timestamp)
else()
    set(how --sign -)
endif()

file(GLOB_RECURSE libraries LIST_DIRECTORIES FALSE "${BUNDLE}/Contents/*.dylib")
file(GLOB frameworks LIST_DIRECTORIES TRUE "${BUNDLE}/Contents/Frameworks/*.framework")
foreach(code IN LISTS libraries frameworks ITEMS "${BUNDLE}")
    if(NOT IS_SYMLINK "${code}")
        execute_process(COMMAND codesign --force ${how} "${code}" COMMAND_ERROR_IS_FATAL ANY)
    endif()
endforeach()
execute_process(COMMAND codesign --verify --deep --strict "${BUNDLE}" COMMAND_ERROR_IS_FATAL ANY)
