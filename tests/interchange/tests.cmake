# Test suites of tests/interchange: ox_add_test_suite(NAME SOURCES interchange/file.cpp ...)
include(${CMAKE_CURRENT_LIST_DIR}/variables.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/binstream.cmake)
