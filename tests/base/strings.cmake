# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(base_strings SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/string_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_thread_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/string_parse_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/buffer_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/codepage_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/basefunc_test.cpp
)
