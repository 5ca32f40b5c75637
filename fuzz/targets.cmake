# The fuzz targets: fuzz/NAME.cpp defines LLVMFuzzerTestOneInput, and
# fuzz/corpus/NAME holds its seeds. One fragment per area appends names.
set(OX_FUZZ_TARGETS)
include(${CMAKE_CURRENT_LIST_DIR}/targets_base.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/targets_foundation.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/targets_system.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/targets_interchange.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/targets_dataset.cmake)
