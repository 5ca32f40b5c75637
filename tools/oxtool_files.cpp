// `oxtool dump FILE` and `oxtool sample FILE [SAVETYPE]`.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "OxClassLib.h"
#include "oxtool_demos.h"
#include "oxtool_print.h"
#include "oxtool_sample.h"

namespace {

// Reads the whole file into `buffer`; 0 on success, else errno.
int ReadWholeFile(const char *path, Ox_Buffer &buffer) {
  FILE *file = std::fopen(path, "rb");
  if (!file) return errno;
  unsigned char chunk[65536];
  size_t got;
  while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0)
    buffer.Append(chunk, static_cast<long>(got));
  const int failed = std::ferror(file) ? EIO : 0;
  std::fclose(file);
  return failed;
}

}  // namespace

int RunDump(const char *path) {
  Ox_Buffer bytes;
  if (int error = ReadWholeFile(path, bytes)) {
    std::fprintf(stderr, "oxtool: dump: %s: %s\n", path, std::strerror(error));
    return 1;
  }
  Ox_VariableList variables;
  Ox_DatasetList datasets;
  const int count = OxBinStreamLoad(variables, datasets, bytes, 0);
  if (count < 0) {
    std::fprintf(stderr,
                 "oxtool: dump: %s: not a valid binary stream (result 0x%08X)\n",
                 path, static_cast<unsigned>(count));
    return 1;
  }
  std::printf("%s: %ld bytes, %d dataset(s)\n", path, bytes.GetSize(), count);
  std::printf("Variables:\n");
  PrintVariables(stdout, variables);
  for (int i = 0; i < datasets.Count(); ++i) {
    const Ox_Dataset *dataset = datasets.GetItem(i);
    if (dataset) PrintDataset(stdout, *dataset);
  }
  return 0;
}

int RunSample(const char *path, const char *saveTypeText) {
  int saveType = 1;
  if (saveTypeText) {
    char *end = nullptr;
    saveType = static_cast<int>(std::strtol(saveTypeText, &end, 10));
    if (!*saveTypeText || *end || saveType < 0 || saveType > 2) {
      std::fprintf(stderr, "oxtool: sample: save type must be 0, 1 or 2\n");
      return 2;
    }
  }
  Ox_VariableList parameters;
  FillParameters(parameters);
  Ox_Dataset *orders = new Ox_Dataset("orders", 65001);
  FillOrders(*orders);
  EditOrders(*orders);
  Ox_DatasetList datasets;
  datasets.AddLink(orders);
  Ox_Buffer wire;
  const int size = OxBinStreamSave(parameters, datasets, wire, 65001, 3100, saveType);
  delete orders;
  if (size < 0) {
    std::fprintf(stderr, "oxtool: sample: the save failed (%d)\n", size);
    return 1;
  }
  FILE *file = std::fopen(path, "wb");
  if (!file || std::fwrite(wire.GetData(), 1, wire.GetSize(), file) !=
                   static_cast<size_t>(wire.GetSize())) {
    std::fprintf(stderr, "oxtool: sample: %s: %s\n", path, std::strerror(errno));
    if (file) std::fclose(file);
    return 1;
  }
  if (std::fclose(file) != 0) {
    std::fprintf(stderr, "oxtool: sample: %s: %s\n", path, std::strerror(errno));
    return 1;
  }
  std::printf("%s: %d bytes, save type %d\n", path, size, saveType);
  return 0;
}
