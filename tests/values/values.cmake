# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(values_datetime SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/datetime_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/span_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/datetime_format_test.cpp)
ox_add_test_suite(values_currency SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/currency_test.cpp)
ox_add_test_suite(values_object SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/object_test.cpp)
ox_add_test_suite(values_arith SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/arith_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/arith_compare_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/arith_plus_test.cpp)
