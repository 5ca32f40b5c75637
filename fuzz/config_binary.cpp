// Fuzz entry for the binary loader of configurations: any bytes load or
// fail cleanly, and what loads saves to a form that loads back to the same
// bytes.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Ox_Config.h"
#include "config_fuzz_util.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  Ox_Buffer input;
  input.Set(data, static_cast<long>(size));
  Ox_Config config;
  int sections = config.LoadFromStream(input);
  if (sections < -1) abort();
  if (sections < 0) {
    if (config.GetSectionCount() != 0) abort();
    return 0;
  }
  // Each section took at least 8 bytes of the input.
  if (static_cast<size_t>(sections) * 8 > size) abort();

  // Saved, loaded and saved again: the same bytes.
  std::string first = OxFuzzConfigStream(config);
  Ox_Buffer buffer;
  config.SaveToStream(buffer);
  Ox_Config back;
  if (back.LoadFromStream(buffer) != sections) abort();
  if (OxFuzzConfigStream(back) != first) abort();
  return 0;
}
