// Ox_SHA1Digest: SHA-1 as FIPS 180-1 defines it, with the context and the
// result rules of the RFC 3174 structure (a final value that stays, and a
// corrupted mark for input after it).
#include <cstring>

#include "Ox_Digest.h"
#include "system/ox_digest_internal.h"

namespace {

// Context marks: the message passed 2^64 bits, or input came after the
// digest was made.
constexpr int kShaInputTooLong = 1;
constexpr int kShaStateError = 3;

inline uint32_t Rotl(uint32_t x, int n) { return (x << n) | (x >> (32 - n)); }

inline uint32_t LoadBe32(const unsigned char *p) {
  return uint32_t(p[0]) << 24 | uint32_t(p[1]) << 16 | uint32_t(p[2]) << 8 |
         uint32_t(p[3]);
}

inline void StoreBe32(unsigned char *p, uint32_t v) {
  p[0] = static_cast<unsigned char>(v >> 24);
  p[1] = static_cast<unsigned char>(v >> 16);
  p[2] = static_cast<unsigned char>(v >> 8);
  p[3] = static_cast<unsigned char>(v);
}

// Round functions in forms with fewer operations that give the same bits:
// Ch = (b & c) | (~b & d), Maj = (b & c) | (b & d) | (c & d).
#define OX_SHA1_CH(b, c, d) ((d) ^ ((b) & ((c) ^ (d))))
#define OX_SHA1_PARITY(b, c, d) ((b) ^ (c) ^ (d))
#define OX_SHA1_MAJ(b, c, d) (((b) & (c)) | ((d) & ((b) | (c))))

// The 16 most recent schedule words live in a ring of 16.
#define OX_SHA1_W(t) w[(t)&15]
#define OX_SHA1_WNEXT(t)                                                  \
  (w[(t)&15] = Rotl(w[((t) + 13) & 15] ^ w[((t) + 8) & 15] ^              \
                        w[((t) + 2) & 15] ^ w[(t)&15],                    \
                    1))

// One round with the variables renamed instead of moved: E takes the new
// value, B is rotated, and the next round names them one place on.
#define OX_SHA1_ROUND(a, b, c, d, e, f, k, word)     \
  e += Rotl(a, 5) + f(b, c, d) + (k) + (word);       \
  b = Rotl(b, 30)

#define OX_SHA1_FIVE(f, k, W, t)                  \
  OX_SHA1_ROUND(a, b, c, d, e, f, k, W(t));       \
  OX_SHA1_ROUND(e, a, b, c, d, f, k, W(t + 1));   \
  OX_SHA1_ROUND(d, e, a, b, c, f, k, W(t + 2));   \
  OX_SHA1_ROUND(c, d, e, a, b, f, k, W(t + 3));   \
  OX_SHA1_ROUND(b, c, d, e, a, f, k, W(t + 4))

constexpr uint32_t kK0 = 0x5A827999;
constexpr uint32_t kK1 = 0x6ED9EBA1;
constexpr uint32_t kK2 = 0x8F1BBCDC;
constexpr uint32_t kK3 = 0xCA62C1D6;

}  // namespace

void OxSha1BlocksPortable(uint32_t state[5], const unsigned char *data,
                          size_t blocks) {
  uint32_t a = state[0], b = state[1], c = state[2], d = state[3],
           e = state[4];
  for (; blocks > 0; blocks--, data += 64) {
    uint32_t w[16];
    for (int t = 0; t < 16; t++) w[t] = LoadBe32(data + 4 * t);
    const uint32_t aa = a, bb = b, cc = c, dd = d, ee = e;
    // Rounds 0-15 on the block's own words, 16-79 on the schedule.
    OX_SHA1_FIVE(OX_SHA1_CH, kK0, OX_SHA1_W, 0);
    OX_SHA1_FIVE(OX_SHA1_CH, kK0, OX_SHA1_W, 5);
    OX_SHA1_FIVE(OX_SHA1_CH, kK0, OX_SHA1_W, 10);
    OX_SHA1_ROUND(a, b, c, d, e, OX_SHA1_CH, kK0, OX_SHA1_W(15));
    OX_SHA1_ROUND(e, a, b, c, d, OX_SHA1_CH, kK0, OX_SHA1_WNEXT(16));
    OX_SHA1_ROUND(d, e, a, b, c, OX_SHA1_CH, kK0, OX_SHA1_WNEXT(17));
    OX_SHA1_ROUND(c, d, e, a, b, OX_SHA1_CH, kK0, OX_SHA1_WNEXT(18));
    OX_SHA1_ROUND(b, c, d, e, a, OX_SHA1_CH, kK0, OX_SHA1_WNEXT(19));
    OX_SHA1_FIVE(OX_SHA1_PARITY, kK1, OX_SHA1_WNEXT, 20);
    OX_SHA1_FIVE(OX_SHA1_PARITY, kK1, OX_SHA1_WNEXT, 25);
    OX_SHA1_FIVE(OX_SHA1_PARITY, kK1, OX_SHA1_WNEXT, 30);
    OX_SHA1_FIVE(OX_SHA1_PARITY, kK1, OX_SHA1_WNEXT, 35);
    OX_SHA1_FIVE(OX_SHA1_MAJ, kK2, OX_SHA1_WNEXT, 40);
    OX_SHA1_FIVE(OX_SHA1_MAJ, kK2, OX_SHA1_WNEXT, 45);
    OX_SHA1_FIVE(OX_SHA1_MAJ, kK2, OX_SHA1_WNEXT, 50);
    OX_SHA1_FIVE(OX_SHA1_MAJ, kK2, OX_SHA1_WNEXT, 55);
    OX_SHA1_FIVE(OX_SHA1_PARITY, kK3, OX_SHA1_WNEXT, 60);
    OX_SHA1_FIVE(OX_SHA1_PARITY, kK3, OX_SHA1_WNEXT, 65);
    OX_SHA1_FIVE(OX_SHA1_PARITY, kK3, OX_SHA1_WNEXT, 70);
    OX_SHA1_FIVE(OX_SHA1_PARITY, kK3, OX_SHA1_WNEXT, 75);
    a += aa;
    b += bb;
    c += cc;
    d += dd;
    e += ee;
  }
  state[0] = a;
  state[1] = b;
  state[2] = c;
  state[3] = d;
  state[4] = e;
}

