// Ox_ConfigSection, its handler, and Ox_ConfigSectionList with the text
// form of configuration files.
#include "Ox_Config.h"

#include <cstdio>
#include <cstring>
#include <new>

#include "Ox_BaseFunc.h"

// The pool of sections: a constant-initialised static.
Ox_ConfigSectionHandler Ox_ConfigSection::_OxConfigSectionHandler;

namespace {

// What GetItemNN gives for a bad index.
const Ox_ConfigSection kEmptySection;

// A path as the operating system takes it: backslashes become slashes.
Ox_AString SystemPath(const char *path) {
  Ox_AString result(path);
  if (result.Find('\\', 0) >= 0) result.Replace('\\', '/');
  return result;
}

// Longest piece of a line read at once, with its NUL.
constexpr int kLineLimit = 1024;

}  // namespace

// ---------------------------------------------------------------------------
// Ox_ConfigSection

// Sections hold each key once.
Ox_ConfigSection::Ox_ConfigSection() : Ox_NamedStrList(1) {}

Ox_ConfigSection::Ox_ConfigSection(const Ox_ConfigSection &other)
    : Ox_NamedStrList(other), id(other.id) {}

Ox_ConfigSection::~Ox_ConfigSection() {}

Ox_ConfigSection &Ox_ConfigSection::operator=(const Ox_ConfigSection &other) {
  Assign(other);
  return *this;
}

int Ox_ConfigSection::Assign(const Ox_ConfigSection &other) {
  if (&other != this) {
    id = other.id;
    AssignList(other);
  }
  return Count();
}

int Ox_ConfigSection::AddItem(const Ox_AString &key,
                              const Ox_AString &value) {
  // As AddStr(key, value, 0), but without its refusal of an empty key.
  Ox_NamedStr item(key, value);
  return _AddItem(item);
}

int Ox_ConfigSection::SetItem(const Ox_AString &key,
                              const Ox_AString &value) {
  int index = FindId(key);
  if (index < 0) return AddItem(key, value);
  Ox_NamedStr *item = GetSafeItem(index);
  if (!item) return -1;
  item->SetStr(value);
  return 0;
}

Ox_ConfigSection *Ox_ConfigSection::InitWithMemory(void *memory) {
  return memory ? new (memory) Ox_ConfigSection() : nullptr;
}

void Ox_ConfigSection::FreeWithMemory(void *item) {
  if (item) static_cast<Ox_ConfigSection *>(item)->~Ox_ConfigSection();
}

// ---------------------------------------------------------------------------
// Ox_ConfigSectionHandler

void *Ox_ConfigSectionHandler::_InitItem(void *item) {
  return Ox_ConfigSection::InitWithMemory(item);
}

void Ox_ConfigSectionHandler::_FreeItem(void *item) {
  Ox_ConfigSection::FreeWithMemory(item);
}

void Ox_ConfigSectionHandler::_AssignItem(void *target, void *source) {
  if (target && source)
    static_cast<Ox_ConfigSection *>(target)->Assign(
        *static_cast<const Ox_ConfigSection *>(source));
}

int Ox_ConfigSectionHandler::_CompareItem(void *item, void *key) {
  // The key is the address of a `const char *` section name.
  if (!item || !key) return -1;
  return ox_stricmpA(static_cast<const Ox_ConfigSection *>(item)->id.GetString(),
                     *static_cast<const char *const *>(key));
}

// ---------------------------------------------------------------------------
// Ox_ConfigSectionList: the list

Ox_ConfigSectionList::Ox_ConfigSectionList()
    : Ox_ObjList(&Ox_ConfigSection::_OxConfigSectionHandler, 0),
      lastError(0) {}

Ox_ConfigSectionList::Ox_ConfigSectionList(const Ox_ConfigSectionList &other)
    : Ox_ObjList(other), lastError(other.lastError) {}

Ox_ConfigSectionList::~Ox_ConfigSectionList() {}

Ox_ConfigSectionList &Ox_ConfigSectionList::operator=(
    const Ox_ConfigSectionList &other) {
  if (&other != this) {
    AssignList(other);
    lastError = other.lastError;
  }
  return *this;
}

int Ox_ConfigSectionList::FindId(const char *name) const {
  const char *key = name;
  return FindItem(&key);
}

