# Sort of Ox_Dataset.
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/dataset_sort.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_sort_hooks.cpp
)
