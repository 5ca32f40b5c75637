# Sources of src/markup, listed one by one.
list(APPEND OX_SOURCES
)
