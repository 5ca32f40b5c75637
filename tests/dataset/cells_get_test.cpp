// Cell readers of Ox_Dataset: GetColumn and its NN and NF forms, constants
// through column numbers, and the readers of original, buffer and deleted
// rows. Indexes are set by hand where a test needs visible rows that
// differ from stored rows.
#include <gtest/gtest.h>

#include <string>

#include "Ox_Dataset.h"
#include "rows_test_util.h"

namespace {

using rows_test::Fill;
using rows_test::Summary;

long IntOf(const Ox_Variant *cell) {
  return cell != nullptr ? cell->ToInteger() : -999;
}

std::string TextOf(const Ox_Variant *cell) {
  return cell != nullptr ? std::string(cell->ToString().GetString())
                         : std::string("<null>");
}

// ---------------------------------------------------------------------------
// Plain rows and constants

TEST(CellsGet, PlainRowsByNumberAndIdentifier) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  EXPECT_EQ(20, IntOf(ds.GetColumn(2, 0)));
  EXPECT_EQ("r1", TextOf(ds.GetColumn(1, "b")));  // identifiers ignore case
  Ox_Variant out;
  ds.GetColumn(2, "A", out);
  EXPECT_EQ(Ox_Variant::kInteger, out.GetType());
  EXPECT_EQ(20, out.ToInteger());
  // The pointer points into the row.
  EXPECT_EQ(ds.recs.GetItem(1)->GetItem(0), ds.GetColumn(1, 0));
}

TEST(CellsGet, MissingRowsColumnsAndCells) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.AddColumn("C", 1, 0, 1);
  ds.recs.GetItem(1)->Clear();  // a row with no cells at all
  EXPECT_EQ(nullptr, ds.GetColumn(5, 0));
  EXPECT_EQ(nullptr, ds.GetColumn(0, -1));
  EXPECT_EQ(nullptr, ds.GetColumn(0, "nope"));
  EXPECT_EQ(nullptr, ds.GetColumn(1, 2));
  EXPECT_EQ(&_OxNullVariant, ds.GetColumnNN(5, 0));
  EXPECT_EQ(&_OxNullVariant, ds.GetColumnNN(0, -1));
  EXPECT_EQ(&_OxNullVariant, ds.GetColumnNN(0, "nope"));
  EXPECT_EQ(&_OxNullVariant, ds.GetColumnNN(1, 2));
  EXPECT_EQ(0, IntOf(ds.GetColumnNN(0, 0)));
  // By value: a missing row or cell reads as null without an index; an
  // unknown column or a negative one leaves `out` alone.
  Ox_Variant out(7L);
  ds.GetColumn(5, 0, out);
  EXPECT_EQ(Ox_Variant::kNull, out.GetType());
  out = 7L;
  ds.GetColumn(1, 1, out);
  EXPECT_EQ(Ox_Variant::kNull, out.GetType());
  out = 7L;
  ds.GetColumn(0, -1, out);
  EXPECT_EQ(7, out.ToInteger());
  ds.GetColumn(0, "nope", out);
  EXPECT_EQ(7, out.ToInteger());
}

TEST(CellsGet, RowMinusOneReadsConstantsOnly) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.AddConstColumn("K", Ox_Variant(5L));
  // Column 0 is normal: nothing at row -1.
  EXPECT_EQ(nullptr, ds.GetColumn(-1, 0, -1));
  Ox_Variant out(3L);
  ds.GetColumn(-1, 0, out, -1);
  EXPECT_EQ(3, out.ToInteger());
  // Column 2 is constant 0.
  EXPECT_EQ(5, IntOf(ds.GetColumn(-1, 2, -1)));
  ds.GetColumn(-1, 2, out, -1);
  EXPECT_EQ(5, out.ToInteger());
  // Any row reads the constant by its column number or identifier.
  EXPECT_EQ(ds.GetConstColumn(0), ds.GetColumn(1, 2));
  EXPECT_EQ(5, IntOf(ds.GetColumn(0, "K")));
  EXPECT_EQ(5, IntOf(ds.GetColumnNN(7, 2)));
  EXPECT_EQ(nullptr, ds.GetColumn(0, 3));  // no constant 1
  EXPECT_EQ(5, IntOf(ds.GetColumnNF(-1, 2)));
  EXPECT_EQ(5, IntOf(ds.GetColumnNF(0, "K")));
}

TEST(CellsGet, ViewReadsTheBoundRowsAndConstants) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 3);
  bound.AddConstColumn("K", Ox_Variant(5L));
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, bound);
  // Without the index the row goes straight to the bound records.
  EXPECT_EQ(10, IntOf(view.GetColumn(1, 0)));
  view.recIndexValid = 1;
  view.recIndex.Add2(2, 0);
  view.recIndex.Add2(0, 0);
  EXPECT_EQ(20, IntOf(view.GetColumn(0, "A")));
  EXPECT_EQ(0, IntOf(view.GetColumn(1, 0)));
  EXPECT_EQ(nullptr, view.GetColumn(-1, 0));
  EXPECT_EQ(5, IntOf(view.GetColumn(-1, 2)));
  EXPECT_EQ(5, IntOf(view.GetColumn(1, "K")));
  // NF on a view reads the bound records by stored row.
  EXPECT_EQ(10, IntOf(view.GetColumnNF(1, 0)));
}

