// Cells of summary rows: computed from the detail rows by the readers by
// value, and given only where a stored cell is the answer by the readers
// by pointer. The group index entries are written by hand: an entry with
// a level above 0 is a summary row whose value is the position of its
// group's first detail row (the last with reversed sub-sums).
#include <gtest/gtest.h>

#include "Ox_Dataset.h"
#include "rows_test_util.h"

namespace {

using rows_test::Summary;

// Columns A INT and B STRING, summary word 1 (kind 0), and rows
// A = 0, 10, 20, B = "r0", "r1", "r2"; then the summary columns
// C INT count, D DECIMAL sum, E DECIMAL max, F DECIMAL min, G DECIMAL avg,
// H STRING text "Total", I INT countnn, each holding 1.5 * i (H: "h").
void Rows(Ox_Dataset &ds) {
  rows_test::Fill(ds, 3);
  ds.AddColumn("C", 2, 0, 32);
  ds.AddColumn("D", 4, 0, 64);
  ds.AddColumn("E", 4, 0, 80);
  ds.AddColumn("F", 4, 0, 96);
  ds.AddColumn("G", 4, 0, 112);
  ds.AddColumn("H", 1, 0, 144);
  ds.AddColumn("I", 2, 0, 48);
  ds.GetSafeColInfo(7)->summText = "Total";
  for (int i = 0; i < 3; ++i) {
    for (int col = 2; col <= 6; ++col) ds.SetColumnNF(i, col, 1.5 * i);
    ds.SetColumnNF(i, 7, "h", 1);
  }
  // I: null in row 1.
  ds.SetColumnNF(0, 8, 4);
  ds.SetColumnNF(2, 8, 6);
}

// Visible rows: 0 -> stored 0, 1 -> stored 1, 2 = summary of [0, 2),
// 3 -> stored 2, 4 = summary of [3, 4).
void Grouped(Ox_Dataset &ds) {
  Rows(ds);
  ds.recIndexValid = 1;
  ds.recIndex.Add(0);
  ds.recIndex.Add(1);
  ds.recIndex.Add(Summary(1, 0));
  ds.recIndex.Add(2);
  ds.recIndex.Add(Summary(1, 3));
}

Ox_Variant Value(const Ox_Dataset &ds, int row, const char *col) {
  Ox_Variant out;
  ds.GetColumn(row, col, out);
  return out;
}

TEST(CellsSummary, StringKindZeroOneRowGivesItsValue) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  const Ox_Variant one = Value(ds, 4, "B");
  EXPECT_EQ(Ox_Variant::kString, one.GetType());
  EXPECT_STREQ("r2", one.ToString().GetString());
  // Two detail rows: the summary text, empty by default.
  const Ox_Variant two = Value(ds, 2, "B");
  EXPECT_EQ(Ox_Variant::kString, two.GetType());
  EXPECT_STREQ("", two.ToString().GetString());
}

TEST(CellsSummary, IntKindZeroSeveralRowsGivesTheSum) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  // 0 + 10, in integer mode since the first detail cell is an integer.
  const Ox_Variant sum = Value(ds, 2, "A");
  EXPECT_EQ(Ox_Variant::kInteger, sum.GetType());
  EXPECT_EQ(10, sum.ToInteger());
  EXPECT_EQ(20, Value(ds, 4, "A").ToInteger());
}

TEST(CellsSummary, PointerGivesNullWhereAValueIsComputed) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  EXPECT_EQ(nullptr, ds.GetColumn(2, 0));
  EXPECT_EQ(nullptr, ds.GetColumn(2, "B"));
  // The one place where an NN read gives null.
  EXPECT_EQ(nullptr, ds.GetColumnNN(2, 0));
  // One detail row: its stored cell, whatever the kind.
  EXPECT_EQ(ds.recs.GetItem(2)->GetItem(0), ds.GetColumn(4, 0));
  EXPECT_EQ(ds.recs.GetItem(2)->GetItem(2), ds.GetColumn(4, "C"));
  EXPECT_EQ(ds.recs.GetItem(2)->GetItem(0), ds.GetColumnNN(4, 0));
}

