// Ox_AString: text forms of numbers, printf, trimming, quoting, the XML
// entities and base64 decoding.
#include <locale.h>

#include <cerrno>
#include <cfloat>
#include <cmath>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_Buffer.h"
#include "Ox_String.h"

namespace {

// Numbers are written and read with a point, whatever locale the process
// has chosen for LC_NUMERIC.
locale_t NumericLocale() {
  static locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
  return c;
}

// Runs snprintf under the C locale on this thread only.
int FormatNumber(char *out, size_t size, const char *format, int precision,
                 double value) {
  locale_t c = NumericLocale();
  locale_t old = c ? uselocale(c) : static_cast<locale_t>(0);
  int n = snprintf(out, size, format, precision, value);
  if (c) uselocale(old);
  return n;
}

double ReadNumber(const char *text) {
  locale_t c = NumericLocale();
  return c ? strtod_l(text, nullptr, c) : strtod(text, nullptr);
}

// The five XML entities and the characters they stand for.
struct Entity {
  char c;
  const char *text;
  int length;
};
const Entity kEntities[] = {
    {'<', "&lt;", 4},     {'>', "&gt;", 4},     {'&', "&amp;", 5},
    {'"', "&quot;", 6},   {'\'', "&apos;", 6},
};

// Value of a base64 character; -1 for white space, -2 for padding, -3
// for anything else.
int Base64Value(unsigned char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  if (c == '/') return 63;
  if (c == '=') return -2;
  if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' ||
      c == '\v')
    return -1;
  return -3;
}

}  // namespace

Ox_AString &Ox_AString::Set(int value) {
  char text[16];
  int n = snprintf(text, sizeof text, "%d", value);
  return Set(text, n);
}

Ox_AString &Ox_AString::Set(double value) {
  // The fewest significant digits whose text reads back as the same
  // double. %g leaves out a point and trailing zeros, so whole numbers
  // print as "12" and halves as "0.5". A normal double whose shortest
  // text has k <= 15 digits lies within half its own step of that text,
  // far less than half a step of the 15th digit, so %.15g already gives
  // the shortest text: the search starts there. Subnormals carry fewer
  // digits and start from 1.
  char text[40];
  int n = 0;
  bool subnormal = value != 0.0 && std::fabs(value) < DBL_MIN;
  for (int precision = subnormal ? 1 : 15; precision <= 17; ++precision) {
    n = FormatNumber(text, sizeof text, "%.*g", precision, value);
    if (ReadNumber(text) == value) break;
  }
  return Set(text, n);
}

void Ox_AString::Trim() {
  int length = GetLength();
  int lead = ox_findskipA(GetString(), length);
  if (lead == length) {
    if (length) Empty();
    return;
  }
  int trail = ox_findrskipA(GetString(), length);
  if (lead || trail) Set(Mid(lead, length - lead - trail));
}

void Ox_AString::TrimBrace(int quoted) {
  // Both callers' values behave alike: one pair of the same quote
  // character at both ends comes off, anything else stays.
  (void)quoted;
  int length = GetLength();
  if (length < 2) return;
  char first = m_text[0];
  if ((first == '"' || first == '\'') && m_text[length - 1] == first)
    Set(Mid(1, length - 2));
}

Ox_AString Ox_AString::QuoteStr(char quote) const {
  // Without a quote character there is nothing to enclose in.
  if (quote == '\0') return *this;
  // Enclose in `quote`; a backslash protects the quote character and the
  // backslash itself, so that a parser with escape '\' reads it back.
  int length = GetLength();
  int protect = 0;
  for (int i = 0; i < length; ++i)
    if (m_text[i] == quote || m_text[i] == '\\') ++protect;
  Ox_AString result;
  char *out = result.GetSafeBuffer(length + protect + 2);
  if (!out) return result;
  int n = 0;
  out[n++] = quote;
  for (int i = 0; i < length; ++i) {
    if (m_text[i] == quote || m_text[i] == '\\') out[n++] = '\\';
    out[n++] = m_text[i];
  }
  out[n++] = quote;
  result.FreeExtra(n);
  return result;
}

Ox_AString Ox_AString::UnQuoteStr() const {
  // Only a text enclosed in one pair of the same quote character changes.
  int length = GetLength();
  if (length < 2) return *this;
  char quote = m_text[0];
  if ((quote != '"' && quote != '\'') || m_text[length - 1] != quote)
    return *this;
  // Drop the quotes and take away each protecting backslash; a lone
  // backslash at the very end stays.
  Ox_AString result;
  char *out = result.GetSafeBuffer(length - 2);
  if (!out) return result;
  int n = 0;
  for (int i = 1; i < length - 1; ++i) {
    if (m_text[i] == '\\' && i + 1 < length - 1) ++i;
    out[n++] = m_text[i];
  }
  result.FreeExtra(n);
  return result;
}

