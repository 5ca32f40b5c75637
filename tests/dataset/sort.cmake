# Sort of Ox_Dataset: key strings, the record comparison, the quicksort and
# its order of equal rows, the index rebuild, the search of sorted keys.
ox_add_test_suite(dataset_sort SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/sort_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/sort_order_test.cpp
)
