// Named values in memory: the variable, its handler, the list and the chain.
// The text parser of name and value pairs is in ox_variable_parse.cpp.
#include <new>

#include "Ox_Variable.h"

// Constant-initialised: usable whatever the order of the library's static
// constructors.
Ox_VariableHandler Ox_Variable::_OxVariableHandler;

// ===========================================================================
// Ox_Variable

Ox_Variable::Ox_Variable() {}

Ox_Variable::Ox_Variable(const Ox_AString &name, const Ox_Variant &value)
    : id(name), var(value) {}

Ox_Variable::Ox_Variable(const Ox_AString &name, const Ox_AString &text)
    : id(name), var(text) {}

Ox_Variable::Ox_Variable(const Ox_Variable &other)
    : id(other.id), var(other.var) {}

Ox_Variable &Ox_Variable::operator=(const Ox_Variable &other) {
  Set(other);
  return *this;
}

void Ox_Variable::Set(const Ox_Variable &other) {
  if (this == &other) return;
  id = other.id;
  var.Set(other.var);
}

int Ox_Variable::operator==(const Ox_Variable &other) const {
  // Different names answer with the compare result (non-zero); only equal
  // names go on to compare the values.
  const int names = id.Compare(other.id.GetString());
  if (names != 0) return names;
  return var == other.var;
}

void Ox_Variable::InitWithMemory(Ox_Variable *item) {
  if (item != nullptr) new (item) Ox_Variable();
}

void Ox_Variable::FreeWithMemory(Ox_Variable *item) {
  if (item != nullptr) item->~Ox_Variable();
}

// ===========================================================================
// Ox_VariableHandler

void *Ox_VariableHandler::_InitItem(void *item) {
  Ox_Variable::InitWithMemory(static_cast<Ox_Variable *>(item));
  return item;
}

void Ox_VariableHandler::_FreeItem(void *item) {
  Ox_Variable::FreeWithMemory(static_cast<Ox_Variable *>(item));
}

void Ox_VariableHandler::_AssignItem(void *target, void *source) {
  if (target == nullptr || source == nullptr) return;
  static_cast<Ox_Variable *>(target)->Set(*static_cast<Ox_Variable *>(source));
}

int Ox_VariableHandler::_CompareItem(void *item, void *key) {
  if (item == nullptr || key == nullptr) return -1;
  // An Ox_Variable begins with its name, an Ox_AString, which is one
  // pointer to characters (null for the empty name); a `const char *` key
  // is that same pointer. ox_stricmpA reads null as the empty text.
  const char *name = *static_cast<const char *const *>(item);
  const char *wanted = *static_cast<const char *const *>(key);
  return ox_stricmpA(name, wanted);
}

// ===========================================================================
// Ox_VariableList: construction and copies

namespace {
// The shared empty objects of the never-failing readers, built on first use
// and kept until the library unloads. (Id gives the library's _OxNullString,
// the empty text every accessor returns by reference.)
const Ox_Variable &EmptyVariable() {
  static const Ox_Variable empty;
  return empty;
}

const Ox_Variant &EmptyVariant() {
  static const Ox_Variant empty;
  return empty;
}

void *Item(const Ox_Variable *item) { return const_cast<Ox_Variable *>(item); }
}  // namespace

Ox_VariableList::Ox_VariableList(int flag)
    : Ox_ObjList(&Ox_Variable::_OxVariableHandler, flag) {}

Ox_VariableList::Ox_VariableList(const Ox_VariableList &other)
    : Ox_ObjList(other) {}

Ox_VariableList::~Ox_VariableList() {}

Ox_VariableList &Ox_VariableList::operator=(const Ox_VariableList &other) {
  Assign(&other);
  return *this;
}

Ox_VariableList &Ox_VariableList::operator=(const Ox_VariableList *other) {
  Assign(other);
  return *this;
}

Ox_VariableList &Ox_VariableList::operator+=(const Ox_VariableList &other) {
  Append(&other);
  return *this;
}

Ox_VariableList &Ox_VariableList::operator+=(const Ox_VariableList *other) {
  Append(other);
  return *this;
}

int Ox_VariableList::Assign(const Ox_VariableList *other) {
  if (other != nullptr && other != this) AssignList(*other);
  return Count();
}

int Ox_VariableList::Append(const Ox_VariableList *other) {
  if (other == nullptr) return Count();
  // Appending a list to itself copies the items it held before the call.
  if (other == this) {
    const Ox_VariableList copy(*this);
    AppendList(copy);
  } else {
    AppendList(*other);
  }
  return Count();
}

// ===========================================================================
// Lookup and access

int Ox_VariableList::FindId(const char *name) const {
  if (name == nullptr) return -1;
  const char *key = name;
  return FindItem(&key);
}

const Ox_Variable *Ox_VariableList::GetItem(int index) const {
  return static_cast<const Ox_Variable *>(Ox_ObjList::GetItem(index));
}

const Ox_Variable *Ox_VariableList::GetItem(const char *name) const {
  const int index = FindId(name);
  return index >= 0 ? GetItem(index) : nullptr;
}

Ox_Variable *Ox_VariableList::GetSafeItem(int index) {
  return static_cast<Ox_Variable *>(Ox_ObjList::GetSafeItem(index, 0));
}

