# Files of this area, listed one by one (only files that exist).
ox_add_test_suite(foundation_catalogue
  SOURCES ${CMAKE_CURRENT_LIST_DIR}/catalogue_test.cpp
          ${CMAKE_CURRENT_LIST_DIR}/catalogue_tables_test.cpp)
