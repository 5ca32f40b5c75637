# Warnings and sanitizer flags shared by every target.

function(ox_apply_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()

if(OX_SANITIZE STREQUAL "address")
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                      -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
elseif(OX_SANITIZE STREQUAL "thread")
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
elseif(NOT OX_SANITIZE STREQUAL "")
  message(FATAL_ERROR "OX_SANITIZE must be empty, 'address' or 'thread'")
endif()

# Fuzzing builds instrument the whole library for coverage and run it under
# ASan+UBSan; the fuzz targets add the libFuzzer driver at link time.
if(OX_BUILD_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "OX_BUILD_FUZZ needs clang (CC=clang CXX=clang++)")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined
                      -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()
