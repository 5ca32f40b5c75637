# list(APPEND OX_FUZZ_TARGETS name ...)
list(APPEND OX_FUZZ_TARGETS config_text config_binary)
list(APPEND OX_FUZZ_TARGETS decompress_lzss decompress_zlib decompress_gzip decompress_pieces)
