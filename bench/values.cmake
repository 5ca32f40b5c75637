# ox_add_bench(NAME SOURCES file.cpp ... [LIBS ...])
ox_add_bench(variant SOURCES ${CMAKE_CURRENT_LIST_DIR}/variant_bench.cpp)
ox_add_bench(values SOURCES ${CMAKE_CURRENT_LIST_DIR}/values_bench.cpp)
