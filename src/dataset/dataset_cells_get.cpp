// Ox_Dataset, cell access: the readers. A cell is found by a row number
// (visible, stored or buffer row) and a column number over the normal
// columns and then the constants. A cell of a summary row is not stored:
// the readers by value compute it from the group's detail rows, the
// readers by pointer can only point at a stored cell and give null where a
// value would have to be computed.
#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

namespace {

// A view over another dataset's rows (not physical).
bool IsView(const Ox_Dataset &ds) { return !ds.IsPhysical(); }

// The constant behind column number `col`, or null when `col` is no
// constant's number.
const Ox_Variant *ConstCell(const Ox_Dataset &ds, int col) {
  const int normal = ds.GetNormalCount();
  if (normal < 0 || col < normal) return nullptr;
  return ds.GetConstColumn(col - normal);
}

// Where a read of (row, col) leads, before anything is computed.
struct CellPlace {
  enum Kind {
    kNothing,  // no such row or column
    kConst,    // a constant: `cell` (null when it does not exist)
    kCell,     // a stored row: `record` (null for a missing row)
    kSummary   // a summary row: the fields below
  };
  Kind kind;
  const Ox_Variant *cell;
  const Ox_Record *record;
  // Summary row: level, detail range [from, to) of visible rows, number of
  // plain rows in it, record of the first detail row, and the level of the
  // group key on the column (0 when the column is no key).
  int level;
  int from;
  int to;
  int count;
  const Ox_Record *first;
  int keyLevel;
};

// The shared resolution of GetColumn, GetColumnNN and the reader by value
// on a physical dataset or a view that is no pivot. Rows come from the
// dataset's records (its own, or the bound dataset's for a view).
CellPlace Locate(const Ox_Dataset &ds, int row, int col) {
  CellPlace place = {CellPlace::kNothing, nullptr, nullptr, 0, 0, 0, 0,
                     nullptr, 0};
  const int normal = ds.GetNormalCount();
  if (normal < 0) return place;
  // A negative row reads the constant of the column number, if it is one;
  // so row -1 is how a caller reads a constant by its column number.
  if (row < 0 || col >= normal) {
    if (col < normal) return place;
    place.kind = CellPlace::kConst;
    place.cell = ds.GetConstColumn(col - normal);
    return place;
  }
  if (col < 0) return place;
  const Ox_RecList &records = OxRowRecords(ds);
  // Without the row index the row number goes straight to the records.
  if (ds.recIndexValid == 0) {
    place.kind = CellPlace::kCell;
    place.record = records.GetItem(row);
    return place;
  }
  const OxRowRef ref = OxResolveRow(ds, row, true);
  if (ref.kind == OxRowRef::kNone) return place;
  if (ref.kind == OxRowRef::kStored) {
    place.kind = CellPlace::kCell;
    place.record = records.GetItem(ref.stored);
    return place;
  }
  // A summary row: its entry gives its level and where its group starts
  // (the first detail row), or, with sub-sums before their details, where
  // it ends (the last detail row).
  place.kind = CellPlace::kSummary;
  place.level = OxIndexLevel(ref.entry);
  const int start = OxIndexValue(ref.entry);
  if (ds.reverseSubSum != 0) {
    place.from = row + 1;
    place.to = start + 1;
  } else {
    place.from = start;
    place.to = row;
  }
  place.count = OxCellsRangeCount(ds, place.from, place.to);
  place.first = records.GetItem(OxCellsSummaryStart(ds, ref));
  place.keyLevel = ds.GetGroupColType(place.level, col);
  return place;
}

// Cell `col` of a record, null when the record or the cell is missing.
const Ox_Variant *CellOf(const Ox_Record *record, int col) {
  return record != nullptr ? record->GetItem(col) : nullptr;
}

// The same, _OxNullVariant in place of null.
const Ox_Variant *CellOfNN(const Ox_Record *record, int col) {
  const Ox_Variant *cell = CellOf(record, col);
  return cell != nullptr ? cell : &_OxNullVariant;
}

// What a pointer reader gives for a summary row: the stored cell of the
// group's first detail row where that is the cell's value, and null where
// a value would have to be computed. `nn` makes a missing cell
// _OxNullVariant; the two null exits stay null even then.
const Ox_Variant *SummaryPointer(const Ox_Dataset &ds, const CellPlace &place,
                                 int col, bool nn) {
  const int g = place.keyLevel;
  const Ox_Variant *cell =
      nn ? CellOfNN(place.first, col) : CellOf(place.first, col);
  // Not a key: one detail row is its own value, several need a sum.
  if (g == 0) return place.count == 1 ? cell : nullptr;
  // A key of this group (or of a coarser one): one value over the group.
  if (g >= place.level) return cell;
  // A key of a finer level: its value if it is single over the range.
  if (place.count != 1 &&
      !OxCellsIsSingleGroupKey(ds, place.from, place.to, g, col))
    return nullptr;
  return CellOfNN(place.first, col);
}

// The pointer readers GetColumn (`nn` false) and GetColumnNN (`nn` true)
// on a dataset that is neither linked nor a pivot.
const Ox_Variant *LocatePointer(const Ox_Dataset &ds, int row, int col,
                                bool nn) {
  const CellPlace place = Locate(ds, row, col);
  const Ox_Variant *cell = nullptr;
  switch (place.kind) {
    case CellPlace::kSummary:
      return SummaryPointer(ds, place, col, nn);
    case CellPlace::kConst:
      cell = place.cell;
      break;
    case CellPlace::kCell:
      cell = CellOf(place.record, col);
      break;
    default:
      break;
  }
  return (nn && cell == nullptr) ? &_OxNullVariant : cell;
}

// The pointer reader on a pivot: the table cell of the row gives the
// position in recIndex whose entry leads to the bound record.
const Ox_Variant *PivotPointer(const Ox_Dataset &ds, int row, int col,
                               int pivotPos) {
  const Ox_Variant *constant = ConstCell(ds, col);
  if (row < 0 || constant != nullptr) return constant;
  if (col < 0) return nullptr;
  const int position = OxCellsPivotRowPos(ds, row, pivotPos, 0);
  if (position < 0 || position > 0x3FFFFFFF) return nullptr;
  const int stored = OxIndexValue(ds.recIndex.GetItem(position * 2));
  return CellOf(OxRowRecords(ds).GetItem(stored), col);
}

// The value of a summary row's cell, computed from its detail rows. `out`
// is written only where the cell has a value.
void SummaryValue(const Ox_Dataset &ds, const CellPlace &place, int col,
                  Ox_Variant &out) {
  const Ox_ColInfo *info = ds.GetColInfo(col);
  if (info == nullptr) return;
  const int g = place.keyLevel;
  // A key of this group (or of a coarser one) is the same on every row.
  if (g >= place.level && g != 0) {
    out = *CellOfNN(place.first, col);
    return;
  }
  // The summary kind of the column decides. A group dataset sums the
  // count columns, since its stored rows already hold counts.
  Ox_Variant made;
  switch (info->summ & OX_SUMM_KIND_MASK) {
    case OX_SUMM_COUNT:
      if (ds.IsGroup()) {
        OxCellsRangeSum(ds, col, place.from, place.to, made);
      } else {
        made = static_cast<long>(place.count);
      }
      out = made;
      return;
    case OX_SUMM_COUNTNN:
      if (ds.IsGroup()) {
        OxCellsRangeSum(ds, col, place.from, place.to, made);
      } else {
        OxCellsRangeCnn(ds, col, place.from, place.to, made);
      }
      out = made;
      return;
    case OX_SUMM_SUM:
      OxCellsRangeSum(ds, col, place.from, place.to, made);
      out = made;
      return;
    case OX_SUMM_MAX:
      // The extreme of the range alone: the running value starts null.
      OxCellsRangeMax(ds, col, place.from, place.to, made);
      out = made;
      return;
    case OX_SUMM_MIN:
      OxCellsRangeMin(ds, col, place.from, place.to, made);
      out = made;
      return;
    case OX_SUMM_AVG:
      out = OxCellsRangeAvg(ds, col, place.from, place.to);
      return;
    case OX_SUMM_TEXT:
      out = info->summText;
      return;
    default:
      break;
  }
  if (g != 0) {
    // A key of a finer level: the label of the kind "default", or the
    // one value that the key has over the range, if it has one.
    if ((info->summ & OX_SUMM_KIND_MASK) == OX_SUMM_DEFAULT) {
      out = info->summText;
    } else if (place.count == 1 ||
               OxCellsIsSingleGroupKey(ds, place.from, place.to, g, col)) {
      out = *CellOfNN(place.first, col);
    }
    return;
  }
  // The default rule: one row gives its value; several give the sum of a
  // numeric column and the summary text of any other.
  if (place.count == 1) {
    out = *CellOfNN(place.first, col);
  } else if (info->type == OX_COLTYPE_INT || info->type == OX_COLTYPE_DECIMAL ||
             info->type == OX_COLTYPE_CURRENCY) {
    OxCellsRangeSum(ds, col, place.from, place.to, made);
    out = made;
  } else {
    out = info->summText;
  }
}

// Where a stored-row read (the NF family) leads: `found` when the row and
// column exist (the cell may still be missing from a short row) or the
// constant exists.
struct NFPlace {
  bool found;
  const Ox_Variant *cell;
};

NFPlace LocateNF(const Ox_Dataset &ds, int row, int col, int pivotPos) {
  NFPlace place = {false, nullptr};
  const int normal = ds.GetNormalCount();
  if (normal < 0) return place;
  // A pivot turns its row into the position of a bound record.
  if (IsView(ds) && ds.IsPivot() && row >= 0) {
    row = OxCellsPivotRowPos(ds, row, pivotPos, 1);
    if (row < 0) return place;
  }
  if (row < 0) {
    place.cell = ConstCell(ds, col);
    place.found = place.cell != nullptr;
    return place;
  }
  const Ox_RecList &records = OxRowRecords(ds);
  if (row >= records.Count() || col < 0) return place;
  if (col < normal) {
    place.found = true;
    place.cell = records.GetItem(row)->GetItem(col);
    return place;
  }
  place.cell = ConstCell(ds, col);
  place.found = place.cell != nullptr;
  return place;
}

// The position that the original readers work with: a visible row through
// the filter index when it is in force; -1 for a summary row or a row the
// filter index does not have.
int OrgPosition(const Ox_Dataset &ds, int row) {
  if (ds.filterActive == 0) return row;
  if (row < 0 || row >= ds.filterIndex.Count()) return -1;
  const int entry = ds.filterIndex.Items(row);
  if (OxIndexLevel(entry) > 0) return -1;
  return OxIndexValue(entry);
}

const Ox_Variant *OrNull(const Ox_Variant *cell) {
  return cell != nullptr ? cell : &_OxNullVariant;
}

}  // namespace

