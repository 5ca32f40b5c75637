# Test suites of tests/dataset: ox_add_test_suite(NAME SOURCES dataset/file.cpp ...)

include(${CMAKE_CURRENT_LIST_DIR}/columns.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/consts.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/rows.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/cells.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/aggregates.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/filter.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/sort.cmake)
