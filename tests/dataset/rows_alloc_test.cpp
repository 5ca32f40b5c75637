// A row costs at most two heap calls: its record comes from the pool
// "Ox_Record" (one block for 128 rows) and its cells are one block of
// variants. Every heap call of this test binary passes through the
// counting malloc, calloc and realloc of support/alloc_counter.cpp
// (operator new of the runtime calls malloc as well). The hook is left out
// under the sanitizers, which bring allocators of their own.
#include <gtest/gtest.h>

#include "Ox_Dataset.h"
#include "support/alloc_counter.h"

namespace {

#ifdef OX_TEST_COUNTS_MALLOC
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
