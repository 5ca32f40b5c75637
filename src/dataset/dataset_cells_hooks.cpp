// Hand-overs of cell access to concerns that are built elsewhere.
//
// Rows kept in an XML node list and the pivot read their cells their own
// way; until those concerns exist, their hooks give what a node list or a
// pivot with no rows gives. The range aggregates that a summary row is
// computed from call the members GetCount, GetSum, GetMax, GetMin, GetAvg
// and GetCnn. The single-key test carries a working body, written to the
// rules of IsSingleGroupKey for physical datasets and views that are no
// pivot; the group concern replaces it with a call to that member.
#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

// ===========================================================================
// Node lists and pivots

void OxCellsLinkGetColumn(const Ox_Dataset &, int, int, Ox_Variant &) {}
void OxCellsLinkGetColumnNF(const Ox_Dataset &, int, int, Ox_Variant &) {}
const Ox_Variant *OxCellsLinkGetColumnNN(const Ox_Dataset &, int, int) {
  return &_OxNullVariant;
}
int OxCellsPivotRowPos(const Ox_Dataset &, int, int, int) { return -1; }
void OxCellsPivotGetColumn(const Ox_Dataset &, int, int, Ox_Variant &, int) {}

// ===========================================================================
// Range aggregates over visible rows [first, last)

int OxCellsRangeCount(const Ox_Dataset &ds, int first, int last) {
  return ds.GetCount(first, last);
}

void OxCellsRangeSum(const Ox_Dataset &ds, int col, int first, int last,
                     Ox_Variant &out) {
  ds.GetSum(col, first, last, out, -1);
}

void OxCellsRangeMax(const Ox_Dataset &ds, int col, int first, int last,
                     Ox_Variant &out) {
  ds.GetMax(col, first, last, out, -1);
}

void OxCellsRangeMin(const Ox_Dataset &ds, int col, int first, int last,
                     Ox_Variant &out) {
  ds.GetMin(col, first, last, out, -1);
}

double OxCellsRangeAvg(const Ox_Dataset &ds, int col, int first, int last) {
  return ds.GetAvg(col, first, last, -1);
}

void OxCellsRangeCnn(const Ox_Dataset &ds, int col, int first, int last,
                     Ox_Variant &out) {
  ds.GetCnn(col, first, last, out, -1);
}

// ===========================================================================
// The single-key test of a grouping

namespace {

// The rows that a walk over [first, last) reads: those below 0 or beyond
// the visible rows read nothing and so are left out.
struct Walk {
  int begin;
  int end;
};

Walk WalkRange(const Ox_Dataset &ds, int first, int last) {
  Walk walk;
  const int rows = ds.GetRowCount();
  walk.begin = first < 0 ? 0 : first;
  walk.end = last < rows ? last : rows;
  return walk;
}

}  // namespace

int OxCellsIsSingleGroupKey(const Ox_Dataset &ds, int first, int last,
                            int level, int col) {
  if (ds.recIndexValid == 0 || ds.groupKeyList.Count() == 0) return 1;
  if (ds.IsPivot()) return 0;
  // The summary rows of `level` in the range, each by the cell of the
  // first record of its group, must all agree with the first of them.
  const Walk walk = WalkRange(ds, first, last);
  const Ox_RecList &records = OxRowRecords(ds);
  const Ox_Variant *firstCell = nullptr;
  for (int row = walk.begin; row < walk.end; ++row) {
    const OxRowRef ref = OxResolveRow(ds, row, true);
    if (ref.kind != OxRowRef::kSummaryInFilter &&
        ref.kind != OxRowRef::kSummaryInIndex)
      continue;
    if (OxIndexLevel(ref.entry) != level) continue;
    const Ox_Record *start = records.GetItem(OxCellsSummaryStart(ds, ref));
    const Ox_Variant *cell =
        start != nullptr ? start->GetItemNN(col) : &_OxNullVariant;
    if (firstCell == nullptr) {
      firstCell = cell;
    } else if (firstCell->Compare(*cell) != 0) {
      return 0;
    }
  }
  return 1;
}
