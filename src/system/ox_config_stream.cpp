// The binary form of a configuration (Ox_ConfigSectionList::SaveToStream and
// LoadFromStream).
//
// Sections follow one another with no header or count in front. Integers are
// 4 bytes, big-endian:
//   item count | name length | name bytes | items...
// and each item is a length followed by that many bytes "key=value".
#include <cstring>

#include "Ox_Config.h"

namespace {

constexpr long kIntSize = 4;

void PutInt(unsigned char *to, long value) {
  unsigned long bits = static_cast<unsigned long>(value) & 0xFFFFFFFFul;
  to[0] = static_cast<unsigned char>(bits >> 24);
  to[1] = static_cast<unsigned char>(bits >> 16);
  to[2] = static_cast<unsigned char>(bits >> 8);
  to[3] = static_cast<unsigned char>(bits);
}

// A signed 32-bit value: lengths with the top bit set read as negative.
int GetInt(const unsigned char *from) {
  unsigned bits = (static_cast<unsigned>(from[0]) << 24) |
                  (static_cast<unsigned>(from[1]) << 16) |
                  (static_cast<unsigned>(from[2]) << 8) |
                  static_cast<unsigned>(from[3]);
  return static_cast<int>(bits);
}

// The bytes one section takes in the binary form.
long SectionSize(const Ox_ConfigSection &section) {
  long size = 2 * kIntSize + section.id.GetLength();
  for (int j = 0; j < section.Count(); ++j) {
    const Ox_NamedStr *item = section.GetItem(j);
    if (item) size += kIntSize + item->id.GetLength() + 1 + item->str.GetLength();
  }
  return size;
}

}  // namespace

int Ox_ConfigSectionList::SaveToStream(Ox_Buffer &buffer) const {
  // The form is written from offset 0 on, into a buffer that is expected to
  // be empty: whatever it held is dropped. The size is summed first and the
  // buffer sized once, which gives the same bytes as growing it field by
  // field.
  long total = 0;
  for (int i = 0; i < Count(); ++i) {
    const Ox_ConfigSection *section = GetItems(i);
    if (section) total += SectionSize(*section);
  }
  buffer.SetSize(0);
  if (total == 0) return Count();
  unsigned char *out = buffer.GetSafeBuffer(total);
  if (!out || buffer.GetSize() != total) return -1;

  long at = 0;
  for (int i = 0; i < Count(); ++i) {
    const Ox_ConfigSection *section = GetItems(i);
    if (!section) continue;  // a missing section writes nothing
    // Item count, name length, name.
    PutInt(out + at, section->Count());
    at += kIntSize;
    long nameLength = section->id.GetLength();
    PutInt(out + at, nameLength);
    at += kIntSize;
    memcpy(out + at, section->id.GetString(), static_cast<size_t>(nameLength));
    at += nameLength;
    // Each item: its length, then key, '=', value.
    for (int j = 0; j < section->Count(); ++j) {
      const Ox_NamedStr *item = section->GetItem(j);
      if (!item) continue;
      long keyLength = item->id.GetLength();
      long valueLength = item->str.GetLength();
      PutInt(out + at, keyLength + 1 + valueLength);
      at += kIntSize;
      memcpy(out + at, item->id.GetString(), static_cast<size_t>(keyLength));
      at += keyLength;
      out[at++] = '=';
      memcpy(out + at, item->str.GetString(), static_cast<size_t>(valueLength));
      at += valueLength;
    }
  }
  return Count();
}

int Ox_ConfigSectionList::LoadFromStream(Ox_Buffer &buffer) {
  ReleaseList();
  const unsigned char *data = buffer.GetData();
  const long size = buffer.GetSize();
  long at = 0;
  // The working name: a section with a name length of 0 or less takes the
  // name of the one before, and so lands in it (AddSection answers 0 for a
  // name already present).
  Ox_AString name;

  while (size - at >= kIntSize) {
    // Item count, then name length; fewer than 4 bytes left ends the load.
    int items = GetInt(data + at);
    at += kIntSize;
    if (size - at < kIntSize) break;
    int nameLength = GetInt(data + at);
    at += kIntSize;
    if (nameLength > 0) {
      if (nameLength > size - at) {  // runs past the end
        ReleaseList();
        return -1;
      }
      name.Set(reinterpret_cast<const char *>(data + at), nameLength);
      at += nameLength;
    }
    Ox_ConfigSection *section = GetSafeItems(AddSection(name));

    // The items, while their lengths can be read; a negative length stands
    // for no bytes at all.
    for (int j = 0; j < items && size - at >= kIntSize; ++j) {
      int length = GetInt(data + at);
      at += kIntSize;
      if (length < 0) continue;
      if (length > size - at) {  // runs past the end
        ReleaseList();
        return -1;
      }
      const char *text = reinterpret_cast<const char *>(data + at);
      at += length;
      // Key before the first '=', value behind it; without one, the whole
      // text is the key.
      const char *equals = static_cast<const char *>(
          memchr(text, '=', static_cast<size_t>(length)));
      int keyLength = equals ? static_cast<int>(equals - text) : length;
      int valueStart = equals ? keyLength + 1 : length;
      if (section)
        section->AddItem(Ox_AString(text, keyLength),
                         Ox_AString(text + valueStart, length - valueStart));
    }
    if (at >= size) break;
  }
  return Count();
}
