// The zlib and gzip forms: the encoders that both coders share, and the
// one-piece decoders of Ox_Compress (decode_zlib, Inflate).
#include <climits>
#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_Compress.h"
#include "system/ox_compress_internal.h"

unsigned OxCompressCrc(unsigned crc, const unsigned char *data, long size) {
  // ox_crc32 counts in int; longer data goes through in slices.
  constexpr long kSlice = 1L << 30;
  while (size > 0) {
    const long n = size < kSlice ? size : kSlice;
    crc = ox_crc32(crc, data, static_cast<int>(n));
    data += n;
    size -= n;
  }
  return crc;
}

bool OxCompressAppend(Ox_Buffer &out, const unsigned char *data, long size) {
  if (size <= 0) return true;
  const long before = out.GetSize();
  if (size > OX_COMPRESS_MAX_OUTPUT - before) return false;
  return out.Append(data, size) == before + size;
}

unsigned char *OxChunkOutput::Window() {
  if (used_ > OX_COMPRESS_MAX_OUTPUT - kOxZChunk) return nullptr;
  return out_.GetSafeBuffer(used_ + kOxZChunk) + used_;
}

void OxChunkOutput::Finish() {
  if (out_.GetSize() == used_) return;
  if (used_ == 0)
    out_.Release();
  else
    out_.SetSize(used_);
}

int OxZlibWindowBits(unsigned char first) {
  // ((first - 8) >> 4) + 8 with the shift rounding down, written so that
  // it does not shift a negative number.
  return first >= 8 ? ((first - 8) >> 4) + 8 : 7;
}

bool OxGzipTrailerMatches(const unsigned char *trailer, unsigned crc,
                          unsigned total) {
  return OxReadLe32(trailer) == crc && OxReadLe32(trailer + 4) == total;
}

void OxZStreamClear(z_stream *stream) {
  stream->next_in = Z_NULL;
  stream->avail_in = 0;
  stream->zalloc = Z_NULL;
  stream->zfree = Z_NULL;
  stream->opaque = Z_NULL;
}

long OxZStreamFeed(z_stream *stream, const unsigned char *data, long pos,
                   long size) {
  const long n = size - pos < kOxZChunk ? size - pos : kOxZChunk;
  stream->next_in = const_cast<Bytef *>(data + pos);
  stream->avail_in = static_cast<uInt>(n);
  return n;
}

unsigned char *OxZStreamWindow(z_stream *stream, OxChunkOutput &sink) {
  unsigned char *window = sink.Window();
  if (!window) return nullptr;
  stream->next_out = window;
  stream->avail_out = kOxZChunk;
  return window;
}