Ox_Variable *Ox_VariableList::GetSafeItem(const char *name) {
  const int index = FindId(name);
  return index >= 0 ? GetSafeItem(index) : nullptr;
}

const Ox_Variable *Ox_VariableList::GetItemNN(int index) const {
  const Ox_Variable *item = GetItem(index);
  return item != nullptr ? item : &EmptyVariable();
}

const Ox_AString &Ox_VariableList::Id(int index) const {
  const Ox_Variable *item = GetItem(index);
  return item != nullptr ? item->id : _OxNullString;
}

const Ox_Variant &Ox_VariableList::Var(int index) const {
  const Ox_Variable *item = GetItem(index);
  return item != nullptr ? item->var : EmptyVariant();
}

const Ox_Variant &Ox_VariableList::Var(const char *name) const {
  const Ox_Variable *item = GetItem(name);
  return item != nullptr ? item->var : EmptyVariant();
}

// ===========================================================================
// Adding

int Ox_VariableList::Add(const Ox_Variable &item) { return Add(&item); }

int Ox_VariableList::Add(const Ox_Variable *item) {
  if (item == nullptr || item->id.GetLength() == 0) return -1;
  return Ox_ObjList::Add(Item(item));
}

int Ox_VariableList::AddLink(const Ox_Variable *item) {
  if (item == nullptr) return -1;
  return Ox_ObjList::AddLink(Item(item));
}

int Ox_VariableList::AddVariable(const Ox_AString &name,
                                 const Ox_Variant &value) {
  if (name.GetLength() == 0) return -1;
  // 1. A known name keeps its place and first spelling; the value changes.
  const int index = FindId(name.GetString());
  if (index >= 0) {
    Ox_Variable *item = GetSafeItem(index);
    if (item != nullptr) item->SetVar(value);
    return index;
  }
  // 2. A new name goes to the end.
  const Ox_Variable item(name, value);
  return Ox_ObjList::Add(Item(&item));
}

int Ox_VariableList::AddVariable(const Ox_AString &name,
                                 const Ox_Variant *value) {
  return AddVariable(name, value != nullptr ? *value : EmptyVariant());
}

int Ox_VariableList::AddVariable(const char *name, const Ox_Variant &value) {
  if (name == nullptr) return -1;
  return AddVariable(Ox_AString(name), value);
}

int Ox_VariableList::AddVariable(const char *name, const Ox_Variant *value) {
  if (name == nullptr) return -1;
  return AddVariable(Ox_AString(name), value);
}

int Ox_VariableList::AddRefVariable(const Ox_AString &name,
                                    const Ox_Variant *value) {
  if (name.GetLength() == 0) return -1;
  int index = FindId(name.GetString());
  if (index < 0) {
    // A new variable starts with an empty value, then refers.
    const Ox_Variable item(name, EmptyVariant());
    index = Ox_ObjList::Add(Item(&item));
  }
  Ox_Variable *item = GetSafeItem(index);
  if (item == nullptr) return -1;
  item->var.SetReference(value);
  return index;
}

int Ox_VariableList::AddStr(const Ox_AString &name, const Ox_AString &text) {
  return AddVariable(name, Ox_Variant(text));
}

int Ox_VariableList::AddStr(const Ox_AString &name, const char *text,
                            int /*length*/) {
  // The whole text up to its terminator, whatever length is given.
  return AddVariable(name, Ox_Variant(text, -1));
}

// ===========================================================================
// Replacing by index

int Ox_VariableList::SetVariant(int index, const Ox_Variant &value) {
  Ox_Variable *item = GetSafeItem(index);
  if (item == nullptr) return -1;
  item->SetVar(value);
  return index;
}

int Ox_VariableList::SetStr(int index, const Ox_AString &text) {
  Ox_Variable *item = GetSafeItem(index);
  if (item == nullptr) return -1;
  item->var.Set(text);
  return index;
}

int Ox_VariableList::SetStr(int index, const char *text, int length) {
  Ox_Variable *item = GetSafeItem(index);
  if (item == nullptr) return -1;
  item->var.SetStr(text, length);
  return index;
}

// ===========================================================================
// Ox_VariableListChain

int Ox_VariableListChain::Add(Ox_VariableList *list) {
  if (list == nullptr) return -1;
  const int present = IndexOf(list);
  if (present >= 0) return present;
  return Ox_PtrList::Add(list);
}

const Ox_Variant *Ox_VariableListChain::GetVar(const char *name) const {
  // The lists in the order they were added; the first that knows wins.
  for (int i = 0; i < Count(); ++i) {
    const auto *list = static_cast<const Ox_VariableList *>(GetItem(i));
    if (list == nullptr) continue;
    const Ox_Variable *item = list->GetItem(name);
    if (item != nullptr) return &item->var;
  }
  return nullptr;
}

Ox_Variant *Ox_VariableListChain::GetSafeVar(const char *name) {
  for (int i = 0; i < Count(); ++i) {
    auto *list = static_cast<Ox_VariableList *>(GetItem(i));
    if (list == nullptr) continue;
    Ox_Variable *item = list->GetSafeItem(name);
    if (item != nullptr) return &item->var;
  }
  return nullptr;
}
