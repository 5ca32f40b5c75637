// Ox_Dataset, the column concern: the bind chain walk, counts, lookups and
// AddColumn in all its forms.
#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

// ---------------------------------------------------------------------------
// Bind chain

// The columns belong to the first dataset of the chain that is physical:
// walk from this dataset along bindDataset while it is not. A chain that
// ends in a null pointer, or that runs in a circle, owns no columns. The
// circle test (a second walker at double speed) only matters for a chain
// that a caller has bound wrongly; a sound chain gives the same answer as
// the plain walk.
const Ox_Dataset *Ox_Dataset::_GetColOwner() const {
  const Ox_Dataset *slow = this;
  const Ox_Dataset *fast = this;
  for (;;) {
    if (fast->IsPhysical()) return fast;
    fast = fast->bindDataset;
    if (fast == nullptr) return nullptr;
    if (fast->IsPhysical()) return fast;
    fast = fast->bindDataset;
    if (fast == nullptr) return nullptr;
    slow = slow->bindDataset;
    if (fast == slow) return nullptr;
  }
}

Ox_Dataset *Ox_Dataset::_GetColOwner() {
  return const_cast<Ox_Dataset *>(
      static_cast<const Ox_Dataset *>(this)->_GetColOwner());
}

// ---------------------------------------------------------------------------
// Counts and lookups

int Ox_Dataset::GetNormalCount() const {
  const Ox_Dataset *owner = _GetColOwner();
  return owner != nullptr ? owner->pCols->Count() : -1;
}

int Ox_Dataset::GetConstCount() const {
  const Ox_Dataset *owner = _GetColOwner();
  return owner != nullptr ? owner->pConsts->Count() : -1;
}

int Ox_Dataset::GetColCount() const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr) return -1;
  return owner->pCols->Count() + owner->pConsts->Count();
}

int Ox_Dataset::GetColIndex(const char *columnId) const {
  if (columnId == nullptr) return -1;
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr) return -1;
  // Normal columns first, then the constants behind them.
  const int normal = owner->pCols->FindId(columnId);
  if (normal >= 0) return normal;
  const int constant = owner->pConsts->FindId(columnId);
  if (constant >= 0) return owner->pCols->Count() + constant;
  return -1;
}

int Ox_Dataset::GetColIdxByOrder(int order) const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr || order < 0) return -1;
  const int normal = owner->pCols->Count();
  const int constants = owner->pConsts->Count();
  if (order < normal) return owner->pCols->GetIndexByOrgIdx(order);
  if (order < normal + constants) return order;
  return -1;
}

const Ox_AString &Ox_Dataset::GetColID(int col) const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr || col < 0) return _OxNullString;
  const int normal = owner->pCols->Count();
  if (col < normal) {
    const Ox_ColInfo *column = owner->pCols->GetItem(col);
    return column != nullptr ? column->id : _OxNullString;
  }
  return owner->pConsts->Id(col - normal);
}

const Ox_ColInfo *Ox_Dataset::GetColInfo(int col) const {
  const Ox_Dataset *owner = _GetColOwner();
  return owner != nullptr ? owner->pCols->GetItem(col) : nullptr;
}

Ox_ColInfo *Ox_Dataset::GetSafeColInfo(int col) {
  Ox_Dataset *owner = _GetColOwner();
  return owner != nullptr ? owner->pCols->GetSafeItem(col) : nullptr;
}

// ---------------------------------------------------------------------------
// AddColumn

// The common end of the routes that add to the owner's lists in use:
// 0 when the identifier is taken by a normal or constant column; else the
// column takes the next declaration order, enters the list, and every row
// and original row gets a null cell at its position.
int Ox_Dataset::InsertNewColumn(Ox_Dataset *owner, Ox_ColInfo &column) {
  if (owner->GetColIndex(column.id.GetString()) >= 0) return 0;
  column.orgIdx = static_cast<short>(owner->pCols->Count());
  int added = 0;
  const int position = owner->pCols->Add(&column, added);
  if (position < 0 || !added) return position;
  owner->pRecs->InsertColumn(position);
  owner->pOrgBuff->InsertColumn(position);
  return position;
}

