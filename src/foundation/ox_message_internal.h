// Helpers shared by the result, message, log and view code: the escaping
// of log texts, the filling of "%s" placeholders, clock and time texts.
#ifndef OX_MESSAGE_INTERNAL_H
#define OX_MESSAGE_INTERNAL_H

#include <cstddef>
#include <type_traits>

#include "Ox_List.h"
#include "Ox_String.h"

// Appends `text` with each backslash doubled and each double quote
// preceded by a backslash, the escaping of every log form.
void OxAppendEscaped(Ox_AString &out, const char *text);

// Appends the catalogue text `format` with its "%s" placeholders replaced,
// the n-th by args[start + n], or by `missing` when there is no such
// argument. A plain search, not printf: an argument may hold a percent
// sign, and any other printf form stays as it stands.
void OxAppendFilled(Ox_AString &out, const char *format,
                    const Ox_AStrList &args, int start, const char *missing);

// Appends `arguments` escaped and joined by commas.
void OxAppendJoinedArgs(Ox_AString &out, const Ox_AStrList &arguments);

// Appends `,"<escaped argument>"` for each of `args` and the line feed: the
// tail of every line of a result listing or log file.
void OxAppendArgsLineTail(Ox_AString &out, const Ox_AStrList &args);

// Appends printf output.
void OxAppendFormat(Ox_AString &out, const char *format, ...)
    __attribute__((format(printf, 2, 3)));

// Local time of `seconds` by strftime `format` into `buffer`; false (and
// an empty buffer) when the local time can't be got.
bool OxLocalTimeText(long long seconds, const char *format, char *buffer,
                     size_t size);

// The clock with millisecond resolution.
void OxClockNow(long long &seconds, unsigned short &millis);
int OxCurrentProcessId();
int OxCurrentThreadId();

// True when a forwarded argument list is a null pointer (a caller that
// passed a literal null as the list). Only where va_list is a pointer type.
template <typename T>
inline bool OxArgListIsNull(const T &list) {
  if constexpr (std::is_pointer<T>::value) {
    return list == nullptr;
  } else {
    return false;
  }
}

#endif
