# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(foundation_results SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/result_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/result_write_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/logmsg_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/msgview_test.cpp
)
