# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(dataset_columns SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/columns_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_core_test.cpp
)
