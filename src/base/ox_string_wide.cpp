// Ox_WString: 16-bit text (UTF-16 units) in the same shared blocks as
// Ox_AString.
#include <climits>
#include <cstring>

#include "Ox_String.h"
#include "base/ox_codepage_internal.h"
#include "base/ox_string_internal.h"

using ox_block::WText;

Ox_WString::Ox_WString(const Ox_WString &other) : m_text(other.m_text) {
  WText::AddRef(m_text);
}

Ox_WString::Ox_WString(const char16_t *text, int length) : m_text(nullptr) {
  Set(text, length);
}

Ox_WString::~Ox_WString() { WText::Release(m_text); }

Ox_WString &Ox_WString::operator=(const Ox_WString &other) {
  WText::Share(m_text, other.m_text);
  return *this;
}

void Ox_WString::Empty() { WText::Release(m_text); }

Ox_WString &Ox_WString::Set(const Ox_WString &other) { return *this = other; }

Ox_WString &Ox_WString::Set(const char16_t *text, int length) {
  int count = 0;
  if (text) {
    if (length >= 0) {
      count = length;
    } else {
      while (count < INT_MAX && text[count]) ++count;
    }
  }
  if (count == 0) {
    Empty();
    return *this;
  }
  // A fresh block: `text` may point into this string's own block.
  char16_t *units = WText::Copy(text, count);
  if (!units) return *this;
  WText::Release(m_text);
  m_text = units;
  return *this;
}

int Ox_WString::Set(const char *text, int length, unsigned codePage) {
  size_t size = 0;
  if (text) size = length >= 0 ? static_cast<size_t>(length) : strlen(text);
  // Decode into a new string first: `text` may be this string's own bytes.
  Ox_WString result;
  int count = ox_cp_decode(codePage, text, size, result);
  *this = result;
  return count;
}

char16_t *Ox_WString::GetSafeBuffer(int size) {
  if (size < 0) size = GetLength();
  return WText::MakeWritable(m_text, size, false);
}

void Ox_WString::FreeExtra(int length) {
  if (!m_text) return;
  char16_t *units = WText::MakeWritable(m_text, GetLength(), false);
  if (!units) return;
  int capacity = Head()->capacity;
  if (length < 0) {
    length = 0;
    while (length < capacity && units[length]) ++length;
  }
  if (length > capacity) length = capacity;
  if (length == 0) {
    Empty();
    return;
  }
  Head()->length = length;
  units[length] = u'\0';
  WText::Shrink(m_text);
}
