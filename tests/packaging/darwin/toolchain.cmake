# A Darwin target on another system: enough to configure and generate, nothing is ever linked.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR arm64)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
find_program(DARWIN_CLANG NAMES clang++-16 clang++ REQUIRED)
set(CMAKE_CXX_COMPILER ${DARWIN_CLANG})
set(CMAKE_OBJCXX_COMPILER ${DARWIN_CLANG})
set(CMAKE_CXX_COMPILER_TARGET arm64-apple-macos12)
set(CMAKE_OBJCXX_COMPILER_TARGET arm64-apple-macos12)
# This tool does not exist here; only linking would need it.
set(CMAKE_INSTALL_NAME_TOOL install_name_tool)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_PREFIX_PATH ${CMAKE_CURRENT_LIST_DIR}/packages)
set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR}/packages)
