// The row store of Ox_Dataset: counts, row types, index resolution and the
// row operations, on physical datasets and on views set up by hand.
#include <gtest/gtest.h>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"
#include "rows_test_util.h"

namespace {

using rows_test::BindView;
using rows_test::Fill;
using rows_test::StoredA;
using rows_test::Summary;
using rows_test::VisibleA;

// ---------------------------------------------------------------------------
// Counts

TEST(RowCounts, PlainDatasetCountsRecs) {
  Ox_Dataset ds(65001u, 1);
  EXPECT_EQ(0, ds.GetRowCount());
  Fill(ds, 3);
  EXPECT_EQ(3, ds.GetRowCount());
  EXPECT_EQ(3, ds.GetRowCountNF());
}

TEST(RowCounts, RecIndexAndFilterIndexDecide) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.recIndexValid = 1;
  ds.recIndex.Add(0);
  ds.recIndex.Add(Summary(1, 0));
  EXPECT_EQ(2, ds.GetRowCount());
  // NF: a physical dataset counts recs whatever the index says.
  EXPECT_EQ(4, ds.GetRowCountNF());
  ds.filterActive = 1;
  ds.filterIndex.Add(1);
  EXPECT_EQ(1, ds.GetRowCount());
  EXPECT_EQ(4, ds.GetRowCountNF());
}

TEST(RowCounts, ViewCountsHalfItsIndex) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  // No bound dataset: -1 for both counts.
  EXPECT_EQ(-1, view.GetRowCount());
  EXPECT_EQ(-1, view.GetRowCountNF());
  BindView(view, bound);
  view.recIndex.Reset2(3, 0);  // 6 integers
  EXPECT_EQ(3, view.GetRowCount());
  EXPECT_EQ(3, view.GetRowCountNF());
  // With the pivot flag the row value list counts instead.
  view.pivotFlag = 1;
  view.rowValueList.Add2(0, 0);
  EXPECT_EQ(1, view.GetRowCount());
}

TEST(RowCounts, OrgBuffCountsAtTheEndOfTheBindChain) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  bound.orgBuff.Add(nullptr);
  bound.orgBuff.Add(nullptr);
  EXPECT_EQ(2, bound.GetOrgBuffCount());
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(2, view.GetOrgBuffCount());
  Ox_Dataset loose(65001u, 1);
  loose.logicalType = 32;
  EXPECT_EQ(-1, loose.GetOrgBuffCount());
}

TEST(RowCounts, DeletedRowsInOrgBuff) {
  Ox_Dataset ds(65001u, 1);
  const int types[] = {4, 8, 4, 8};
  for (int type : types) {
    Ox_Record row;
    row.status = type;
    ds.orgBuff.Add(&row);
  }
  EXPECT_EQ(2, ds.GetDelRowCount());
  EXPECT_EQ(1, ds.GetDelRowIdx(0));
  EXPECT_EQ(3, ds.GetDelRowIdx(1));
  EXPECT_EQ(-1, ds.GetDelRowIdx(2));
  EXPECT_EQ(-1, ds.GetDelRowIdx(-1));
  // Not physical: -1.
  ds.logicalType = 32;
  EXPECT_EQ(-1, ds.GetDelRowIdx(0));
}

TEST(RowCounts, UpdateRowCountTakesInsertAndUpdate) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 5);
  ds.recs.GetItem(0)->SetType(2);
  ds.recs.GetItem(1)->SetType(4);
  ds.recs.GetItem(2)->SetType(8);
  ds.recs.GetItem(3)->SetType(16);
  EXPECT_EQ(2, ds.GetUpdateRowCount());
}

TEST(RowCounts, IsUpdatedByChangeCountOrOrgBuff) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  EXPECT_EQ(0, ds.IsUpdated());
  ds.changeCount = 1;
  EXPECT_EQ(1, ds.IsUpdated());
  ds.changeCount = 0;
  ds.orgBuff.Add(nullptr);
  EXPECT_EQ(1, ds.IsUpdated());
  // A view answers for the dataset it is bound to.
  Ox_Dataset view(65001u, 1);
  BindView(view, ds);
  EXPECT_EQ(1, view.IsUpdated());
}

TEST(RowCounts, SetUpdateGivesTheOldValue) {
  Ox_Dataset ds(65001u, 1);
  EXPECT_EQ(0, ds.GetUpdate());
  EXPECT_EQ(0, ds.SetUpdate(1));
  EXPECT_EQ(1, ds.GetUpdate());
  EXPECT_EQ(1, ds.SetUpdate(0));
  EXPECT_EQ(0, ds.GetUpdate());
}

// ---------------------------------------------------------------------------
// Resolution of visible rows, with the indexes set by hand

// Four stored rows (A = 0, 10, 20, 30) shown in the order 3, 1, with a
// summary row after them, and a filter that shows recIndex positions 1, 0
// and a summary row of its own.
void ShapeIndexes(Ox_Dataset &ds) {
  Fill(ds, 4);
  ds.recIndexValid = 1;
  ds.recIndex.Add(3);
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
}