// ---------------------------------------------------------------------------
// Visible against stored rows

TEST(CellsGet, NFIgnoresFilterAndIndex) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  ds.recIndex.Add(1);
  ds.recIndex.Add(0);
  ds.filterActive = 1;
  ds.filterIndex.Add(1);  // visible 0 -> position 1 -> stored 1
  ds.filterIndex.Add(0);  // visible 1 -> position 0 -> stored 2
  EXPECT_EQ(10, IntOf(ds.GetColumn(0, 0)));
  EXPECT_EQ(20, IntOf(ds.GetColumn(1, 0)));
  EXPECT_EQ(nullptr, ds.GetColumn(2, 0));  // the filter has two rows
  EXPECT_EQ(0, IntOf(ds.GetColumnNF(0, 0)));
  EXPECT_EQ(10, IntOf(ds.GetColumnNF(1, 0)));
  EXPECT_EQ(20, IntOf(ds.GetColumnNF(2, "A")));
  EXPECT_EQ(nullptr, ds.GetColumnNF(3, 0));
  EXPECT_EQ(nullptr, ds.GetColumnNF(0, -1));
  EXPECT_EQ(&_OxNullVariant, ds.GetColumnNFNN(3, 0));
  EXPECT_EQ(&_OxNullVariant, ds.GetColumnNFNN(0, "nope"));
  EXPECT_EQ(20, IntOf(ds.GetColumnNFNN(2, 0)));
  // By value: a row the index does not have leaves `out` alone.
  Ox_Variant out(7L);
  ds.GetColumn(2, 0, out);
  EXPECT_EQ(7, out.ToInteger());
  ds.GetColumnNF(1, 0, out);
  EXPECT_EQ(10, out.ToInteger());
  out = 7L;
  ds.GetColumnNF(3, 0, out);
  EXPECT_EQ(7, out.ToInteger());
}

TEST(CellsGet, NFByValueOnViewSetsNullForNothing) {
  Ox_Dataset bound(65001u, 1);
  Fill(bound, 1);
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, bound);
  Ox_Variant out(7L);
  view.GetColumnNF(4, 0, out);
  EXPECT_EQ(Ox_Variant::kNull, out.GetType());
  out = 7L;
  view.GetColumnNF(0, "nope", out);
  EXPECT_EQ(Ox_Variant::kNull, out.GetType());
  view.GetColumnNF(0, 0, out);
  EXPECT_EQ(0, out.ToInteger());
  EXPECT_EQ(Ox_Variant::kInteger, out.GetType());
}

TEST(CellsGet, LinkedPointerReadsGiveNull) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.editable = 0;
  ds.xmlDataset = 1;
  EXPECT_EQ(nullptr, ds.GetColumn(0, 0));
  EXPECT_EQ(nullptr, ds.GetColumnNF(0, 0));
  EXPECT_EQ(&_OxNullVariant, ds.GetColumnNN(0, 0));
}

// ---------------------------------------------------------------------------
// Buffer rows and deleted rows

TEST(CellsGet, DelColumnWithNoDeletedRows) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  EXPECT_EQ(nullptr, ds.GetDelColumn(0, 0));
  EXPECT_EQ(&_OxNullVariant, ds.GetDelColumnNN(0, 0));
  EXPECT_EQ(nullptr, ds.GetDelColumn(0, "A"));
  EXPECT_EQ(&_OxNullVariant, ds.GetDelColumnNN(0, "A"));
}

TEST(CellsGet, DeletedAndBufferRows) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.AddConstColumn("K", Ox_Variant(5L));
  ds.SetUpdate(1);
  ASSERT_EQ(1, ds.SetColumn(0, 0, 1));  // buffer row 0: original, type 4
  ASSERT_EQ(0, ds.DeleteRow(2));        // buffer row 1: deleted, A = 20
  ASSERT_EQ(2, ds.orgBuff.Count());
  // The 0th deleted row is buffer row 1.
  EXPECT_EQ(20, IntOf(ds.GetDelColumn(0, 0)));
  EXPECT_EQ("r2", TextOf(ds.GetDelColumn(0, "B")));
  EXPECT_EQ(nullptr, ds.GetDelColumn(1, 0));
  EXPECT_EQ(&_OxNullVariant, ds.GetDelColumnNN(1, 0));
  EXPECT_EQ(nullptr, ds.GetDelColumn(-1, 0));
  // Buffer rows directly; a constant's number reads the constant.
  EXPECT_EQ(0, IntOf(ds.GetOrgBuffColumn(0, 0)));
  EXPECT_EQ(20, IntOf(ds.GetOrgBuffColumn(1, "A")));
  EXPECT_EQ(5, IntOf(ds.GetOrgBuffColumn(1, 2)));
  EXPECT_EQ(nullptr, ds.GetOrgBuffColumn(2, 0));
  EXPECT_EQ(nullptr, ds.GetOrgBuffColumn(-1, 0));
  EXPECT_EQ(nullptr, ds.GetOrgBuffColumn(0, -1));
  EXPECT_EQ(&_OxNullVariant, ds.GetOrgBuffColumnNN(2, 0));
  EXPECT_EQ(&_OxNullVariant, ds.GetOrgBuffColumnNN(0, "nope"));
}

