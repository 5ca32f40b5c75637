// Sort of Ox_Dataset: the key string, directions and nulls, the ordering
// of each value type, the index rebuild, row states, the record comparison
// and the search of a sorted key list.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"
#include "sort_test_util.h"

namespace {

using sort_test::Build;
using sort_test::Ints;
using sort_test::StoredKeys;
using sort_test::StoredOrder;
using sort_test::VisibleOrder;

// Puts a value in cell `col` of stored row `row`, outside any tracking.
void Put(Ox_Dataset &ds, int row, int col, const Ox_Variant &value) {
  ds.recs.GetItem(row)->SetColumn(col, &value);
}

// ---------------------------------------------------------------------------
// Key string and directions

TEST(SortKeys, EmptyStringGivesMinusOneAndMovesNothing) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  EXPECT_EQ(-1, ds.Sort("", 1, 0, 0));
  EXPECT_EQ(-1, ds.Sort(nullptr, 1, 0, 0));
  // Only blanks and commas: Parse keeps empty items, which are no column.
  EXPECT_EQ(-1, ds.Sort(" , ", 1, 0, 0));
  EXPECT_EQ("r0,r1,r2", StoredOrder(ds));
}

TEST(SortKeys, PlainKeyFollowsAscendingArgument) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("K", 0, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
  // Only exactly 1 means ascending: 2 gives the descending default.
  EXPECT_EQ(0, ds.Sort("K", 2, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
}

TEST(SortKeys, ColonDSortsDescendingAlthoughAscendingIsOne) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  EXPECT_EQ(0, ds.Sort("K:D", 1, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("K:a", 0, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("K:d", 1, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("K:A", 0, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
}

TEST(SortKeys, UnknownLetterFallsToDefault) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  // COL:X with ascending 0 sorts descending.
  EXPECT_EQ(0, ds.Sort("K:X", 0, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
  // Only the letter right behind the colon counts: "Desc" is D.
  EXPECT_EQ(0, ds.Sort("K:Xd", 0, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("K:", 1, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("K:Desc", 1, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
}

TEST(SortKeys, IdentifiersIgnoreCaseAndAreTrimmedAndUnquoted) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  EXPECT_EQ(0, ds.Sort("k", 1, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("  k:d  ", 1, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("\"K\"", 1, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
}

TEST(SortKeys, ColonAtStartMakesTheWholeItemTheIdentifier) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  // ":D" is looked up as a column named ":D": unknown, so nothing moves.
  EXPECT_EQ(-1, ds.Sort(":D", 1, 0, 0));
  EXPECT_EQ("r0,r1,r2", StoredOrder(ds));
}

TEST(SortKeys, OneKnownOneUnknownSortsByKnownAndGivesMinusOne) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  EXPECT_EQ(-1, ds.Sort("NOPE,K", 1, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
  EXPECT_EQ(-1, ds.Sort("K:D,NOPE:A", 1, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
  EXPECT_EQ(1, ds.indexOrdered);
}

TEST(SortKeys, AllUnknownGivesMinusOneAndMovesNothing) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  ds.indexOrdered = 0;
  EXPECT_EQ(-1, ds.Sort("NOPE,ALSO:D", 1, 0, 0));
  EXPECT_EQ("r0,r1,r2", StoredOrder(ds));
  // It left before step 8.
  EXPECT_EQ(0, ds.indexOrdered);
}

TEST(SortKeys, SeveralKeysInTheirOrder) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({2, 1, 2, 1}));
  Put(ds, 0, 2, Ox_Variant("x"));
  Put(ds, 1, 2, Ox_Variant("y"));
  Put(ds, 2, 2, Ox_Variant("z"));
  Put(ds, 3, 2, Ox_Variant("w"));
  // K ascending, then S descending among equal K.
  EXPECT_EQ(0, ds.Sort("K,S:D", 1, 0, 0));
  EXPECT_EQ("r1,r3,r2,r0", StoredOrder(ds));
  // S first: w x y z.
  EXPECT_EQ(0, ds.Sort("S,K", 1, 0, 0));
  EXPECT_EQ("r3,r0,r1,r2", StoredOrder(ds));
}

TEST(SortKeys, MoreThanSixtyFourKeysAreRefused) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  std::string keys = "K:D";
  for (int i = 0; i < 64; ++i) keys += ",K";
  EXPECT_EQ(-1, ds.Sort(keys.c_str(), 1, 0, 0));
  EXPECT_EQ("r0,r1,r2", StoredOrder(ds));
  // Exactly 64 are fine.
  keys = "K:D";
  for (int i = 0; i < 63; ++i) keys += ",K";
  EXPECT_EQ(0, ds.Sort(keys.c_str(), 1, 0, 0));
  EXPECT_EQ("3,2,1", StoredKeys(ds));
}

TEST(SortKeys, ConstantColumnIsTheSameForEveryRow) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  ds.AddConstColumn("C", Ox_Variant(7L));
  // The constant decides nothing; K then decides.
  EXPECT_EQ(0, ds.Sort("C,K", 1, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
}

TEST(SortKeys, OneRowReturnsZeroAndChangesNothing) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({5}));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("r0", StoredOrder(ds));
  Ox_Dataset empty(65001u, 1);
  Build(empty, {});
  EXPECT_EQ(0, empty.Sort("K", 1, 0, 0));
  EXPECT_EQ(0, empty.recs.Count());
}

TEST(SortKeys, LogicalDatasetGivesMinusOne) {
  Ox_Dataset bound(65001u, 1);
  Build(bound, Ints({3, 1, 2}));
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  view.bindDataset = &bound;
  view.pConsts = bound.pConsts;
  view.pCols = bound.pCols;
  view.pRecs = bound.pRecs;
  view.pOrgBuff = bound.pOrgBuff;
  EXPECT_EQ(-1, view.Sort("K", 1, 0, 0));
  EXPECT_EQ("r0,r1,r2", StoredOrder(bound));
  // _qsort on a view has no rows of its own to move.
  int cols[1] = {0};
  int dirs[1] = {1};
  EXPECT_EQ(0, view._qsort(cols, 1, 0, 2, dirs, 0));
  EXPECT_EQ("r0,r1,r2", StoredOrder(bound));
}

TEST(SortKeys, GroupDatasetCountsAsPhysical) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  ds.logicalType = 35;
  ds.groupFlag = 1;
  ASSERT_TRUE(ds.IsPhysical());
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("1,2,3", StoredKeys(ds));
}

// ---------------------------------------------------------------------------
// Nulls

TEST(SortNulls, NullsLastZeroAscendingPutsNullsFirst) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, {Ox_Variant(2L), Ox_Variant(), Ox_Variant(1L)});
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("null,1,2", StoredKeys(ds));
}

TEST(SortNulls, NullsLastZeroDescendingPutsNullsLast) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, {Ox_Variant(2L), Ox_Variant(), Ox_Variant(1L)});
  EXPECT_EQ(0, ds.Sort("K:D", 1, 0, 0));
  EXPECT_EQ("2,1,null", StoredKeys(ds));
}

TEST(SortNulls, NullsLastOneTurnsBothRound) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, {Ox_Variant(2L), Ox_Variant(), Ox_Variant(1L)});
  EXPECT_EQ(0, ds.Sort("K", 1, 1, 0));
  EXPECT_EQ("1,2,null", StoredKeys(ds));
  EXPECT_EQ(0, ds.Sort("K", 0, 1, 0));
  EXPECT_EQ("null,2,1", StoredKeys(ds));
  // Any non-zero value counts as 1.
  EXPECT_EQ(0, ds.Sort("K", 1, 7, 0));
  EXPECT_EQ("1,2,null", StoredKeys(ds));
}

TEST(SortNulls, MissingCellOfAShortRowIsNull) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({2, 1}));
  // A record with no cells at all: K is missing, so null.
  ds.recs.Add(static_cast<const Ox_Record *>(nullptr));
  ASSERT_EQ(0, ds.recs.GetItem(2)->Count());
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ(0, ds.recs.GetItem(0)->Count());
  EXPECT_EQ(1, ds.recs.GetItem(1)->GetItemNN(0)->ToInteger());
}

TEST(SortNulls, EmptyStringIsNoNull) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({0, 0, 0}));
  Put(ds, 0, 2, Ox_Variant("b"));
  Put(ds, 1, 2, Ox_Variant(""));
  // Row 2 keeps S null.
  EXPECT_EQ(0, ds.Sort("S", 1, 0, 0));
  // null first, then "" (a value, the least text), then "b".
  EXPECT_EQ("r2,r1,r0", StoredOrder(ds));
}

