// The life of a row: its state, orgRef, orgBuff and changeCount through
// inserts, cell writes, deletes, ApplyChange and Reset, with change
// tracking on (one test per transition) and off.
//
// Cell writes go through OxRowsWriteCell, the row-state half of the cell
// writer, with values already of the column's cell type.
#include <gtest/gtest.h>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"
#include "rows_test_util.h"

namespace {

using rows_test::Fill;
using rows_test::StoredA;

// Three normal rows (A = 0, 10, 20) and a DECIMAL column "C" holding 1.5,
// with tracking on.
void Tracked(Ox_Dataset &ds) {
  Fill(ds, 3);
  ds.AddColumn("C", 4, 0, 1);
  for (int i = 0; i < 3; ++i) rows_test::Put(ds, i, 2, Ox_Variant(1.5));
  ds.SetUpdate(1);
}

int Write(Ox_Dataset &ds, int stored, int col, const Ox_Variant &v) {
  return OxRowsWriteCell(ds, stored, col, v);
}

double StoredC(const Ox_Dataset &ds, int stored) {
  return ds.recs.GetItem(stored)->GetItem(2)->ToDouble();
}

// ---------------------------------------------------------------------------
// Tracking on: one test per row of the transition table

TEST(TransitionsOn, NewRowMarkedIsInsert) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  EXPECT_EQ(3, ds.AppendRow(1));
  EXPECT_EQ(2, ds.GetRowType(3));
  EXPECT_EQ(-1, ds.GetOrgIdx(3));
  EXPECT_EQ(1, ds.changeCount);
  EXPECT_EQ(0, ds.InsertRow(0, 1));
  EXPECT_EQ(2, ds.GetRowType(0));
  EXPECT_EQ(2, ds.changeCount);
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(2, ds.GetUpdateRowCount());
  EXPECT_EQ(1, ds.IsUpdated());
}

TEST(TransitionsOn, NewRowUnmarkedIsNormal) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  EXPECT_EQ(3, ds.AppendRow(0));
  EXPECT_EQ(1, ds.InsertRow(1, 0));
  EXPECT_EQ(1, ds.GetRowType(1));
  EXPECT_EQ(1, ds.GetRowType(4));
  EXPECT_EQ(-1, ds.GetOrgIdx(4));
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.IsUpdated());
}

TEST(TransitionsOn, NormalRowSetToAnEqualValueStaysNormalAndStoresNothing) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  // 1.5 + 1e-12 compares equal to 1.5 (decimals within 1e-10): the result
  // is 1, and the cell keeps 1.5.
  EXPECT_EQ(1, Write(ds, 1, 2, Ox_Variant(1.5 + 1e-12)));
  EXPECT_EQ(1.5, StoredC(ds, 1));
  EXPECT_EQ(1, Write(ds, 1, 0, Ox_Variant(10L)));
  EXPECT_EQ(1, ds.GetRowType(1));
  EXPECT_EQ(-1, ds.GetOrgIdx(1));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.IsUpdated());
}

TEST(TransitionsOn, NormalRowSetToADifferentValueBecomesUpdate) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  EXPECT_EQ(1, Write(ds, 1, 0, Ox_Variant(11L)));
  EXPECT_EQ(4, ds.GetRowType(1));
  EXPECT_EQ(11, StoredA(ds, 1));
  // The copy holds the row as it was, of type update, at buffer row 0.
  EXPECT_EQ(0, ds.GetOrgIdx(1));
  ASSERT_EQ(1, ds.orgBuff.Count());
  EXPECT_EQ(4, ds.GetOrgBuffType(0));
  EXPECT_EQ(10, ds.orgBuff.GetItem(0)->GetItem(0)->ToInteger());
  EXPECT_EQ(-1, ds.orgBuff.GetItem(0)->orgRef);
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(1, ds.IsUpdated());
  EXPECT_EQ(1, ds.GetUpdateRowCount());
}

