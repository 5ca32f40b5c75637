# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_string.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_string_text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_string_wide.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_buffer.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_codepage.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_basefunc.cpp
)
