// Fuzz entry for the text loader of configuration files: the input is
// written to a file of its own and loaded; what loads must survive the
// binary form unchanged.
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "Ox_Config.h"
#include "config_fuzz_util.h"

namespace {

// One temporary file per process, made on first use.
const std::string &InputPath() {
  static const std::string path = [] {
    char pattern[] = "/tmp/ox_fuzz_config_text_XXXXXX";
    int fd = mkstemp(pattern);
    if (fd >= 0) close(fd);
    return std::string(pattern);
  }();
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  FILE *file = fopen(InputPath().c_str(), "wb");
  if (!file) return 0;
  fwrite(data, 1, size, file);
  fclose(file);

  Ox_Config config;
  int sections = config.Load(InputPath().c_str());
  if (sections < 0 || sections != config.GetSectionCount()) abort();

  // Through the binary form and back: the same bytes again. A section with
  // an empty name after the first can't make the trip (the binary form
  // reads a missing name as the one before), so such input stops here.
  for (int i = 1; i < config.GetSectionCount(); ++i)
    if (config.GetItemNN(i).id.GetLength() == 0) return 0;
  std::string first = OxFuzzConfigStream(config);
  Ox_Buffer buffer;
  config.SaveToStream(buffer);
  Ox_Config back;
  if (back.LoadFromStream(buffer) != sections) abort();
  if (OxFuzzConfigStream(back) != first) abort();

  // Every access member copes with what was loaded.
  for (int i = 0; i < config.GetSectionCount(); ++i) {
    const Ox_ConfigSection &section = config.GetItemNN(i);
    for (int j = 0; j < section.Count(); ++j)
      (void)config.GetItemNN(section.id.GetString(), section.Id(j).GetString());
  }
  return 0;
}
