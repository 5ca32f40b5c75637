// SHA-1 compression on the processor's SHA instructions, where it has them.
// Four rounds go per instruction; the message schedule runs alongside in
// the same registers. The result is bit for bit that of the portable form.
#include "system/ox_digest_internal.h"

#if defined(__x86_64__) || defined(__i386__)

#include <cpuid.h>
#include <immintrin.h>

bool OxSha1HasShaExtensions() {
  static const bool has = [] {
    unsigned a, b, c, d;
    if (!__get_cpuid(1, &a, &b, &c, &d)) return false;
    const bool ssse3 = (c & (1u << 9)) != 0;
    const bool sse41 = (c & (1u << 19)) != 0;
    if (!__get_cpuid_count(7, 0, &a, &b, &c, &d)) return false;
    const bool sha = (b & (1u << 29)) != 0;
    return ssse3 && sse41 && sha;
  }();
  return has;
}

// One group of four rounds. `eIn` holds E plus the group's message words
// (made by sha1nexte from the previous group's A), `eOut` saves the A that
// the next group needs, and `f` picks the round function and constant.
#define OX_SHA1_GROUP(eIn, eOut, msg, f)   \
  eIn = _mm_sha1nexte_epu32(eIn, msg);     \
  eOut = abcd;                             \
  abcd = _mm_sha1rnds4_epu32(abcd, eIn, f)

// Message schedule steps: w[t] = rol1(w[t-3] ^ w[t-8] ^ w[t-14] ^ w[t-16])
// in three parts spread over the groups.
#define OX_SHA1_MSG1(m, next) m = _mm_sha1msg1_epu32(m, next)
#define OX_SHA1_XOR(m, next) m = _mm_xor_si128(m, next)
#define OX_SHA1_MSG2(m, prev) m = _mm_sha1msg2_epu32(m, prev)

