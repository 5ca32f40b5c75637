# Test suites of tests/values: ox_add_test_suite(NAME SOURCES values/file.cpp ...)

include(${CMAKE_CURRENT_LIST_DIR}/variant.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/values.cmake)
