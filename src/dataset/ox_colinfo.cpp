// Ox_ColInfo, its handler and pool, and Ox_ColList with the vocabulary of
// column types and summary kinds.
#include <cstring>
#include <new>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

// Constant-initialised statics: usable whatever the order of the library's
// static constructors.
Ox_ColInfoHandler Ox_ColInfo::_OxColInfoHandler;
const Ox_ColInfo Ox_ColInfo::_OxNullColInfo;

// ---------------------------------------------------------------------------
// Ox_ColInfo

Ox_ColInfo::Ox_ColInfo()
    : type(1), size(0), summ(1), orgIdx(-1), reserved(0), bindKind(0),
      groupSumm(64), bindColIdx(-1) {}

Ox_ColInfo::Ox_ColInfo(const Ox_AString &text) : Ox_ColInfo() { id = text; }

Ox_ColInfo::Ox_ColInfo(const Ox_ColInfo &other) : Ox_ColInfo() { Set(other); }

Ox_ColInfo &Ox_ColInfo::operator=(const Ox_ColInfo &other) {
  Set(other);
  return *this;
}

Ox_ColInfo::~Ox_ColInfo() {}

void Ox_ColInfo::Clear() {
  id.Empty();
  type = 1;
  size = 0;
  summ = 1;
  orgIdx = -1;
  summText.Empty();
  mapValue.Empty();
  reserved = 0;
  bindKind = 0;
  groupSumm = 64;
  bindcol.Empty();
  bindColIdx = -1;
}

void Ox_ColInfo::Set(const Ox_ColInfo &other) {
  if (this == &other) return;
  id = other.id;
  type = other.type;
  size = other.size;
  summ = other.summ;
  orgIdx = other.orgIdx;
  summText = other.summText;
  mapValue = other.mapValue;
  reserved = other.reserved;
  bindKind = other.bindKind;
  groupSumm = other.groupSumm;
  bindcol = other.bindcol;
  bindColIdx = other.bindColIdx;
}

void Ox_ColInfo::SetId(const Ox_AString &text) { id = text; }

void Ox_ColInfo::SetId(const char *text, int length) { id.Set(text, length); }

int Ox_ColInfo::Compare(const Ox_ColInfo &other) const {
  // Identifier ignoring case, then type, then size.
  int result = ox_stricmpA(id.GetString(), other.id.GetString());
  if (result != 0) return result;
  if (type != other.type) return type - other.type;
  return size - other.size;
}

int Ox_ColInfo::Compare(const char *text) const {
  return ox_stricmpA(id.GetString(), text);
}

void Ox_ColInfo::InitWithMemory(Ox_ColInfo *item) {
  if (item != nullptr) new (item) Ox_ColInfo();
}

void Ox_ColInfo::FreeWithMemory(Ox_ColInfo *item) {
  if (item != nullptr) item->~Ox_ColInfo();
}

// ---------------------------------------------------------------------------
// Handler

void *Ox_ColInfoHandler::_InitItem(void *item) {
  Ox_ColInfo::InitWithMemory(static_cast<Ox_ColInfo *>(item));
  return item;
}

void Ox_ColInfoHandler::_FreeItem(void *item) {
  Ox_ColInfo::FreeWithMemory(static_cast<Ox_ColInfo *>(item));
}

void Ox_ColInfoHandler::_AssignItem(void *target, void *source) {
  if (target == nullptr || source == nullptr) return;
  static_cast<Ox_ColInfo *>(target)->Set(*static_cast<Ox_ColInfo *>(source));
}

int Ox_ColInfoHandler::_CompareItem(void *item, void *key) {
  return OxCompareNameKey(item, key);
}

// ---------------------------------------------------------------------------
// Ox_ColList

namespace {
void *Item(const Ox_ColInfo *column) { return const_cast<Ox_ColInfo *>(column); }
}  // namespace

Ox_ColList::Ox_ColList() : Ox_ObjList(&Ox_ColInfo::_OxColInfoHandler, 1) {}
Ox_ColList::Ox_ColList(int unique)
    : Ox_ObjList(&Ox_ColInfo::_OxColInfoHandler, unique) {}
Ox_ColList::Ox_ColList(const Ox_ColList &other) : Ox_ObjList(other) {}
Ox_ColList::~Ox_ColList() {}

Ox_ColList &Ox_ColList::operator=(const Ox_ColList &other) {
  Assign(&other);
  return *this;
}

const Ox_ColInfo *Ox_ColList::GetItem(int index) const {
  return static_cast<const Ox_ColInfo *>(Ox_ObjList::GetItem(index));
}

Ox_ColInfo *Ox_ColList::GetSafeItem(int index) {
  return static_cast<Ox_ColInfo *>(Ox_ObjList::GetSafeItem(index, 0));
}

const Ox_ColInfo *Ox_ColList::GetItemNN(int index) const {
  const Ox_ColInfo *item = GetItem(index);
  return item != nullptr ? item : &Ox_ColInfo::_OxNullColInfo;
}

const Ox_ColInfo *Ox_ColList::GetItemByOrgIdx(int order) const {
  const int index = GetIndexByOrgIdx(order);
  return index >= 0 ? GetItem(index) : nullptr;
}

int Ox_ColList::GetIndexByOrgIdx(int order) const {
  for (int i = 0; i < Count(); ++i) {
    const Ox_ColInfo *column = GetItem(i);
    if (column != nullptr && column->orgIdx == order) return i;
  }
  return -1;
}

int Ox_ColList::FindId(const char *id) const {
  // The key is the address of a text pointer, as the handler expects.
  const char *key = id;
  return FindItem(const_cast<const char **>(&key));
}

