// Cell writers of Ox_Dataset: SetColumn, SetColumnNF and UpdateColumn, the
// conversion to the column's cell type, and the row states that a write
// drives with change tracking on and off.
#include <gtest/gtest.h>

#include <string>

#include "Ox_Dataset.h"
#include "rows_test_util.h"

namespace {

using rows_test::Fill;
using rows_test::StoredA;
using rows_test::Summary;

// A of stored row 0..n as a type check: the cell's variant type.
int CellType(const Ox_Dataset &ds, int stored, int col) {
  const Ox_Variant *cell = ds.recs.GetItem(stored)->GetItem(col);
  return cell != nullptr ? cell->GetType() : -1;
}

// ---------------------------------------------------------------------------
// Conversion to the cell type

TEST(CellsSet, TextOnIntColumnStoresInteger) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  EXPECT_EQ(1, ds.SetColumn(1, 0, "12", 2));
  Ox_Variant out;
  ds.GetColumn(1, 0, out);
  EXPECT_EQ(Ox_Variant::kInteger, out.GetType());
  EXPECT_EQ(12, out.ToInteger());
  // The same through the string form and by identifier.
  EXPECT_EQ(1, ds.SetColumn(0, "A", Ox_AString("34")));
  EXPECT_EQ(Ox_Variant::kInteger, CellType(ds, 0, 0));
  EXPECT_EQ(34, StoredA(ds, 0));
}

TEST(CellsSet, NumbersTakeTheColumnType) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.AddColumn("C", 4, 0, 1);  // DECIMAL
  // An integer into a DECIMAL column is kept as a double.
  EXPECT_EQ(1, ds.SetColumn(0, 2, 7));
  EXPECT_EQ(Ox_Variant::kDecimal, CellType(ds, 0, 2));
  EXPECT_DOUBLE_EQ(7.0, ds.GetColumn(0, 2)->ToDouble());
  // A double into the INT column becomes an integer.
  EXPECT_EQ(1, ds.SetColumn(0, "A", 12.0));
  EXPECT_EQ(Ox_Variant::kInteger, CellType(ds, 0, 0));
  EXPECT_EQ(12, StoredA(ds, 0));
  // A number into the STRING column becomes text.
  EXPECT_EQ(1, ds.SetColumn(0, 1, 5L));
  EXPECT_EQ(Ox_Variant::kString, CellType(ds, 0, 1));
  EXPECT_STREQ("5", ds.GetColumn(0, 1)->ToString().GetString());
}

TEST(CellsSet, NullValueStoresNullInAnyColumn) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  EXPECT_EQ(1, ds.SetColumn(0, 0, static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(Ox_Variant::kNull, CellType(ds, 0, 0));
  // Tracking is off: the row stays normal.
  EXPECT_EQ(1, ds.GetRowType(0));
}

TEST(CellsSet, NullValueOnNonNullCellMakesAnUpdate) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  EXPECT_EQ(1, ds.SetColumn(1, 0, static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(Ox_Variant::kNull, CellType(ds, 1, 0));
  EXPECT_EQ(4, ds.GetRowType(1));
  ASSERT_EQ(1, ds.orgBuff.Count());
  EXPECT_EQ(10, ds.GetOrgColumn(1, 0)->ToInteger());
}

// ---------------------------------------------------------------------------
// Refusals

TEST(CellsSet, BadColumnsAndRowsGiveZero) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  const Ox_Variant v(5L);
  EXPECT_EQ(0, ds.SetColumn(0, -1, &v));
  EXPECT_EQ(0, ds.SetColumn(0, -1, "1", 1));
  EXPECT_EQ(0, ds.SetColumn(0, "nope", &v));
  EXPECT_EQ(0, ds.SetColumn(5, 0, &v));
  EXPECT_EQ(0, ds.SetColumn(-1, 0, &v));
  // No constants: a number behind the normal columns names nothing.
  EXPECT_EQ(0, ds.SetColumn(0, 2, &v));
  EXPECT_EQ(0, ds.UpdateColumn(2, 0, &v));
  EXPECT_EQ(0, ds.UpdateColumn(0, -1, &v));
  EXPECT_EQ(0, ds.SetColumnNF(0, "nope", &v));
  EXPECT_EQ(0, StoredA(ds, 0));
  EXPECT_EQ(10, StoredA(ds, 1));
}

TEST(CellsSet, SummaryRowGivesZeroAndChangesNothing) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  ds.recIndexValid = 1;
  ds.recIndex.Add(0);
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
  const Ox_Variant v(99L);
  EXPECT_EQ(0, ds.SetColumn(2, 0, &v));
  EXPECT_EQ(0, ds.SetColumn(2, "B", "x", 1));
  EXPECT_EQ(0, StoredA(ds, 0));
  EXPECT_EQ(10, StoredA(ds, 1));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(1, ds.GetRowType(0));
  EXPECT_EQ(1, ds.GetRowType(1));
  EXPECT_EQ(3, ds.recIndex.Count());
}

