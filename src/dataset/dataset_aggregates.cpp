// Ox_Dataset, aggregates over a range of rows: count, sum, maximum,
// minimum, average and count of non-null cells. A range is `first`
// included to `last` excluded. The members without NF walk visible rows
// and pass over summary rows; the NF members walk stored rows. Nothing is
// indexed or cached: every call scans its range.
#include <cstdint>

#include "Ox_Dataset.h"
#include "Ox_VariantOps.h"
#include "dataset/dataset_internal.h"

namespace {

// Constant number of column `col` on a physical dataset, or -1 for a
// column that is no constant.
int ConstantOf(const Ox_Dataset &ds, int col) {
  const int normal = ds.GetNormalCount();
  return (normal >= 0 && col >= normal) ? col - normal : -1;
}

// `last - first` as a 32-bit count that wraps rather than overflows, for
// ranges that start far below 0.
int Distance(int first, int last) {
  return static_cast<int>(static_cast<uint32_t>(last) -
                          static_cast<uint32_t>(first));
}

// Level 0 entries of `list` at first, first + stride, ... below
// last * stride. A position outside the list reads 0, a plain entry, so
// the positions below 0 are counted at once rather than walked.
int CountPlain(const Ox_IntList &list, int first, int last, int stride) {
  int count = 0;
  if (first < 0) {
    count = Distance(first, 0);
    first = 0;
  }
  for (int i = first; i < last; ++i) {
    const long long at = static_cast<long long>(i) * stride;
    if (at >= list.Count()) {
      ++count;
      continue;
    }
    if (OxIndexLevel(list.Items(static_cast<int>(at))) == 0) ++count;
  }
  return count;
}

// Reads the cells of one column row after row, as the aggregates walk
// them: visible rows through GetColumn by value, or stored rows through
// GetColumnNF.
//
// On a dataset that is neither linked nor a pivot, a normal column of a
// plain row is read in place: the reader by value would copy that very
// stored cell (a missing row or cell reading as null), so pointing at it
// gives the same value without a copy per cell. Other cells (constants
// through a view, a column below 0, rows of a linked dataset) go through
// the reader by value into a scratch variant that starts null each time,
// as a fresh local would.
class CellReader {
 public:
  CellReader(const Ox_Dataset &ds, int col, bool stored, int pivotPos)
      : ds_(ds), col_(col), stored_(stored), pivotPos_(pivotPos) {
    const int normal = ds.GetNormalCount();
    direct_ = !OxIsLinked(ds) && !ds.IsPivot() && normal >= 0 && col >= 0 &&
              col < normal;
    records_ = &OxRowRecords(ds);
    end_ = ComputeEnd();
  }

  // The cell of `row`; null for a summary row of a visible walk.
  const Ox_Variant *Read(int row) {
    if (direct_) return ReadDirect(row);
    if (!stored_ && OxAggIsSummaryRow(ds_, row)) return nullptr;
    scratch_.Clear();
    if (stored_) {
      ds_.GetColumnNF(row, col_, scratch_, pivotPos_);
    } else {
      ds_.GetColumn(row, col_, scratch_, -1);
    }
    return &scratch_;
  }

  // From this row on every row reads the same cell as this one and none
  // is a summary row: past the records or index for a normal column, and
  // everywhere for a column below 0 or a constant, whose read does not
  // depend on the row.
  int End() const { return end_; }

 private:
  const Ox_Variant *ReadDirect(int row) const {
    if (stored_) return CellOf(row);
    const OxRowRef ref = OxResolveRow(ds_, row, true);
    if (ref.kind == OxRowRef::kStored) return CellOf(ref.stored);
    if (ref.kind == OxRowRef::kNone) return &_OxNullVariant;
    return nullptr;  // a summary row
  }

  // Cell of a stored row; a missing row or cell reads as null.
  const Ox_Variant *CellOf(int stored) const {
    const Ox_Record *record = records_->GetItem(stored);
    return record != nullptr ? record->GetItemNN(col_) : &_OxNullVariant;
  }

  // Beyond every list that a row number can reach through (records,
  // indexes, the node list, the visible and stored counts) a row is no
  // summary row and reads alike: null for a normal column, and for any
  // other column the same value whatever the row.
  int ComputeEnd() const {
    const int counts[] = {records_->Count(),       ds_.GetRowCount(),
                          ds_.GetRowCountNF(),     ds_.recIndex.Count(),
                          ds_.filterIndex.Count(), ds_.linkIndex.Count()};
    int end = 0;
    for (int count : counts) end = count > end ? count : end;
    return end;
  }

