# Sources of src/dataset, listed one by one.
list(APPEND OX_SOURCES
)

include(${CMAKE_CURRENT_LIST_DIR}/columns.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/rows.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/consts.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/cells.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/filter.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/aggregates.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/sort.cmake)
