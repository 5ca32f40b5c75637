// Ox_LogMsg and Ox_LogMsgList: log files read back into records.
#include <cctype>
#include <cstring>
#include <new>
#include <string>
#include <unordered_map>

#include "Ox_BaseFunc.h"
#include "Ox_ErrorMsg.h"
#include "Ox_Result.h"
#include "foundation/ox_message_internal.h"

// ---------------------------------------------------------------- record

Ox_LogMsg::Ox_LogMsg() : peer(-1) {}

Ox_LogMsg::~Ox_LogMsg() {}

void Ox_LogMsg::InitWithMemory(Ox_LogMsg *item) {
  if (item) new (item) Ox_LogMsg();
}

void Ox_LogMsg::FreeWithMemory(Ox_LogMsg *item) {
  if (item) item->~Ox_LogMsg();
}

// ---------------------------------------------------------------- handler

Ox_LogMsgHandler _Ox_LogMsgHandler;

void *Ox_LogMsgHandler::_InitItem(void *item) {
  Ox_LogMsg::InitWithMemory(static_cast<Ox_LogMsg *>(item));
  return item;
}

void Ox_LogMsgHandler::_FreeItem(void *item) {
  Ox_LogMsg::FreeWithMemory(static_cast<Ox_LogMsg *>(item));
}

void Ox_LogMsgHandler::_AssignItem(void *target, void *source) {
  if (!target || !source) return;
  *static_cast<Ox_LogMsg *>(target) = *static_cast<Ox_LogMsg *>(source);
}

int Ox_LogMsgHandler::_CompareItem(void *item, void *key) {
  if (!item || !key) return 0;
  const Ox_LogMsg &a = *static_cast<const Ox_LogMsg *>(item);
  const Ox_LogMsg &b = *static_cast<const Ox_LogMsg *>(key);
  // Numbers compare exactly, names without regard to case.
  const bool same =
      a.sessionA.Compare(b.sessionA) == 0 &&
      a.sessionB.Compare(b.sessionB) == 0 &&
      ox_stricmpA(a.host, b.host) == 0 &&
      a.timeText.Compare(b.timeText) == 0 &&
      a.codeText.Compare(b.codeText) == 0 &&
      a.processText.Compare(b.processText) == 0 &&
      a.threadText.Compare(b.threadText) == 0 &&
      ox_stricmpA(a.fileText, b.fileText) == 0 &&
      a.lineText.Compare(b.lineText) == 0 &&
      ox_stricmpA(a.extraA, b.extraA) == 0 &&
      ox_stricmpA(a.extraB, b.extraB) == 0 &&
      ox_stricmpA(a.extraC, b.extraC) == 0;
  return same ? 1 : 0;
}

// ---------------------------------------------------------------- list

Ox_LogMsgList::Ox_LogMsgList(unsigned page)
    : Ox_ObjList(&_Ox_LogMsgHandler, 0), loadState(0),
      codePage(page ? page : OxGetLocaleCP()) {}

Ox_LogMsgList::Ox_LogMsgList(const Ox_LogMsgList &other)
    : Ox_ObjList(other), loadState(other.loadState),
      codePage(other.codePage) {}

Ox_LogMsgList::~Ox_LogMsgList() {}

Ox_LogMsgList &Ox_LogMsgList::operator=(const Ox_LogMsgList &other) {
  if (this != &other) {
    AssignList(other);
    loadState = other.loadState;
    codePage = other.codePage;
  }
  return *this;
}

void Ox_LogMsgList::Clear() {
  ReleaseList();
  loadState = 0;
}

Ox_LogMsg *Ox_LogMsgList::GetItem(int index) const {
  return static_cast<Ox_LogMsg *>(Ox_ObjList::GetItem(index));
}

int Ox_LogMsgList::Save(Ox_Buffer & /*text*/, int /*mode*/) { return 0; }

int Ox_LogMsgList::Load(Ox_Buffer &text, int mode) {
  Clear();
  // The buffer is C text: it ends at its first NUL, or at its size.
  const char *data = reinterpret_cast<const char *>(text.GetData());
  const long size = text.GetSize();
  const size_t length =
      data && size > 0 ? strnlen(data, static_cast<size_t>(size)) : 0;
  const Ox_AString all(data, static_cast<int>(length));

  // Lines come out as written, quotes and backslashes included.
  Ox_AStrList lines(0);
  lines.Parse(all, "\r\n", '\r', 0, 1, 0, 1, 0);
  Ox_AStrList fields(0);
  const int lineCount = lines.Count();
  for (int i = 0; i < lineCount; ++i) {
    LoadLine(lines.GetItemNN(i), fields, mode);
  }
  PairSessions();
  return Count();
}

