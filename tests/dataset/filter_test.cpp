// The two filter levels of Ox_Dataset: Filter, UnFilter, LocFilter,
// LocUnFilter, SetFilterStr and the status members, on physical datasets,
// on views and on index states set up by hand.
//
// Every dataset here comes from rows_test::Fill: stored row i holds
// A = 10 * i (INT) and B = "r<i>" (STRING), so a row is known by its A.
#include <gtest/gtest.h>

#include <vector>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"
#include "rows_test_util.h"

namespace {

using rows_test::BindView;
using rows_test::Fill;
using rows_test::Put;
using rows_test::Summary;
using rows_test::VisibleA;

// The integers of a list, for comparing whole lists at once.
std::vector<int> Items(const Ox_IntList &list) {
  std::vector<int> out;
  for (int i = 0; i < list.Count(); ++i) out.push_back(list.Items(i));
  return out;
}

// The A of every visible row, in order.
std::vector<long> VisibleRows(const Ox_Dataset &ds) {
  std::vector<long> out;
  for (int row = 0; row < ds.GetRowCount(); ++row)
    out.push_back(VisibleA(ds, row));
  return out;
}

// Whether stored row `stored` carries the filter bit.
bool Hidden(const Ox_Dataset &ds, int stored) {
  return ds.recs.GetItem(stored)->GetFilter() != 0;
}

// ---------------------------------------------------------------------------
// Filter(row), first level

TEST(FilterRow, WithoutIndexHidesTheStoredRowAndBuildsTheIdentity) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.indexOrdered = 0;
  EXPECT_EQ(0, ds.Filter(1));
  EXPECT_EQ(1, ds.recIndexValid);
  EXPECT_EQ(1, ds.indexOrdered);
  // The identity 0..3 without entry 1.
  EXPECT_EQ((std::vector<int>{0, 2, 3}), Items(ds.recIndex));
  EXPECT_EQ((std::vector<long>{0, 20, 30}), VisibleRows(ds));
  EXPECT_TRUE(Hidden(ds, 1));
  EXPECT_FALSE(Hidden(ds, 0));
  EXPECT_EQ(4, ds.GetRowCountNF());
}

TEST(FilterRow, WithoutIndexNoSuchRowChangesNothing) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  EXPECT_EQ(0, ds.Filter(3));
  EXPECT_EQ(0, ds.Filter(-1));
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(0, ds.recIndex.Count());
  EXPECT_EQ(3, ds.GetRowCount());
}

TEST(FilterRow, OnARowAlreadyHiddenHidesTheNextVisibleRow) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.Filter(1);  // index 0, 2, 3: position 1 now shows stored row 2
  EXPECT_EQ(0, ds.Filter(1));
  EXPECT_EQ((std::vector<int>{0, 3}), Items(ds.recIndex));
  EXPECT_EQ((std::vector<long>{0, 30}), VisibleRows(ds));
  EXPECT_TRUE(Hidden(ds, 1));
  EXPECT_TRUE(Hidden(ds, 2));
}

TEST(FilterRow, WithIndexASummaryRowStays) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Add(0);
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
  ds.recIndex.Add(2);
  EXPECT_EQ(0, ds.Filter(2));
  EXPECT_EQ(4, ds.recIndex.Count());
  // A plain entry goes and its record is marked.
  EXPECT_EQ(0, ds.Filter(1));
  EXPECT_EQ((std::vector<int>{0, Summary(1, 0), 2}), Items(ds.recIndex));
  EXPECT_TRUE(Hidden(ds, 1));
  // Out of range either way: nothing.
  EXPECT_EQ(0, ds.Filter(3));
  EXPECT_EQ(0, ds.Filter(-1));
  EXPECT_EQ(3, ds.recIndex.Count());
}

TEST(FilterRow, WithIndexOfAnotherOrderHidesTheStoredRowItNames) {
  // An index in another order than recs, as a sort or a caller leaves it:
  // position 0 names stored row 2.
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  ds.recIndex.Add(0);
  ds.recIndex.Add(1);
  EXPECT_EQ(0, ds.Filter(0));
  EXPECT_EQ((std::vector<int>{0, 1}), Items(ds.recIndex));
  EXPECT_TRUE(Hidden(ds, 2));
  EXPECT_FALSE(Hidden(ds, 0));
}

