// Aggregates over a range of rows: count, sum, maximum, minimum, average
// and count of non-null cells, over visible rows (summary rows passed
// over) and over stored rows. Cells are written straight into the stored
// rows, so each test knows each cell's exact type. Indexes are set by
// hand: an entry with a level above 0 is a summary row.
#include <gtest/gtest.h>

#include <cstdint>

#include "Ox_Dataset.h"
#include "rows_test_util.h"

namespace {

using rows_test::Put;
using rows_test::Summary;

const Ox_Variant kNull;

// Columns I INT, D DECIMAL, S STRING, C CURRENCY, T DATE, B BLOB, each
// summary word 1.
void Columns(Ox_Dataset &ds) {
  ds.AddColumn("I", 2, 0, 1);
  ds.AddColumn("D", 4, 0, 1);
  ds.AddColumn("S", 1, 10, 1);
  ds.AddColumn("C", 5, 0, 1);
  ds.AddColumn("T", 8, 0, 1);
  ds.AddColumn("B", 9, 0, 1);
}

enum { kI = 0, kD = 1, kS = 2, kC = 3, kT = 4, kB = 5 };

// `n` rows of null cells.
void Rows(Ox_Dataset &ds, int n) {
  Columns(ds);
  for (int i = 0; i < n; ++i) ds.AppendRow(0);
}

// Column `col` of the stored rows from 0 on takes `values`.
void Column(Ox_Dataset &ds, int col, std::initializer_list<Ox_Variant> values) {
  int row = 0;
  for (const Ox_Variant &v : values) Put(ds, row++, col, v);
}

Ox_Variant Sum(const Ox_Dataset &ds, int col, int first, int last) {
  Ox_Variant out;
  ds.GetSum(col, first, last, out, -1);
  return out;
}

Ox_Variant SumNF(const Ox_Dataset &ds, int col, int first, int last) {
  Ox_Variant out;
  ds.GetSumNF(col, first, last, out, -1);
  return out;
}

Ox_Variant Max(const Ox_Dataset &ds, int col, int first, int last) {
  Ox_Variant out;
  ds.GetMax(col, first, last, out, -1);
  return out;
}

Ox_Variant Min(const Ox_Dataset &ds, int col, int first, int last) {
  Ox_Variant out;
  ds.GetMin(col, first, last, out, -1);
  return out;
}

Ox_Variant MaxNF(const Ox_Dataset &ds, int col, int first, int last) {
  Ox_Variant out;
  ds.GetMaxNF(col, first, last, out, -1);
  return out;
}

Ox_Variant MinNF(const Ox_Dataset &ds, int col, int first, int last) {
  Ox_Variant out;
  ds.GetMinNF(col, first, last, out, -1);
  return out;
}

Ox_Variant Cnn(const Ox_Dataset &ds, int col, int first, int last) {
  Ox_Variant out;
  ds.GetCnn(col, first, last, out, -1);
  return out;
}

void ExpectInteger(long expected, const Ox_Variant &v) {
  EXPECT_EQ(Ox_Variant::kInteger, v.GetType());
  EXPECT_EQ(expected, v.ToInteger());
}

void ExpectDouble(double expected, const Ox_Variant &v) {
  EXPECT_EQ(Ox_Variant::kDecimal, v.GetType());
  EXPECT_DOUBLE_EQ(expected, v.ToDouble());
}

Ox_Variant Date(double days) {
  Ox_Variant v;
  v.SetDate(days);
  return v;
}

Ox_Variant Money(double amount) {
  Ox_Variant v;
  v.SetCurrency(amount);
  return v;
}

// Five stored rows with I = 1..5; recIndex in force with visible rows
// 0 -> 0, 1 -> 1, 2 = summary (level 1) of [0, 2), 3 -> 2, 4 -> 3,
// 5 -> 4, 6 = summary of [3, 6).
void Grouped(Ox_Dataset &ds) {
  Rows(ds, 5);
  Column(ds, kI,
         {Ox_Variant(1L), Ox_Variant(2L), Ox_Variant(3L), Ox_Variant(4L),
          Ox_Variant(5L)});
  ds.recIndexValid = 1;
  for (int entry : {0, 1, Summary(1, 0), 2, 3, 4, Summary(1, 3)})
    ds.recIndex.Add(entry);
}

// ===========================================================================
// Sum

TEST(AggregatesSum, IntColumnGivesAnInteger) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(2L), Ox_Variant(4L)});
  ExpectInteger(7, Sum(ds, kI, 0, 3));
  ExpectInteger(7, Sum(ds, kI, 0, 3));
}