// ---------------------------------------------------------------------------
// Originals

TEST(CellsGet, OrgColumnOfNormalRowIsThePresentValue) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  EXPECT_EQ(ds.GetColumn(1, 0), ds.GetOrgColumn(1, 0));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumn(1, "A")));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumnNN(1, 0)));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumnNF(1, 0)));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumnNFNN(1, "A")));
}

TEST(CellsGet, OrgColumnOfUpdateRowIsTheFirstValue) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.SetUpdate(1);
  ASSERT_EQ(1, ds.SetColumn(1, 0, 11));
  ASSERT_EQ(1, ds.SetColumn(1, 0, 12));
  ASSERT_EQ(1, ds.SetColumn(1, 0, 13));
  EXPECT_EQ(13, IntOf(ds.GetColumn(1, 0)));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumn(1, 0)));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumn(1, "A")));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumnNN(1, "A")));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumnNF(1, 0)));
  EXPECT_EQ(10, IntOf(ds.GetOrgColumnNFNN(1, 0)));
  EXPECT_EQ(nullptr, ds.GetOrgColumn(1, -1));
  EXPECT_EQ(&_OxNullVariant, ds.GetOrgColumnNN(1, -1));
}

TEST(CellsGet, OrgColumnOfSummaryRowOrViewIsNull) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 2);
  ds.recIndexValid = 1;
  ds.recIndex.Add(0);
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
  EXPECT_EQ(nullptr, ds.GetOrgColumn(2, 0));
  EXPECT_EQ(nullptr, ds.GetOrgColumn(2, "A"));
  EXPECT_EQ(&_OxNullVariant, ds.GetOrgColumnNN(2, 0));
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, ds);
  EXPECT_EQ(nullptr, view.GetOrgColumn(0, 0));
}

TEST(CellsGet, OrgColumnByIdentifierGoesThroughTheFilter) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  ds.SetUpdate(1);
  ASSERT_EQ(1, ds.SetColumn(2, 0, 99));  // stored 2, original A = 20
  ds.recIndexValid = 1;
  ds.recIndex.Reset(3);
  ds.filterActive = 1;
  ds.filterIndex.Add(2);
  ds.filterIndex.Add(Summary(1, 0));
  // Visible 0 is position 2, stored row 2: its original.
  EXPECT_EQ(20, IntOf(ds.GetOrgColumn(0, "A")));
  EXPECT_EQ(20, IntOf(ds.GetOrgColumnNN(0, 0)));
  // A summary entry of the filter gives null.
  EXPECT_EQ(nullptr, ds.GetOrgColumn(1, "A"));
  EXPECT_EQ(&_OxNullVariant, ds.GetOrgColumnNN(1, "A"));
}

TEST(CellsGet, OrgColumnNFWithoutOriginalReadsTheRowAsVisible) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 3);
  // recIndex reverses the rows: visible 0 is stored 2.
  ds.recIndexValid = 1;
  ds.recIndex.Add(2);
  ds.recIndex.Add(1);
  ds.recIndex.Add(0);
  // Stored row 0 has no original: the value of visible row 0 is given.
  EXPECT_EQ(20, IntOf(ds.GetOrgColumnNF(0, 0)));
  EXPECT_EQ(20, IntOf(ds.GetOrgColumnNF(0, "A")));
  EXPECT_EQ(&_OxNullVariant, ds.GetOrgColumnNFNN(0, "nope"));
  EXPECT_EQ(&_OxNullVariant, ds.GetOrgColumnNFNN(5, 0));
}

// ---------------------------------------------------------------------------
// GetGroupColType

TEST(CellsGet, GroupColType) {
  Ox_Dataset ds(65001u, 1);
  Fill(ds, 1);
  ds.groupKeyList.Add(Summary(2, 1));
  EXPECT_EQ(0, ds.GetGroupColType(1, 1));  // no index in force
  ds.recIndexValid = 1;
  EXPECT_EQ(2, ds.GetGroupColType(7, 1));  // level is not used
  EXPECT_EQ(0, ds.GetGroupColType(2, 0));
  ds.groupKeyList.Clear();
  EXPECT_EQ(0, ds.GetGroupColType(2, 1));
}

}  // namespace
