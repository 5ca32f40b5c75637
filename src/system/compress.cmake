# Files of this area, listed one by one (only files that exist).
list(APPEND OX_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ox_compress.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_compress_zlib.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_compress2.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_lzss.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_digest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_md5.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_sha1.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ox_sha1_shaext.cpp
)
