// File-system helpers of the foundation layer.
#include <errno.h>
#include <sys/stat.h>
#include <sys/types.h>

#include "foundation/ox_result_fs.h"

std::string OxOsPath(const char *path) {
  std::string os(path ? path : "");
  for (char &c : os) {
    if (c == '\\') c = '/';
  }
  return os;
}

namespace {
bool IsFolder(const std::string &path) {
  struct stat info;
  return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}
}  // namespace

bool OxMakeFolders(const char *path) {
  const std::string os = OxOsPath(path);
  if (os.empty()) return false;
  if (IsFolder(os)) return true;
  // Make each folder of the chain from the front; a step that exists
  // already is passed over.
  for (size_t i = 1; i <= os.size(); ++i) {
    if (i < os.size() && os[i] != '/') continue;
    if (os[i - 1] == '/') continue;  // doubled separator
    const std::string step = os.substr(0, i);
    if (mkdir(step.c_str(), 0777) != 0 && errno != EEXIST) return false;
  }
  return IsFolder(os);
}
