// Ox_Compress2: the zlib and gzip frames through a stream held in the
// object, decoded whole or piece by piece.
#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_Compress.h"
#include "system/ox_compress_internal.h"

namespace {

// Opens `stream` for inflating the frame whose head `data` begins, `len`
// bytes long: raw deflate for gzip, and for zlib the window that the
// stream's first byte names. False when the head is cut short or zlib
// refuses.
bool OpenInflate(z_stream *stream, int headSize, const unsigned char *data,
                 long len) {
  int windowBits = -MAX_WBITS;
  if (headSize == 2) {
    if (len < 3) return false;  // the first stream byte must be there
    windowBits = OxZlibWindowBits(data[2]);
  } else if (len < 10) {
    return false;  // the gzip head must be whole
  }
  return inflateInit2_(stream, windowBits, kOxZlibVersion,
                       static_cast<int>(sizeof(z_stream))) == Z_OK;
}

// Position behind the NUL-terminated field that begins at `pos`; -1 when
// the piece ends first.
long SkipZeroTerminated(const unsigned char *data, long len, long pos) {
  const void *end = pos < len ? std::memchr(data + pos, 0, len - pos) : nullptr;
  if (!end) return -1;
  return static_cast<const unsigned char *>(end) - data + 1;
}

bool IsInflateFailure(int ret) {
  return ret == Z_NEED_DICT || ret == Z_DATA_ERROR || ret == Z_MEM_ERROR;
}

// What one inflate round did: inflate's result, the bytes it wrote and the
// input position it stopped at.
struct InflateRound {
  int ret;
  long got;
  long next;
};

// One inflate over at most a chunk of `data` from `pos` (of `size`) into a
// fresh window of `sink`; a gzip frame (head of 10) adds what came out to
// `crc` and `total`. False on failure: the stream is ended, except after
// Z_STREAM_ERROR, when zlib has not taken the stream.
bool InflateChunk(z_stream *stream, OxChunkOutput &sink, int headSize,
                  const unsigned char *data, long pos, long size,
                  unsigned *crc, unsigned *total, InflateRound *round) {
  unsigned char *window = OxZStreamWindow(stream, sink);
  if (!window) {
    inflateEnd(stream);
    return false;
  }
  OxZStreamFeed(stream, data, pos, size);
  round->ret = inflate(stream, Z_SYNC_FLUSH);
  if (round->ret == Z_STREAM_ERROR) return false;
  if (IsInflateFailure(round->ret)) {
    inflateEnd(stream);
    return false;
  }
  round->got = kOxZChunk - stream->avail_out;
  sink.Commit(round->got);
  if (headSize == 10) {
    *crc = OxCompressCrc(*crc, window, round->got);
    *total += static_cast<unsigned>(round->got);
  }
  round->next = stream->next_in - data;
  return true;
}

}  // namespace

Ox_Compress2::Ox_Compress2() : headSize(-1), crc(0), total(0) {
  std::memset(&stream, 0, sizeof stream);
}

int Ox_Compress2::GetCompHeadSize(const unsigned char *data) {
  if (!data) return 0;
  if (data[0] == 0x1F && data[1] == 0x8B) return 10;
  if (data[0] == 0xFF && data[1] == 0xAD) return 2;
  return 0;
}

// The head size of a whole buffer; shorter than two bytes it is no frame.
static int BufferHeadSize(const Ox_Buffer &data) {
  return data.GetSize() >= 2 ? Ox_Compress2::GetCompHeadSize(data.GetData())
                             : 0;
}

long Ox_Compress2::Encode(const Ox_Buffer &in, Ox_Buffer &out, int level) {
  // A zlib or gzip frame is already compressed: it passes unchanged.
  if (BufferHeadSize(in) >= 1) {
    out.Set(in);
    return 0;
  }
  return OxZlibFrameEncode(&stream, in, out, level);
}

long Ox_Compress2::EncodeGzip(const Ox_Buffer &in, Ox_Buffer &out,
                              int level) {
  // Only a gzip frame passes; a zlib frame is compressed once more.
  if (BufferHeadSize(in) == 10) {
    out.Set(in);
    return 0;
  }
  return OxGzipFrameEncode(&stream, in, out, level);
}