TEST(RowResolution, WithoutIndexTheVisibleRowIsStored) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  EXPECT_EQ(20, VisibleA(ds, 2));
  EXPECT_EQ(-1, VisibleA(ds, 3));
  EXPECT_EQ(-1, VisibleA(ds, -1));
  // The filter index alone is not read.
  ds.filterActive = 1;
  ds.filterIndex.Add(2);
  EXPECT_EQ(0, VisibleA(ds, 0));
}

TEST(RowResolution, ThroughRecIndex) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);
  EXPECT_EQ(30, VisibleA(ds, 0));
  EXPECT_EQ(10, VisibleA(ds, 1));
  // Level 1: a summary row, which has no record.
  EXPECT_EQ(&Ox_Record::_OxNullRecord, &ds[2]);
  EXPECT_EQ(&Ox_Record::_OxNullRecord, &ds[3]);
  const OxRowRef ref = OxResolveRow(ds, 2, true);
  EXPECT_EQ(OxRowRef::kSummaryInIndex, ref.kind);
  EXPECT_EQ(2, ref.indexPos);
}

TEST(RowResolution, ThroughFilterIndexThenRecIndex) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);
  ds.filterActive = 1;
  ds.filterIndex.Add(1);               // recIndex[1] -> stored 1
  ds.filterIndex.Add(0);               // recIndex[0] -> stored 3
  ds.filterIndex.Add(Summary(2, 0));   // summary row of the filter index
  ds.filterIndex.Add(2);               // recIndex[2] is a summary row
  EXPECT_EQ(10, VisibleA(ds, 0));
  EXPECT_EQ(30, VisibleA(ds, 1));
  EXPECT_EQ(OxRowRef::kSummaryInFilter, OxResolveRow(ds, 2, true).kind);
  EXPECT_EQ(OxRowRef::kSummaryInIndex, OxResolveRow(ds, 3, true).kind);
  EXPECT_EQ(OxRowRef::kNone, OxResolveRow(ds, 4, true).kind);
  // Without the filter the same numbers go straight to recIndex.
  EXPECT_EQ(3, OxResolveRow(ds, 0, false).stored);
}

TEST(RowResolution, StoredRowBeyondRecsIsNoRow) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recIndexValid = 1;
  ds.recIndex.Add(7);
  EXPECT_EQ(OxRowRef::kNone, OxResolveRow(ds, 0, true).kind);
  EXPECT_EQ(0, ds.GetRowType(0));
}

TEST(RowResolution, ViewUsesTwoIntegersPerRow) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.recIndexValid = 1;
  view.recIndex.Add2(2, 0);
  view.recIndex.Add2(0, 0x1000000);
  EXPECT_EQ(20, VisibleA(view, 0));
  EXPECT_EQ(0, VisibleA(view, 1));
  EXPECT_EQ(-1, VisibleA(view, 2));
}

// ---------------------------------------------------------------------------
// Row types

TEST(RowTypes, GetRowTypeSummaryAndBeyondTheEnd) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);
  ds.recs.GetItem(3)->SetType(4);
  EXPECT_EQ(4, ds.GetRowType(0));
  EXPECT_EQ(1, ds.GetRowType(1));
  EXPECT_EQ(16, ds.GetRowType(2));
  EXPECT_EQ(0, ds.GetRowType(3));
  EXPECT_EQ(0, ds.GetRowType(-1));
}

TEST(RowTypes, GetRowTypeOnViewsGoesToThePhysicalDataset) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  bound.recs.GetItem(1)->SetType(2);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  // By the physical dataset's own indexes: none, so row 1 is stored 1.
  EXPECT_EQ(2, view.GetRowType(1));
  EXPECT_EQ(2, view.GetRowTypeNF(1));
  Ox_Dataset loose(65001u, 1);
  loose.logicalType = 32;
  EXPECT_EQ(-1, loose.GetRowType(0));
  EXPECT_EQ(-1, loose.GetRowTypeNF(0));
  EXPECT_EQ(-1, loose.GetOrgBuffType(0));
}

TEST(RowTypes, ByStoredRowAndBufferRow) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);
  ds.recs.GetItem(0)->SetType(2);
  Ox_Record original;
  original.status = 8;
  ds.orgBuff.Add(&original);
  EXPECT_EQ(2, ds.GetRowTypeNF(0));   // stored 0, whatever the index
  EXPECT_EQ(0, ds.GetRowTypeNF(4));
  EXPECT_EQ(0, ds.GetRowTypeNF(-1));
  EXPECT_EQ(8, ds.GetOrgBuffType(0));
  EXPECT_EQ(0, ds.GetOrgBuffType(1));
}

TEST(RowTypes, GetTypeIsForPhysicalDatasetsOnly) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);
  ds.recs.GetItem(1)->SetType(2);
  EXPECT_EQ(2, ds.GetType(1));
  EXPECT_EQ(16, ds.GetType(2));
  EXPECT_EQ(0, ds.GetType(3));
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 1);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(-1, view.GetType(0));
}