void OxSha1Blocks(uint32_t state[5], const unsigned char *data,
                  size_t blocks) {
  if (blocks == 0) return;
  if (OxSha1HasShaExtensions())
    OxSha1BlocksShaExt(state, data, blocks);
  else
    OxSha1BlocksPortable(state, data, blocks);
}

namespace {

// Adds `len` bytes: nothing for none; after the digest was made, only the
// corrupted mark. Whole blocks go straight from the input.
void Sha1Input(Ox_SHA1Context &ctx, const unsigned char *data, size_t len) {
  if (len == 0) return;
  if (ctx.computed) {
    ctx.corrupted = kShaStateError;
    return;
  }
  if (ctx.corrupted) return;
  // The bit count, as two words; past 2^64 bits the message is refused.
  const uint64_t before =
      static_cast<uint64_t>(ctx.lengthHigh) << 32 | ctx.lengthLow;
  const uint64_t bits = static_cast<uint64_t>(len) << 3;
  if ((static_cast<uint64_t>(len) >> 61) != 0 || before + bits < before) {
    ctx.corrupted = kShaInputTooLong;
    return;
  }
  ctx.lengthLow = static_cast<uint32_t>(before + bits);
  ctx.lengthHigh = static_cast<uint32_t>((before + bits) >> 32);

  size_t index = static_cast<size_t>(ctx.messageBlockIndex);
  if (index > 0) {
    const size_t take = len < 64 - index ? len : 64 - index;
    std::memcpy(ctx.messageBlock + index, data, take);
    index += take;
    data += take;
    len -= take;
    if (index < 64) {
      ctx.messageBlockIndex = static_cast<int>(index);
      return;
    }
    OxSha1Blocks(ctx.intermediateHash, ctx.messageBlock, 1);
  }
  const size_t blocks = len / 64;
  OxSha1Blocks(ctx.intermediateHash, data, blocks);
  const size_t rest = len - blocks * 64;
  std::memcpy(ctx.messageBlock, data + blocks * 64, rest);
  ctx.messageBlockIndex = static_cast<int>(rest);
}

// Pads the last block: a 1 bit, zeros, and the 64-bit length, big-endian.
void Sha1PadMessage(Ox_SHA1Context &ctx) {
  int index = ctx.messageBlockIndex;
  ctx.messageBlock[index++] = 0x80;
  if (index > 56) {  // no room for the length: one more block
    std::memset(ctx.messageBlock + index, 0, 64 - index);
    OxSha1Blocks(ctx.intermediateHash, ctx.messageBlock, 1);
    index = 0;
  }
  std::memset(ctx.messageBlock + index, 0, 56 - index);
  StoreBe32(ctx.messageBlock + 56, ctx.lengthHigh);
  StoreBe32(ctx.messageBlock + 60, ctx.lengthLow);
  OxSha1Blocks(ctx.intermediateHash, ctx.messageBlock, 1);
  ctx.messageBlockIndex = 0;
}

// Writes the digest; false (nothing written) for a corrupted context. The
// first call pads and wipes block and count; later calls repeat the value.
bool Sha1Result(Ox_SHA1Context &ctx, unsigned char digest[20]) {
  if (ctx.corrupted) return false;
  if (!ctx.computed) {
    Sha1PadMessage(ctx);
    std::memset(ctx.messageBlock, 0, sizeof ctx.messageBlock);
    ctx.lengthLow = 0;
    ctx.lengthHigh = 0;
    ctx.computed = 1;
  }
  for (int i = 0; i < 5; i++) StoreBe32(digest + 4 * i, ctx.intermediateHash[i]);
  return true;
}

}  // namespace

// The context is zeroed, not started: Init gives the start values.
Ox_SHA1Digest::Ox_SHA1Digest() { std::memset(&context, 0, sizeof context); }

Ox_SHA1Digest::~Ox_SHA1Digest() {}

void Ox_SHA1Digest::Init() {
  context.lengthLow = 0;
  context.lengthHigh = 0;
  context.messageBlockIndex = 0;
  context.intermediateHash[0] = 0x67452301;
  context.intermediateHash[1] = 0xEFCDAB89;
  context.intermediateHash[2] = 0x98BADCFE;
  context.intermediateHash[3] = 0x10325476;
  context.intermediateHash[4] = 0xC3D2E1F0;
  context.computed = 0;
  context.corrupted = 0;
}

void Ox_SHA1Digest::Feed(const unsigned char *data, size_t len) {
  Sha1Input(context, data, len);
}

void Ox_SHA1Digest::Digest(unsigned char *const out) {
  unsigned char digest[DIGEST_SIZE];
  if (Sha1Result(context, digest) && out)
    std::memcpy(out, digest, DIGEST_SIZE);
}
