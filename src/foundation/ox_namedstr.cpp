// Ox_NamedStr, its handler, Ox_NamedStrList and the handler that holds
// whole named-string lists as items.
#include "Ox_NamedStr.h"

#include <new>

#include "Ox_BaseFunc.h"

// The pools: constant-initialised statics, usable from any static
// constructor of the library.
Ox_NamedStrHandler Ox_NamedStr::_OxNamedStrHandler;
Ox_NamedStrListHandler Ox_NamedStrList::_OxNamedStrListHandler;

namespace {

// What accessors give when they have nothing.
const Ox_NamedStr kEmptyNamedStr;

}  // namespace

// ---------------------------------------------------------------------------
// Ox_NamedStr

Ox_NamedStr::Ox_NamedStr(const Ox_AString &id, const Ox_AString &str)
    : id(id), str(str) {}

Ox_NamedStr::Ox_NamedStr(const Ox_NamedStr &other)
    : id(other.id), str(other.str) {}

Ox_NamedStr &Ox_NamedStr::operator=(const Ox_NamedStr &other) {
  Set(other);
  return *this;
}

void Ox_NamedStr::Set(const Ox_NamedStr &other) {
  if (&other == this) return;
  id = other.id;
  str = other.str;
}

void Ox_NamedStr::Set(const Ox_AString &id, const Ox_AString &str) {
  this->id = id;
  this->str = str;
}

int Ox_NamedStr::Compare(const Ox_NamedStr &other) const {
  int result = id.Compare(other.id);
  return result != 0 ? result : str.Compare(other.str);
}

int Ox_NamedStr::Compare(const Ox_NamedStr *other) const {
  // A missing item compares as the empty pair.
  return Compare(other ? *other : kEmptyNamedStr);
}

Ox_NamedStr *Ox_NamedStr::InitWithMemory(void *memory) {
  return memory ? new (memory) Ox_NamedStr() : nullptr;
}

void Ox_NamedStr::FreeWithMemory(void *item) {
  if (item) static_cast<Ox_NamedStr *>(item)->~Ox_NamedStr();
}

// ---------------------------------------------------------------------------
// Ox_NamedStrHandler

void *Ox_NamedStrHandler::_InitItem(void *item) {
  return Ox_NamedStr::InitWithMemory(item);
}

void Ox_NamedStrHandler::_FreeItem(void *item) {
  Ox_NamedStr::FreeWithMemory(item);
}

void Ox_NamedStrHandler::_AssignItem(void *target, void *source) {
  if (target && source)
    static_cast<Ox_NamedStr *>(target)->Set(
        *static_cast<const Ox_NamedStr *>(source));
}

int Ox_NamedStrHandler::_CompareItem(void *item, void *key) {
  // The key is the address of a `const char *`. An Ox_NamedStr passed as the
  // key (as a unique list does on Add) reads the same way, since its first
  // field, the name, is one character pointer wide (null when empty).
  if (!item || !key) return -1;
  const char *name = *static_cast<const char *const *>(key);
  return ox_stricmpA(static_cast<const Ox_NamedStr *>(item)->id.GetString(),
                     name);
}

// ---------------------------------------------------------------------------
// Ox_NamedStrList: construction and lookup

Ox_NamedStrList::Ox_NamedStrList(int unique)
    : Ox_ObjList(&Ox_NamedStr::_OxNamedStrHandler, unique) {}

Ox_NamedStrList::Ox_NamedStrList(const Ox_NamedStrList &other)
    : Ox_ObjList(other) {}

Ox_NamedStrList::~Ox_NamedStrList() {}

int Ox_NamedStrList::FindId(const char *name) const {
  const char *key = name;
  return FindItem(&key);
}

Ox_NamedStr *Ox_NamedStrList::GetItem(int index) const {
  return static_cast<Ox_NamedStr *>(Ox_ObjList::GetItem(index));
}

Ox_NamedStr *Ox_NamedStrList::GetItem(const char *name) const {
  return GetItem(FindId(name));
}

Ox_NamedStr *Ox_NamedStrList::GetSafeItem(int index) {
  return static_cast<Ox_NamedStr *>(Ox_ObjList::GetSafeItem(index, 0));
}

Ox_NamedStr *Ox_NamedStrList::GetSafeItem(const char *name) {
  return GetSafeItem(FindId(name));
}