TEST(AggregatesSum, DecimalColumnGivesADouble) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kD, {Ox_Variant(1.5), Ox_Variant(2.0), Ox_Variant(0.25)});
  ExpectDouble(3.75, Sum(ds, kD, 0, 3));
  // A column of whole-numbered doubles is still summed as doubles.
  Column(ds, kD, {Ox_Variant(1.0), Ox_Variant(2.0), Ox_Variant(3.0)});
  ExpectDouble(6.0, Sum(ds, kD, 0, 3));
}

TEST(AggregatesSum, StringColumnOfNumericTextGivesADouble) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kS, {Ox_Variant("1"), Ox_Variant("2.5"), Ox_Variant("x")});
  // "x" reads as 0 like atof.
  ExpectDouble(3.5, Sum(ds, kS, 0, 3));
}

TEST(AggregatesSum, FirstCellNullMakesADoubleSum) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kI, {kNull, Ox_Variant(2L), Ox_Variant(3L)});
  ExpectDouble(5.0, Sum(ds, kI, 0, 3));
  // From row 1 the first cell is an integer: integer mode.
  ExpectInteger(5, Sum(ds, kI, 1, 3));
}

TEST(AggregatesSum, NullCellsAddNothingInIntegerMode) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 4);
  Column(ds, kI, {Ox_Variant(2L), kNull, Ox_Variant(3L), kNull});
  ExpectInteger(5, Sum(ds, kI, 0, 4));
}

TEST(AggregatesSum, IntegerModeWrapsAndCutsLaterDoubles) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  // 2147483647 + 1 wraps to -2147483648 in the 32-bit sum.
  Column(ds, kI, {Ox_Variant(2147483647L), Ox_Variant(1L)});
  ExpectInteger(-2147483647L - 1, Sum(ds, kI, 0, 2));
  // Integer mode: the decimal 2.7 adds ToInteger(2.7) = 2, and the text
  // "4" adds 4: 1 + 2 + 4 = 7.
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(2.7), Ox_Variant("4")});
  ExpectInteger(7, Sum(ds, kI, 0, 3));
  // Double mode from a decimal first cell: 2.7 + 1 + 4 = 7.7.
  Column(ds, kI, {Ox_Variant(2.7), Ox_Variant(1L), Ox_Variant("4")});
  ExpectDouble(7.7, Sum(ds, kI, 0, 3));
}

TEST(AggregatesSum, ColumnMinusOneGivesDoubleZero) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 2);
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(2L)});
  ExpectDouble(0.0, Sum(ds, -1, 0, 2));
  // An unknown identifier arrives as -1.
  Ox_Variant out(5L);
  ds.GetSum("nothing", 0, 2, out, -1);
  ExpectDouble(0.0, out);
  ExpectDouble(0.0, SumNF(ds, -1, 0, 2));
}

TEST(AggregatesSum, ByIdentifier) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 2);
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(2L)});
  Ox_Variant out;
  ds.GetSum("i", 0, 2, out, -1);  // identifiers ignore case
  ExpectInteger(3, out);
  out.Clear();
  ds.GetSumNF("I", 0, 2, out, -1);
  ExpectInteger(3, out);
}

