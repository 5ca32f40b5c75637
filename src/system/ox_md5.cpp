// Ox_MD5Digest: MD5 as RFC 1321 defines it.
#include <cstring>

#include "Ox_Digest.h"
#include "system/ox_digest_internal.h"

// ---------------------------------------------------------------------------
// The MD5 compression function, its 64 steps written out.

namespace {

inline uint32_t Rotl(uint32_t x, int n) { return (x << n) | (x >> (32 - n)); }

inline uint32_t LoadLe32(const unsigned char *p) {
  return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 |
         uint32_t(p[3]) << 24;
}

inline void StoreLe32(unsigned char *p, uint32_t v) {
  p[0] = static_cast<unsigned char>(v);
  p[1] = static_cast<unsigned char>(v >> 8);
  p[2] = static_cast<unsigned char>(v >> 16);
  p[3] = static_cast<unsigned char>(v >> 24);
}

// The four auxiliary functions, in forms with fewer operations that give
// the same bits: F = (x & y) | (~x & z), G = (x & z) | (y & ~z),
// H = x ^ y ^ z, I = y ^ (x | ~z).
#define OX_MD5_F(x, y, z) ((z) ^ ((x) & ((y) ^ (z))))
#define OX_MD5_G(x, y, z) ((y) ^ ((z) & ((x) ^ (y))))
#define OX_MD5_H(x, y, z) ((x) ^ (y) ^ (z))
#define OX_MD5_I(x, y, z) ((y) ^ ((x) | ~(z)))

#define OX_MD5_STEP(f, a, b, c, d, x, t, s) \
  a += f(b, c, d) + (x) + (t);              \
  a = Rotl(a, s) + (b)

}  // namespace

