// Text forms of an Ox_Result: the listing forms, and Save and Load.
#include <cstdlib>
#include <cstring>

#include "Ox_Path.h"
#include "Ox_Result.h"
#include "foundation/ox_message_internal.h"

namespace {

// "%Y-%m-%d %H:%M:%S" of the message's time; empty when the local time
// can't be got.
void LocalStamp(const Ox_Message &message, char *buffer, size_t size) {
  OxLocalTimeText(static_cast<long long>(message.time), "%Y-%m-%d %H:%M:%S",
                  buffer, size);
}

}  // namespace

Ox_AString Ox_Result::GetMessageStr() const {
  Ox_AString out;
  const int count = Count();
  for (int i = 0; i < count; ++i) {
    const Ox_Message *message = msgList->GetItem(i);
    if (!message) continue;
    OxAppendFormat(out, "\"0x%x\",\"%d\"", static_cast<unsigned>(message->code),
                   message->args.Count());
    OxAppendArgsLineTail(out, message->args);
  }
  return out;
}

Ox_AString Ox_Result::GetMessageStr(int index, unsigned /*codePage*/) const {
  const Ox_Message *message = GetMessageA(index);
  if (!message) return Ox_AString("No Message");
  Ox_AString out;
  OxAppendJoinedArgs(out, message->args);
  return out;
}

Ox_AString Ox_Result::GetMessageStr(const char *host, unsigned a,
                                    unsigned b) const {
  Ox_AString out;
  if (!IsServerMode()) return out;
  const int count = Count();
  for (int i = 0; i < count; ++i) {
    const Ox_Message *message = msgList->GetItem(i);
    if (!message) continue;
    char stamp[64];
    LocalStamp(*message, stamp, sizeof stamp);
    const Ox_AString title = Ox_Path::GetFileTitle(message->file);
    OxAppendFormat(out,
                   "\"%u\",\"%u\",\"%s\",\"0x%x\",\"%d\",\"%d\",\"%s.%03hu\","
                   "\"%s\",\"%d\",\"%d\"",
                   a, b, host ? host : "0.0.0.0",
                   static_cast<unsigned>(message->code), message->processId,
                   message->threadId, stamp, message->millitm,
                   title.GetString(), message->line, message->args.Count());
    OxAppendArgsLineTail(out, message->args);
  }
  return out;
}

Ox_AString Ox_Result::GetMsgWithFormat(unsigned /*codePage*/) const {
  Ox_AString out;
  const int count = Count();
  for (int i = 0; i < count; ++i) {
    const Ox_Message *message = msgList->GetItem(i);
    if (!message) {
      out += '\n';
      continue;
    }
    char stamp[64];
    LocalStamp(*message, stamp, sizeof stamp);
    const Ox_AString title = Ox_Path::GetFileTitle(message->file);
    Ox_AString joined;
    OxAppendJoinedArgs(joined, message->args);
    OxAppendFormat(out, "\"%s.%03hu\",\"0x%x\",\"%d\",\"%d\",\"%s\",\"%d\",",
                   stamp, message->millitm,
                   static_cast<unsigned>(message->code), message->processId,
                   message->threadId, title.GetString(), message->line);
    // The joined arguments may be long: appended as they are.
    out += '"';
    out += joined;
    out += "\"\n";
  }
  return out;
}

// ------------------------------------------------------------ Save, Load

