// Ox_Dataset, the filter: the translations between the rows of a view and
// the stored rows of the dataset it is bound to.
//
// A view shows rows of its bound dataset through recIndex, two integers a
// row, the first naming the stored row; with the second filter level in
// force, filterIndex picks positions of recIndex. GetRealFilterRowPos goes
// from a visible row to the stored row, FindFilterBindRowPos back. A group
// dataset holds one record per key combination of its bound dataset;
// FindGroupBindRowPos finds the record that stands for a bound row.
#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

namespace {

// What a visible position reads when it leads to no pair: beyond every
// stored row, so that a search moves below it, and equal to none.
const long long kBeyondList = 1LL << 40;

// The stored row that visible position `m` of a view shows, or
// kBeyondList.
long long ShownStoredRow(const Ox_Dataset &ds, int m) {
  const int stored = ds.GetRealFilterRowPos(m, 0);
  return stored < 0 ? kBeyondList : stored;
}

// Visible positions of a view: entries of filterIndex, or pairs of
// recIndex.
int ShownRowCount(const Ox_Dataset &ds) {
  return ds.filterActive != 0 ? ds.filterIndex.Count()
                              : ds.recIndex.Count() / 2;
}

}  // namespace

int Ox_Dataset::GetRealFilterRowPos(int row, int skiploc) const {
  // A physical dataset's rows need no translation.
  if (IsPhysical()) return row;
  // The pair of recIndex: the raw entry of filterIndex with the second
  // level in force (unless skipped), else the row itself. A summary entry
  // of filterIndex leads past the list and gives no row.
  long long pair = row;
  if (skiploc == 0 && filterActive != 0) {
    if (row < 0 || row >= filterIndex.Count()) return -1;
    pair = filterIndex.Items(row);
  }
  const long long at = 2 * pair;
  if (pair < 0 || at >= recIndex.Count()) return -1;
  return OxIndexValue(recIndex.Items(static_cast<int>(at)));
}

int Ox_Dataset::FindFilterBindRowPos(int stored, int, int) {
  // A physical dataset shows its stored rows as they are.
  if (IsPhysical()) return stored;
  // 1. With neither level in force there is no list to search.
  if (recIndexValid == 0 && filterActive == 0) return -1;
  if (stored < 0) return -1;
  if (indexOrdered == 0) {
    // Without the order guarantee: the first position, from 0, that shows
    // the row.
    const int count = ShownRowCount(*this);
    for (int m = 0; m < count; ++m) {
      if (ShownStoredRow(*this, m) == stored) return m;
    }
    return -1;
  }
  // 2. The list ascends in stored rows, one position per row at most, so
  // the position of a stored row is at most the row itself.
  int lo = 0;
  int hi = stored;
  // 3. Halve the range while it holds more than two positions.
  while (hi - lo >= 2) {
    const int m = lo + (hi - lo) / 2;
    const long long value = ShownStoredRow(*this, m);
    if (value == stored) return m;
    if (value > stored) {
      hi = m;
    } else {
      lo = m;
    }
  }
  // 4. The positions left, both ends included.
  for (int m = lo; m <= hi; ++m) {
    if (ShownStoredRow(*this, m) == stored) return m;
  }
  return -1;
}

int Ox_Dataset::FindGroupBindRowPos(int stored, int, int) {
  // Only a group dataset stands for rows of another.
  if (!IsGroup()) return stored;
  if (pRecs == nullptr) return -1;
  // The bound row must exist and not be a deleted one.
  const Ox_Record *record = pRecs->GetItem(stored);
  if (record == nullptr || record->GetType() == 8) return -1;
  // By key in the row tree while the order holds, else by a walk over the
  // group dataset's own records.
  if (indexOrdered != 0) return OxFilterGroupFindByRec(*this, *record);
  return OxFilterGroupFindLinear(*this, *record);
}
