// Internal layout of the message catalogue: the rows of the message tables,
// the table of languages, and the lookup that Ox_ErrorMsg builds on.
//
// All of it is constant data compiled into the library, shared by every
// thread without a lock.
#ifndef OX_FOUNDATION_CATALOGUE_INTERNAL_H
#define OX_FOUNDATION_CATALOGUE_INTERNAL_H

// One row of a message table. A table ends with the terminator row
// {kOxMsgTerminator, nullptr}; rows are not sorted, and when a code occurs
// twice the first row counts.
struct Ox_MsgRow {
  int code;              // the code, looked up whole
  const char16_t *text;  // UTF-16 text, null only in the terminator
};

// One entry of the language table: a code page and its message table.
// The language table ends with a pair of zeros.
struct Ox_MsgLang {
  unsigned codePage;       // 1252, 949, 932
  const Ox_MsgRow *table;  // null is allowed and gives no text
};

// Code of the terminator row of every message table (-99999).
constexpr int kOxMsgTerminator = -99999;

// The three message tables and the language table.
extern const Ox_MsgRow _OxMsgTableEn[];  // English, also the default table
extern const Ox_MsgRow _OxMsgTableKo[];  // Korean
extern const Ox_MsgRow _OxMsgTableJa[];  // Japanese
extern const Ox_MsgLang _OxMsgLangTable[];

// What a lookup found: the text of the row (null when there is none) and the
// code page that the text is to be converted to.
struct Ox_MsgFound {
  const char16_t *text;
  unsigned convertPage;
};

// The lookup of Ox_ErrorMsg::GetMsg over the given tables. With
// `secondWalk` 0 it is the lookup of GetMsgPtr: an unknown code page goes
// straight to `defaultTable`.
Ox_MsgFound OxMsgLookup(const Ox_MsgLang *langTable,
                        const Ox_MsgRow *defaultTable, unsigned codePage,
                        int code, int secondWalk);

// Number of rows of a message table before its first row without text (the
// terminator in a well-formed table); 0 for null.
int OxMsgRowCount(const Ox_MsgRow *table);

#endif
