// Fuzz target: LZSS frames. The input is tried as a whole buffer (frame
// recognition, pass-through), as the stream of a frame with a matching CRC
// in both byte orders (the decoder itself), and in a round trip.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_Compress.h"

namespace {

Ox_Buffer Frame(const uint8_t *data, size_t size, bool swapped) {
  const unsigned crc = ox_crc32(0, data, static_cast<int>(size));
  unsigned char head[6] = {0xFF, 0xAC};
  if (swapped) std::swap(head[0], head[1]);
  for (int i = 0; i < 4; i++)
    head[2 + i] = static_cast<unsigned char>(crc >> (swapped ? 8 * i : 24 - 8 * i));
  Ox_Buffer frame;
  frame.Append(head, 6);
  frame.Append(data, static_cast<long>(size));
  return frame;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size > (1 << 20)) return 0;
  Ox_Compress c;
  Ox_Buffer raw, out;
  raw.Set(data, static_cast<long>(size));
  int method = 0;
  Ox_Compress::IsCompressBuffer(raw, &method);
  c.Decode(raw, out);
  c.Decode(Frame(data, size, false), out);
  c.Decode(Frame(data, size, true), out);
  // What the encoder makes, the decoder gives back (unless the input is a
  // frame already, which the encoder passes as it is).
  if (!Ox_Compress::IsCompressBuffer(raw, nullptr)) {
    Ox_Buffer packed, back;
    if (c.Encode(raw, packed, 1, 0) != 0) abort();
    if (c.Decode(packed, back) != 0) abort();
    if (back.GetSize() != raw.GetSize() ||
        (size && std::memcmp(back.GetData(), data, size) != 0))
      abort();
  }
  return 0;
}
