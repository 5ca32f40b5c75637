// Named and coded strings: Ox_NamedStr (name and text), Ox_CodeStr (number
// and text) and their lists.
//
// The lists carry attribute sets: a dataset's named properties, the
// attributes of a markup element, the texts of a parsed attribute string.
// Each item class has a handler that is at once the pool its items come from
// and the table of item operations:
//   Ox_NamedStrHandler      pool "Ox_NamedStr",     256 items a block
//   Ox_CodeStrHandler       pool "Ox_CodeStr",      128 items a block
//   Ox_NamedStrListHandler  pool "Ox_NamedStrList", 128 items a block
//
// Lookup keys (FindItem): a named string's first field is its name, and its
// key is the address of a `const char *`, compared without regard to case;
// a coded string's key is the address of an `int` code.
#ifndef OX_NAMEDSTR_H
#define OX_NAMEDSTR_H

#include "Ox_Export.h"
#include "Ox_List.h"
#include "Ox_String.h"

class Ox_NamedStrHandler;
class Ox_CodeStrHandler;
class Ox_NamedStrListHandler;

// A pair of name and text. The name must stay the first field: list lookup
// reads it through the key convention above.
class OX_API Ox_NamedStr {
 public:
  Ox_NamedStr() {}
  Ox_NamedStr(const Ox_AString &id, const Ox_AString &str);
  Ox_NamedStr(const Ox_NamedStr &other);
  Ox_NamedStr &operator=(const Ox_NamedStr &other);

  // Both fields; self assignment is a no-op.
  void Set(const Ox_NamedStr &other);
  void Set(const Ox_AString &id, const Ox_AString &str);
  void SetId(const Ox_AString &id) { this->id = id; }
  void SetId(const char *text, int length = -1) { id.Set(text, length); }
  void SetStr(const Ox_AString &str) { this->str = str; }
  void SetStr(const char *text, int length = -1) { str.Set(text, length); }

  const Ox_AString &Id() const { return id; }
  const Ox_AString &Str() const { return str; }

  // Byte comparison of the names, then of the texts: 0 means the same.
  // These operators answer 0 for equality and are case-sensitive, unlike
  // the lookup of the lists.
  int Compare(const Ox_NamedStr &other) const;
  int Compare(const Ox_NamedStr *other) const;
  int operator==(const Ox_NamedStr &other) const { return Compare(other); }
  // Byte comparison of one field, 0 when equal.
  int CompareId(const char *text) const { return id.Compare(text); }
  int operator==(const char *text) const { return id.Compare(text); }
  int CompareStr(const char *text) const { return str.Compare(text); }

  // In-place life cycle for the pool.
  static Ox_NamedStr *InitWithMemory(void *memory);
  static void FreeWithMemory(void *item);

  static Ox_NamedStrHandler _OxNamedStrHandler;

  Ox_AString id;   // the name; first field
  Ox_AString str;  // the text
};

// A pair of number and text.
class OX_API Ox_CodeStr {
 public:
  Ox_CodeStr() : code(0) {}
  Ox_CodeStr(int code, const Ox_AString &str) : code(code), str(str) {}
  Ox_CodeStr(int code, const char *str) : code(code), str(str) {}
  Ox_CodeStr(const Ox_CodeStr &other) : code(other.code), str(other.str) {}
  Ox_CodeStr &operator=(const Ox_CodeStr &other);

  void Set(const Ox_CodeStr &other);
  void Set(int code, const Ox_AString &str);
  void SetCode(int code) { this->code = code; }
  void SetStr(const Ox_AString &str) { this->str = str; }
  void SetStr(const char *text, int length = -1) { str.Set(text, length); }

  int Code() const { return code; }
  const Ox_AString &Str() const { return str; }

