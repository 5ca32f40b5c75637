// The translations between the rows of a view and the stored rows of its
// bound dataset: GetRealFilterRowPos, FindFilterBindRowPos (binary and
// linear), FindGroupBindRowPos and the column members that change nothing.
// The index lists are set up by hand.
#include <gtest/gtest.h>

#include "Ox_Dataset.h"
#include "rows_test_util.h"

namespace {

using rows_test::BindView;
using rows_test::Fill;
using rows_test::Summary;

// A view over ten bound rows whose first level shows the stored rows
// `rows` in that order, two integers a row.
class FilterFind : public ::testing::Test {
 protected:
  void SetUp() override {
    Fill(bound, 10);
    BindView(view, bound);
  }
  void Show(std::initializer_list<int> rows) {
    view.recIndexValid = 1;
    view.recIndex.Clear();
    for (int stored : rows) view.recIndex.Add2(stored, 0);
  }
  void Second(std::initializer_list<int> positions) {
    view.filterActive = 1;
    view.filterIndex.Clear();
    for (int p : positions) view.filterIndex.Add(p);
  }
  Ox_Dataset bound{65001u, 1};
  Ox_Dataset view{65001u, 1};
};

// ---------------------------------------------------------------------------
// GetRealFilterRowPos

TEST_F(FilterFind, RealRowThroughBothLevelsOrTheFirstAlone) {
  Show({1, 3, 4, 7, 9});
  EXPECT_EQ(3, view.GetRealFilterRowPos(1, 0));
  EXPECT_EQ(9, view.GetRealFilterRowPos(4, 1));
  Second({0, 2, 4});
  // skiploc 0: pair filterIndex[1] = 2, stored row 4.
  EXPECT_EQ(4, view.GetRealFilterRowPos(1, 0));
  // skiploc 1: pair 1 itself, stored row 3.
  EXPECT_EQ(3, view.GetRealFilterRowPos(1, 1));
  EXPECT_EQ(9, view.GetRealFilterRowPos(2, 0));
}

TEST_F(FilterFind, RealRowOutOfRangeGivesMinusOne) {
  Show({1, 3});
  EXPECT_EQ(-1, view.GetRealFilterRowPos(2, 0));
  EXPECT_EQ(-1, view.GetRealFilterRowPos(-1, 1));
  Second({1});
  EXPECT_EQ(-1, view.GetRealFilterRowPos(1, 0));  // past filterIndex
  EXPECT_EQ(3, view.GetRealFilterRowPos(1, 1));   // pair 1 is there
}

TEST_F(FilterFind, RealRowIsTheLow24BitsOfTheEntry) {
  // A summary pair gives its value; a summary entry of filterIndex names
  // no pair (its raw value is far past the list).
  Show({2, 5});
  view.recIndex.Set(2, Summary(1, 0));
  EXPECT_EQ(0, view.GetRealFilterRowPos(1, 1));
  Second({Summary(1, 0), 0});
  EXPECT_EQ(-1, view.GetRealFilterRowPos(0, 0));
  EXPECT_EQ(2, view.GetRealFilterRowPos(1, 0));
}

TEST(FilterFindPhysical, RealRowOfAPhysicalDatasetIsTheRow) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  EXPECT_EQ(0, ds.GetRealFilterRowPos(0, 0));
  EXPECT_EQ(7, ds.GetRealFilterRowPos(7, 1));
}

// ---------------------------------------------------------------------------
// FindFilterBindRowPos, binary search

TEST_F(FilterFind, BinarySearchFindsEveryShownRow) {
  // Positions 0..4 show 1 3 4 7 9. For 7: lo 0, hi 7, m 3 shows 7.
  // For 9: m 4 shows 9. For 4: m 2. For 3: m 1. For 1: hi - lo is 1 at
  // once, the scan of 0..1 finds position 0.
  Show({1, 3, 4, 7, 9});
  EXPECT_EQ(3, view.FindFilterBindRowPos(7, 0, 0));
  EXPECT_EQ(4, view.FindFilterBindRowPos(9, 0, 0));
  EXPECT_EQ(2, view.FindFilterBindRowPos(4, 0, 0));
  EXPECT_EQ(1, view.FindFilterBindRowPos(3, 0, 0));
  EXPECT_EQ(0, view.FindFilterBindRowPos(1, 0, 0));
}