TEST(FilterRow, ViewWithoutIndexBuildsPairsAndMarksNothing) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(0, view.Filter(1));
  EXPECT_EQ(1, view.recIndexValid);
  EXPECT_EQ((std::vector<int>{0, 0, 2, 0}), Items(view.recIndex));
  EXPECT_EQ(2, view.GetRowCount());
  EXPECT_FALSE(Hidden(bound, 1));
  // With the index in force `row` is a pair number.
  EXPECT_EQ(0, view.Filter(0));
  EXPECT_EQ((std::vector<int>{2, 0}), Items(view.recIndex));
  // A row beyond the pairs: nothing.
  EXPECT_EQ(0, view.Filter(1));
  EXPECT_EQ(2, view.recIndex.Count());
}

TEST(FilterRow, ViewSummaryPairStaysAndNoSuchRowEnds) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  // No such stored row of the bound dataset: nothing.
  EXPECT_EQ(0, view.Filter(2));
  EXPECT_EQ(0, view.recIndexValid);
  view.recIndexValid = 1;
  view.recIndex.Add2(Summary(1, 0), 0);
  view.recIndex.Add2(1, 0);
  EXPECT_EQ(0, view.Filter(0));
  EXPECT_EQ(4, view.recIndex.Count());
  EXPECT_EQ(0, view.Filter(1));
  EXPECT_EQ((std::vector<int>{Summary(1, 0), 0}), Items(view.recIndex));
}

TEST(FilterRow, ViewWithNoRecordsEndsAtOnce) {
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  view.pRecs = nullptr;
  EXPECT_EQ(0, view.Filter(0));
  EXPECT_EQ(0, view.recIndexValid);
  // No bound dataset, so no columns: the expression is bad.
  EXPECT_EQ(-1, view.Filter("A=1"));
}

// ---------------------------------------------------------------------------
// Filter(expr), first level

TEST(FilterExpr, PhysicalSetsBitsAndLeavesTheIndexEmpty) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  EXPECT_EQ(0, ds.Filter("B=r2"));
  EXPECT_EQ(1, ds.recIndexValid);
  EXPECT_EQ(0, ds.recIndex.Count());
  // The caller has not finished the filter: nothing is visible yet.
  EXPECT_EQ(0, ds.GetRowCount());
  EXPECT_EQ(4, ds.GetRowCountNF());
  EXPECT_TRUE(Hidden(ds, 2));
  EXPECT_FALSE(Hidden(ds, 0));
  EXPECT_FALSE(Hidden(ds, 1));
  EXPECT_FALSE(Hidden(ds, 3));
}

TEST(FilterExpr, CallerFinishesTheFilterFromTheBits) {
  // What a caller (or Sort) does next: the stored rows whose bit is clear,
  // in order, become the index.
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.Filter("A=10");
  for (int i = 0; i < ds.recs.Count(); ++i) {
    if (!Hidden(ds, i)) ds.recIndex.Add(i);
  }
  EXPECT_EQ((std::vector<long>{0, 20, 30}), VisibleRows(ds));
}

TEST(FilterExpr, TheBitTravelsWithTheRecordWhenRowsChangePlace) {
  // As a sort does it: the records change place in recs, then the index
  // is rebuilt from the bits. Rows A 0 10 20 30, the row with 10 hidden;
  // reversed, recs holds 30 20 10 0 and the hidden record is stored row 2.
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.Filter("A=10");
  ds.ReverseRow();
  EXPECT_TRUE(Hidden(ds, 2));
  EXPECT_FALSE(Hidden(ds, 1));
  for (int i = 0; i < ds.recs.Count(); ++i) {
    if (!Hidden(ds, i)) ds.recIndex.Add(i);
  }
  EXPECT_EQ((std::vector<long>{30, 20, 0}), VisibleRows(ds));
  // A second-level filter on that view hides the row shown at position 1.
  EXPECT_EQ(0, ds.LocFilter("B=r2"));
  EXPECT_EQ((std::vector<long>{30, 0}), VisibleRows(ds));
}

