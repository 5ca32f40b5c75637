# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(system_paths SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/path_test.cpp
)
