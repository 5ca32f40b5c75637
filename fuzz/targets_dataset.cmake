# list(APPEND OX_FUZZ_TARGETS name ...)
list(APPEND OX_FUZZ_TARGETS filter_expr)
