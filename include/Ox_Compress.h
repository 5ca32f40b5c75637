// Ox_Compress and Ox_Compress2: squeeze and restore the contents of an
// Ox_Buffer.
//
// Every compressed form identifies itself by its first bytes, and every
// decoder hands data that it does not recognise back unchanged, so a stream
// layer can apply them without a flag that says whether a buffer is
// compressed. The frames, byte by byte:
//
//   LZSS   FF AC, CRC-32 (big-endian) of all from byte 6 on, LZSS stream
//          (AC FF with a little-endian CRC is read as well, never written)
//   zlib   FF AD, a complete zlib stream (RFC 1950), no CRC of its own
//   gzip   1F 8B 08 00 00 00 00 00 00 0B, raw deflate stream, CRC-32 and
//          length of the plain data, little-endian (RFC 1952)
//
// Results: 0 success, -1 failure; Ox_Compress2::DecodeData also gives 1 when
// it wants more input. No message is produced.
//
// Decoders never size an allocation from a length read in the input: the
// output grows with the bytes really decoded, and a decode whose output
// would pass OX_COMPRESS_MAX_OUTPUT bytes fails with -1.
#ifndef OX_COMPRESS_H
#define OX_COMPRESS_H

#include <zlib.h>

#include "Ox_Buffer.h"
#include "Ox_Export.h"

// Largest output any decoder produces (the largest count an int holds).
#define OX_COMPRESS_MAX_OUTPUT 0x7FFFFFFFL

// Work area of one LZSS compression; allocated and zero-filled per call.
struct _Ox_Compress_Buf;

// The older coder: no state of its own, three forms (LZSS, zlib, gzip).
class OX_API Ox_Compress {
 public:
  // Compresses `in` into `out`: `method` 1 LZSS, 2 zlib, any other -1.
  // A buffer that already is an LZSS or zlib frame is copied unchanged, so
  // nothing is compressed twice. `level` is zlib's (-1 default, 0 to 9).
  long Encode(const Ox_Buffer &in, Ox_Buffer &out, int method, int level);
  // Restores any LZSS or zlib frame; other data is copied unchanged with
  // the result 0.
  long Decode(const Ox_Buffer &in, Ox_Buffer &out);

  // Non-zero when `data` is an LZSS frame with a matching CRC or begins
  // FF AD. `method`, if given, gets 1 (LZSS) or 2 (zlib) as soon as the
  // magic is seen, even when the CRC then fails.
  static int IsCompressBuffer(const Ox_Buffer &data, int *method = nullptr);
  // gzip frame of `in`, whatever `in` holds.
  static long Deflate(const Ox_Buffer &in, Ox_Buffer &out, int level);
  // Restores a gzip frame without optional header fields.
  static long Inflate(const Ox_Buffer &in, Ox_Buffer &out);

 private:
  long encode_zlib(const Ox_Buffer &in, Ox_Buffer &out, int level);
  long decode_zlib(const Ox_Buffer &in, Ox_Buffer &out);
  long encode_lzss(const Ox_Buffer &in, Ox_Buffer &out);
  long decode_lzss(const Ox_Buffer &in, Ox_Buffer &out);
  // The LZSS match finder: one binary search tree per first byte.
  void InitTree(_Ox_Compress_Buf *buf);
  void InsertNode(_Ox_Compress_Buf *buf, int r);
  void DeleteNode(_Ox_Compress_Buf *buf, int p);
};

// The zlib coder with a stream of its own: zlib and gzip frames, and a
// decoder for a frame that arrives in pieces.
//
// Copying is a plain copy of the members, stream state included, and no
// destructor ends a stream: a piecewise decode given up before its end
// keeps its inflate state. A caller that gives one up and wants the memory
// back calls inflateEnd(&stream) itself before DecodeInit.
class OX_API Ox_Compress2 {
 public:
  // headSize -1; crc, total, the input and the allocator fields zero.
  Ox_Compress2();

  // 10 for a gzip frame (1F 8B), 2 for a zlib frame (FF AD), 0 for anything
  // else. Reads two bytes; a null pointer gives 0.
  static int GetCompHeadSize(const unsigned char *data);

  // zlib frame of `in`; a zlib or gzip frame is copied unchanged.
  long Encode(const Ox_Buffer &in, Ox_Buffer &out, int level);
  // gzip frame of `in`; only a gzip frame is copied unchanged.
  long EncodeGzip(const Ox_Buffer &in, Ox_Buffer &out, int level);
  // Restores a zlib or gzip frame given whole; other data is copied.
  long Decode(const Ox_Buffer &in, Ox_Buffer &out);

  // Prepares a new piecewise decode; returns 1.
  long DecodeInit();
  // Decodes one piece of a frame; `out` receives what came of this piece
  // alone. Returns 1 while the frame goes on, 0 at its end (and for data
  // that is no frame, which passes through piece by piece), -1 on failure.
  // The first piece must hold the whole frame head: 10 bytes and any name
  // and comment for gzip, 3 bytes for zlib.
  long DecodeData(const unsigned char *data, int len, Ox_Buffer &out);

  z_stream stream;  // the zlib stream of the running encode or decode
  int headSize;     // -1 until the first piece is seen, else its head size
  unsigned crc;     // CRC-32 of what a gzip frame has given so far
  unsigned total;   // bytes that a gzip frame has given so far
};

#endif
