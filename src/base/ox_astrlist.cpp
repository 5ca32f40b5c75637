// Ox_AStrList: a list of Ox_AString over the pool "Ox_AString".
#include <cstring>
#include <new>

#include "Ox_List.h"
#include "base/ox_astrlist_internal.h"

// The key convention of this handler is the system's usual one: the key is
// the address of a `const char *` (null reads as empty). An Ox_AString is
// one pointer to its characters, so an item can serve as its own key, which
// is how a unique list compares an added item.
void *Ox_AStrHandler::_InitItem(void *item) { return new (item) Ox_AString(); }

void Ox_AStrHandler::_FreeItem(void *item) {
  static_cast<Ox_AString *>(item)->~Ox_AString();
}

void Ox_AStrHandler::_AssignItem(void *target, void *source) {
  static_cast<Ox_AString *>(target)->Set(*static_cast<Ox_AString *>(source));
}

int Ox_AStrHandler::_CompareItem(void *item, void *key) {
  const char *text = key ? *static_cast<const char *const *>(key) : nullptr;
  // Exact byte comparison: Find does not ignore case.
  return static_cast<Ox_AString *>(item)->Compare(text ? text : "");
}

static_assert(sizeof(Ox_AString) == sizeof(const char *),
              "an Ox_AString is one pointer to its characters");

Ox_AStrHandler _OxAStrHandler("Ox_AString", sizeof(Ox_AString), 256);

Ox_AStrList::Ox_AStrList(int unique) : Ox_ObjList(&_OxAStrHandler, unique) {}

Ox_AStrList::Ox_AStrList(const Ox_AStrList &other) : Ox_ObjList(other) {}

Ox_AStrList::~Ox_AStrList() {}

Ox_AStrList &Ox_AStrList::operator=(const Ox_AStrList &other) {
  AssignList(other);
  return *this;
}

int Ox_AStrList::Add(const char *text) {
  Ox_AString item(text);
  return Ox_ObjList::Add(&item);
}

int Ox_AStrList::Add(const Ox_AString &text) {
  return Ox_ObjList::Add(const_cast<Ox_AString *>(&text));
}

int Ox_AStrList::Append(const Ox_AStrList *other) {
  if (other) AppendList(*other);
  return Count();
}

int Ox_AStrList::Find(const char *text) const {
  return FindItem(const_cast<const char **>(&text));
}

Ox_AString *Ox_AStrList::GetItem(int index) const {
  return static_cast<Ox_AString *>(Ox_ObjList::GetItem(index));
}

const Ox_AString &Ox_AStrList::GetItemNN(int index) const {
  Ox_AString *item = GetItem(index);
  return item ? *item : _OxNullString;
}

Ox_AString *Ox_AStrList::GetSafeItem(int index) {
  return static_cast<Ox_AString *>(Ox_ObjList::GetSafeItem(index, 0));
}
