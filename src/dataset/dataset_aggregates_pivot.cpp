// Ox_Dataset, the aggregates over the rows of a pivot (GetCountNN,
// GetSumNN, GetAvgNN, GetMinNN, GetMaxNN), and the hand-overs to the
// pivot's own aggregates along one row or one column.
//
// The pivot concern is built elsewhere: until it exists the hand-overs
// give 0, which is what the pivot's aggregates give on a dataset that is
// no pivot.
#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

// ===========================================================================
// Hand-overs to the pivot

int OxAggPivotColCount(const Ox_Dataset &, int, int, int, int, int, int) {
  return 0;
}
double OxAggPivotColSum(const Ox_Dataset &, int, int, int, int, int, int) {
  return 0.0;
}
double OxAggPivotColMax(const Ox_Dataset &, int, int, int, int, int, int) {
  return 0.0;
}
double OxAggPivotColMin(const Ox_Dataset &, int, int, int, int, int, int) {
  return 0.0;
}
int OxAggPivotRowCount(const Ox_Dataset &, int, int, int, int, int, int) {
  return 0;
}
double OxAggPivotRowSum(const Ox_Dataset &, int, int, int, int, int, int) {
  return 0.0;
}
double OxAggPivotRowMax(const Ox_Dataset &, int, int, int, int, int, int) {
  return 0.0;
}
double OxAggPivotRowMin(const Ox_Dataset &, int, int, int, int, int, int) {
  return 0.0;
}

// ===========================================================================
// Aggregates over the pivot's rows

namespace {

// Calls `take(i, v)` for each pair i of rowValueList whose first integer
// has level 0, v being the pair's second integer (the row's first filled
// column).
template <typename Take>
void ForEachPlainPivotRow(const Ox_Dataset &ds, Take take) {
  const int pairs = ds.rowValueList.Count() / 2;
  for (int i = 0; i < pairs; ++i) {
    if (OxIndexLevel(ds.rowValueList.Items(2 * i)) != 0) continue;
    take(i, ds.rowValueList.Items(2 * i + 1));
  }
}

// Number of columns of the pivot: half the count of colValueList.
int PivotColumns(const Ox_Dataset &ds) { return ds.colValueList.Count() / 2; }

// The greatest of the values `along` gives per plain row; the first pair
// (i 0) sets the value without a test. 0 when no row sets it.
template <typename Along>
double GreatestAlongRows(const Ox_Dataset &ds, Along along) {
  double best = 0.0;
  ForEachPlainPivotRow(ds, [&](int i, int v) {
    const double value = along(i, v);
    if (i == 0 || value > best) best = value;
  });
  return best;
}

}  // namespace

int Ox_Dataset::GetCountNN(int col, int filterflag) const {
  const int n = PivotColumns(*this);
  int count = 0;
  ForEachPlainPivotRow(*this, [&](int i, int v) {
    count += OxAggPivotColCount(*this, col, i, 0, v, n, filterflag);
  });
  return count;
}

void Ox_Dataset::GetSumNN(int col, int filterflag, Ox_Variant &out) const {
  const int n = PivotColumns(*this);
  double sum = 0.0;
  ForEachPlainPivotRow(*this, [&](int i, int v) {
    sum += OxAggPivotColSum(*this, col, i, 0, v, n, filterflag);
  });
  out = sum;
}

double Ox_Dataset::GetAvgNN(int col, int filterflag) const {
  const int count = GetCountNN(col, filterflag);
  if (count < 1) return 0.0;
  Ox_Variant sum;
  GetSumNN(col, filterflag, sum);
  return sum.ToDouble() / count;
}

void Ox_Dataset::GetMaxNN(int col, int filterflag, Ox_Variant &out) const {
  const int n = PivotColumns(*this);
  out = GreatestAlongRows(*this, [&](int i, int v) {
    return OxAggPivotColMax(*this, col, i, 0, v, n, filterflag);
  });
}

void Ox_Dataset::GetMinNN(int col, int filterflag, Ox_Variant &out) const {
  // The row minimums, of which the greatest is kept: the same test as the
  // maximum.
  const int n = PivotColumns(*this);
  out = GreatestAlongRows(*this, [&](int i, int v) {
    return OxAggPivotColMin(*this, col, i, 0, v, n, filterflag);
  });
}
