// Results, messages and logs.
//
// Every operation that can fail reports an integer code; where detail
// matters it adds messages to an Ox_Result, a cheap handle to a shared list
// of Ox_Message. A message holds a catalogue code (Ox_ErrorMsg), its text
// arguments and, in server mode, where and when it arose. Ox_Result::Write
// appends messages to dated log files, and Ox_LogMsgList reads such files
// back. Ox_MsgView turns messages into display lines.
//
// Variable argument lists are lists of `const char *` ended by a null
// pointer. The forms taking a `va_list` are the ones that forward a list.
#ifndef OX_RESULT_H
#define OX_RESULT_H

#include <cstdarg>

#include "Ox_Export.h"
#include "Ox_String.h"
#include "Ox_Buffer.h"
#include "Ox_List.h"
#include "Ox_ErrorMsg.h"

// Server mode: a process-wide flag, 0 at load. With it 0 a message keeps
// only its code and arguments, and no log file is written. A process sets
// it once at start, before its threads run.
OX_API int IsServerMode();
// Sets the flag and returns the value given.
OX_API int SetServerMode(int mode);

// The code of the start mark that MarkStart adds.
#define OX_MSG_START_MARK 0x30000000

// One message: code, arguments and, in server mode, time and place.
class OX_API Ox_Message {
 public:
  Ox_Message();
  Ox_Message(const Ox_Message &other);
  ~Ox_Message();
  Ox_Message &operator=(const Ox_Message &other);  // copies every field

  // Resets every field; `line` becomes -1.
  void Clear();
  // Copies the location fields in server mode only; always copies `code`
  // and appends the other's arguments.
  void Set(const Ox_Message &other);
  // Stores the code and appends the arguments; time, process, thread,
  // file and line are stored in server mode only.
  void Set(Ox_Int64 time, unsigned short millitm, int processId,
           int threadId, const char *file, int line, int code, va_list args);
  void Set(Ox_Int64 time, unsigned short millitm, int processId,
           int threadId, const char *file, int line, int code, ...);
  // The same with the time fields cleared.
  void Set(const char *file, int line, int code, va_list args);
  void Set(const char *file, int line, int code, ...);

  static void InitWithMemory(Ox_Message *message);
  static void FreeWithMemory(Ox_Message *message);

  Ox_Int64 time;            // seconds of the C time scale
  unsigned short millitm;   // milliseconds
  int processId;
  int threadId;
  Ox_AString file;          // source file that raised the message
  int line;                 // source line; -1 when cleared
  int code;                 // catalogue code
  Ox_AStrList args;         // text arguments for the catalogue text
};

// Pool and item operations of Ox_MessageList ("Ox_Message", 64 a block).
class OX_API Ox_MessageHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_MessageHandler()
      : Ox_ListObjHandler("Ox_Message", sizeof(Ox_Message), 64) {}
  void *_InitItem(void *item) override;
  void _FreeItem(void *item) override;
  void _AssignItem(void *target, void *source) override;
  // The key is an Ox_Message. Server mode: file ignoring case, then line;
  // client mode: code.
  int _CompareItem(void *item, void *key) override;
};
extern OX_API Ox_MessageHandler _OxMessageHandler;

class OX_API Ox_MessageList : public Ox_ObjList {
 public:
  Ox_MessageList();
  Ox_MessageList(const Ox_MessageList &other);
  ~Ox_MessageList();
  Ox_MessageList &operator=(const Ox_MessageList &other);

  // Adds a default message and then Sets it from `message` (when not
  // null), so that the server-mode filter applies. Returns the index.
  int Add(const Ox_Message *message);
  Ox_Message *GetItem(int index) const;          // null out of range
  Ox_Message *GetSafeItem(int index, int grow = 0);
  Ox_Message *operator[](int index) const { return GetItem(index); }
  // Adds copies of the other's messages; returns the new count.
  int Append(const Ox_MessageList *other);
  void Clear() { ReleaseList(); }

  static void InitWithMemory(Ox_MessageList *list);
  static void FreeWithMemory(Ox_MessageList *list);
};

// A code and a shared list of messages, null until the first message.
class OX_API Ox_Result {
 public:
  Ox_Result() : code(0), msgList(nullptr) {}
  Ox_Result(int code) : code(code), msgList(nullptr) {}  // NOLINT
  Ox_Result(const Ox_Result &other);   // shares the list
  ~Ox_Result();

  Ox_Result &operator=(int newCode) {  // the code alone
    code = newCode;
    return *this;
  }
  Ox_Result &operator=(const Ox_Result &other);
  // Clear, then share the other's list.
  void Set(const Ox_Result &other);
  // Releases the list and sets the code to 0.
  void Clear();

  // Adds a message with the clock, process and thread, and the arguments
  // up to a null pointer; sets `code`. Returns `code`.
  int AddMsg(int code, const char *file, int line, ...);
  int AddMsgv(int code, const char *file, int line, va_list args);
  // Adds a start mark when a list exists.
  void MarkStart();

  operator int() const { return code; }
  int GetLastCode() const { return code; }
  int GetCode() const { return msgList ? code : 0; }
  int Mask(int mask) const { return msgList ? (code & mask) : 0; }
  int Count() const;

  Ox_Message *GetMessageA(int index) const;     // null out of range
  Ox_Message *GetSafeMessage(int index) const;  // null out of range
  Ox_Message *operator[](int index) const { return GetMessageA(index); }
  Ox_MessageList *GetMessageList() const;       // null without a list
  Ox_MessageList *GetSafeMessageList();         // made when missing

  int GetFirstError() const;
  Ox_Message *GetFirstErrorMsg() const;
  int GetLastError() const;
  Ox_Message *GetLastErrorMsg() const;
  int GetStartError() const;
  Ox_Message *GetStartErrorMsg() const;
  Ox_AString GetLastMsg() const;

