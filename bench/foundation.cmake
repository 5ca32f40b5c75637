# ox_add_bench(NAME SOURCES file.cpp ... [LIBS ...])
ox_add_bench(result_write SOURCES ${CMAKE_CURRENT_LIST_DIR}/result_write_bench.cpp)
