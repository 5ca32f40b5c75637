# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_file.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_file_share.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_file_static.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_pe_version.cpp
)
