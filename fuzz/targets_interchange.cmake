# list(APPEND OX_FUZZ_TARGETS name ...)
list(APPEND OX_FUZZ_TARGETS variables_parse binstream_load)
