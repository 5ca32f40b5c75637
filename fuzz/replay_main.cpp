// Runs a fuzz target's entry point over files and folders of inputs, so
// that the seed corpora and the kept findings run as ordinary tests with
// any compiler.
#include <dirent.h>
#include <sys/stat.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

int RunFile(const std::string &path) {
  FILE *file = std::fopen(path.c_str(), "rb");
  if (!file) {
    std::fprintf(stderr, "cannot open %s\n", path.c_str());
    return 1;
  }
  std::vector<uint8_t> bytes;
  uint8_t chunk[4096];
  size_t got;
  while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0)
    bytes.insert(bytes.end(), chunk, chunk + got);
  std::fclose(file);
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  return 0;
}

int RunPath(const std::string &path, int *count) {
  struct stat info;
  if (stat(path.c_str(), &info) != 0) {
    std::fprintf(stderr, "no such input: %s\n", path.c_str());
    return 1;
  }
  if (!S_ISDIR(info.st_mode)) {
    ++*count;
    return RunFile(path);
  }
  DIR *dir = opendir(path.c_str());
  if (!dir) return 1;
  int failures = 0;
  while (dirent *entry = readdir(dir)) {
    std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    failures += RunPath(path + "/" + name, count);
  }
  closedir(dir);
  return failures;
}

}  // namespace

int main(int argc, char **argv) {
  int failures = 0, count = 0;
  for (int i = 1; i < argc; ++i) failures += RunPath(argv[i], &count);
  std::printf("replayed %d inputs\n", count);
  return failures == 0 ? 0 : 1;
}
