# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_message.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_message_text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_result.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_result_text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_result_fs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_result_write.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_logmsg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_msgview.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_syserr.cpp
)
