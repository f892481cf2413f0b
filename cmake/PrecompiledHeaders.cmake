# Reading the toolkit's headers takes longer than compiling what stands below them, and the builds for testing
# compile every source. With this on they read those headers once for each kind of target. Off by default: then
# every source must itself include what it uses.
option(VANTLE_PRECOMPILED_HEADERS "Compile the toolkit's headers once" OFF)

# vantle_headers(name HEADERS … LIBRARIES …)
# Headers that targets have in common, and the libraries that they are of.
function(vantle_headers name)
    if(NOT VANTLE_PRECOMPILED_HEADERS)
        return()
    endif()
    cmake_parse_arguments(arg "" "" "HEADERS;LIBRARIES" ${ARGN})
    add_library(${name} OBJECT ${PROJECT_SOURCE_DIR}/cmake/Empty.cpp)
    target_link_libraries(${name} PRIVATE VantleCompileOptions ${arg_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

# Lets the target start from such headers.
function(vantle_precompile target name)
    if(VANTLE_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${name})
    endif()
endfunction()

# Templates that the headers use are instantiated with them, not again in each source.
set(CMAKE_PCH_INSTANTIATE_TEMPLATES ON)

vantle_headers(VantleCoreHeaders HEADERS <QtCore/QtCore> LIBRARIES Qt6::Core)
vantle_headers(VantleWidgetsHeaders HEADERS <QtWidgets/QtWidgets> LIBRARIES Qt6::Widgets)
