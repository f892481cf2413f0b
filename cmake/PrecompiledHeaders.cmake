# Parsing the toolkit's headers takes longer than compiling the code of a source, and the builds for testing compile
# every source. With this option they parse those headers once for each kind of target. Off by default: then every
# source must itself include the headers that it uses.
option(VANTLE_PRECOMPILED_HEADERS "Compile the toolkit's headers once" OFF)

# vantle_headers(name HEADERS … LIBRARIES …)
# Adds precompiled headers that several targets use, and that belong to these libraries.
function(vantle_headers name)
    if(NOT VANTLE_PRECOMPILED_HEADERS)
        return()
    endif()
    cmake_parse_arguments(arg "" "" "HEADERS;LIBRARIES" ${ARGN})
    add_library(${name} OBJECT ${PROJECT_SOURCE_DIR}/cmake/Empty.cpp)
    target_link_libraries(${name} PRIVATE VantleCompileOptions ${arg_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

# Lets a target use the precompiled headers of that name.
function(vantle_precompile target name)
    if(VANTLE_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${name})
    endif()
endfunction()

# Templates that the headers use are instantiated with them, not again in each source.
set(CMAKE_PCH_INSTANTIATE_TEMPLATES ON)

vantle_headers(VantleCoreHeaders HEADERS <QtCore/QtCore> LIBRARIES Qt6::Core)
vantle_headers(VantleWidgetsHeaders HEADERS <QtWidgets/QtWidgets> LIBRARIES Qt6::Widgets)
