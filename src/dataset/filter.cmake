# Filter of Ox_Dataset: the two filter levels and the bind-row searches.
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/dataset_filter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_filter_find.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_filter_hooks.cpp
)