Ox_AString Ox_AString::EncodeXml() const {
  int length = GetLength();
  int extra = 0;
  for (int i = 0; i < length; ++i)
    for (const Entity &e : kEntities)
      if (m_text[i] == e.c) extra += e.length - 1;
  if (extra == 0) return *this;
  Ox_AString result;
  char *out = result.GetSafeBuffer(length + extra);
  if (!out) return result;
  int n = 0;
  for (int i = 0; i < length; ++i) {
    const Entity *hit = nullptr;
    for (const Entity &e : kEntities)
      if (m_text[i] == e.c) hit = &e;
    if (hit) {
      memcpy(out + n, hit->text, static_cast<size_t>(hit->length));
      n += hit->length;
    } else {
      out[n++] = m_text[i];
    }
  }
  result.FreeExtra(n);
  return result;
}

Ox_AString Ox_AString::DecodeXml() const {
  int length = GetLength();
  if (Find('&') < 0) return *this;
  // Every entity is longer than its character: the text only shrinks.
  Ox_AString result;
  char *out = result.GetSafeBuffer(length);
  if (!out) return result;
  int n = 0;
  for (int i = 0; i < length;) {
    const Entity *hit = nullptr;
    if (m_text[i] == '&') {
      for (const Entity &e : kEntities)
        if (e.length <= length - i &&
            memcmp(m_text + i, e.text, static_cast<size_t>(e.length)) == 0)
          hit = &e;
    }
    if (hit) {
      out[n++] = hit->c;
      i += hit->length;
    } else {
      out[n++] = m_text[i++];  // other references stay as written
    }
  }
  result.FreeExtra(n);
  return result;
}

Ox_Buffer Ox_AString::DecodeBase64() const {
  // Step 1: count the data characters; white space is skipped, padding
  // may only end the text, anything else spoils it.
  int length = GetLength();
  long data = 0, padding = 0;
  for (int i = 0; i < length; ++i) {
    int v = Base64Value(static_cast<unsigned char>(m_text[i]));
    if (v == -1) continue;
    if (v == -3) return Ox_Buffer();
    if (v == -2) {
      ++padding;
    } else {
      if (padding) return Ox_Buffer();  // data behind '='
      ++data;
    }
  }
  // Step 2: a last group of 1 character holds no byte; padding fills the
  // last group to 4 characters and no further.
  if (data % 4 == 1 || padding > 2 || (padding && (data + padding) % 4 != 0))
    return Ox_Buffer();
  long size = data / 4 * 3 + (data % 4 ? data % 4 - 1 : 0);
  Ox_Buffer result;
  if (size == 0) return result;
  unsigned char *out = result.GetSafeBuffer(size);
  if (!out) return Ox_Buffer();
  // Step 3: 4 characters give 3 bytes.
  unsigned long bits = 0;
  int held = 0;
  long n = 0;
  for (int i = 0; i < length; ++i) {
    int v = Base64Value(static_cast<unsigned char>(m_text[i]));
    if (v < 0) continue;
    bits = (bits << 6) | static_cast<unsigned long>(v);
    held += 6;
    if (held >= 8) {
      held -= 8;
      out[n++] = static_cast<unsigned char>(bits >> held);
    }
  }
  return result;
}

int Ox_AString::IsNumber() const {
  // An optional '-', then digits with at most one point, one digit at least.
  const char *p = GetString();
  const char *end = p + GetLength();
  if (p < end && *p == '-') ++p;
  int digits = 0, points = 0;
  for (; p < end; ++p) {
    if (*p >= '0' && *p <= '9') {
      ++digits;
    } else if (*p == '.' && points == 0) {
      ++points;
    } else {
      return 0;
    }
  }
  return digits > 0 ? 1 : 0;
}

int Ox_AString::ToInteger() const {
  // atoi: leading white space, a sign, digits; beyond the range of int the
  // value stops at its limit.
  long value = strtol(GetString(), nullptr, 10);
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}

double Ox_AString::ToDouble() const { return ReadNumber(GetString()); }

const char *Ox_AString::Format(const char *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  Formatv(format, arguments);
  va_end(arguments);
  return GetString();
}

const char *Ox_AString::Formatv(const char *format, va_list arguments) {
  if (!format) {
    Empty();
    return GetString();
  }
  // Measure, then write into a new block: the arguments may point into
  // this string's own text.
  va_list again;
  va_copy(again, arguments);
  char small[256];
  int n = vsnprintf(small, sizeof small, format, arguments);
  if (n < 0) {
    va_end(again);
    return GetString();
  }
  Ox_AString result;
  if (static_cast<size_t>(n) < sizeof small) {
    result.Set(small, n);
  } else {
    char *out = result.GetSafeBuffer(n);
    if (out) {
      vsnprintf(out, static_cast<size_t>(n) + 1, format, again);
      result.FreeExtra(n);
    }
  }
  va_end(again);
  *this = result;
  return GetString();
}

const char *Ox_AString::NumFormatExp(double value, int flags, int digits) {
  // One digit, a point, the other significant digits, then 'e', a sign
  // and at least two exponent digits, as C's %e writes it:
  // NumFormatExp(1234567890.0, 0, 10) gives "1.234567890e+09".
  (void)flags;
  if (digits < 1) digits = 10;
  if (digits > 17) digits = 17;
  char text[48];
  int n = FormatNumber(text, sizeof text, "%.*e", digits - 1, value);
  Set(text, n);
  return GetString();
}