const Ox_NamedStr &Ox_NamedStrList::GetItemNN(int index) const {
  const Ox_NamedStr *item = GetItem(index);
  return item ? *item : kEmptyNamedStr;
}

const Ox_NamedStr &Ox_NamedStrList::GetItemNN(const char *name) const {
  return GetItemNN(FindId(name));
}

const Ox_AString &Ox_NamedStrList::Id(int index) const {
  const Ox_NamedStr *item = GetItem(index);
  return item ? item->id : _OxNullString;
}

const Ox_AString &Ox_NamedStrList::Str(int index) const {
  const Ox_NamedStr *item = GetItem(index);
  return item ? item->str : _OxNullString;
}

const Ox_AString &Ox_NamedStrList::Str(const char *name) const {
  return Str(FindId(name));
}

// ---------------------------------------------------------------------------
// Ox_NamedStrList: adding and deleting

int Ox_NamedStrList::_AddItem(const Ox_NamedStr &item) {
  return Ox_ObjList::Add(const_cast<Ox_NamedStr *>(&item));
}

int Ox_NamedStrList::_Overwrite(int index, const Ox_NamedStr &item,
                                int textOnly) {
  if (!IsUnique()) {
    // Replace in place.
    Ox_NamedStr *old = GetItem(index);
    if (!old) return -1;
    if (textOnly)
      old->SetStr(item.str);
    else
      old->Set(item);
    return index;
  }
  // A unique list: the old item goes, the new one comes at the end.
  Delete(index, 1);
  return _AddItem(item);
}

int Ox_NamedStrList::Add(const Ox_NamedStr &item, int overwrite) {
  if (item.id.GetLength() == 0) return -1;
  int index = FindId(item.id);
  if (index >= 0) {
    if (overwrite != 1) return index;
    return _Overwrite(index, item, 0);
  }
  return _AddItem(item);
}

int Ox_NamedStrList::AddStr(const Ox_AString &id, const Ox_AString &str,
                            int overwrite) {
  if (id.GetLength() == 0) return -1;
  Ox_NamedStr item(id, str);
  if (overwrite == 1) {
    int index = FindId(id);
    if (index >= 0) return _Overwrite(index, item, 1);
  }
  // Every other case adds, so that a list that is not unique may hold a
  // name twice when `overwrite` is 0.
  return _AddItem(item);
}

int Ox_NamedStrList::AddStr(const Ox_AString &id, int value, int overwrite) {
  Ox_AString text;
  text.Set(value);
  return AddStr(id, text, overwrite);
}

int Ox_NamedStrList::AddStr(const Ox_AString &id, double value,
                            int overwrite) {
  Ox_AString text;
  text.Set(value);
  return AddStr(id, text, overwrite);
}

int Ox_NamedStrList::DelStr(const char *name) {
  if (!name || !*name) return -1;
  int index = FindId(name);
  if (index < 0) return index;
  return Delete(index, 1) == 0 ? index : -1;
}

// ---------------------------------------------------------------------------
// Ox_NamedStrList: whole lists

int Ox_NamedStrList::Assign(const Ox_NamedStrList *other) {
  if (other && other != this) AssignList(*other);
  return Count();
}

int Ox_NamedStrList::Append(const Ox_NamedStrList *other) {
  if (!other) return Count();
  if (other == this) {
    // Appending a list to itself: copy first, the source grows meanwhile.
    Ox_NamedStrList copy(*this);
    AppendList(copy);
  } else {
    AppendList(*other);
  }
  return Count();
}

Ox_NamedStrList &Ox_NamedStrList::operator=(const Ox_NamedStrList &other) {
  Assign(&other);
  return *this;
}

Ox_NamedStrList &Ox_NamedStrList::operator=(const Ox_NamedStrList *other) {
  Assign(other);
  return *this;
}

Ox_NamedStrList &Ox_NamedStrList::operator+=(const Ox_NamedStrList &other) {
  Append(&other);
  return *this;
}

Ox_NamedStrList &Ox_NamedStrList::operator+=(const Ox_NamedStrList *other) {
  Append(other);
  return *this;
}

int Ox_NamedStrList::Compare(const Ox_NamedStrList &other) const {
  // 1. The same list.
  if (&other == this) return 0;
  // 2. The counts decide first.
  if (other.Count() > Count()) return -1;
  if (other.Count() < Count()) return 1;
  // 3. Each name of this list must be in the other with the same text; the
  //    order does not matter.
  for (int i = 0; i < Count(); ++i) {
    const Ox_NamedStr &item = GetItemNN(i);
    int found = other.FindId(item.id);
    if (found < 0) return -1;
    int result = item.CompareStr(other.Str(found));
    if (result != 0) return result;
  }
  // 4. Equal.
  return 0;
}

