// Fuzz target: Ox_Compress2 decoding in pieces. The first byte picks the
// piece size (1 to 64) and the frame: the rest as given, behind an FF AD
// magic, behind a bare gzip head, or compressed first (a round trip that
// must give the rest back).
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "Ox_Compress.h"

namespace {

// Feeds `frame` in pieces of `step` until a result other than 1; the
// first piece holds at least `first` bytes. Returns the last result.
long Feed(Ox_Compress2 &c, const Ox_Buffer &frame, int first, int step,
          Ox_Buffer *all) {
  const unsigned char *p = frame.GetData();
  const long size = frame.GetSize();
  long pos = 0;
  long result = 1;
  int n = first > step ? first : step;
  c.DecodeInit();
  while (pos < size && result == 1) {
    if (n > size - pos) n = static_cast<int>(size - pos);
    Ox_Buffer out;
    result = c.DecodeData(p + pos, n, out);
    if (all) all->Append(out.GetData(), out.GetSize());
    pos += n;
    n = step;
  }
  // A decode given up before its end keeps its inflate state: end it.
  inflateEnd(&c.stream);
  return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 1 || size > (1 << 20)) return 0;
  const int step = data[0] % 64 + 1;
  const int kind = data[0] / 64;
  data++;
  size--;
  Ox_Compress2 c;
  Ox_Buffer frame;
  static const unsigned char kZlib[2] = {0xFF, 0xAD};
  static const unsigned char kGzip[10] = {0x1F, 0x8B, 0x08, 0, 0, 0, 0, 0, 0, 0x0B};
  if (kind == 1) frame.Append(kZlib, 2);
  if (kind == 2) frame.Append(kGzip, 10);
  frame.Append(data, static_cast<long>(size));
  if (kind < 3) {
    Feed(c, frame, 10, step, nullptr);
    return 0;
  }
  // Round trip through either frame.
  Ox_Buffer plain, packed, back;
  plain.Set(data, static_cast<long>(size));
  const bool gzip = size && (data[0] & 1);
  const long made = gzip ? c.EncodeGzip(plain, packed, 6) : c.Encode(plain, packed, 6);
  if (made != 0) abort();
  if (plain.GetSize() >= 2 && Ox_Compress2::GetCompHeadSize(plain.GetData()) != 0)
    return 0;  // a frame already: passed as it is
  if (Feed(c, packed, 10, step, &back) != 0) abort();
  if (back.GetSize() != plain.GetSize() ||
      (size && std::memcmp(back.GetData(), data, size) != 0))
    abort();
  return 0;
}
