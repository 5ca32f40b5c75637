# Aggregates and lookups of Ox_Dataset.
ox_add_test_suite(dataset_aggregates SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/aggregates_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/lookup_test.cpp
)