TEST_F(FilterFind, BinarySearchMissesGiveMinusOne) {
  // 5: m 2 shows 4 (below, lo 2), m 3 shows 7 (above, hi 3), the scan of
  // 2..3 finds nothing. 0: the scan of 0..0 shows 1.
  Show({1, 3, 4, 7, 9});
  EXPECT_EQ(-1, view.FindFilterBindRowPos(5, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(0, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(8, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(20, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(-1, 0, 0));
}

TEST_F(FilterFind, BinarySearchPastTheEndOfAShortList) {
  // Two positions show 2 and 9. For 9: hi 9; m 4 is past the list, so the
  // range falls below it (hi 4), m 2 past too (hi 2), m 1 shows 9.
  Show({2, 9});
  EXPECT_EQ(1, view.FindFilterBindRowPos(9, 0, 0));
  EXPECT_EQ(0, view.FindFilterBindRowPos(2, 0, 0));
}

TEST_F(FilterFind, BinarySearchThroughTheSecondLevel) {
  // filterIndex 0 2 4 over pairs 1 3 4 7 9 shows 1 4 9. For 4: m 2 shows 9
  // (hi 2), m 1 shows 4. For 3: m 1 shows 4 (hi 1); the scan of 0..1
  // shows 1 and 4.
  Show({1, 3, 4, 7, 9});
  Second({0, 2, 4});
  EXPECT_EQ(1, view.FindFilterBindRowPos(4, 0, 0));
  EXPECT_EQ(2, view.FindFilterBindRowPos(9, 0, 0));
  EXPECT_EQ(0, view.FindFilterBindRowPos(1, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(3, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(7, 0, 0));
}

TEST_F(FilterFind, SecondLevelAloneIsEnough) {
  // recIndexValid 0 with filterActive set still searches.
  Show({1, 3, 4});
  view.recIndexValid = 0;
  Second({1, 2});
  EXPECT_EQ(1, view.FindFilterBindRowPos(4, 0, 0));
}

TEST_F(FilterFind, NeitherLevelInForceGivesMinusOne) {
  Show({0, 1, 2});
  view.recIndexValid = 0;
  EXPECT_EQ(-1, view.FindFilterBindRowPos(1, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(0, 0, 0));
}

// ---------------------------------------------------------------------------
// FindFilterBindRowPos, linear search

TEST_F(FilterFind, LinearSearchWhenTheOrderDoesNotHold) {
  // Pairs 9 1 7 3, out of order. With indexOrdered off: the first position
  // from 0 that shows the row.
  Show({9, 1, 7, 3});
  view.indexOrdered = 0;
  EXPECT_EQ(2, view.FindFilterBindRowPos(7, 0, 0));
  EXPECT_EQ(0, view.FindFilterBindRowPos(9, 0, 0));
  EXPECT_EQ(3, view.FindFilterBindRowPos(3, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(5, 0, 0));
  // With the order claimed, the binary search misses 7: hi 7, m 3 shows 3
  // (lo 3), m 5 and m 4 are past the list (hi 4); the scan of 3..4 finds
  // nothing.
  view.indexOrdered = 1;
  EXPECT_EQ(-1, view.FindFilterBindRowPos(7, 0, 0));
}

TEST_F(FilterFind, LinearSearchThroughTheSecondLevel) {
  Show({9, 1, 7, 3});
  Second({3, 2});
  view.indexOrdered = 0;
  EXPECT_EQ(1, view.FindFilterBindRowPos(7, 0, 0));
  EXPECT_EQ(0, view.FindFilterBindRowPos(3, 0, 0));
  EXPECT_EQ(-1, view.FindFilterBindRowPos(9, 0, 0));
}

TEST(FilterFindPhysical, BindRowOfAPhysicalDatasetIsTheArgument) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  EXPECT_EQ(1, ds.FindFilterBindRowPos(1, 0, 0));
  EXPECT_EQ(-5, ds.FindFilterBindRowPos(-5, 0, 0));
  EXPECT_EQ(123456, ds.FindFilterBindRowPos(123456, 7, 8));
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  EXPECT_EQ(0, ds.FindFilterBindRowPos(0, 0, 0));
}

// ---------------------------------------------------------------------------
// FindGroupBindRowPos

TEST(FilterFindGroup, NotAGroupGivesTheArgument) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  EXPECT_EQ(5, ds.FindGroupBindRowPos(5, 0, 0));
  EXPECT_EQ(-3, ds.FindGroupBindRowPos(-3, 0, 0));
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(1, view.FindGroupBindRowPos(1, 0, 0));
  // Type 35 without the group flag is no group dataset.
  view.logicalType = 35;
  EXPECT_EQ(1, view.FindGroupBindRowPos(1, 0, 0));
}

TEST(FilterFindGroup, GroupWithoutBoundRowsGivesMinusOne) {
  Ox_Dataset group(65001u, 1);
  group.logicalType = 35;
  group.groupFlag = 1;
  group.pRecs = nullptr;
  EXPECT_EQ(-1, group.FindGroupBindRowPos(0, 0, 0));
}

TEST(FilterFindGroup, MissingOrDeletedBoundRowGivesMinusOne) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  bound.recs.GetItem(1)->SetType(8);
  Ox_Dataset group(65001u, 1);
  group.logicalType = 35;
  group.groupFlag = 1;
  group.bindDataset = &bound;
  group.pRecs = &bound.recs;
  EXPECT_EQ(-1, group.FindGroupBindRowPos(2, 0, 0));
  EXPECT_EQ(-1, group.FindGroupBindRowPos(-1, 0, 0));
  EXPECT_EQ(-1, group.FindGroupBindRowPos(1, 0, 0));
}

// ---------------------------------------------------------------------------
// Members that change nothing

TEST(FilterFindColumns, BindColumnAndPivotMembersGiveTheirFirstArgument) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  EXPECT_EQ(4, ds.FindFilterBindColPos(4, 1, 2));
  EXPECT_EQ(-2, ds.FindGroupBindColPos(-2, 0, 0));
  EXPECT_EQ(9, ds.FindPivotBindColPos(9, 3, 3));
  EXPECT_EQ(6, ds.FindPivotBindRowPos(6, 0, 1));
}

}  // namespace
