// Named values: Ox_Variable, its list Ox_VariableList, and the search path
// Ox_VariableListChain.
//
// A variable is a name and an Ox_Variant. An Ox_VariableList keeps them in
// order; names compare without regard to case, and AddVariable inserts or
// replaces. The list is the parameter block of every interchange format and
// the store of a dataset's constant columns. An Ox_VariableListChain looks a
// name up in several lists in turn and owns none of them.
#ifndef OX_VARIABLE_H
#define OX_VARIABLE_H

#include "Ox_BaseLib.h"
#include "Ox_Variant.h"

class Ox_Variable;

// Item handler of variable lists, and the pool "Ox_Variable" (64 a block).
class OX_API Ox_VariableHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_VariableHandler();
  void *_InitItem(void *item) override;                   // InitWithMemory
  void _FreeItem(void *item) override;                    // FreeWithMemory
  void _AssignItem(void *target, void *source) override;  // Set
  // The item's name against the key's, ignoring case. The key is another
  // Ox_Variable or the address of a `const char *`: both begin with one
  // pointer to the name's characters.
  int _CompareItem(void *item, void *key) override;
};

// A named value.
class OX_API Ox_Variable {
 public:
  Ox_AString id;   // the name; an empty name is not admitted to a list
  Ox_Variant var;  // the value, or a reference to another variant

  Ox_Variable();
  Ox_Variable(const Ox_AString &name, const Ox_Variant &value);
  // The text is stored as a string value.
  Ox_Variable(const Ox_AString &name, const Ox_AString &text);
  Ox_Variable(const Ox_Variable &other);
  Ox_Variable &operator=(const Ox_Variable &other);

  // Copies name and value.
  void Set(const Ox_Variable &other);
  void SetId(const Ox_AString &name) { id = name; }
  void SetId(const char *name, int length = -1) { id.Set(name, length); }
  void SetVar(const Ox_Variant &value) { var.Set(value); }

  // Non-zero when the names differ (the string compare result, case
  // counts); when they are equal, the variants' operator==. Callers rely on
  // this reversed sense.
  int operator==(const Ox_Variable &other) const;
  // The name's compare result, case-sensitive: 0 when equal.
  int operator==(const char *name) const { return id.Compare(name); }
  // The variants' operator==.
  int operator==(const Ox_Variant &value) const { return var == value; }

  // Construct and destroy in place; a null pointer is ignored.
  static void InitWithMemory(Ox_Variable *item);
  static void FreeWithMemory(Ox_Variable *item);

  // The one handler and pool of all variable lists.
  static Ox_VariableHandler _OxVariableHandler;
};

constexpr Ox_VariableHandler::Ox_VariableHandler()
    : Ox_ListObjHandler("Ox_Variable", sizeof(Ox_Variable), 64) {}

// Ordered named values; names compare without regard to case. A result that
// is an index is a position in the list; -1 means not found or refused. The
// list owns its variables, except those entered by AddLink.
class OX_API Ox_VariableList : public Ox_ObjList {
 public:
  // `flag` goes to Ox_ObjList unchanged.
  explicit Ox_VariableList(int flag = 0);
  Ox_VariableList(const Ox_VariableList &other);
  ~Ox_VariableList();
  Ox_VariableList &operator=(const Ox_VariableList &other);
  Ox_VariableList &operator=(const Ox_VariableList *other);
  Ox_VariableList &operator+=(const Ox_VariableList &other);
  Ox_VariableList &operator+=(const Ox_VariableList *other);

  // Index of the first variable of that name, ignoring case; -1 if none
  // (and for a null name).
  int FindId(const char *name) const;

  // A copy at the end, whatever names the list holds already; -1 for a
  // null pointer or an empty name.
  int Add(const Ox_Variable &item);
  int Add(const Ox_Variable *item);
  // The variable itself, not a copy; the list does not own it. -1 for null.
  int AddLink(const Ox_Variable *item);

  // Insert or replace: an existing name keeps its place and first spelling
  // and takes the new value; a new name is appended. -1 for an empty or
  // null name, else the index. A null value pointer is the empty variant.
  int AddVariable(const Ox_AString &name, const Ox_Variant &value);
  int AddVariable(const Ox_AString &name, const Ox_Variant *value);
  int AddVariable(const char *name, const Ox_Variant &value);
  int AddVariable(const char *name, const Ox_Variant *value);
  // As AddVariable, but the variable refers to the caller's variant.
  int AddRefVariable(const Ox_AString &name, const Ox_Variant *value);
  // AddVariable with a string value. The length argument of the second
  // form is not used: the whole zero-terminated text is taken.
  int AddStr(const Ox_AString &name, const Ox_AString &text);
  int AddStr(const Ox_AString &name, const char *text, int length);

  // Replace the value at an index: the index, or -1 out of range.
  int SetVariant(int index, const Ox_Variant &value);
  int SetStr(int index, const Ox_AString &text);
  int SetStr(int index, const char *text, int length);
  // Clears the list and fills it from a text of name and value pairs
  // (a=1 b = 2.5 c='x y' d). The new count, or -1 for a null text.
  int SetStr(const char *text);

  // Splits a parameter text into tokens at blanks, tabs and line ends
  // outside quotes; the first half of SetStr(text). The token count.
  static int SplitParamText(const char *text, Ox_AStrList &tokens);

  const Ox_Variable *GetItem(int index) const;     // null out of range
  const Ox_Variable *GetItem(const char *name) const;
  Ox_Variable *GetSafeItem(int index);             // null out of range
  Ox_Variable *GetSafeItem(const char *name);
  // Never null: a shared empty variable out of range.
  const Ox_Variable *GetItemNN(int index) const;
  // Name or value, never failing: a shared empty object out of range.
  const Ox_AString &Id(int index) const;
  const Ox_Variant &Var(int index) const;
  const Ox_Variant &Var(const char *name) const;
  const Ox_Variant &operator[](int index) const { return Var(index); }

  // Replace the content by a copy of `other`, or append a copy of all its
  // items; equal names are not merged, a null source is ignored. The new
  // count.
  int Assign(const Ox_VariableList *other);
  int Append(const Ox_VariableList *other);
  void Clear() { ReleaseList(); }

  // First binary stream form (binstream_variant.cpp). Save appends the
  // block (magic 0xFF10, version, from 3100 on the code page, count, then
  // name and value per variable) and returns the end position, or -1.
  // Load empties the list, reads the block at `position` and returns the
  // position behind it: the buffer's size when it ends early, -1 for a
  // wrong magic or a cut value.
  int Save(Ox_Buffer &buffer, unsigned int codePage, int version) const;
  int Load(const Ox_Buffer &buffer, int position, unsigned int codePage);
};

#if defined(__x86_64__) || defined(_M_X64)
static_assert(sizeof(Ox_VariableList) == 24,
              "Ox_VariableList adds no field to Ox_ObjList");
#endif

// A search path over variable lists, in the order they were added. It owns
// neither the lists nor their variables.
class OX_API Ox_VariableListChain : public Ox_PtrList {
 public:
  Ox_VariableListChain() {}
  explicit Ox_VariableListChain(Ox_VariableList *list) { Add(list); }

  // -1 for null; a list already in the chain keeps its place and that
  // position is returned; otherwise the new position.
  int Add(Ox_VariableList *list);
  // The value of the first list, in chain order, that holds the name
  // (ignoring case); null if none does.
  const Ox_Variant *GetVar(const char *name) const;
  Ox_Variant *GetSafeVar(const char *name);
};

#endif
