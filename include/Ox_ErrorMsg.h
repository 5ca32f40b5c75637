// Ox_ErrorMsg: the words of a code, from the message catalogue.
//
// The catalogue holds one message table per language (English, Korean,
// Japanese), chosen by code page; English is also the default table. It is
// constant data shared by the whole process and read without a lock, so an
// Ox_ErrorMsg is only a pair of pointers and may be made anywhere.
#ifndef OX_ERRORMSG_H
#define OX_ERRORMSG_H

#include <cstdarg>

#include "Ox_Export.h"
#include "Ox_String.h"

struct Ox_MsgRow;   // one row of a message table (internal)
struct Ox_MsgLang;  // one entry of the language table (internal)

class OX_API Ox_ErrorMsg {
 public:
  // Points at the shared default table and language table.
  Ox_ErrorMsg();
  Ox_ErrorMsg(const Ox_ErrorMsg &other);
  Ox_ErrorMsg &operator=(const Ox_ErrorMsg &other);
  virtual ~Ox_ErrorMsg();

  // Sets `text` to the message of `code` in the language of `codePage` and
  // returns 1; 0 with an empty `text` when that language has no row for the
  // code (there is no fall-back to another language). A code page without
  // a table is first resolved to the active one, and failing that the
  // English table is used. The text comes out in the resolved code page when
  // that second try found the language, and in the locale's code page
  // otherwise.
  int GetMsg(unsigned codePage, Ox_AString &text, int code);

  // The 16-bit text of `code`, or null. A code page without a table goes
  // straight to the English table.
  const char16_t *GetMsgPtr(unsigned codePage, int code);

  // GetMsg, then the text is used as a printf format for the arguments.
  // Returns what GetMsg returned.
  int GetPMsg(unsigned codePage, Ox_AString &text, int code, ...);
  int GetPMsgv(unsigned codePage, Ox_AString &text, int code, va_list args);

 private:
  const Ox_MsgRow *m_defaultTable;  // the English table
  const Ox_MsgLang *m_langTable;    // code page to table, ended by zeros
};

#endif