__attribute__((target("sha,sse4.1,ssse3"))) void OxSha1BlocksShaExt(
    uint32_t state[5], const unsigned char *data, size_t blocks) {
  const __m128i byteSwap =
      _mm_set_epi64x(0x0001020304050607LL, 0x08090a0b0c0d0e0fLL);
  __m128i abcd = _mm_loadu_si128(reinterpret_cast<const __m128i *>(state));
  abcd = _mm_shuffle_epi32(abcd, 0x1B);  // A in the highest lane
  __m128i e0 = _mm_set_epi32(static_cast<int>(state[4]), 0, 0, 0);
  __m128i e1;

  for (; blocks > 0; blocks--, data += 64) {
    const __m128i abcdSave = abcd;
    const __m128i eSave = e0;
    const __m128i *in = reinterpret_cast<const __m128i *>(data);
    __m128i m0 = _mm_shuffle_epi8(_mm_loadu_si128(in + 0), byteSwap);
    __m128i m1 = _mm_shuffle_epi8(_mm_loadu_si128(in + 1), byteSwap);
    __m128i m2 = _mm_shuffle_epi8(_mm_loadu_si128(in + 2), byteSwap);
    __m128i m3 = _mm_shuffle_epi8(_mm_loadu_si128(in + 3), byteSwap);

    // Rounds 0-3: E plus the first words, without the rotation of A.
    e0 = _mm_add_epi32(e0, m0);
    e1 = abcd;
    abcd = _mm_sha1rnds4_epu32(abcd, e0, 0);
    // Rounds 4-15.
    OX_SHA1_GROUP(e1, e0, m1, 0);
    OX_SHA1_MSG1(m0, m1);
    OX_SHA1_GROUP(e0, e1, m2, 0);
    OX_SHA1_MSG1(m1, m2);
    OX_SHA1_XOR(m0, m2);
    OX_SHA1_MSG2(m0, m3);
    OX_SHA1_GROUP(e1, e0, m3, 0);
    OX_SHA1_MSG1(m2, m3);
    OX_SHA1_XOR(m1, m3);
    // Rounds 16-63: groups 4 to 15, each completing the next words.
    OX_SHA1_MSG2(m1, m0);
    OX_SHA1_GROUP(e0, e1, m0, 0);  // group 4
    OX_SHA1_MSG1(m3, m0);
    OX_SHA1_XOR(m2, m0);
    OX_SHA1_MSG2(m2, m1);
    OX_SHA1_GROUP(e1, e0, m1, 1);  // group 5
    OX_SHA1_MSG1(m0, m1);
    OX_SHA1_XOR(m3, m1);
    OX_SHA1_MSG2(m3, m2);
    OX_SHA1_GROUP(e0, e1, m2, 1);  // group 6
    OX_SHA1_MSG1(m1, m2);
    OX_SHA1_XOR(m0, m2);
    OX_SHA1_MSG2(m0, m3);
    OX_SHA1_GROUP(e1, e0, m3, 1);  // group 7
    OX_SHA1_MSG1(m2, m3);
    OX_SHA1_XOR(m1, m3);
    OX_SHA1_MSG2(m1, m0);
    OX_SHA1_GROUP(e0, e1, m0, 1);  // group 8
    OX_SHA1_MSG1(m3, m0);
    OX_SHA1_XOR(m2, m0);
    OX_SHA1_MSG2(m2, m1);
    OX_SHA1_GROUP(e1, e0, m1, 1);  // group 9
    OX_SHA1_MSG1(m0, m1);
    OX_SHA1_XOR(m3, m1);
    OX_SHA1_MSG2(m3, m2);
    OX_SHA1_GROUP(e0, e1, m2, 2);  // group 10
    OX_SHA1_MSG1(m1, m2);
    OX_SHA1_XOR(m0, m2);
    OX_SHA1_MSG2(m0, m3);
    OX_SHA1_GROUP(e1, e0, m3, 2);  // group 11
    OX_SHA1_MSG1(m2, m3);
    OX_SHA1_XOR(m1, m3);
    OX_SHA1_MSG2(m1, m0);
    OX_SHA1_GROUP(e0, e1, m0, 2);  // group 12
    OX_SHA1_MSG1(m3, m0);
    OX_SHA1_XOR(m2, m0);
    OX_SHA1_MSG2(m2, m1);
    OX_SHA1_GROUP(e1, e0, m1, 2);  // group 13
    OX_SHA1_MSG1(m0, m1);
    OX_SHA1_XOR(m3, m1);
    OX_SHA1_MSG2(m3, m2);
    OX_SHA1_GROUP(e0, e1, m2, 2);  // group 14
    OX_SHA1_MSG1(m1, m2);
    OX_SHA1_XOR(m0, m2);
    OX_SHA1_MSG2(m0, m3);
    OX_SHA1_GROUP(e1, e0, m3, 3);  // group 15
    OX_SHA1_MSG1(m2, m3);
    OX_SHA1_XOR(m1, m3);
    // Rounds 64-79: the last words need no successors.
    OX_SHA1_MSG2(m1, m0);
    OX_SHA1_GROUP(e0, e1, m0, 3);  // group 16
    OX_SHA1_MSG1(m3, m0);
    OX_SHA1_XOR(m2, m0);
    OX_SHA1_MSG2(m2, m1);
    OX_SHA1_GROUP(e1, e0, m1, 3);  // group 17
    OX_SHA1_XOR(m3, m1);
    OX_SHA1_MSG2(m3, m2);
    OX_SHA1_GROUP(e0, e1, m2, 3);  // group 18
    OX_SHA1_GROUP(e1, e0, m3, 3);  // group 19

    // Add the block's result to the chaining value.
    e0 = _mm_sha1nexte_epu32(e0, eSave);
    abcd = _mm_add_epi32(abcd, abcdSave);
  }

  abcd = _mm_shuffle_epi32(abcd, 0x1B);
  _mm_storeu_si128(reinterpret_cast<__m128i *>(state), abcd);
  state[4] = static_cast<uint32_t>(_mm_extract_epi32(e0, 3));
}

#else  // no SHA instructions on this processor family

bool OxSha1HasShaExtensions() { return false; }

void OxSha1BlocksShaExt(uint32_t state[5], const unsigned char *data,
                        size_t blocks) {
  OxSha1BlocksPortable(state, data, blocks);
}

#endif
