// Ox_Dataset, the row store: counts and row types, the resolution of
// visible rows through the two index lists, and the life of a row from
// insert to delete with its original kept in orgBuff.
//
// Three numberings meet here. A visible row is what a caller sees: the rows
// that filters leave, summary rows of a grouping included. A stored row is
// a position in `recs`. A buffer row is a position in `orgBuff`. recIndex
// (in force while recIndexValid) maps visible rows to stored rows; the
// second-level filter index (filterIndex, while filterActive) maps visible
// rows to positions in recIndex. An index entry keeps its value in the low
// 24 bits and a group level in the high 8: a level above 0 is a summary row,
// which has no record of its own.
//
// A dataset that is not physical is a view over the records of the dataset
// it is bound to (*pRecs); its recIndex holds two integers a row, the entry
// and a selection word. Rows kept in an XML node list, and the grouping
// that places summary rows, are other concerns: the row store hands over to
// them through the hooks of dataset_internal.h.
#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

namespace {

// A view over another dataset's records: two integers a row in recIndex.
bool IsView(const Ox_Dataset &ds) { return !ds.IsPhysical(); }

// Replaces the value of an index entry, keeping its level.
int WithValue(int entry, int value) {
  return (entry & ~kOxIndexValueMask) | (value & kOxIndexValueMask);
}

// Number of summary entries in `list` before position `end`.
int CountSummaries(const Ox_IntList &list, int end) {
  int count = 0;
  for (int i = 0; i < end && i < list.Count(); ++i) {
    if (OxIndexLevel(list.Items(i)) > 0) ++count;
  }
  return count;
}

// The index after a row moved from `from` to `to`: the entries between
// take the value of their neighbour on the far side, one lower (moving
// down) or one higher (moving up); the entry at `to` stays as it is.
// With `plainOnly` only level-0 entries are written, their values masked
// to 24 bits.
void ShiftIndex(Ox_IntList &list, int from, int to, bool plainOnly) {
  const int count = list.Count();
  if (from < 0 || to < 0 || from >= count || to >= count) return;
  const int step = from < to ? 1 : -1;
  for (int i = from; i != to; i += step) {
    const int value = list.Items(i + step) - step;
    if (!plainOnly) {
      list.Set(i, value);
    } else if (OxIndexLevel(list.Items(i)) == 0) {
      list.Set(i, value & kOxIndexValueMask);
    }
  }
}

// A new record's row type: insert when the caller marks it and tracking
// is on, else normal. Gives the record its null cells, one per normal
// column.
void PrepareNewRow(Ox_Dataset &ds, Ox_Record *row, int mark) {
  if (mark != 0 && ds.updateFlag != 0) {
    row->SetType(2);
    ++ds.changeCount;
  }
  const int cells = ds.pCols != nullptr ? ds.pCols->Count() : 0;
  if (cells > 0) row->AllocItems(cells);
}

}  // namespace

// ===========================================================================
// Resolution of visible rows

const Ox_RecList &OxRowRecords(const Ox_Dataset &ds) {
  if (IsView(ds) && ds.pRecs != nullptr) return *ds.pRecs;
  return ds.recs;
}

OxRowRef OxResolveRow(const Ox_Dataset &ds, int row, bool useFilter) {
  OxRowRef ref = {OxRowRef::kNone, -1, -1, -1, 0};
  const Ox_RecList &records = OxRowRecords(ds);
  if (row < 0) return ref;
  // 1. Without the row index the visible row is the stored row.
  if (ds.recIndexValid == 0) {
    if (row >= records.Count()) return ref;
    ref.kind = OxRowRef::kStored;
    ref.stored = row;
    return ref;
  }
  // 2. Through the filter index to a position in recIndex.
  int position = row;
  if (useFilter && ds.filterActive != 0) {
    if (row >= ds.filterIndex.Count()) return ref;
    const int entry = ds.filterIndex.Items(row);
    ref.filterPos = row;
    if (OxIndexLevel(entry) > 0) {
      ref.kind = OxRowRef::kSummaryInFilter;
      ref.entry = entry;
      return ref;
    }
    position = OxIndexValue(entry);
  }
  // 3. Through recIndex to the stored row; a view reads the first integer
  // of its pair.
  const long long at = IsView(ds) ? 2LL * position : position;
  if (at >= ds.recIndex.Count()) return ref;
  const int entry = ds.recIndex.Items(static_cast<int>(at));
  ref.indexPos = static_cast<int>(at);
  if (OxIndexLevel(entry) > 0) {
    ref.kind = OxRowRef::kSummaryInIndex;
    ref.entry = entry;
    return ref;
  }
  const int stored = OxIndexValue(entry);
  if (stored >= records.Count()) return ref;
  ref.kind = OxRowRef::kStored;
  ref.stored = stored;
  return ref;
}

