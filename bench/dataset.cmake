# Benchmarks of the dataset.
ox_add_bench(rows SOURCES ${CMAKE_CURRENT_LIST_DIR}/rows_bench.cpp)
find_package(SQLite3 REQUIRED)
ox_add_bench(sort SOURCES ${CMAKE_CURRENT_LIST_DIR}/sort_bench.cpp
  LIBS SQLite::SQLite3)
ox_add_bench(aggregates SOURCES ${CMAKE_CURRENT_LIST_DIR}/aggregates_bench.cpp)
