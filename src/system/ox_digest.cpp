// The members Ox_MD5Digest and Ox_SHA1Digest share (Ox_DigestBase): the
// input forms, the one-shot digests and the comparison, and the helpers
// both engines use.
#include <cstring>

#include "Ox_Digest.h"
#include "system/ox_digest_internal.h"

// ---------------------------------------------------------------------------
// Shared helpers

void OxDigestBufferRange(const Ox_Buffer &data, int offset, int len,
                         const unsigned char **begin, size_t *count) {
  *begin = nullptr;
  *count = 0;
  const long size = data.GetSize();
  if (offset < 0) offset = 0;
  if (offset >= size) return;
  const long rest = size - offset;
  const long n = (len < 0 || len > rest) ? rest : len;
  if (n <= 0) return;
  *begin = data.GetData() + offset;
  *count = static_cast<size_t>(n);
}

int OxDigestContains(const unsigned char *a, long aSize,
                     const unsigned char *b, long bSize, int size) {
  // Gives 0 at the first byte where a & b differs from a: every bit set in
  // `a` must be set in `b`.
  for (int i = 0; i < size; i++) {
    const unsigned char x = i < aSize ? a[i] : 0;
    const unsigned char y = i < bSize ? b[i] : 0;
    if ((x & y) != x) return 0;
  }
  return 1;
}

namespace {

// `out` released, then holding the raw `size` bytes.
void PutBuffer(Ox_Buffer &out, const unsigned char *digest, int size) {
  out.Release();
  unsigned char *p = out.GetSafeBuffer(size);
  if (p) std::memcpy(p, digest, static_cast<size_t>(size));
}

// Two lower-case hexadecimal digits per byte.
void HexText(Ox_AString &out, const unsigned char *digest, int size) {
  static const char kDigits[] = "0123456789abcdef";
  char text[2 * 64 + 1];
  for (int i = 0; i < size; i++) {
    text[2 * i] = kDigits[digest[i] >> 4];
    text[2 * i + 1] = kDigits[digest[i] & 0x0F];
  }
  text[2 * size] = '\0';
  out = text;
}

// Writes a finished digest to its output: the raw bytes into a buffer,
// hexadecimal digits into a text.
void Emit(Ox_Buffer &out, const unsigned char *digest, int size) {
  PutBuffer(out, digest, size);
}
void Emit(Ox_AString &out, const unsigned char *digest, int size) {
  HexText(out, digest, size);
}

}  // namespace

// ---------------------------------------------------------------------------
// Input forms

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Update(unsigned char value) {
  Self().Feed(&value, 1);
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Update(const unsigned char *data,
                                          int offset, int len) {
  if (!data || len <= 0) return;
  if (offset < 0) offset = 0;
  Self().Feed(data + offset, static_cast<size_t>(len));
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Update(const Ox_Buffer &data, int offset,
                                          int len) {
  const unsigned char *begin;
  size_t count;
  OxDigestBufferRange(data, offset, len, &begin, &count);
  if (begin) Self().Feed(begin, count);
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Update(const Ox_AString &text) {
  Self().Feed(reinterpret_cast<const unsigned char *>(text.GetString()),
              static_cast<size_t>(text.GetLength()));
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_Buffer &out) {
  // Zeros stay where the engine writes no digest (a corrupted SHA-1).
  unsigned char digest[Size] = {0};
  Self().Digest(digest);
  Emit(out, digest, Size);
}

// ---------------------------------------------------------------------------
// One-shot digests: a fresh object, started, fed once and finished. The
// buffer and text forms compute into a local array first, so `data` may be
// `out` itself.

namespace {

// The digest of what `feed` gives a fresh, started object, as raw bytes at
// `out` (none for a null `out`).
template <class Derived, class Feed>
void OneShot(unsigned char *const out, Feed feed) {
  Derived d;
  d.Init();
  feed(d);
  d.Digest(out);
}

// The same into a buffer or a text.
template <class Derived, int Size, class Out, class Feed>
void OneShotTo(Out &out, Feed feed) {
  unsigned char digest[Size];
  OneShot<Derived>(digest, feed);
  Emit(out, digest, Size);
}

}  // namespace

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(unsigned char *const out,
                                          unsigned char value) {
  OneShot<Derived>(out, [&](Derived &d) { d.Update(value); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(unsigned char *const out,
                                          const unsigned char *data,
                                          int offset, int len) {
  OneShot<Derived>(out, [&](Derived &d) { d.Update(data, offset, len); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(unsigned char *const out,
                                          const Ox_Buffer &data, int offset,
                                          int len) {
  OneShot<Derived>(out, [&](Derived &d) { d.Update(data, offset, len); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_Buffer &out,
                                          unsigned char value) {
  OneShotTo<Derived, Size>(out, [&](Derived &d) { d.Update(value); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_Buffer &out,
                                          const unsigned char *data,
                                          int offset, int len) {
  OneShotTo<Derived, Size>(out,
                           [&](Derived &d) { d.Update(data, offset, len); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_Buffer &out,
                                          const Ox_Buffer &data, int offset,
                                          int len) {
  OneShotTo<Derived, Size>(out,
                           [&](Derived &d) { d.Update(data, offset, len); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_Buffer &out,
                                          const Ox_AString &text) {
  OneShotTo<Derived, Size>(out, [&](Derived &d) { d.Update(text); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_AString &out,
                                          unsigned char value) {
  OneShotTo<Derived, Size>(out, [&](Derived &d) { d.Update(value); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_AString &out,
                                          const unsigned char *data,
                                          int offset, int len) {
  OneShotTo<Derived, Size>(out,
                           [&](Derived &d) { d.Update(data, offset, len); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_AString &out,
                                          const Ox_Buffer &data, int offset,
                                          int len) {
  OneShotTo<Derived, Size>(out,
                           [&](Derived &d) { d.Update(data, offset, len); });
}

template <class Derived, int Size>
void Ox_DigestBase<Derived, Size>::Digest(Ox_AString &out,
                                          const Ox_AString &text) {
  OneShotTo<Derived, Size>(out, [&](Derived &d) { d.Update(text); });
}

// ---------------------------------------------------------------------------
// Comparison

template <class Derived, int Size>
int Ox_DigestBase<Derived, Size>::IsEqual(const unsigned char *a,
                                          const unsigned char *b) {
  return OxDigestContains(a, a ? Size : 0, b, b ? Size : 0, Size);
}

template <class Derived, int Size>
int Ox_DigestBase<Derived, Size>::IsEqual(const Ox_Buffer &a,
                                          const Ox_Buffer &b) {
  return OxDigestContains(a.GetData(), a.GetSize(), b.GetData(), b.GetSize(),
                          Size);
}

template class Ox_DigestBase<Ox_MD5Digest, 16>;
template class Ox_DigestBase<Ox_SHA1Digest, 20>;
