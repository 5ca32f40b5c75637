// Fuzz entry for reading logs back: Ox_LogMsgList::Load in the mode that
// the first byte picks (-1 to 5), and Ox_Result::Load of the same text.
#include <cstddef>
#include <cstdint>

#include "Ox_Result.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 1) return 0;
  const int mode = static_cast<int>(data[0] % 7) - 1;
  Ox_Buffer text;
  text.Set(data + 1, static_cast<long>(size - 1));

  Ox_LogMsgList list(1252);
  const int count = list.Load(text, mode);
  if (count != list.Count()) __builtin_trap();
  for (int i = 0; i < count; ++i) {
    const Ox_LogMsg *record = list.GetItem(i);
    // A pair points both ways.
    if (record->peer >= 0) {
      const Ox_LogMsg *peer = list.GetItem(record->peer);
      if (!peer || peer->peer != i) __builtin_trap();
    }
  }

  // The same bytes as the text form of a result, in both modes.
  const Ox_AString asText(reinterpret_cast<const char *>(data + 1),
                          static_cast<int>(size - 1));
  SetServerMode(data[0] & 0x80 ? 1 : 0);
  Ox_Result result;
  result.Load(asText, 1, 0);
  Ox_AString saved;
  result.Save(saved, 0);
  SetServerMode(0);
  return 0;
}
