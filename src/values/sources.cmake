# Sources of src/values, listed one by one.
list(APPEND OX_SOURCES
)

include(${CMAKE_CURRENT_LIST_DIR}/variant.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/values.cmake)
