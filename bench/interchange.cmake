# Benchmarks of the interchange formats.
ox_add_bench(binstream SOURCES ${CMAKE_CURRENT_LIST_DIR}/binstream_bench.cpp LIBS msgpackc)
