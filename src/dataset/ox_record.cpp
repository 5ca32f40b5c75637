// Ox_Record, one row of a dataset, its handler and pool "Ox_Record", and
// Ox_RecList, the list of rows.
//
// A record is a list of Ox_Variant cells side by side in one block (the
// base of Ox_VariantBufList), plus a status word and the place of the row's
// original. Records themselves come from the handler's pool, 128 to a block,
// so that a row costs the pool's share of a block and one cell block.
#include <new>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

// Constant-initialised: usable whatever the order of the static
// constructors of the library.
Ox_RecordHandler Ox_Record::_OxRecordHandler;
// The shared empty row; never written.
const Ox_Record Ox_Record::_OxNullRecord;

// ===========================================================================
// Ox_Record

Ox_Record::Ox_Record() : status(1), orgRef(-1) {}

Ox_Record::Ox_Record(int cells) : status(1), orgRef(-1) {
  if (cells > 0) AllocItems(cells);
}

// A copy takes the cells and the whole status word, filter and selection
// bits included.
Ox_Record::Ox_Record(const Ox_Record &other)
    : Ox_VariantBufList(other), status(other.status), orgRef(other.orgRef) {}

Ox_Record &Ox_Record::operator=(const Ox_Record &other) {
  if (this != &other) {
    Ox_VariantBufList::Assign(&other);
    status = other.status;
    orgRef = other.orgRef;
  }
  return *this;
}

Ox_Record::~Ox_Record() {}

void Ox_Record::Assign(const Ox_Record *source) {
  if (source == this) return;
  Clear();
  if (source == nullptr) return;
  // The row type alone: the filter and selection bits of the source belong
  // to its place in its own dataset and are not taken.
  status = source->status & 0xFF;
  orgRef = source->orgRef;
  Ox_VariantBufList::Assign(source);
}

void Ox_Record::Clear() {
  Ox_VariantBufList::Clear();
  status = 1;
  orgRef = -1;
}

void Ox_Record::SetColumn(int col, const Ox_Variant *value) {
  // Grows the row to col + 1 cells when it is shorter; a null value makes
  // the cell null.
  Ox_Variant *cell = GetSafeItem(col);
  if (cell == nullptr) return;
  if (value != nullptr) {
    cell->Set(*value);
  } else {
    cell->Clear();
  }
}

Ox_Variant *Ox_Record::GetSafeItem(int col) {
  if (col < 0) return nullptr;
  return Ox_VariantBufList::GetSafeItem(col, 1);
}

void Ox_Record::InitWithMemory(Ox_Record *item) {
  if (item != nullptr) new (item) Ox_Record();
}

void Ox_Record::FreeWithMemory(Ox_Record *item) {
  if (item != nullptr) item->~Ox_Record();
}

// ===========================================================================
// Ox_RecordHandler

void *Ox_RecordHandler::_InitItem(void *item) {
  Ox_Record::InitWithMemory(static_cast<Ox_Record *>(item));
  return item;
}

void Ox_RecordHandler::_FreeItem(void *item) {
  Ox_Record::FreeWithMemory(static_cast<Ox_Record *>(item));
}

void Ox_RecordHandler::_AssignItem(void *target, void *source) {
  if (target == nullptr) return;
  static_cast<Ox_Record *>(target)->Assign(static_cast<Ox_Record *>(source));
}

// Rows are found by identity only.
int Ox_RecordHandler::_CompareItem(void *item, void *key) {
  return item == key ? 0 : -1;
}

// ===========================================================================
// Ox_RecList

namespace {
// The base list takes items as plain pointers; it copies from a source and
// never writes to it.
void *Row(const Ox_Record *row) { return const_cast<Ox_Record *>(row); }
}  // namespace

Ox_RecList::Ox_RecList() : Ox_ObjList(&Ox_Record::_OxRecordHandler, 0) {}
Ox_RecList::Ox_RecList(const Ox_RecList &other) : Ox_ObjList(other) {}
Ox_RecList::~Ox_RecList() {}

int Ox_RecList::Add(const Ox_Record *row) { return Ox_ObjList::Add(Row(row)); }

int Ox_RecList::AddLink(const Ox_Record *row) {
  return Ox_ObjList::AddLink(Row(row));
}

int Ox_RecList::Insert(int index, const Ox_Record *row) {
  return Ox_ObjList::Insert(index, Row(row));
}

int Ox_RecList::InsertLink(int index, const Ox_Record *row) {
  return Ox_ObjList::InsertLink(index, Row(row));
}

long Ox_RecList::Set(int index, const Ox_Record *row, int grow) {
  return Ox_ObjList::Set(index, Row(row), grow);
}

long Ox_RecList::SetLink(int index, const Ox_Record *row, int grow) {
  return Ox_ObjList::SetLink(index, Row(row), grow);
}

int Ox_RecList::Assign(const Ox_RecList *other) {
  if (other != nullptr && other != this) AssignList(*other);
  return Count();
}

Ox_Record *Ox_RecList::GetItem(int index) const {
  return static_cast<Ox_Record *>(Ox_ObjList::GetItem(index));
}

const Ox_Record *Ox_RecList::GetItemNN(int index) const {
  // An empty row of the list's own, built on first use.
  static const Ox_Record empty;
  const Ox_Record *item = GetItem(index);
  return item != nullptr ? item : &empty;
}

void Ox_RecList::InsertColumn(int col) {
  if (col < 0) return;
  const Ox_Variant *nullCell = nullptr;
  for (int i = 0; i < Count(); ++i) {
    Ox_Record *row = static_cast<Ox_Record *>(RawItem(i));
    // Rows shorter than `col` cells stay as they are.
    if (row == nullptr || row->Count() < col) continue;
    row->Ox_VariantBufList::Insert(col, nullCell);
  }
}