  const Ox_Dataset &ds_;
  int col_;
  bool stored_;
  int pivotPos_;
  bool direct_;
  const Ox_RecList *records_;
  int end_;
  Ox_Variant scratch_;
};

// Walks rows [first, last) and hands each cell that is not a summary
// row's to `take`. Rows below 0 read alike, and so do rows from
// reader.End() on; such a run is handed over once when its cell is null or
// when `repeatSafe` says that taking the same cell again changes nothing
// (maximum, minimum), which gives the result of the full walk without
// walking a huge range.
template <typename Take>
void WalkCells(CellReader &reader, int first, int last, bool repeatSafe,
               Take take) {
  if (first >= last) return;
  int row = first;
  if (row < 0) {
    const Ox_Variant *cell = reader.Read(-1);
    if (cell == nullptr || cell->GetType() == Ox_Variant::kNull || repeatSafe) {
      if (cell != nullptr) take(*cell);
      row = 0;
    }
  }
  const int end = reader.End() > row ? reader.End() : row;
  for (; row < last && row < end; ++row) {
    const Ox_Variant *cell = reader.Read(row);
    if (cell != nullptr) take(*cell);
  }
  if (row >= last) return;
  const Ox_Variant *tail = reader.Read(row);
  if (tail != nullptr && (tail->GetType() == Ox_Variant::kNull || repeatSafe)) {
    take(*tail);
    return;
  }
  for (; row < last; ++row) {
    const Ox_Variant *cell = reader.Read(row);
    if (cell != nullptr) take(*cell);
  }
}

// The sum of a walk. The cell at row `first` fixes the mode: an integer
// sums 32-bit integers with wrap-round (a later double cell is cut by
// ToInteger), anything else, or a summary row there, sums doubles. A null
// cell adds 0 in either mode. Both modes add into a typed local, as each
// step of the running sum only ever holds a value of the mode's type.
void SumCells(CellReader &reader, int first, int last, Ox_Variant &out) {
  if (first >= last) {
    out = 0.0;
    return;
  }
  const Ox_Variant *head = reader.Read(first);
  const bool intMode =
      head != nullptr && head->GetType() == Ox_Variant::kInteger;
  uint32_t intSum = 0;
  double doubleSum = 0.0;
  // An integer or decimal cell is read from its value field, which is
  // what ToInteger and ToDouble give for their own type.
  WalkCells(reader, first, last, false, [&](const Ox_Variant &cell) {
    const unsigned short type = cell.GetType();
    if (type == Ox_Variant::kNull) return;
    if (intMode) {
      intSum += static_cast<uint32_t>(
          type == Ox_Variant::kInteger ? cell.value.lVal : cell.ToInteger());
    } else if (type == Ox_Variant::kDecimal) {
      doubleSum += cell.value.dVal;
    } else if (type == Ox_Variant::kInteger) {
      doubleSum += static_cast<double>(cell.value.lVal);
    } else {
      doubleSum += cell.ToDouble();
    }
  });
  if (intMode) {
    out = static_cast<long>(static_cast<int32_t>(intSum));
  } else {
    out = doubleSum;
  }
}

// A running extreme: `out` takes the cell when it is null or when the
// comparison `keep` (greater or equal for the maximum, less or equal for
// the minimum) of `out` against the cell fails. With `skipNull` a null
// cell is passed over; without it, it replaces `out`, since Var_Cmp of a
// value against a null gives 0.
void ExtremeCells(CellReader &reader, int first, int last, Ox_Variant &out,
                  short keep, bool skipNull) {
  WalkCells(reader, first, last, true, [&](const Ox_Variant &cell) {
    if (skipNull && cell.GetType() == Ox_Variant::kNull) return;
    if (out.GetType() == Ox_Variant::kNull || Var_Cmp(out, cell, keep) == 0)
      out = cell;
  });
}

// `last` capped to `rows`.
int Cap(int last, int rows) { return last > rows ? rows : last; }

}  // namespace

// ===========================================================================
// Shared with the other concerns

bool OxAggIsSummaryRow(const Ox_Dataset &ds, int row) {
  if (OxIsLinked(ds)) {
    // The node index of a linked dataset carries the levels.
    if (ds.filterActive != 0)
      return OxIndexLevel(ds.filterIndex.GetItem(row)) > 0;
    return ds.recIndexValid != 0 && OxIndexLevel(ds.linkIndex.GetItem(row)) > 0;
  }
  const OxRowRef ref = OxResolveRow(ds, row, true);
  return ref.kind == OxRowRef::kSummaryInFilter ||
         ref.kind == OxRowRef::kSummaryInIndex;
}

