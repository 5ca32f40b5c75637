// The order in which the quicksort leaves rows that are equal on all keys,
// worked out by hand from its steps, and sorts of a million rows.
//
// Notation of the traces: rows are named a, b, c, ... (or r0, r1, ...) by
// their input position, with their key behind them (a1 = row a, key 1).
// cmp(x, y) is the comparison of the rows at positions x and y.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "Ox_Dataset.h"
#include "sort_test_util.h"

namespace {

using sort_test::Build;
using sort_test::Ints;
using sort_test::StoredOrder;

std::string SortedOrder(const std::vector<long> &keys, bool letters) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints(keys), letters);
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  return StoredOrder(ds);
}

// ---------------------------------------------------------------------------
// Three rows

TEST(SortOrder, ThreeRowsTwoOneOne) {
  // [a2 b1 c1], lo 0, hi 2, mid 1.
  // cmp(1,0) b1 < a2: swap -> [b1 a2 c1].
  // cmp(2,1) c1 < a2: swap 1,2 -> [b1 c1 a2]; cmp(1,0) c1 = b1: no swap.
  // d == 2: done.
  EXPECT_EQ("b,c,a", SortedOrder({2, 1, 1}, true));
}

TEST(SortOrder, ThreeRowsOneOneZero) {
  // [a1 b1 c0], mid 1. cmp(1,0) = 0. cmp(2,1) c0 < b1: swap 1,2 ->
  // [a1 c0 b1]; cmp(1,0) c0 < a1: swap -> [c0 a1 b1].
  EXPECT_EQ("c,a,b", SortedOrder({1, 1, 0}, true));
}

// ---------------------------------------------------------------------------
// Four rows

TEST(SortOrder, FourRowsEqualRowsChangeOrder) {
  // [a1 b1 c1 d0], lo 0, hi 3, mid 1.
  // cmp(1,0) = 0. cmp(3,1) d0 < b1: swap 1,3 -> [a1 d0 c1 b1];
  // cmp(1,0) d0 < a1: swap -> [d0 a1 c1 b1].
  // d == 3, fourth row 2: cmp(2,1) c1 = a1, not below; cmp(3,2) b1 = c1,
  // not below: done. The ones come out a, c, b.
  EXPECT_EQ("d,a,c,b", SortedOrder({1, 1, 1, 0}, true));
}

// ---------------------------------------------------------------------------
// Five rows

TEST(SortOrder, FiveRowsAllEqualStayAsTheyAre) {
  // mid 2; no swap in the median. i = 1: cmp 0, steps to 2, 3, then 4 ==
  // hi stops. j = 3: cmp 0, steps to 2, 1, then 0 == lo stops. i >= j.
  // i = 4 is not below mid, j = 0 not above: no pivot move; parts (0,0)
  // and (4,4).
  EXPECT_EQ("a,b,c,d,e", SortedOrder({1, 1, 1, 1, 1}, true));
}

TEST(SortOrder, FiveRowsEqualRowsChangeOrder) {
  // [a2 b2 c2 d1 e1], lo 0, hi 4, mid 2.
  // cmp(2,0) c2 = a2. cmp(4,2) e1 < c2: swap 2,4 -> [a2 b2 e1 d1 c2];
  // cmp(2,0) e1 < a2: swap -> [e1 b2 a2 d1 c2]. Pivot a2 at 2.
  // i = 1: cmp(1,2) b2 = a2: step to 2 (itself), 3 (d1 below), 4 == hi.
  // j = 3: cmp(2,3) a2 > d1: j stays 3. i >= j.
  // i = 4 not below mid; j = 3 above: swap 3,2 -> [e1 b2 d1 a2 c2], j = 2.
  // Part (0,2): [e1 b2 d1], mid 1: cmp(1,0) b2 > e1; cmp(2,1) d1 < b2:
  // swap 1,2 -> [e1 d1 b2]; cmp(1,0) d1 = e1. Part (4,4): nothing.
  EXPECT_EQ("e,d,b,a,c", SortedOrder({2, 2, 2, 1, 1}, true));
}

// ---------------------------------------------------------------------------
// Eight rows

