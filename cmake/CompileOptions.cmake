# The compile options of every target of this project, which links `VantleCompileOptions` privately.
add_library(VantleCompileOptions INTERFACE)
# With optimisation GCC warns of a null dereference at every QPointer, so the warning is only on with Clang.
target_compile_options(VantleCompileOptions INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wimplicit-fallthrough $<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wnull-dereference> -Wformat=2
    $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-arc>)
target_compile_definitions(VantleCompileOptions INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_NO_KEYWORDS
    QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# Off on macOS, where compilers and toolkits are usually newer than the tested ones: a new warning should not stop the
# build.
if(APPLE)
    set(warningsAreErrors OFF)
else()
    set(warningsAreErrors ON)
endif()
option(VANTLE_WARNINGS_ARE_ERRORS "Let no warning pass" ${warningsAreErrors})
if(VANTLE_WARNINGS_ARE_ERRORS)
    target_compile_options(VantleCompileOptions INTERFACE -Werror)
endif()

set(VANTLE_SANITIZERS "" CACHE STRING "Sanitizers for the whole build, e.g. address,undefined")
if(VANTLE_SANITIZERS)
    add_compile_options(-fsanitize=${VANTLE_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${VANTLE_SANITIZERS})
endif()
option(VANTLE_COVERAGE "Instrument for line coverage (clang only)" OFF)
if(VANTLE_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
    add_link_options(-fprofile-instr-generate)
endif()