// ===========================================================================
// Count

int Ox_Dataset::GetCount(int first, int last) const {
  last = Cap(last, GetRowCount());
  if (first >= last) return 0;
  // The plain entries of the index that gives the visible rows.
  if (filterActive != 0) return CountPlain(filterIndex, first, last, 1);
  if (!IsPhysical()) {
    const Ox_IntList &pairs = pivotFlag != 0 ? rowValueList : recIndex;
    return CountPlain(pairs, first, last, 2);
  }
  if (recIndexValid != 0) {
    const Ox_IntList &index = OxIsLinked(*this) ? linkIndex : recIndex;
    return CountPlain(index, first, last, 1);
  }
  // Without an index every row is plain.
  return Distance(first, last);
}

// ===========================================================================
// Sum

void Ox_Dataset::GetSum(int col, int first, int last, Ox_Variant &out,
                        int pivotPos) const {
  // 1. A pivot sums along its column.
  if (IsPivot()) {
    out = OxAggPivotRowSum(*this, col, pivotPos, 0, first, last, 1);
    return;
  }
  const bool physical = IsPhysical() != 0;
  // 2. No column: 0.
  if (physical && col < 0) {
    out = 0.0;
    return;
  }
  // 3. A constant counts once for each plain row.
  const int constant = physical ? ConstantOf(*this, col) : -1;
  if (constant >= 0) {
    last = Cap(last, GetRowCount());
    const Ox_Variant *value = GetConstColumn(constant);
    out = (value != nullptr && last > first)
              ? value->ToDouble() * GetCount(first, last)
              : 0.0;
    return;
  }
  // 4.-7. Walk the rows; a physical dataset trusts the caller's range.
  if (!physical) last = Cap(last, GetRowCount());
  CellReader reader(*this, col, false, -1);
  SumCells(reader, first, last, out);
}

void Ox_Dataset::GetSum(const char *colId, int first, int last, Ox_Variant &out,
                        int pivotPos) const {
  GetSum(GetColIndex(colId), first, last, out, pivotPos);
}

void Ox_Dataset::GetSumNF(int col, int first, int last, Ox_Variant &out,
                          int pivotPos) const {
  // A pivot's stored rows are those of its bound dataset.
  if (IsPivot()) {
    if (bindDataset != nullptr)
      bindDataset->GetSumNF(col, first, last, out, pivotPos);
    return;
  }
  const bool physical = IsPhysical() != 0;
  if (physical && col < 0) {
    out = 0.0;
    return;
  }
  // A constant counts once for each stored row of the range.
  const int constant = physical ? ConstantOf(*this, col) : -1;
  if (constant >= 0) {
    last = Cap(last, GetRowCountNF());
    const Ox_Variant *value = GetConstColumn(constant);
    out = (value != nullptr && last > first)
              ? value->ToDouble() * (static_cast<double>(last) - first)
              : 0.0;
    return;
  }
  if (!physical) last = Cap(last, GetRowCountNF());
  CellReader reader(*this, col, true, physical ? -1 : pivotPos);
  SumCells(reader, first, last, out);
}

void Ox_Dataset::GetSumNF(const char *colId, int first, int last,
                          Ox_Variant &out, int pivotPos) const {
  GetSumNF(GetColIndex(colId), first, last, out, pivotPos);
}

// ===========================================================================
// Maximum and minimum

void Ox_Dataset::GetMax(int col, int first, int last, Ox_Variant &out,
                        int pivotPos) const {
  if (IsPivot()) {
    out = OxAggPivotRowMax(*this, col, pivotPos, 0, first, last, 1);
    return;
  }
  if (!IsPhysical()) last = Cap(last, GetRowCount());
  // `out` is not cleared: what it holds takes part.
  CellReader reader(*this, col, false, -1);
  ExtremeCells(reader, first, last, out, OX_VAROP_GE, true);
}

void Ox_Dataset::GetMax(const char *colId, int first, int last, Ox_Variant &out,
                        int pivotPos) const {
  GetMax(GetColIndex(colId), first, last, out, pivotPos);
}

void Ox_Dataset::GetMin(int col, int first, int last, Ox_Variant &out,
                        int pivotPos) const {
  if (IsPivot()) {
    out = OxAggPivotRowMin(*this, col, pivotPos, 0, first, last, 1);
    return;
  }
  if (!IsPhysical()) last = Cap(last, GetRowCount());
  CellReader reader(*this, col, false, -1);
  ExtremeCells(reader, first, last, out, OX_VAROP_LE, true);
}