TEST(CellsSet, SummaryRowInFilterIndexGivesZero) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(2);
  ds.filterActive = 1;
  ds.filterIndex.Add(0);
  ds.filterIndex.Add(Summary(1, 0));
  EXPECT_EQ(0, ds.SetColumn(1, 0, 5));
  EXPECT_EQ(0, StoredA(ds, 0));
  EXPECT_EQ(10, StoredA(ds, 1));
}

TEST(CellsSet, LinkedDatasetWritesNothingAndGivesOne) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.editable = 0;
  ds.xmlDataset = 1;
  const Ox_Variant v(7L);
  EXPECT_EQ(1, ds.SetColumn(0, 0, &v));
  EXPECT_EQ(0, StoredA(ds, 0));
}

// ---------------------------------------------------------------------------
// Row resolution

TEST(CellsSet, VisibleRowGoesThroughBothIndexes) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  // recIndex reverses the rows; the filter shows positions 1 and 0.
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  ds.recIndex.Add(1);
  ds.recIndex.Add(0);
  ds.filterActive = 1;
  ds.filterIndex.Add(1);
  ds.filterIndex.Add(0);
  // Visible 0 -> position 1 -> stored 1; visible 1 -> position 0 -> 2.
  EXPECT_EQ(1, ds.SetColumn(0, 0, 111));
  EXPECT_EQ(1, ds.SetColumn(1, 0, 222));
  EXPECT_EQ(0, StoredA(ds, 0));
  EXPECT_EQ(111, StoredA(ds, 1));
  EXPECT_EQ(222, StoredA(ds, 2));
  // SetColumnNF takes the stored row and ignores both.
  EXPECT_EQ(1, ds.SetColumnNF(0, 0, 5));
  EXPECT_EQ(5, StoredA(ds, 0));
  EXPECT_EQ(1, ds.SetColumnNF(0, "B", "zz", 2));
  EXPECT_STREQ("zz", ds.recs.GetItem(0)->GetItem(1)->ToString().GetString());
}

TEST(CellsSet, ViewWritesTheBoundDataset) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, bound);
  // Pairs (stored row, selection word): visible 0 -> 2, 1 -> 0.
  view.recIndexValid = 1;
  view.recIndex.Add2(2, 0);
  view.recIndex.Add2(0, 0);
  EXPECT_EQ(1, view.SetColumn(0, "A", 7));
  EXPECT_EQ(7, StoredA(bound, 2));
  EXPECT_EQ(1, view.SetColumn(1, 0, 8));
  EXPECT_EQ(8, StoredA(bound, 0));
  EXPECT_EQ(0, view.SetColumn(2, 0, 9));  // no such pair
  // A summary pair is refused.
  view.recIndex.Add2(Summary(1, 0), 0);
  EXPECT_EQ(0, view.SetColumn(2, 0, 9));
  EXPECT_EQ(10, StoredA(bound, 1));
}

TEST(CellsSet, ViewWithoutBoundDatasetGivesZero) {
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  EXPECT_EQ(0, view.SetColumn(0, 0, 1));
}

// ---------------------------------------------------------------------------
// Constants through the cell writers