TEST(AggregatesSum, ConstantColumnTimesPlainRows) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 4);
  ds.AddConstColumn("K", Ox_Variant(2.5));
  const int k = ds.GetColIndex("K");
  ASSERT_EQ(6, k);
  // 2.5 * 4 rows.
  ExpectDouble(10.0, Sum(ds, k, 0, 4));
  // `last` is capped to the 4 rows: still 10.
  ExpectDouble(10.0, Sum(ds, k, 0, 100));
  // An empty range, and a reversed one, give the double 0.
  ExpectDouble(0.0, Sum(ds, k, 2, 2));
  ExpectDouble(0.0, Sum(ds, k, 3, 1));
  // A constant integer still gives a double.
  ds.AddConstColumn("N", Ox_Variant(3L));
  ExpectDouble(6.0, Sum(ds, ds.GetColIndex("N"), 1, 3));
  // A constant number that does not exist: 0.
  ExpectDouble(0.0, Sum(ds, 9, 0, 4));
}

TEST(AggregatesSum, ConstantColumnCountsOnlyPlainRows) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  ds.AddConstColumn("K", Ox_Variant(2.0));
  // Visible rows 0..6 hold 5 plain rows and 2 summary rows: 2.0 * 5.
  ExpectDouble(10.0, Sum(ds, 6, 0, 7));
}

TEST(AggregatesSum, EmptyReversedAndOutOfRangeBounds) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(2L), Ox_Variant(4L)});
  ExpectDouble(0.0, Sum(ds, kI, 1, 1));
  ExpectDouble(0.0, Sum(ds, kI, 2, 0));
  // A physical dataset does not cap `last`: rows beyond read as null.
  ExpectInteger(7, Sum(ds, kI, 0, 1000000));
  // Row -2 is the first: it reads nothing, so the sum is a double.
  ExpectDouble(3.0, Sum(ds, kI, -2, 2));
  // A range wholly beyond the rows: null first cell, double 0.
  ExpectDouble(0.0, Sum(ds, kI, 10, 20));
  // The widest range answers at once, with the same results: the rows
  // outside the dataset are null.
  ExpectDouble(7.0, Sum(ds, kI, INT32_MIN, INT32_MAX));
  ExpectInteger(3, Cnn(ds, kI, INT32_MIN, INT32_MAX));
  ExpectInteger(4, Max(ds, kI, INT32_MIN, INT32_MAX));
  EXPECT_EQ(Ox_Variant::kNull, MinNF(ds, kI, INT32_MIN, INT32_MAX).GetType());
}

TEST(AggregatesSum, SummaryRowsArePassedOver) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  // All visible rows: 1 + 2 + 3 + 4 + 5, the summary rows left out.
  ExpectInteger(15, Sum(ds, kI, 0, 7));
  // A range that starts on a summary row is summed as doubles: rows 3, 4
  // hold 3 and 4.
  ExpectDouble(7.0, Sum(ds, kI, 2, 5));
}

TEST(AggregatesSum, FilteredRows) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 4);
  Column(ds, kI,
         {Ox_Variant(1L), Ox_Variant(2L), Ox_Variant(4L), Ox_Variant(8L)});
  ds.recIndexValid = 1;
  for (int i = 0; i < 4; ++i) ds.recIndex.Add(i);
  // The filter leaves rows 1 and 3 visible.
  ds.filterActive = 1;
  ds.filterIndex.Add(1);
  ds.filterIndex.Add(3);
  ExpectInteger(10, Sum(ds, kI, 0, 2));
  ExpectInteger(8, Sum(ds, kI, 1, 2));
  // The stored rows are not filtered.
  ExpectInteger(15, SumNF(ds, kI, 0, 4));
}