int Ox_ColList::Add(const Ox_ColInfo *column) {
  if (column == nullptr) return -1;
  return Ox_ObjList::Add(Item(column));
}

int Ox_ColList::AddLink(const Ox_ColInfo *column) {
  if (column == nullptr) return -1;
  return Ox_ObjList::AddLink(Item(column));
}

int Ox_ColList::Add(const Ox_ColInfo *column, int &added) {
  const int before = Count();
  const int index = Add(column);
  added = Count() > before ? 1 : 0;
  return index;
}

int Ox_ColList::AddLink(const Ox_ColInfo *column, int &added) {
  const int before = Count();
  const int index = AddLink(column);
  added = Count() > before ? 1 : 0;
  return index;
}

int Ox_ColList::Set(int index, const Ox_ColInfo &column) {
  return static_cast<int>(Ox_ObjList::Set(index, Item(&column), 0));
}

int Ox_ColList::SetLink(int index, const Ox_ColInfo *column) {
  return static_cast<int>(Ox_ObjList::SetLink(index, Item(column), 0));
}

int Ox_ColList::Assign(const Ox_ColList *other) {
  if (other == nullptr) return 0;
  if (other != this) AssignList(*other);
  return Count();
}

int Ox_ColList::Append(const Ox_ColList *other) {
  if (other == nullptr) return 0;
  if (other == this) {
    Ox_ColList copy(*this);
    AppendList(copy);
  } else {
    AppendList(*other);
  }
  return Count();
}

// ---------------------------------------------------------------------------
// Column types

int Ox_ColList::GetTypeNo(const char *name) {
  // Prefixes ignoring case, in this order; the first match decides. Only
  // five letters of "STRING" are compared.
  static const struct {
    const char *word;
    int length;
    int type;
  } kPrefixes[] = {
      {"URL", 3, OX_COLTYPE_URL},           {"INT", 3, OX_COLTYPE_INT},
      {"DATE", 4, OX_COLTYPE_DATE},         {"CHAR", 4, OX_COLTYPE_CHAR},
      {"BLOB", 4, OX_COLTYPE_BLOB},         {"LONG", 4, OX_COLTYPE_LONG},
      {"STRING", 5, OX_COLTYPE_STRING},     {"DECIMAL", 7, OX_COLTYPE_DECIMAL},
      {"CURRENCY", 8, OX_COLTYPE_CURRENCY},
  };
  if (name == nullptr) return OX_COLTYPE_STRING;
  for (const auto &prefix : kPrefixes) {
    if (ox_strnicmpA(name, prefix.word, prefix.length) == 0) return prefix.type;
  }
  return OX_COLTYPE_STRING;
}

const char *Ox_ColList::GetTypeStr(int type) {
  switch (type) {
    case OX_COLTYPE_INT: return "INT";
    case OX_COLTYPE_DECIMAL: return "DECIMAL";
    case OX_COLTYPE_CURRENCY: return "CURRENCY";
    case OX_COLTYPE_DATE: return "DATE";
    case OX_COLTYPE_BLOB: return "BLOB";
    case OX_COLTYPE_URL: return "URL";
    case OX_COLTYPE_LONG: return "LONG";
    case OX_COLTYPE_CHAR: return "CHAR";
    default: return "STRING";  // 1 and every number not in the table
  }
}

// ---------------------------------------------------------------------------
// Summary kinds

namespace {

struct SummWord {
  int kind;
  const char *xml;
  const char *csv;
};

// The words of the text formats. The sum is "sum" in XML and "summ" in CSV.
const SummWord kSummWords[] = {
    {OX_SUMM_DEFAULT, "default", "default"},
    {OX_SUMM_COUNT, "count", "count"},
    {OX_SUMM_COUNTNN, "countnn", "countnn"},
    {OX_SUMM_SUM, "sum", "summ"},
    {OX_SUMM_MAX, "max", "max"},
    {OX_SUMM_MIN, "min", "min"},
    {OX_SUMM_AVG, "avg", "avg"},
    {OX_SUMM_TEXT, "text:", "text"},
};

}  // namespace

const char *Ox_ColList::GetSummXmlWord(int kind) {
  for (const SummWord &word : kSummWords) {
    if (word.kind == kind) return word.xml;
  }
  return nullptr;
}

const char *Ox_ColList::GetSummCsvWord(int kind) {
  for (const SummWord &word : kSummWords) {
    if (word.kind == kind) return word.csv;
  }
  return nullptr;
}

int Ox_ColList::GetSummKindByXmlWord(const char *word) {
  if (word == nullptr) return OX_SUMM_NONE;
  // "text:" carries its text behind the colon.
  if (std::strncmp(word, "text:", 5) == 0) return OX_SUMM_TEXT;
  for (const SummWord &entry : kSummWords) {
    if (std::strcmp(word, entry.xml) == 0) return entry.kind;
  }
  return OX_SUMM_NONE;
}

int Ox_ColList::GetSummKindByCsvWord(const char *word) {
  if (word == nullptr) return OX_SUMM_NONE;
  for (const SummWord &entry : kSummWords) {
    if (std::strcmp(word, entry.csv) == 0) return entry.kind;
  }
  return OX_SUMM_NONE;
}

const char *Ox_ColList::GetDefaultSummText() {
  // The language is the low 10 bits of the locale identifier. The two
  // words for subtotal are kept in code page 949.
  switch (OxGetLCID() & 0x3FF) {
    case 4:   // Chinese
    case 17:  // Japanese
      return "\xE1\xB3\xCD\xAA";
    case 18:  // Korean
      return "\xBC\xD2\xB0\xE8";
    default:
      return "subtotal";
  }
}
