# Sources of src/base, listed one by one.
list(APPEND OX_SOURCES
)

include(${CMAKE_CURRENT_LIST_DIR}/strings.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/lists.cmake)
