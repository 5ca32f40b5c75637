// Ox_AString and Ox_WString: text of one byte and of two bytes per unit.
//
// Each string is one pointer wide. The pointer leads to NUL-terminated
// characters; a block header in front of them holds the share count, the
// length and the capacity. A null pointer is the empty string, and every
// reader accepts it. Copies share the block; writing unshares it first
// (GetSafeBuffer is the one operation that hands out a writable pointer).
#ifndef OX_STRING_H
#define OX_STRING_H

#include <atomic>
#include <cstdarg>

#include "Ox_Export.h"

class Ox_Buffer;

// Header in front of the characters of a shared text block.
struct Ox_StrBlockHead {
  std::atomic<int> refCount;  // handles sharing the block
  int length;                 // characters in use, without the NUL
  int capacity;               // characters that fit, without the NUL
  int reserved;               // keeps the characters 16-byte aligned
};

class OX_API Ox_AString {
 public:
  constexpr Ox_AString() : m_text(nullptr) {}
  Ox_AString(const Ox_AString &other);
  // Copies `length` bytes; -1 means up to the NUL; null gives empty.
  Ox_AString(const char *text, int length = -1);
  // Converts 16-bit text to `codePage` (0: the locale's code page).
  Ox_AString(const char16_t *text, int length, unsigned codePage);
  ~Ox_AString();

  Ox_AString &operator=(const Ox_AString &other);
  Ox_AString &operator=(const char *text);

  Ox_AString &Set(const char *text, int length = -1);
  Ox_AString &Set(const char16_t *text, int length, unsigned codePage);
  Ox_AString &Set(const Ox_AString &other);
  Ox_AString &Set(int value);     // decimal text
  Ox_AString &Set(double value);  // shortest text that reads back exactly

  Ox_AString &operator+=(const Ox_AString &other);
  Ox_AString &operator+=(const char *text);
  Ox_AString &operator+=(char c);
  Ox_AString &operator+=(int value);
  Ox_AString &operator+=(double value);

  void Empty();

  // Length in bytes, read at no cost.
  int GetLength() const {
    return m_text ? Head()->length : 0;
  }
  // The characters; "" (never null) for the empty string.
  const char *GetString() const { return m_text ? m_text : ""; }
  operator const char *() const { return GetString(); }

  char GetAt(int index) const;
  char operator[](int index) const { return GetAt(index); }
  // Writes one byte in place, unsharing first. Writing a 0 cuts the C
  // text; the length follows only after FreeExtra(-1).
  void SetAt(int index, char c);

  int Compare(const char *text) const;  // like strcmp; null reads as empty

  // Index of the first match at or after `start` (clamped to the text),
  // else -1; a null or empty pattern matches nothing.
  int Find(char c, int start = 0) const;
  int Find(const char *text, int start = 0) const;
  int Findi(const char *text, int start = 0) const;  // ignores case

  Ox_AString Left(int count) const;
  Ox_AString Right(int count) const;
  Ox_AString Mid(int start) const;
  Ox_AString Mid(int start, int count) const;

  int Insert(int position, const char *text);  // returns the new length
  int Replace(const char *from, const char *to);  // returns the count
  int Replace(char from, char to);                // returns the count

  void Trim();                  // white space off both ends
  void TrimBrace(int quoted);   // one pair of enclosing quotes off
  Ox_AString QuoteStr(char quote) const;
  Ox_AString UnQuoteStr() const;
  Ox_AString EncodeXml() const;
  Ox_AString DecodeXml() const;
  Ox_Buffer DecodeBase64() const;

  int IsNumber() const;
  int ToInteger() const;
  double ToDouble() const;

  const char *Format(const char *format, ...)
      __attribute__((format(printf, 2, 3)));
  const char *Formatv(const char *format, va_list arguments);
  // Exponent form with `digits` significant digits, as %e writes it:
  // (1234567890.0, 0, 10) gives "1.234567890e+09". `flags` is unused.
  const char *NumFormatExp(double value, int flags, int digits);

  // Unshares and returns a writable pointer with room for `size`
  // characters and the NUL; -1 keeps the present size. The length stays
  // as it is until FreeExtra. Null when memory runs out.
  char *GetSafeBuffer(int size);
  // After writing through GetSafeBuffer: -1 takes the length from the NUL.
  void FreeExtra(int length);

  // Sets this string to `text` converted from code page `from` to `to`;
  // returns the new length, less than 1 when a non-empty conversion fails.
  int ConvertCodePageFrom(unsigned from, const char *text, int length,
                          unsigned to);

 private:
  Ox_StrBlockHead *Head() const {
    return reinterpret_cast<Ox_StrBlockHead *>(m_text) - 1;
  }
  char *m_text;
};

OX_API Ox_AString operator+(const Ox_AString &left, const char *right);
OX_API Ox_AString operator+(const char *left, const Ox_AString &right);
OX_API Ox_AString operator+(const Ox_AString &left, const Ox_AString &right);

// Always empty; what accessors return by reference when they have nothing.
extern OX_API const Ox_AString _OxNullString;

class OX_API Ox_WString {
 public:
  constexpr Ox_WString() : m_text(nullptr) {}
  Ox_WString(const Ox_WString &other);
  Ox_WString(const char16_t *text, int length = -1);
  ~Ox_WString();
  Ox_WString &operator=(const Ox_WString &other);

  void Empty();
  Ox_WString &Set(const Ox_WString &other);
  Ox_WString &Set(const char16_t *text, int length = -1);
  // Decodes `length` bytes of `text` (-1: up to the NUL) from `codePage`
  // (0: the locale's); returns the new length in units, less than 1 when
  // a non-empty conversion fails.
  int Set(const char *text, int length, unsigned codePage);

  int GetLength() const { return m_text ? Head()->length : 0; }
  const char16_t *GetString() const { return m_text ? m_text : u""; }

  // Writable pointer with room for `size` units and the NUL.
  char16_t *GetSafeBuffer(int size);
  void FreeExtra(int length);

 private:
  Ox_StrBlockHead *Head() const {
    return reinterpret_cast<Ox_StrBlockHead *>(m_text) - 1;
  }
  char16_t *m_text;
};

#endif
