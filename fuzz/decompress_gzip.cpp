// Fuzz target: gzip frames. The input is tried as a whole buffer with
// Inflate and Ox_Compress2::Decode, as the data behind a bare gzip head,
// and in a round trip.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "Ox_Compress.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > (1 << 20)) return 0;
  Ox_Compress2 c2;
  Ox_Buffer raw, framed, out;
  raw.Set(data, static_cast<long>(size));
  static const unsigned char kHead[10] = {0x1F, 0x8B, 0x08, 0, 0, 0, 0, 0, 0, 0x0B};
  framed.Append(kHead, 10);
  framed.Append(data, static_cast<long>(size));
  Ox_Compress::Inflate(raw, out);
  Ox_Compress::Inflate(framed, out);
  c2.Decode(framed, out);
  if (size >= 2) c2.Decode(raw, out);
  // Round trip.
  Ox_Buffer packed, back;
  if (Ox_Compress::Deflate(raw, packed, size ? data[0] % 10 : 6) != 0) abort();
  if (Ox_Compress::Inflate(packed, back) != 0) abort();
  if (back.GetSize() != raw.GetSize() ||
      (size && std::memcmp(back.GetData(), data, size) != 0))
    abort();
  return 0;
}
