# ox_add_bench(NAME SOURCES file.cpp ... [LIBS ...])
ox_add_bench(base_strings SOURCES ${CMAKE_CURRENT_LIST_DIR}/base_strings_bench.cpp)
ox_add_bench(base_pool SOURCES ${CMAKE_CURRENT_LIST_DIR}/base_pool_bench.cpp)