// ===========================================================================
// Shared with the aggregate hooks

int OxCellsSummaryStart(const Ox_Dataset &ds, const OxRowRef &ref) {
  if (ref.kind != OxRowRef::kSummaryInFilter &&
      ref.kind != OxRowRef::kSummaryInIndex)
    return -1;
  int position = OxIndexValue(ref.entry);
  if (ref.kind == OxRowRef::kSummaryInFilter)
    position = OxIndexValue(ds.filterIndex.GetItem(position));
  const int at = IsView(ds) ? position * 2 : position;
  return OxIndexValue(ds.recIndex.GetItem(at));
}

int Ox_Dataset::GetGroupColType(int, int col) const {
  if (recIndexValid == 0 || groupKeyList.Count() == 0) return 0;
  for (int i = 0; i < groupKeyList.Count(); ++i) {
    const int key = groupKeyList.Items(i);
    if (OxIndexValue(key) == col) return OxIndexLevel(key);
  }
  return 0;
}

// ===========================================================================
// Visible rows

const Ox_Variant *Ox_Dataset::GetColumn(int row, int col, int pivotPos) const {
  // A node has no variant to point at.
  if (OxIsLinked(*this)) return nullptr;
  if (IsPivot()) return PivotPointer(*this, row, col, pivotPos);
  return LocatePointer(*this, row, col, false);
}

