# Constant columns of Ox_Dataset.
list(APPEND OX_SOURCES ${CMAKE_CURRENT_LIST_DIR}/dataset_consts.cpp)
