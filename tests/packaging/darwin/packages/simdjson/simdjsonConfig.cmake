add_library(simdjson::simdjson INTERFACE IMPORTED)
