// Fuzz target: zlib frames, through both classes. The input is tried as a
// whole buffer, as the stream behind an FF AD magic, and in a round trip at
// a level taken from its first byte.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "Ox_Compress.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > (1 << 20)) return 0;
  Ox_Compress c;
  Ox_Compress2 c2;
  Ox_Buffer raw, framed, out;
  raw.Set(data, static_cast<long>(size));
  static const unsigned char kMagic[2] = {0xFF, 0xAD};
  framed.Append(kMagic, 2);
  framed.Append(data, static_cast<long>(size));
  c.Decode(raw, out);
  c.Decode(framed, out);
  c2.Decode(framed, out);
  if (size >= 2) c2.Decode(raw, out);
  // Round trip.
  const int level = size ? data[0] % 10 : 6;
  Ox_Buffer packed, back;
  if (!Ox_Compress::IsCompressBuffer(raw, nullptr)) {
    if (c.Encode(raw, packed, 2, level) != 0) abort();
    if (c.Decode(packed, back) != 0) abort();
    if (back.GetSize() != raw.GetSize() ||
        (size && std::memcmp(back.GetData(), data, size) != 0))
      abort();
  }
  return 0;
}
