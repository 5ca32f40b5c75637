# Row store of Ox_Dataset: records, row operations and the row life.
ox_add_test_suite(dataset_rows SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/record_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/rows_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/transitions_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/rows_alloc_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/../support/alloc_counter.cpp
)
