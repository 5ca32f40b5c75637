# Named values and the parser of name and value pairs.
ox_add_test_suite(interchange_variables SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/variables_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variables_parse_test.cpp
)
