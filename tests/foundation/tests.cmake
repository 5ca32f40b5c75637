# Test suites of tests/foundation: ox_add_test_suite(NAME SOURCES foundation/file.cpp ...)

include(${CMAKE_CURRENT_LIST_DIR}/catalogue.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/named.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/results.cmake)
