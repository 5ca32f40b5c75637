# Row store: records, their list, and the row members of Ox_Dataset.
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_record.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_rows.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_rows_track.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_rows_hooks.cpp
)
