# Test suites of tests/markup: ox_add_test_suite(NAME SOURCES markup/file.cpp ...)
