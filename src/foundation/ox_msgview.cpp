// Ox_MsgView: messages as display lines.
#include <time.h>

#include <cstdio>
#include <cstring>

#include "Ox_ErrorMsg.h"
#include "Ox_Result.h"
#include "foundation/ox_message_internal.h"

namespace {

// The builder of one display line: `Quote` adds the quote character when
// quoting is on.
struct LineWriter {
  Ox_AString &text;
  int quoted;
  char quote;
  char separator;
  void Quote() {
    if (quoted) text += quote;
  }
  bool HasText() const { return text.GetLength() > 0; }
  // Q, the value, Q, separator: the form of each column behind the time.
  void Column(const char *value) {
    Quote();
    text += value;
    Quote();
    text += separator;
  }
};

// The part of `file` behind its last backslash, at most 63 characters.
Ox_AString ShortFileName(const char *file) {
  const char *slash = file ? strrchr(file, '\\') : nullptr;
  const char *name = slash ? slash + 1 : (file ? file : "");
  return Ox_AString(name, static_cast<int>(strnlen(name, 63)));
}

}  // namespace

int Ox_MsgView::GetMsgStr(unsigned codePage, Ox_AString &text,
                          const Ox_Message *message, int flags,
                          char separator, int quoted, char quote) {
  text.Empty();
  if (!message) return 0;
  Ox_ErrorMsg catalogue;
  Ox_AString format;
  if (!catalogue.GetMsg(codePage, format, message->code)) return 0;

  LineWriter out{text, quoted, quote, separator};
  const time_t when = static_cast<time_t>(message->time);
  struct tm local;
  const bool haveTime = localtime_r(&when, &local) != nullptr;
  char buffer[64];

  // Date and time.
  if ((flags & 0x1000) && haveTime) {
    out.Quote();
    strftime(buffer, sizeof buffer, "%Y-%m-%d", &local);
    text += buffer;
  }
  if (flags & 0x100) {
    if (out.HasText()) {
      text += separator;
    } else {
      out.Quote();
    }
    buffer[0] = '\0';
    if (haveTime) strftime(buffer, sizeof buffer, "%H:%M:%S", &local);
    text += buffer;
  }
  if (flags & 0x200) {
    if (flags & 0x100) {
      OxAppendFormat(text, ".%03hu", message->millitm);
    } else {
      if (out.HasText()) out.Quote();
      OxAppendFormat(text, "%03hu", message->millitm);
    }
  }
  if (out.HasText()) {
    out.Quote();
    text += separator;
  }

  // Process and thread.
  if (flags & 16) {
    out.Quote();
    OxAppendFormat(text, "%d", message->processId);
  }
  if (flags & 32) {
    if (flags & 16) {
      text += ':';
    } else {
      out.Quote();
    }
    OxAppendFormat(text, "%d", message->threadId);
  }
  // Behind the date this adds a second separator when neither process nor
  // thread was asked for; that is the form.
  if (out.HasText()) {
    out.Quote();
    text += separator;
  }

  // Place and code.
  if (flags & 0x10000) out.Column(message->file);
  if (flags & 0x20000) out.Column(ShortFileName(message->file));
  if (flags & 0x40000) {
    snprintf(buffer, sizeof buffer, "%d", message->line);
    out.Column(buffer);
  }
  if (flags & 1) {
    snprintf(buffer, sizeof buffer, "0x%08x",
             static_cast<unsigned>(message->code));
    out.Column(buffer);
  } else if (flags & 2) {
    snprintf(buffer, sizeof buffer, "%d", message->code);
    out.Column(buffer);
  }

  // The message text with its arguments.
  out.Quote();
  OxAppendFilled(text, format, message->args, 0, "(null)");
  out.Quote();
  return text.GetLength();
}

int Ox_MsgView::GetMsgStr(unsigned codePage, Ox_AString &text,
                          const Ox_MessageList *messages, int flags,
                          char separator, int quoted, char quote) {
  text.Empty();
  if (!messages) return 0;
  const int count = messages->Count();
  Ox_AString line;
  for (int i = 0; i < count; ++i) {
    if (GetMsgStr(codePage, line, messages->GetItem(i), flags, separator,
                  quoted, quote) == 0) {
      line = "(null)";
    }
    text += line;
    if (text.GetLength() > 0) text += '\n';
  }
  return text.GetLength();
}

int Ox_MsgView::GetMsgStr(unsigned codePage, Ox_AString &text,
                          const Ox_Result *result, int flags, char separator,
                          int quoted, char quote) {
  if (!result || !result->msgList) {
    text.Empty();
    return 0;
  }
  return GetMsgStr(codePage, text, result->msgList, flags, separator, quoted,
                   quote);
}