const Ox_Variant *Ox_Dataset::GetColumn(int row, const char *colId,
                                        int pivotPos) const {
  const int col = GetColIndex(colId);
  return col >= 0 ? GetColumn(row, col, pivotPos) : nullptr;
}

const Ox_Variant *Ox_Dataset::GetColumnNN(int row, int col,
                                          int pivotPos) const {
  if (OxIsLinked(*this)) return OxCellsLinkGetColumnNN(*this, row, col);
  if (IsPivot()) return OrNull(PivotPointer(*this, row, col, pivotPos));
  return LocatePointer(*this, row, col, true);
}

const Ox_Variant *Ox_Dataset::GetColumnNN(int row, const char *colId,
                                          int pivotPos) const {
  const int col = GetColIndex(colId);
  return col >= 0 ? GetColumnNN(row, col, pivotPos) : &_OxNullVariant;
}

void Ox_Dataset::GetColumn(int row, int col, Ox_Variant &out,
                           int pivotPos) const {
  // 1. Rows kept in a node list, and the pivot, read their own way.
  if (OxIsLinked(*this)) {
    OxCellsLinkGetColumn(*this, row, col, out);
    return;
  }
  if (IsPivot()) {
    const Ox_Variant *constant = ConstCell(*this, col);
    if (constant != nullptr) {
      out = *constant;
      return;
    }
    OxCellsPivotGetColumn(*this, row, col, out, pivotPos);
    return;
  }
  // 2.-5. Constants, plain rows (a missing row or cell reads as null).
  const CellPlace place = Locate(*this, row, col);
  switch (place.kind) {
    case CellPlace::kConst:
      if (place.cell != nullptr) out = *place.cell;
      return;
    case CellPlace::kCell:
      out = *CellOfNN(place.record, col);
      return;
    case CellPlace::kSummary:
      // 6.-10. A summary row's cell, computed now: nothing is cached.
      SummaryValue(*this, place, col, out);
      return;
    default:
      return;
  }
}

