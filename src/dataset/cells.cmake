# Cell access of Ox_Dataset: readers, writers and their hand-overs.
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/dataset_cells_get.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_cells_set.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_cells_hooks.cpp
)
