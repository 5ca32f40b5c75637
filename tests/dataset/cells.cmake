# Cell access of Ox_Dataset: readers, writers and the row states they drive.
ox_add_test_suite(dataset_cells SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/cells_set_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cells_get_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cells_summary_test.cpp
)
