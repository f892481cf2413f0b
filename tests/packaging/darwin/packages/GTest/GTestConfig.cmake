add_library(GTest::gtest INTERFACE IMPORTED)
add_library(GTest::gmock INTERFACE IMPORTED)
