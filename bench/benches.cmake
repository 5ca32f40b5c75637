# One fragment per area; each holds ox_add_bench lines.
include(${CMAKE_CURRENT_LIST_DIR}/base.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/values.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/foundation.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/system.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/dataset.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/interchange.cmake)
