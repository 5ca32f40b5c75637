# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(system_compress SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/compress_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/compress2_test.cpp)
ox_add_test_suite(system_digest SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/digest_test.cpp)