TEST(CellsSummary, KindsOfTheSummaryWord) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  // Detail rows of row 2: stored 0 and 1, cells 0.0 and 1.5.
  const Ox_Variant count = Value(ds, 2, "C");
  EXPECT_EQ(Ox_Variant::kInteger, count.GetType());
  EXPECT_EQ(2, count.ToInteger());
  const Ox_Variant sum = Value(ds, 2, "D");
  EXPECT_EQ(Ox_Variant::kDecimal, sum.GetType());
  EXPECT_DOUBLE_EQ(1.5, sum.ToDouble());
  EXPECT_DOUBLE_EQ(1.5, Value(ds, 2, "E").ToDouble());
  EXPECT_DOUBLE_EQ(0.0, Value(ds, 2, "F").ToDouble());
  EXPECT_EQ(Ox_Variant::kDecimal, Value(ds, 2, "F").GetType());
  const Ox_Variant avg = Value(ds, 2, "G");
  EXPECT_EQ(Ox_Variant::kDecimal, avg.GetType());
  EXPECT_DOUBLE_EQ(0.75, avg.ToDouble());
  EXPECT_STREQ("Total", Value(ds, 2, "H").ToString().GetString());
  // Count of non-null: row 0 holds 4, row 1 null.
  const Ox_Variant cnn = Value(ds, 2, "I");
  EXPECT_EQ(Ox_Variant::kInteger, cnn.GetType());
  EXPECT_EQ(1, cnn.ToInteger());
  // The kind decides even for one detail row: the text kind.
  EXPECT_STREQ("Total", Value(ds, 4, "H").ToString().GetString());
}

TEST(CellsSummary, AverageCountsNullsInTheDivisor) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  // G of stored 1 null: (0 + null) / 2 detail rows.
  ds.recs.GetItem(0)->GetSafeItem(6)->Set(3.0);
  ds.recs.GetItem(1)->GetSafeItem(6)->Clear();
  EXPECT_DOUBLE_EQ(1.5, Value(ds, 2, "G").ToDouble());
  // Max and min pass over the null.
  ds.recs.GetItem(1)->GetSafeItem(4)->Clear();
  EXPECT_DOUBLE_EQ(0.0, Value(ds, 2, "E").ToDouble());
}

TEST(CellsSummary, GroupDatasetSumsCountColumns) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  ds.logicalType = 35;
  ds.groupFlag = 1;
  ASSERT_TRUE(ds.IsGroup());
  // Stored rows hold counts: C of stored 0 and 1 made 3 and 4.
  ds.recs.GetItem(0)->GetSafeItem(2)->Set(3L);
  ds.recs.GetItem(1)->GetSafeItem(2)->Set(4L);
  EXPECT_EQ(7, Value(ds, 2, "C").ToInteger());
  // countnn sums too: I is 4 and null.
  EXPECT_EQ(4, Value(ds, 2, "I").ToInteger());
}

TEST(CellsSummary, KeyOfTheGroupGivesTheFirstDetailCell) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  ds.groupKeyList.Add(Summary(1, 1));  // B is the key of level 1
  EXPECT_STREQ("r0", Value(ds, 2, "B").ToString().GetString());
  EXPECT_EQ(ds.recs.GetItem(0)->GetItem(1), ds.GetColumn(2, 1));
  // A key column with a summary kind still gives the key.
  ds.GetSafeColInfo(1)->summ = 144;
  EXPECT_STREQ("r0", Value(ds, 2, "B").ToString().GetString());
}

// A level-2 summary over the level-1 groups of Grouped: visible row 5,
// range [0, 5), plain rows 0, 1 and 3 (n = 3); B the key of level 1.
void TwoLevels(Ox_Dataset &ds) {
  Grouped(ds);
  ds.recIndex.Add(Summary(2, 0));
  ds.groupKeyList.Add(Summary(1, 1));
}

TEST(CellsSummary, FinerKeyThatDiffersGivesNothing) {
  Ox_Dataset ds(65001u, 1);
  TwoLevels(ds);
  // The level-1 groups start at "r0" and "r2": not single.
  Ox_Variant out(7L);
  ds.GetColumn(5, "B", out);
  EXPECT_EQ(7, out.ToInteger());
  EXPECT_EQ(nullptr, ds.GetColumn(5, "B"));
  EXPECT_EQ(nullptr, ds.GetColumnNN(5, "B"));
  // Not a key: A sums the three plain rows.
  EXPECT_EQ(30, Value(ds, 5, "A").ToInteger());
  EXPECT_EQ(3, Value(ds, 5, "C").ToInteger());
}

TEST(CellsSummary, FinerKeyThatIsSingleGivesItsValue) {
  Ox_Dataset ds(65001u, 1);
  TwoLevels(ds);
  ds.recs.GetItem(2)->GetSafeItem(1)->Set("r0");
  EXPECT_STREQ("r0", Value(ds, 5, "B").ToString().GetString());
  EXPECT_EQ(ds.recs.GetItem(0)->GetItem(1), ds.GetColumn(5, "B"));
}

