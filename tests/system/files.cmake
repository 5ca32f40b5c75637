# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(system_files SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/file_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_version_test.cpp
)
