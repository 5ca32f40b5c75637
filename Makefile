# Thin driver over CMake. `make run` builds and runs the main job,
# `make test` builds and runs the test suite; both install missing Debian
# packages first (see scripts/deps.sh).
JOBS ?= 2
RELEASE := build/release
CMAKE_COMMON := -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all deps build run test asan-test tsan-test bench fuzz install clean

all: build

deps:
	@scripts/deps.sh

build: deps
	@cmake -S . -B $(RELEASE) $(CMAKE_COMMON) >/dev/null
	@cmake --build $(RELEASE) -j$(JOBS)

run: build
	@$(RELEASE)/tools/oxtool demo

test: build
	@ctest --test-dir $(RELEASE) -j$(JOBS) --output-on-failure

# The test suite under AddressSanitizer and UndefinedBehaviorSanitizer.
asan-test: deps
	@cmake -S . -B build/asan -DCMAKE_BUILD_TYPE=Debug -DOX_SANITIZE=address \
	  -DOX_BUILD_TOOLS=OFF -DOX_INSTALL=OFF >/dev/null
	@cmake --build build/asan -j$(JOBS)
	@ctest --test-dir build/asan -j$(JOBS) --output-on-failure

# The multi-threaded suites (the base layer's pools and shared blocks)
# under ThreadSanitizer.
TSAN_SUITES := base_strings base_lists
tsan-test: deps
	@cmake -S . -B build/tsan -DCMAKE_BUILD_TYPE=Debug -DOX_SANITIZE=thread \
	  -DOX_BUILD_TOOLS=OFF -DOX_INSTALL=OFF >/dev/null
	@cmake --build build/tsan -j$(JOBS) --target $(addprefix ox_test_,$(TSAN_SUITES))
	@ctest --test-dir build/tsan -j$(JOBS) --output-on-failure \
	  -R '^($(subst $(eval) ,|,$(TSAN_SUITES)))\.'

# Benchmarks (Google Benchmark), optimised build.
bench: deps
	@cmake -S . -B build/bench -DCMAKE_BUILD_TYPE=Release -DOX_BUILD_BENCH=ON \
	  -DOX_BUILD_TESTS=OFF -DOX_BUILD_TOOLS=OFF -DOX_INSTALL=OFF >/dev/null
	@cmake --build build/bench -j$(JOBS)
	@for b in build/bench/bench/ox_bench_*; do echo "== $$b"; $$b; done

# libFuzzer targets, built with clang under ASan+UBSan.
fuzz: 
	@scripts/deps.sh fuzz
	@CC=clang CXX=clang++ cmake -S . -B build/fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DOX_BUILD_FUZZ=ON -DOX_BUILD_TESTS=OFF -DOX_BUILD_TOOLS=OFF \
	  -DOX_INSTALL=OFF >/dev/null
	@cmake --build build/fuzz -j$(JOBS)

install: build
	@cmake --install $(RELEASE) $(if $(PREFIX),--prefix $(PREFIX))

clean:
	@rm -rf build