TEST(AggregatesSum, EveryColumnType) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kC, {Money(1.25), kNull, Money(2.5)});
  Column(ds, kT, {Date(10.0), Date(2.5), kNull});
  Ox_Variant blob;
  const unsigned char bytes[] = {1, 2};
  blob.SetBinary(bytes, 2);
  Column(ds, kB, {blob, blob});
  // Currency and date sum their ToDouble values as doubles.
  ExpectDouble(3.75, Sum(ds, kC, 0, 3));
  ExpectDouble(12.5, Sum(ds, kT, 0, 3));
  // Bytes read as the number 0.
  ExpectDouble(0.0, Sum(ds, kB, 0, 3));
  // A column of nulls only.
  ExpectDouble(0.0, Sum(ds, kS, 0, 3));
}

TEST(AggregatesSum, StoredRowsIgnoreLevels) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  // Stored rows 0..4, whatever the index says.
  ExpectInteger(15, SumNF(ds, kI, 0, 5));
  ExpectInteger(9, SumNF(ds, kI, 3, 5));
  ExpectDouble(0.0, SumNF(ds, kI, 4, 4));
}

TEST(AggregatesSum, StoredRowsConstantTimesRangeLength) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  ds.AddConstColumn("K", Ox_Variant(1.5));
  // Capped to the 5 stored rows: 1.5 * (5 - 1); levels play no part.
  ExpectDouble(6.0, SumNF(ds, 6, 1, 50));
  // A negative first row lengthens the range: 1.5 * (2 - -2).
  ExpectDouble(6.0, SumNF(ds, 6, -2, 2));
  ExpectDouble(0.0, SumNF(ds, 6, 5, 50));
}

TEST(AggregatesSum, ViewCapsLastAndReadsTheBoundRows) {
  Ox_Dataset bound(65001u, 1);
  Rows(bound, 3);
  Column(bound, kI, {Ox_Variant(1L), Ox_Variant(2L), Ox_Variant(4L)});
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, bound);
  view.recIndexValid = 1;
  // Two visible rows (pairs): stored 2, then stored 0.
  for (int v : {2, 0, 0, 0}) view.recIndex.Add(v);
  ASSERT_EQ(2, view.GetRowCount());
  ExpectInteger(5, Sum(view, kI, 0, 100));
  ExpectInteger(4, Sum(view, kI, 0, 1));
  // A view walks a constant column cell by cell: the constant integer 3
  // on two rows is summed in integer mode.
  bound.AddConstColumn("K", Ox_Variant(3L));
  ExpectInteger(6, Sum(view, 6, 0, 2));
  // Stored rows of a view: the bound rows from 0, `last` capped to the
  // view's stored count, its two pairs: 1 + 2.
  ExpectInteger(3, SumNF(view, kI, 0, 10));
}

TEST(AggregatesSum, ViewWithoutBoundDatasetGivesZero) {
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  ExpectDouble(0.0, Sum(view, 0, 0, 5));
}

TEST(AggregatesSum, LargeIntegerColumn) {
  // 100000 rows of i % 7: the sum is worked out as a closed form.
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("I", 2, 0, 1);
  const int n = 100000;
  long expected = 0;
  for (int i = 0; i < n; ++i) {
    ds.AppendRow(0);
    Put(ds, i, 0, Ox_Variant(static_cast<long>(i % 7)));
  }
  // 14285 full cycles of 0..6 (21 each), then 0..4 (10).
  expected = 14285L * 21 + 10;
  ExpectInteger(expected, Sum(ds, 0, 0, n));
}

// ===========================================================================
// Maximum and minimum

TEST(AggregatesExtreme, MaxSkipsNulls) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 4);
  Column(ds, kI, {Ox_Variant(1L), kNull, Ox_Variant(3L), Ox_Variant(2L)});
  ExpectInteger(3, Max(ds, kI, 0, 4));
  ExpectInteger(1, Min(ds, kI, 0, 4));
  // A range of nulls only leaves `out` null.
  EXPECT_EQ(Ox_Variant::kNull, Max(ds, kS, 0, 4).GetType());
  EXPECT_EQ(Ox_Variant::kNull, Min(ds, kI, 1, 2).GetType());
}

