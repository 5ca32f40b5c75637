# Test suites of tests/dataset: ox_add_test_suite(NAME SOURCES dataset/file.cpp ...)

include(${CMAKE_CURRENT_LIST_DIR}/columns.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/consts.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/rows.cmake)
