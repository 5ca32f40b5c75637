// Ox_Result: a code and a counted, shared list of messages.
#include <new>

#include "Ox_Result.h"
#include "foundation/ox_message_internal.h"

namespace {
// The lists of results live in this plain pool; the pool item's header
// carries the count of the handles that share the list.
Ox_ObjBufPool g_resultPool("Ox_Result", sizeof(Ox_MessageList), 32);
}  // namespace

// ------------------------------------------------------------ sharing

Ox_MessageList *Ox_Result::MakeList() {
  // Alloc gives an item with the count 1; the list is built in place.
  Ox_ObjBufData *header = g_resultPool.Alloc();
  if (!header) return nullptr;
  Ox_MessageList *list = static_cast<Ox_MessageList *>(header->object());
  Ox_MessageList::InitWithMemory(list);
  return list;
}

void Ox_Result::AttachList(Ox_MessageList *list) {
  if (list) Ox_ObjBufData::FromObject(list)->AddRef(&g_resultPool);
  msgList = list;
}

void Ox_Result::ReleaseList() {
  Ox_MessageList *list = msgList;
  msgList = nullptr;
  if (!list) return;
  Ox_ObjBufData *header = Ox_ObjBufData::FromObject(list);
  // The last handle destroys the list and gives its item back.
  if (header->Release(&g_resultPool) < 1) {
    Ox_MessageList::FreeWithMemory(list);
    g_resultPool.Free(header);
  }
}

Ox_Result::Ox_Result(const Ox_Result &other)
    : code(other.code), msgList(nullptr) {
  AttachList(other.msgList);
}

Ox_Result::~Ox_Result() { ReleaseList(); }

Ox_Result &Ox_Result::operator=(const Ox_Result &other) {
  if (this == &other) return *this;
  if (msgList && other.msgList) {
    // Both have lists: the other's messages are copied over, and the two
    // lists stay apart.
    msgList->Append(other.msgList);
  } else if (!msgList && other.msgList) {
    AttachList(other.msgList);
  }
  code = other.code;
  return *this;
}

void Ox_Result::Set(const Ox_Result &other) {
  if (this == &other) return;
  Ox_MessageList *shared = other.msgList;
  // Hold the other's list before Clear can drop it: the two may share it.
  if (shared) Ox_ObjBufData::FromObject(shared)->AddRef(&g_resultPool);
  Clear();
  msgList = shared;
}

void Ox_Result::Clear() {
  ReleaseList();
  code = 0;
}

// ------------------------------------------------------------ messages

int Ox_Result::AddMsgv(int newCode, const char *file, int line,
                       va_list args) {
  long long seconds = 0;
  unsigned short millis = 0;
  OxClockNow(seconds, millis);
  if (!msgList) msgList = MakeList();
  code = newCode;
  if (!msgList) return code;
  const int index = msgList->Ox_ObjList::Add(nullptr);
  Ox_Message *message = msgList->GetItem(index);
  if (message) {
    message->Set(static_cast<Ox_Int64>(seconds), millis,
                 OxCurrentProcessId(), OxCurrentThreadId(), file, line,
                 newCode, args);
  }
  return code;
}

int Ox_Result::AddMsg(int newCode, const char *file, int line, ...) {
  va_list args;
  va_start(args, line);
  const int result = AddMsgv(newCode, file, line, args);
  va_end(args);
  return result;
}

void Ox_Result::MarkStart() {
  if (!msgList) return;
  long long seconds = 0;
  unsigned short millis = 0;
  OxClockNow(seconds, millis);
  const int index = msgList->Ox_ObjList::Add(nullptr);
  Ox_Message *message = msgList->GetItem(index);
  if (message) {
    message->Set(static_cast<Ox_Int64>(seconds), millis,
                 OxCurrentProcessId(), OxCurrentThreadId(), nullptr, -1,
                 OX_MSG_START_MARK, nullptr);
  }
}

int Ox_Result::Count() const { return msgList ? msgList->Count() : 0; }

Ox_Message *Ox_Result::GetMessageA(int index) const {
  if (!msgList || index < 0 || index >= msgList->Count()) return nullptr;
  return msgList->GetItem(index);
}

Ox_Message *Ox_Result::GetSafeMessage(int index) const {
  return GetMessageA(index);
}

Ox_MessageList *Ox_Result::GetMessageList() const { return msgList; }

Ox_MessageList *Ox_Result::GetSafeMessageList() {
  if (!msgList) msgList = MakeList();
  return msgList;
}

// ------------------------------------------------------------ errors

Ox_Message *Ox_Result::GetFirstErrorMsg() const {
  const int count = Count();
  for (int i = 0; i < count; ++i) {
    Ox_Message *message = msgList->GetItem(i);
    if (message && message->code < 0) return message;
  }
  return nullptr;
}

int Ox_Result::GetFirstError() const {
  const Ox_Message *message = GetFirstErrorMsg();
  return message ? message->code : 0;
}

Ox_Message *Ox_Result::GetLastErrorMsg() const {
  for (int i = Count() - 1; i >= 0; --i) {
    Ox_Message *message = msgList->GetItem(i);
    if (message && message->code < 0) return message;
  }
  return nullptr;
}

int Ox_Result::GetLastError() const {
  const Ox_Message *message = GetLastErrorMsg();
  return message ? message->code : 0;
}

// The index behind the last start mark, or 0 without one. A mark in the
// last position leaves nothing behind it, so no error is found then.
int Ox_Result::StartIndex() const {
  for (int i = Count() - 1; i >= 0; --i) {
    const Ox_Message *message = msgList->GetItem(i);
    if (message && message->code == OX_MSG_START_MARK) return i + 1;
  }
  return 0;
}

int Ox_Result::GetStartError() const {
  const int count = Count();
  for (int i = StartIndex(); i < count; ++i) {
    const Ox_Message *message = msgList->GetItem(i);
    if (message && message->code < 0) return message->code;
  }
  return 0;
}

Ox_Message *Ox_Result::GetStartErrorMsg() const {
  const int count = Count();
  if (count < 1) return nullptr;
  // The search for the mark starts in front of the last message; a mark
  // standing last has nothing behind it, so that case answers null at once.
  const Ox_Message *last = msgList->GetItem(count - 1);
  if (last && last->code == OX_MSG_START_MARK) return nullptr;
  for (int i = StartIndex(); i < count; ++i) {
    Ox_Message *message = msgList->GetItem(i);
    if (message && message->code < 0) return message;
  }
  return nullptr;
}

Ox_AString Ox_Result::GetLastMsg() const {
  return GetMessageStr(Count() - 1, 0);
}
