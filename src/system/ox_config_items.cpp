// Ox_Config: a section list with access by section name and key, and the
// caller's file name and values.
#include "Ox_Config.h"

Ox_Config::Ox_Config() : userValue(0), loadError(0) {}

Ox_Config::Ox_Config(const Ox_Config &other)
    : Ox_ConfigSectionList(other), userValue(other.userValue), loadError(0) {}

Ox_Config::~Ox_Config() {}

Ox_Config &Ox_Config::operator=(const Ox_Config &other) {
  Assign(other);
  return *this;
}

int Ox_Config::AddSection(const char *name) {
  return Ox_ConfigSectionList::AddSection(Ox_AString(name));
}

int Ox_Config::AddSection(const Ox_AString &name) {
  return Ox_ConfigSectionList::AddSection(name);
}

// ---------------------------------------------------------------------------
// Sections and items

Ox_ConfigSection *Ox_Config::GetSection(const char *name) const {
  return GetItems(FindId(name));
}

Ox_ConfigSection *Ox_Config::GetSection(int index) const {
  return GetItems(index);
}

Ox_ConfigSection *Ox_Config::GetSafeSection(const char *name) {
  return GetSafeItems(FindId(name));
}

const Ox_AString *Ox_Config::GetItem(const char *section,
                                     const char *key) const {
  const Ox_ConfigSection *found = GetSection(section);
  if (!found) return nullptr;
  const Ox_NamedStr *item = found->GetItem(key);
  return item ? &item->str : nullptr;
}

const Ox_AString *Ox_Config::GetItem(int section, int item) const {
  const Ox_ConfigSection *found = GetSection(section);
  if (!found) return nullptr;
  const Ox_NamedStr *entry = found->GetItem(item);
  return entry ? &entry->str : nullptr;
}

Ox_AString *Ox_Config::GetSafeItem(const char *section, const char *key) {
  Ox_ConfigSection *found = GetSafeSection(section);
  if (!found) return nullptr;
  Ox_NamedStr *item = found->GetSafeItem(key);
  return item ? &item->str : nullptr;
}

const Ox_AString &Ox_Config::GetItemNN(const char *section,
                                       const char *key) const {
  const Ox_AString *value = GetItem(section, key);
  return value ? *value : _OxNullString;
}

const Ox_AString &Ox_Config::GetItemNN(int section, int item) const {
  const Ox_AString *value = GetItem(section, item);
  return value ? *value : _OxNullString;
}

// ---------------------------------------------------------------------------
// SetItem: the section is made when it isn't there yet.

int Ox_Config::SetItem(const char *section, const Ox_AString &key,
                       const Ox_AString &value) {
  Ox_ConfigSection *target = GetSafeSection(section);
  if (!target) target = GetSafeItems(AddSection(section));
  if (!target) return -1;
  return target->SetItem(key, value);
}

int Ox_Config::SetItem(const char *section, const Ox_AString &key,
                       const char *value) {
  return SetItem(section, key, Ox_AString(value));
}

int Ox_Config::SetItem(const char *section, const Ox_AString &key,
                       char value) {
  // A string of that one character.
  return SetItem(section, key, Ox_AString(&value, 1));
}

int Ox_Config::SetItem(const char *section, const Ox_AString &key,
                       int value) {
  Ox_AString text;
  text.Set(value);
  return SetItem(section, key, text);
}

int Ox_Config::SetItem(const char *section, const Ox_AString &key,
                       double value) {
  Ox_AString text;
  text.Set(value);
  return SetItem(section, key, text);
}

int Ox_Config::SetItem(const char *section, const char *key,
                       const Ox_AString &value) {
  return SetItem(section, Ox_AString(key), value);
}

int Ox_Config::SetItem(const char *section, const char *key,
                       const char *value) {
  return SetItem(section, Ox_AString(key), Ox_AString(value));
}

int Ox_Config::SetItem(const char *section, const char *key, char value) {
  return SetItem(section, Ox_AString(key), value);
}

int Ox_Config::SetItem(const char *section, const char *key, int value) {
  return SetItem(section, Ox_AString(key), value);
}

int Ox_Config::SetItem(const char *section, const char *key, double value) {
  return SetItem(section, Ox_AString(key), value);
}

// ---------------------------------------------------------------------------
// Renaming and deleting

int Ox_Config::ChangeSectionId(const char *name, const char *newName) {
  Ox_ConfigSection *section = GetSafeSection(name);
  if (section) section->SetId(newName);
  return 0;
}

int Ox_Config::ChangeSectionId(const Ox_AString &name,
                               const Ox_AString &newName) {
  return ChangeSectionId(name.GetString(), newName.GetString());
}

int Ox_Config::ChangeItemId(const char *section, const char *key,
                            const char *newKey) {
  Ox_ConfigSection *found = GetSafeSection(section);
  Ox_NamedStr *item = found ? found->GetSafeItem(key) : nullptr;
  if (item) item->SetId(newKey);
  return 0;
}

int Ox_Config::ChangeItemId(const Ox_AString &section, const Ox_AString &key,
                            const Ox_AString &newKey) {
  return ChangeItemId(section.GetString(), key.GetString(),
                      newKey.GetString());
}

int Ox_Config::DelSection(const char *name) {
  int index = FindId(name);
  if (index < 0) return 0;
  return static_cast<int>(Delete(index, 1));
}

int Ox_Config::DelItem(const char *section, const char *key) {
  Ox_ConfigSection *found = GetSafeSection(section);
  if (!found) return 0;
  int index = found->FindId(key);
  if (index < 0) return 0;
  return static_cast<int>(found->Delete(index, 1));
}

// ---------------------------------------------------------------------------
// Files, streams and whole configurations

int Ox_Config::Load(const char *path) {
  fileName.Set(path);
  int result = Ox_ConfigSectionList::Load(path);
  if (result < 0) loadError = lastError;
  return result;
}

int Ox_Config::Save(const char *path) const {
  return Ox_ConfigSectionList::Save(path ? path : fileName.GetString());
}

int Ox_Config::LoadFromStream(Ox_Buffer &buffer) {
  return Ox_ConfigSectionList::LoadFromStream(buffer);
}

int Ox_Config::SaveToStream(Ox_Buffer &buffer) const {
  return Ox_ConfigSectionList::SaveToStream(buffer);
}

void Ox_Config::Clear() {
  Ox_ConfigSectionList::Clear();
  userValue = 0;
}

int Ox_Config::Assign(const Ox_Config &other) {
  if (&other == this) return Count();
  Clear();
  userValue = other.userValue;
  return Append(other);
}
