// Internals shared by Ox_Compress and Ox_Compress2: the zlib calls in the
// order both classes make them, the frame constants and the LZSS work area.
#ifndef OX_COMPRESS_INTERNAL_H
#define OX_COMPRESS_INTERNAL_H

#include <zlib.h>

#include "Ox_Buffer.h"
#include "Ox_Compress.h"

// Input and output move through zlib in chunks of this many bytes.
constexpr int kOxZChunk = 8096;

// The zlib version that the streams are opened with; zlib checks only its
// first character.
constexpr const char *kOxZlibVersion = "1.2.1";

// The head of a gzip frame as this library writes it: deflate, no flags,
// no time, no extra flags, operating system 0x0B.
constexpr unsigned char kOxGzipHead[10] = {0x1F, 0x8B, 0x08, 0x00, 0x00,
                                           0x00, 0x00, 0x00, 0x00, 0x0B};
constexpr unsigned char kOxGzipFlagName = 8;      // FNAME in the flag byte
constexpr unsigned char kOxGzipFlagComment = 16;  // FCOMMENT

// Frame magics as big-endian words.
constexpr unsigned kOxMagicLzss = 0xFFAC;
constexpr unsigned kOxMagicLzssSwapped = 0xACFF;
constexpr unsigned kOxMagicZlib = 0xFFAD;

// LZSS numbers: ring size, longest match, longest match sent as literals,
// first write position, and the "no node" mark.
constexpr int kOxLzssN = 4096;
constexpr int kOxLzssF = 18;
constexpr int kOxLzssThreshold = 2;
constexpr int kOxLzssStart = kOxLzssN - kOxLzssF;  // 4078
constexpr int kOxLzssNil = kOxLzssN;

// The LZSS compressor's work area, zero-filled for each call: the ring with
// 17 bytes behind it mirroring its start (so a look-ahead string never
// wraps), the best match found by InsertNode, and the trees. Each rson
// entry above 4096 is the root of the tree of one first byte.
struct _Ox_Compress_Buf {
  unsigned char text[kOxLzssN + kOxLzssF - 1];  // 4113
  int matchPosition;
  int matchLength;
  int lson[kOxLzssN + 1];    // 4097
  int rson[kOxLzssN + 257];  // 4353
  int dad[kOxLzssN + 1];     // 4097
};

// Four-byte integers in either byte order.
inline unsigned OxReadLe32(const unsigned char *p) {
  return unsigned(p[0]) | unsigned(p[1]) << 8 | unsigned(p[2]) << 16 |
         unsigned(p[3]) << 24;
}
inline unsigned OxReadBe32(const unsigned char *p) {
  return unsigned(p[0]) << 24 | unsigned(p[1]) << 16 | unsigned(p[2]) << 8 |
         unsigned(p[3]);
}
inline void OxWriteLe32(unsigned char *p, unsigned value) {
  p[0] = static_cast<unsigned char>(value);
  p[1] = static_cast<unsigned char>(value >> 8);
  p[2] = static_cast<unsigned char>(value >> 16);
  p[3] = static_cast<unsigned char>(value >> 24);
}
inline void OxWriteBe32(unsigned char *p, unsigned value) {
  p[0] = static_cast<unsigned char>(value >> 24);
  p[1] = static_cast<unsigned char>(value >> 16);
  p[2] = static_cast<unsigned char>(value >> 8);
  p[3] = static_cast<unsigned char>(value);
}

// Window bits of a zlib stream from its first byte (CMF): 15 for the usual
// 0x78, 14 for 0x68.
int OxZlibWindowBits(unsigned char first);

// Whether the 8 bytes at `trailer` hold `crc` and `total`, little-endian.
bool OxGzipTrailerMatches(const unsigned char *trailer, unsigned crc,
                          unsigned total);

// CRC-32 of any number of bytes, continuing from `crc`, through the base
// layer's ox_crc32 (which counts in int).
unsigned OxCompressCrc(unsigned crc, const unsigned char *data, long size);

// Appends the bytes of one zlib output chunk; false when `out` would pass
// OX_COMPRESS_MAX_OUTPUT or cannot grow.
bool OxCompressAppend(Ox_Buffer &out, const unsigned char *data, long size);

// Output that zlib writes straight into an Ox_Buffer, one chunk-sized
// window at a time behind what is already there. Every zlib call gets the
// same room as from a chunk buffer on the stack, so the calls and their
// results are the same; only the copy of each chunk is saved. The buffer's capacity grows by half at least, so a long output
// costs amortised O(1) a byte. Finish (or the destructor) cuts the buffer
// to what was kept.
class OxChunkOutput {
 public:
  explicit OxChunkOutput(Ox_Buffer &out) : out_(out), used_(out.GetSize()) {}
  ~OxChunkOutput() { Finish(); }
  OxChunkOutput(const OxChunkOutput &) = delete;
  OxChunkOutput &operator=(const OxChunkOutput &) = delete;

  // Room for kOxZChunk bytes behind the kept ones; null when the output
  // would pass OX_COMPRESS_MAX_OUTPUT or memory runs out.
  unsigned char *Window();
  // Keeps the first `count` bytes of the last window.
  void Commit(long count) { used_ += count; }
  long Used() const { return used_; }
  void Finish();

 private:
  Ox_Buffer &out_;
  long used_;
};

// Clears the fields that deflateInit_ and inflateInit_ read, so that zlib
// uses its own allocator, and leaves the stream without input.
void OxZStreamClear(z_stream *stream);

// Offers `stream` the next chunk of data[pos, size), at most kOxZChunk
// bytes; returns the chunk's length.
long OxZStreamFeed(z_stream *stream, const unsigned char *data, long pos,
                   long size);

// Points the output of `stream` at a fresh window of `sink`; returns the
// window, or null when the output has no more room.
unsigned char *OxZStreamWindow(z_stream *stream, OxChunkOutput &sink);

// Inflates data[pos, size) through the open `stream` in a few large
// calls, appending to `out`. True when the stream ended cleanly, with
// `*end` the offset behind it; false on an error, a cut or the output cap.
bool OxInflateWhole(z_stream *stream, const unsigned char *data, long size,
                    long pos, Ox_Buffer &out, long *end);

// Bytes left unread in the last chunk by a stream that began at `start`
// and ended at `end`, when `size` bytes are fed in chunks of kOxZChunk and
// each chunk is consumed whole until the stream's end.
long OxChunkRest(long start, long end, long size);

// Writes the zlib frame of `in` (FF AD and a zlib stream) into `out`
// through `stream`. 0, or -1 when zlib refuses.
long OxZlibFrameEncode(z_stream *stream, const Ox_Buffer &in, Ox_Buffer &out,
                       int level);
// Writes the gzip frame of `in` into `out` through `stream`. 0 or -1.
long OxGzipFrameEncode(z_stream *stream, const Ox_Buffer &in, Ox_Buffer &out,
                       int level);

#endif
