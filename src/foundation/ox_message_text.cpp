// Helpers shared by the text forms of messages and logs.
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "foundation/ox_message_internal.h"

void OxAppendEscaped(Ox_AString &out, const char *text) {
  if (!text) return;
  // Copy runs of plain characters at once; stop at the two that need a
  // backslash in front.
  const char *run = text;
  for (const char *p = text; *p; ++p) {
    if (*p != '\\' && *p != '"') continue;
    if (p > run) out += Ox_AString(run, static_cast<int>(p - run));
    out += '\\';
    out += *p;
    run = p + 1;
  }
  if (*run) out += run;
}

void OxAppendArgsLineTail(Ox_AString &out, const Ox_AStrList &args) {
  const int count = args.Count();
  for (int i = 0; i < count; ++i) {
    out += ",\"";
    OxAppendEscaped(out, args.GetItemNN(i));
    out += '"';
  }
  out += '\n';
}

void OxAppendFilled(Ox_AString &out, const char *format,
                    const Ox_AStrList &args, int start, const char *missing) {
  if (!format) return;
  int next = start;
  const char *rest = format;
  // Cut the text at each placeholder and put the next argument in.
  for (const char *hole = strstr(rest, "%s"); hole != nullptr;
       hole = strstr(rest, "%s")) {
    if (hole > rest) out += Ox_AString(rest, static_cast<int>(hole - rest));
    const Ox_AString *arg = next >= 0 ? args.GetItem(next) : nullptr;
    if (arg) {
      out += *arg;
    } else {
      out += missing;
    }
    ++next;
    rest = hole + 2;
  }
  if (*rest) out += rest;
}

void OxAppendJoinedArgs(Ox_AString &out, const Ox_AStrList &arguments) {
  const int count = arguments.Count();
  for (int i = 0; i < count; ++i) {
    if (i > 0) out += ',';
    const Ox_AString *arg = arguments.GetItem(i);
    if (arg) OxAppendEscaped(out, *arg);
  }
}

void OxAppendFormat(Ox_AString &out, const char *format, ...) {
  char local[256];
  va_list list;
  va_start(list, format);
  const int needed = vsnprintf(local, sizeof local, format, list);
  va_end(list);
  if (needed < 0) return;
  if (static_cast<size_t>(needed) < sizeof local) {
    out += local;
    return;
  }
  Ox_AString longer;
  va_start(list, format);
  longer.Formatv(format, list);
  va_end(list);
  out += longer;
}

bool OxLocalTimeText(long long seconds, const char *format, char *buffer,
                     size_t size) {
  if (!buffer || size == 0) return false;
  buffer[0] = '\0';
  const time_t when = static_cast<time_t>(seconds);
  struct tm local;
  if (!localtime_r(&when, &local)) return false;
  if (strftime(buffer, size, format, &local) == 0) {
    buffer[0] = '\0';
    return false;
  }
  return true;
}

void OxClockNow(long long &seconds, unsigned short &millis) {
  struct timespec now;
  if (clock_gettime(CLOCK_REALTIME, &now) != 0) {
    seconds = static_cast<long long>(::time(nullptr));
    millis = 0;
    return;
  }
  seconds = static_cast<long long>(now.tv_sec);
  millis = static_cast<unsigned short>(now.tv_nsec / 1000000);
}

int OxCurrentProcessId() { return static_cast<int>(getpid()); }

int OxCurrentThreadId() { return static_cast<int>(syscall(SYS_gettid)); }