// ===========================================================================
// Counts

int Ox_Dataset::GetRowCount() const {
  if (OxIsLinked(*this)) return OxRowsLinkRowCount(*this);
  if (filterActive != 0) return filterIndex.Count();
  if (IsView(*this)) {
    if (bindDataset == nullptr) return -1;
    return (pivotFlag != 0 ? rowValueList.Count() : recIndex.Count()) / 2;
  }
  if (recIndexValid != 0) return recIndex.Count();
  return recs.Count();
}

int Ox_Dataset::GetRowCountNF() const {
  if (OxIsLinked(*this)) return OxRowsLinkRowCountNF(*this);
  if (IsView(*this)) {
    if (bindDataset == nullptr) return -1;
    return (pivotFlag != 0 ? rowValueList.Count() : recIndex.Count()) / 2;
  }
  return recs.Count();
}

int Ox_Dataset::GetOrgBuffCount() const {
  const Ox_Dataset *owner = _GetColOwner();
  return owner != nullptr ? owner->orgBuff.Count() : -1;
}

int Ox_Dataset::GetDelRowCount() const {
  int count = 0;
  for (int i = 0; i < orgBuff.Count(); ++i) {
    if (orgBuff.GetItem(i)->GetType() == 8) ++count;
  }
  return count;
}

int Ox_Dataset::GetDelRowIdx(int n) const {
  if (!IsPhysical() || n < 0) return -1;
  for (int i = 0; i < orgBuff.Count(); ++i) {
    if (orgBuff.GetItem(i)->GetType() != 8) continue;
    if (n == 0) return i;
    --n;
  }
  return -1;
}

int Ox_Dataset::GetUpdateRowCount() const {
  int count = 0;
  for (int i = 0; i < recs.Count(); ++i) {
    const int type = recs.GetItem(i)->GetType();
    if (type == 2 || type == 4) ++count;
  }
  return count;
}

int Ox_Dataset::IsUpdated() const {
  // The physical dataset at the end of the bind chain decides. A broken
  // chain is a caller's error; it answers 0 rather than fault.
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr) return 0;
  return (owner->changeCount > 0 || owner->orgBuff.Count() > 0) ? 1 : 0;
}

int Ox_Dataset::SetUpdate(int on) {
  const int old = updateFlag;
  updateFlag = on;
  return old;
}

// ===========================================================================
// Row types and the reverse lookups

int Ox_Dataset::GetRowType(int row) const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr) return -1;
  if (OxIsLinked(*owner)) return OxRowsLinkRowType(*owner, row);
  const OxRowRef ref = OxResolveRow(*owner, row, true);
  if (ref.kind == OxRowRef::kNone) return 0;
  if (ref.kind != OxRowRef::kStored) return 16;
  return owner->recs.GetItem(ref.stored)->GetType();
}

int Ox_Dataset::GetRowTypeNF(int row) const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr) return -1;
  if (OxIsLinked(*owner)) return OxRowsLinkRowTypeNF(*owner, row);
  const Ox_Record *record = owner->recs.GetItem(row);
  return record != nullptr ? record->GetType() : 0;
}

int Ox_Dataset::GetOrgBuffType(int bufRow) const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr) return -1;
  const Ox_Record *record = owner->orgBuff.GetItem(bufRow);
  return record != nullptr ? record->GetType() : 0;
}

int Ox_Dataset::GetType(int row) const {
  // This dataset's own rows, by its own indexes.
  if (IsView(*this)) return -1;
  const OxRowRef ref = OxResolveRow(*this, row, true);
  if (ref.kind == OxRowRef::kNone) return 0;
  if (ref.kind != OxRowRef::kStored) return 16;
  return recs.GetItem(ref.stored)->GetType();
}