void OxMd5Blocks(uint32_t state[4], const unsigned char *data, size_t blocks) {
  uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
  for (; blocks > 0; blocks--, data += 64) {
    uint32_t x[16];
    for (int i = 0; i < 16; i++) x[i] = LoadLe32(data + 4 * i);
    const uint32_t aa = a, bb = b, cc = c, dd = d;

    // Round 1
    OX_MD5_STEP(OX_MD5_F, a, b, c, d, x[0], 0xd76aa478, 7);
    OX_MD5_STEP(OX_MD5_F, d, a, b, c, x[1], 0xe8c7b756, 12);
    OX_MD5_STEP(OX_MD5_F, c, d, a, b, x[2], 0x242070db, 17);
    OX_MD5_STEP(OX_MD5_F, b, c, d, a, x[3], 0xc1bdceee, 22);
    OX_MD5_STEP(OX_MD5_F, a, b, c, d, x[4], 0xf57c0faf, 7);
    OX_MD5_STEP(OX_MD5_F, d, a, b, c, x[5], 0x4787c62a, 12);
    OX_MD5_STEP(OX_MD5_F, c, d, a, b, x[6], 0xa8304613, 17);
    OX_MD5_STEP(OX_MD5_F, b, c, d, a, x[7], 0xfd469501, 22);
    OX_MD5_STEP(OX_MD5_F, a, b, c, d, x[8], 0x698098d8, 7);
    OX_MD5_STEP(OX_MD5_F, d, a, b, c, x[9], 0x8b44f7af, 12);
    OX_MD5_STEP(OX_MD5_F, c, d, a, b, x[10], 0xffff5bb1, 17);
    OX_MD5_STEP(OX_MD5_F, b, c, d, a, x[11], 0x895cd7be, 22);
    OX_MD5_STEP(OX_MD5_F, a, b, c, d, x[12], 0x6b901122, 7);
    OX_MD5_STEP(OX_MD5_F, d, a, b, c, x[13], 0xfd987193, 12);
    OX_MD5_STEP(OX_MD5_F, c, d, a, b, x[14], 0xa679438e, 17);
    OX_MD5_STEP(OX_MD5_F, b, c, d, a, x[15], 0x49b40821, 22);

    // Round 2
    OX_MD5_STEP(OX_MD5_G, a, b, c, d, x[1], 0xf61e2562, 5);
    OX_MD5_STEP(OX_MD5_G, d, a, b, c, x[6], 0xc040b340, 9);
    OX_MD5_STEP(OX_MD5_G, c, d, a, b, x[11], 0x265e5a51, 14);
    OX_MD5_STEP(OX_MD5_G, b, c, d, a, x[0], 0xe9b6c7aa, 20);
    OX_MD5_STEP(OX_MD5_G, a, b, c, d, x[5], 0xd62f105d, 5);
    OX_MD5_STEP(OX_MD5_G, d, a, b, c, x[10], 0x02441453, 9);
    OX_MD5_STEP(OX_MD5_G, c, d, a, b, x[15], 0xd8a1e681, 14);
    OX_MD5_STEP(OX_MD5_G, b, c, d, a, x[4], 0xe7d3fbc8, 20);
    OX_MD5_STEP(OX_MD5_G, a, b, c, d, x[9], 0x21e1cde6, 5);
    OX_MD5_STEP(OX_MD5_G, d, a, b, c, x[14], 0xc33707d6, 9);
    OX_MD5_STEP(OX_MD5_G, c, d, a, b, x[3], 0xf4d50d87, 14);
    OX_MD5_STEP(OX_MD5_G, b, c, d, a, x[8], 0x455a14ed, 20);
    OX_MD5_STEP(OX_MD5_G, a, b, c, d, x[13], 0xa9e3e905, 5);
    OX_MD5_STEP(OX_MD5_G, d, a, b, c, x[2], 0xfcefa3f8, 9);
    OX_MD5_STEP(OX_MD5_G, c, d, a, b, x[7], 0x676f02d9, 14);
    OX_MD5_STEP(OX_MD5_G, b, c, d, a, x[12], 0x8d2a4c8a, 20);

    // Round 3
    OX_MD5_STEP(OX_MD5_H, a, b, c, d, x[5], 0xfffa3942, 4);
    OX_MD5_STEP(OX_MD5_H, d, a, b, c, x[8], 0x8771f681, 11);
    OX_MD5_STEP(OX_MD5_H, c, d, a, b, x[11], 0x6d9d6122, 16);
    OX_MD5_STEP(OX_MD5_H, b, c, d, a, x[14], 0xfde5380c, 23);
    OX_MD5_STEP(OX_MD5_H, a, b, c, d, x[1], 0xa4beea44, 4);
    OX_MD5_STEP(OX_MD5_H, d, a, b, c, x[4], 0x4bdecfa9, 11);
    OX_MD5_STEP(OX_MD5_H, c, d, a, b, x[7], 0xf6bb4b60, 16);
    OX_MD5_STEP(OX_MD5_H, b, c, d, a, x[10], 0xbebfbc70, 23);
    OX_MD5_STEP(OX_MD5_H, a, b, c, d, x[13], 0x289b7ec6, 4);
    OX_MD5_STEP(OX_MD5_H, d, a, b, c, x[0], 0xeaa127fa, 11);
    OX_MD5_STEP(OX_MD5_H, c, d, a, b, x[3], 0xd4ef3085, 16);
    OX_MD5_STEP(OX_MD5_H, b, c, d, a, x[6], 0x04881d05, 23);
    OX_MD5_STEP(OX_MD5_H, a, b, c, d, x[9], 0xd9d4d039, 4);
    OX_MD5_STEP(OX_MD5_H, d, a, b, c, x[12], 0xe6db99e5, 11);
    OX_MD5_STEP(OX_MD5_H, c, d, a, b, x[15], 0x1fa27cf8, 16);
    OX_MD5_STEP(OX_MD5_H, b, c, d, a, x[2], 0xc4ac5665, 23);

    // Round 4
    OX_MD5_STEP(OX_MD5_I, a, b, c, d, x[0], 0xf4292244, 6);
    OX_MD5_STEP(OX_MD5_I, d, a, b, c, x[7], 0x432aff97, 10);
    OX_MD5_STEP(OX_MD5_I, c, d, a, b, x[14], 0xab9423a7, 15);
    OX_MD5_STEP(OX_MD5_I, b, c, d, a, x[5], 0xfc93a039, 21);
    OX_MD5_STEP(OX_MD5_I, a, b, c, d, x[12], 0x655b59c3, 6);
    OX_MD5_STEP(OX_MD5_I, d, a, b, c, x[3], 0x8f0ccc92, 10);
    OX_MD5_STEP(OX_MD5_I, c, d, a, b, x[10], 0xffeff47d, 15);
    OX_MD5_STEP(OX_MD5_I, b, c, d, a, x[1], 0x85845dd1, 21);
    OX_MD5_STEP(OX_MD5_I, a, b, c, d, x[8], 0x6fa87e4f, 6);
    OX_MD5_STEP(OX_MD5_I, d, a, b, c, x[15], 0xfe2ce6e0, 10);
    OX_MD5_STEP(OX_MD5_I, c, d, a, b, x[6], 0xa3014314, 15);
    OX_MD5_STEP(OX_MD5_I, b, c, d, a, x[13], 0x4e0811a1, 21);
    OX_MD5_STEP(OX_MD5_I, a, b, c, d, x[4], 0xf7537e82, 6);
    OX_MD5_STEP(OX_MD5_I, d, a, b, c, x[11], 0xbd3af235, 10);
    OX_MD5_STEP(OX_MD5_I, c, d, a, b, x[2], 0x2ad7d2bb, 15);
    OX_MD5_STEP(OX_MD5_I, b, c, d, a, x[9], 0xeb86d391, 21);

    a += aa;
    b += bb;
    c += cc;
    d += dd;
  }
  state[0] = a;
  state[1] = b;
  state[2] = c;
  state[3] = d;
}

