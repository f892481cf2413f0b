# Writes the oldest macOS that every binary in a bundle runs on into the bundle's Info.plist: the program's own
# deployment target, or that of the toolkit in the bundle if it is newer.
#
#   cmake -DBUNDLE=… -P MinimumSystem.cmake
file(GLOB_RECURSE files LIST_DIRECTORIES FALSE
    "${BUNDLE}/Contents/MacOS/*" "${BUNDLE}/Contents/Frameworks/*" "${BUNDLE}/Contents/PlugIns/*")
set(minimum 0)
foreach(file IN LISTS files)
    if(IS_SYMLINK "${file}")
        continue()
    endif()
    file(READ "${file}" magic LIMIT 4 HEX)
    if(NOT magic MATCHES "^(cffaedfe|cafebabe|cafebabf)$") # a Mach-O binary, or one for several processors
        continue()
    endif()
    execute_process(COMMAND otool -l "${file}" OUTPUT_VARIABLE commands COMMAND_ERROR_IS_FATAL ANY)
    # LC_BUILD_VERSION says minos; LC_VERSION_MIN_MACOSX, which older linkers write, says version.
    string(REGEX MATCHALL "(minos|LC_VERSION_MIN_MACOSX\n[^\n]*\n *version) [0-9.]+" versions "${commands}")
    if(NOT versions)
        message(FATAL_ERROR "${file} does not say which macOS it needs")
    endif()
    foreach(version IN LISTS versions)
        string(REGEX REPLACE ".* " "" version "${version}")
        if(version VERSION_GREATER minimum)
            set(minimum ${version})
        endif()
    endforeach()
endforeach()
if(minimum EQUAL 0)
    message(FATAL_ERROR "There is no binary in ${BUNDLE}")
endif()

set(plist "${BUNDLE}/Contents/Info.plist")
file(READ "${plist}" text)
set(entry "(<key>LSMinimumSystemVersion</key>[ \t\r\n]*<string>)[^<]*")
if(NOT text MATCHES "${entry}")
    message(FATAL_ERROR "${plist} has no LSMinimumSystemVersion")
endif()
string(REGEX REPLACE "${entry}" "\\1${minimum}" text "${text}")
file(WRITE "${plist}" "${text}")
message(STATUS "The bundle needs macOS ${minimum}")