TEST(SortOrder, EightRowsAlternating) {
  // [a1 b0 c1 d0 e1 f0 g1 h0], lo 0, hi 7, mid 3.
  // cmp(3,0) d0 < a1: swap -> [d0 b0 c1 a1 e1 f0 g1 h0].
  // cmp(7,3) h0 < a1: swap 3,7 -> [d0 b0 c1 h0 e1 f0 g1 a1];
  // cmp(3,0) h0 = d0. Pivot h0 at 3.
  // i = 1: cmp(1,3) b0 = h0: step to 2, c1 above: i = 2.
  // j = 6: cmp(3,6) h0 < g1: step to 5 (f0, 0), 4 (e1), 3 (itself),
  // 2 (c1), 1 (b0), 0 == lo: j = 0. i >= j.
  // i = 2 below mid: swap 2,3 -> [d0 b0 h0 c1 e1 f0 g1 a1], i = 3.
  // Part (0,0). Part (3,7) = [c1 e1 f0 g1 a1], mid 5:
  // cmp(5,3) f0 < c1: swap -> [f0 e1 c1 g1 a1]; cmp(7,5) a1 = c1.
  // Pivot c1 at 5. i = 4: e1 = c1: steps 5, 6 (g1), 7 == hi.
  // j = 6: c1 = g1: steps 5, 4 (e1), 3 == lo. i = 7, j = 3: no pivot
  // move; parts (3,3) and (7,7).
  // Result [d0 b0 h0 f0 e1 c1 g1 a1].
  EXPECT_EQ("d,b,h,f,e,c,g,a", SortedOrder({1, 0, 1, 0, 1, 0, 1, 0}, true));
}

// ---------------------------------------------------------------------------
// Twenty rows

TEST(SortOrder, TwentyRowsAlternating) {
  // r0..r19 with key p % 2 (r0 0, r1 1, ...). lo 0, hi 19, mid 9.
  // cmp(9,0) r9 1 > r0 0; cmp(19,9) 1 = 1: no swaps. Pivot r9 (1) at 9.
  // i = 1: every row is <= 1: i runs to 19 == hi. j = 18: r18 0 < 1:
  // stays. i >= j; j = 18 above mid: swap 18,9 (pos 9 = r18, pos 18 =
  // r9), j = 17. Parts (0,17), (19,19).
  // (0,17), mid 8: no median swaps (r8 0 = r0 0, r17 1 > r8 0). Pivot r8
  // (0). i = 1: r1 1 > 0 stays. j = 16: every row is >= 0: j runs to 0.
  // i = 1 below mid: swap 1,8 (pos 1 = r8, pos 8 = r1), i = 2. Parts
  // (0,0), (2,17).
  // (2,17), mid 9 (r18, 0): no median swaps. i = 3: r3 1 stays. j runs to
  // 2. Swap 3,9 (pos 3 = r18, pos 9 = r3), i = 4. Parts (2,2), (4,17).
  // (4,17), mid 10 (r10, 0): no median swaps. i = 5: r5 1 stays; j runs to
  // 4. Swap 5,10 (pos 5 = r10, pos 10 = r5), i = 6. Parts (4,4), (6,17).
  // (6,17), mid 11 (r11, 1): cmp(11,6) 1 > 0; cmp(17,11) 1 = 1. i = 7
  // runs to 17; j = 16 (r16 0) stays. Swap 16,11 (pos 11 = r16, pos 16 =
  // r11), j = 15. Parts (6,15), (17,17).
  // (6,15), mid 10 (r5, 1): cmp(10,6) 1 > r6 0; cmp(15,10) 1 = 1. i runs
  // to 15; j = 14 (r14 0) stays. Swap 14,10 (pos 10 = r14, pos 14 = r5),
  // j = 13. Parts (6,13), (15,15).
  // (6,13), mid 9 (r3, 1): no median swaps; i runs to 13; j = 12 (r12 0)
  // stays. Swap 12,9 (pos 9 = r12, pos 12 = r3), j = 11. Parts (6,11),
  // (13,13).
  // (6,11) = [r6 0, r7 1, r1 1, r12 0, r14 0, r16 0], mid 8 (r1): cmp(8,6)
  // 1 > 0; cmp(11,8) r16 0 < r1 1: swap 8,11 (pos 8 = r16, pos 11 = r1);
  // cmp(8,6) 0 = 0. Pivot r16 (0). i = 7: r7 1 stays. j = 10: r14 0 = 0
  // steps to 9 (r12), 8 (itself), 7 (r7 1 > 0), 6 == lo. Swap 7,8 (pos 7
  // = r16, pos 8 = r7), i = 8. Parts (6,6), (8,11).
  // (8,11) = [r7 1, r12 0, r14 0, r1 1], d 3, mid 9: cmp(9,8) 0 < 1: swap
  // -> [r12 r7 r14 r1]; cmp(11,9) 1 = 1. Fourth row 10: cmp(10,9) r14 0 <
  // r7 1: swap -> [r12 r14 r7 r1]; cmp(9,8) 0 = 0. The parts left on the
  // stack, (13,13), (15,15), (17,17), (19,19), are single rows.
  std::vector<long> keys;
  for (int p = 0; p < 20; ++p) keys.push_back(p % 2);
  EXPECT_EQ(
      "r0,r8,r2,r18,r4,r10,r6,r16,r12,r14,"
      "r7,r1,r3,r13,r5,r15,r11,r17,r9,r19",
      SortedOrder(keys, false));
}

