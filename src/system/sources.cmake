# Sources of src/system, listed one by one.
list(APPEND OX_SOURCES
)

include(${CMAKE_CURRENT_LIST_DIR}/compress.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/config.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/paths.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/files.cmake)
