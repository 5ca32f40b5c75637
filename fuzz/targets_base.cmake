# list(APPEND OX_FUZZ_TARGETS name ...)
list(APPEND OX_FUZZ_TARGETS base_text values_text)