// ---------------------------------------------------------------------------
// The key table gives what the record comparison gives

// The direction 2 keeps every sign here (the differences are small) but
// is no plain direction, so _qsort compares the records themselves; 1
// takes the table of keys read once. Both must leave the same order.
TEST(SortOrder, KeyTableAndRecordComparisonAgree) {
  std::mt19937 random(12345);
  for (int round = 0; round < 20; ++round) {
    const int rows = 1 + static_cast<int>(random() % 300);
    std::vector<Ox_Variant> keys;
    std::vector<std::string> texts;
    for (int i = 0; i < rows; ++i) {
      const int pick = static_cast<int>(random() % 10);
      if (pick == 0) {
        keys.emplace_back();
      } else {
        keys.emplace_back(static_cast<long>(random() % 7));
      }
      static const char *const kWords[] = {"", "a", "abcdefgh", "abcdefghi",
                                           "abcdefghj", "b", "\xC3\xA9"};
      texts.push_back(kWords[random() % 7]);
    }
    Ox_Dataset table(65001u, 1);
    Ox_Dataset records(65001u, 1);
    Build(table, keys);
    Build(records, keys);
    for (int i = 0; i < rows; ++i) {
      const Ox_Variant text(texts[i].c_str());
      table.recs.GetItem(i)->SetColumn(2, &text);
      records.recs.GetItem(i)->SetColumn(2, &text);
    }
    const int nullsLast = round % 2;
    int cols[2] = {2, 0};
    int dirsTable[2] = {round % 3 == 0 ? -1 : 1, 1};
    int dirsRecords[2] = {2 * dirsTable[0], 2};
    table._qsort(cols, 2, 0, rows - 1, dirsTable, nullsLast);
    records._qsort(cols, 2, 0, rows - 1, dirsRecords, nullsLast);
    EXPECT_EQ(StoredOrder(records), StoredOrder(table)) << round;
  }
}

// One key, every kind of table: the same key given twice, the second time
// with direction 3, sends _qsort to the record comparison (3 is no plain
// direction), and the second copy only speaks when the first says equal,
// when it says equal too. So both runs must leave the same order.
void ExpectSameOrder(const std::vector<Ox_Variant> &keys, int dir,
                     int nullsLast, const char *what) {
  Ox_Dataset table(65001u, 1);
  Ox_Dataset records(65001u, 1);
  Build(table, keys);
  Build(records, keys);
  const int last = static_cast<int>(keys.size()) - 1;
  int one[1] = {0};
  int oneDir[1] = {dir};
  int twice[2] = {0, 0};
  int twiceDirs[2] = {dir, 3};
  table._qsort(one, 1, 0, last, oneDir, nullsLast);
  records._qsort(twice, 2, 0, last, twiceDirs, nullsLast);
  EXPECT_EQ(StoredOrder(records), StoredOrder(table))
      << what << " dir " << dir << " nullsLast " << nullsLast;
}

TEST(SortOrder, EveryKindOfKeyTableAgreesWithRecordComparison) {
  std::mt19937 random(777);
  for (int round = 0; round < 8; ++round) {
    const int rows = 50 + static_cast<int>(random() % 250);
    std::vector<Ox_Variant> narrow, wide, decimal, text, mixed;
    for (int i = 0; i < rows; ++i) {
      const bool null = random() % 8 == 0;
      const long small = static_cast<long>(random() % 9) - 4;
      // Narrow integers: all within 2^31 - 1 of each other.
      narrow.push_back(null ? Ox_Variant() : Ox_Variant(small));
      // Wide integers: the wrapped difference is no ordering here.
      const long big = static_cast<long>(static_cast<int32_t>(random()));
      wide.push_back(null ? Ox_Variant() : Ox_Variant(big));
      decimal.push_back(null ? Ox_Variant()
                             : Ox_Variant(small * 0.5 + 1e-11 * (i % 3)));
      static const char *const kWords[] = {"pre", "prefix", "prefix-b",
                                           "prefix-abcdefghij",
                                           "prefix-abcdefghik", "prefiy"};
      text.push_back(null ? Ox_Variant() : Ox_Variant(kWords[random() % 6]));
      mixed.push_back(i % 4 == 0 ? Ox_Variant(kWords[random() % 6])
                                 : Ox_Variant(small));
    }
    for (int dir = -1; dir <= 1; dir += 2) {
      for (int nullsLast = 0; nullsLast < 2; ++nullsLast) {
        ExpectSameOrder(narrow, dir, nullsLast, "narrow");
        ExpectSameOrder(wide, dir, nullsLast, "wide");
        ExpectSameOrder(decimal, dir, nullsLast, "decimal");
        ExpectSameOrder(text, dir, nullsLast, "text");
        ExpectSameOrder(mixed, dir, nullsLast, "mixed");
      }
    }
  }
}

