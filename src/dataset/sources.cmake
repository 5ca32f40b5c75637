# Sources of src/dataset, listed one by one.
list(APPEND OX_SOURCES
)

include(${CMAKE_CURRENT_LIST_DIR}/columns.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/rows.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/consts.cmake)
