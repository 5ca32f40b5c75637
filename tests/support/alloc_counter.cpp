// The counting heap calls behind alloc_counter.h: each counts one call and
// hands on to the C library's own allocator.
#include "support/alloc_counter.h"

#ifdef OX_TEST_COUNTS_MALLOC
#include <atomic>

namespace {
std::atomic<long> g_heapCalls{0};
}

long HeapCalls() { return g_heapCalls.load(); }

extern "C" void *__libc_malloc(size_t size);
extern "C" void *__libc_calloc(size_t count, size_t size);
extern "C" void *__libc_realloc(void *block, size_t size);
extern "C" void *malloc(size_t size) {
  g_heapCalls.fetch_add(1, std::memory_order_relaxed);
  return __libc_malloc(size);
}
extern "C" void *calloc(size_t count, size_t size) {
  g_heapCalls.fetch_add(1, std::memory_order_relaxed);
  return __libc_calloc(count, size);
}
extern "C" void *realloc(void *block, size_t size) {
  g_heapCalls.fetch_add(1, std::memory_order_relaxed);
  return __libc_realloc(block, size);
}
#endif
