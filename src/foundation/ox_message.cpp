// Server mode, Ox_Message and Ox_MessageList.
#include <atomic>
#include <new>

#include "Ox_BaseFunc.h"
#include "Ox_Result.h"
#include "foundation/ox_message_internal.h"

namespace {
// The process-wide server mode; 0 at load.
std::atomic<int> g_serverMode{0};
// The cleared time fields, typed so that the long Set form is chosen.
constexpr Ox_Int64 kNoTime = 0;
constexpr unsigned short kNoMillis = 0;
}  // namespace

int IsServerMode() { return g_serverMode.load(std::memory_order_relaxed); }

int SetServerMode(int mode) {
  g_serverMode.store(mode, std::memory_order_relaxed);
  return mode;
}

// ---------------------------------------------------------------- message

Ox_Message::Ox_Message()
    : time(0), millitm(0), processId(0), threadId(0), line(-1), code(0),
      args(0) {}

Ox_Message::Ox_Message(const Ox_Message &other)
    : time(other.time), millitm(other.millitm), processId(other.processId),
      threadId(other.threadId), file(other.file), line(other.line),
      code(other.code), args(other.args) {}

Ox_Message::~Ox_Message() {}

namespace {

// The time and place of a message: when, in which process and thread, and
// at which line of which file it was made.
void CopyPlace(Ox_Message &to, const Ox_Message &from) {
  to.time = from.time;
  to.millitm = from.millitm;
  to.processId = from.processId;
  to.threadId = from.threadId;
  to.file = from.file;
  to.line = from.line;
}

}  // namespace

Ox_Message &Ox_Message::operator=(const Ox_Message &other) {
  if (this == &other) return *this;
  CopyPlace(*this, other);
  code = other.code;
  args = other.args;
  return *this;
}

void Ox_Message::Clear() {
  time = 0;
  millitm = 0;
  processId = 0;
  threadId = 0;
  file.Empty();
  line = -1;
  code = 0;
  args.Clear();
}

void Ox_Message::Set(const Ox_Message &other) {
  if (this == &other) return;
  // A client keeps no time or place, to save memory.
  if (IsServerMode()) CopyPlace(*this, other);
  code = other.code;
  args.Append(&other.args);
}

void Ox_Message::Set(Ox_Int64 newTime, unsigned short newMillitm,
                     int newProcessId, int newThreadId, const char *newFile,
                     int newLine, int newCode, va_list list) {
  if (IsServerMode()) {
    time = newTime;
    millitm = newMillitm;
    processId = newProcessId;
    threadId = newThreadId;
    file.Set(newFile);
    line = newLine;
  }
  code = newCode;
  if (OxArgListIsNull(list)) return;
  // The arguments run up to a null pointer.
  for (const char *arg = va_arg(list, const char *); arg != nullptr;
       arg = va_arg(list, const char *)) {
    args.Add(arg);
  }
}

void Ox_Message::Set(Ox_Int64 newTime, unsigned short newMillitm,
                     int newProcessId, int newThreadId, const char *newFile,
                     int newLine, int newCode, ...) {
  va_list list;
  va_start(list, newCode);
  Set(newTime, newMillitm, newProcessId, newThreadId, newFile, newLine,
      newCode, list);
  va_end(list);
}

void Ox_Message::Set(const char *newFile, int newLine, int newCode,
                     va_list list) {
  Set(kNoTime, kNoMillis, 0, 0, newFile, newLine, newCode, list);
}

void Ox_Message::Set(const char *newFile, int newLine, int newCode, ...) {
  va_list list;
  va_start(list, newCode);
  Set(kNoTime, kNoMillis, 0, 0, newFile, newLine, newCode, list);
  va_end(list);
}

void Ox_Message::InitWithMemory(Ox_Message *message) {
  if (message) new (message) Ox_Message();
}

void Ox_Message::FreeWithMemory(Ox_Message *message) {
  if (message) message->~Ox_Message();
}

// ---------------------------------------------------------------- handler

Ox_MessageHandler _OxMessageHandler;

void *Ox_MessageHandler::_InitItem(void *item) {
  Ox_Message::InitWithMemory(static_cast<Ox_Message *>(item));
  return item;
}

void Ox_MessageHandler::_FreeItem(void *item) {
  Ox_Message::FreeWithMemory(static_cast<Ox_Message *>(item));
}

void Ox_MessageHandler::_AssignItem(void *target, void *source) {
  if (!target || !source) return;
  *static_cast<Ox_Message *>(target) = *static_cast<Ox_Message *>(source);
}

int Ox_MessageHandler::_CompareItem(void *item, void *key) {
  if (!item || !key) return -1;
  const Ox_Message *a = static_cast<const Ox_Message *>(item);
  const Ox_Message *b = static_cast<const Ox_Message *>(key);
  if (IsServerMode()) {
    const int byFile = ox_stricmpA(a->file, b->file);
    if (byFile != 0) return byFile;
    return a->line - b->line;
  }
  return a->code - b->code;
}

// ---------------------------------------------------------------- list

Ox_MessageList::Ox_MessageList() : Ox_ObjList(&_OxMessageHandler, 0) {}

Ox_MessageList::Ox_MessageList(const Ox_MessageList &other)
    : Ox_ObjList(other) {}

Ox_MessageList::~Ox_MessageList() {}

Ox_MessageList &Ox_MessageList::operator=(const Ox_MessageList &other) {
  if (this != &other) AssignList(other);
  return *this;
}

int Ox_MessageList::Add(const Ox_Message *message) {
  const int index = Ox_ObjList::Add(nullptr);
  if (index < 0) return index;
  Ox_Message *item = GetItem(index);
  if (item && message) item->Set(*message);
  return index;
}

Ox_Message *Ox_MessageList::GetItem(int index) const {
  return static_cast<Ox_Message *>(Ox_ObjList::GetItem(index));
}

Ox_Message *Ox_MessageList::GetSafeItem(int index, int grow) {
  return static_cast<Ox_Message *>(Ox_ObjList::GetSafeItem(index, grow));
}

int Ox_MessageList::Append(const Ox_MessageList *other) {
  if (other) {
    if (other == this) {
      // Appending a list to itself copies what it held before.
      const Ox_MessageList snapshot(*this);
      AppendList(snapshot);
    } else {
      AppendList(*other);
    }
  }
  return Count();
}

void Ox_MessageList::InitWithMemory(Ox_MessageList *list) {
  if (list) new (list) Ox_MessageList();
}

void Ox_MessageList::FreeWithMemory(Ox_MessageList *list) {
  if (list) list->~Ox_MessageList();
}