TEST(CellsSet, ConstantColumnByNumberAndIdentifier) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.AddConstColumn("K", Ox_Variant(1L));
  ds.SetUpdate(1);
  // Column 2 is constant 0; the row number is not used.
  EXPECT_EQ(1, ds.SetColumn(0, 2, 5));
  EXPECT_EQ(5, ds.GetConstColumn(0)->ToInteger());
  EXPECT_EQ(1, ds.SetColumn(1, "K", "abc", 3));
  EXPECT_STREQ("abc", ds.GetConstColumn("K")->ToString().GetString());
  // UpdateColumn on the constant's number: the constant, no row type.
  const Ox_Variant nine(9L);
  EXPECT_EQ(1, ds.UpdateColumn(0, 2, &nine));
  EXPECT_EQ(9, ds.GetConstColumn(0)->ToInteger());
  EXPECT_EQ(1, ds.GetRowType(0));
  EXPECT_EQ(1, ds.GetRowType(1));
  EXPECT_EQ(0, ds.orgBuff.Count());
  // A null value clears the constant.
  EXPECT_EQ(1, ds.UpdateColumn(0, 2, nullptr));
  EXPECT_EQ(Ox_Variant::kNull, ds.GetConstColumn(0)->GetType());
  // The second constant does not exist.
  EXPECT_EQ(0, ds.UpdateColumn(0, 3, &nine));
}

TEST(CellsSet, EveryFormOfSetColumnNF) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.AddColumn("C", 1, 0, 1);  // STRING
  const Ox_Variant v("v");
  // By number: pointer, long, double, string, text with a length.
  EXPECT_EQ(1, ds.SetColumnNF(0, 2, &v));
  EXPECT_EQ("v", std::string(ds.GetColumnNF(0, 2)->ToString().GetString()));
  EXPECT_EQ(1, ds.SetColumnNF(0, 2, 3L));
  EXPECT_EQ("3", std::string(ds.GetColumnNF(0, 2)->ToString().GetString()));
  EXPECT_EQ(1, ds.SetColumnNF(0, 0, 4.0));
  EXPECT_EQ(4, StoredA(ds, 0));
  EXPECT_EQ(1, ds.SetColumnNF(0, 2, Ox_AString("s")));
  EXPECT_EQ("s", std::string(ds.GetColumnNF(0, 2)->ToString().GetString()));
  // The length counts: two characters of "abc".
  EXPECT_EQ(1, ds.SetColumnNF(0, 2, "abc", 2));
  EXPECT_EQ("ab", std::string(ds.GetColumnNF(0, 2)->ToString().GetString()));
  // By identifier, the same five.
  EXPECT_EQ(1, ds.SetColumnNF(0, "C", &v));
  EXPECT_EQ("v", std::string(ds.GetColumnNF(0, "C")->ToString().GetString()));
  EXPECT_EQ(1, ds.SetColumnNF(0, "A", 6L));
  EXPECT_EQ(6, StoredA(ds, 0));
  EXPECT_EQ(1, ds.SetColumnNF(0, "A", 7.0));
  EXPECT_EQ(7, StoredA(ds, 0));
  EXPECT_EQ(1, ds.SetColumnNF(0, "A", Ox_AString("8")));
  EXPECT_EQ(8, StoredA(ds, 0));
  EXPECT_EQ(1, ds.SetColumnNF(0, "c", "xyz", 1));
  EXPECT_EQ("x", std::string(ds.GetColumnNF(0, 2)->ToString().GetString()));
  // Every form refuses an unknown identifier and a missing row.
  EXPECT_EQ(0, ds.SetColumnNF(0, "nope", 1L));
  EXPECT_EQ(0, ds.SetColumnNF(0, "nope", 1.0));
  EXPECT_EQ(0, ds.SetColumnNF(0, "nope", Ox_AString("1")));
  EXPECT_EQ(0, ds.SetColumnNF(0, "nope", "1", 1));
  EXPECT_EQ(0, ds.SetColumnNF(1, 0, 1L));
  EXPECT_EQ(0, ds.SetColumnNF(1, 0, 1.0));
  EXPECT_EQ(0, ds.SetColumnNF(1, 0, Ox_AString("1")));
}

