# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_namedstr.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_codestr.cpp
)