int Ox_Result::Save(Ox_AString &text, unsigned /*codePage*/) const {
  text.Empty();
  const int count = Count();
  if (count < 1) return 0;
  const bool server = IsServerMode() != 0;
  for (int i = 0; i < count; ++i) {
    const Ox_Message *message = msgList->GetItem(i);
    if (!message) continue;
    if (i > 0) text += '\n';
    const char *comma = message->args.Count() > 0 ? "," : "";
    if (server) {
      text += '"';
      text += message->file;
      OxAppendFormat(text, "\",\"%d\",\"%d\",\"%d\",\"%ld\",\"%d\",\"%ld\"%s",
                     message->line, message->processId, message->threadId,
                     static_cast<long>(static_cast<int>(message->time)),
                     static_cast<int>(message->millitm),
                     static_cast<long>(message->code), comma);
    } else {
      OxAppendFormat(text, "\"\",\"0\",\"0\",\"0\",\"0\",\"0\",\"%ld\"%s",
                     static_cast<long>(message->code), comma);
    }
    // Each argument as it stands, in quotes, and then the tail "",.
    const int argCount = message->args.Count();
    for (int a = 0; a < argCount; ++a) {
      text += '"';
      text += message->args.GetItemNN(a);
      text += "\"\"\",";
    }
  }
  return text.GetLength();
}

namespace {

// Splits one line of Save's form into its fields. The seven leading fields
// are quoted numbers and the file name, each ending at a quote that a comma
// or the line end follows. The arguments are written without escaping and
// each is closed by the tail `""",`; an argument therefore ends at the
// first `""",` (or `"""` at the line end), so that quotes, commas and
// backslashes inside it come back unchanged. An argument without that tail
// ends like a leading field.
void SplitSavedLine(const char *line, const char *end, Ox_AStrList &fields) {
  fields.Clear();
  const char *p = line;
  while (p < end) {
    const char *begin = p;
    const char *stop = nullptr;
    const char *next = nullptr;
    if (*p == '"') {
      begin = p + 1;
      if (fields.Count() >= 7) {
        for (const char *q = begin; q + 3 <= end; ++q) {
          if (q[0] == '"' && q[1] == '"' && q[2] == '"' &&
              (q + 3 == end || q[3] == ',')) {
            stop = q;
            next = q + 3 < end ? q + 4 : end;
            break;
          }
        }
      }
      for (const char *q = begin; !stop && q < end; ++q) {
        if (*q == '"' && (q + 1 == end || q[1] == ',')) {
          stop = q;
          next = q + 1 < end ? q + 2 : end;
        }
      }
      if (!stop) {  // no closing quote: the rest of the line
        stop = end;
        next = end;
      }
    } else {
      const char *comma = static_cast<const char *>(
          memchr(p, ',', static_cast<size_t>(end - p)));
      stop = comma ? comma : end;
      next = comma ? comma + 1 : end;
    }
    fields.Add(Ox_AString(begin, static_cast<int>(stop - begin)));
    p = next;
  }
}

}  // namespace

int Ox_Result::Load(const char *text, int clear, unsigned /*codePage*/) {
  // Clearing first is Clear(); the lines read never set the code.
  if (clear) Clear();
  if (!text) return Count();
  const bool server = IsServerMode() != 0;
  Ox_AStrList fields(0);
  const char *p = text;
  while (*p) {
    // One line, up to a carriage return or a line feed.
    const char *end = p + strcspn(p, "\r\n");
    SplitSavedLine(p, end, fields);
    p = *end ? end + 1 : end;
    // A line of fewer than seven fields is not a message.
    if (fields.Count() < 7) continue;
    if (!msgList) msgList = MakeList();
    if (!msgList) break;
    const int index = msgList->Ox_ObjList::Add(nullptr);
    Ox_Message *message = msgList->GetItem(index);
    if (!message) continue;
    if (server) {
      message->file = fields.GetItemNN(0);
      message->line = fields.GetItemNN(1).ToInteger();
      message->processId = fields.GetItemNN(2).ToInteger();
      message->threadId = fields.GetItemNN(3).ToInteger();
      message->time = static_cast<Ox_Int64>(
          strtoll(fields.GetItemNN(4).GetString(), nullptr, 10));
      message->millitm =
          static_cast<unsigned short>(fields.GetItemNN(5).ToInteger());
    }
    message->code = static_cast<int>(
        strtoll(fields.GetItemNN(6).GetString(), nullptr, 10));
    const int count = fields.Count();
    for (int i = 7; i < count; ++i) message->args.Add(fields.GetItemNN(i));
  }
  return Count();
}
