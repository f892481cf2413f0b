add_library(benchmark::benchmark INTERFACE IMPORTED)