TEST(AggregatesExtreme, StoredRowsLetNullsRestartTheExtreme) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  // 1, null, 2: the null replaces 1, then 2 is taken.
  Column(ds, kI, {Ox_Variant(1L), kNull, Ox_Variant(2L)});
  ExpectInteger(2, MaxNF(ds, kI, 0, 3));
  // 3, null, 2: the 3 is lost behind the null.
  Column(ds, kI, {Ox_Variant(3L), kNull, Ox_Variant(2L)});
  ExpectInteger(2, MaxNF(ds, kI, 0, 3));
  ExpectInteger(3, Max(ds, kI, 0, 3));
  // Minimum: 1, null, 2 gives 2; the visible form gives 1.
  Column(ds, kI, {Ox_Variant(1L), kNull, Ox_Variant(2L)});
  ExpectInteger(2, MinNF(ds, kI, 0, 3));
  ExpectInteger(1, Min(ds, kI, 0, 3));
  // A null at the end leaves null.
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(2L), kNull});
  EXPECT_EQ(Ox_Variant::kNull, MaxNF(ds, kI, 0, 3).GetType());
}

TEST(AggregatesExtreme, OutTakesPart) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(5L), Ox_Variant(3L)});
  // A greater value in `out` stays as it was, type and all.
  Ox_Variant out(100.5);
  ds.GetMax(kI, 0, 3, out, -1);
  ExpectDouble(100.5, out);
  // A smaller one gives way to the range's maximum.
  out = 2L;
  ds.GetMax(kI, 0, 3, out, -1);
  ExpectInteger(5, out);
  // The same for the minimum.
  out = -1L;
  ds.GetMin(kI, 0, 3, out, -1);
  ExpectInteger(-1, out);
  out = 4L;
  ds.GetMin("I", 0, 3, out, -1);
  ExpectInteger(1, out);
}

TEST(AggregatesExtreme, EveryColumnType) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kD, {Ox_Variant(1.5), Ox_Variant(-2.5), Ox_Variant(0.5)});
  Column(ds, kS, {Ox_Variant("apple"), Ox_Variant("pear"), Ox_Variant("fig")});
  Column(ds, kC, {Money(3.5), Money(1.25), kNull});
  Column(ds, kT, {Date(5.0), kNull, Date(7.5)});
  ExpectDouble(1.5, Max(ds, kD, 0, 3));
  ExpectDouble(-2.5, Min(ds, kD, 0, 3));
  // Texts compare byte by byte.
  EXPECT_STREQ("pear", Max(ds, kS, 0, 3).ToString().GetString());
  EXPECT_STREQ("apple", Min(ds, kS, 0, 3).ToString().GetString());
  const Ox_Variant money = Max(ds, kC, 0, 3);
  EXPECT_EQ(Ox_Variant::kCurrency, money.GetType());
  EXPECT_DOUBLE_EQ(3.5, money.ToDouble());
  const Ox_Variant date = Min(ds, kT, 0, 3);
  EXPECT_EQ(Ox_Variant::kDate, date.GetType());
  EXPECT_DOUBLE_EQ(5.0, date.ToDouble());
}

TEST(AggregatesExtreme, SummaryRowsAndFilter) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  // Visible rows 2..4: a summary row (passed over), then 3 and 4.
  ExpectInteger(4, Max(ds, kI, 2, 5));
  ExpectInteger(3, Min(ds, kI, 2, 5));
  // Stored rows pass over nothing.
  ExpectInteger(1, MinNF(ds, kI, 0, 5));
  ExpectInteger(5, MaxNF(ds, kI, 0, 5));
}