  // The difference of the codes when they differ, else the byte comparison
  // of the texts: 0 means the same.
  int Compare(const Ox_CodeStr &other) const;
  int Compare(const Ox_CodeStr *other) const;
  int operator==(const Ox_CodeStr &other) const { return Compare(other); }
  // 1 when the codes are equal, 0 otherwise: the reverse sense of the
  // comparisons above.
  int operator==(int value) const { return code == value ? 1 : 0; }
  int CompareCode(int value) const { return code == value ? 1 : 0; }
  int CompareStr(const char *text) const { return str.Compare(text); }

  static Ox_CodeStr *InitWithMemory(void *memory);
  static void FreeWithMemory(void *item);

  static Ox_CodeStrHandler _OxCodeStrHandler;

  int code;        // the number; first field
  Ox_AString str;  // the text
};

// Item operations of Ox_NamedStr; the key of _CompareItem is the address of
// a `const char *` name, compared with ox_stricmpA.
class OX_API Ox_NamedStrHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_NamedStrHandler()
      : Ox_ListObjHandler("Ox_NamedStr", sizeof(Ox_NamedStr), 256) {}
  void *_InitItem(void *item) override;
  void _FreeItem(void *item) override;
  void _AssignItem(void *target, void *source) override;
  int _CompareItem(void *item, void *key) override;
};

// Item operations of Ox_CodeStr; the key is the address of an int code:
// 0 when the codes are equal, 1 otherwise.
class OX_API Ox_CodeStrHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_CodeStrHandler()
      : Ox_ListObjHandler("Ox_CodeStr", sizeof(Ox_CodeStr), 128) {}
  void *_InitItem(void *item) override;
  void _FreeItem(void *item) override;
  void _AssignItem(void *target, void *source) override;
  int _CompareItem(void *item, void *key) override;
};

// A list of named strings. With the `unique` flag a name is held once.
class OX_API Ox_NamedStrList : public Ox_ObjList {
 public:
  explicit Ox_NamedStrList(int unique = 0);
  Ox_NamedStrList(const Ox_NamedStrList &other);
  ~Ox_NamedStrList();

  // Index by name, ignoring case; -1 if absent.
  int FindId(const char *name) const;

  // An empty name gives -1. An existing name: with `overwrite` not 1 the
  // old index comes back and nothing changes; with `overwrite` 1 the old
  // item is replaced in place, or, in a unique list, deleted and the new one
  // added at the end. A new name is added at the end.
  int Add(const Ox_NamedStr &item, int overwrite = 0);
  // An empty name gives -1. With `overwrite` 1 and the name present, the
  // text of that item is set (a unique list deletes it and adds a new one);
  // in all other cases a new item is added. Numbers are stored as text.
  int AddStr(const Ox_AString &id, const Ox_AString &str, int overwrite = 0);
  int AddStr(const Ox_AString &id, int value, int overwrite = 0);
  int AddStr(const Ox_AString &id, double value, int overwrite = 0);
  // Deletes the first item of the name and gives its former index; null,
  // empty or absent gives a negative number.
  int DelStr(const char *name);

  Ox_NamedStr *GetItem(int index) const;
  Ox_NamedStr *GetItem(const char *name) const;
  Ox_NamedStr *GetSafeItem(int index);
  Ox_NamedStr *GetSafeItem(const char *name);
  // The shared empty item when absent.
  const Ox_NamedStr &GetItemNN(int index) const;
  const Ox_NamedStr &GetItemNN(const char *name) const;
  const Ox_NamedStr &operator[](int index) const { return GetItemNN(index); }
  // The shared empty string when absent.
  const Ox_AString &Id(int index) const;
  const Ox_AString &Str(int index) const;
  const Ox_AString &Str(const char *name) const;

  // Replace by, or add, copies of another list's items; null is ignored.
  // Both return the new count.
  int Assign(const Ox_NamedStrList *other);
  int Append(const Ox_NamedStrList *other);
  Ox_NamedStrList &operator=(const Ox_NamedStrList &other);
  Ox_NamedStrList &operator=(const Ox_NamedStrList *other);
  Ox_NamedStrList &operator+=(const Ox_NamedStrList &other);
  Ox_NamedStrList &operator+=(const Ox_NamedStrList *other);
  void Clear() { ReleaseList(); }

