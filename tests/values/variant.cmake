# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(values_variant SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/variant_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant_convert_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant_list_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant_object_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant_alloc_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/../support/alloc_counter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant_cycle_test.cpp
)
