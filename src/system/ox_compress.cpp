// Ox_Compress: recognition of the frames and the choice of coder.
#include "Ox_Compress.h"

#include "system/ox_compress_internal.h"

int Ox_Compress::IsCompressBuffer(const Ox_Buffer &data, int *method) {
  const unsigned char *p = data.GetData();
  const long size = data.GetSize();
  // 1. The first word, big-endian, names the frame.
  if (size < 2) return 0;
  const unsigned word = unsigned(p[0]) << 8 | p[1];
  if (word != kOxMagicLzss && word != kOxMagicLzssSwapped &&
      word != kOxMagicZlib)
    return 0;
  const int kind = word == kOxMagicZlib ? 2 : 1;
  if (method) *method = kind;
  // 2. A zlib frame is taken on its magic alone.
  if (kind == 2) return 1;
  // 3. An LZSS frame must carry the CRC of all behind its head, so data
  //    that starts with the magic by chance counts as plain data.
  if (size < 6) return 0;
  unsigned stored = OxReadBe32(p + 2);
  if (word == kOxMagicLzssSwapped) stored = OxReadLe32(p + 2);
  return stored == OxCompressCrc(0, p + 6, size - 6) ? 1 : 0;
}

long Ox_Compress::Encode(const Ox_Buffer &in, Ox_Buffer &out, int method,
                         int level) {
  // A frame is never compressed twice, whatever the method.
  if (IsCompressBuffer(in, nullptr)) {
    out.Set(in);
    return 0;
  }
  switch (method) {
    case 1:
      return encode_lzss(in, out);
    case 2:
      return encode_zlib(in, out, level);
    default:
      return -1;
  }
}

long Ox_Compress::Decode(const Ox_Buffer &in, Ox_Buffer &out) {
  int method = 0;
  // Data that is no frame passes through unchanged.
  if (!IsCompressBuffer(in, &method)) {
    out.Set(in);
    return 0;
  }
  if (method == 1) return decode_lzss(in, out);
  if (method == 2) return decode_zlib(in, out);
  return -1;
}