void Ox_Dataset::GetMin(const char *colId, int first, int last, Ox_Variant &out,
                        int pivotPos) const {
  GetMin(GetColIndex(colId), first, last, out, pivotPos);
}

void Ox_Dataset::GetMaxNF(int col, int first, int last, Ox_Variant &out,
                          int pivotPos) const {
  if (IsPivot()) {
    if (bindDataset != nullptr)
      bindDataset->GetMaxNF(col, first, last, out, pivotPos);
    return;
  }
  const bool physical = IsPhysical() != 0;
  if (!physical) last = Cap(last, GetRowCountNF());
  // Null cells take part: the result is the extreme behind the last null.
  CellReader reader(*this, col, true, physical ? -1 : pivotPos);
  ExtremeCells(reader, first, last, out, OX_VAROP_GE, false);
}

void Ox_Dataset::GetMaxNF(const char *colId, int first, int last,
                          Ox_Variant &out, int pivotPos) const {
  GetMaxNF(GetColIndex(colId), first, last, out, pivotPos);
}

void Ox_Dataset::GetMinNF(int col, int first, int last, Ox_Variant &out,
                          int pivotPos) const {
  if (IsPivot()) {
    if (bindDataset != nullptr)
      bindDataset->GetMinNF(col, first, last, out, pivotPos);
    return;
  }
  const bool physical = IsPhysical() != 0;
  if (!physical) last = Cap(last, GetRowCountNF());
  CellReader reader(*this, col, true, physical ? -1 : pivotPos);
  ExtremeCells(reader, first, last, out, OX_VAROP_LE, false);
}

void Ox_Dataset::GetMinNF(const char *colId, int first, int last,
                          Ox_Variant &out, int pivotPos) const {
  GetMinNF(GetColIndex(colId), first, last, out, pivotPos);
}

// ===========================================================================
// Average

double Ox_Dataset::GetAvg(int col, int first, int last, int pivotPos) const {
  const bool physical = IsPhysical() != 0;
  if (physical) last = Cap(last, GetRowCount());
  // Every plain row counts in the divisor, null cells included.
  const int count = GetCount(first, last);
  if (count < 1) return 0.0;
  Ox_Variant sum;
  GetSum(col, first, last, sum, physical ? -1 : pivotPos);
  return sum.ToDouble() / count;
}

double Ox_Dataset::GetAvg(const char *colId, int first, int last,
                          int pivotPos) const {
  return GetAvg(GetColIndex(colId), first, last, pivotPos);
}

double Ox_Dataset::GetAvgNF(int col, int first, int last, int pivotPos) const {
  last = Cap(last, GetRowCountNF());
  if (last <= first) return 0.0;
  Ox_Variant sum;
  GetSumNF(col, first, last, sum, pivotPos);
  return sum.ToDouble() / (static_cast<double>(last) - first);
}

double Ox_Dataset::GetAvgNF(const char *colId, int first, int last,
                            int pivotPos) const {
  return GetAvgNF(GetColIndex(colId), first, last, pivotPos);
}

// ===========================================================================
// Count of non-null cells

void Ox_Dataset::GetCnn(int col, int first, int last, Ox_Variant &out,
                        int pivotPos) const {
  // 1. A pivot counts along its column, every kind of cell.
  if (IsPivot()) {
    out = static_cast<long>(
        OxAggPivotRowCount(*this, col, pivotPos, 1, first, last, 1));
    return;
  }
  const bool physical = IsPhysical() != 0;
  // 2. No column: 0.
  if (physical && col < 0) {
    out = 0L;
    return;
  }
  // 3. A constant that is not null counts once for each plain row.
  const int constant = physical ? ConstantOf(*this, col) : -1;
  if (constant >= 0) {
    const Ox_Variant *value = GetConstColumn(constant);
    last = Cap(last, GetRowCount());
    const bool present =
        value != nullptr && value->GetType() != Ox_Variant::kNull;
    out =
        static_cast<long>(present && last > first ? GetCount(first, last) : 0);
    return;
  }
  // 4. Walk the range as the sum does.
  if (!physical) last = Cap(last, GetRowCount());
  CellReader reader(*this, col, false, -1);
  long count = 0;
  WalkCells(reader, first, last, false, [&](const Ox_Variant &cell) {
    if (cell.GetType() != Ox_Variant::kNull) ++count;
  });
  out = count;
}