TEST(TransitionsOn, UpdateRowEqualToItsOriginalAgainBecomesNormal) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ASSERT_EQ(1, Write(ds, 0, 0, Ox_Variant(1L)));   // original at 0
  ASSERT_EQ(1, Write(ds, 2, 0, Ox_Variant(21L)));  // original at 1
  EXPECT_EQ(1, ds.GetOrgIdx(2));
  // Row 0 back to its value: its original leaves orgBuff, and row 2,
  // whose orgRef was above 0, follows it down to 0.
  EXPECT_EQ(1, Write(ds, 0, 0, Ox_Variant(0L)));
  EXPECT_EQ(1, ds.GetRowType(0));
  EXPECT_EQ(-1, ds.GetOrgIdx(0));
  EXPECT_EQ(0, StoredA(ds, 0));
  ASSERT_EQ(1, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.GetOrgIdx(2));
  EXPECT_EQ(20, ds.orgBuff.GetItem(0)->GetItem(0)->ToInteger());
}

TEST(TransitionsOn, UpdateRowStillDifferentStaysUpdate) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ASSERT_EQ(1, Write(ds, 1, 0, Ox_Variant(11L)));
  ASSERT_EQ(1, Write(ds, 1, 2, Ox_Variant(2.5)));
  // Column A back to its original, but C still differs.
  EXPECT_EQ(1, Write(ds, 1, 0, Ox_Variant(10L)));
  EXPECT_EQ(4, ds.GetRowType(1));
  EXPECT_EQ(0, ds.GetOrgIdx(1));
  EXPECT_EQ(1, ds.orgBuff.Count());
  // The original is still the row before the first change.
  EXPECT_EQ(1.5, ds.orgBuff.GetItem(0)->GetItem(2)->ToDouble());
  EXPECT_EQ(10, StoredA(ds, 1));
}

TEST(TransitionsOn, InsertRowSetStaysInsert) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  const int row = ds.AppendRow(1);
  EXPECT_EQ(1, Write(ds, row, 0, Ox_Variant(99L)));
  EXPECT_EQ(2, ds.GetRowType(row));
  EXPECT_EQ(-1, ds.GetOrgIdx(row));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(1, ds.changeCount);
  EXPECT_EQ(99, StoredA(ds, row));
}

TEST(TransitionsOn, NormalRowDeletedIsLinkedIntoOrgBuff) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  const Ox_Record *record = ds.recs.GetItem(1);
  EXPECT_EQ(0, ds.DeleteRow(1));
  EXPECT_EQ(2, ds.recs.Count());
  ASSERT_EQ(1, ds.orgBuff.Count());
  // The same record, alive after its removal from recs.
  EXPECT_EQ(record, ds.orgBuff.GetItem(0));
  EXPECT_EQ(8, ds.GetOrgBuffType(0));
  EXPECT_EQ(1, ds.orgBuff.GetItem(0)->orgRef);  // the stored row
  EXPECT_EQ(10, ds.orgBuff.GetItem(0)->GetItem(0)->ToInteger());
  EXPECT_EQ(1, ds.GetDelRowCount());
  EXPECT_EQ(0, ds.GetDelRowIdx(0));
  EXPECT_EQ(1, ds.IsUpdated());
}

TEST(TransitionsOn, UpdateRowDeletedTurnsItsOriginalIntoTheDeletedRow) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ASSERT_EQ(1, Write(ds, 0, 0, Ox_Variant(5L)));   // original at 0
  ASSERT_EQ(1, Write(ds, 2, 0, Ox_Variant(25L)));  // original at 1
  EXPECT_EQ(0, ds.DeleteRow(2));
  ASSERT_EQ(2, ds.orgBuff.Count());
  EXPECT_EQ(8, ds.GetOrgBuffType(1));
  EXPECT_EQ(1, ds.orgBuff.GetItem(1)->orgRef);  // its own buffer row
  // The present value 25 is lost; the original 20 is what is kept.
  EXPECT_EQ(20, ds.orgBuff.GetItem(1)->GetItem(0)->ToInteger());
  EXPECT_EQ(4, ds.GetOrgBuffType(0));
  EXPECT_EQ(1, ds.GetDelRowCount());
  EXPECT_EQ(1, ds.GetDelRowIdx(0));
  EXPECT_EQ(2, ds.recs.Count());
}

