# Test suites of tests/base: ox_add_test_suite(NAME SOURCES base/file.cpp ...)

include(${CMAKE_CURRENT_LIST_DIR}/strings.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/lists.cmake)
