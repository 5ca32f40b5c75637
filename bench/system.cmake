# ox_add_bench(NAME SOURCES file.cpp ... [LIBS ...])
find_package(OpenSSL REQUIRED)
ox_add_bench(compress
  SOURCES ${CMAKE_CURRENT_LIST_DIR}/compress_bench.cpp
          ${CMAKE_CURRENT_LIST_DIR}/digest_bench.cpp
  LIBS ZLIB::ZLIB OpenSSL::Crypto)