int Ox_Dataset::SetRowType(int row, int type) {
  if (IsView(*this)) return 0;
  const OxRowRef ref = OxResolveRow(*this, row, true);
  if (ref.kind != OxRowRef::kStored) return 0;
  // Only the row type: changeCount and orgBuff are left as they are.
  recs.GetItem(ref.stored)->SetType(type);
  return 1;
}

int Ox_Dataset::SetRowTypeNF(int row, int type) {
  if (IsView(*this)) return 0;
  Ox_Record *record = recs.GetItem(row);
  if (record == nullptr) return 0;
  record->SetType(type);
  return 1;
}

void Ox_Dataset::SetType(int row, int type) { SetRowType(row, type); }

int Ox_Dataset::GetOrgIdx(int row) const {
  if (IsView(*this)) return -1;
  // Through recIndex only: the filter index is not read.
  const OxRowRef ref = OxResolveRow(*this, row, false);
  if (ref.kind != OxRowRef::kStored) return -1;
  return recs.GetItem(ref.stored)->GetOrgIdx();
}

int Ox_Dataset::GetOrgIdxNF(int row) const {
  if (IsView(*this)) return -1;
  const Ox_Record *record = recs.GetItem(row);
  return record != nullptr ? record->GetOrgIdx() : -1;
}

int Ox_Dataset::GetRowIndex(int row) const {
  // No range test: the index lists give 0 out of range.
  if (recIndexValid == 0) return row;
  int position = row;
  if (filterActive != 0) {
    const int entry = filterIndex.GetItem(row);
    // A summary row of the filter index gives its own value.
    if (OxIndexLevel(entry) > 0) return OxIndexValue(entry);
    position = OxIndexValue(entry);
  }
  int entry;
  if (OxIsLinked(*this)) {
    entry = linkIndex.GetItem(position);
  } else if (IsView(*this)) {
    const Ox_IntList &pairs = pivotFlag != 0 ? rowValueList : recIndex;
    entry = position <= 0x3FFFFFFF ? pairs.GetItem(position * 2) : 0;
  } else {
    entry = recIndex.GetItem(position);
  }
  return OxIndexValue(entry);
}

int Ox_Dataset::GetRowIdxNF(int stored) const {
  if (OxIsLinked(*this)) return OxRowsLinkRowIdx(*this, stored);
  if (recIndexValid == 0) {
    return (stored >= 0 && stored < GetRowCountNF()) ? stored : -1;
  }
  // The position in recIndex of the stored row (plain entries only), then,
  // with the filter in force, the position in filterIndex of that one.
  const int stride = IsView(*this) ? 2 : 1;
  int position = -1;
  for (int i = 0; i < recIndex.Count(); i += stride) {
    const int entry = recIndex.Items(i);
    if (OxIndexLevel(entry) == 0 && OxIndexValue(entry) == stored) {
      position = i / stride;
      break;
    }
  }
  if (position < 0 || filterActive == 0) return position;
  for (int i = 0; i < filterIndex.Count(); ++i) {
    const int entry = filterIndex.Items(i);
    if (OxIndexLevel(entry) == 0 && OxIndexValue(entry) == position) return i;
  }
  return -1;
}

const Ox_Record &Ox_Dataset::operator[](int row) const {
  if (OxIsLinked(*this)) return Ox_Record::_OxNullRecord;
  const OxRowRef ref = OxResolveRow(*this, row, true);
  if (ref.kind != OxRowRef::kStored) return Ox_Record::_OxNullRecord;
  return *OxRowRecords(*this).GetItem(ref.stored);
}

int Ox_Dataset::GetXmlTypeValue(const Ox_NamedStrList *attributes) {
  if (attributes == nullptr) return 1;
  switch (attributes->Str("type").GetString()[0]) {
    case 'I':
    case 'i':
      return 2;
    case 'D':
    case 'd':
      return 8;
    case 'U':
    case 'u':
      return 4;
    default:
      return 1;
  }
}

// ===========================================================================
// New rows

