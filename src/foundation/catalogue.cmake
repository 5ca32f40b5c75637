# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/catalogue_en.cpp
  ${CMAKE_CURRENT_LIST_DIR}/catalogue_ko.cpp
  ${CMAKE_CURRENT_LIST_DIR}/catalogue_ja.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_errormsg.cpp
)
