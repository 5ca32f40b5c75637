// The variant handler and pool, the shared null variant, and the two list
// forms of variants: Ox_VariantList (by pointer) and Ox_VariantBufList (by
// value, the cells of a row).
#include <new>

#include "Ox_Variant.h"

// The statics are constant-initialised: usable whatever the order in which
// the library's static constructors run.
Ox_VariantHandler _OxVariantHandler;
const Ox_Variant _OxNullVariant;

// ---------------------------------------------------------------------------
// Handler

void *Ox_VariantHandler::_InitItem(void *item) {
  Ox_Variant::InitWithMemory(static_cast<Ox_Variant *>(item));
  return item;
}

void Ox_VariantHandler::_FreeItem(void *item) {
  Ox_Variant::FreeWithMemory(static_cast<Ox_Variant *>(item));
}

void Ox_VariantHandler::_AssignItem(void *target, void *source) {
  if (target == nullptr || source == nullptr) return;
  static_cast<Ox_Variant *>(target)->Set(*static_cast<Ox_Variant *>(source));
}

int Ox_VariantHandler::_CompareItem(void *, void *) {
  // A variant is never found by FindItem.
  return -1;
}

// ---------------------------------------------------------------------------
// Ox_VariantList

namespace {
// The base lists take item pointers without const; they never write
// through a source item.
void *Item(const Ox_Variant *v) { return const_cast<Ox_Variant *>(v); }
}  // namespace

Ox_VariantList::Ox_VariantList() : Ox_ObjList(&_OxVariantHandler, 0) {}
Ox_VariantList::Ox_VariantList(const Ox_VariantList &other)
    : Ox_ObjList(other) {}
Ox_VariantList::~Ox_VariantList() {}

int Ox_VariantList::Add(const Ox_Variant &value) {
  return Ox_ObjList::Add(Item(&value));
}

int Ox_VariantList::Add(const Ox_Variant *value) {
  // A null pointer adds a default item: a null variant.
  return Ox_ObjList::Add(Item(value));
}

int Ox_VariantList::AddLink(const Ox_Variant *value) {
  return Ox_ObjList::AddLink(Item(value));
}

int Ox_VariantList::AddRefVar(const Ox_Variant &value) {
  // A reference with a target stays a reference to that target.
  if (value.type == Ox_Variant::kReference && value.value.ref != nullptr) {
    const int index = Ox_ObjList::Add(nullptr);
    Ox_Variant *item = GetItem(index);
    if (item != nullptr) item->SetReference(value.value.ref);
    return index;
  }
  return Add(value);
}

int Ox_VariantList::Insert(int index, const Ox_Variant &value) {
  return Ox_ObjList::Insert(index, Item(&value));
}

int Ox_VariantList::Insert(int index, const Ox_Variant *value) {
  return Ox_ObjList::Insert(index, Item(value));
}

int Ox_VariantList::InsertLink(int index, const Ox_Variant *value) {
  return Ox_ObjList::InsertLink(index, Item(value));
}

long Ox_VariantList::Set(int index, const Ox_Variant &value, int grow) {
  return Ox_ObjList::Set(index, Item(&value), grow);
}

long Ox_VariantList::Set(int index, const Ox_Variant *value, int grow) {
  return Ox_ObjList::Set(index, Item(value), grow);
}

long Ox_VariantList::SetLink(int index, const Ox_Variant *value, int grow) {
  return Ox_ObjList::SetLink(index, Item(value), grow);
}

Ox_Variant *Ox_VariantList::GetItem(int index) const {
  return static_cast<Ox_Variant *>(Ox_ObjList::GetItem(index));
}

const Ox_Variant *Ox_VariantList::GetItemNN(int index) const {
  const Ox_Variant *item = GetItem(index);
  return item != nullptr ? item : &_OxNullVariant;
}

Ox_Variant *Ox_VariantList::GetSafeItem(int index, int grow) {
  return static_cast<Ox_Variant *>(Ox_ObjList::GetSafeItem(index, grow));
}

int Ox_VariantList::Assign(const Ox_VariantList *other) {
  if (other != nullptr && other != this) AssignList(*other);
  return Count();
}