int Ox_Dataset::AppendRow(int mark) {
  // 1. Only a physical dataset with records of its own takes a row.
  if (IsView(*this) || OxIsLinked(*this)) return -1;
  // 2. A default record: normal, or insert when marked under tracking.
  const int stored = recs.Add(static_cast<const Ox_Record *>(nullptr));
  if (stored < 0) return -1;
  Ox_Record *row = recs.GetItem(stored);
  // 4. Its null cells (done with the type, before the index: the order
  // has no effect that a caller can see).
  PrepareNewRow(*this, row, mark);
  // 3. The stored row goes into the row index and, with the filter in
  // force, the same stored row into the filter index.
  int result = stored;
  if (recIndexValid != 0) {
    result = recIndex.Add(stored);
    if (filterActive != 0) result = filterIndex.Add(stored);
  }
  // 5. The position in the last list written.
  return result;
}

int Ox_Dataset::InsertRow(int row, int mark) {
  // 1. Views take no row; a node list has its own insert.
  if (IsView(*this)) return -1;
  if (OxIsLinked(*this)) return OxRowsLinkInsertRow(*this, row);
  const int count = recs.Count();
  if (recIndexValid == 0) {
    // 3. Straight into recs, the position clamped to the list.
    if (row < 0) row = 0;
    if (row > count) row = count;
    if (recs.Insert(row, static_cast<const Ox_Record *>(nullptr)) < 0)
      return -1;
    // 4. Type and null cells.
    PrepareNewRow(*this, recs.GetItem(row), mark);
    return row;
  }
  // 2. The stored position is where the visible row now leads (0 where
  // the index has no entry), at most the end of recs.
  int position = row;
  if (filterActive != 0) position = OxIndexValue(filterIndex.GetItem(row));
  int stored = OxIndexValue(recIndex.GetItem(position));
  if (stored > count) stored = count;
  if (recs.Insert(stored, static_cast<const Ox_Record *>(nullptr)) < 0)
    return -1;
  PrepareNewRow(*this, recs.GetItem(stored), mark);
  // Entries that lead to the new stored row or beyond move up by one,
  // summary entries included, their level kept; then the new entry goes
  // in at `row`, clamped to the index like the plain case. filterIndex is
  // left as it is.
  for (int i = 0; i < recIndex.Count(); ++i) {
    const int entry = recIndex.Items(i);
    if (OxIndexValue(entry) >= stored) {
      recIndex.Set(i, WithValue(entry, OxIndexValue(entry) + 1));
    }
  }
  int at = row < 0 ? 0 : row;
  if (at > recIndex.Count()) at = recIndex.Count();
  return recIndex.Insert(at, stored);
}

// ===========================================================================
// Deleting rows

