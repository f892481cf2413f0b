# The compiler of the developer presets: clang 16 where the distribution names it so, else the system's clang.
find_program(VANTLE_CLANG NAMES clang++-16 clang++ REQUIRED)
set(CMAKE_CXX_COMPILER "${VANTLE_CLANG}")
find_program(VANTLE_LLD NAMES ld.lld-16 ld.lld)
if(VANTLE_LLD AND CMAKE_HOST_SYSTEM_NAME STREQUAL "Linux")
    set(CMAKE_EXE_LINKER_FLAGS_INIT "--ld-path=${VANTLE_LLD}")
    set(CMAKE_SHARED_LINKER_FLAGS_INIT "--ld-path=${VANTLE_LLD}")
endif()
