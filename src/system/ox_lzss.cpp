// The LZSS form of Ox_Compress: a 4096-byte ring preset to blanks, matches
// of 3 to 18 bytes found through one binary search tree per first byte,
// and groups of a flag byte (read from the lowest bit on, 1 for a literal)
// followed by up to 8 items. A match is two bytes: the low 8 bits of the
// ring position, then its high 4 bits over the length less 3.
#include <cstdlib>
#include <cstring>

#include "Ox_Compress.h"
#include "system/ox_compress_internal.h"

namespace {

constexpr int kN = kOxLzssN;
constexpr int kF = kOxLzssF;
constexpr int kNil = kOxLzssNil;
constexpr int kRingMask = kN - 1;

// Output staged on the stack and appended in large pieces; the bytes and
// their order are those of appending each group (or byte) as it is made.
class StagedOutput {
 public:
  explicit StagedOutput(Ox_Buffer &out) : out_(out) {}
  // Adds `size` bytes (at most a group); false once `out` cannot take more.
  bool Put(const unsigned char *data, int size) {
    if (used_ + size > kOxZChunk && !Flush()) return false;
    std::memcpy(stage_ + used_, data, size);
    used_ += size;
    return true;
  }
  bool PutByte(unsigned char c) {
    if (used_ == kOxZChunk && !Flush()) return false;
    stage_[used_++] = c;
    return true;
  }
  bool Flush() {
    const bool ok = OxCompressAppend(out_, stage_, used_);
    used_ = 0;
    return ok;
  }

 private:
  Ox_Buffer &out_;
  unsigned char stage_[kOxZChunk];
  int used_ = 0;
};

}  // namespace

void Ox_Compress::InitTree(_Ox_Compress_Buf *buf) {
  // Every tree root is empty and no ring position is in a tree.
  for (int i = kN + 1; i <= kN + 256; i++) buf->rson[i] = kNil;
  for (int i = 0; i < kN; i++) buf->dad[i] = kNil;
}

void Ox_Compress::InsertNode(_Ox_Compress_Buf *buf, int r) {
  // Puts the 18-byte string at `r` into the tree of its first byte and
  // leaves the longest match met on the way in matchPosition/matchLength.
  // A string equal over all 18 bytes takes the older node's place.
  const unsigned char *key = &buf->text[r];
  int cmp = 1;
  int p = kN + 1 + key[0];
  buf->rson[r] = buf->lson[r] = kNil;
  buf->matchLength = 0;
  for (;;) {
    if (cmp >= 0) {
      if (buf->rson[p] == kNil) {
        buf->rson[p] = r;
        buf->dad[r] = p;
        return;
      }
      p = buf->rson[p];
    } else {
      if (buf->lson[p] == kNil) {
        buf->lson[p] = r;
        buf->dad[r] = p;
        return;
      }
      p = buf->lson[p];
    }
    int i = 1;
    for (; i < kF; i++)
      if ((cmp = key[i] - buf->text[p + i]) != 0) break;
    if (i > buf->matchLength) {
      buf->matchPosition = p;
      if ((buf->matchLength = i) >= kF) break;
    }
  }
  // Full match: `r` replaces `p`, whose links all go over to `r`.
  buf->dad[r] = buf->dad[p];
  buf->lson[r] = buf->lson[p];
  buf->rson[r] = buf->rson[p];
  buf->dad[buf->lson[p]] = r;
  buf->dad[buf->rson[p]] = r;
  if (buf->rson[buf->dad[p]] == p)
    buf->rson[buf->dad[p]] = r;
  else
    buf->lson[buf->dad[p]] = r;
  buf->dad[p] = kNil;
}

void Ox_Compress::DeleteNode(_Ox_Compress_Buf *buf, int p) {
  // Takes `p` out of its tree; a node with two children is replaced by the
  // rightmost node of its left subtree.
  if (buf->dad[p] == kNil) return;  // not in a tree
  int q;
  if (buf->rson[p] == kNil) {
    q = buf->lson[p];
  } else if (buf->lson[p] == kNil) {
    q = buf->rson[p];
  } else {
    q = buf->lson[p];
    if (buf->rson[q] != kNil) {
      do {
        q = buf->rson[q];
      } while (buf->rson[q] != kNil);
      buf->rson[buf->dad[q]] = buf->lson[q];
      buf->dad[buf->lson[q]] = buf->dad[q];
      buf->lson[q] = buf->lson[p];
      buf->dad[buf->lson[p]] = q;
    }
    buf->rson[q] = buf->rson[p];
    buf->dad[buf->rson[p]] = q;
  }
  buf->dad[q] = buf->dad[p];
  if (buf->rson[buf->dad[p]] == p)
    buf->rson[buf->dad[p]] = q;
  else
    buf->lson[buf->dad[p]] = q;
  buf->dad[p] = kNil;
}