long Ox_Dataset::DeleteRow(int row) {
  // 1. Views delete nothing; a node list has its own delete.
  if (IsView(*this)) return -1;
  if (OxIsLinked(*this)) return OxRowsLinkDeleteRow(*this, row);
  // 2. A summary row is only an index entry: that entry alone goes.
  const OxRowRef ref = OxResolveRow(*this, row, true);
  if (ref.kind == OxRowRef::kSummaryInFilter) {
    filterIndex.Delete(ref.filterPos);
    return 0;
  }
  if (ref.kind == OxRowRef::kSummaryInIndex) {
    recIndex.Delete(ref.indexPos);
    return 0;
  }
  if (ref.kind == OxRowRef::kNone) return -1;
  const int stored = ref.stored;
  Ox_Record *record = recs.GetItem(stored);
  // 3. Under tracking the row leaves a trace in orgBuff, by its state.
  if (updateFlag != 0) {
    if (record->GetType() == 2) {
      // An inserted row goes without a trace.
      --changeCount;
    } else if ((record->status & 4) != 0) {
      // An updated row: its original becomes the deleted row and keeps
      // its own buffer row; the present values are lost.
      Ox_Record *original = orgBuff.GetItem(record->orgRef);
      if (original == nullptr) return -1;
      original->SetType(8);
      original->orgRef = record->orgRef;
    } else {
      // Any other row moves to orgBuff as it is: orgBuff links the same
      // record, which outlives its removal from recs.
      record->SetType(8);
      record->orgRef = stored;
      if (orgBuff.AddLink(record) < 0) return -1;
    }
  }
  // 4. Without the row index the stored row is all there is.
  if (recIndexValid == 0) return recs.Delete(stored);
  // 5. With it, the entries go too and the rest close up.
  bool nearSummary = false;
  if (filterActive != 0 && ref.filterPos >= 0) {
    filterIndex.Delete(ref.filterPos);
    nearSummary = ref.filterPos < filterIndex.Count() &&
                  OxIndexLevel(filterIndex.Items(ref.filterPos)) > 0;
  }
  const int position = ref.indexPos;
  recIndex.Delete(position);
  const long status = recs.Delete(stored);
  if (!nearSummary) {
    // The summary row of this row's group stands before it with reversed
    // sub-sums, else after it.
    const int neighbour = reverseSubSum != 0 ? position - 1 : position;
    nearSummary = neighbour >= 0 && neighbour < recIndex.Count() &&
                  OxIndexLevel(recIndex.Items(neighbour)) > 0;
  }
  if (filterActive != 0) {
    for (int i = 0; i < filterIndex.Count(); ++i) {
      const int entry = filterIndex.Items(i);
      if (OxIndexValue(entry) >= position) {
        filterIndex.Set(i, WithValue(entry, OxIndexValue(entry) - 1));
      }
    }
  }
  for (int i = 0; i < recIndex.Count(); ++i) {
    const int entry = recIndex.Items(i);
    if (OxIndexValue(entry) >= stored) {
      recIndex.Set(i, WithValue(entry, OxIndexValue(entry) - 1));
    }
  }
  // A group whose row went may need its summary rows anew.
  if (nearSummary && filterStr.GetLength() == 0 && groupKeyList.Count() > 0)
    OxRowsRecalcGroup(*this);
  // 6. The status of the delete.
  return status;
}

int Ox_Dataset::DeleteSelected() {
  if (IsView(*this)) return -1;
  int deleted = 0;
  for (int row = GetRowCount() - 1; row >= 0; --row) {
    const OxRowRef ref = OxResolveRow(*this, row, true);
    if (ref.kind != OxRowRef::kStored) continue;
    Ox_Record *record = recs.GetItem(ref.stored);
    if (record->GetSelect() == 0) continue;
    record->SetSelect(0);
    if (DeleteRow(row) == 0) ++deleted;
  }
  if (deleted > 0) {
    ClearSelect();
    if (filterStr.GetLength() == 0 && groupKeyList.Count() > 0)
      OxRowsRecalcGroup(*this);
  }
  return deleted;
}

void Ox_Dataset::DeleteAll() {
  if (IsView(*this)) return;
  recIndex.Clear();
  filterIndex.Clear();
  recIndexValid = 0;
  filterActive = 0;
  if (updateFlag == 0) {
    orgBuff.Clear();
    recs.Clear();
  } else {
    // Under tracking every row goes the way of DeleteRow.
    for (int row = GetRowCount() - 1; row >= 0; --row) DeleteRow(row);
  }
  indexOrdered = 1;
}

// ===========================================================================
// Moving rows

int Ox_Dataset::MoveRow(int from, int to) {
  // 1. A pivot has no rows to move; a node list moves its nodes.
  if (IsPivot()) return 0;
  if (OxIsLinked(*this)) return OxRowsLinkMoveRow(*this, from, to);
  // 2. Nothing to do, or nothing sensible.
  if (recs.Count() == 0 || from == to) return 1;
  if (from < 0 || to < 0) return 0;
  // 3. Summary rows do not move: the raw positions are tested on both
  // lists (an index that is too short answers a plain entry).
  if (recIndexValid != 0) {
    if (OxIndexLevel(recIndex.GetItem(from)) > 0 ||
        OxIndexLevel(recIndex.GetItem(to)) > 0)
      return 0;
    if (filterActive != 0 && (OxIndexLevel(filterIndex.GetItem(from)) > 0 ||
                              OxIndexLevel(filterIndex.GetItem(to)) > 0))
      return 0;
  }
  // 4. The record moves in recs.
  const OxRowRef a = OxResolveRow(*this, from, true);
  const OxRowRef b = OxResolveRow(*this, to, true);
  if (a.kind != OxRowRef::kStored || b.kind != OxRowRef::kStored) return 0;
  if (recs.Move(a.stored, b.stored) != 0) return 0;
  if (recIndexValid == 0) return 1;
  // 5. The visible order follows it through the index in use.
  Ox_IntList &list = filterActive != 0 ? filterIndex : recIndex;
  if (groupKeyList.Count() == 0) {
    ShiftIndex(list, from, to, false);
    return 1;
  }
  // 6. With groups, the positions without summary rows, on the index
  // without them, and the summary rows placed anew.
  const int plainFrom = from - CountSummaries(recIndex, from);
  const int plainTo = to - CountSummaries(recIndex, to);
  OxRowsClearGroup(*this);
  ShiftIndex(list, plainFrom, plainTo, true);
  OxRowsRecalcGroup(*this);
  return 1;
}