TEST(CellsSet, EveryFormOfSetColumnByIdentifier) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  EXPECT_EQ(1, ds.SetColumn(0, "A", 5L));
  EXPECT_EQ(5, StoredA(ds, 0));
  EXPECT_EQ(1, ds.SetColumn(0, "A", "61", 1));  // the text "6"
  EXPECT_EQ(6, StoredA(ds, 0));
  const Ox_Variant nine(9L);
  EXPECT_EQ(1, ds.SetColumn(0, "A", &nine));
  EXPECT_EQ(9, StoredA(ds, 0));
  EXPECT_EQ(0, ds.SetColumn(0, "nope", 1L));
  EXPECT_EQ(0, ds.SetColumn(0, "nope", 1.0));
  EXPECT_EQ(0, ds.SetColumn(0, "nope", Ox_AString("1")));
  EXPECT_EQ(0, ds.SetColumn(0, "nope", "1", 1));
  EXPECT_EQ(1, ds.SetColumn(0, 0, Ox_AString("3")));
  EXPECT_EQ(3, StoredA(ds, 0));
}

// ---------------------------------------------------------------------------
// Row states: tracking off

TEST(CellsTrackingOff, StoresEvenEqualValuesAndKeepsTypes) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  EXPECT_EQ(1, ds.SetColumn(1, 0, 10));  // equal
  EXPECT_EQ(1, ds.SetColumn(0, 0, 77));  // different
  EXPECT_EQ(77, StoredA(ds, 0));
  EXPECT_EQ(1, ds.GetRowType(0));
  EXPECT_EQ(-1, ds.GetOrgIdx(0));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.IsUpdated());
  // A cell beyond the row's length grows the row.
  ds.AddColumn("C", 1, 0, 1);
  ds.recs.GetItem(1)->Clear();
  EXPECT_EQ(1, ds.SetColumnNF(1, 2, "x", 1));
  EXPECT_EQ(3, ds.recs.GetItem(1)->Count());
}

// ---------------------------------------------------------------------------
// Row states: tracking on

TEST(CellsTrackingOn, EqualValueLeavesTheRowNormal) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  // The text "10" becomes the integer 10, equal to the cell.
  EXPECT_EQ(1, ds.SetColumn(1, 0, "10", 2));
  EXPECT_EQ(1, ds.GetRowType(1));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.IsUpdated());
}

TEST(CellsTrackingOn, NormalRowBecomesUpdateWithItsOriginal) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  EXPECT_EQ(1, ds.SetColumn(1, 0, 15));
  EXPECT_EQ(4, ds.GetRowType(1));
  EXPECT_EQ(0, ds.GetOrgIdx(1));
  ASSERT_EQ(1, ds.orgBuff.Count());
  // The copy holds the row as it was, already of type update.
  const Ox_Record *original = ds.orgBuff.GetItem(0);
  EXPECT_EQ(4, original->GetType());
  EXPECT_EQ(10, original->GetItem(0)->ToInteger());
  EXPECT_STREQ("r1", original->GetItem(1)->ToString().GetString());
  EXPECT_EQ(15, StoredA(ds, 1));
  EXPECT_EQ(1, ds.IsUpdated());
  // A second change keeps the same original.
  EXPECT_EQ(1, ds.SetColumn(1, 1, "changed", 7));
  EXPECT_EQ(4, ds.GetRowType(1));
  EXPECT_EQ(1, ds.orgBuff.Count());
}

TEST(CellsTrackingOn, UpdateSetBackReturnsToNormal) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  ASSERT_EQ(1, ds.SetColumn(0, 0, 5));
  ASSERT_EQ(1, ds.SetColumn(0, 1, "other", 5));
  // Setting A back alone is not enough: B still differs.
  EXPECT_EQ(1, ds.SetColumn(0, 0, 0));
  EXPECT_EQ(4, ds.GetRowType(0));
  EXPECT_EQ(1, ds.orgBuff.Count());
  // B back too: the row equals its original.
  EXPECT_EQ(1, ds.SetColumn(0, "B", Ox_AString("r0")));
  EXPECT_EQ(1, ds.GetRowType(0));
  EXPECT_EQ(-1, ds.GetOrgIdx(0));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.IsUpdated());
  EXPECT_STREQ("r0", ds.GetColumn(0, 1)->ToString().GetString());
}