TEST(TransitionsOn, UpdateRowWithMissingOriginalIsNotDeleted) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ds.recs.GetItem(1)->SetType(4);
  ds.recs.GetItem(1)->orgRef = 3;  // no such buffer row
  EXPECT_EQ(-1, ds.DeleteRow(1));
  EXPECT_EQ(3, ds.recs.Count());
}

TEST(TransitionsOn, InsertRowDeletedLeavesNoTrace) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  const int before = ds.GetDelRowCount();
  const int row = ds.AppendRow(1);
  EXPECT_EQ(1, ds.changeCount);
  EXPECT_EQ(0, ds.DeleteRow(row));
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(before, ds.GetDelRowCount());
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(3, ds.recs.Count());
  EXPECT_EQ(0, ds.IsUpdated());
}

TEST(TransitionsOn, ApplyChangeMakesEveryRowNormal) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ASSERT_EQ(1, Write(ds, 0, 0, Ox_Variant(5L)));
  ds.AppendRow(1);
  ds.DeleteRow(1);
  ds.SetSelect(0, 1);
  ds.recs.GetItem(0)->SetFilter(1);
  ds.ApplyChange();
  for (int i = 0; i < ds.recs.Count(); ++i) {
    EXPECT_EQ(1, ds.GetRowTypeNF(i));
    EXPECT_EQ(-1, ds.GetOrgIdxNF(i));
  }
  // Filter and selection bits are kept.
  EXPECT_EQ(0x1101, ds.recs.GetItem(0)->status);
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.IsUpdated());
  EXPECT_EQ(5, StoredA(ds, 0));
  EXPECT_EQ(1, ds.GetUpdate());
}

TEST(TransitionsOn, ResetTakesBackTheOriginalOfAnUpdateRow) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ASSERT_EQ(1, Write(ds, 1, 0, Ox_Variant(11L)));
  ds.SetSelect(1, 1);
  ds.Reset();
  EXPECT_EQ(1, ds.GetRowType(1));
  EXPECT_EQ(-1, ds.GetOrgIdx(1));
  EXPECT_EQ(10, StoredA(ds, 1));
  // The Assign from the original also drops the selection bit.
  EXPECT_EQ(1, ds.recs.GetItem(1)->status);
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(1, ds.GetUpdate());  // tracking is back on
}

TEST(TransitionsOn, ResetBringsDeletedRowsBack) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 5);  // A = 0, 10, 20, 30, 40
  ds.SetUpdate(1);
  // Stored 1 (orgRef 1), then stored 2, which is now A 30 (orgRef 2).
  ds.DeleteRow(1);
  ds.DeleteRow(2);
  ASSERT_EQ(3, ds.recs.Count());
  ds.Reset();
  // From the last deleted: A 30 back at 2, then A 10 at 1.
  ASSERT_EQ(5, ds.recs.Count());
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(10 * i, StoredA(ds, i));
    EXPECT_EQ(1, ds.GetRowTypeNF(i));
    EXPECT_EQ(-1, ds.GetOrgIdxNF(i));
  }
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.IsUpdated());
}

TEST(TransitionsOn, ResetRemovesInsertRows) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ds.AppendRow(1);
  ds.InsertRow(0, 1);
  ASSERT_EQ(5, ds.recs.Count());
  ds.Reset();
  ASSERT_EQ(3, ds.recs.Count());
  for (int i = 0; i < 3; ++i) EXPECT_EQ(10 * i, StoredA(ds, i));
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.GetDelRowCount());
  EXPECT_EQ(0, ds.orgBuff.Count());
}

// ---------------------------------------------------------------------------
// Tracking on: the edge cases of the row life

TEST(TransitionsOn, ChangedAndSetBackLeavesNoTrace) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ASSERT_EQ(1, Write(ds, 2, 1, Ox_Variant("changed")));
  EXPECT_EQ(1, ds.IsUpdated());
  ASSERT_EQ(1, Write(ds, 2, 1, Ox_Variant("r2")));
  EXPECT_EQ(1, ds.GetRowType(2));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.IsUpdated());
}