// ---------------------------------------------------------------------------
// The ordering of each type is that of Ox_Variant::Compare

TEST(SortTypes, Integers) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({5, -3, 0, 100000, -100000}));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("-100000,-3,0,5,100000", StoredKeys(ds));
}

TEST(SortTypes, IntegersCompareByWrappedDifference) {
  // 2147483647 - (-2) wraps to -2147483647: the greatest integer counts as
  // less than -2. Two rows: d == 1, one comparison of (lo, hi) = (MAX, -2)
  // gives a negative difference, so no swap.
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({INT_MAX, -2}));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("r0,r1", StoredOrder(ds));
}

TEST(SortTypes, Decimals) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, {Ox_Variant(2.5), Ox_Variant(-1.25), Ox_Variant(2.25)});
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("r1,r2,r0", StoredOrder(ds));
}

TEST(SortTypes, DecimalsCloserThanTenToMinusTenAreEqual) {
  // Two rows, 1.0 + 5e-11 and 1.0: Compare gives 0, so no swap, in either
  // direction.
  Ox_Dataset ds(65001u, 1);
  Build(ds, {Ox_Variant(1.0 + 5e-11), Ox_Variant(1.0)});
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("r0,r1", StoredOrder(ds));
  EXPECT_EQ(0, ds.Sort("K", 0, 0, 0));
  EXPECT_EQ("r0,r1", StoredOrder(ds));
}