TEST(FilterExpr, NoMatchLeavesNoFilter) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.Filter(0);  // a filter in force, removed by the new call
  EXPECT_EQ(0, ds.Filter("B=zz"));
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(3, ds.GetRowCount());
  EXPECT_FALSE(Hidden(ds, 0));
}

TEST(FilterExpr, UnknownColumnGivesMinusOneAndKeepsTheFilterInForce) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.Filter(1);
  ds.LocFilter(0);
  EXPECT_EQ(-1, ds.Filter("Z=r1"));
  EXPECT_EQ(1, ds.recIndexValid);
  EXPECT_EQ((std::vector<int>{0, 2, 3}), Items(ds.recIndex));
  EXPECT_EQ(1, ds.filterActive);
  EXPECT_EQ((std::vector<int>{1, 2}), Items(ds.filterIndex));
  EXPECT_TRUE(Hidden(ds, 1));
}

TEST(FilterExpr, ViewDeletesPairsByUncorrectedPositions) {
  // Bound rows B: r0 x x r3 x (x at stored rows 1, 2, 4). The matches are
  // i = 1, 2, 4. Pairs 0..4; delete pair 1 -> 0 2 3 4; delete pair 2 (now
  // stored row 3) -> 0 2 4; delete pair 4: beyond the three pairs, nothing.
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 5);
  for (int i : {1, 2, 4}) Put(bound, i, 1, Ox_Variant("x"));
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.indexOrdered = 0;
  EXPECT_EQ(0, view.Filter("B=x"));
  EXPECT_EQ(1, view.recIndexValid);
  EXPECT_EQ(1, view.indexOrdered);
  EXPECT_EQ((std::vector<int>{0, 0, 2, 0, 4, 0}), Items(view.recIndex));
  EXPECT_EQ(3, view.GetRowCount());
  // The bound records carry no bit.
  EXPECT_FALSE(Hidden(bound, 1));
}

TEST(FilterExpr, ViewWithoutMatchKeepsNoIndex) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(0, view.Filter("B=none"));
  EXPECT_EQ(0, view.recIndexValid);
  EXPECT_EQ(0, view.recIndex.Count());
}

// ---------------------------------------------------------------------------
// UnFilter

TEST(UnFilter, RemovesBothLevelsAndTheSummaryRows) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.Filter(0);
  ds.recIndex.Add(Summary(1, 0));  // as grouping leaves it
  ds.LocFilter(1);
  ds.recs.GetItem(3)->SetSelect(1);
  ds.indexOrdered = 0;
  EXPECT_EQ(0, ds.UnFilter());
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.recIndex.Count());
  EXPECT_EQ(0, ds.filterIndex.Count());
  EXPECT_EQ(1, ds.indexOrdered);
  EXPECT_EQ(ds.GetRowCountNF(), ds.GetRowCount());
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(Hidden(ds, i));
  // Bits 8 to 11 go; the selection bit stays.
  EXPECT_NE(0, ds.recs.GetItem(3)->GetSelect());
}

TEST(UnFilter, ClearsEveryFilterBitOfRecs) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recs.GetItem(1)->status |= 0xF00;  // bits 8 to 11
  ds.recIndexValid = 1;
  ds.UnFilter();
  EXPECT_EQ(1, ds.recs.GetItem(1)->status);
}

TEST(UnFilter, WithoutFirstLevelTheBitsStay) {
  // Only a first level in force clears the bits.
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recs.GetItem(0)->SetFilter(1);
  ds.filterActive = 1;
  ds.filterIndex.Add(0);
  EXPECT_EQ(0, ds.UnFilter());
  EXPECT_TRUE(Hidden(ds, 0));
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.filterIndex.Count());
}