TEST(TransitionsOn, UpdatedThenDeletedRowComesBackWithItsOriginalValues) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ASSERT_EQ(1, Write(ds, 0, 0, Ox_Variant(7L)));  // original at buffer 0
  ASSERT_EQ(0, ds.DeleteRow(0));
  ASSERT_EQ(2, ds.recs.Count());
  ds.Reset();
  // orgRef 0 is the buffer row, used as the position in recs.
  ASSERT_EQ(3, ds.recs.Count());
  EXPECT_EQ(0, StoredA(ds, 0));
  EXPECT_EQ(1, ds.GetRowTypeNF(0));
  EXPECT_EQ(10, StoredA(ds, 1));
  EXPECT_EQ(20, StoredA(ds, 2));
}

TEST(TransitionsOn, UpdatedThenDeletedReturnsAtItsBufferRow) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ASSERT_EQ(1, Write(ds, 1, 0, Ox_Variant(1L)));   // original at buffer 0
  ASSERT_EQ(1, Write(ds, 2, 0, Ox_Variant(2L)));   // original at buffer 1
  ASSERT_EQ(0, ds.DeleteRow(2));                   // orgRef 1
  // recs: A 0, 1. Back at position 1 (its buffer row), not 2; then step 3
  // had already given stored 1 its original (A 10).
  ds.Reset();
  ASSERT_EQ(3, ds.recs.Count());
  EXPECT_EQ(0, StoredA(ds, 0));
  EXPECT_EQ(20, StoredA(ds, 1));
  EXPECT_EQ(10, StoredA(ds, 2));
}

TEST(TransitionsOn, BlobBackToItsOriginalBytesStaysUpdate) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  ds.AddColumn("D", 9, 0, 1);
  const unsigned char bytes[] = {1, 2, 3};
  Ox_Variant blob;
  blob.SetBinary(bytes, 3);
  rows_test::Put(ds, 0, 3, blob);
  Ox_Variant other;
  other.SetBinary(bytes, 2);
  ASSERT_EQ(1, Write(ds, 0, 3, other));
  ASSERT_EQ(4, ds.GetRowType(0));
  EXPECT_EQ(1, Write(ds, 0, 3, blob));
  EXPECT_EQ(4, ds.GetRowType(0));
  EXPECT_EQ(1, ds.orgBuff.Count());
}

TEST(TransitionsOn, OriginalComparisonByTheOriginalCellType) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  // Column C holds the decimal 1.5; a write of the integer 1 makes the
  // row an update (Compare of unlike types is not 0). Back with the text
  // "1.5": the original is a decimal, so ToDouble decides, and 1.5 equals.
  ASSERT_EQ(1, Write(ds, 0, 2, Ox_Variant(1L)));
  ASSERT_EQ(4, ds.GetRowType(0));
  EXPECT_EQ(1, Write(ds, 0, 2, Ox_Variant("1.5")));
  EXPECT_EQ(1, ds.GetRowType(0));
  // A null original takes only a null value.
  Ox_Variant empty;
  rows_test::Put(ds, 1, 1, empty);
  ASSERT_EQ(1, Write(ds, 1, 1, Ox_Variant("x")));
  ASSERT_EQ(4, ds.GetRowType(1));
  EXPECT_EQ(1, Write(ds, 1, 1, Ox_Variant("")));
  EXPECT_EQ(4, ds.GetRowType(1));
  EXPECT_EQ(1, Write(ds, 1, 1, empty));
  EXPECT_EQ(1, ds.GetRowType(1));
}

TEST(TransitionsOn, OrgRefFrom32768UpTurnsNegativeAndCountsAsNoOriginal) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  for (int i = 0; i < 40000; ++i) ds.orgBuff.Add(nullptr);
  // The copy lands at buffer row 40000, which in 16 bits is -25536.
  ASSERT_EQ(1, Write(ds, 0, 0, Ox_Variant(3L)));
  EXPECT_EQ(40001, ds.orgBuff.Count());
  EXPECT_EQ(-25536, ds.GetOrgIdx(0));
  // The next write finds no original: the set fails.
  EXPECT_EQ(0, Write(ds, 0, 0, Ox_Variant(0L)));
  EXPECT_EQ(3, StoredA(ds, 0));
}

