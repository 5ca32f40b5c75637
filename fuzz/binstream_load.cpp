// Fuzz entry for the reader of the first binary stream. The first byte
// picks the locale's code page and the stream's code page argument; the
// rest is the stream, read whole by OxBinStreamLoad and, from the same
// bytes, as a row block by LoadNext.
#include <cstdint>
#include <cstdlib>

#include "Ox_BinStream.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  static const unsigned kPages[] = {65001, 949, 932, 1252};
  const unsigned count = sizeof(kPages) / sizeof(kPages[0]);
  OxSetLocale(0, kPages[data[0] % count]);
  const unsigned streamPage = kPages[(data[0] / count) % count];

  Ox_Buffer buffer;
  buffer.Set(data + 1, static_cast<long>(size - 1));

  Ox_VariableList vars;
  Ox_DatasetList datasets;
  const int result = OxBinStreamLoad(vars, datasets, buffer, streamPage);
  // A dataset takes at least a few bytes of the stream.
  if (result > static_cast<int>(size)) abort();
  if (result >= 0 && result != datasets.Count()) abort();

  // Whatever was read is written again without fault.
  Ox_Buffer again;
  OxBinStreamSave(vars, datasets, again, streamPage, 3100, 1);

  // The same bytes as one row block after another.
  Ox_Dataset ds;
  int position = 0;
  for (int round = 0; round < 64 && position >= 0 && position < buffer.GetSize();
       ++round) {
    int rows = 0;
    const int next = ds.LoadNext(buffer, position, rows);
    if (next >= 0 && next < position) abort();
    if (next == position) break;
    position = next;
  }
  return 0;
}
