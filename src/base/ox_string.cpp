// Ox_AString: construction, assignment, appending, access, search, pieces
// and the writable buffer. Text forms of numbers, quoting, XML and base64
// are in ox_string_text.cpp.
#include <climits>
#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_String.h"
#include "base/ox_codepage_internal.h"
#include "base/ox_string_internal.h"

using ox_block::AText;

const Ox_AString _OxNullString;

namespace {

// Length of a text argument: `length` bytes, or up to the NUL when
// negative; a null text has none.
int TextLength(const char *text, int length) {
  if (!text) return 0;
  if (length >= 0) return length;
  size_t n = strlen(text);
  return n > static_cast<size_t>(INT_MAX) ? INT_MAX : static_cast<int>(n);
}

// Appends `count` bytes of `text` to the block of `handle`, which grows by
// half at least when it must move. `text` may lie in that very block: a
// share is held on it until the copy is done. False when memory runs out.
bool AppendTo(char *&handle, const char *text, int count) {
  if (count <= 0) return true;
  int length = handle ? AText::HeadOf(handle)->length : 0;
  if (count > AText::MaxCapacity() - length) return false;
  char *keep = nullptr;
  if (handle &&
      ox_block::PointsInto(text, handle, AText::HeadOf(handle)->capacity)) {
    keep = handle;
    AText::AddRef(keep);
  }
  char *units = AText::MakeWritable(handle, length + count, true);
  if (units) {
    memcpy(units + length, text, static_cast<size_t>(count));
    AText::HeadOf(units)->length = length + count;
    units[length + count] = '\0';
  }
  AText::Release(keep);
  return units != nullptr;
}

}  // namespace

Ox_AString::Ox_AString(const Ox_AString &other) : m_text(other.m_text) {
  AText::AddRef(m_text);
}

Ox_AString::Ox_AString(const char *text, int length) : m_text(nullptr) {
  Set(text, length);
}

Ox_AString::Ox_AString(const char16_t *text, int length, unsigned codePage)
    : m_text(nullptr) {
  Set(text, length, codePage);
}

Ox_AString::~Ox_AString() { AText::Release(m_text); }

Ox_AString &Ox_AString::operator=(const Ox_AString &other) {
  AText::Share(m_text, other.m_text);
  return *this;
}

Ox_AString &Ox_AString::operator=(const char *text) { return Set(text); }

Ox_AString &Ox_AString::Set(const char *text, int length) {
  int count = TextLength(text, length);
  if (count == 0) {
    Empty();
    return *this;
  }
  // A fresh block: `text` may point into this string's own block.
  char *units = AText::Copy(text, count);
  if (!units) return *this;
  AText::Release(m_text);
  m_text = units;
  return *this;
}

Ox_AString &Ox_AString::Set(const char16_t *text, int length,
                            unsigned codePage) {
  size_t count = 0;
  if (text) {
    if (length >= 0) {
      count = static_cast<size_t>(length);
    } else {
      while (text[count]) ++count;
    }
  }
  Ox_AString result;
  ox_cp_encode(codePage, text, count, result);
  return Set(result);
}

Ox_AString &Ox_AString::Set(const Ox_AString &other) { return *this = other; }

void Ox_AString::Empty() { AText::Release(m_text); }

Ox_AString &Ox_AString::operator+=(const Ox_AString &other) {
  // Appending to an empty string only shares the other block.
  if (!m_text) return *this = other;
  // Hold a share of the source: it may be this very string.
  Ox_AString keep(other);
  AppendTo(m_text, keep.GetString(), keep.GetLength());
  return *this;
}

Ox_AString &Ox_AString::operator+=(const char *text) {
  AppendTo(m_text, text, TextLength(text, -1));
  return *this;
}

Ox_AString &Ox_AString::operator+=(char c) {
  AppendTo(m_text, &c, 1);
  return *this;
}

Ox_AString &Ox_AString::operator+=(int value) {
  Ox_AString number;
  number.Set(value);
  return *this += number;
}

Ox_AString &Ox_AString::operator+=(double value) {
  Ox_AString number;
  number.Set(value);
  return *this += number;
}

Ox_AString operator+(const Ox_AString &left, const char *right) {
  Ox_AString result(left);
  result += right;
  return result;
}

Ox_AString operator+(const char *left, const Ox_AString &right) {
  Ox_AString result(left);
  result += right;
  return result;
}

Ox_AString operator+(const Ox_AString &left, const Ox_AString &right) {
  Ox_AString result(left);
  result += right;
  return result;
}

char Ox_AString::GetAt(int index) const {
  if (index < 0 || index >= GetLength()) return '\0';
  return m_text[index];
}

void Ox_AString::SetAt(int index, char c) {
  if (index < 0 || index >= GetLength()) return;
  // Unshare first; the length stays as it is even when `c` is a NUL.
  char *units = AText::MakeWritable(m_text, GetLength(), false);
  if (units) units[index] = c;
}

int Ox_AString::Compare(const char *text) const {
  return strcmp(GetString(), text ? text : "");
}

int Ox_AString::Find(char c, int start) const {
  int length = GetLength();
  if (start < 0) start = 0;
  if (start >= length) return -1;
  const void *hit = memchr(m_text + start, c, static_cast<size_t>(length - start));
  return hit ? static_cast<int>(static_cast<const char *>(hit) - m_text) : -1;
}

