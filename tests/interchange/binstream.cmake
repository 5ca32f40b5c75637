# The first binary stream form.
ox_add_test_suite(interchange_binstream SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/binstream_golden_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/binstream_load_test.cpp
)
