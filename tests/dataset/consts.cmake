# Constant columns of Ox_Dataset.
ox_add_test_suite(dataset_consts SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/consts_test.cpp
)