long Ox_Compress2::Decode(const Ox_Buffer &in, Ox_Buffer &out) {
  const Ox_Buffer source(in);  // keeps the input alive when `out` is `in`
  const unsigned char *data = source.GetData();
  const long size = source.GetSize();
  // 1. Data that is no frame passes through.
  headSize = BufferHeadSize(source);
  if (headSize == 0) {
    out.Set(source);
    return 0;
  }
  // 2. A fresh inflate stream for the frame's kind. Optional gzip fields
  //    are not skipped: they reach inflate as data.
  out.Release();
  OxZStreamClear(&stream);
  if (!OpenInflate(&stream, headSize, data, size)) return -1;
  // A zlib frame with the full 32 KB window that decodes cleanly gives the
  // same output whatever the size of the inflate calls (no distance can
  // then reach past the window), so it is first inflated in a few large
  // calls; anything else is decoded again in the rounds below, which fix
  // the result and the partial output. A smaller window takes the rounds
  // at once: whether a far distance is refused depends on the room of each
  // call. So does a gzip frame: where its trailer is tested depends on
  // the rounds.
  if (headSize == 2 && OxZlibWindowBits(data[2]) == MAX_WBITS) {
    long end = 0;
    const bool clean = OxInflateWhole(&stream, data, size, 2, out, &end);
    inflateEnd(&stream);
    if (clean) return 0;
    out.Release();
    OxZStreamClear(&stream);
    if (!OpenInflate(&stream, headSize, data, size)) return -1;
  }
  // 3. One inflate per round over at most a chunk; input that inflate left
  //    unread is offered again in the next round.
  OxChunkOutput sink(out);
  unsigned crcAll = 0;
  unsigned totalAll = 0;
  long pos = headSize;
  int ret = Z_OK;
  while (pos < size) {
    InflateRound round;
    if (!InflateChunk(&stream, sink, headSize, data, pos, size, &crcAll,
                      &totalAll, &round))
      return -1;
    ret = round.ret;
    if (ret == Z_STREAM_END) break;
    if (round.next == pos && round.got == 0) break;  // no progress: cannot end well
    pos = round.next;
  }
  // 4. The stream's end, and a gzip trailer if the last chunk holds it.
  const unsigned char *rest = stream.next_in;
  const uInt restSize = stream.avail_in;
  inflateEnd(&stream);
  if (ret != Z_STREAM_END) return -1;
  if (headSize == 10 && restSize >= 8 &&
      !OxGzipTrailerMatches(rest, crcAll, totalAll))
    return -1;
  return 0;
}

long Ox_Compress2::DecodeInit() {
  crc = 0;
  total = 0;
  OxZStreamClear(&stream);
  headSize = -1;
  return 1;
}

long Ox_Compress2::DecodeData(const unsigned char *data, int len,
                              Ox_Buffer &out) {
  if (len < 0 || (!data && len > 0)) return -1;
  long pos = 0;
  // 1. The first piece names the frame and must hold its whole head.
  if (headSize == -1) {
    if (len < 2) return -1;
    const int head = GetCompHeadSize(data);
    if (head != 0) {
      if (!OpenInflate(&stream, head, data, len)) return -1;
      pos = head;
      const unsigned char flags = head == 10 ? data[3] : 0;
      if (flags & kOxGzipFlagName) pos = SkipZeroTerminated(data, len, pos);
      if (pos >= 0 && (flags & kOxGzipFlagComment))
        pos = SkipZeroTerminated(data, len, pos);
      if (pos < 0) {  // a name or comment runs past the first piece
        inflateEnd(&stream);
        return -1;
      }
    }
    headSize = head;
  }
  // 2. No frame: every piece passes as it is, until DecodeInit.
  if (headSize == 0) {
    out.Set(data, len);
    return 0;
  }
  // 3. Rounds of one inflate each, until the piece is used up and inflate
  //    had room to spare (so it holds no output back), or the stream ends.
  out.Release();
  OxChunkOutput sink(out);
  bool outputFull = false;
  int ret;
  for (;;) {
    if (pos >= len && !outputFull) return 1;  // more input wanted
    InflateRound round;
    if (!InflateChunk(&stream, sink, headSize, data, pos, len, &crc, &total,
                      &round))
      return -1;
    ret = round.ret;
    if (ret == Z_STREAM_END) break;
    outputFull = stream.avail_out == 0;
    if (round.next == pos && round.got == 0 && pos < len) return -1;  // no progress
    pos = round.next;
  }
  // 4. The stream's end: a gzip trailer in the last chunk must match what
  //    came out (on a mismatch the stream stays open).
  if (headSize == 10 && stream.avail_in >= 8 &&
      !OxGzipTrailerMatches(stream.next_in, crc, total))
    return -1;
  inflateEnd(&stream);
  return 0;
}