TEST(SortTypes, StringsByUnsignedBytesAndCase) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({0, 0, 0, 0, 0}));
  Put(ds, 0, 2, Ox_Variant("b"));
  Put(ds, 1, 2, Ox_Variant("B"));
  Put(ds, 2, 2, Ox_Variant("\xC3\xA9"));  // a byte above 127 sorts last
  Put(ds, 3, 2, Ox_Variant("ab"));
  Put(ds, 4, 2, Ox_Variant("a"));
  EXPECT_EQ(0, ds.Sort("S", 1, 0, 0));
  // "B" (66) < "a" (97) < "ab" < "b" (98) < 0xC3.
  EXPECT_EQ("r1,r4,r3,r0,r2", StoredOrder(ds));
}

TEST(SortTypes, LongStringsWithACommonBeginning) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({0, 0, 0, 0, 0, 0}));
  Put(ds, 0, 2, Ox_Variant("abcdefghZ"));
  Put(ds, 1, 2, Ox_Variant("abcdefgh"));
  Put(ds, 2, 2, Ox_Variant("abcdefghA"));
  Put(ds, 3, 2, Ox_Variant("abcdefg"));
  Put(ds, 4, 2, Ox_Variant("abcdefghAA"));
  Put(ds, 5, 2, Ox_Variant("abcdefgi"));
  EXPECT_EQ(0, ds.Sort("S", 1, 0, 0));
  EXPECT_EQ("abcdefg,abcdefgh,abcdefghA,abcdefghAA,abcdefghZ,abcdefgi",
            StoredKeys(ds, 2));
}

TEST(SortTypes, DatesAndCurrency) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, {Ox_Variant(Ox_DateTime(2020, 5, 1)),
             Ox_Variant(Ox_DateTime(2019, 12, 31)),
             Ox_Variant(Ox_DateTime(2020, 1, 1))});
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("r1,r2,r0", StoredOrder(ds));
  Ox_Dataset money(65001u, 1);
  Build(money, {Ox_Variant(Ox_Currency(3, 5000)),
                Ox_Variant(Ox_Currency(-1, 0)),
                Ox_Variant(Ox_Currency(3, 0))});
  EXPECT_EQ(0, money.Sort("K:D", 1, 0, 0));
  EXPECT_EQ("r0,r2,r1", StoredOrder(money));
}

