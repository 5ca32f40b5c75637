# Filter of Ox_Dataset: both levels, the expressions and the bind-row
# searches.
ox_add_test_suite(dataset_filter SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/filter_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filter_find_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/filter_expr_test.cpp
)