int Ox_Dataset::ExChangeRow(int a, int b) {
  if (IsPivot()) return 0;
  if (OxIsLinked(*this)) return OxRowsLinkExChangeRow(*this, a, b);
  if (recs.Count() == 0 || a == b) return 1;
  if (a < 0 || b < 0) return 0;
  if (recIndexValid != 0 && (OxIndexLevel(recIndex.GetItem(a)) > 0 ||
                             OxIndexLevel(recIndex.GetItem(b)) > 0))
    return 0;
  const OxRowRef first = OxResolveRow(*this, a, true);
  const OxRowRef second = OxResolveRow(*this, b, true);
  if (first.kind != OxRowRef::kStored || second.kind != OxRowRef::kStored)
    return 0;
  // The records trade places; the index entries stay where they are.
  if (recs.Exchange(first.stored, second.stored) != 0) return 0;
  if (groupKeyList.Count() > 0) OxRowsRecalcGroup(*this);
  return 1;
}

int Ox_Dataset::ReverseRow() {
  if (IsView(*this)) return -1;
  // Stored rows from both ends towards the middle; indexes untouched.
  const int count = recs.Count();
  for (int i = 0, j = count - 1; i < j; ++i, --j) recs.Exchange(i, j);
  return count;
}

// ===========================================================================
// Selection

void Ox_Dataset::SetSelect(int row, int on) {
  if (OxIsLinked(*this)) {
    OxRowsLinkSetSelect(*this, row, on);
    return;
  }
  if (IsPhysical()) {
    // Through recIndex only; a summary row is left alone.
    const OxRowRef ref = OxResolveRow(*this, row, false);
    if (ref.kind == OxRowRef::kStored) recs.GetItem(ref.stored)->SetSelect(on);
    return;
  }
  // A view keeps the selection word beside each row of its index: set only
  // for exactly 1.
  int target = row;
  if (filterActive != 0) {
    if (row < 0 || row >= filterIndex.Count()) return;
    const int entry = filterIndex.Items(row);
    if (OxIndexLevel(entry) > 0) return;
    target = OxIndexValue(entry);
  }
  if (IsPivot()) {
    const long long at = 2LL * target + 1;
    if (target < 0 || at >= rowValueList.Count()) return;
    target = rowValueList.Items(static_cast<int>(at));
  }
  const long long at = 2LL * target + 1;
  if (target < 0 || at >= recIndex.Count()) return;
  recIndex.Set(static_cast<int>(at), on == 1 ? 0x1000000 : 0);
}

int Ox_Dataset::GetSelect(int row) const {
  if (OxIsLinked(*this)) return OxRowsLinkGetSelect(*this, row);
  if (IsPhysical()) {
    const OxRowRef ref = OxResolveRow(*this, row, false);
    if (ref.kind != OxRowRef::kStored) return 0;
    return recs.GetItem(ref.stored)->GetSelect() != 0 ? 1 : 0;
  }
  int target = row;
  if (filterActive != 0) {
    if (row < 0 || row >= filterIndex.Count()) return 0;
    const int entry = filterIndex.Items(row);
    if (OxIndexLevel(entry) > 0) return 0;
    target = OxIndexValue(entry);
  }
  if (IsPivot()) {
    const long long at = 2LL * target + 1;
    if (target < 0 || at >= rowValueList.Count()) return 0;
    target = rowValueList.Items(static_cast<int>(at));
  }
  const long long at = 2LL * target + 1;
  if (target < 0 || at >= recIndex.Count()) return 0;
  return (recIndex.Items(static_cast<int>(at)) & 0x1000000) != 0 ? 1 : 0;
}

