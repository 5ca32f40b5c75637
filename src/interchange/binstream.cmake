# The first binary stream form: whole streams, variants and variable lists,
# and the dataset's blocks.
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/binstream.cpp
  ${CMAKE_CURRENT_LIST_DIR}/binstream_hooks.cpp
  ${CMAKE_CURRENT_LIST_DIR}/binstream_variant.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dataset_binstream.cpp
)
