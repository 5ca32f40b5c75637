// Ox_Buffer: bytes in a shared block, copied on write.
#include <cstring>

#include "Ox_Buffer.h"
#include "base/ox_string_internal.h"

using ox_block::Bytes;

namespace {

// Sets the size of the block of `handle` to `size`, keeping the bytes in
// front and zeroing the new ones; the capacity grows by half at least, so
// that growing field by field costs amortised O(1). -1 when memory runs out.
long Resize(unsigned char *&handle, long size) {
  if (size < 0) return -1;
  long old = handle ? Bytes::HeadOf(handle)->size : 0;
  unsigned char *data = Bytes::MakeWritable(handle, size, true);
  if (!data) return -1;
  if (size > old) memset(data + old, 0, static_cast<size_t>(size - old));
  Bytes::HeadOf(data)->size = size;
  data[size] = 0;
  return size;
}

}  // namespace

Ox_Buffer::Ox_Buffer(const Ox_Buffer &other) : m_data(other.m_data) {
  Bytes::AddRef(m_data);
}

Ox_Buffer::~Ox_Buffer() { Bytes::Release(m_data); }

Ox_Buffer &Ox_Buffer::operator=(const Ox_Buffer &other) {
  Bytes::Share(m_data, other.m_data);
  return *this;
}

void Ox_Buffer::Set(const Ox_Buffer &other) { *this = other; }

void Ox_Buffer::Set(const unsigned char *data, long size) {
  if (!data || size <= 0) {
    Release();
    return;
  }
  // A fresh block: `data` may lie in this buffer's own block.
  unsigned char *copy = Bytes::Copy(data, size);
  if (!copy) return;
  Bytes::Release(m_data);
  m_data = copy;
}

long Ox_Buffer::Append(const unsigned char *data, long size) {
  long old = GetSize();
  if (!data || size <= 0) return old;
  if (size > Bytes::MaxCapacity() - old) return -1;
  // Hold a share of the block while `data` may lie in it and it moves.
  unsigned char *keep = nullptr;
  if (m_data && ox_block::PointsInto(data, m_data, Head()->capacity)) {
    keep = m_data;
    Bytes::AddRef(keep);
  }
  long result = Resize(m_data, old + size);
  if (result >= 0) memcpy(m_data + old, data, static_cast<size_t>(size));
  Bytes::Release(keep);
  return result;
}

long Ox_Buffer::AppendStr(const char *text) {
  if (!text) return GetSize();
  return Append(reinterpret_cast<const unsigned char *>(text),
                static_cast<long>(strlen(text)));
}

unsigned char *Ox_Buffer::GetSafeBuffer(long size) {
  if (size < 0) size = GetSize();
  if (Resize(m_data, size) < 0) return nullptr;
  return m_data;
}

long Ox_Buffer::AddSize(long count) {
  long size = GetSize();
  if (count > Bytes::MaxCapacity() - size) return -1;
  size += count;
  return Resize(m_data, size < 0 ? 0 : size);
}

long Ox_Buffer::SetSize(long size) { return Resize(m_data, size); }

void Ox_Buffer::Release() { Bytes::Release(m_data); }

Ox_AString Ox_Buffer::EncodeBase64() const {
  static const char kAlphabet[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  long size = GetSize();
  Ox_AString result;
  if (size == 0) return result;
  // 3 bytes give 4 characters; the last group is padded with '='.
  long groups = (size + 2) / 3;
  if (groups > 0x7FFFFFF0L / 4) return result;
  char *out = result.GetSafeBuffer(static_cast<int>(groups * 4));
  if (!out) return result;
  long n = 0;
  for (long i = 0; i < size; i += 3) {
    unsigned long bits = static_cast<unsigned long>(m_data[i]) << 16;
    if (i + 1 < size) bits |= static_cast<unsigned long>(m_data[i + 1]) << 8;
    if (i + 2 < size) bits |= m_data[i + 2];
    out[n++] = kAlphabet[(bits >> 18) & 63];
    out[n++] = kAlphabet[(bits >> 12) & 63];
    out[n++] = i + 1 < size ? kAlphabet[(bits >> 6) & 63] : '=';
    out[n++] = i + 2 < size ? kAlphabet[bits & 63] : '=';
  }
  result.FreeExtra(static_cast<int>(n));
  return result;
}