// ---------------------------------------------------------------------------
// A million rows: no stack overflow, and sorted

class SortMillion : public ::testing::Test {
 protected:
  static const int kRows = 1000000;

  void Fill(const std::vector<int> &keys) {
    ds.AddColumn("K", 2, 0, 1);
    Ox_Variant cell;
    for (int key : keys) {
      const int stored = ds.AppendRow(0);
      cell = static_cast<long>(key);
      ds.recs.GetItem(stored)->SetColumn(0, &cell);
    }
  }
  // Ascending (dir 1) or descending (dir -1) throughout.
  bool IsSorted(int dir) const {
    long before = 0;
    for (int i = 0; i < ds.recs.Count(); ++i) {
      const long after = ds.recs.GetItem(i)->GetItemNN(0)->value.lVal;
      if (i > 0 && dir * (after - before) < 0) return false;
      before = after;
    }
    return true;
  }

  Ox_Dataset ds{65001u, 1};
};

TEST_F(SortMillion, AscendingInput) {
  std::vector<int> keys(kRows);
  for (int i = 0; i < kRows; ++i) keys[i] = i;
  Fill(keys);
  EXPECT_EQ(0, ds.Sort("K:D", 1, 0, 0));
  EXPECT_TRUE(IsSorted(-1));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_TRUE(IsSorted(1));
}

TEST_F(SortMillion, DescendingInput) {
  std::vector<int> keys(kRows);
  for (int i = 0; i < kRows; ++i) keys[i] = kRows - i;
  Fill(keys);
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_TRUE(IsSorted(1));
}

TEST_F(SortMillion, AllEqual) {
  Fill(std::vector<int>(kRows, 7));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  // All equal: the first partition passes over every row and leaves the
  // order as it is.
  EXPECT_EQ(7, ds.recs.GetItem(0)->GetItemNN(0)->ToInteger());
  EXPECT_TRUE(IsSorted(1));
}

TEST_F(SortMillion, OrganPipe) {
  std::vector<int> keys(kRows);
  for (int i = 0; i < kRows; ++i) keys[i] = i < kRows / 2 ? i : kRows - i;
  Fill(keys);
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_TRUE(IsSorted(1));
}

}  // namespace

// A part of the rows, and a key list holding a key that was not found:
// the table read straight from the records for one integer key leaves the
// same order as the record comparison, and the rows outside stay put.
TEST(SortOrder, OneIntegerKeyOnAPartAgreesWithRecordComparison) {
  std::mt19937 random(4242);
  for (int round = 0; round < 8; ++round) {
    const int rows = 40 + static_cast<int>(random() % 200);
    std::vector<Ox_Variant> keys;
    for (int i = 0; i < rows; ++i) {
      if (random() % 6 == 0) {
        keys.emplace_back();
      } else {
        keys.emplace_back(static_cast<long>(random() % 5) - 2);
      }
    }
    Ox_Dataset table(65001u, 1);
    Ox_Dataset records(65001u, 1);
    Build(table, keys);
    Build(records, keys);
    const std::string before = StoredOrder(table);
    const int lo = 3 + round;
    const int hi = rows - 5;
    const int dir = round % 2 == 0 ? 1 : -1;
    const int nullsLast = (round / 2) % 2;
    int cols[2] = {-1, 0};
    int dirs[2] = {1, dir};
    int twice[2] = {0, 0};
    int twiceDirs[2] = {dir, 3};
    table._qsort(cols, 2, lo, hi, dirs, nullsLast);
    records._qsort(twice, 2, lo, hi, twiceDirs, nullsLast);
    EXPECT_EQ(StoredOrder(records), StoredOrder(table)) << round;
    EXPECT_NE(before, StoredOrder(table)) << round;
  }
}
