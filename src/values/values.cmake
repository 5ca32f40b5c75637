# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_currency.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_currency_format.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_datetime.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_datetime_format.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_locale_tables.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_object.cpp
  ${CMAKE_CURRENT_LIST_DIR}/variant_arith.cpp
)