long Ox_Compress::encode_lzss(const Ox_Buffer &in, Ox_Buffer &out) {
  const Ox_Buffer source(in);  // keeps the input alive when `out` is `in`
  const unsigned char *data = source.GetData();
  const long size = source.GetSize();
  // 1. Input shorter than one full look-ahead stays as it is, unframed.
  if (size < kF) {
    out.Set(source);
    return 0;
  }
  // 2. The magic and room for the CRC.
  out.Release();
  static const unsigned char kHead[6] = {0xFF, 0xAC, 0, 0, 0, 0};
  if (!OxCompressAppend(out, kHead, 6)) return -1;
  _Ox_Compress_Buf *buf =
      static_cast<_Ox_Compress_Buf *>(std::calloc(1, sizeof(_Ox_Compress_Buf)));
  if (!buf) return -1;

  // 3. The compressor. The ring starts blank; the first 18 bytes go in at
  //    4078 and the strings in front of them are put in the trees.
  StagedOutput staged(out);
  bool ok = true;
  unsigned char code[17];  // one group: its flag byte and up to 8 items
  int codePtr = 1;
  unsigned mask = 1;
  code[0] = 0;
  int s = 0;
  int r = kOxLzssStart;
  long inPos = 0;
  InitTree(buf);
  std::memset(buf->text, ' ', r);
  int len = 0;
  for (; len < kF && inPos < size; len++) buf->text[r + len] = data[inPos++];
  for (int i = 1; i <= kF; i++) InsertNode(buf, r - i);
  InsertNode(buf, r);
  do {
    // One item: a literal when the match is too short to pay.
    if (buf->matchLength > len) buf->matchLength = len;
    if (buf->matchLength <= kOxLzssThreshold) {
      buf->matchLength = 1;
      code[0] |= static_cast<unsigned char>(mask);
      code[codePtr++] = buf->text[r];
    } else {
      code[codePtr++] = static_cast<unsigned char>(buf->matchPosition);
      code[codePtr++] = static_cast<unsigned char>(
          ((buf->matchPosition >> 4) & 0xF0) |
          (buf->matchLength - (kOxLzssThreshold + 1)));
    }
    mask = (mask << 1) & 0xFF;
    if (mask == 0) {  // eight items: the group is complete
      ok = ok && staged.Put(code, codePtr);
      code[0] = 0;
      codePtr = 1;
      mask = 1;
    }
    // Slide past what the item covered, taking in as many new bytes.
    const int last = buf->matchLength;
    int i = 0;
    for (; i < last && inPos < size; i++) {
      const unsigned char c = data[inPos++];
      DeleteNode(buf, s);
      buf->text[s] = c;
      if (s < kF - 1) buf->text[s + kN] = c;  // mirror behind the ring
      s = (s + 1) & kRingMask;
      r = (r + 1) & kRingMask;
      InsertNode(buf, r);
    }
    // At the end of the input the look-ahead shrinks instead.
    while (i++ < last) {
      DeleteNode(buf, s);
      s = (s + 1) & kRingMask;
      r = (r + 1) & kRingMask;
      if (--len) InsertNode(buf, r);
    }
  } while (len > 0 && ok);
  std::free(buf);
  // 4. The last, short group; then the CRC of the stream into the head.
  if (ok && codePtr > 1) ok = staged.Put(code, codePtr);
  if (!ok || !staged.Flush()) return -1;
  const unsigned crc =
      OxCompressCrc(0, out.GetData() + 6, out.GetSize() - 6);
  OxWriteBe32(out.GetSafeBuffer(-1) + 2, crc);
  return 0;
}

long Ox_Compress::decode_lzss(const Ox_Buffer &in, Ox_Buffer &out) {
  const Ox_Buffer source(in);
  const unsigned char *data = source.GetData();
  const long size = source.GetSize();
  out.Release();
  // The ring is blank, writing starts at 4078, reading behind the head.
  unsigned char ring[kN];
  std::memset(ring, ' ', sizeof ring);
  int r = kOxLzssStart;
  long pos = 6;
  StagedOutput staged(out);
  // The flag byte sits in the low 8 bits; 0xFF00 above it runs out after
  // eight shifts and calls for the next flag byte.
  unsigned flags = 0;
  for (;;) {
    if (((flags >>= 1) & 0x100) == 0) {
      if (pos >= size) break;
      flags = data[pos++] | 0xFF00u;
    }
    if (flags & 1) {
      if (pos >= size) break;
      const unsigned char c = data[pos++];
      if (!staged.PutByte(c)) return -1;
      ring[r] = c;
      r = (r + 1) & kRingMask;
    } else {
      if (pos + 1 >= size) break;  // a match needs both of its bytes
      const int b0 = data[pos++];
      const int b1 = data[pos++];
      const int from = b0 | ((b1 & 0xF0) << 4);
      const int count = (b1 & 0x0F) + kOxLzssThreshold + 1;
      for (int k = 0; k < count; k++) {
        const unsigned char c = ring[(from + k) & kRingMask];
        if (!staged.PutByte(c)) return -1;
        ring[r] = c;
        r = (r + 1) & kRingMask;
      }
    }
  }
  // Truncated data ends the loop too: what was decoded stays, result 0.
  return staged.Flush() ? 0 : -1;
}