TEST(SortTypes, MixedTypesEndWithoutLoopingForEver) {
  // Different types compare as 1 either way round: no ordering. The sort
  // still ends, and every row is still there once.
  Ox_Dataset ds(65001u, 1);
  std::vector<Ox_Variant> keys;
  for (int i = 0; i < 40; ++i) {
    if (i % 3 == 0) {
      keys.emplace_back(static_cast<long>(i));
    } else {
      keys.emplace_back(std::to_string(i).c_str());
    }
  }
  Build(ds, keys);
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ(0, ds.Sort("K:D", 1, 0, 0));
  std::vector<int> seen(40, 0);
  for (int i = 0; i < 40; ++i) {
    const std::string name =
        ds.recs.GetItem(i)->GetItemNN(1)->ToString().GetString();
    ++seen[std::stoi(name.substr(1))];
  }
  for (int i = 0; i < 40; ++i) EXPECT_EQ(1, seen[i]) << i;
}

// ---------------------------------------------------------------------------
// The index lists after a sort

TEST(SortIndex, FilterInForceKeepsHiddenRowsHidden) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({4, 2, 3, 1, 5}));
  // Rows r1 (2) and r4 (5) hidden at the first level.
  ds.recs.GetItem(1)->SetFilter(1);
  ds.recs.GetItem(4)->SetFilter(1);
  ds.recIndexValid = 1;
  ds.recIndex.Clear();
  ds.recIndex.Add(0);
  ds.recIndex.Add(2);
  ds.recIndex.Add(3);
  ASSERT_EQ("r0,r2,r3", VisibleOrder(ds));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  // Stored: 1 2 3 4 5 = r3 r1 r2 r0 r4; visible: those without the bit.
  EXPECT_EQ("r3,r1,r2,r0,r4", StoredOrder(ds));
  EXPECT_EQ("r3,r2,r0", VisibleOrder(ds));
  ASSERT_EQ(3, ds.recIndex.Count());
  EXPECT_EQ(0, ds.recIndex.Items(0));
  EXPECT_EQ(2, ds.recIndex.Items(1));
  EXPECT_EQ(3, ds.recIndex.Items(2));
}

TEST(SortIndex, RebuildsTheIndexThatFilterCallsLeave) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({4, 2, 3, 2, 5}));
  // Filter(expr) marks the matching rows (r1, r3) and leaves the row index
  // in force but empty: no row is visible until the index is rebuilt.
  ASSERT_EQ(0, ds.Filter("K=2"));
  ASSERT_EQ(1, ds.recIndexValid);
  ASSERT_EQ(0, ds.GetRowCount());
  // The sort rebuilds the index from the bits.
  EXPECT_EQ(0, ds.Sort("K:D", 1, 0, 0));
  // Stored: 5 4 3 2 2 = r4 r0 r2, then r1 and r3 (hidden, in whatever
  // order); visible: r4 r0 r2.
  EXPECT_EQ("r4,r0,r2", VisibleOrder(ds));
  // Filter(row) at position 1 of the index hides r0 as well.
  ASSERT_EQ(0, ds.Filter(1));
  EXPECT_EQ("r4,r2", VisibleOrder(ds));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("r2,r4", VisibleOrder(ds));
}

TEST(SortIndex, WithoutRowIndexNoListIsBuilt) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({2, 1}));
  ds.recs.GetItem(0)->SetFilter(1);
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(0, ds.recIndex.Count());
  EXPECT_EQ("r1,r0", VisibleOrder(ds));
}