  // 0 when both lists hold the same texts under the same names, in any
  // order; -1 or 1 by count, -1 for a name missing in `other`, else the
  // first non-zero text comparison.
  int Compare(const Ox_NamedStrList &other) const;
  int operator==(const Ox_NamedStrList &other) const { return Compare(other); }

  // Adds each item of `changed` that `base` lacks or holds with another
  // text; returns the number added.
  int AppendDiffList(const Ox_NamedStrList &base,
                     const Ox_NamedStrList &changed);

  // Parses an attribute text of the form name="value" name2=value2 into
  // this list (emptied first); returns the number of finished pairs.
  int ParseStr(const Ox_AString &text, int decode);

  // In-place life cycle for the pool; pool-made lists are unique unless
  // asked otherwise.
  static Ox_NamedStrList *InitWithMemory(void *memory, int unique = 1);
  static void FreeWithMemory(void *list);

  static Ox_NamedStrListHandler _OxNamedStrListHandler;

 protected:
  // Adds a copy of `item` at the end, with no test of its name.
  int _AddItem(const Ox_NamedStr &item);

 private:
  // Ox_NamedStr::SetStr or Set on the item at `index`, in a list that is
  // not unique; in a unique list the item is deleted and `item` added at
  // the end. Returns the index of the item that now holds the name.
  int _Overwrite(int index, const Ox_NamedStr &item, int textOnly);
};

// Item operations of Ox_NamedStrList objects held as list items; the key of
// _CompareItem is another Ox_NamedStrList, compared by
// Ox_NamedStrList::Compare.
class OX_API Ox_NamedStrListHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_NamedStrListHandler()
      : Ox_ListObjHandler("Ox_NamedStrList", sizeof(Ox_NamedStrList), 128) {}
  void *_InitItem(void *item) override;
  void _FreeItem(void *item) override;
  void _AssignItem(void *target, void *source) override;
  int _CompareItem(void *item, void *key) override;
};

// A list of coded strings.
class OX_API Ox_CodeStrList : public Ox_ObjList {
 public:
  explicit Ox_CodeStrList(int unique = 0);
  Ox_CodeStrList(const Ox_CodeStrList &other);
  ~Ox_CodeStrList();

  // Index of the first item with the code; -1 if absent.
  int FindCode(int code) const;
  // These always add (a unique list keeps a code once); index or negative.
  int Add(const Ox_CodeStr &item);
  int AddStr(int code, const Ox_AString &str);
  int AddStr(int code, const char *str);
  // Deletes the first item with the code; its former index, or negative.
  int DelStr(int code);

  Ox_CodeStr *GetItem(int index) const;
  Ox_CodeStr *GetSafeItem(int index);
  const Ox_CodeStr &GetItemNN(int index) const;
  const Ox_CodeStr &operator[](int index) const { return GetItemNN(index); }
  int Code(int index) const;                    // 0 out of range
  const Ox_AString &Str(int index) const;       // empty out of range
  const Ox_AString &StrByCode(int code) const;  // empty when absent

  // Assign goes through a temporary copy, so a list may be assigned from
  // itself. Both return the new count; null is ignored.
  int Assign(const Ox_CodeStrList *other);
  int Append(const Ox_CodeStrList *other);
  Ox_CodeStrList &operator=(const Ox_CodeStrList &other);
  Ox_CodeStrList &operator=(const Ox_CodeStrList *other);
  Ox_CodeStrList &operator+=(const Ox_CodeStrList &other);
  Ox_CodeStrList &operator+=(const Ox_CodeStrList *other);
  void Clear() { ReleaseList(); }

  int Compare(const Ox_CodeStrList &other) const;
  int operator==(const Ox_CodeStrList &other) const { return Compare(other); }
  int AppendDiffList(const Ox_CodeStrList &base,
                     const Ox_CodeStrList &changed);
};

#endif
