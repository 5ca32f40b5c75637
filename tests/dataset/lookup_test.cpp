// Lookups: the first row whose cell text equals a text or matches a
// pattern, over visible rows (summary rows passed over) and stored rows,
// and the text of a column by a key in another.
#include <gtest/gtest.h>

#include "Ox_Dataset.h"
#include "rows_test_util.h"

namespace {

using rows_test::Put;
using rows_test::Summary;

const Ox_Variant kNull;

// Columns K STRING and N INT; stored rows:
//   0: K "abc",   N 1
//   1: K null,    N 2
//   2: K "ABC",   N 3
//   3: K "",      N 4
//   4: K "xabcx", N 5
//   5: K "abc",   N 6
void Rows(Ox_Dataset &ds) {
  ds.AddColumn("K", 1, 10, 1);
  ds.AddColumn("N", 2, 0, 1);
  const char *keys[] = {"abc", nullptr, "ABC", "", "xabcx", "abc"};
  for (int i = 0; i < 6; ++i) {
    ds.AppendRow(0);
    if (keys[i] != nullptr) Put(ds, i, 0, Ox_Variant(keys[i]));
    Put(ds, i, 1, Ox_Variant(static_cast<long>(i + 1)));
  }
}

const Ox_AString kK("K");
const Ox_AString kN("N");

// ===========================================================================
// Exact lookups

TEST(LookupRow, FindsTheFirstExactMatch) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  EXPECT_EQ(0, ds.LookupDataRow(kK, "abc", 0, 6));
  EXPECT_EQ(5, ds.LookupDataRow(kK, "abc", 1, 6));
  EXPECT_EQ(-1, ds.LookupDataRow(kK, "abc", 1, 5));
  EXPECT_EQ(-1, ds.LookupDataRow(kK, "zzz", 0, 6));
  // Identifiers ignore case; the text does not.
  EXPECT_EQ(0, ds.LookupDataRow("k", "abc", 0, 6));
}

TEST(LookupRow, ExactLookupCountsCase) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // "ABC" is row 2 only; "abc" never matches it.
  EXPECT_EQ(2, ds.LookupDataRow(kK, "ABC", 0, 6));
  EXPECT_EQ(-1, ds.LookupDataRow(kK, "ABC", 3, 6));
  EXPECT_EQ(2, ds.LookupDataRowNF(kK, "ABC", 0, 6));
  EXPECT_EQ(-1, ds.LookupDataRowNF(kK, "abc", 1, 5));
}

TEST(LookupRow, NumbersCompareByTheirText) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  EXPECT_EQ(3, ds.LookupDataRow(kN, "4", 0, 6));
  EXPECT_EQ(3, ds.LookupDataRowNF(kN, "4", -3, -1));
  EXPECT_EQ(-1, ds.LookupDataRow(kN, "04", 0, 6));
}

TEST(LookupRow, EmptyTextFindsAnEmptyTextNeverANull) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // Row 1 is null and is not tested; row 3 holds "".
  EXPECT_EQ(3, ds.LookupDataRow(kK, "", 0, 6));
  EXPECT_EQ(3, ds.LookupDataRowNF(kK, "", 1, 6));
  EXPECT_EQ(-1, ds.LookupDataRow(kK, "", 4, 6));
}

TEST(LookupRow, FirstBelowZeroIgnoresTheGivenLast) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // first -1: the whole of the rows, `last` 1 notwithstanding.
  EXPECT_EQ(4, ds.LookupDataRow(kK, "xabcx", -1, 1));
  // The stored-row form keeps `last`.
  EXPECT_EQ(-1, ds.LookupDataRowNF(kK, "xabcx", -1, 1));
  EXPECT_EQ(4, ds.LookupDataRowNF(kK, "xabcx", -1, 5));
}

TEST(LookupRow, LastBelowZeroOrBeyondMeansAllRows) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  EXPECT_EQ(5, ds.LookupDataRow(kK, "abc", 1, -1));
  EXPECT_EQ(5, ds.LookupDataRow(kK, "abc", 1, 600));
  EXPECT_EQ(5, ds.LookupDataRowNF(kK, "abc", 1, 600));
  // Empty and reversed ranges.
  EXPECT_EQ(-1, ds.LookupDataRow(kK, "abc", 0, 0));
  EXPECT_EQ(-1, ds.LookupDataRow(kK, "abc", 4, 2));
  EXPECT_EQ(-1, ds.LookupDataRowNF(kK, "abc", 6, 9));
}

TEST(LookupRow, UnknownColumnGivesMinusOne) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  EXPECT_EQ(-1, ds.LookupDataRow("Q", "abc", 0, 6));
  EXPECT_EQ(-1, ds.LookupDataRowNF("Q", "abc", 0, 6));
  EXPECT_EQ(-1, ds.LookupDataRowAs("Q", "%", 0, 6));
  EXPECT_EQ(-1, ds.LookupDataRowNFAs("Q", "%", 0, 6));
}