int Ox_AString::Find(const char *text, int start) const {
  // An empty pattern matches nothing, so that a loop stepping by the
  // pattern's length always ends.
  int count = TextLength(text, -1);
  int length = GetLength();
  if (start < 0) start = 0;
  if (count == 0 || start > length - count) return -1;
  const char first = text[0];
  for (int i = start; i <= length - count; ++i) {
    const void *hit = memchr(m_text + i, first, static_cast<size_t>(length - count - i + 1));
    if (!hit) return -1;
    i = static_cast<int>(static_cast<const char *>(hit) - m_text);
    if (memcmp(m_text + i, text, static_cast<size_t>(count)) == 0) return i;
  }
  return -1;
}

int Ox_AString::Findi(const char *text, int start) const {
  int count = TextLength(text, -1);
  int length = GetLength();
  if (start < 0) start = 0;
  if (count == 0 || start > length - count) return -1;
  for (int i = start; i <= length - count; ++i)
    if (ox_strnicmpA(m_text + i, text, count) == 0) return i;
  return -1;
}

Ox_AString Ox_AString::Left(int count) const { return Mid(0, count); }

Ox_AString Ox_AString::Right(int count) const {
  int length = GetLength();
  if (count < 0) count = 0;
  if (count > length) count = length;
  return Mid(length - count, count);
}

Ox_AString Ox_AString::Mid(int start) const {
  return Mid(start, GetLength());
}

Ox_AString Ox_AString::Mid(int start, int count) const {
  int length = GetLength();
  if (start < 0) start = 0;
  if (start > length) start = length;
  if (count < 0) count = 0;
  if (count > length - start) count = length - start;
  // The whole text is a shared copy, not a new block.
  if (start == 0 && count == length) return *this;
  return Ox_AString(m_text + start, count);
}

int Ox_AString::Insert(int position, const char *text) {
  int count = TextLength(text, -1);
  int length = GetLength();
  if (count == 0) return length;
  if (count > AText::MaxCapacity() - length) return length;
  if (position < 0) position = 0;
  if (position > length) position = length;
  if (m_text && ox_block::PointsInto(text, m_text, Head()->capacity)) {
    // The text to insert moves with the block: insert a copy of it.
    Ox_AString copy(text, count);
    return Insert(position, copy.GetString());
  }
  char *units = AText::MakeWritable(m_text, length + count, true);
  if (!units) return length;
  memmove(units + position + count, units + position,
          static_cast<size_t>(length - position));
  memcpy(units + position, text, static_cast<size_t>(count));
  Head()->length = length + count;
  units[length + count] = '\0';
  return length + count;
}

int Ox_AString::Replace(const char *from, const char *to) {
  int fromCount = TextLength(from, -1);
  if (fromCount == 0 || GetLength() == 0) return 0;
  int toCount = TextLength(to, -1);
  // Build the result in a new string, left to right, matches not
  // overlapping; `from` and `to` may point into this string.
  Ox_AString result;
  int replaced = 0, done = 0, hit;
  while ((hit = Find(from, done)) >= 0) {
    if (!AppendTo(result.m_text, m_text + done, hit - done) ||
        !AppendTo(result.m_text, to, toCount))
      return 0;  // out of memory: the string stays as it was
    done = hit + fromCount;
    ++replaced;
  }
  if (replaced == 0) return 0;
  if (!AppendTo(result.m_text, m_text + done, GetLength() - done)) return 0;
  *this = result;
  return replaced;
}

int Ox_AString::Replace(char from, char to) {
  int length = GetLength();
  int replaced = 0;
  for (int i = 0; i < length; ++i)
    if (m_text[i] == from) ++replaced;
  if (replaced == 0 || from == to) return replaced;
  char *units = AText::MakeWritable(m_text, length, false);
  if (!units) return 0;
  for (int i = 0; i < length; ++i)
    if (units[i] == from) units[i] = to;
  return replaced;
}

char *Ox_AString::GetSafeBuffer(int size) {
  int length = GetLength();
  if (size < 0) size = length;
  // The empty string gets a block of its own here, even for size 0.
  return AText::MakeWritable(m_text, size, false);
}

void Ox_AString::FreeExtra(int length) {
  if (!m_text) return;
  char *units = AText::MakeWritable(m_text, GetLength(), false);
  if (!units) return;
  int capacity = Head()->capacity;
  if (length < 0) length = static_cast<int>(strnlen(units, static_cast<size_t>(capacity)));
  if (length > capacity) length = capacity;
  if (length == 0) {
    Empty();
    return;
  }
  Head()->length = length;
  units[length] = '\0';
  AText::Shrink(m_text);
}

int Ox_AString::ConvertCodePageFrom(unsigned from, const char *text,
                                    int length, unsigned to) {
  int count = TextLength(text, length);
  if (count == 0) {
    Empty();
    return 0;
  }
  // The same page on both sides: a plain copy.
  if (ox_activecodepage(from) == ox_activecodepage(to)) {
    Set(text, count);
    return GetLength() == count ? count : -1;
  }
  // Otherwise through 16-bit text.
  Ox_WString units;
  if (ox_cp_decode(from, text, static_cast<size_t>(count), units) < 1) {
    Empty();
    return -1;
  }
  Ox_AString result;
  int written = ox_cp_encode(to, units.GetString(),
                             static_cast<size_t>(units.GetLength()), result);
  *this = result;
  return written < 1 ? -1 : written;
}