TEST(RowTypes, SetRowTypeAndItsFailures) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);
  ds.recs.GetItem(3)->status = 0x1101;  // filtered and selected
  EXPECT_EQ(1, ds.SetRowType(0, 4));    // visible 0 is stored 3
  EXPECT_EQ(0x1104, ds.recs.GetItem(3)->status);
  EXPECT_EQ(0, ds.SetRowType(2, 4));    // summary row
  EXPECT_EQ(0, ds.SetRowType(3, 4));    // out of range
  EXPECT_EQ(1, ds.SetRowTypeNF(0, 2));  // stored 0
  EXPECT_EQ(2, ds.recs.GetItem(0)->GetType());
  EXPECT_EQ(0, ds.SetRowTypeNF(4, 2));
  ds.SetType(1, 8);                     // visible 1 is stored 1
  EXPECT_EQ(8, ds.recs.GetItem(1)->GetType());
  // None of them touches changeCount or orgBuff.
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.orgBuff.Count());
  Ox_Dataset view(65001u, 1);
  BindView(view, ds);
  EXPECT_EQ(0, view.SetRowType(0, 2));
  EXPECT_EQ(0, view.SetRowTypeNF(0, 2));
}

TEST(RowTypes, SetRowTypeToDeleteDoesNotMoveTheRow) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  EXPECT_EQ(1, ds.SetRowType(0, 8));
  EXPECT_EQ(2, ds.recs.Count());
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.GetDelRowCount());
  EXPECT_EQ(8, ds.GetRowType(0));
}

TEST(RowTypes, OrgIdxThroughRecIndexOnly) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);
  ds.recs.GetItem(3)->orgRef = 7;
  ds.recs.GetItem(1)->orgRef = 5;
  ds.filterActive = 1;
  ds.filterIndex.Add(1);
  // The filter would lead row 0 to stored 1; GetOrgIdx does not read it.
  EXPECT_EQ(7, ds.GetOrgIdx(0));
  EXPECT_EQ(5, ds.GetOrgIdx(1));
  EXPECT_EQ(-1, ds.GetOrgIdx(2));  // summary row
  EXPECT_EQ(-1, ds.GetOrgIdx(9));
  EXPECT_EQ(5, ds.GetOrgIdxNF(1));
  EXPECT_EQ(-1, ds.GetOrgIdxNF(4));
  Ox_Dataset view(65001u, 1);
  BindView(view, ds);
  EXPECT_EQ(-1, view.GetOrgIdx(0));
  EXPECT_EQ(-1, view.GetOrgIdxNF(1));
}

TEST(RowTypes, GetRowIndexResolvesWithoutRangeTest) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  // Without the index: the number itself, whatever it is.
  EXPECT_EQ(99, ds.GetRowIndex(99));
  ds.recIndexValid = 1;
  ds.recIndex.Add(3);
  ds.recIndex.Add(Summary(2, 1));
  EXPECT_EQ(3, ds.GetRowIndex(0));
  // A summary row gives the low 24 bits of its entry.
  EXPECT_EQ(1, ds.GetRowIndex(1));
  ds.filterActive = 1;
  ds.filterIndex.Add(1);
  ds.filterIndex.Add(0);
  ds.filterIndex.Add(Summary(1, 5));
  EXPECT_EQ(1, ds.GetRowIndex(0));
  EXPECT_EQ(3, ds.GetRowIndex(1));
  EXPECT_EQ(5, ds.GetRowIndex(2));
}

TEST(RowTypes, GetRowIdxNFIsTheReverse) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  EXPECT_EQ(2, ds.GetRowIdxNF(2));
  EXPECT_EQ(-1, ds.GetRowIdxNF(4));
  EXPECT_EQ(-1, ds.GetRowIdxNF(-1));
  ds.recIndexValid = 1;
  ds.recIndex.Add(Summary(1, 2));  // a summary entry whose value is 2
  ds.recIndex.Add(3);
  ds.recIndex.Add(2);
  EXPECT_EQ(2, ds.GetRowIdxNF(2));   // the level-0 entry, not the summary
  EXPECT_EQ(1, ds.GetRowIdxNF(3));
  EXPECT_EQ(-1, ds.GetRowIdxNF(0));  // hidden
  ds.filterActive = 1;
  ds.filterIndex.Add(2);             // recIndex position 2 -> stored 2
  EXPECT_EQ(0, ds.GetRowIdxNF(2));
  EXPECT_EQ(-1, ds.GetRowIdxNF(3));  // filtered away
}

// ---------------------------------------------------------------------------
// AppendRow and InsertRow

TEST(AppendRow, PlainAppendGivesTheStoredRowAndNullCells) {
  Ox_Dataset ds(65001u, 1);
  rows_test::AddColumns(ds);
  EXPECT_EQ(0, ds.AppendRow(1));
  EXPECT_EQ(1, ds.AppendRow(0));
  ASSERT_EQ(2, ds.recs.Count());
  EXPECT_EQ(2, ds.recs.GetItem(1)->Count());
  EXPECT_EQ(0, ds.recs.GetItem(1)->GetItem(1)->GetType());
  // Tracking off: normal even when marked.
  EXPECT_EQ(1, ds.recs.GetItem(0)->GetType());
  EXPECT_EQ(-1, ds.recs.GetItem(0)->orgRef);
  EXPECT_EQ(0, ds.changeCount);
}

TEST(AppendRow, WithIndexesTheStoredRowGoesIntoBoth) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  EXPECT_EQ(1, ds.AppendRow(0));  // position in recIndex
  EXPECT_EQ(3, ds.recIndex.GetItem(1));
  ds.filterActive = 1;
  ds.filterIndex.Add(0);
  // The filter index gets the stored row 4, not the recIndex position 2.
  EXPECT_EQ(1, ds.AppendRow(0));
  EXPECT_EQ(4, ds.filterIndex.GetItem(1));
  EXPECT_EQ(4, ds.recIndex.GetItem(2));
  EXPECT_EQ(5, ds.recs.Count());
}