TEST(SortIndex, SecondLevelRebuildsFilterIndexOnly) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  ds.recs.GetItem(2)->SetFilter(1);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(3);
  ds.filterActive = 1;
  ds.filterIndex.Clear();
  ds.filterIndex.Add(0);
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  // Stored: r1 r2 r0; r2 (now stored row 1) has the bit. filterIndex takes
  // the stored rows 0 and 2; recIndex stays the identity.
  EXPECT_EQ("r1,r2,r0", StoredOrder(ds));
  ASSERT_EQ(2, ds.filterIndex.Count());
  EXPECT_EQ(0, ds.filterIndex.Items(0));
  EXPECT_EQ(2, ds.filterIndex.Items(1));
  ASSERT_EQ(3, ds.recIndex.Count());
  EXPECT_EQ(1, ds.recIndex.Items(1));
  EXPECT_EQ("r1,r0", VisibleOrder(ds));
}

TEST(SortIndex, GroupWithoutRegroupLeavesNoSummaryRows) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({2, 1, 2}));
  // A grouping set up by hand: a summary row behind each group.
  ds.groupStr = "K";
  ds.groupFlag = 1;
  ds.groupKeyList.Add((1 << 24) | 0);
  ds.recIndexValid = 1;
  ds.recIndex.Clear();
  ds.recIndex.Add(0);
  ds.recIndex.Add(2);
  ds.recIndex.Add((1 << 24) | 0);
  ds.recIndex.Add(1);
  ds.recIndex.Add((1 << 24) | 3);
  ASSERT_EQ(16, ds.GetRowType(2));
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ(3, ds.GetRowCount());
  for (int row = 0; row < ds.GetRowCount(); ++row)
    EXPECT_NE(16, ds.GetRowType(row)) << row;
  EXPECT_EQ("r1,r0,r2", VisibleOrder(ds));
  // Regroup on request goes to the grouping, which leaves the plain rows.
  EXPECT_EQ(0, ds.Sort("K:D", 1, 0, 1));
  EXPECT_EQ("r0,r2,r1", VisibleOrder(ds));
}

TEST(SortIndex, IndexOrderedBecomesOne) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({2, 1}));
  ds.indexOrdered = 0;
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ(1, ds.indexOrdered);
}

// ---------------------------------------------------------------------------
// Row states travel with their records

TEST(SortStates, RowKeepsTypeAndOriginal) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 1, 2}));
  ds.SetUpdate(1);
  // r0 becomes an updated row (K 3 -> 0) with its original in orgBuff.
  ASSERT_EQ(1, ds.SetColumn(0, 0, 0L));
  ASSERT_EQ(4, ds.GetRowType(0));
  const int bufRow = ds.recs.GetItem(0)->orgRef;
  EXPECT_EQ(0, ds.Sort("K", 1, 0, 0));
  EXPECT_EQ("r0,r1,r2", StoredOrder(ds));  // 0 1 2
  ds.Sort("K:D", 1, 0, 0);
  EXPECT_EQ("r2,r1,r0", StoredOrder(ds));
  EXPECT_EQ(4, ds.GetRowTypeNF(2));
  EXPECT_EQ(bufRow, ds.recs.GetItem(2)->orgRef);
  EXPECT_EQ(3, ds.GetOrgColumnNF(2, 0)->ToInteger());
  EXPECT_EQ(1, ds.GetUpdate());
}

TEST(SortStates, ResetPutsDeletedRowBackAtItsOldPosition) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({1, 2, 3, 4}));
  ds.SetUpdate(1);
  // r1 (K 2) deleted from stored row 1: orgBuff keeps it with orgRef 1.
  ASSERT_EQ(0, ds.DeleteRow(1));
  EXPECT_EQ(0, ds.Sort("K:D", 1, 0, 0));
  EXPECT_EQ("r3,r2,r0", StoredOrder(ds));
  // The saved position is not corrected: Reset reinserts at row 1.
  ds.Reset();
  EXPECT_EQ("r3,r1,r2,r0", StoredOrder(ds));
}

// ---------------------------------------------------------------------------
// _CompareRecord