int Ox_NamedStrList::AppendDiffList(const Ox_NamedStrList &base,
                                    const Ox_NamedStrList &changed) {
  // Snapshot `changed` first when it is this very list, which grows below.
  if (&changed == this) {
    Ox_NamedStrList copy(changed);
    return AppendDiffList(base, copy);
  }
  int added = 0;
  for (int i = 0; i < changed.Count(); ++i) {
    const Ox_NamedStr &item = changed.GetItemNN(i);
    int found = base.FindId(item.id);
    if (found >= 0 && base.GetItemNN(found).CompareStr(item.str) == 0)
      continue;  // unchanged
    if (Add(item, 0) >= 0) ++added;
  }
  return added;
}

Ox_NamedStrList *Ox_NamedStrList::InitWithMemory(void *memory, int unique) {
  return memory ? new (memory) Ox_NamedStrList(unique) : nullptr;
}

void Ox_NamedStrList::FreeWithMemory(void *list) {
  if (list) static_cast<Ox_NamedStrList *>(list)->~Ox_NamedStrList();
}

// ---------------------------------------------------------------------------
// Ox_NamedStrList::ParseStr

namespace {

// The states of the attribute walk.
enum ParseState {
  kExpectName = 0,    // a name is awaited
  kExpectEquals = 1,  // a name was read, its equals sign is awaited
  kExpectValue = 2,   // the equals sign was read, the value is awaited
};

}  // namespace

int Ox_NamedStrList::ParseStr(const Ox_AString &text, int decode) {
  ReleaseList();
  if (text.GetLength() == 0) return 0;

  // Split at blanks, tabs and line ends; a quoted stretch stays in one item
  // together with its quotes.
  Ox_AStrList items(0);
  items.Parse(text, " \t\r\n", 0, 1, 1, 0, 1, 0);

  int state = kExpectName;
  int count = 0;
  Ox_AString name, value;
  for (int i = 0; i < items.Count(); ++i) {
    const Ox_AString &item = items.GetItemNN(i);
    int length = item.GetLength();
    if (length == 0) continue;  // empty items are passed over
    int equals = item.Find('=', 0);

    if (state == kExpectName) {
      if (equals < 0) {  // a name alone
        name = item;
        state = kExpectEquals;
        continue;
      }
      name = item.Left(equals);
      if (equals == length - 1) {  // "name=": the value follows
        state = kExpectValue;
        continue;
      }
      value = item.Mid(equals + 1);  // "name=value"
    } else if (state == kExpectEquals) {
      if (equals != 0) continue;  // not an equals sign: dropped
      if (length == 1) {          // the lone "="
        state = kExpectValue;
        continue;
      }
      value = item.Mid(1);  // "=value"
    } else {
      value = item;  // the awaited value
    }

    // Finish the pair: quotes off, entities resolved on request.
    value.TrimBrace(0);
    if (decode) {
      name = name.DecodeXml();
      value = value.DecodeXml();
    }
    AddStr(name, value, 0);
    name.Empty();
    value.Empty();
    state = kExpectName;
    ++count;
  }

  // A name still waiting for its value is added with the value as it stands
  // (empty), undecoded, and is not counted.
  if (state != kExpectName) AddStr(name, value, 0);
  return count;
}

// ---------------------------------------------------------------------------
// Ox_NamedStrListHandler

void *Ox_NamedStrListHandler::_InitItem(void *item) {
  return Ox_NamedStrList::InitWithMemory(item);
}

void Ox_NamedStrListHandler::_FreeItem(void *item) {
  Ox_NamedStrList::FreeWithMemory(item);
}

void Ox_NamedStrListHandler::_AssignItem(void *target, void *source) {
  if (target && source)
    static_cast<Ox_NamedStrList *>(target)->Assign(
        static_cast<const Ox_NamedStrList *>(source));
}

int Ox_NamedStrListHandler::_CompareItem(void *item, void *key) {
  if (!item || !key) return -1;
  return static_cast<const Ox_NamedStrList *>(item)->Compare(
      *static_cast<const Ox_NamedStrList *>(key));
}