// ---------------------------------------------------------------------------
// Ox_MD5Digest

namespace {

// The padding that ends every message: one bit, then zeros. Shared by all.
const unsigned char kMd5Padding[64] = {0x80};

// Adds `len` bytes to a context: fills the open block, then compresses
// whole blocks straight from the input, then keeps the rest.
void Md5Update(Ox_MD5Context &ctx, const unsigned char *input, size_t len) {
  if (len == 0) return;
  size_t index = (ctx.count[0] >> 3) & 0x3F;
  // The bit count, as two words with carry.
  const uint32_t lowBits = static_cast<uint32_t>(len << 3);
  ctx.count[0] += lowBits;
  if (ctx.count[0] < lowBits) ctx.count[1]++;
  ctx.count[1] += static_cast<uint32_t>(static_cast<uint64_t>(len) >> 29);

  const size_t partLen = 64 - index;
  size_t i = 0;
  if (len >= partLen) {
    std::memcpy(&ctx.buffer[index], input, partLen);
    OxMd5Blocks(ctx.state, ctx.buffer, 1);
    const size_t blocks = (len - partLen) / 64;
    OxMd5Blocks(ctx.state, input + partLen, blocks);
    i = partLen + blocks * 64;
    index = 0;
  }
  std::memcpy(&ctx.buffer[index], input + i, len - i);
}

// Pads, appends the length, writes the digest and wipes the context.
void Md5Final(Ox_MD5Context &ctx, unsigned char digest[16]) {
  unsigned char bits[8];
  StoreLe32(bits, ctx.count[0]);
  StoreLe32(bits + 4, ctx.count[1]);
  const size_t index = (ctx.count[0] >> 3) & 0x3F;
  const size_t padLen = index < 56 ? 56 - index : 120 - index;
  Md5Update(ctx, kMd5Padding, padLen);
  Md5Update(ctx, bits, 8);
  for (int i = 0; i < 4; i++) StoreLe32(digest + 4 * i, ctx.state[i]);
  std::memset(&ctx, 0, sizeof ctx);
}

}  // namespace

// The context is zeroed, not started: Init gives the start values.
Ox_MD5Digest::Ox_MD5Digest() { std::memset(&context, 0, sizeof context); }

Ox_MD5Digest::~Ox_MD5Digest() {}

void Ox_MD5Digest::Init() {
  context.count[0] = context.count[1] = 0;
  context.state[0] = 0x67452301;
  context.state[1] = 0xefcdab89;
  context.state[2] = 0x98badcfe;
  context.state[3] = 0x10325476;
}

void Ox_MD5Digest::Feed(const unsigned char *data, size_t len) {
  Md5Update(context, data, len);
}

void Ox_MD5Digest::Digest(unsigned char *const out) {
  unsigned char digest[DIGEST_SIZE];
  Md5Final(context, digest);
  if (out) std::memcpy(out, digest, DIGEST_SIZE);
}