TEST(AggregatesExtreme, EmptyReversedAndOutOfRange) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(5L), Ox_Variant(3L)});
  EXPECT_EQ(Ox_Variant::kNull, Max(ds, kI, 2, 2).GetType());
  EXPECT_EQ(Ox_Variant::kNull, Max(ds, kI, 3, 0).GetType());
  // Rows outside the dataset read null and are passed over.
  ExpectInteger(5, Max(ds, kI, -10, 2000000000));
  ExpectInteger(1, Min(ds, kI, -10, 2000000000));
  // The stored-row form lets the null rows beyond the end take part.
  EXPECT_EQ(Ox_Variant::kNull, MaxNF(ds, kI, 0, 10).GetType());
  // Rows below 0 come first, so they are forgotten behind the real ones.
  ExpectInteger(5, MaxNF(ds, kI, -10, 3));
  // A column below 0 reads nothing.
  EXPECT_EQ(Ox_Variant::kNull, Max(ds, -1, 0, 3).GetType());
}

TEST(AggregatesExtreme, ConstantColumn) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 2);
  ds.AddConstColumn("K", Ox_Variant(7L));
  // Every row reads the constant.
  ExpectInteger(7, Max(ds, 6, 0, 2));
  ExpectInteger(7, Min(ds, 6, 0, 2000000000));
  Ox_Variant out(9L);
  ds.GetMax(6, 0, 2, out, -1);
  ExpectInteger(9, out);
}

// ===========================================================================
// Count, average and count of non-null cells

TEST(AggregatesCount, PlainRowsOfTheRange) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 4);
  // No index: last - first, `last` capped to the rows, no lower limit.
  EXPECT_EQ(4, ds.GetCount(0, 4));
  EXPECT_EQ(4, ds.GetCount(0, 100));
  EXPECT_EQ(2, ds.GetCount(2, 4));
  EXPECT_EQ(6, ds.GetCount(-2, 4));
  EXPECT_EQ(0, ds.GetCount(3, 3));
  EXPECT_EQ(0, ds.GetCount(4, 1));
}

TEST(AggregatesCount, LevelZeroEntriesOfTheIndex) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  EXPECT_EQ(5, ds.GetCount(0, 7));
  EXPECT_EQ(2, ds.GetCount(2, 5));
  // With the filter in force, its entries count.
  ds.filterActive = 1;
  for (int entry : {0, Summary(2, 0), 4}) ds.filterIndex.Add(entry);
  EXPECT_EQ(2, ds.GetCount(0, 3));
  EXPECT_EQ(2, ds.GetCount(0, 30));
  EXPECT_EQ(1, ds.GetCount(1, 3));
}

TEST(AggregatesCount, ViewCountsPairs) {
  Ox_Dataset bound(65001u, 1);
  Rows(bound, 3);
  Ox_Dataset view(65001u, 1);
  rows_test::BindView(view, bound);
  view.recIndexValid = 1;
  for (int v : {0, 0, Summary(1, 0), 0, 2, 0}) view.recIndex.Add(v);
  EXPECT_EQ(2, view.GetCount(0, 3));
  EXPECT_EQ(1, view.GetCount(1, 3));
}

TEST(AggregatesAvg, NullsCountInTheDivisor) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 4);
  Column(ds, kI, {Ox_Variant(2L), kNull, Ox_Variant(4L), Ox_Variant(6L)});
  // (2 + 4 + 6) / 4 rows.
  EXPECT_DOUBLE_EQ(3.0, ds.GetAvg(kI, 0, 4, -1));
  EXPECT_DOUBLE_EQ(3.0, ds.GetAvg("I", 0, 40, -1));
  EXPECT_DOUBLE_EQ(3.0, ds.GetAvgNF(kI, 0, 4, -1));
  EXPECT_DOUBLE_EQ(3.0, ds.GetAvgNF("I", 0, 40, -1));
  // Empty and reversed ranges: 0.
  EXPECT_DOUBLE_EQ(0.0, ds.GetAvg(kI, 2, 2, -1));
  EXPECT_DOUBLE_EQ(0.0, ds.GetAvg(kI, 3, 1, -1));
  EXPECT_DOUBLE_EQ(0.0, ds.GetAvgNF(kI, 4, 9, -1));
  EXPECT_DOUBLE_EQ(0.0, ds.GetAvgNF(kI, 3, 1, -1));
}

