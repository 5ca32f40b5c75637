// Shared set-up of the row store tests: small datasets whose rows can be
// told apart by their first cell.
#ifndef OX_TESTS_DATASET_ROWS_TEST_UTIL_H
#define OX_TESTS_DATASET_ROWS_TEST_UTIL_H

#include "Ox_Dataset.h"

namespace rows_test {

// Index entry with a group level in the high byte.
inline int Summary(int level, int value) { return (level << 24) | value; }

// Columns "A" (INT) and "B" (STRING).
inline void AddColumns(Ox_Dataset &ds) {
  ds.AddColumn("A", 2, 0, 1);
  ds.AddColumn("B", 1, 10, 1);
}

// Writes a cell straight into a stored row, outside any tracking.
inline void Put(Ox_Dataset &ds, int stored, int col, const Ox_Variant &v) {
  ds.recs.GetItem(stored)->SetColumn(col, &v);
}

// `n` normal rows, stored row i holding A = 10 * i and B = "r<i>".
inline void Fill(Ox_Dataset &ds, int n) {
  AddColumns(ds);
  for (int i = 0; i < n; ++i) {
    const int stored = ds.recs.Count();
    ds.AppendRow(0);
    Put(ds, stored, 0, Ox_Variant(static_cast<long>(10 * i)));
    char text[16] = {'r', static_cast<char>('0' + i % 10), 0};
    Put(ds, stored, 1, Ox_Variant(text));
  }
}

// A of a stored row; -1 when the row is missing or the cell null.
inline long StoredA(const Ox_Dataset &ds, int stored) {
  const Ox_Record *row = ds.recs.GetItem(stored);
  if (row == nullptr) return -1;
  const Ox_Variant *cell = row->GetItem(0);
  if (cell == nullptr || cell->GetType() == 0) return -1;
  return cell->ToInteger();
}

// A of a visible row, through operator[]; -1 for no row or a summary row.
inline long VisibleA(const Ox_Dataset &ds, int row) {
  const Ox_Record &record = ds[row];
  if (&record == &Ox_Record::_OxNullRecord) return -1;
  const Ox_Variant *cell = record.GetItem(0);
  if (cell == nullptr || cell->GetType() == 0) return -1;
  return cell->ToInteger();
}

// Makes `view` a plain logical view over `bound` by its members.
inline void BindView(Ox_Dataset &view, Ox_Dataset &bound) {
  view.logicalType = 32;
  view.bindDataset = &bound;
  view.pConsts = bound.pConsts;
  view.pCols = bound.pCols;
  view.pRecs = bound.pRecs;
  view.pOrgBuff = bound.pOrgBuff;
}

}  // namespace rows_test

#endif