TEST(UnFilter, ViewClearsItsPairs) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  bound.recs.GetItem(2)->SetFilter(1);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.Filter(0);
  EXPECT_EQ(0, view.UnFilter());
  EXPECT_EQ(0, view.recIndexValid);
  EXPECT_EQ(0, view.recIndex.Count());
  // The bound dataset's bits are not the view's.
  EXPECT_TRUE(Hidden(bound, 2));
}

// ---------------------------------------------------------------------------
// LocFilter(row), second level

TEST(LocFilterRow, WithoutFirstLevelGivesMinusOneAndChangesNothing) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  EXPECT_EQ(-1, ds.LocFilter(0));
  EXPECT_EQ(-1, ds.LocFilter("B=r0"));
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.filterIndex.Count());
  EXPECT_FALSE(Hidden(ds, 0));
  EXPECT_EQ(3, ds.GetRowCount());
}

TEST(LocFilterRow, PhysicalStartsTheIdentityAndDeletesTheEntry) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.ResetRecIndex();
  ds.recIndexValid = 1;
  EXPECT_EQ(0, ds.LocFilter(2));
  EXPECT_EQ(1, ds.filterActive);
  EXPECT_EQ((std::vector<int>{0, 1, 3}), Items(ds.filterIndex));
  EXPECT_EQ((std::vector<long>{0, 10, 30}), VisibleRows(ds));
  EXPECT_TRUE(Hidden(ds, 2));
  // The first level is untouched.
  EXPECT_EQ(4, ds.recIndex.Count());
}

TEST(LocFilterRow, RowStaysAPositionOfTheFirstLevel) {
  // After LocFilter(1) filterIndex is 0 2 3. LocFilter(2) deletes entry 2
  // of filterIndex (which is 3), although it marks the record at
  // recIndex[2], stored row 2.
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.ResetRecIndex();
  ds.recIndexValid = 1;
  ds.LocFilter(1);
  EXPECT_EQ(0, ds.LocFilter(2));
  EXPECT_EQ((std::vector<int>{0, 2}), Items(ds.filterIndex));
  EXPECT_TRUE(Hidden(ds, 1));
  EXPECT_TRUE(Hidden(ds, 2));
  EXPECT_FALSE(Hidden(ds, 3));
}

TEST(LocFilterRow, PhysicalSummaryRowEndsAtOnce) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recIndexValid = 1;
  ds.recIndex.Add(0);
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
  EXPECT_EQ(0, ds.LocFilter(2));
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.filterIndex.Count());
}

TEST(LocFilterRow, PhysicalMarksTheRecordTheIndexNames) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  ds.recIndex.Add(0);
  EXPECT_EQ(0, ds.LocFilter(0));
  EXPECT_TRUE(Hidden(ds, 2));
  EXPECT_FALSE(Hidden(ds, 0));
  EXPECT_EQ((std::vector<int>{1}), Items(ds.filterIndex));
  EXPECT_EQ((std::vector<long>{0}), VisibleRows(ds));
}

TEST(LocFilterRow, ViewUsesPairsAndMarksNothing) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.recIndexValid = 1;
  view.recIndex.Reset2(3, 0);
  EXPECT_EQ(0, view.LocFilter(0));
  EXPECT_EQ(1, view.filterActive);
  EXPECT_EQ((std::vector<int>{1, 2}), Items(view.filterIndex));
  EXPECT_EQ(2, view.GetRowCount());
  EXPECT_FALSE(Hidden(bound, 0));
  // A summary pair ends the call.
  view.recIndex.Set(2, Summary(1, 0));
  EXPECT_EQ(0, view.LocFilter(1));
  EXPECT_EQ(2, view.filterIndex.Count());
}

