# Test suites of tests/system: ox_add_test_suite(NAME SOURCES system/file.cpp ...)

include(${CMAKE_CURRENT_LIST_DIR}/compress.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/config.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/paths.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/files.cmake)