TEST(LookupRow, VisibleRowsPassOverSummaryRows) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // Visible: 0 = summary of [1, 0), 1 -> 5, 2 -> 0, 3 -> 2.
  ds.recIndexValid = 1;
  for (int entry : {Summary(1, 1), 5, 0, 2}) ds.recIndex.Add(entry);
  EXPECT_EQ(1, ds.LookupDataRow(kK, "abc", 0, 4));
  EXPECT_EQ(2, ds.LookupDataRow(kK, "abc", 2, 4));
  EXPECT_EQ(3, ds.LookupDataRowAs(kK, "AB", 3, 4));
  // Stored rows ignore the index.
  EXPECT_EQ(0, ds.LookupDataRowNF(kK, "abc", 0, 6));
}

TEST(LookupRow, FilteredRows) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  ds.recIndexValid = 1;
  for (int i = 0; i < 6; ++i) ds.recIndex.Add(i);
  ds.filterActive = 1;
  for (int entry : {2, 4}) ds.filterIndex.Add(entry);
  // Visible 0 -> "ABC", 1 -> "xabcx"; row 0 and 5 are filtered out.
  EXPECT_EQ(-1, ds.LookupDataRow(kK, "abc", 0, 6));
  EXPECT_EQ(1, ds.LookupDataRow(kK, "xabcx", 0, 6));
  EXPECT_EQ(0, ds.LookupDataRowAs(kK, "abc", 0, 6));
  EXPECT_EQ(1, ds.LookupDataRowAs(kK, "%b%", 1, 6));
}

// ===========================================================================
// Pattern lookups

TEST(LookupPattern, PercentAloneFindsTheFirstNonNullCell) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  EXPECT_EQ(2, ds.LookupDataRowAs(kK, "%", 1, 6));
  // An empty text is not null.
  EXPECT_EQ(3, ds.LookupDataRowAs(kK, "%", 3, 6));
  EXPECT_EQ(2, ds.LookupDataRowNFAs(kK, "%", 1, 6));
  // An empty pattern matches the same way.
  EXPECT_EQ(2, ds.LookupDataRowAs(kK, "", 1, 6));
  EXPECT_EQ(2, ds.LookupDataRowAs(kK, "%%", 1, 6));
}

TEST(LookupPattern, PatternLookupIgnoresCase) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // The exact lookup misses "ABC" for "abc" from row 1; the pattern finds
  // it.
  EXPECT_EQ(5, ds.LookupDataRow(kK, "abc", 1, 6));
  EXPECT_EQ(2, ds.LookupDataRowAs(kK, "abc", 1, 6));
  EXPECT_EQ(2, ds.LookupDataRowNFAs(kK, "aBc", 1, 6));
}

TEST(LookupPattern, PrefixAndContains) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // "ab" and "ab%" are prefixes: "xabcx" (row 4) does not start with it.
  EXPECT_EQ(5, ds.LookupDataRowAs(kK, "ab", 3, 6));
  EXPECT_EQ(5, ds.LookupDataRowAs(kK, "ab%", 3, 6));
  // "%bc" and "%bc%" are parts anywhere.
  EXPECT_EQ(4, ds.LookupDataRowAs(kK, "%bc", 3, 6));
  EXPECT_EQ(4, ds.LookupDataRowAs(kK, "%BC%", 3, 6));
  EXPECT_EQ(4, ds.LookupDataRowNFAs(kK, "%Cx", 0, 6));
  EXPECT_EQ(-1, ds.LookupDataRowAs(kK, "%zz%", 0, 6));
  // A prefix longer than the cell does not match it.
  EXPECT_EQ(-1, ds.LookupDataRowAs(kK, "abcd", 0, 6));
  // A "%" inside the pattern is an ordinary character.
  EXPECT_EQ(-1, ds.LookupDataRowAs(kK, "a%c", 0, 6));
}

TEST(LookupPattern, RangeRules) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // A first row below 0 starts at 0 and keeps `last`.
  EXPECT_EQ(-1, ds.LookupDataRowAs(kK, "%x%", -5, 4));
  EXPECT_EQ(4, ds.LookupDataRowAs(kK, "%x%", -5, -1));
  EXPECT_EQ(4, ds.LookupDataRowNFAs(kK, "%x%", -5, 99));
  EXPECT_EQ(-1, ds.LookupDataRowAs(kK, "%", 5, 5));
  EXPECT_EQ(-1, ds.LookupDataRowNFAs(kK, "%", 5, 2));
}

// ===========================================================================
// Text by key