TEST(LocFilterRow, PivotMarksSummaryEntriesOfTheSecondLevel) {
  // A pivot's first level is its row value list: pairs 0 and 2 are plain,
  // pair 1 a summary row of level 1.
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset pivot(65001u, 1);
  BindView(pivot, bound);
  pivot.logicalType = 33;
  pivot.pivotFlag = 1;
  pivot.recIndexValid = 1;
  pivot.recIndex.Reset2(3, 0);
  pivot.rowValueList.Add2(0, 0);
  pivot.rowValueList.Add2(Summary(1, 0), 0);
  pivot.rowValueList.Add2(1, 0);
  // The summary row itself ends the call.
  EXPECT_EQ(0, pivot.LocFilter(1));
  EXPECT_EQ(0, pivot.filterActive);
  // Identity 0 1 2 over the pairs, the summary's entry 0x1000000, then
  // entry 0 deleted.
  EXPECT_EQ(0, pivot.LocFilter(0));
  EXPECT_EQ(1, pivot.filterActive);
  EXPECT_EQ((std::vector<int>{0x1000000, 2}), Items(pivot.filterIndex));
}

// ---------------------------------------------------------------------------
// LocFilter(expr), second level

TEST(LocFilterExpr, PhysicalWalksTheFirstLevelWithoutBits) {
  // First level (by hand) 3 1 0 2; B = x at stored rows 1 and 2. Walk:
  // p=1 (stored 1) matches -> identity 0 1 2 3, delete entry 1 -> 0 2 3;
  // p=3 (stored 2) matches -> position 3 is beyond, nothing.
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  Put(ds, 1, 1, Ox_Variant("x"));
  Put(ds, 2, 1, Ox_Variant("x"));
  ds.recIndexValid = 1;
  for (int v : {3, 1, 0, 2}) ds.recIndex.Add(v);
  EXPECT_EQ(0, ds.LocFilter("B=x"));
  EXPECT_EQ(1, ds.filterActive);
  EXPECT_EQ((std::vector<int>{0, 2, 3}), Items(ds.filterIndex));
  EXPECT_EQ((std::vector<long>{30, 0, 20}), VisibleRows(ds));
  // No filter bit is set here.
  EXPECT_FALSE(Hidden(ds, 1));
  EXPECT_FALSE(Hidden(ds, 2));
}

TEST(LocFilterExpr, SkipsSummaryRows) {
  // A summary entry whose value (0) names a matching stored row is not
  // read; the plain entry of stored row 0 at position 2 is.
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recIndexValid = 1;
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
  ds.recIndex.Add(0);
  EXPECT_EQ(0, ds.LocFilter("A=0"));
  EXPECT_EQ((std::vector<int>{0, 1}), Items(ds.filterIndex));
}

TEST(LocFilterExpr, ReplacesTheSecondLevelAndKeepsTheFirst) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.Filter(0);  // first level 1 2
  ds.LocFilter(0);
  EXPECT_EQ(0, ds.LocFilter("B=r2"));
  EXPECT_EQ((std::vector<int>{1, 2}), Items(ds.recIndex));
  EXPECT_EQ((std::vector<int>{0}), Items(ds.filterIndex));
  EXPECT_EQ((std::vector<long>{10}), VisibleRows(ds));
}

TEST(LocFilterExpr, NoMatchLeavesTheSecondLevelOff) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.ResetRecIndex();
  ds.recIndexValid = 1;
  ds.LocFilter(0);
  EXPECT_EQ(0, ds.LocFilter("B=none"));
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(3, ds.GetRowCount());
}

TEST(LocFilterExpr, BadExpressionGivesMinusOneAndKeepsTheSecondLevel) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.ResetRecIndex();
  ds.recIndexValid = 1;
  ds.LocFilter(0);
  EXPECT_EQ(-1, ds.LocFilter("Nope=1"));
  EXPECT_EQ(-1, ds.LocFilter("B"));
  EXPECT_EQ(1, ds.filterActive);
  EXPECT_EQ((std::vector<int>{1, 2}), Items(ds.filterIndex));
}

TEST(LocFilterExpr, ViewReadsTheStoredRowFromTheFirstIntegerOfAPair) {
  // Pairs (2,0) (0,0) (1,0): B = r2, r0, r1. "B=r0" matches position 1.
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.recIndexValid = 1;
  view.recIndex.Add2(2, 0);
  view.recIndex.Add2(0, 0);
  view.recIndex.Add2(1, 0);
  EXPECT_EQ(0, view.LocFilter("B=r0"));
  EXPECT_EQ((std::vector<int>{0, 2}), Items(view.filterIndex));
  EXPECT_EQ(2, view.GetRowCount());
}

