# What the release build does against memory errors that testing has missed: a program at a random address whose
# jump tables are read-only from the start, with checked library calls, guarded stacks and checked indirect
# jumps. tests/security/hardening_test.py looks at the built program for each. Builds with sanitizers find the same
# errors in their own way and go without.
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
    add_compile_definitions($<${optimised}:_GLIBCXX_ASSERTIONS>)
    add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i[3-6]86")
        add_compile_options(-fcf-protection=full)
    elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|arm64")
        add_compile_options(-mbranch-protection=standard)
    endif()
endif()