TEST(AggregatesAvg, SummaryRowsAndConstants) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  // Visible rows 0..6: 15 over 5 plain rows.
  EXPECT_DOUBLE_EQ(3.0, ds.GetAvg(kI, 0, 7, -1));
  // Stored rows 1..4: (2 + 3 + 4 + 5) / 4.
  EXPECT_DOUBLE_EQ(3.5, ds.GetAvgNF(kI, 1, 5, -1));
  // A constant averages to itself.
  ds.AddConstColumn("K", Ox_Variant(2.5));
  EXPECT_DOUBLE_EQ(2.5, ds.GetAvg(6, 0, 7, -1));
  EXPECT_DOUBLE_EQ(2.5, ds.GetAvgNF(6, 0, 5, -1));
  // Decimal cells and a column below 0.
  EXPECT_DOUBLE_EQ(0.0, ds.GetAvg(-1, 0, 7, -1));
}

TEST(AggregatesCnn, CountsNonNullCells) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 4);
  Column(ds, kS, {Ox_Variant("a"), kNull, Ox_Variant(""), kNull});
  // An empty text is not null.
  ExpectInteger(2, Cnn(ds, kS, 0, 4));
  ExpectInteger(2, Cnn(ds, kS, 0, 400));
  ExpectInteger(0, Cnn(ds, kS, 3, 1));
  ExpectInteger(0, Cnn(ds, kI, 0, 4));
  ExpectInteger(0, Cnn(ds, -1, 0, 4));
}

TEST(AggregatesCnn, ConstantColumn) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  ds.AddConstColumn("K", Ox_Variant("x"));
  ds.AddConstColumn("Z", kNull);
  // Plain rows of visible rows 0..6: 5.
  ExpectInteger(5, Cnn(ds, 6, 0, 7));
  ExpectInteger(5, Cnn(ds, 6, 0, 70));
  ExpectInteger(0, Cnn(ds, 6, 4, 4));
  // A null constant, and one that does not exist: 0.
  ExpectInteger(0, Cnn(ds, 7, 0, 7));
  ExpectInteger(0, Cnn(ds, 8, 0, 7));
}

TEST(AggregatesCnn, SummaryAndFilteredRows) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  Put(ds, 1, kI, kNull);
  // Plain rows of visible 0..6 hold 1, null, 3, 4, 5.
  ExpectInteger(4, Cnn(ds, kI, 0, 7));
  ds.filterActive = 1;
  for (int entry : {1, 3}) ds.filterIndex.Add(entry);
  // Visible 0 -> recIndex 1 -> stored 1 (null); 1 -> recIndex 3 -> 2.
  ExpectInteger(1, Cnn(ds, kI, 0, 2));
}

TEST(AggregatesCnn, EveryColumnTypeWithNulls) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 3);
  Ox_Variant blob;
  const unsigned char bytes[] = {7};
  blob.SetBinary(bytes, 1);
  Column(ds, kI, {Ox_Variant(3L), kNull, Ox_Variant(0L)});
  Column(ds, kD, {kNull, Ox_Variant(0.0), kNull});
  Column(ds, kS, {Ox_Variant("a"), Ox_Variant("b"), Ox_Variant("")});
  Column(ds, kC, {Money(1.0), kNull, kNull});
  Column(ds, kT, {Date(1.0), Date(2.0), kNull});
  Column(ds, kB, {kNull, kNull, blob});
  // A zero and an empty text are not null.
  const long expected[] = {2, 1, 3, 1, 2, 1};
  for (int col = kI; col <= kB; ++col) {
    SCOPED_TRACE(col);
    ExpectInteger(expected[col], Cnn(ds, col, 0, 3));
  }
}