TEST(LocFilterExpr, PivotReadsTheStoredRowFromTheSecondInteger) {
  // Row value list pairs (0,2) (summary,0) (1,1): the stored rows are the
  // second integers, 2 and 1. "A=10" matches stored row 1 at position 2.
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset pivot(65001u, 1);
  BindView(pivot, bound);
  pivot.logicalType = 33;
  pivot.pivotFlag = 1;
  pivot.recIndexValid = 1;
  pivot.rowValueList.Add2(0, 2);
  pivot.rowValueList.Add2(Summary(1, 0), 0);
  pivot.rowValueList.Add2(1, 1);
  EXPECT_EQ(0, pivot.LocFilter("A=10"));
  EXPECT_EQ((std::vector<int>{0, 1}), Items(pivot.filterIndex));
  // Stored row 0 is named only by the summary pair, which is skipped.
  EXPECT_EQ(0, pivot.LocFilter("A=0"));
  EXPECT_EQ(0, pivot.filterActive);
}

// ---------------------------------------------------------------------------
// LocUnFilter

TEST(LocUnFilter, KeepsTheFirstLevel) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.Filter(3);  // first level 0 1 2
  ds.LocFilter(0);
  EXPECT_EQ(0, ds.LocUnFilter());
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.filterIndex.Count());
  EXPECT_EQ(1, ds.recIndexValid);
  EXPECT_EQ((std::vector<int>{0, 1, 2}), Items(ds.recIndex));
  EXPECT_EQ((std::vector<long>{0, 10, 20}), VisibleRows(ds));
}

TEST(LocUnFilter, ClearsTheBitsOfTheFirstStoredRowsOnly) {
  // recIndex has two entries, naming stored rows 3 and 2; the bits of
  // stored rows 0 and 1 are cleared, those of 2 and 3 stay.
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  for (int i = 0; i < 4; ++i) ds.recs.GetItem(i)->SetFilter(1);
  ds.recIndexValid = 1;
  ds.recIndex.Add(3);
  ds.recIndex.Add(2);
  ds.filterActive = 1;
  ds.filterIndex.Add(0);
  ds.LocUnFilter();
  EXPECT_FALSE(Hidden(ds, 0));
  EXPECT_FALSE(Hidden(ds, 1));
  EXPECT_TRUE(Hidden(ds, 2));
  EXPECT_TRUE(Hidden(ds, 3));
}

TEST(LocUnFilter, ViewClearsOnlyTheSecondLevel) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  bound.recs.GetItem(0)->SetFilter(1);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.recIndexValid = 1;
  view.recIndex.Reset2(2, 0);
  view.LocFilter(0);
  EXPECT_EQ(0, view.LocUnFilter());
  EXPECT_EQ(0, view.filterActive);
  EXPECT_EQ(0, view.filterIndex.Count());
  EXPECT_EQ(4, view.recIndex.Count());
  EXPECT_TRUE(Hidden(bound, 0));
}

// ---------------------------------------------------------------------------
// Both levels together

TEST(FilterLevels, SecondLevelHidesRowsOfTheFirst) {
  // First level hides stored row 1 (index 0 2 3 4); the second hides
  // position 2 of it (stored row 3).
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 5);
  ds.Filter(1);
  ds.LocFilter(2);
  EXPECT_EQ((std::vector<long>{0, 20, 40}), VisibleRows(ds));
  // LocUnFilter brings back the first level's view ...
  ds.LocUnFilter();
  EXPECT_EQ((std::vector<long>{0, 20, 30, 40}), VisibleRows(ds));
  // ... and UnFilter all rows.
  ds.LocFilter(0);
  ds.UnFilter();
  EXPECT_EQ((std::vector<long>{0, 10, 20, 30, 40}), VisibleRows(ds));
}