TEST(AppendRow, FilterWithoutRecIndexIsNotWritten) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.filterActive = 1;
  EXPECT_EQ(1, ds.AppendRow(0));
  EXPECT_EQ(0, ds.filterIndex.Count());
}

TEST(AppendRow, RefusedOnViews) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 1);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(-1, view.AppendRow(1));
  EXPECT_EQ(-1, view.InsertRow(0, 1));
  EXPECT_EQ(1, bound.recs.Count());
}

TEST(InsertRow, WithoutIndexClampsThePosition) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  EXPECT_EQ(0, ds.InsertRow(-5, 0));
  EXPECT_EQ(-1, StoredA(ds, 0));  // the new row's cell is null
  EXPECT_EQ(0, StoredA(ds, 1));
  EXPECT_EQ(3, ds.InsertRow(99, 0));
  EXPECT_EQ(4, ds.recs.Count());
  EXPECT_EQ(2, ds.recs.GetItem(3)->Count());
  EXPECT_EQ(0, ds.recs.GetItem(3)->GetItem(0)->GetType());
  EXPECT_EQ(2, ds.InsertRow(2, 0));
  EXPECT_EQ(10, StoredA(ds, 3));
}

TEST(InsertRow, WithIndexRaisesTheEntriesAtOrAboveTheNewRow) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);  // A = 0, 10, 20
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  ds.recIndex.Add(0);
  ds.recIndex.Add(Summary(1, 1));
  ds.recIndex.Add(1);
  // Visible 1 leads to stored 0: the new record goes in at stored 0. Every
  // entry with a value of 0 or more goes up by one, the summary keeping
  // its level: 2 -> 3, 0 -> 1, (1,1) -> (1,2), 1 -> 2. Then the new
  // stored row 0 goes in at position 1.
  EXPECT_EQ(1, ds.InsertRow(1, 0));
  ASSERT_EQ(5, ds.recIndex.Count());
  EXPECT_EQ(3, ds.recIndex.GetItem(0));
  EXPECT_EQ(0, ds.recIndex.GetItem(1));
  EXPECT_EQ(1, ds.recIndex.GetItem(2));
  EXPECT_EQ(Summary(1, 2), ds.recIndex.GetItem(3));
  EXPECT_EQ(2, ds.recIndex.GetItem(4));
  EXPECT_EQ(-1, StoredA(ds, 0));
  EXPECT_EQ(0, StoredA(ds, 1));
  EXPECT_EQ(20, VisibleA(ds, 0));
  EXPECT_EQ(0, VisibleA(ds, 2));
}

TEST(InsertRow, WithIndexLeavesTheFilterIndexAlone) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(3);
  ds.filterActive = 1;
  ds.filterIndex.Add(2);
  ds.filterIndex.Add(1);
  // Visible 0 -> recIndex position 2 -> stored 2; inserted at recIndex
  // position 0 (the `row` argument).
  EXPECT_EQ(0, ds.InsertRow(0, 0));
  EXPECT_EQ(2, ds.recIndex.GetItem(0));
  EXPECT_EQ(0, ds.recIndex.GetItem(1));
  EXPECT_EQ(1, ds.recIndex.GetItem(2));
  EXPECT_EQ(3, ds.recIndex.GetItem(3));
  ASSERT_EQ(2, ds.filterIndex.Count());
  EXPECT_EQ(2, ds.filterIndex.GetItem(0));
  EXPECT_EQ(1, ds.filterIndex.GetItem(1));
  EXPECT_EQ(-1, StoredA(ds, 2));
}

TEST(InsertRow, StoredPositionIsCappedToTheRecords) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recIndexValid = 1;
  ds.recIndex.Add(9);  // leads beyond recs
  EXPECT_EQ(0, ds.InsertRow(0, 0));
  EXPECT_EQ(3, ds.recs.Count());
  EXPECT_EQ(-1, StoredA(ds, 2));  // the new row went to the end
  // Stored row 2 went in: the old entry 9 rose to 10.
  EXPECT_EQ(2, ds.recIndex.GetItem(0));
  EXPECT_EQ(10, ds.recIndex.GetItem(1));
}

// ---------------------------------------------------------------------------
// DeleteRow, DeleteSelected, DeleteAll

TEST(DeleteRow, WithoutIndexReturnsTheStatus) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  EXPECT_EQ(0, ds.DeleteRow(1));
  EXPECT_EQ(2, ds.recs.Count());
  EXPECT_EQ(20, StoredA(ds, 1));
  EXPECT_EQ(-1, ds.DeleteRow(5));
  EXPECT_EQ(-1, ds.DeleteRow(-1));
  EXPECT_EQ(2, ds.recs.Count());
}