int Ox_Dataset::ClearSelect() {
  if (OxIsLinked(*this)) return OxRowsLinkClearSelect(*this);
  int cleared = 0;
  if (IsPhysical()) {
    for (int i = 0; i < recs.Count(); ++i) {
      Ox_Record *record = recs.GetItem(i);
      if (record->GetSelect() != 0) ++cleared;
      record->SetSelect(0);
    }
    return cleared;
  }
  for (int i = 1; i < recIndex.Count(); i += 2) {
    if (recIndex.Items(i) == 0) continue;
    ++cleared;
    recIndex.Set(i, 0);
  }
  return cleared;
}

// ===========================================================================
// Accepting and undoing changes

void Ox_Dataset::ApplyChange() {
  if (IsView(*this)) return;
  // Every row becomes normal, keeping its filter and selection bits; the
  // originals and the deleted rows are gone for good.
  for (int i = 0; i < recs.Count(); ++i) {
    Ox_Record *record = recs.GetItem(i);
    if (record->GetType() == 1) continue;
    record->SetType(1);
    record->orgRef = -1;
  }
  changeCount = 0;
  orgBuff.Clear();
}

void Ox_Dataset::Reset() {
  // 1. Views keep no changes.
  if (IsView(*this)) return;
  // 2. The undo itself is not tracked.
  const int tracking = updateFlag;
  updateFlag = 0;
  // 3. Updated rows take back their originals (and lose their filter and
  // selection bits with the Assign).
  for (int i = 0; i < recs.Count(); ++i) {
    Ox_Record *record = recs.GetItem(i);
    if (record->GetType() != 4) continue;
    const Ox_Record *original = orgBuff.GetItem(record->orgRef);
    if (original == nullptr) continue;
    record->Assign(original);
    record->SetType(1);
    record->orgRef = -1;
  }
  // 4. Deleted rows come back, from the last deleted, each at the position
  // its orgRef names: the stored row of a deleted normal row, the buffer
  // row of a deleted updated one. A position past the end (possible with
  // a buffer row) puts the row at the end. The indexes are not adjusted.
  for (int i = orgBuff.Count() - 1; i >= 0; --i) {
    const Ox_Record *deleted = orgBuff.GetItem(i);
    if (deleted->GetType() != 8 || deleted->orgRef < 0) continue;
    const int at = deleted->orgRef < recs.Count() ? deleted->orgRef
                                                   : recs.Count();
    if (recs.Insert(at, deleted) < 0) continue;
    Ox_Record *restored = recs.GetItem(at);
    restored->SetType(1);
    restored->orgRef = -1;
  }
  // 5. Inserted rows go, from the last visible row.
  const int count = recIndexValid != 0 ? recIndex.Count() : recs.Count();
  for (int row = count - 1; row >= 0; --row) {
    if (GetRowType(row) == 2) DeleteRow(row);
  }
  // 6. Nothing is left to undo.
  changeCount = 0;
  orgBuff.Clear();
  updateFlag = tracking;
}

// ===========================================================================
// The index lists

int Ox_Dataset::ResetRecIndex() {
  if (IsPhysical()) {
    // A group dataset counts the rows of the dataset it is bound to.
    const Ox_RecList *rows = IsGroup() && pRecs != nullptr ? pRecs : &recs;
    recIndex.Reset(rows->Count());
  } else {
    recIndex.Reset2(pRecs != nullptr ? pRecs->Count() : 0, 0);
  }
  indexOrdered = 1;
  return 1;
}

int Ox_Dataset::ResetFilIndex() {
  if (IsPhysical()) {
    filterIndex.Reset(recIndex.Count());
    return 1;
  }
  if (bindDataset == nullptr) return 0;
  filterIndex.Reset(
      (pivotFlag != 0 ? rowValueList.Count() : recIndex.Count()) / 2);
  return 1;
}

int Ox_Dataset::AppendRowIndex(int value) {
  // A pair (value, 0) on every kind of dataset: on a physical dataset that
  // is two entries.
  const int position = recIndex.Add2(value, 0);
  if (position < 0) return -1;
  return IsView(*this) ? position / 2 : position;
}