TEST(SortCompareRecord, StepByStep) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, {Ox_Variant(5L), Ox_Variant(7L), Ox_Variant(), Ox_Variant()});
  int cols[2] = {0, 1};
  int dirs[2] = {1, 1};
  // 1. The same row, or no key: 0.
  EXPECT_EQ(0, ds._CompareRecord(cols, 2, 1, 1, dirs, 0));
  EXPECT_EQ(0, ds._CompareRecord(cols, 0, 0, 1, dirs, 0));
  // 4. The difference itself, times the direction.
  EXPECT_EQ(-2, ds._CompareRecord(cols, 2, 0, 1, dirs, 0));
  dirs[0] = -1;
  EXPECT_EQ(2, ds._CompareRecord(cols, 2, 0, 1, dirs, 0));
  dirs[0] = 3;
  EXPECT_EQ(-6, ds._CompareRecord(cols, 2, 0, 1, dirs, 0));
  // 5.-6. One null: the direction, or its opposite.
  EXPECT_EQ(3, ds._CompareRecord(cols, 2, 0, 2, dirs, 0));
  EXPECT_EQ(-3, ds._CompareRecord(cols, 2, 0, 2, dirs, 1));
  EXPECT_EQ(-3, ds._CompareRecord(cols, 2, 2, 0, dirs, 0));
  EXPECT_EQ(3, ds._CompareRecord(cols, 2, 2, 0, dirs, 1));
  // 7. Both null: the next key, ID: "r2" against "r3".
  EXPECT_LT(ds._CompareRecord(cols, 2, 2, 3, dirs, 0), 0);
  // A key below 0 is skipped.
  int skip[2] = {-1, 0};
  int d2[2] = {1, 1};
  EXPECT_EQ(-2, ds._CompareRecord(skip, 2, 0, 1, d2, 0));
  // 8. No key decides.
  int only[1] = {-1};
  EXPECT_EQ(0, ds._CompareRecord(only, 1, 0, 1, d2, 0));
  EXPECT_EQ(0, ds._CompareRecord(nullptr, 1, 0, 1, d2, 0));
}

TEST(SortCompareRecord, ProductWrapsLikeThirtyTwoBits) {
  Ox_Dataset ds(65001u, 1);
  // 0 - INT_MIN wraps to INT_MIN; -1 times INT_MIN wraps to INT_MIN.
  Build(ds, Ints({0, INT_MIN}));
  int cols[1] = {0};
  int dirs[1] = {-1};
  EXPECT_EQ(INT_MIN, ds._CompareRecord(cols, 1, 0, 1, dirs, 0));
  dirs[0] = 1;
  EXPECT_EQ(INT_MIN, ds._CompareRecord(cols, 1, 0, 1, dirs, 0));
}

TEST(SortCompareRecord, TypesDifferGivesOneEitherWay) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, {Ox_Variant(1L), Ox_Variant("1")});
  int cols[1] = {0};
  int dirs[1] = {1};
  EXPECT_EQ(1, ds._CompareRecord(cols, 1, 0, 1, dirs, 0));
  EXPECT_EQ(1, ds._CompareRecord(cols, 1, 1, 0, dirs, 0));
}

TEST(SortQsort, RangeOutsideTheRowsMovesNothing) {
  Ox_Dataset ds(65001u, 1);
  Build(ds, Ints({3, 2, 1}));
  int cols[1] = {0};
  int dirs[1] = {1};
  EXPECT_EQ(0, ds._qsort(cols, 1, 0, 3, dirs, 0));
  EXPECT_EQ(0, ds._qsort(cols, 1, -1, 2, dirs, 0));
  EXPECT_EQ(0, ds._qsort(nullptr, 1, 0, 2, dirs, 0));
  EXPECT_EQ("r0,r1,r2", StoredOrder(ds));
  // A part of the rows.
  EXPECT_EQ(0, ds._qsort(cols, 1, 1, 2, dirs, 0));
  EXPECT_EQ("r0,r2,r1", StoredOrder(ds));
}

// ---------------------------------------------------------------------------
// _Fibonacci_Search