TEST(DeleteRow, SummaryRowRemovesTheEntryAndNoStoredRow) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);  // recIndex 3, 1, (1,0)
  EXPECT_EQ(0, ds.DeleteRow(2));
  EXPECT_EQ(2, ds.recIndex.Count());
  EXPECT_EQ(4, ds.recs.Count());
  // The same for a summary entry of the filter index.
  ds.filterActive = 1;
  ds.filterIndex.Add(0);
  ds.filterIndex.Add(Summary(1, 0));
  EXPECT_EQ(0, ds.DeleteRow(1));
  EXPECT_EQ(1, ds.filterIndex.Count());
  EXPECT_EQ(2, ds.recIndex.Count());
  EXPECT_EQ(4, ds.recs.Count());
}

TEST(DeleteRow, WithIndexLowersTheEntriesBehind) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);  // A = 0, 10, 20, 30
  ds.recIndexValid = 1;
  ds.recIndex.Add(3);
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 2));
  ds.recIndex.Add(2);
  ds.recIndex.Add(0);
  // Visible 1 is stored 1. Its entry goes, the record goes, and every
  // value of 1 or more falls by one: 3 -> 2, (1,2) -> (1,1), 2 -> 1.
  EXPECT_EQ(0, ds.DeleteRow(1));
  ASSERT_EQ(4, ds.recIndex.Count());
  EXPECT_EQ(2, ds.recIndex.GetItem(0));
  EXPECT_EQ(Summary(1, 1), ds.recIndex.GetItem(1));
  EXPECT_EQ(1, ds.recIndex.GetItem(2));
  EXPECT_EQ(0, ds.recIndex.GetItem(3));
  EXPECT_EQ(30, VisibleA(ds, 0));
  EXPECT_EQ(20, VisibleA(ds, 2));
  EXPECT_EQ(3, ds.recs.Count());
}

TEST(DeleteRow, WithFilterLowersFilterPositions) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(3);
  ds.filterActive = 1;
  ds.filterIndex.Add(2);
  ds.filterIndex.Add(0);
  ds.filterIndex.Add(1);
  // Visible 2 -> recIndex position 1 -> stored 1. In filterIndex every
  // value at or above position 1 falls: 2 -> 1. In recIndex every value
  // at or above stored 1 falls: (0, 2) -> (0, 1).
  EXPECT_EQ(0, ds.DeleteRow(2));
  ASSERT_EQ(2, ds.filterIndex.Count());
  EXPECT_EQ(1, ds.filterIndex.GetItem(0));
  EXPECT_EQ(0, ds.filterIndex.GetItem(1));
  ASSERT_EQ(2, ds.recIndex.Count());
  EXPECT_EQ(0, ds.recIndex.GetItem(0));
  EXPECT_EQ(1, ds.recIndex.GetItem(1));
  EXPECT_EQ(20, VisibleA(ds, 0));
  EXPECT_EQ(0, VisibleA(ds, 1));
}

TEST(DeleteRow, NoRowWithIndexIsRefusedUntouched) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(2);
  EXPECT_EQ(-1, ds.DeleteRow(2));
  EXPECT_EQ(2, ds.recIndex.Count());
  EXPECT_EQ(2, ds.recs.Count());
}

TEST(DeleteRow, RefusedOnViews) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(-1, view.DeleteRow(0));
  EXPECT_EQ(-1, view.DeleteSelected());
  view.DeleteAll();
  EXPECT_EQ(-1, view.ReverseRow());
  EXPECT_EQ(2, bound.recs.Count());
}

TEST(DeleteSelected, DeletesSelectedRowsAndCounts) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 5);
  ds.SetSelect(1, 1);
  ds.SetSelect(3, 1);
  ds.SetSelect(4, 1);
  EXPECT_EQ(3, ds.DeleteSelected());
  ASSERT_EQ(2, ds.recs.Count());
  EXPECT_EQ(0, StoredA(ds, 0));
  EXPECT_EQ(20, StoredA(ds, 1));
  EXPECT_EQ(0, ds.ClearSelect());
  EXPECT_EQ(0, ds.DeleteSelected());
}

TEST(DeleteSelected, TrackedRowsKeepNoSelectionInOrgBuff) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  ds.SetSelect(0, 1);
  EXPECT_EQ(1, ds.DeleteSelected());
  ASSERT_EQ(1, ds.orgBuff.Count());
  EXPECT_EQ(8, ds.orgBuff.GetItem(0)->status);  // type 8, bit 12 cleared
}

TEST(DeleteAll, WithoutTrackingReleasesEverything) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.orgBuff.Add(nullptr);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(3);
  ds.filterActive = 1;
  ds.filterIndex.Reset(3);
  ds.indexOrdered = 0;
  ds.DeleteAll();
  EXPECT_EQ(0, ds.recs.Count());
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.recIndex.Count());
  EXPECT_EQ(0, ds.filterIndex.Count());
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(1, ds.indexOrdered);
  EXPECT_EQ(2, ds.GetColCount());  // columns stay
}

TEST(DeleteAll, WithTrackingEveryRowGoesThroughDeleteRow) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.SetUpdate(1);
  ds.AppendRow(1);  // an insert row: no trace
  EXPECT_EQ(1, ds.changeCount);
  ds.DeleteAll();
  EXPECT_EQ(0, ds.recs.Count());
  EXPECT_EQ(0, ds.changeCount);
  // From last to first: stored 2, then 1, then 0, each linked as it goes.
  ASSERT_EQ(3, ds.orgBuff.Count());
  EXPECT_EQ(3, ds.GetDelRowCount());
  EXPECT_EQ(20, ds.orgBuff.GetItem(0)->GetItem(0)->ToInteger());
  EXPECT_EQ(2, ds.orgBuff.GetItem(0)->orgRef);
  EXPECT_EQ(0, ds.orgBuff.GetItem(2)->orgRef);
  EXPECT_EQ(1, ds.IsUpdated());
}

