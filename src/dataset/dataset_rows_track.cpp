// The row-state half of a cell write. The cell writer (UpdateColumn)
// converts the value to the column's cell type and calls OxRowsWriteCell,
// which stores it and, with change tracking on, moves the row between
// normal and update, keeping the row as it was in orgBuff.
#include "dataset/dataset_internal.h"

namespace {

// A cell counts as null when it is missing or of type 0.
bool IsNullCell(const Ox_Variant *cell) {
  return cell == nullptr || cell->GetType() == Ox_Variant::kNull;
}

// Whether `value`, about to go into column `col`, equals the original of
// that column, judged by the type of the original cell.
bool EqualsOriginalCell(const Ox_Variant &original, const Ox_Variant &value) {
  switch (original.GetType()) {
    case Ox_Variant::kNull:
      return value.GetType() == Ox_Variant::kNull;
    case Ox_Variant::kInteger:
      return original.ToInteger() == value.ToInteger();
    case Ox_Variant::kDecimal:
      return original.ToDouble() == value.ToDouble();
    case Ox_Variant::kDate:
      return original.ToDateTime() == value.ToDateTime();
    case Ox_Variant::kBlob:
      // Bytes always count as changed.
      return false;
    default:
      return original.ToString().Compare(value.ToString().GetString()) == 0;
  }
}

// Whether the row, once `value` is in column `col`, equals its original:
// the new value equals the original's cell, both have the same number of
// cells, and every other cell is null in both or equal in both.
bool ReturnsToOriginal(const Ox_Record &original, const Ox_Record &row,
                       int col, const Ox_Variant &value) {
  if (!EqualsOriginalCell(*original.GetItemNN(col), value)) return false;
  if (original.Count() != row.Count()) return false;
  for (int i = 0; i < row.Count(); ++i) {
    if (i == col) continue;
    const Ox_Variant *before = original.GetItem(i);
    const Ox_Variant *now = row.GetItem(i);
    const bool beforeNull = IsNullCell(before);
    if (beforeNull != IsNullCell(now)) return false;
    if (!beforeNull && !(*before == *now)) return false;
  }
  return true;
}

}  // namespace

int OxRowsWriteCell(Ox_Dataset &ds, int row, int col,
                    const Ox_Variant &value) {
  // The record for writing and the column's description must exist.
  Ox_Record *record = ds.recs.GetItem(row);
  if (record == nullptr || col < 0 || ds.cols.GetItem(col) == nullptr)
    return 0;
  // Without tracking the value is stored as it is, equal or not.
  if (ds.updateFlag == 0) {
    record->Set(col, value, 1);
    return 1;
  }
  const int type = record->GetType();
  if (type == 4) {
    // An updated row returns to normal when this set makes it equal to
    // its original: the original leaves orgBuff, and the rows whose
    // originals stood behind it follow it down by one.
    const int position = record->orgRef;
    const Ox_Record *original = ds.orgBuff.GetItem(position);
    if (original == nullptr) return 0;
    if (ReturnsToOriginal(*original, *record, col, value)) {
      for (int i = 0; i < ds.recs.Count(); ++i) {
        Ox_Record *other = ds.recs.GetItem(i);
        if (other->orgRef > position) --other->orgRef;
      }
      ds.orgBuff.Delete(position);
      record->SetType(1);
      record->orgRef = -1;
    }
  } else if (type != 2) {
    // A normal row: an equal value changes nothing. Otherwise the row
    // becomes an update, and a copy of it as it was (then already of type
    // update) goes to orgBuff; orgRef keeps its place in 16 bits.
    if (record->GetItemNN(col)->Compare(value) == 0) return 1;
    record->SetType(4);
    const int position = ds.orgBuff.Add(record);
    if (position < 0) return 0;
    record->SetOrgIdx(static_cast<short>(position));
  }
  // An inserted row takes any value without a trace.
  record->SetColumn(col, &value);
  return 1;
}
