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

class OX_API Ox_MD5Digest {
 public:
  enum { DIGEST_SIZE = 16 };

  Ox_MD5Digest();
  virtual ~Ox_MD5Digest();

  // Start values.
  void Init();
  // Adds one byte; `len` bytes from `data + offset` (a negative offset
  // counts as 0); `len` bytes of a buffer from `offset` (a negative `len`
  // meaning up to its end; never past its end); the bytes of a string
  // without a terminator.
  void Update(unsigned char value);
  void Update(const unsigned char *data, int offset, int len);
  void Update(const Ox_Buffer &data, int offset, int len);
  void Update(const Ox_AString &text);
  // Finishes into 16 bytes at `out`, or into `out` released and refilled
  // with the raw 16 bytes; the context is wiped afterwards.
  void Digest(unsigned char *const out);
  void Digest(Ox_Buffer &out);

  // One-shot digests: raw bytes to a pointer or a buffer, or 32 lower-case
  // hexadecimal digits.
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

  // 1 when every bit set in the 16 bytes of `a` is set in `b` as well,
  // else 0. Not an equality test, and not symmetric. Bytes missing from a
  // short buffer read as zero.
  static int IsEqual(const unsigned char *a, const unsigned char *b);
  static int IsEqual(const Ox_Buffer &a, const Ox_Buffer &b);

 private:
  Ox_MD5Context context;
};

class OX_API Ox_SHA1Digest {
 public:
  enum { DIGEST_SIZE = 20 };

  Ox_SHA1Digest();
  virtual ~Ox_SHA1Digest();

  void Init();
  // As Ox_MD5Digest::Update.
  void Update(unsigned char value);
  void Update(const unsigned char *data, int offset, int len);
  void Update(const Ox_Buffer &data, int offset, int len);
  void Update(const Ox_AString &text);
  // Finishes into 20 bytes at `out`, or into `out` released and refilled
  // with the raw 20 bytes; the final value stays for further calls.
  void Digest(unsigned char *const out);
  void Digest(Ox_Buffer &out);

  // One-shot digests, as Ox_MD5Digest's; the text has 40 digits.
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

  // As Ox_MD5Digest::IsEqual, over 20 bytes.
  static int IsEqual(const unsigned char *a, const unsigned char *b);
  static int IsEqual(const Ox_Buffer &a, const Ox_Buffer &b);

 private:
  Ox_SHA1Context context;
};

#endif