// ---------------------------------------------------------------------------
// MoveRow, ExChangeRow, ReverseRow

TEST(MoveRow, SameRowAndNegativeArguments) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  EXPECT_EQ(1, ds.MoveRow(1, 1));
  EXPECT_EQ(10, StoredA(ds, 1));
  EXPECT_EQ(0, ds.MoveRow(-1, 2));
  EXPECT_EQ(0, ds.MoveRow(0, -2));
  EXPECT_EQ(0, StoredA(ds, 0));
  // An empty dataset answers 1 before the arguments are looked at.
  Ox_Dataset empty(65001u, 1);
  EXPECT_EQ(1, empty.MoveRow(-1, 2));
  EXPECT_EQ(1, empty.ExChangeRow(-1, 2));
}

TEST(MoveRow, WithoutIndexMovesTheRecord) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);  // 0 10 20 30
  EXPECT_EQ(1, ds.MoveRow(0, 2));
  EXPECT_EQ(10, StoredA(ds, 0));
  EXPECT_EQ(20, StoredA(ds, 1));
  EXPECT_EQ(0, StoredA(ds, 2));
  EXPECT_EQ(1, ds.MoveRow(3, 0));
  EXPECT_EQ(30, StoredA(ds, 0));
  EXPECT_EQ(0, ds.MoveRow(0, 9));  // the list refuses
}

TEST(MoveRow, WithIdentityIndexTheIndexStaysTheIdentity) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(4);
  // Record 0 moves to stored 2; L[0] = L[1] - 1 = 0, L[1] = L[2] - 1 = 1,
  // L[2] stays 2.
  EXPECT_EQ(1, ds.MoveRow(0, 2));
  for (int i = 0; i < 4; ++i) EXPECT_EQ(i, ds.recIndex.GetItem(i));
  EXPECT_EQ(0, VisibleA(ds, 2));
  // Backwards: record 3 to 1; L[3] = L[2] + 1, L[2] = L[1] + 1.
  EXPECT_EQ(1, ds.MoveRow(3, 1));
  for (int i = 0; i < 4; ++i) EXPECT_EQ(i, ds.recIndex.GetItem(i));
  EXPECT_EQ(30, VisibleA(ds, 1));
}

TEST(MoveRow, ShiftRuleOnAnUnorderedIndex) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.recIndexValid = 1;
  ds.recIndex.Add(1);
  ds.recIndex.Add(3);
  ds.recIndex.Add(0);
  ds.recIndex.Add(2);
  // Visible 3 (stored 2) to visible 1 (stored 3): Move(2, 3) in recs, then
  // L[3] = L[2] + 1 = 1, L[2] = L[1] + 1 = 4; L[1] stays 3.
  EXPECT_EQ(1, ds.MoveRow(3, 1));
  EXPECT_EQ(1, ds.recIndex.GetItem(0));
  EXPECT_EQ(3, ds.recIndex.GetItem(1));
  EXPECT_EQ(4, ds.recIndex.GetItem(2));
  EXPECT_EQ(1, ds.recIndex.GetItem(3));
  EXPECT_EQ(30, StoredA(ds, 2));
  EXPECT_EQ(20, StoredA(ds, 3));
}

TEST(MoveRow, SummaryRowsDoNotMove) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);  // 3, 1, (1,0)
  EXPECT_EQ(0, ds.MoveRow(0, 2));
  EXPECT_EQ(0, ds.MoveRow(2, 0));
  ds.filterActive = 1;
  ds.filterIndex.Add(0);
  ds.filterIndex.Add(Summary(1, 0));
  EXPECT_EQ(0, ds.MoveRow(0, 1));
  EXPECT_EQ(0, StoredA(ds, 0));
}

TEST(ExChangeRow, SwapsRecordsAndLeavesTheIndex) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  EXPECT_EQ(1, ds.ExChangeRow(0, 2));
  EXPECT_EQ(20, StoredA(ds, 0));
  EXPECT_EQ(0, StoredA(ds, 2));
  EXPECT_EQ(1, ds.ExChangeRow(1, 1));
  EXPECT_EQ(0, ds.ExChangeRow(-1, 1));
  EXPECT_EQ(0, ds.ExChangeRow(0, 7));
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
  // Visible 0 is stored 2 (A 0), visible 1 stored 1 (A 10).
  EXPECT_EQ(1, ds.ExChangeRow(0, 1));
  EXPECT_EQ(2, ds.recIndex.GetItem(0));
  EXPECT_EQ(1, ds.recIndex.GetItem(1));
  EXPECT_EQ(10, VisibleA(ds, 0));
  EXPECT_EQ(0, VisibleA(ds, 1));
  EXPECT_EQ(0, ds.ExChangeRow(0, 2));  // summary row
}

TEST(MoveRow, PivotIsRefused) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.logicalType = 33;
  ds.pivotFlag = 1;
  EXPECT_EQ(0, ds.MoveRow(0, 1));
  EXPECT_EQ(0, ds.ExChangeRow(0, 1));
}

