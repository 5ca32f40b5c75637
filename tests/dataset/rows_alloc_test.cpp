// A row costs at most two heap calls: its record comes from the pool
// "Ox_Record" (one block for 128 rows) and its cells are one block of
// variants. Every heap call of this test binary passes through the
// counting malloc, calloc and realloc below (operator new of the runtime
// calls malloc as well). The hook is left out under the sanitizers, which
// bring allocators of their own.
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>

#include "Ox_Dataset.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define OX_TEST_NO_MALLOC_HOOK 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define OX_TEST_NO_MALLOC_HOOK 1
#endif

#if !defined(OX_TEST_NO_MALLOC_HOOK) && defined(__GLIBC__)
#define OX_TEST_COUNTS_MALLOC 1
namespace {
std::atomic<long> g_heapCalls{0};
}
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

namespace {

#ifdef OX_TEST_COUNTS_MALLOC
long HeapCalls() { return g_heapCalls.load(); }

void TenColumns(Ox_Dataset &ds) {
  const char *names[] = {"C0", "C1", "C2", "C3", "C4",
                         "C5", "C6", "C7", "C8", "C9"};
  for (const char *name : names) ds.AddColumn(name, 2, 0, 1);
}

TEST(RowAllocation, CounterSeesHeapCalls) {
  const long before = HeapCalls();
  Ox_Record row(3);  // one cell block
  EXPECT_GT(HeapCalls(), before);
}

TEST(RowAllocation, AtMostTwoHeapCallsPerRow) {
  Ox_Dataset ds(65001u, 1);
  TenColumns(ds);
  // 1,000 appends: the pool's blocks (128 records each) and the growth of
  // the row list's entry array are shared out over the rows.
  const int rows = 1000;
  const long before = HeapCalls();
  for (int i = 0; i < rows; ++i) ASSERT_EQ(i, ds.AppendRow(0));
  const long calls = HeapCalls() - before;
  EXPECT_LE(calls, 2L * rows);
  // Each row has its ten null cells.
  EXPECT_EQ(10, ds.recs.GetItem(rows - 1)->Count());
}

TEST(RowAllocation, TrackedAppendCostsNoMore) {
  Ox_Dataset ds(65001u, 1);
  TenColumns(ds);
  ds.SetUpdate(1);
  const int rows = 1000;
  const long before = HeapCalls();
  for (int i = 0; i < rows; ++i) ds.AppendRow(1);
  EXPECT_LE(HeapCalls() - before, 2L * rows);
  EXPECT_EQ(rows, ds.changeCount);
}
#else
TEST(RowAllocation, SkippedUnderSanitizers) { SUCCEED(); }
#endif

}  // namespace
