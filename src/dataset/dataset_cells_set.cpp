// Ox_Dataset, cell access: the writers. Every write ends in UpdateColumn,
// the one writer of cells: it gives the value the column's cell type and
// hands it to the row store, which moves the row between its states under
// change tracking. SetColumn takes a visible row (and on a view writes the
// bound dataset), SetColumnNF a stored row of this dataset's own records.
#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

namespace {

// Positions and stored rows from this value up are reserved.
const int kOxReservedRow = 0xFFFFFF;

// The variant type in which a column of `colType` keeps its cells. Every
// number that is no column type keeps text, like "STRING".
unsigned short CellType(int colType) {
  switch (colType) {
    case OX_COLTYPE_INT:
      return Ox_Variant::kInteger;
    case OX_COLTYPE_DECIMAL:
      return Ox_Variant::kDecimal;
    case OX_COLTYPE_CURRENCY:
      return Ox_Variant::kCurrency;
    case OX_COLTYPE_DATE:
      return Ox_Variant::kDate;
    case OX_COLTYPE_BLOB:
      return Ox_Variant::kBlob;
    default:
      return Ox_Variant::kString;
  }
}

// The stored row of the bound dataset that visible row `row` of a view
// leads to, -1 when there is none or it is a summary row.
int ViewStoredRow(const Ox_Dataset &ds, int row, int pivotPos) {
  int position = row;
  if (ds.IsPivot()) {
    // A pivot finds the position of its cell in the table.
    position = OxCellsPivotRowPos(ds, row, pivotPos, 0);
    if (position < 0) return -1;
  } else {
    if (ds.filterActive != 0) {
      if (row < 0 || row >= ds.filterIndex.Count()) return -1;
      const int entry = ds.filterIndex.Items(row);
      if (OxIndexLevel(entry) > 0) return -1;
      position = OxIndexValue(entry);
    }
    if (position < 0) return -1;
  }
  // The first integer of the position's pair names the stored row.
  const long long at = 2LL * position;
  if (at >= ds.recIndex.Count()) return -1;
  const int entry = ds.recIndex.Items(static_cast<int>(at));
  if (OxIndexLevel(entry) > 0) return -1;
  return OxIndexValue(entry);
}

}  // namespace

// ===========================================================================
// The one writer

int Ox_Dataset::UpdateColumn(int row, int col, const Ox_Variant *value) {
  // 1. No column below 0.
  if (col < 0) return 0;
  // 2. A constant's column number writes the constant; no row is touched.
  const int normal = GetNormalCount();
  if (col >= normal) return SetConstColumn(col - normal, value);
  // 3. The record and the column's description must exist.
  if (recs.GetItem(row) == nullptr) return 0;
  const Ox_ColInfo *info = GetColInfo(col);
  if (info == nullptr) return 0;
  // 4. A copy in the column's cell type; a null value stays null in any
  // column. A conversion that fails leaves what ChangeType leaves.
  Ox_Variant copy;
  if (value != nullptr) {
    copy = *value;
    if (value->GetType() != Ox_Variant::kNull)
      copy.ChangeType(CellType(info->type), nullptr);
  }
  // 5.-7. The row store keeps it, and under tracking moves the row
  // between normal and update.
  return OxRowsWriteCell(*this, row, col, copy);
}

// ===========================================================================
// Visible rows

int Ox_Dataset::SetColumn(int row, int col, const Ox_Variant *value,
                          int pivotPos) {
  // 1. No column below 0. Rows kept in a node list are written by their
  // own writer; this one writes nothing there.
  if (col < 0) return 0;
  if (OxIsLinked(*this)) return 1;
  // 2. A physical dataset: the visible row leads to a stored row. A summary
  // row has no cells to write; the reserved positions are refused. A row
  // that leads nowhere can still write a constant, whose row is ignored.
  if (IsPhysical()) {
    int stored = row;
    if (recIndexValid != 0) {
      if (row >= kOxReservedRow) return 0;
      const OxRowRef ref = OxResolveRow(*this, row, true);
      if (ref.kind == OxRowRef::kSummaryInFilter ||
          ref.kind == OxRowRef::kSummaryInIndex)
        return 0;
      if (ref.indexPos >= kOxReservedRow) return 0;
      stored = ref.kind == OxRowRef::kStored ? ref.stored : -1;
      if (stored >= kOxReservedRow) return 0;
    }
    return UpdateColumn(stored, col, value);
  }
  // 3. A view writes the row of the dataset it is bound to.
  if (bindDataset == nullptr) return 0;
  const int stored = ViewStoredRow(*this, row, pivotPos);
  if (stored < 0) return 0;
  return bindDataset->UpdateColumn(stored, col, value);
}