TEST(ReverseRow, ReversesStoredRowsAndGivesTheCount) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 5);
  ds.recIndexValid = 1;
  ds.recIndex.Add(4);
  EXPECT_EQ(5, ds.ReverseRow());
  for (int i = 0; i < 5; ++i) EXPECT_EQ(10 * (4 - i), StoredA(ds, i));
  EXPECT_EQ(1, ds.recIndex.Count());
  EXPECT_EQ(4, ds.recIndex.GetItem(0));
}

// ---------------------------------------------------------------------------
// Selection

TEST(Selection, PhysicalSetSelectUsesRecIndexOnly) {
  Ox_Dataset ds(65001u, 1);
  ShapeIndexes(ds);  // 3, 1, (1,0)
  ds.filterActive = 1;
  ds.filterIndex.Add(1);
  ds.SetSelect(0, 1);  // recIndex[0] -> stored 3, the filter not read
  EXPECT_EQ(0x1000, ds.recs.GetItem(3)->GetSelect());
  EXPECT_EQ(0, ds.recs.GetItem(1)->GetSelect());
  EXPECT_EQ(1, ds.GetSelect(0));
  EXPECT_EQ(0, ds.GetSelect(1));
  ds.SetSelect(2, 1);  // a summary row is left alone
  EXPECT_EQ(0, ds.GetSelect(2));
  EXPECT_EQ(0, ds.GetSelect(9));
  ds.SetSelect(0, 0);
  EXPECT_EQ(0, ds.GetSelect(0));
}

TEST(Selection, SetSelectTwoSelectsOnAPhysicalDataset) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetSelect(1, 2);
  EXPECT_EQ(1, ds.GetSelect(1));
  EXPECT_EQ(0x1001, ds.recs.GetItem(1)->status);
}

TEST(Selection, SetSelectTwoDeselectsOnAView) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.recIndex.Reset2(2, 0);
  view.SetSelect(1, 1);
  EXPECT_EQ(0x1000000, view.recIndex.GetItem(3));
  EXPECT_EQ(1, view.GetSelect(1));
  view.SetSelect(1, 2);  // only exactly 1 selects
  EXPECT_EQ(0, view.recIndex.GetItem(3));
  EXPECT_EQ(0, view.GetSelect(1));
  // The records of the bound dataset are not touched.
  EXPECT_EQ(0, bound.recs.GetItem(1)->GetSelect());
}

TEST(Selection, ViewSelectionGoesThroughTheFilter) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.recIndex.Reset2(3, 0);
  view.filterActive = 1;
  view.filterIndex.Add(2);
  view.SetSelect(0, 1);  // row 2 of the view: word at 5
  EXPECT_EQ(0x1000000, view.recIndex.GetItem(5));
  EXPECT_EQ(1, view.GetSelect(0));
  EXPECT_EQ(1, view.ClearSelect());
  EXPECT_EQ(0, view.recIndex.GetItem(5));
}

TEST(Selection, ClearSelectCountsWhatWasSet) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 4);
  ds.SetSelect(0, 1);
  ds.SetSelect(2, 1);
  ds.recs.GetItem(3)->status = 0x0101;  // filtered, not selected
  EXPECT_EQ(2, ds.ClearSelect());
  EXPECT_EQ(0, ds.GetSelect(0));
  EXPECT_EQ(0x0101, ds.recs.GetItem(3)->status);
  EXPECT_EQ(0, ds.ClearSelect());
}

// ---------------------------------------------------------------------------
// Index lists

TEST(IndexLists, ResetRecIndexIsTheIdentityAndDoesNotSwitchItOn) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.indexOrdered = 0;
  EXPECT_EQ(1, ds.ResetRecIndex());
  ASSERT_EQ(3, ds.recIndex.Count());
  for (int i = 0; i < 3; ++i) EXPECT_EQ(i, ds.recIndex.GetItem(i));
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(1, ds.indexOrdered);
}

TEST(IndexLists, ResetRecIndexOnAViewMakesPairs) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 2);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(1, view.ResetRecIndex());
  ASSERT_EQ(4, view.recIndex.Count());
  EXPECT_EQ(0, view.recIndex.GetItem(0));
  EXPECT_EQ(0, view.recIndex.GetItem(1));
  EXPECT_EQ(1, view.recIndex.GetItem(2));
  EXPECT_EQ(0, view.recIndex.GetItem(3));
}

TEST(IndexLists, ResetFilIndex) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndex.Reset(2);
  EXPECT_EQ(1, ds.ResetFilIndex());
  ASSERT_EQ(2, ds.filterIndex.Count());
  EXPECT_EQ(1, ds.filterIndex.GetItem(1));
  EXPECT_EQ(0, ds.filterActive);
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  EXPECT_EQ(0, view.ResetFilIndex());  // no bound dataset
  BindView(view, ds);
  view.recIndex.Reset2(3, 0);
  EXPECT_EQ(1, view.ResetFilIndex());
  EXPECT_EQ(3, view.filterIndex.Count());
}

