// Ox_ErrorMsg and the lookup in the message catalogue.
#include "Ox_ErrorMsg.h"

#include "Ox_BaseFunc.h"
#include "foundation/catalogue_internal.h"

// Code page to message table. English is listed as well as being the
// default table, so that asking for 1252 finds it on the first walk.
const Ox_MsgLang _OxMsgLangTable[] = {
    {1252, _OxMsgTableEn},
    {949, _OxMsgTableKo},
    {932, _OxMsgTableJa},
    {0, nullptr},  // end of the table
};

namespace {

// The entry of `codePage` in the language table, or null when the walk
// reaches the pair of zeros.
const Ox_MsgLang *FindLanguage(const Ox_MsgLang *langTable,
                               unsigned codePage) {
  if (!langTable) return nullptr;
  for (const Ox_MsgLang *entry = langTable;
       entry->codePage != 0 || entry->table != nullptr; ++entry) {
    if (entry->codePage == codePage) return entry;
  }
  return nullptr;
}

}  // namespace

int OxMsgRowCount(const Ox_MsgRow *table) {
  if (!table) return 0;
  int count = 0;
  while (table[count].text != nullptr) ++count;
  return count;
}

Ox_MsgFound OxMsgLookup(const Ox_MsgLang *langTable,
                        const Ox_MsgRow *defaultTable, unsigned codePage,
                        int code, int secondWalk) {
  // Unless the second walk finds the language, the text comes out in the
  // locale's code page whatever was asked for.
  Ox_MsgFound found = {nullptr, OxGetLocaleCP()};

  // 1. Walk the language table for the code page asked for.
  const Ox_MsgLang *entry = FindLanguage(langTable, codePage);

  // 2. Not there: try the code page really in force; failing that, the
  //    default table.
  if (!entry && secondWalk) {
    const unsigned active = ox_activecodepage(codePage);
    entry = FindLanguage(langTable, active);
    if (entry) found.convertPage = active;
  }
  const Ox_MsgRow *table = entry ? entry->table : defaultTable;

  // 3. A language without a table has no texts.
  if (!table) return found;

  // 4. Neither has a table that is empty from its first row.
  if (!table[0].text) return found;

  // 5. Row by row up to the first row without text; the first row of the
  //    code counts. No other language is tried.
  for (const Ox_MsgRow *row = table; row->text != nullptr; ++row) {
    if (row->code == code) {
      found.text = row->text;
      return found;
    }
  }
  return found;
}

Ox_ErrorMsg::Ox_ErrorMsg()
    : m_defaultTable(_OxMsgTableEn), m_langTable(_OxMsgLangTable) {}

Ox_ErrorMsg::Ox_ErrorMsg(const Ox_ErrorMsg &other)
    : m_defaultTable(other.m_defaultTable), m_langTable(other.m_langTable) {}

Ox_ErrorMsg &Ox_ErrorMsg::operator=(const Ox_ErrorMsg &other) {
  m_defaultTable = other.m_defaultTable;
  m_langTable = other.m_langTable;
  return *this;
}

Ox_ErrorMsg::~Ox_ErrorMsg() {}

int Ox_ErrorMsg::GetMsg(unsigned codePage, Ox_AString &text, int code) {
  const Ox_MsgFound found =
      OxMsgLookup(m_langTable, m_defaultTable, codePage, code, 1);
  if (!found.text) {
    text.Empty();
    return 0;
  }
  // 6. Convert the 16-bit text to the code page chosen by the lookup.
  text.Set(found.text, -1, found.convertPage);
  return 1;
}

const char16_t *Ox_ErrorMsg::GetMsgPtr(unsigned codePage, int code) {
  return OxMsgLookup(m_langTable, m_defaultTable, codePage, code, 0).text;
}

int Ox_ErrorMsg::GetPMsg(unsigned codePage, Ox_AString &text, int code,
                         ...) {
  va_list args;
  va_start(args, code);
  const int result = GetPMsgv(codePage, text, code, args);
  va_end(args);
  return result;
}

int Ox_ErrorMsg::GetPMsgv(unsigned codePage, Ox_AString &text, int code,
                          va_list args) {
  Ox_AString format;
  const int result = GetMsg(codePage, format, code);
  // Without a text the format would be empty and so would its output, so
  // only a found text is formatted. The format is a copy: Formatv writes
  // into `text`, which must not be what it reads from.
  if (result == 0) {
    text.Empty();
    return result;
  }
  text.Formatv(format.GetString(), args);
  return result;
}