namespace {

// Feeds all of `data` to an open deflate stream in chunks and appends what
// comes out. Every chunk but the last is fed without flushing; the last
// call always comes with no input and Z_FINISH, so the stream is closed
// even for empty data.
long DeflateChunks(z_stream *stream, const unsigned char *data, long size,
                   Ox_Buffer &out) {
  OxChunkOutput sink(out);
  long pos = 0;
  int flush;
  do {
    flush = pos < size ? Z_NO_FLUSH : Z_FINISH;
    pos += OxZStreamFeed(stream, data, pos, size);
    // Drain the output while zlib fills the whole chunk.
    do {
      if (!OxZStreamWindow(stream, sink)) return -1;
      if (deflate(stream, flush) == Z_STREAM_ERROR) return -1;
      sink.Commit(kOxZChunk - stream->avail_out);
    } while (stream->avail_out == 0);
  } while (flush != Z_FINISH);
  return 0;
}

// Inflates `data` from `pos` on, chunk by chunk, draining each chunk fully
// (the one-piece decoders of Ox_Compress). With `gzip`, exactly 8 bytes
// left unread in a chunk are taken as the trailer and must match the CRC
// and length of all output so far. The caller ends the stream.
long InflateChunks(z_stream *stream, const unsigned char *data, long size,
                   long pos, Ox_Buffer &out, bool gzip) {
  OxChunkOutput sink(out);
  unsigned crc = 0;
  unsigned total = 0;
  int ret = Z_OK;
  while (ret != Z_STREAM_END) {
    if (pos >= size) break;  // the input is used up before the stream's end
    pos += OxZStreamFeed(stream, data, pos, size);
    do {
      unsigned char *window = OxZStreamWindow(stream, sink);
      if (!window) return -1;
      ret = inflate(stream, Z_NO_FLUSH);
      // The output of a failing call is not kept.
      if (ret == Z_STREAM_ERROR || ret == Z_NEED_DICT ||
          ret == Z_DATA_ERROR || ret == Z_MEM_ERROR)
        return -1;
      // Z_BUF_ERROR only says that no progress was possible: not an error.
      const long got = kOxZChunk - stream->avail_out;
      sink.Commit(got);
      if (gzip) {
        crc = OxCompressCrc(crc, window, got);
        total += static_cast<unsigned>(got);
      }
    } while (stream->avail_out == 0);
    if (gzip && stream->avail_in == 8 &&
        !OxGzipTrailerMatches(stream->next_in, crc, total))
      return -1;
  }
  return ret == Z_STREAM_END ? 0 : -1;
}

// Opens `stream` for a one-piece decode: the zlib wrapper with its usual
// window, or a raw deflate stream for gzip.
bool OpenOnePiece(z_stream *stream, bool gzip) {
  std::memset(stream, 0, sizeof *stream);
  const int size = static_cast<int>(sizeof(z_stream));
  return (gzip ? inflateInit2_(stream, -MAX_WBITS, kOxZlibVersion, size)
               : inflateInit_(stream, kOxZlibVersion, size)) == Z_OK;
}

// The one-piece decoders of Ox_Compress. Both open the stream with the
// full 32 KB window, so a stream that decodes cleanly gives the same
// output whatever the size of the inflate calls (a distance can reach past
// the window only when it reaches past all output so far, which does not
// depend on the calls). It is therefore first inflated in a few large
// calls, and for gzip the trailer is then tested exactly where the chunked
// run would test it. Anything else (an error, a cut, the output cap) is
// decoded again chunk by chunk, which fixes the result and the partial
// output.
long InflateOnePiece(const unsigned char *data, long size, long start,
                     Ox_Buffer &out, bool gzip) {
  out.Release();
  z_stream stream;
  if (!OpenOnePiece(&stream, gzip)) return -1;
  long end = 0;
  const bool clean = OxInflateWhole(&stream, data, size, start, out, &end);
  inflateEnd(&stream);
  if (clean) {
    if (!gzip || OxChunkRest(start, end, size) != 8) return 0;
    const unsigned crc = OxCompressCrc(0, out.GetData(), out.GetSize());
    const unsigned total = static_cast<unsigned>(out.GetSize());
    return OxGzipTrailerMatches(data + end, crc, total) ? 0 : -1;
  }
  out.Release();
  if (!OpenOnePiece(&stream, gzip)) return -1;
  const long result = InflateChunks(&stream, data, size, start, out, gzip);
  inflateEnd(&stream);
  return result;
}

}  // namespace

long OxChunkRest(long start, long end, long size) {
  // The chunk that holds the stream's last byte starts at a multiple of
  // the chunk size from `start`; the input runs out at `size`.
  if (end <= start) return 0;
  const long chunkEnd = start + ((end - 1 - start) / kOxZChunk + 1) * kOxZChunk;
  return (chunkEnd < size ? chunkEnd : size) - end;
}

bool OxInflateWhole(z_stream *stream, const unsigned char *data, long size,
                    long pos, Ox_Buffer &out, long *end) {
  // Input goes in pieces of at most 1 GB (avail_in is 32 bits). Output
  // room grows with the output up to 256 KB a call: large enough that zlib
  // copies little into its window, small enough that the room, zeroed as
  // the buffer grows, is still in the cache when inflate writes it; and a
  // small output never takes more than twice its size.
  constexpr long kMaxIn = 1L << 30;
  constexpr long kRoom = 256L << 10;
  long used = out.GetSize();
  stream->avail_in = 0;
  for (;;) {
    if (stream->avail_in == 0 && pos < size) {
      const long n = size - pos < kMaxIn ? size - pos : kMaxIn;
      stream->next_in = const_cast<Bytef *>(data + pos);
      stream->avail_in = static_cast<uInt>(n);
      pos += n;
    }
    long room = used < kOxZChunk ? kOxZChunk : (used < kRoom ? used : kRoom);
    if (room > OX_COMPRESS_MAX_OUTPUT - used) room = OX_COMPRESS_MAX_OUTPUT - used;
    unsigned char *p = room > 0 ? out.GetSafeBuffer(used + room) : nullptr;
    if (!p) break;
    stream->next_out = p + used;
    stream->avail_out = static_cast<uInt>(room);
    const int ret = inflate(stream, Z_NO_FLUSH);
    used += room - stream->avail_out;
    if (ret == Z_STREAM_END) {
      out.SetSize(used);
      *end = stream->next_in - data;
      return true;
    }
    if (ret != Z_OK) break;  // an error, or no input left
  }
  if (used == 0)
    out.Release();
  else
    out.SetSize(used);
  return false;
}