int Ox_Dataset::SetColumn(int row, int col, long value, int pivotPos) {
  const Ox_Variant made(value);
  return SetColumn(row, col, &made, pivotPos);
}

int Ox_Dataset::SetColumn(int row, int col, double value, int pivotPos) {
  const Ox_Variant made(value);
  return SetColumn(row, col, &made, pivotPos);
}

int Ox_Dataset::SetColumn(int row, int col, const Ox_AString &value,
                          int pivotPos) {
  const Ox_Variant made(value);
  return SetColumn(row, col, &made, pivotPos);
}

int Ox_Dataset::SetColumn(int row, int col, const char *text, int length,
                          int pivotPos) {
  Ox_Variant made;
  made.SetStr(text, length);
  return SetColumn(row, col, &made, pivotPos);
}

int Ox_Dataset::SetColumn(int row, const char *colId, const Ox_Variant *value,
                          int pivotPos) {
  const int col = GetColIndex(colId);
  return col >= 0 ? SetColumn(row, col, value, pivotPos) : 0;
}

int Ox_Dataset::SetColumn(int row, const char *colId, long value,
                          int pivotPos) {
  const Ox_Variant made(value);
  return SetColumn(row, colId, &made, pivotPos);
}

int Ox_Dataset::SetColumn(int row, const char *colId, double value,
                          int pivotPos) {
  const Ox_Variant made(value);
  return SetColumn(row, colId, &made, pivotPos);
}

int Ox_Dataset::SetColumn(int row, const char *colId, const Ox_AString &value,
                          int pivotPos) {
  const Ox_Variant made(value);
  return SetColumn(row, colId, &made, pivotPos);
}

int Ox_Dataset::SetColumn(int row, const char *colId, const char *text,
                          int length, int pivotPos) {
  Ox_Variant made;
  made.SetStr(text, length);
  return SetColumn(row, colId, &made, pivotPos);
}

// ===========================================================================
// Stored rows

int Ox_Dataset::SetColumnNF(int row, int col, const Ox_Variant *value) {
  return UpdateColumn(row, col, value);
}

int Ox_Dataset::SetColumnNF(int row, int col, long value) {
  const Ox_Variant made(value);
  return UpdateColumn(row, col, &made);
}

int Ox_Dataset::SetColumnNF(int row, int col, double value) {
  const Ox_Variant made(value);
  return UpdateColumn(row, col, &made);
}

int Ox_Dataset::SetColumnNF(int row, int col, const Ox_AString &value) {
  const Ox_Variant made(value);
  return UpdateColumn(row, col, &made);
}

int Ox_Dataset::SetColumnNF(int row, int col, const char *text, int length) {
  Ox_Variant made;
  made.SetStr(text, length);
  return UpdateColumn(row, col, &made);
}

int Ox_Dataset::SetColumnNF(int row, const char *colId,
                            const Ox_Variant *value) {
  const int col = GetColIndex(colId);
  return col >= 0 ? UpdateColumn(row, col, value) : 0;
}

int Ox_Dataset::SetColumnNF(int row, const char *colId, long value) {
  const Ox_Variant made(value);
  return SetColumnNF(row, colId, &made);
}

int Ox_Dataset::SetColumnNF(int row, const char *colId, double value) {
  const Ox_Variant made(value);
  return SetColumnNF(row, colId, &made);
}

int Ox_Dataset::SetColumnNF(int row, const char *colId,
                            const Ox_AString &value) {
  const Ox_Variant made(value);
  return SetColumnNF(row, colId, &made);
}

int Ox_Dataset::SetColumnNF(int row, const char *colId, const char *text,
                            int length) {
  Ox_Variant made;
  made.SetStr(text, length);
  return SetColumnNF(row, colId, &made);
}