TEST(FilterLevels, ANewFirstLevelFilterDropsTheSecondLevel) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.Filter(0);
  ds.LocFilter(0);
  EXPECT_EQ(0, ds.Filter("B=r1"));
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.filterIndex.Count());
  EXPECT_FALSE(Hidden(ds, 0));
  EXPECT_TRUE(Hidden(ds, 1));
}

TEST(FilterLevels, AppendRowAfterAFilterJoinsBothLevels) {
  // A row added under both levels is visible at once (the row store adds
  // its stored row to both lists).
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.Filter(0);
  ds.LocFilter(0);
  ds.AppendRow(0);
  EXPECT_EQ((std::vector<int>{1, 2, 3}), Items(ds.recIndex));
  EXPECT_EQ(2, ds.GetRowCount());
}

// ---------------------------------------------------------------------------
// SetFilterStr and the status members

TEST(SetFilterStr, NonEmptyOnPhysicalLeavesAnEmptyFirstLevel) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.Filter(0);
  ds.LocFilter(0);
  EXPECT_EQ(1, ds.SetFilterStr(Ox_AString("A > 10")));
  EXPECT_STREQ("A > 10", ds.GetFilterStr().GetString());
  EXPECT_EQ(1, ds.recIndexValid);
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.recIndex.Count());
  EXPECT_EQ(0, ds.filterIndex.Count());
  EXPECT_EQ(0, ds.GetRowCount());
  // The caller fills the index.
  ds.recIndex.Add(2);
  EXPECT_EQ((std::vector<long>{20}), VisibleRows(ds));
}

TEST(SetFilterStr, EmptyTextDropsBothLevels) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.SetFilterStr(Ox_AString("x"));
  EXPECT_EQ(1, ds.SetFilterStr(Ox_AString()));
  EXPECT_EQ(0, ds.GetFilterStr().GetLength());
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(3, ds.GetRowCount());
}

TEST(SetFilterStr, TheTextIsNeverParsedAndBitsStay) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recs.GetItem(1)->SetFilter(1);
  ds.SetFilterStr(Ox_AString("B=r0"));
  EXPECT_TRUE(Hidden(ds, 1));
  EXPECT_FALSE(Hidden(ds, 0));
}

TEST(SetFilterStr, ViewGetsNoFirstLevel) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.recIndexValid = 1;
  view.recIndex.Reset2(2, 0);
  EXPECT_EQ(1, view.SetFilterStr(Ox_AString("anything")));
  EXPECT_EQ(0, view.recIndexValid);
  EXPECT_EQ(0, view.recIndex.Count());
  EXPECT_STREQ("anything", view.GetFilterStr().GetString());
}

TEST(FilterStat, ReadAndWriteTheirFlagAlone) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  EXPECT_EQ(0, ds.GetFilterStat());
  EXPECT_EQ(0, ds.GetLocFilterStat());
  ds.SetFilterStat(1);
  EXPECT_EQ(1, ds.recIndexValid);
  EXPECT_EQ(1, ds.GetFilterStat());
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.recIndex.Count());  // nothing else is touched
  ds.SetLocFilterStat(1);
  EXPECT_EQ(1, ds.filterActive);
  EXPECT_EQ(1, ds.GetLocFilterStat());
  EXPECT_EQ(0, ds.filterIndex.Count());
  ds.SetFilterStat(0);
  EXPECT_EQ(0, ds.GetFilterStat());
  EXPECT_EQ(1, ds.GetLocFilterStat());
}

TEST(RecalcFilter, LeavesTheDatasetAsItWas) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.Filter(1);
  ds.LocFilter(0);
  ds.SetFilterStr(Ox_AString("x"));
  ds.recIndex.Add(3);
  const std::vector<int> index = Items(ds.recIndex);
  EXPECT_EQ(1, ds.RecalcFilter());
  EXPECT_EQ(index, Items(ds.recIndex));
  EXPECT_EQ(1, ds.recIndexValid);
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_STREQ("x", ds.GetFilterStr().GetString());
  EXPECT_TRUE(Hidden(ds, 1));
}

}  // namespace
