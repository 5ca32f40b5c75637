# Named values: Ox_Variable, Ox_VariableList, Ox_VariableListChain.
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_variable.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_variable_parse.cpp
)
