# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_config.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_config_stream.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_config_items.cpp
)
