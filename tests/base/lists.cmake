# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(base_lists SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ptrlist_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/intlist_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/pool_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/pool_stress_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/objlist_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/objbuflist_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/astrlist_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/parse_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/mutex_test.cpp
)
