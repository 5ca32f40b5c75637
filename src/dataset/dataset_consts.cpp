// Ox_Dataset, the constant-column concern: named values that hold one value
// for the whole dataset and take no cell in any row. They are numbered
// behind the normal columns; the counts and GetColIndex, GetColID over both
// ranges stand with the column concern.
#include "Ox_Dataset.h"

// ---------------------------------------------------------------------------
// Reading: along the bind chain, like every column lookup.

const Ox_AString &Ox_Dataset::GetConstColID(int k) const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr || owner->pConsts == nullptr) return _OxNullString;
  return owner->pConsts->Id(k);
}

const Ox_Variant *Ox_Dataset::GetConstColumn(const char *constId) const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr || owner->pConsts == nullptr) return nullptr;
  const Ox_Variable *item = owner->pConsts->GetItem(constId);
  return item != nullptr ? &item->var : nullptr;
}

const Ox_Variant *Ox_Dataset::GetConstColumn(int k) const {
  const Ox_Dataset *owner = _GetColOwner();
  if (owner == nullptr || owner->pConsts == nullptr) return nullptr;
  const Ox_Variable *item = owner->pConsts->GetItem(k);
  return item != nullptr ? &item->var : nullptr;
}

// ---------------------------------------------------------------------------
// Adding: a physical dataset adds to its own constants, a logical one to the
// list in use (the bound dataset's after binding). Insert or replace.

namespace {
Ox_VariableList *ConstListForAdd(Ox_Dataset *dataset) {
  return dataset->IsPhysical() ? &dataset->constCols : dataset->pConsts;
}
}  // namespace

int Ox_Dataset::AddConstColumn(const Ox_AString &constId,
                               const Ox_Variant &value) {
  Ox_VariableList *list = ConstListForAdd(this);
  return list != nullptr ? list->AddVariable(constId, value) : -1;
}

int Ox_Dataset::AddConstColumn(const Ox_AString &constId,
                               const Ox_Variant *value) {
  Ox_VariableList *list = ConstListForAdd(this);
  return list != nullptr ? list->AddVariable(constId, value) : -1;
}

int Ox_Dataset::AddConstColumn(const char *constId, const Ox_Variant &value) {
  Ox_VariableList *list = ConstListForAdd(this);
  return list != nullptr ? list->AddVariable(constId, value) : -1;
}

int Ox_Dataset::AddConstColumn(const char *constId, const Ox_Variant *value) {
  Ox_VariableList *list = ConstListForAdd(this);
  return list != nullptr ? list->AddVariable(constId, value) : -1;
}

int Ox_Dataset::AddConstStr(const Ox_AString &constId, const Ox_AString &text) {
  Ox_VariableList *list = ConstListForAdd(this);
  return list != nullptr ? list->AddStr(constId, text) : -1;
}

int Ox_Dataset::AddConstStr(const Ox_AString &constId, const char *text,
                            int length) {
  Ox_VariableList *list = ConstListForAdd(this);
  return list != nullptr ? list->AddStr(constId, text, length) : -1;
}

int Ox_Dataset::AddConstStr(const char *constId, const Ox_AString &text) {
  return AddConstStr(Ox_AString(constId), text);
}

int Ox_Dataset::AddConstStr(const char *constId, const char *text,
                            int length) {
  return AddConstStr(Ox_AString(constId), text, length);
}

// ---------------------------------------------------------------------------
// Writing: this dataset's own constants only. A view refuses with 0 even when
// the bound dataset has the constant; unlike every other operation of the
// table, nothing is handed down the bind chain.

int Ox_Dataset::SetConstColumn(int k, const Ox_Variant *value) {
  if (IsLogical()) return 0;
  // A null value pointer makes the constant null.
  const Ox_Variant nullValue;
  return constCols.SetVariant(k, value != nullptr ? *value : nullValue) >= 0
             ? 1
             : 0;
}

int Ox_Dataset::SetConstColumn(int k, long value) {
  const Ox_Variant made(value);
  return SetConstColumn(k, &made);
}

int Ox_Dataset::SetConstColumn(int k, double value) {
  const Ox_Variant made(value);
  return SetConstColumn(k, &made);
}

int Ox_Dataset::SetConstColumn(int k, const Ox_AString &value) {
  const Ox_Variant made(value);
  return SetConstColumn(k, &made);
}

int Ox_Dataset::SetConstColumn(int k, const char *text, int length) {
  Ox_Variant made;
  made.SetStr(text, length);
  return SetConstColumn(k, &made);
}

int Ox_Dataset::SetConstColumn(const char *constId, const Ox_Variant *value) {
  if (IsLogical()) return 0;
  const int k = constCols.FindId(constId);
  return k >= 0 ? SetConstColumn(k, value) : 0;
}

int Ox_Dataset::SetConstColumn(const char *constId, long value) {
  const Ox_Variant made(value);
  return SetConstColumn(constId, &made);
}

int Ox_Dataset::SetConstColumn(const char *constId, double value) {
  const Ox_Variant made(value);
  return SetConstColumn(constId, &made);
}

int Ox_Dataset::SetConstColumn(const char *constId, const Ox_AString &value) {
  const Ox_Variant made(value);
  return SetConstColumn(constId, &made);
}

int Ox_Dataset::SetConstColumn(const char *constId, const char *text,
                               int length) {
  Ox_Variant made;
  made.SetStr(text, length);
  return SetConstColumn(constId, &made);
}