int Ox_Dataset::AddColumn(const Ox_AString &columnId, short type, short size,
                          short summ) {
  return AddColumn(columnId.GetString(), type, size, summ);
}

int Ox_Dataset::AddColumn(const char *columnId, short type, short size,
                          short summ) {
  // A view hands the call down its bind chain. Each hop would forward the
  // same call, so it goes straight to the owner at the end of the chain
  // (and a chain that breaks or runs in a circle gives -1).
  if (!IsPhysical()) {
    Ox_Dataset *owner = _GetColOwner();
    return owner != nullptr ? owner->AddColumn(columnId, type, size, summ)
                            : -1;
  }
  Ox_ColInfo column;
  column.SetId(columnId);
  column.type = type;
  column.size = size;
  column.summ = summ;  // the summary word, as it comes
  return InsertNewColumn(this, column);
}

int Ox_Dataset::AddColumn(const Ox_AString &columnId, short type, short size,
                          short summ, const Ox_AString &bindcol,
                          short groupSumm) {
  return AddColumn(columnId.GetString(), type, size, summ, bindcol, groupSumm);
}

int Ox_Dataset::AddColumn(const char *columnId, short type, short size,
                          short summ, const Ox_AString &bindcol,
                          short groupSumm) {
  // On the way to the bound dataset the binding arguments are dropped.
  if (!IsPhysical()) {
    Ox_Dataset *owner = _GetColOwner();
    return owner != nullptr ? owner->AddColumn(columnId, type, size, summ)
                            : -1;
  }
  Ox_ColInfo column;
  column.SetId(columnId);
  column.type = type;
  column.size = size;
  column.summ = summ;
  column.bindcol = bindcol;
  column.groupSumm = groupSumm;
  column.bindColIdx = static_cast<short>(
      bindDataset != nullptr ? bindDataset->GetColIndex(bindcol.GetString())
                             : -1);
  return InsertNewColumn(this, column);
}

int Ox_Dataset::AddColumn(const Ox_AString &columnId, short type, short size,
                          const Ox_AString &mapValue, short summ) {
  return AddColumn(columnId.GetString(), type, size, mapValue.GetString(),
                   summ);
}

int Ox_Dataset::AddColumn(const char *columnId, short type, short size,
                          const char *mapValue, short summ) {
  // No walk: the column goes to this dataset's own lists, and rows get
  // their new cell only when the list really grew.
  if (GetColIndex(columnId) >= 0) return 0;
  Ox_ColInfo column;
  column.SetId(columnId);
  column.type = type;
  column.size = size;
  column.mapValue.Set(mapValue);
  column.summ = summ;
  column.orgIdx = static_cast<short>(cols.Count());
  int added = 0;
  const int position = cols.Add(&column, added);
  if (position >= 0 && added) {
    recs.InsertColumn(position);
    orgBuff.InsertColumn(position);
  }
  return position;
}

int Ox_Dataset::AddColumn(const Ox_ColInfo *column) {
  if (column == nullptr) return -1;
  if (!IsPhysical()) {
    Ox_Dataset *owner = _GetColOwner();
    return owner != nullptr ? owner->AddColumn(column) : -1;
  }
  Ox_ColInfo copy(*column);
  return InsertNewColumn(this, copy);
}

int Ox_Dataset::AppendColList(const Ox_ColList *list) {
  if (_GetColOwner() == nullptr) return -1;
  if (list != nullptr) {
    for (int i = 0; i < list->Count(); ++i) {
      const Ox_ColInfo *column = list->GetItem(i);
      if (column != nullptr) AddColumn(column);
    }
  }
  return GetColCount();
}