  // Code and arguments of every message, one line each.
  Ox_AString GetMessageStr() const;
  // The escaped arguments of one message joined by commas.
  Ox_AString GetMessageStr(int index, unsigned codePage) const;
  // The server form of every message; empty out of server mode.
  Ox_AString GetMessageStr(const char *host, unsigned a, unsigned b) const;
  Ox_AString GetMsgWithFormat(unsigned codePage) const;

  // Text round trip; Save returns the length, Load the message count.
  int Save(Ox_AString &text, unsigned codePage) const;
  int Load(const char *text, int clear, unsigned codePage);

  // Appends the messages to the day's log file below directory and
  // subdirectory; server mode only. Returns the number of lines written.
  int Write(const char *directory, const char *subdirectory, int maxSize,
            unsigned codePage) const;

  int code;                  // the last code
  Ox_MessageList *msgList;   // shared, counted in the "Ox_Result" pool

 private:
  void AttachList(Ox_MessageList *list);
  void ReleaseList();
  Ox_MessageList *MakeList();
  int StartIndex() const;
};

// One record of a log read back by Ox_LogMsgList::Load.
class OX_API Ox_LogMsg {
 public:
  Ox_LogMsg();
  Ox_LogMsg(const Ox_LogMsg &other) = default;
  Ox_LogMsg &operator=(const Ox_LogMsg &other) = default;
  virtual ~Ox_LogMsg();

  static void InitWithMemory(Ox_LogMsg *item);
  static void FreeWithMemory(Ox_LogMsg *item);

  Ox_AString sessionA;
  Ox_AString sessionB;
  Ox_AString host;
  Ox_AString timeText;
  Ox_AString codeText;
  Ox_AString processText;
  Ox_AString threadText;
  Ox_AString fileText;
  Ox_AString lineText;
  Ox_AString extraA;
  Ox_AString extraB;
  Ox_AString extraC;
  Ox_AString messageText;
  int peer;  // index of the paired record; -1 when none
};

// Pool and item operations of Ox_LogMsgList ("Ox_LogMsg", 128 a block).
class OX_API Ox_LogMsgHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_LogMsgHandler()
      : Ox_ListObjHandler("Ox_LogMsg", sizeof(Ox_LogMsg), 128) {}
  void *_InitItem(void *item) override;
  void _FreeItem(void *item) override;
  void _AssignItem(void *target, void *source) override;
  // 1 when the twelve fields in front of messageText match, else 0: the
  // reverse sense of the other handlers, kept so.
  int _CompareItem(void *item, void *key) override;
};
extern OX_API Ox_LogMsgHandler _Ox_LogMsgHandler;

class OX_API Ox_LogMsgList : public Ox_ObjList {
 public:
  // codePage 0 takes OxGetLocaleCP().
  explicit Ox_LogMsgList(unsigned codePage = 0);
  Ox_LogMsgList(const Ox_LogMsgList &other);
  ~Ox_LogMsgList();
  Ox_LogMsgList &operator=(const Ox_LogMsgList &other);

  // Reads log text in one of the modes 0 to 4; returns the record count.
  int Load(Ox_Buffer &text, int mode);
  // Does nothing; returns 0.
  int Save(Ox_Buffer &text, int mode);
  void Clear();

  Ox_LogMsg *GetItem(int index) const;  // null out of range
  Ox_LogMsg *operator[](int index) const { return GetItem(index); }
  unsigned GetCodePage() const { return codePage; }

  // Hexadecimal code text to a number: null or empty -1; "0x" alone 0.
  static int GetErrCodeAsInt(const char *text);
  // The catalogue text of `code` with its placeholders filled from
  // items[start...]; without catalogue text the items joined by commas.
  // Returns the length of `text`.
  static int GetErrorMsg(unsigned codePage, int code, int start, int count,
                         const Ox_AStrList &items, Ox_AString &text);

  int loadState;      // reset by Clear
  unsigned codePage;  // of the catalogue texts

 private:
  void LoadLine(const Ox_AString &line, Ox_AStrList &fields, int mode);
  void PairSessions();
};

// The same two helpers as free functions.
OX_API int GetErrCodeAsInt(const char *text);
OX_API int GetErrorMsg(unsigned codePage, int code, int start, int count,
                       const Ox_AStrList &items, Ox_AString &text);

// Display lines of messages. Flags: 0x1000 date, 0x100 time, 0x200
// milliseconds, 16 process, 32 thread, 0x10000 file, 0x20000 file name,
// 0x40000 line, 1 code in hexadecimal, 2 code in decimal.
class OX_API Ox_MsgView {
 public:
  // One message; returns the length of `text`, 0 with an empty text when
  // the message is null or its code has no catalogue text.
  static int GetMsgStr(unsigned codePage, Ox_AString &text,
                       const Ox_Message *message, int flags, char separator,
                       int quoted, char quote);
  // One line per message, each followed by a line feed.
  static int GetMsgStr(unsigned codePage, Ox_AString &text,
                       const Ox_MessageList *messages, int flags,
                       char separator, int quoted, char quote);
  static int GetMsgStr(unsigned codePage, Ox_AString &text,
                       const Ox_Result *result, int flags, char separator,
                       int quoted, char quote);
};

// "<number>:<system text>" into `text`; returns its characters.
OX_API const char *OxSysErrorStr(int error, Ox_AString &text);
// The system text alone; "Unknown error." for a number without one.
OX_API Ox_AString OxSysErrorStr(int error);
// The first form cut to size - 1 bytes into `buffer`; null with an empty
// buffer when the number has no system text.
OX_API char *ox_syserrstr(int error, char *buffer, int size);

#endif
