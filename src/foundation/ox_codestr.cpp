// Ox_CodeStr, its handler and Ox_CodeStrList.
#include <new>

#include "Ox_NamedStr.h"

// The pool of coded strings: a constant-initialised static.
Ox_CodeStrHandler Ox_CodeStr::_OxCodeStrHandler;

namespace {

// What GetItemNN gives when it has nothing.
const Ox_CodeStr kEmptyCodeStr;

}  // namespace

// ---------------------------------------------------------------------------
// Ox_CodeStr

Ox_CodeStr &Ox_CodeStr::operator=(const Ox_CodeStr &other) {
  Set(other);
  return *this;
}

void Ox_CodeStr::Set(const Ox_CodeStr &other) {
  if (&other == this) return;
  code = other.code;
  str = other.str;
}

void Ox_CodeStr::Set(int code, const Ox_AString &str) {
  this->code = code;
  this->str = str;
}

int Ox_CodeStr::Compare(const Ox_CodeStr &other) const {
  if (code != other.code) {
    // The difference, taken with two's-complement wrap-around so that no
    // pair of codes overflows; it is never 0 for different codes.
    return static_cast<int>(static_cast<unsigned>(code) -
                            static_cast<unsigned>(other.code));
  }
  return str.Compare(other.str);
}

int Ox_CodeStr::Compare(const Ox_CodeStr *other) const {
  return Compare(other ? *other : kEmptyCodeStr);
}

Ox_CodeStr *Ox_CodeStr::InitWithMemory(void *memory) {
  return memory ? new (memory) Ox_CodeStr() : nullptr;
}

void Ox_CodeStr::FreeWithMemory(void *item) {
  if (item) static_cast<Ox_CodeStr *>(item)->~Ox_CodeStr();
}

// ---------------------------------------------------------------------------
// Ox_CodeStrHandler

void *Ox_CodeStrHandler::_InitItem(void *item) {
  return Ox_CodeStr::InitWithMemory(item);
}

void Ox_CodeStrHandler::_FreeItem(void *item) {
  Ox_CodeStr::FreeWithMemory(item);
}

void Ox_CodeStrHandler::_AssignItem(void *target, void *source) {
  if (target && source)
    static_cast<Ox_CodeStr *>(target)->Set(
        *static_cast<const Ox_CodeStr *>(source));
}

int Ox_CodeStrHandler::_CompareItem(void *item, void *key) {
  // The key is the address of an int code. An Ox_CodeStr passed as the key
  // (as a unique list does on Add) reads the same way: its first field is
  // the code.
  if (!item || !key) return 1;
  return static_cast<const Ox_CodeStr *>(item)->code ==
                 *static_cast<const int *>(key)
             ? 0
             : 1;
}

// ---------------------------------------------------------------------------
// Ox_CodeStrList

Ox_CodeStrList::Ox_CodeStrList(int unique)
    : Ox_ObjList(&Ox_CodeStr::_OxCodeStrHandler, unique) {}

Ox_CodeStrList::Ox_CodeStrList(const Ox_CodeStrList &other)
    : Ox_ObjList(other) {}

Ox_CodeStrList::~Ox_CodeStrList() {}

int Ox_CodeStrList::FindCode(int code) const {
  int key = code;
  return FindItem(&key);
}

int Ox_CodeStrList::Add(const Ox_CodeStr &item) {
  return Ox_ObjList::Add(const_cast<Ox_CodeStr *>(&item));
}

int Ox_CodeStrList::AddStr(int code, const Ox_AString &str) {
  Ox_CodeStr item(code, str);
  return Add(item);
}

int Ox_CodeStrList::AddStr(int code, const char *str) {
  Ox_CodeStr item(code, str);
  return Add(item);
}

int Ox_CodeStrList::DelStr(int code) {
  int index = FindCode(code);
  if (index < 0) return index;
  return Delete(index, 1) == 0 ? index : -1;
}

Ox_CodeStr *Ox_CodeStrList::GetItem(int index) const {
  return static_cast<Ox_CodeStr *>(Ox_ObjList::GetItem(index));
}

Ox_CodeStr *Ox_CodeStrList::GetSafeItem(int index) {
  return static_cast<Ox_CodeStr *>(Ox_ObjList::GetSafeItem(index, 0));
}

const Ox_CodeStr &Ox_CodeStrList::GetItemNN(int index) const {
  const Ox_CodeStr *item = GetItem(index);
  return item ? *item : kEmptyCodeStr;
}

int Ox_CodeStrList::Code(int index) const {
  const Ox_CodeStr *item = GetItem(index);
  return item ? item->code : 0;
}

const Ox_AString &Ox_CodeStrList::Str(int index) const {
  const Ox_CodeStr *item = GetItem(index);
  return item ? item->str : _OxNullString;
}

const Ox_AString &Ox_CodeStrList::StrByCode(int code) const {
  return Str(FindCode(code));
}

int Ox_CodeStrList::Assign(const Ox_CodeStrList *other) {
  if (!other) return Count();
  // Through a temporary copy, so that a list may be assigned from itself.
  Ox_CodeStrList copy(*other);
  AssignList(copy);
  return Count();
}

int Ox_CodeStrList::Append(const Ox_CodeStrList *other) {
  if (!other) return Count();
  if (other == this) {
    Ox_CodeStrList copy(*this);
    AppendList(copy);
  } else {
    AppendList(*other);
  }
  return Count();
}

Ox_CodeStrList &Ox_CodeStrList::operator=(const Ox_CodeStrList &other) {
  Assign(&other);
  return *this;
}

Ox_CodeStrList &Ox_CodeStrList::operator=(const Ox_CodeStrList *other) {
  Assign(other);
  return *this;
}

Ox_CodeStrList &Ox_CodeStrList::operator+=(const Ox_CodeStrList &other) {
  Append(&other);
  return *this;
}

Ox_CodeStrList &Ox_CodeStrList::operator+=(const Ox_CodeStrList *other) {
  Append(other);
  return *this;
}

int Ox_CodeStrList::Compare(const Ox_CodeStrList &other) const {
  // 1. The same list.
  if (&other == this) return 0;
  // 2. The counts decide first.
  if (other.Count() > Count()) return -1;
  if (other.Count() < Count()) return 1;
  // 3. Each code of this list must be in the other with the same text, in
  //    any order.
  for (int i = 0; i < Count(); ++i) {
    const Ox_CodeStr &item = GetItemNN(i);
    int found = other.FindCode(item.code);
    if (found < 0) return -1;
    int result = item.CompareStr(other.Str(found));
    if (result != 0) return result;
  }
  // 4. Equal.
  return 0;
}

int Ox_CodeStrList::AppendDiffList(const Ox_CodeStrList &base,
                                   const Ox_CodeStrList &changed) {
  if (&changed == this) {
    Ox_CodeStrList copy(changed);
    return AppendDiffList(base, copy);
  }
  int added = 0;
  for (int i = 0; i < changed.Count(); ++i) {
    const Ox_CodeStr &item = changed.GetItemNN(i);
    int found = base.FindCode(item.code);
    if (found >= 0 && base.GetItemNN(found).CompareStr(item.str) == 0)
      continue;  // unchanged
    if (Add(item) >= 0) ++added;
  }
  return added;
}
