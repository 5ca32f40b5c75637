# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_ptrlist.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_intlist.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_pool.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_objlist.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_objbuflist.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_astrlist.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_astrlist_parse.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_mutex.cpp
)