void Ox_Dataset::GetColumn(int row, const char *colId, Ox_Variant &out,
                           int pivotPos) const {
  const int col = GetColIndex(colId);
  if (col >= 0) GetColumn(row, col, out, pivotPos);
}

// ===========================================================================
// Stored rows

const Ox_Variant *Ox_Dataset::GetColumnNF(int row, int col,
                                          int pivotPos) const {
  if (OxIsLinked(*this)) return nullptr;
  return LocateNF(*this, row, col, pivotPos).cell;
}

const Ox_Variant *Ox_Dataset::GetColumnNF(int row, const char *colId,
                                          int pivotPos) const {
  const int col = GetColIndex(colId);
  return col >= 0 ? GetColumnNF(row, col, pivotPos) : nullptr;
}

void Ox_Dataset::GetColumnNF(int row, int col, Ox_Variant &out,
                             int pivotPos) const {
  if (OxIsLinked(*this)) {
    OxCellsLinkGetColumnNF(*this, row, col, out);
    return;
  }
  const NFPlace place = LocateNF(*this, row, col, pivotPos);
  if (place.found) {
    out = *OrNull(place.cell);
  } else if (IsView(*this)) {
    // A view reports nothing as null.
    out.Clear();
  }
}

void Ox_Dataset::GetColumnNF(int row, const char *colId, Ox_Variant &out,
                             int pivotPos) const {
  const int col = GetColIndex(colId);
  if (col >= 0) {
    GetColumnNF(row, col, out, pivotPos);
  } else if (IsView(*this)) {
    out.Clear();
  }
}

const Ox_Variant *Ox_Dataset::GetColumnNFNN(int row, int col,
                                            int pivotPos) const {
  return OrNull(GetColumnNF(row, col, pivotPos));
}

const Ox_Variant *Ox_Dataset::GetColumnNFNN(int row, const char *colId,
                                            int pivotPos) const {
  return OrNull(GetColumnNF(row, colId, pivotPos));
}

// ===========================================================================
// Buffer rows and deleted rows

const Ox_Variant *Ox_Dataset::GetOrgBuffColumn(int bufRow, int col) const {
  if (IsView(*this)) return nullptr;
  const Ox_Record *record = orgBuff.GetItem(bufRow);
  if (bufRow < 0 || record == nullptr) return nullptr;
  const int normal = GetNormalCount();
  if (col >= 0 && col < normal) return record->GetItem(col);
  return ConstCell(*this, col);
}

const Ox_Variant *Ox_Dataset::GetOrgBuffColumn(int bufRow,
                                               const char *colId) const {
  const int col = GetColIndex(colId);
  return col >= 0 ? GetOrgBuffColumn(bufRow, col) : nullptr;
}

