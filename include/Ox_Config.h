// Configuration files: sections of key=value lines, in a text file or in a
// binary form held in an Ox_Buffer.
//
// Text form, read line by line in the locale's code page:
//   - a line is read with a limit of 1024 bytes (1023 of data); a longer
//     line is read as several lines;
//   - each line is trimmed; empty lines are passed over;
//   - a line beginning with '#' or "//" is a comment (only on its own line);
//   - "[name]" opens a section (the name trimmed); lines before the first
//     section are ignored;
//   - any other line is "key=value", split at the first '=' and both sides
//     trimmed; a line without '=' is ignored. No quoting, no escapes.
// The writer writes "[name]\n", then "key=...\n" per item, then "\n"; it
// keeps the keys but not the values (see Ox_ConfigSectionList::Save).
//
// Binary form, integers big-endian, sections one after the other with no
// header: item count (4), name length (4), name bytes, then per item a
// length (4) and that many bytes "key=value".
#ifndef OX_CONFIG_H
#define OX_CONFIG_H

#include "Ox_Buffer.h"
#include "Ox_Export.h"
#include "Ox_List.h"
#include "Ox_NamedStr.h"
#include "Ox_String.h"

class Ox_ConfigSectionHandler;

// A section: its name and its key=value items. Keys are held once.
class OX_API Ox_ConfigSection : public Ox_NamedStrList {
 public:
  Ox_ConfigSection();
  Ox_ConfigSection(const Ox_ConfigSection &other);
  ~Ox_ConfigSection();
  Ox_ConfigSection &operator=(const Ox_ConfigSection &other);

  void SetId(const char *name) { id.Set(name); }
  void SetId(const Ox_AString &name) { id = name; }
  const Ox_AString &GetId() const { return id; }
  using Ox_NamedStrList::Id;

  // Name and items of another section; returns the item count.
  int Assign(const Ox_ConfigSection &other);
  using Ox_NamedStrList::Assign;

  // Adds an item, as AddStr(key, value, 0) does, but an empty key is taken
  // as well (a "=b" line gives an item with an empty key). Returns the index.
  int AddItem(const Ox_AString &key, const Ox_AString &value);
  // Sets the value of the key, adding the item when absent: the AddItem
  // result then, else 0, or -1 when the item can't be had.
  int SetItem(const Ox_AString &key, const Ox_AString &value);

  static Ox_ConfigSection *InitWithMemory(void *memory);
  static void FreeWithMemory(void *item);

  static Ox_ConfigSectionHandler _OxConfigSectionHandler;

  Ox_AString id;  // the section name
};

// Item operations of sections; the key of _CompareItem is the address of a
// `const char *` section name, compared with ox_stricmpA.
class OX_API Ox_ConfigSectionHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_ConfigSectionHandler()
      : Ox_ListObjHandler("Ox_ConfigSection", sizeof(Ox_ConfigSection), 128) {}
  void *_InitItem(void *item) override;
  void _FreeItem(void *item) override;
  void _AssignItem(void *target, void *source) override;
  int _CompareItem(void *item, void *key) override;
};

// The sections of a configuration.
class OX_API Ox_ConfigSectionList : public Ox_ObjList {
 public:
  Ox_ConfigSectionList();
  Ox_ConfigSectionList(const Ox_ConfigSectionList &other);
  ~Ox_ConfigSectionList();
  Ox_ConfigSectionList &operator=(const Ox_ConfigSectionList &other);

  // Index of the section, ignoring case, or -1.
  int FindId(const char *name) const;
  // A new, empty section at the end, returning its index. A name already
  // present adds nothing and gives 0 (not its index).
  int AddSection(const Ox_AString &name);

  Ox_ConfigSection *GetItems(int index) const;  // null for a bad index
  Ox_ConfigSection *GetSafeItems(int index);    // null for a bad index
  // A shared empty section for a bad index.
  const Ox_ConfigSection &GetItemNN(int index) const;
  const Ox_ConfigSection &operator[](int index) const {
    return GetItemNN(index);
  }

  // Text form: the number of sections, or -1 for a missing path or a file
  // that can't be opened (then `lastError` holds the system error).
  int Load(const char *path);
  int Save(const char *path) const;
  // Binary form: the number of sections. LoadFromStream gives -1 when a
  // length runs past the end of the buffer (and leaves the list empty).
  int LoadFromStream(Ox_Buffer &buffer);
  int SaveToStream(Ox_Buffer &buffer) const;

  // Adds copies of the other list's sections; returns the section count.
  int Append(const Ox_ConfigSectionList &other);
  void Clear() { ReleaseList(); }

  int lastError;  // the system error of a failed open
};

// A configuration: the sections and a few values of the caller's.
class OX_API Ox_Config : public Ox_ConfigSectionList {
 public:
  Ox_Config();
  Ox_Config(const Ox_Config &other);
  ~Ox_Config();
  Ox_Config &operator=(const Ox_Config &other);

  int AddSection(const char *name);
  int AddSection(const Ox_AString &name);

  // Creates the section if needed (-1 if that fails), then sets the item.
  int SetItem(const char *section, const char *key, const Ox_AString &value);
  int SetItem(const char *section, const char *key, const char *value);
  int SetItem(const char *section, const char *key, char value);
  int SetItem(const char *section, const char *key, int value);
  int SetItem(const char *section, const char *key, double value);
  int SetItem(const char *section, const Ox_AString &key,
              const Ox_AString &value);
  int SetItem(const char *section, const Ox_AString &key, const char *value);
  int SetItem(const char *section, const Ox_AString &key, char value);
  int SetItem(const char *section, const Ox_AString &key, int value);
  int SetItem(const char *section, const Ox_AString &key, double value);

  int GetSectionCount() const { return Count(); }
  // Null for a section that isn't there.
  Ox_ConfigSection *GetSection(const char *name) const;
  Ox_ConfigSection *GetSection(int index) const;
  Ox_ConfigSection *GetSafeSection(const char *name);

  // Pointer to the value, null if absent.
  const Ox_AString *GetItem(const char *section, const char *key) const;
  const Ox_AString *GetItem(int section, int item) const;
  Ox_AString *GetSafeItem(const char *section, const char *key);
  // The value, or a shared empty string; never null.
  const Ox_AString &GetItemNN(const char *section, const char *key) const;
  const Ox_AString &GetItemNN(int section, int item) const;
  using Ox_ConfigSectionList::GetItemNN;

  // Rename a section or a key; always 0. Nothing happens when the section
  // (or the key) isn't there.
  int ChangeSectionId(const char *name, const char *newName);
  int ChangeSectionId(const Ox_AString &name, const Ox_AString &newName);
  int ChangeItemId(const char *section, const char *key, const char *newKey);
  int ChangeItemId(const Ox_AString &section, const Ox_AString &key,
                   const Ox_AString &newKey);

  // 0 if absent, otherwise the list's Delete result (0 when done).
  int DelSection(const char *name);
  int DelItem(const char *section, const char *key);

  // Load keeps `path` in `fileName` first, and on failure copies
  // `lastError` to `loadError`. Save takes `fileName` for a null path.
  int Load(const char *path);
  int Save(const char *path) const;
  int LoadFromStream(Ox_Buffer &buffer);
  int SaveToStream(Ox_Buffer &buffer) const;

  // Empties the list and zeroes `userValue`.
  void Clear();
  // Clears, takes `userValue` and appends the sections; returns the count.
  int Assign(const Ox_Config &other);

  int userValue;        // the caller's; nothing here reads it
  int loadError;        // `lastError` after a failed Load
  Ox_AString fileName;  // the last name given to Load
};

#endif