int Ox_ConfigSectionList::AddSection(const Ox_AString &name) {
  // A name already present gives 0, whatever its index: the loaders rely on
  // this, and the items of a repeated header go to the first section.
  if (FindId(name) >= 0) return 0;
  int index = Ox_ObjList::Add(nullptr);
  Ox_ConfigSection *section = GetSafeItems(index);
  if (!section) return index < 0 ? index : -1;
  section->SetId(name);
  return index;
}

Ox_ConfigSection *Ox_ConfigSectionList::GetItems(int index) const {
  return static_cast<Ox_ConfigSection *>(Ox_ObjList::GetItem(index));
}

Ox_ConfigSection *Ox_ConfigSectionList::GetSafeItems(int index) {
  return static_cast<Ox_ConfigSection *>(Ox_ObjList::GetSafeItem(index, 0));
}

const Ox_ConfigSection &Ox_ConfigSectionList::GetItemNN(int index) const {
  const Ox_ConfigSection *section = GetItems(index);
  return section ? *section : kEmptySection;
}

int Ox_ConfigSectionList::Append(const Ox_ConfigSectionList &other) {
  if (&other == this) {
    Ox_ConfigSectionList copy(other);
    AppendList(copy);
  } else {
    AppendList(other);
  }
  return Count();
}

// ---------------------------------------------------------------------------
// Ox_ConfigSectionList: the text form

namespace {

// Takes one trimmed, non-empty line into the list. `current` is the index of
// the section that items go to, -1 before the first header.
void TakeLine(Ox_ConfigSectionList &list, const char *line, int length,
              int &current) {
  // Comments stand on their own lines.
  if (line[0] == '#' || (line[0] == '/' && length > 1 && line[1] == '/'))
    return;

  // "[name]" opens a section; the name is trimmed.
  if (line[0] == '[' && length >= 2 && line[length - 1] == ']') {
    Ox_AString name(line + 1, length - 2);
    name.Trim();
    current = list.AddSection(name);
    return;
  }

  // Before the first header, and without '=', a line is ignored.
  Ox_ConfigSection *section = list.GetSafeItems(current);
  if (!section) return;
  const char *equals =
      static_cast<const char *>(memchr(line, '=', static_cast<size_t>(length)));
  if (!equals) return;

  // Key before the first '=', value behind it, both trimmed.
  int keyLength = static_cast<int>(equals - line);
  keyLength -= ox_findrskipA(line, keyLength);
  const char *value = equals + 1;
  int valueLength = length - static_cast<int>(value - line);
  int skip = ox_findskipA(value, valueLength);
  section->AddItem(Ox_AString(line, keyLength),
                   Ox_AString(value + skip, valueLength - skip));
}

}  // namespace

int Ox_ConfigSectionList::Load(const char *path) {
  // 1. Start empty; a path is needed.
  ReleaseList();
  if (!path || !*path) return -1;

  // 2. Open for reading as text.
  FILE *file = std::fopen(SystemPath(path).GetString(), "r");
  if (!file) {
    lastError = ox_getlasterror();
    return -1;
  }

  // 3. Read the lines; a longer line than the limit comes as several.
  char line[kLineLimit];
  int current = -1;
  while (std::fgets(line, kLineLimit, file)) {
    int length = static_cast<int>(strlen(line));
    int skip = ox_findskipA(line, length);
    length -= skip;
    length -= ox_findrskipA(line + skip, length);
    if (length <= 0) continue;  // empty lines are passed over
    TakeLine(*this, line + skip, length, current);
  }

  // 4. Close; the result is the number of sections.
  std::fclose(file);
  return Count();
}

int Ox_ConfigSectionList::Save(const char *path) const {
  if (!path || !*path) return -1;
  FILE *file = std::fopen(SystemPath(path).GetString(), "w");
  if (!file) return -1;

  for (int i = 0; i < Count(); ++i) {
    const Ox_ConfigSection &section = GetItemNN(i);
    std::fprintf(file, "[%s]\n", section.id.GetString());
    for (int j = 0; j < section.Count(); ++j) {
      const Ox_NamedStr &item = section.GetItemNN(j);
      // The value written is deliberately not the value: a non-empty one is
      // written as nothing, and an empty one as the text a formatter gives
      // for a null string. Only the binary form keeps values.
      const char *written = item.str.GetLength() > 0 ? "" : "(null)";
      std::fprintf(file, "%s=%s\n", item.id.GetString(), written);
    }
    std::fputs("\n", file);
  }

  std::fclose(file);
  return Count();
}