const Ox_Variant *Ox_Dataset::GetOrgBuffColumnNN(int bufRow, int col) const {
  return OrNull(GetOrgBuffColumn(bufRow, col));
}

const Ox_Variant *Ox_Dataset::GetOrgBuffColumnNN(int bufRow,
                                                 const char *colId) const {
  return OrNull(GetOrgBuffColumn(bufRow, colId));
}

const Ox_Variant *Ox_Dataset::GetDelColumn(int n, int col) const {
  // The n-th entry of type delete, read as a buffer row.
  if (n < 0 || n >= orgBuff.Count()) return nullptr;
  const int bufRow = GetDelRowIdx(n);
  return bufRow >= 0 ? GetOrgBuffColumn(bufRow, col) : nullptr;
}

const Ox_Variant *Ox_Dataset::GetDelColumn(int n, const char *colId) const {
  const int col = GetColIndex(colId);
  return col >= 0 ? GetDelColumn(n, col) : nullptr;
}

const Ox_Variant *Ox_Dataset::GetDelColumnNN(int n, int col) const {
  return OrNull(GetDelColumn(n, col));
}

const Ox_Variant *Ox_Dataset::GetDelColumnNN(int n, const char *colId) const {
  return OrNull(GetDelColumn(n, colId));
}

// ===========================================================================
// Originals

const Ox_Variant *Ox_Dataset::GetOrgColumn(int row, int col) const {
  // 1. A view keeps no originals.
  if (IsView(*this)) return nullptr;
  // 2. A summary row has none either (read through recIndex only).
  if (recIndexValid != 0 && OxIndexLevel(recIndex.GetItem(row)) > 0)
    return nullptr;
  // 3. A row without an original: its present value.
  const int bufRow = GetOrgIdx(row);
  if (bufRow < 0) return GetColumn(row, col, -1);
  // 4. The original's cell.
  return CellOf(orgBuff.GetItem(bufRow), col);
}

const Ox_Variant *Ox_Dataset::GetOrgColumn(int row, const char *colId) const {
  const int col = GetColIndex(colId);
  if (col < 0 || IsView(*this)) return nullptr;
  // The visible row goes through the filter index first, and the position
  // serves as the row number from here on.
  const int position = OrgPosition(*this, row);
  if (position < 0) return nullptr;
  if (recIndexValid != 0 && OxIndexLevel(recIndex.GetItem(position)) > 0)
    return nullptr;
  const int bufRow = GetOrgIdx(position);
  const Ox_Record *original = orgBuff.GetItem(bufRow);
  // Without an original entry, the present value.
  if (bufRow < 0 || original == nullptr) return GetColumn(position, col, -1);
  return original->GetItem(col);
}

const Ox_Variant *Ox_Dataset::GetOrgColumnNN(int row, int col) const {
  const int position = OrgPosition(*this, row);
  if (position < 0) return &_OxNullVariant;
  return OrNull(GetOrgColumn(position, col));
}

const Ox_Variant *Ox_Dataset::GetOrgColumnNN(int row,
                                             const char *colId) const {
  const int col = GetColIndex(colId);
  if (col < 0) return &_OxNullVariant;
  return GetOrgColumnNN(row, col);
}

const Ox_Variant *Ox_Dataset::GetOrgColumnNF(int row, int col) const {
  const int bufRow = GetOrgIdxNF(row);
  // Without an original the stored row is read as if it were visible.
  if (bufRow < 0) return GetColumn(row, col, -1);
  return CellOf(orgBuff.GetItem(bufRow), col);
}

const Ox_Variant *Ox_Dataset::GetOrgColumnNF(int row,
                                             const char *colId) const {
  const int col = GetColIndex(colId);
  return col >= 0 ? GetOrgColumnNF(row, col) : nullptr;
}

const Ox_Variant *Ox_Dataset::GetOrgColumnNFNN(int row, int col) const {
  return OrNull(GetOrgColumnNF(row, col));
}

const Ox_Variant *Ox_Dataset::GetOrgColumnNFNN(int row,
                                               const char *colId) const {
  return OrNull(GetOrgColumnNF(row, colId));
}