TEST(TransitionsOn, WriteRefusesMissingRowOrColumn) {
  Ox_Dataset ds(65001u, 1);
  Tracked(ds);
  EXPECT_EQ(0, Write(ds, 3, 0, Ox_Variant(1L)));
  EXPECT_EQ(0, Write(ds, -1, 0, Ox_Variant(1L)));
  EXPECT_EQ(0, Write(ds, 0, 3, Ox_Variant(1L)));
  EXPECT_EQ(0, Write(ds, 0, -1, Ox_Variant(1L)));
  EXPECT_EQ(0, ds.orgBuff.Count());
}

// ---------------------------------------------------------------------------
// Tracking off: the same events change no type and touch no orgBuff

void Untracked(Ox_Dataset &ds) {
  Tracked(ds);
  ds.SetUpdate(0);
}

TEST(TransitionsOff, NewRowsAreNormalEvenWhenMarked) {
  Ox_Dataset ds(65001u, 1);
  Untracked(ds);
  ds.AppendRow(1);
  ds.InsertRow(0, 1);
  EXPECT_EQ(1, ds.GetRowType(0));
  EXPECT_EQ(1, ds.GetRowType(4));
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.IsUpdated());
}

TEST(TransitionsOff, AnEqualValueIsStoredAnyway) {
  Ox_Dataset ds(65001u, 1);
  Untracked(ds);
  EXPECT_EQ(1, Write(ds, 1, 2, Ox_Variant(1.5 + 1e-12)));
  EXPECT_EQ(1.5 + 1e-12, StoredC(ds, 1));
  EXPECT_EQ(1, ds.GetRowType(1));
}

TEST(TransitionsOff, ADifferentValueKeepsTheRowNormal) {
  Ox_Dataset ds(65001u, 1);
  Untracked(ds);
  EXPECT_EQ(1, Write(ds, 1, 0, Ox_Variant(11L)));
  EXPECT_EQ(11, StoredA(ds, 1));
  EXPECT_EQ(1, ds.GetRowType(1));
  EXPECT_EQ(-1, ds.GetOrgIdx(1));
  EXPECT_EQ(0, ds.orgBuff.Count());
  // A write beyond the row's cells grows it.
  ds.recs.GetItem(0)->Clear();
  EXPECT_EQ(1, Write(ds, 0, 2, Ox_Variant(4.0)));
  EXPECT_EQ(3, ds.recs.GetItem(0)->Count());
}

TEST(TransitionsOff, UpdateAndInsertRowsKeepTheirTypeAndOrgRef) {
  Ox_Dataset ds(65001u, 1);
  Untracked(ds);
  ds.recs.GetItem(0)->SetType(4);
  ds.recs.GetItem(0)->orgRef = 5;
  ds.recs.GetItem(1)->SetType(2);
  EXPECT_EQ(1, Write(ds, 0, 0, Ox_Variant(0L)));
  EXPECT_EQ(1, Write(ds, 1, 0, Ox_Variant(3L)));
  EXPECT_EQ(4, ds.GetRowType(0));
  EXPECT_EQ(5, ds.GetOrgIdx(0));
  EXPECT_EQ(2, ds.GetRowType(1));
}

TEST(TransitionsOff, DeleteRowLeavesOrgBuffEmptyAfterAnyEdits) {
  Ox_Dataset ds(65001u, 1);
  Untracked(ds);
  for (int i = 0; i < 3; ++i) Write(ds, i, 0, Ox_Variant(100L + i));
  ds.AppendRow(1);
  ds.InsertRow(1, 1);
  ds.recs.GetItem(0)->SetType(2);  // even a row typed insert by hand
  EXPECT_EQ(0, ds.DeleteRow(0));
  EXPECT_EQ(0, ds.DeleteRow(1));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.IsUpdated());
  EXPECT_EQ(3, ds.recs.Count());
}

TEST(TransitionsOff, ApplyChangeAndResetStillWork) {
  Ox_Dataset ds(65001u, 1);
  Untracked(ds);
  ds.recs.GetItem(0)->SetType(2);
  ds.ApplyChange();
  EXPECT_EQ(1, ds.GetRowType(0));
  // Reset deletes rows of type insert whatever the tracking.
  ds.recs.GetItem(2)->SetType(2);
  ds.Reset();
  EXPECT_EQ(2, ds.recs.Count());
  EXPECT_EQ(0, ds.GetUpdate());
}

}  // namespace