TEST(AggregatesAvg, EveryColumnTypeWithNulls) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 4);
  Column(ds, kI, {Ox_Variant(3L), kNull, Ox_Variant(5L), kNull});
  Column(ds, kD, {kNull, Ox_Variant(1.5), Ox_Variant(0.5), kNull});
  Column(ds, kS, {Ox_Variant("2"), Ox_Variant("6"), kNull, kNull});
  Column(ds, kC, {Money(1.0), Money(3.0), kNull, kNull});
  Column(ds, kT, {Date(4.0), kNull, kNull, Date(4.0)});
  // Each over 4 rows, nulls included: 8/4, 2/4, 8/4, 4/4, 8/4; bytes 0.
  const double expected[] = {2.0, 0.5, 2.0, 1.0, 2.0, 0.0};
  for (int col = kI; col <= kB; ++col) {
    SCOPED_TRACE(col);
    EXPECT_DOUBLE_EQ(expected[col], ds.GetAvg(col, 0, 4, -1));
    EXPECT_DOUBLE_EQ(expected[col], ds.GetAvgNF(col, 0, 4, -1));
  }
}

// ===========================================================================
// Aggregates of a pivot's rows

TEST(AggregatesPivotRows, DatasetThatIsNoPivotGivesZero) {
  Ox_Dataset ds(65001u, 1);
  Rows(ds, 2);
  Column(ds, kI, {Ox_Variant(1L), Ox_Variant(2L)});
  EXPECT_EQ(0, ds.GetCountNN(kI, 0));
  Ox_Variant out(5L);
  ds.GetSumNN(kI, 0, out);
  ExpectDouble(0.0, out);
  EXPECT_DOUBLE_EQ(0.0, ds.GetAvgNN(kI, 1));
  out = 5L;
  ds.GetMaxNN(kI, 0, out);
  ExpectDouble(0.0, out);
  out = 5L;
  ds.GetMinNN(kI, 0, out);
  ExpectDouble(0.0, out);
}

TEST(AggregatesPivotRows, StoredRowsOfAPivotAreThoseOfItsBoundDataset) {
  Ox_Dataset bound(65001u, 1);
  Rows(bound, 3);
  Column(bound, kI, {Ox_Variant(1L), kNull, Ox_Variant(4L)});
  Ox_Dataset pivot(65001u, 1);
  rows_test::BindView(pivot, bound);
  pivot.logicalType = 33;
  pivot.pivotFlag = 1;
  ASSERT_TRUE(pivot.IsPivot());
  ExpectInteger(5, SumNF(pivot, kI, 0, 3));
  ExpectInteger(4, MaxNF(pivot, kI, 0, 3));
  ExpectInteger(4, MinNF(pivot, kI, 1, 3));
  // With nothing bound, `out` stays as it was.
  pivot.bindDataset = nullptr;
  Ox_Variant out("kept");
  pivot.GetSumNF(kI, 0, 3, out, -1);
  EXPECT_STREQ("kept", out.ToString().GetString());
  pivot.GetMaxNF(kI, 0, 3, out, -1);
  EXPECT_STREQ("kept", out.ToString().GetString());
}

// ===========================================================================
// Summary rows computed through GetColumn use these members

TEST(AggregatesSummaryRows, GetColumnOfASumRow) {
  Ox_Dataset ds(65001u, 1);
  Grouped(ds);
  ds.GetSafeColInfo(kI)->summ = 64;
  Ox_Variant out;
  ds.GetColumn(2, kI, out);
  ExpectInteger(3, out);  // 1 + 2
  out.Clear();
  ds.GetColumn(6, kI, out);
  ExpectInteger(12, out);  // 3 + 4 + 5
  ds.GetSafeColInfo(kI)->summ = 80;
  out.Clear();
  ds.GetColumn(6, kI, out);
  ExpectInteger(5, out);
}

}  // namespace