TEST(IndexLists, AppendRowIndexAddsAPair) {
  Ox_Dataset ds(65001u, 1);
  EXPECT_EQ(0, ds.AppendRowIndex(7));
  // Two entries on a physical dataset too.
  EXPECT_EQ(2, ds.recIndex.Count());
  EXPECT_EQ(7, ds.recIndex.GetItem(0));
  EXPECT_EQ(0, ds.recIndex.GetItem(1));
  EXPECT_EQ(2, ds.AppendRowIndex(8));
  Ox_Dataset bound(65001u, 1);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  EXPECT_EQ(0, view.AppendRowIndex(4));
  EXPECT_EQ(1, view.AppendRowIndex(5));  // position 2, halved
}

// ---------------------------------------------------------------------------
// Hooks that stand for concerns not built yet: the observable behaviour on
// a physical dataset without groups, which must hold once they are built.

TEST(RowHooks, DeleteNextToASummaryWithoutGroupKeysOnlyClosesUp) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recIndexValid = 1;
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
  ds.recIndex.Add(0);
  // Visible 0 is stored 1. A summary stands after it, but with no group
  // keys nothing is recalculated: the entries only close up (no value is
  // at or above 1 any more).
  EXPECT_EQ(0, ds.DeleteRow(0));
  ASSERT_EQ(2, ds.recIndex.Count());
  EXPECT_EQ(Summary(1, 0), ds.recIndex.GetItem(0));
  EXPECT_EQ(0, ds.recIndex.GetItem(1));
  EXPECT_EQ(0, VisibleA(ds, 1));
}

TEST(RowHooks, DeleteSelectedWithoutGroupKeysLeavesTheIndex) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(3);
  ds.SetSelect(1, 1);
  EXPECT_EQ(1, ds.DeleteSelected());
  ASSERT_EQ(2, ds.recIndex.Count());
  EXPECT_EQ(0, ds.recIndex.GetItem(0));
  EXPECT_EQ(1, ds.recIndex.GetItem(1));
  EXPECT_EQ(20, VisibleA(ds, 1));
}

TEST(RowHooks, NotLinkedUnlessEditableIsZeroAndXmlIsOne) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.editable = 1;
  ds.xmlDataset = 1;  // copy mode: ordinary records
  EXPECT_EQ(2, ds.GetRowCount());
  EXPECT_EQ(1, ds.InsertRow(1, 0));
  EXPECT_EQ(0, ds.DeleteRow(1));
  EXPECT_EQ(1, ds.MoveRow(0, 1));
  EXPECT_EQ(2, ds.GetRowCount());
}

}  // namespace

namespace {

int TypeOf(const char *word) {
  Ox_NamedStrList attributes;
  attributes.AddStr(Ox_AString("type"), Ox_AString(word));
  return Ox_Dataset::GetXmlTypeValue(&attributes);
}

TEST(XmlRowType, FirstLetterIgnoringCase) {
  EXPECT_EQ(2, TypeOf("insert"));
  EXPECT_EQ(2, TypeOf("I"));
  EXPECT_EQ(8, TypeOf("Delete"));
  EXPECT_EQ(8, TypeOf("d"));
  EXPECT_EQ(4, TypeOf("UPDATE"));
  EXPECT_EQ(4, TypeOf("u"));
  EXPECT_EQ(1, TypeOf("normal"));
  EXPECT_EQ(1, TypeOf(""));
  EXPECT_EQ(1, Ox_Dataset::GetXmlTypeValue(nullptr));
  Ox_NamedStrList none;
  none.AddStr(Ox_AString("kind"), Ox_AString("insert"));
  EXPECT_EQ(1, Ox_Dataset::GetXmlTypeValue(&none));
}

}  // namespace

namespace {

TEST(RowTypes, GetRowIndexOnViewsReadsTheFirstIntegerOfAPair) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  BindView(view, bound);
  view.recIndexValid = 1;
  view.recIndex.Add2(2, 0x1000000);
  view.recIndex.Add2(Summary(1, 0), 0);
  EXPECT_EQ(2, view.GetRowIndex(0));
  EXPECT_EQ(0, view.GetRowIndex(1));
  // With the pivot flag the row value list is read instead.
  view.pivotFlag = 1;
  view.rowValueList.Add2(7, 1);
  EXPECT_EQ(7, view.GetRowIndex(0));
  // The reverse, on the plain pairs.
  view.pivotFlag = 0;
  EXPECT_EQ(0, view.GetRowIdxNF(2));
  EXPECT_EQ(-1, view.GetRowIdxNF(0));
}

TEST(IndexLists, ResetRecIndexOnAGroupDatasetCountsTheBoundRows) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 4);
  Ox_Dataset group(65001u, 1);
  BindView(group, bound);
  group.logicalType = 35;
  group.groupFlag = 1;  // a group dataset: physical and logical at once
  ASSERT_TRUE(group.IsGroup());
  EXPECT_EQ(1, group.ResetRecIndex());
  ASSERT_EQ(4, group.recIndex.Count());  // one integer a row
  EXPECT_EQ(3, group.recIndex.GetItem(3));
}

TEST(RowCounts, FilterCountComesFirstEvenOnAView) {
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  view.filterActive = 1;
  view.filterIndex.Add(0);
  view.filterIndex.Add(1);
  EXPECT_EQ(2, view.GetRowCount());
  EXPECT_EQ(-1, view.GetRowCountNF());
}

}  // namespace