int Ox_VariantList::Append(const Ox_VariantList *other) {
  if (other != nullptr) {
    if (other == this) {
      // Appending a list to itself: copy first, since the source grows.
      Ox_VariantList copy(*this);
      AppendList(copy);
    } else {
      AppendList(*other);
    }
  }
  return Count();
}

Ox_VariantList &Ox_VariantList::operator=(const Ox_VariantList &other) {
  Assign(&other);
  return *this;
}

Ox_VariantList &Ox_VariantList::operator=(const Ox_VariantList *other) {
  Assign(other);
  return *this;
}

Ox_VariantList &Ox_VariantList::operator+=(const Ox_VariantList &other) {
  Append(&other);
  return *this;
}

Ox_VariantList &Ox_VariantList::operator+=(const Ox_VariantList *other) {
  Append(other);
  return *this;
}

void Ox_VariantList::InitWithMemory(Ox_VariantList *list) {
  if (list != nullptr) new (list) Ox_VariantList();
}

void Ox_VariantList::FreeWithMemory(Ox_VariantList *list) {
  if (list != nullptr) list->~Ox_VariantList();
}

// ---------------------------------------------------------------------------
// Ox_VariantBufList

Ox_VariantBufList::Ox_VariantBufList()
    : Ox_ObjBufList(&_OxVariantHandler, sizeof(Ox_Variant)) {}
Ox_VariantBufList::Ox_VariantBufList(const Ox_VariantBufList &other)
    : Ox_ObjBufList(other) {}
Ox_VariantBufList::~Ox_VariantBufList() {}

int Ox_VariantBufList::Add(const Ox_Variant &value) {
  return Ox_ObjBufList::Add(Item(&value));
}

int Ox_VariantBufList::Add(const Ox_Variant *value) {
  return Ox_ObjBufList::Add(Item(value));
}

int Ox_VariantBufList::Insert(int index, const Ox_Variant &value) {
  return Ox_ObjBufList::Insert(index, Item(&value));
}

int Ox_VariantBufList::Insert(int index, const Ox_Variant *value) {
  return Ox_ObjBufList::Insert(index, Item(value));
}

long Ox_VariantBufList::Set(int index, const Ox_Variant &value, int grow) {
  return Ox_ObjBufList::Set(index, Item(&value), grow);
}

long Ox_VariantBufList::Set(int index, const Ox_Variant *value, int grow) {
  return Ox_ObjBufList::Set(index, Item(value), grow);
}

Ox_Variant *Ox_VariantBufList::GetItem(int index) const {
  return static_cast<Ox_Variant *>(Ox_ObjBufList::GetItem(index));
}

const Ox_Variant *Ox_VariantBufList::GetItemNN(int index) const {
  const Ox_Variant *item = GetItem(index);
  return item != nullptr ? item : &_OxNullVariant;
}

Ox_Variant *Ox_VariantBufList::GetSafeItem(int index, int grow) {
  return static_cast<Ox_Variant *>(Ox_ObjBufList::GetSafeItem(index, grow));
}

int Ox_VariantBufList::Assign(const Ox_VariantBufList *other) {
  if (other != nullptr && other != this) AssignList(*other);
  return Count();
}

int Ox_VariantBufList::Append(const Ox_VariantBufList *other) {
  if (other != nullptr) {
    if (other == this) {
      Ox_VariantBufList copy(*this);
      AppendList(copy);
    } else {
      AppendList(*other);
    }
  }
  return Count();
}

Ox_VariantBufList &Ox_VariantBufList::operator=(const Ox_VariantBufList &other) {
  Assign(&other);
  return *this;
}

Ox_VariantBufList &Ox_VariantBufList::operator=(const Ox_VariantBufList *other) {
  Assign(other);
  return *this;
}

Ox_VariantBufList &Ox_VariantBufList::operator+=(
    const Ox_VariantBufList &other) {
  Append(&other);
  return *this;
}

Ox_VariantBufList &Ox_VariantBufList::operator+=(
    const Ox_VariantBufList *other) {
  Append(other);
  return *this;
}