TEST(LookupText, ValueOfTheFirstMatchingRow) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  const Ox_Variant *found = ds.LookupDataText(kK, "abc", kN);
  ASSERT_NE(nullptr, found);
  EXPECT_EQ(1, found->ToInteger());
  found = ds.LookupDataText(kK, "ABC", kN);
  ASSERT_NE(nullptr, found);
  EXPECT_EQ(3, found->ToInteger());
  // By number text, and the key column as the value.
  found = ds.LookupDataText(kN, "5", kK);
  ASSERT_NE(nullptr, found);
  EXPECT_STREQ("xabcx", found->ToString().GetString());
  // The empty text finds row 3, not the null of row 1.
  found = ds.LookupDataText(kK, "", kN);
  ASSERT_NE(nullptr, found);
  EXPECT_EQ(4, found->ToInteger());
}

TEST(LookupText, NotFoundOrUnknownColumnGivesNull) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  EXPECT_EQ(nullptr, ds.LookupDataText(kK, "nope", kN));
  EXPECT_EQ(nullptr, ds.LookupDataText("Q", "abc", kN));
  EXPECT_EQ(nullptr, ds.LookupDataText(kK, "abc", "Q"));
}

TEST(LookupText, IgnoresFilterAndLevels) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  ds.recIndexValid = 1;
  ds.recIndex.Add(Summary(1, 0));
  ds.recIndex.Add(4);
  ds.filterActive = 1;
  ds.filterIndex.Add(1);
  const Ox_Variant *found = ds.LookupDataText(kK, "abc", kN);
  ASSERT_NE(nullptr, found);
  EXPECT_EQ(1, found->ToInteger());
}

TEST(LookupText, MissingValueCellGivesNull) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  ds.AddColumn("V", 1, 0, 1);
  // Rows were made before V: their records are shorter than column 2.
  const Ox_Record *row = ds.recs.GetItem(0);
  ASSERT_NE(nullptr, row);
  if (row->GetItem(2) == nullptr) {
    EXPECT_EQ(nullptr, ds.LookupDataText(kK, "abc", "V"));
  } else {
    // A null cell stored in place: a pointer to it.
    const Ox_Variant *found = ds.LookupDataText(kK, "abc", "V");
    ASSERT_NE(nullptr, found);
    EXPECT_EQ(Ox_Variant::kNull, found->GetType());
  }
}

TEST(LookupText, IntoOut) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  Ox_Variant out("old");
  ds.LookupDataText(kK, "xabcx", kN, out);
  EXPECT_EQ(Ox_Variant::kInteger, out.GetType());
  EXPECT_EQ(5, out.ToInteger());
  // Nothing found: `out` is cleared.
  ds.LookupDataText(kK, "nope", kN, out);
  EXPECT_EQ(Ox_Variant::kNull, out.GetType());
  out = "old";
  ds.LookupDataText("Q", "abc", kN, out);
  EXPECT_EQ(Ox_Variant::kNull, out.GetType());
}

TEST(LookupText, LinkedDatasetLeavesOutAloneWhenNothingMatches) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds);
  // Rows kept in a node list: an empty one here, so nothing matches.
  ds.editable = 0;
  ds.xmlDataset = 1;
  Ox_Variant out("old");
  ds.LookupDataText(kK, "abc", kN, out);
  EXPECT_STREQ("old", out.ToString().GetString());
}

TEST(LookupText, ViewAsksItsBoundDataset) {
  Ox_Dataset bound(65001u, 1);
  Rows(bound);
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, bound);
  const Ox_Variant *found = view.LookupDataText(kK, "ABC", kN);
  EXPECT_EQ(bound.LookupDataText(kK, "ABC", kN), found);
  ASSERT_NE(nullptr, found);
  EXPECT_EQ(3, found->ToInteger());
  Ox_Variant out;
  view.LookupDataText(kK, "abc", kN, out);
  EXPECT_EQ(1, out.ToInteger());
  // A view with nothing bound finds nothing.
  Ox_Dataset loose(65001u, 1);
  loose.logicalType = 32;
  EXPECT_EQ(nullptr, loose.LookupDataText(kK, "abc", kN));
}

TEST(LookupRow, ViewRows) {
  Ox_Dataset bound(65001u, 1);
  Rows(bound);
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, bound);
  view.recIndexValid = 1;
  // Visible 0 -> stored 4, 1 -> stored 0.
  for (int v : {4, 0, 0, 0}) view.recIndex.Add(v);
  EXPECT_EQ(1, view.LookupDataRow(kK, "abc", 0, 9));
  EXPECT_EQ(0, view.LookupDataRowAs(kK, "%abc%", -1, 9));
  // Stored rows of the view: the bound rows, the count that of its pairs.
  EXPECT_EQ(0, view.LookupDataRowNF(kK, "abc", 0, 9));
  EXPECT_EQ(-1, view.LookupDataRowNF(kK, "xabcx", 0, 9));
}

}  // namespace
