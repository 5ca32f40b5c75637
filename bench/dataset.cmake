# Benchmarks of the dataset.
ox_add_bench(rows SOURCES ${CMAKE_CURRENT_LIST_DIR}/rows_bench.cpp)
