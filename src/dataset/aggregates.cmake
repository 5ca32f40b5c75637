# Aggregates and lookups of Ox_Dataset, and their hand-overs to the pivot.
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/dataset_aggregates.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_aggregates_pivot.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_lookup.cpp
)