class FibonacciSearch : public ::testing::Test {
 protected:
  // Stored rows 0..7 with K = 10, 20, ..., 80; pairs (row, 0).
  void SetUp() override {
    std::vector<long> values;
    for (int i = 0; i < 8; ++i) values.push_back(10L * (i + 1));
    Build(ds, Ints(values));
    for (int i = 0; i < 8; ++i) list.Add2(i, 0);
  }
  int Find(long key, int lo = 0, int hi = 8, int dir = 1) {
    Ox_Variant wanted(key);
    return ds._Fibonacci_Search(&list, lo, hi, 0, dir, &wanted);
  }
  Ox_Dataset ds{65001u, 1};
  Ox_IntList list;
};

TEST_F(FibonacciSearch, HitAtTheFirstSplit) {
  // m = 0 + 8 * 618 / 1000 = 4: row 4 holds 50.
  EXPECT_EQ(4, Find(50));
}

TEST_F(FibonacciSearch, MissInsideGivesNegatedInsertionPoint) {
  // 35: m = 4 (50): below, hi = 4; m = 0 + 4 * 618 / 1000 = 2 (30): above,
  // lo = 3; tail: 40 at 3 is greater, so -3.
  EXPECT_EQ(-3, Find(35));
}

TEST_F(FibonacciSearch, BehindTheEnd) {
  // 85: m = 4, lo = 5; m = 5 + 3 * 618 / 1000 = 6 (70), lo = 7; tail: 80
  // is less, lo reaches hi = 8: -8.
  EXPECT_EQ(-8, Find(85));
}

TEST_F(FibonacciSearch, FirstEntryAndBeforeIt) {
  // 10: hi = 4, then m = 2 (30), hi = 2; tail at 0 finds 10.
  EXPECT_EQ(0, Find(10));
  // 5: the same way to the tail, where 10 at 0 is greater: -0.
  EXPECT_EQ(0, Find(5));
  // 20: tail 0 (10) less, 1 (20) equal.
  EXPECT_EQ(1, Find(20));
}

TEST_F(FibonacciSearch, FromPairOneAsThePivotCallerDoes) {
  // lo 1, hi 8: m = 1 + 7 * 618 / 1000 = 5 (60). 15: hi = 5; m = 1 + 4 *
  // 618 / 1000 = 3 (40), hi = 3; tail: 1 (20) is greater: -1.
  EXPECT_EQ(-1, Find(15, 1, 8));
  EXPECT_EQ(5, Find(60, 1, 8));
}

TEST_F(FibonacciSearch, DescendingList) {
  // Pairs in reverse: pair p names row 7 - p, so K = 80 - 10 p. With dir
  // -1, 60: m = 4 (40): -1 * (60 - 40) < 0, hi = 4; m = 2 (60): 2.
  list.Clear();
  for (int p = 0; p < 8; ++p) list.Add2(7 - p, 0);
  EXPECT_EQ(2, Find(60, 0, 8, -1));
  // 45: m = 4 (40): -1 * 5 < 0, hi = 4; m = 2 (60): -1 * -15 > 0, lo = 3;
  // tail 3 (50): -1 * -5 > 0, lo reaches hi: -4, between 50 and 40.
  EXPECT_EQ(-4, Find(45, 0, 8, -1));
}

TEST_F(FibonacciSearch, EmptyRangeGivesMinusLo) {
  EXPECT_EQ(-3, Find(50, 3, 3));
  EXPECT_EQ(0, Find(50, 0, 0));
  // A range turned round reads nothing either.
  EXPECT_EQ(-5, Find(50, 5, 2));
}

TEST_F(FibonacciSearch, NullArgumentsReadAsNulls) {
  // A null key against 10 (pair 0): types differ, 1; against the others
  // too; so lo walks to hi.
  EXPECT_EQ(-8, ds._Fibonacci_Search(&list, 0, 8, 0, 1, nullptr));
  // No list: every pair names row 0 (10).
  Ox_Variant ten(10L);
  EXPECT_EQ(4, ds._Fibonacci_Search(nullptr, 0, 8, 0, 1, &ten));
}

}  // namespace