TEST(CellsTrackingOn, OtherOriginalsMoveDownWhenOneLeaves) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.SetUpdate(1);
  ASSERT_EQ(1, ds.SetColumn(0, 0, 1));  // original at buffer row 0
  ASSERT_EQ(1, ds.SetColumn(2, 0, 3));  // original at buffer row 1
  EXPECT_EQ(1, ds.GetOrgIdx(2));
  ASSERT_EQ(1, ds.SetColumn(0, 0, 0));  // row 0 back to its original
  EXPECT_EQ(1, ds.GetRowType(0));
  EXPECT_EQ(1, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.GetOrgIdx(2));
  EXPECT_EQ(20, ds.GetOrgColumn(2, 0)->ToInteger());
}

TEST(CellsTrackingOn, InsertRowStaysInsert) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.SetUpdate(1);
  const int row = ds.AppendRow(1);
  ASSERT_EQ(1, row);
  EXPECT_EQ(1, ds.SetColumn(row, 0, 42));
  EXPECT_EQ(1, ds.SetColumn(row, 0, 43));
  EXPECT_EQ(2, ds.GetRowType(row));
  EXPECT_EQ(-1, ds.GetOrgIdx(row));
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(1, ds.changeCount);
  EXPECT_EQ(43, StoredA(ds, 1));
}

TEST(CellsTrackingOn, BlobSetBackStaysUpdate) {
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("D", 9, 0, 1);  // BLOB
  ds.AppendRow(0);
  const unsigned char bytes[3] = {1, 2, 3};
  Ox_Variant original;
  original.SetBinary(bytes, 3);
  ds.SetColumn(0, 0, &original);
  ds.SetUpdate(1);
  const unsigned char other[2] = {9, 9};
  Ox_Variant changed;
  changed.SetBinary(other, 2);
  ASSERT_EQ(1, ds.SetColumn(0, 0, &changed));
  ASSERT_EQ(4, ds.GetRowType(0));
  // The same bytes as the original: still an update.
  EXPECT_EQ(1, ds.SetColumn(0, 0, &original));
  EXPECT_EQ(4, ds.GetRowType(0));
  EXPECT_EQ(1, ds.orgBuff.Count());
}

TEST(CellsTrackingOn, MissingOriginalFailsTheSet) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.SetUpdate(1);
  ds.SetRowTypeNF(0, 4);  // an update whose original is nowhere
  EXPECT_EQ(0, ds.SetColumn(0, 0, 5));
  EXPECT_EQ(0, StoredA(ds, 0));
}

TEST(CellsTrackingOn, NullOriginalCellComparesAsNull) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.SetColumn(0, 0, static_cast<const Ox_Variant *>(nullptr));
  ds.SetUpdate(1);
  ASSERT_EQ(1, ds.SetColumn(0, 0, 5));
  ASSERT_EQ(4, ds.GetRowType(0));
  // The original cell is null: only a null value brings the row back.
  EXPECT_EQ(1, ds.SetColumn(0, 0, static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(1, ds.GetRowType(0));
  EXPECT_EQ(0, ds.orgBuff.Count());
}

TEST(CellsTrackingOn, DecimalAndTextOriginalsCompareByValue) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.AddColumn("C", 4, 0, 1);
  ds.SetColumn(0, 2, 2.5);
  ds.SetUpdate(1);
  ASSERT_EQ(1, ds.SetColumn(0, 2, 3.0));
  ASSERT_EQ(4, ds.GetRowType(0));
  // The text "2.5" becomes the double 2.5, the original.
  EXPECT_EQ(1, ds.SetColumn(0, 2, "2.5", 3));
  EXPECT_EQ(1, ds.GetRowType(0));
}

}  // namespace
