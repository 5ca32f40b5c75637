// Free functions of the base layer: raw memory, text helpers, today's date,
// CRC-32 and the byte form of doubles. Code pages are in ox_codepage.cpp.
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <zlib.h>

#include "Ox_BaseFunc.h"

namespace {

inline unsigned char Fold(unsigned char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<unsigned char>(c + 32) : c;
}

// White space as isspace gives it in the C locale, for any byte value.
inline bool IsSpace(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' ||
         c == '\r';
}

}  // namespace

void *_ox_malloc(int size) {
  if (size < 0) return nullptr;
  return malloc(size ? static_cast<size_t>(size) : 1);
}

void ox_free(void *memory) { free(memory); }

int ox_stricmpA(const char *a, const char *b) {
  const unsigned char *p = reinterpret_cast<const unsigned char *>(a ? a : "");
  const unsigned char *q = reinterpret_cast<const unsigned char *>(b ? b : "");
  while (*p && Fold(*p) == Fold(*q)) {
    ++p;
    ++q;
  }
  return static_cast<int>(Fold(*p)) - static_cast<int>(Fold(*q));
}

int ox_strnicmpA(const char *a, const char *b, int count) {
  const unsigned char *p = reinterpret_cast<const unsigned char *>(a ? a : "");
  const unsigned char *q = reinterpret_cast<const unsigned char *>(b ? b : "");
  for (int i = 0; i < count; ++i) {
    int d = static_cast<int>(Fold(p[i])) - static_cast<int>(Fold(q[i]));
    if (d != 0 || p[i] == 0) return d;
  }
  return 0;
}

char *ox_stristrA(const char *text, const char *find) {
  if (!text) return nullptr;
  if (!find || !*find) return const_cast<char *>(text);
  size_t n = strlen(find);
  for (const char *p = text; *p; ++p)
    if (ox_strnicmpA(p, find, static_cast<int>(n)) == 0)
      return const_cast<char *>(p);
  return nullptr;
}

char *ox_strpbrkA(const char *text, const char *set) {
  if (!text || !set) return nullptr;
  return const_cast<char *>(strpbrk(text, set));
}

char *ox_strrchrA(const char *text, int c) {
  if (!text) return nullptr;
  return const_cast<char *>(strrchr(text, c));
}

void ox_strlwrA(char *text) {
  if (!text) return;
  for (; *text; ++text)
    *text = static_cast<char>(Fold(static_cast<unsigned char>(*text)));
}

int ox_findskipA(const char *text, int length) {
  if (!text) return 0;
  if (length < 0) length = static_cast<int>(strnlen(text, 0x7FFFFFFF));
  int n = 0;
  while (n < length && IsSpace(text[n])) ++n;
  return n;
}

int ox_findrskipA(const char *text, int length) {
  if (!text) return 0;
  if (length < 0) length = static_cast<int>(strnlen(text, 0x7FFFFFFF));
  int n = 0;
  while (n < length && IsSpace(text[length - 1 - n])) ++n;
  return n;
}

char *ox_todayA(char *buffer) {
  if (!buffer) return nullptr;
  time_t now = time(nullptr);
  struct tm local;
  if (now == static_cast<time_t>(-1) || !localtime_r(&now, &local))
    return nullptr;
  if (strftime(buffer, 12, "%Y%m%d", &local) != 8) return nullptr;
  return buffer;
}

int ox_getlasterror() { return errno; }

unsigned ox_crc32(unsigned crc, const unsigned char *data, int size) {
  if (!data || size <= 0) return crc;
  // zlib's crc32 is the same CRC (the gzip polynomial, pre- and
  // post-inverted, continuing from `crc`) and the fastest at hand.
  return static_cast<unsigned>(
      crc32(crc, data, static_cast<uInt>(size)));
}

void ox_dtobyte(double value, char *const bytes) {
  if (!bytes) return;
  uint64_t bits;
  memcpy(&bits, &value, sizeof bits);
  // Most significant byte first, as every number of the streams.
  for (int i = 7; i >= 0; --i) {
    bytes[i] = static_cast<char>(bits & 0xFF);
    bits >>= 8;
  }
}

double ox_bytetod(char *const bytes) {
  if (!bytes) return 0.0;
  uint64_t bits = 0;
  for (int i = 0; i < 8; ++i)
    bits = (bits << 8) | static_cast<unsigned char>(bytes[i]);
  double value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

int ox_isinf(double value) { return std::isfinite(value) ? 0 : 1; }
