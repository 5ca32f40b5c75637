# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(system_config SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/config_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/config_stream_test.cpp
)
