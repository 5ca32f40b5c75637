# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(foundation_named SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/namedstr_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/namedstr_parse_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/namedstr_codestr_test.cpp
)
