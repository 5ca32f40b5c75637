// Ox_MD5Digest (RFC 1321) and Ox_SHA1Digest (FIPS 180-1): one-way digests
// of bytes, buffers and strings.
//
// The constructors zero the context without starting it: call Init before
// the first Update. The static Digest forms initialise by themselves. Copying copies
// the context.
//
// After Digest, an MD5 object's context is wiped with zeros, so it needs
// Init before its next use. A SHA-1 object keeps its final value: Digest
// can be repeated with the same result, while Update marks the object
// corrupted (3) and has no effect; a corrupted object's Digest writes no
// digest (the buffer form then holds 20 zero bytes).
#ifndef OX_DIGEST_H
#define OX_DIGEST_H

#include <cstddef>
#include <cstdint>

#include "Ox_Buffer.h"
#include "Ox_Export.h"
#include "Ox_String.h"

// The running state of an MD5 digest.
struct Ox_MD5Context {
  uint32_t state[4];         // chaining words A, B, C, D
  uint32_t count[2];         // message length in bits, low word first
  unsigned char buffer[64];  // bytes of the block being filled
};

// The running state of a SHA-1 digest.
struct Ox_SHA1Context {
  uint32_t intermediateHash[5];  // chaining words H0 to H4
  uint32_t lengthLow;            // message length in bits, low word
  uint32_t lengthHigh;           // and high word
  int messageBlockIndex;         // bytes in messageBlock
  unsigned char messageBlock[64];
  int computed;   // non-zero once the digest is final
  int corrupted;  // non-zero when the object no longer computes
};

// The members both digest classes share: the input forms, the one-shot
// digests and the comparison, written once over the engine of `Derived`
// (its Init, its Digest into raw bytes and its private Feed of bytes).
// Only the two instantiations below exist; the library provides them.
template <class Derived, int Size>
class OX_API Ox_DigestBase {
 public:
  enum { DIGEST_SIZE = Size };

  // Adds one byte; `len` bytes from `data + offset` (a negative offset
  // counts as 0); `len` bytes of a buffer from `offset` (a negative `len`
  // meaning up to its end; never past its end); the bytes of a string
  // without a terminator.
  void Update(unsigned char value);
  void Update(const unsigned char *data, int offset, int len);
  void Update(const Ox_Buffer &data, int offset, int len);
  void Update(const Ox_AString &text);
  // Finishes into `out` released and refilled with the raw digest bytes.
  void Digest(Ox_Buffer &out);

  // One-shot digests: raw bytes to a pointer or a buffer, or lower-case
  // hexadecimal digits (two per byte).
  static void Digest(unsigned char *const out, unsigned char value);
  static void Digest(unsigned char *const out, const unsigned char *data,
                     int offset, int len);
  static void Digest(unsigned char *const out, const Ox_Buffer &data,
                     int offset, int len);
  static void Digest(Ox_Buffer &out, unsigned char value);
  static void Digest(Ox_Buffer &out, const unsigned char *data, int offset,
                     int len);
  static void Digest(Ox_Buffer &out, const Ox_Buffer &data, int offset,
                     int len);
  static void Digest(Ox_Buffer &out, const Ox_AString &text);
  static void Digest(Ox_AString &out, unsigned char value);
  static void Digest(Ox_AString &out, const unsigned char *data, int offset,
                     int len);
  static void Digest(Ox_AString &out, const Ox_Buffer &data, int offset,
                     int len);
  static void Digest(Ox_AString &out, const Ox_AString &text);

  // 1 when every bit set in the DIGEST_SIZE bytes of `a` is set in `b` as
  // well, else 0. Not an equality test, and not symmetric. Bytes missing
  // from a short buffer read as zero.
  static int IsEqual(const unsigned char *a, const unsigned char *b);
  static int IsEqual(const Ox_Buffer &a, const Ox_Buffer &b);

 protected:
  Ox_DigestBase() = default;
  ~Ox_DigestBase() = default;

 private:
  Derived &Self() { return static_cast<Derived &>(*this); }
};

class OX_API Ox_MD5Digest : public Ox_DigestBase<Ox_MD5Digest, 16> {
 public:
  Ox_MD5Digest();
  virtual ~Ox_MD5Digest();

  // Start values.
  void Init();
  // Finishes into 16 bytes at `out`; the context is wiped afterwards (the
  // buffer form of the base as well).
  using Ox_DigestBase<Ox_MD5Digest, 16>::Digest;
  void Digest(unsigned char *const out);

 private:
  friend class Ox_DigestBase<Ox_MD5Digest, 16>;
  // Adds `len` bytes to the running digest.
  void Feed(const unsigned char *data, size_t len);

  Ox_MD5Context context;
};

class OX_API Ox_SHA1Digest : public Ox_DigestBase<Ox_SHA1Digest, 20> {
 public:
  Ox_SHA1Digest();
  virtual ~Ox_SHA1Digest();

  void Init();
  // Finishes into 20 bytes at `out`; the final value stays for further
  // calls. A corrupted object writes nothing (the buffer form of the base
  // then holds 20 zero bytes).
  using Ox_DigestBase<Ox_SHA1Digest, 20>::Digest;
  void Digest(unsigned char *const out);

 private:
  friend class Ox_DigestBase<Ox_SHA1Digest, 20>;
  // Adds `len` bytes, or marks the object corrupted after its digest.
  void Feed(const unsigned char *data, size_t len);

  Ox_SHA1Context context;
};

// Both instantiations are compiled once, in the library.
extern template class Ox_DigestBase<Ox_MD5Digest, 16>;
extern template class Ox_DigestBase<Ox_SHA1Digest, 20>;

#endif