TEST(CellsSummary, FinerKeyOfKindDefaultGivesTheLabel) {
  Ox_Dataset ds(65001u, 1);
  TwoLevels(ds);
  Ox_ColInfo *b = ds.GetSafeColInfo(1);
  b->summ = 17;  // kind 16 as the XML reader stores it
  b->summText = "subtotal";
  EXPECT_STREQ("subtotal", Value(ds, 5, "B").ToString().GetString());
  // Where B is no key, kind 16 follows the default rule.
  ds.groupKeyList.Clear();
  EXPECT_STREQ("subtotal", Value(ds, 5, "B").ToString().GetString());
  EXPECT_STREQ("r2", Value(ds, 4, "B").ToString().GetString());
}

TEST(CellsSummary, ReversedSubSums) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // The summary row stands first; its value is its group's last detail
  // row: range [1, 3), the rows of stored 0 and 1.
  ds.reverseSubSum = 1;
  ds.recIndexValid = 1;
  ds.recIndex.Add(Summary(1, 2));
  ds.recIndex.Add(0);
  ds.recIndex.Add(1);
  EXPECT_EQ(10, Value(ds, 0, "A").ToInteger());
  EXPECT_EQ(2, Value(ds, 0, "C").ToInteger());
  EXPECT_EQ(nullptr, ds.GetColumn(0, "A"));
}

TEST(CellsSummary, SummaryInTheFilterIndex) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  ds.recIndexValid = 1;
  ds.recIndex.Reset(3);
  ds.filterActive = 1;
  ds.filterIndex.Add(2);  // visible 0 -> stored 2 (A 20)
  ds.filterIndex.Add(1);  // visible 1 -> stored 1 (A 10)
  ds.filterIndex.Add(Summary(1, 0));
  EXPECT_EQ(30, Value(ds, 2, "A").ToInteger());
  EXPECT_EQ(2, Value(ds, 2, "C").ToInteger());
  // The first detail row is recIndex[filterIndex[0]], stored 2.
  ds.groupKeyList.Add(Summary(1, 1));
  EXPECT_STREQ("r2", Value(ds, 2, "B").ToString().GetString());
  EXPECT_EQ(ds.recs.GetItem(2)->GetItem(1), ds.GetColumn(2, "B"));
}

TEST(CellsSummary, SummaryOfAView) {
  Ox_Dataset bound(65001u, 1);
  Rows(bound);
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, bound);
  view.recIndexValid = 1;
  view.recIndex.Add2(1, 0);
  view.recIndex.Add2(2, 0);
  view.recIndex.Add2(Summary(1, 0), 0);
  // Rows of stored 1 and 2: A 10 + 20, two rows counted.
  EXPECT_EQ(30, Value(view, 2, "A").ToInteger());
  EXPECT_EQ(2, Value(view, 2, "C").ToInteger());
  EXPECT_EQ(nullptr, view.GetColumn(2, "A"));
}

TEST(CellsSummary, SetOnGroupedDatasetRecomputesAtTheNextRead) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  EXPECT_EQ(1, ds.SetColumn(1, "A", 100));
  EXPECT_EQ(100, Value(ds, 2, "A").ToInteger());
}

TEST(CellsSummary, HostileIndexEntriesReadSafely) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  ds.recIndexValid = 1;
  ds.recIndex.Add(0x00FFFFFF);           // a stored row far beyond recs
  ds.recIndex.Add(Summary(1, 0xFFFFFF)); // a group that starts nowhere
  ds.recIndex.Add(Summary(200, 1));
  ds.groupKeyList.Add(Summary(3, 1));
  for (int reverse = 0; reverse < 2; ++reverse) {
    ds.reverseSubSum = reverse;
    for (int row = -1; row < 4; ++row) {
      for (int col = -1; col < 10; ++col) {
        Ox_Variant out(7L);
        ds.GetColumn(row, col, out);
        ds.GetColumn(row, col);
        ds.GetColumnNN(row, col);
        ds.GetOrgColumn(row, col);
        ds.GetOrgColumnNN(row, col);
      }
    }
  }
  // The row beyond recs, the summary rows and the end are all refused.
  for (int row = 0; row < 4; ++row) EXPECT_EQ(0, ds.SetColumn(row, 0, 1));
  // A group that starts beyond every row has no detail rows: kind 0 on an
  // INT column sums nothing to the double 0.
  ds.reverseSubSum = 0;
  Ox_Variant out;
  ds.GetColumn(1, 0, out);
  EXPECT_EQ(Ox_Variant::kDecimal, out.GetType());
  EXPECT_DOUBLE_EQ(0.0, out.ToDouble());
  EXPECT_EQ(nullptr, ds.GetColumn(1, 0));
}

}  // namespace
