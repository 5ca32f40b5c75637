// Ox_Result::Write: the dated, size-rolled log files of a server.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_Result.h"
#include "foundation/ox_message_internal.h"
#include "foundation/ox_result_fs.h"

namespace {

// One log line: code, process, thread, local time with milliseconds, the
// full file, line, argument count, then the escaped arguments.
void AppendLogLine(Ox_AString &out, const Ox_Message &message) {
  char stamp[64];
  OxLocalTimeText(static_cast<long long>(message.time), "%Y-%m-%d %H:%M:%S",
                  stamp, sizeof stamp);
  OxAppendFormat(out, "\"0x%x\",\"%d\",\"%d\",\"%s.%03hu\",\"",
                 static_cast<unsigned>(message.code), message.processId,
                 message.threadId, stamp, message.millitm);
  out += message.file;
  OxAppendFormat(out, "\",\"%d\",\"%d\"", message.line,
                 message.args.Count());
  OxAppendArgsLineTail(out, message.args);
}

}  // namespace

int Ox_Result::Write(const char *directory, const char *subdirectory,
                     int maxSize, unsigned /*codePage*/) const {
  // A client never writes logs.
  if (!IsServerMode()) return 0;

  // 1. The folder, made if missing.
  Ox_AString folder(directory);
  folder += '\\';
  folder += subdirectory;
  if (!OxMakeFolders(folder)) return 0;

  // 2. Today's date.
  char today[16] = {0};
  if (!ox_todayA(today)) return 0;

  // 3. The first file of the day whose size has not reached maxSize: the
  // log rolls over by size within a day and starts fresh each day. A file
  // that does not exist is empty, so the walk stops there whatever maxSize
  // is.
  Ox_AString stem = folder;
  stem += '\\';
  stem += Ox_AString(today, 8);
  stem += '_';
  std::string osName;
  for (int number = 0;; ++number) {
    Ox_AString name = stem;
    name += number;
    name += ".log";
    osName = OxOsPath(name);
    struct stat info;
    if (stat(osName.c_str(), &info) != 0) break;
    if (static_cast<long long>(info.st_size) < maxSize) break;
  }

  // 4. Open for appending (as fopen's "a"); a log that can't be opened
  // loses its lines.
  const int file = open(osName.c_str(), O_WRONLY | O_APPEND | O_CREAT |
                        O_CLOEXEC, 0666);
  if (file < 0) return 0;

  // 5. One line a message.
  Ox_AString lines;
  const int count = Count();
  int written = 0;
  for (int i = 0; i < count; ++i) {
    const Ox_Message *message = msgList->GetItem(i);
    if (!message) continue;
    AppendLogLine(lines, *message);
    ++written;
  }

  // 6. All lines in one write, so that lines of two writers do not mix.
  const size_t length = static_cast<size_t>(lines.GetLength());
  if (length > 0) {
    const ssize_t done = ::write(file, lines.GetString(), length);
    if (done != static_cast<ssize_t>(length)) written = 0;
  }
  close(file);
  return written;
}