long OxZlibFrameEncode(z_stream *stream, const Ox_Buffer &in, Ox_Buffer &out,
                       int level) {
  const Ox_Buffer source(in);  // keeps the input alive when `out` is `in`
  // 1. The frame's magic, then a zlib stream with its usual window.
  out.Release();
  static const unsigned char kMagic[2] = {0xFF, 0xAD};
  if (!OxCompressAppend(out, kMagic, 2)) return -1;
  OxZStreamClear(stream);
  if (deflateInit_(stream, level, kOxZlibVersion,
                   static_cast<int>(sizeof(z_stream))) != Z_OK)
    return -1;
  // 2. All of the input, closed with Z_FINISH.
  const long result =
      DeflateChunks(stream, source.GetData(), source.GetSize(), out);
  deflateEnd(stream);
  return result;
}

long OxGzipFrameEncode(z_stream *stream, const Ox_Buffer &in, Ox_Buffer &out,
                       int level) {
  const Ox_Buffer source(in);
  const unsigned char *data = source.GetData();
  const long size = source.GetSize();
  // 1. A raw deflate stream (window 15, memory level 9) behind our head.
  out.Release();
  OxZStreamClear(stream);
  if (deflateInit2_(stream, level, Z_DEFLATED, -MAX_WBITS, 9,
                    Z_DEFAULT_STRATEGY, kOxZlibVersion,
                    static_cast<int>(sizeof(z_stream))) != Z_OK)
    return -1;
  long result = OxCompressAppend(out, kOxGzipHead, sizeof kOxGzipHead) ? 0 : -1;
  // 2. The compressed data.
  if (result == 0) result = DeflateChunks(stream, data, size, out);
  // 3. The trailer: CRC-32 and length of the plain data, little-endian.
  if (result == 0) {
    unsigned char trailer[8];
    OxWriteLe32(trailer, OxCompressCrc(0, data, size));
    OxWriteLe32(trailer + 4, static_cast<unsigned>(size));
    if (!OxCompressAppend(out, trailer, 8)) result = -1;
  }
  deflateEnd(stream);
  return result;
}

long Ox_Compress::encode_zlib(const Ox_Buffer &in, Ox_Buffer &out, int level) {
  z_stream stream;
  std::memset(&stream, 0, sizeof stream);
  return OxZlibFrameEncode(&stream, in, out, level);
}

long Ox_Compress::decode_zlib(const Ox_Buffer &in, Ox_Buffer &out) {
  const Ox_Buffer source(in);
  // The zlib stream follows the 2-byte magic.
  return InflateOnePiece(source.GetData(), source.GetSize(), 2, out, false);
}

long Ox_Compress::Deflate(const Ox_Buffer &in, Ox_Buffer &out, int level) {
  z_stream stream;
  std::memset(&stream, 0, sizeof stream);
  return OxGzipFrameEncode(&stream, in, out, level);
}

long Ox_Compress::Inflate(const Ox_Buffer &in, Ox_Buffer &out) {
  const Ox_Buffer source(in);
  const unsigned char *data = source.GetData();
  const long size = source.GetSize();
  out.Release();
  // 1. Only a bare 10-byte head is taken: 1F 8B and no flags at all, so
  //    any gzip with optional fields is refused.
  if (size < 10) return -1;
  if (data[0] != 0x1F || data[1] != 0x8B || data[3] != 0) return -1;
  // 2. The raw deflate stream behind the head; its trailer is tested when
  //    a chunk ends exactly with it.
  return InflateOnePiece(data, size, 10, out, true);
}
