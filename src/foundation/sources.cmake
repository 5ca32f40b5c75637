# Sources of src/foundation, listed one by one.
list(APPEND OX_SOURCES
)

include(${CMAKE_CURRENT_LIST_DIR}/catalogue.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/named.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/results.cmake)
