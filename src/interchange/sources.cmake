# Sources of src/interchange, listed one by one.
list(APPEND OX_SOURCES
)
include(${CMAKE_CURRENT_LIST_DIR}/variables.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/binstream.cmake)
