# A wrong use of the standard library's types, such as reading an empty optional, ends every build of the program.
if(NOT APPLE)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

# Protections of the release build against memory errors that the tests have missed: a position-independent executable
# with read-only relocations, checked library calls, stack protection and checked indirect jumps.
# tests/security/hardening_test.py checks the built program for each. Builds with sanitizers detect the same errors
# themselves and have none of these.
if(VANTLE_SANITIZERS OR VANTLE_COVERAGE)
    return()
endif()

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
add_compile_options(-fstack-protector-strong)
# Some distributions' compilers define the macro themselves, to a lower level.
add_compile_options($<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=2>)

if(NOT APPLE)
    add_compile_options(-fstack-clash-protection)
    add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i[3-6]86")
        add_compile_options(-fcf-protection=full)
    elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|arm64")
        add_compile_options(-mbranch-protection=standard)
    endif()
endif()