void Ox_LogMsgList::LoadLine(const Ox_AString &line, Ox_AStrList &fields,
                             int mode) {
  // 1. An empty line is an empty record.
  if (line.GetLength() == 0) {
    Ox_ObjList::Add(nullptr);
    return;
  }
  // 2. The log files hold raw paths: double every backslash so that the
  // field parse gives them back, then split the fields.
  Ox_AString doubled = line;
  doubled.Replace("\\", "\\\\");
  fields.Parse(doubled, ",", '\\', 1, 1, 1, 1, 0);
  const int count = fields.Count();

  // 3. A short line is kept whole as the message.
  if (count < 7 && mode != 4) {
    Ox_LogMsg *record = GetItem(Ox_ObjList::Add(nullptr));
    if (record) record->messageText = line;
    return;
  }
  // 4. The modes above 4 keep only the short lines.
  if (count >= 7 && mode > 4) return;
  // 5. Mode 3, and any mode not known, skips the line.
  if (mode != 0 && mode != 1 && mode != 2 && mode != 4) return;

  Ox_LogMsg *record = GetItem(Ox_ObjList::Add(nullptr));
  if (!record) return;
  auto field = [&fields](int index) -> const Ox_AString & {
    return fields.GetItemNN(index);
  };
  int argStart = 0;
  int argCount = 0;
  switch (mode) {
    case 0:
      record->sessionA = field(0);
      record->sessionB = field(1);
      record->host = field(2);
      record->timeText = field(3);
      record->extraA = field(4);
      record->extraB = field(5);
      record->extraC = field(6);
      record->codeText = field(7);
      return;  // no message text in this form
    case 1:
      record->sessionA = field(0);
      record->sessionB = field(1);
      record->host = field(2);
      record->codeText = field(3);
      record->processText = field(4);
      record->threadText = field(5);
      record->timeText = field(6);
      record->fileText = field(7);
      record->lineText = field(8);
      argCount = field(9).ToInteger();
      argStart = 10;
      break;
    case 2:
      record->sessionA = field(0);
      record->sessionB = field(1);
      record->host = field(2);
      record->codeText = field(3);
      record->processText = field(4);
      record->timeText = field(5);
      record->fileText = field(6);
      record->lineText = field(7);
      argCount = field(8).ToInteger();
      argStart = 9;
      break;
    default:  // 4
      record->extraC = field(0);
      record->timeText = field(1);
      record->fileText = field(2);
      record->lineText = field(3);
      record->codeText = field(4);
      argCount = field(5).ToInteger();
      argStart = 6;
      break;
  }
  // 6. The finished message from the catalogue and the arguments.
  const int code = GetErrCodeAsInt(record->codeText);
  GetErrorMsg(codePage, code, argStart, argCount, fields,
              record->messageText);
}

// Each record with both session values and no peer is paired with the next
// such record that has the same two values, ignoring case. One pass with a
// table of the records still waiting for a peer, by key, gives the same
// pairs as searching forward from each record: the first waiting record of
// a key always takes the next one of that key.
void Ox_LogMsgList::PairSessions() {
  std::unordered_map<std::string, int> waiting;
  const int count = Count();
  for (int i = 0; i < count; ++i) {
    Ox_LogMsg *record = GetItem(i);
    if (!record || record->peer != -1) continue;
    if (record->sessionA.GetLength() == 0 ||
        record->sessionB.GetLength() == 0) {
      continue;
    }
    std::string key(record->sessionA.GetString());
    key += '\0';
    key += record->sessionB.GetString();
    for (char &c : key) c = static_cast<char>(tolower((unsigned char)c));
    auto found = waiting.find(key);
    if (found == waiting.end()) {
      waiting.emplace(key, i);
      continue;
    }
    Ox_LogMsg *first = GetItem(found->second);
    first->peer = i;
    record->peer = found->second;
    waiting.erase(found);
  }
}

// ---------------------------------------------------------------- helpers

int Ox_LogMsgList::GetErrCodeAsInt(const char *text) {
  if (!text || !*text) return -1;
  if (text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) text += 2;
  // Read as hexadecimal without a check: a letter counts by its place in
  // the alphabet plus 10, any other character by its distance from '0'.
  unsigned value = 0;
  for (const char *p = text; *p; ++p) {
    const unsigned char c = static_cast<unsigned char>(*p);
    int digit;
    if (c >= 'a' && c <= 'z') {
      digit = c - 'a' + 10;
    } else if (c >= 'A' && c <= 'Z') {
      digit = c - 'A' + 10;
    } else {
      digit = c - '0';
    }
    value = value * 16u + static_cast<unsigned>(digit);
  }
  return static_cast<int>(value);
}

int Ox_LogMsgList::GetErrorMsg(unsigned page, int code, int start,
                               int /*count*/, const Ox_AStrList &items,
                               Ox_AString &text) {
  text.Empty();
  Ox_ErrorMsg catalogue;
  Ox_AString format;
  if (catalogue.GetMsg(page, format, code)) {
    if (items.Count() > start) {
      OxAppendFilled(text, format, items, start, "(?)");
    } else {
      text = format;
    }
    return text.GetLength();
  }
  // No catalogue text: the items themselves, joined by commas.
  const int first = start < 0 ? 0 : start;
  const int total = items.Count();
  for (int i = first; i < total; ++i) {
    if (i > first) text += ',';
    text += items.GetItemNN(i);
  }
  return text.GetLength();
}

int GetErrCodeAsInt(const char *text) {
  return Ox_LogMsgList::GetErrCodeAsInt(text);
}

int GetErrorMsg(unsigned codePage, int code, int start, int count,
                const Ox_AStrList &items, Ox_AString &text) {
  return Ox_LogMsgList::GetErrorMsg(codePage, code, start, count, items,
                                    text);
}
