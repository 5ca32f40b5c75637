// GetWinFileVersion: the FileVersion text of a program file, read from the
// version resource in the file's own bytes.
//
// The way to it: the DOS header gives the offset of the PE header; the
// optional header's data directory 2 gives the resource directory; the
// section table maps addresses to file offsets; the resource tree leads
// by type 16 (version), then the first name and the first language, to
// the version data. That data is a tree of blocks (length, value length,
// type, key, value, children), in which the root's value is the fixed file
// information, "\VarFileInfo\Translation" gives language and code page, and
// "\StringFileInfo\<lang><cp>\FileVersion" the text. Every offset and count
// read from the file is checked against what is there.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "Ox_File.h"
#include "foundation/ox_result_fs.h"

namespace {

const uint32_t kResourceTypeVersion = 16;
const uint32_t kHighBit = 0x80000000u;
const size_t kMaxSections = 1024;
const size_t kMaxEntries = 4096;
const size_t kMaxVersionSize = 65536;  // block lengths are 16-bit
const size_t kMaxOut = 259;            // characters copied to `out`

uint16_t Le16(const unsigned char *p) {
  return static_cast<uint16_t>(p[0] | (p[1] << 8));
}
uint32_t Le32(const unsigned char *p) {
  return static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
         (static_cast<uint32_t>(p[2]) << 16) |
         (static_cast<uint32_t>(p[3]) << 24);
}

// Reads byte ranges of the file; a range not wholly in the file fails.
class FileBytes {
 public:
  explicit FileBytes(int fd) : fd_(fd), size_(0) {
    struct stat info;
    if (fstat(fd, &info) == 0 && S_ISREG(info.st_mode)) {
      size_ = static_cast<uint64_t>(info.st_size);
    }
  }
  bool Read(uint64_t offset, void *out, size_t count) const {
    if (offset > size_ || count > size_ - offset) return false;
    size_t done = 0;
    while (done < count) {
      const ssize_t n = pread(fd_, static_cast<char *>(out) + done,
                              count - done, static_cast<off_t>(offset + done));
      if (n <= 0) return false;
      done += static_cast<size_t>(n);
    }
    return true;
  }

 private:
  int fd_;
  uint64_t size_;
};

struct Section {
  uint32_t address;  // relative virtual address
  uint32_t span;     // the larger of virtual and raw size
  uint32_t rawSize;
  uint32_t rawOffset;
};

// The file offset of a relative virtual address, and the bytes of the
// section's raw data from there on.
bool AddressToOffset(const std::vector<Section> &sections, uint32_t address,
                     uint64_t &offset, uint64_t &available) {
  for (const Section &s : sections) {
    if (address < s.address || address - s.address >= s.span) continue;
    const uint32_t into = address - s.address;
    if (into >= s.rawSize) return false;  // not backed by file data
    offset = static_cast<uint64_t>(s.rawOffset) + into;
    available = s.rawSize - into;
    return true;
  }
  return false;
}

// One entry of a resource directory at `dir`: the first one whose id is
// `wantedId` (any when -1) and whose kind (subdirectory or data) is
// `wantDirectory`. Gives the entry's offset field without the high bit.
bool FindEntry(const FileBytes &file, uint64_t base, uint64_t dirOffset,
               long long wantedId, bool wantDirectory, uint32_t &target) {
  unsigned char head[16];
  if (!file.Read(base + dirOffset, head, sizeof head)) return false;
  size_t count = static_cast<size_t>(Le16(head + 12)) + Le16(head + 14);
  if (count > kMaxEntries) count = kMaxEntries;
  for (size_t i = 0; i < count; ++i) {
    unsigned char entry[8];
    if (!file.Read(base + dirOffset + 16 + 8 * i, entry, sizeof entry)) {
      return false;
    }
    const uint32_t name = Le32(entry);
    const uint32_t where = Le32(entry + 4);
    const bool isDirectory = (where & kHighBit) != 0;
    if (isDirectory != wantDirectory) continue;
    if (wantedId >= 0 &&
        ((name & kHighBit) != 0 || name != static_cast<uint32_t>(wantedId))) {
      continue;
    }
    target = where & ~kHighBit;
    return true;
  }
  return false;
}

// The version data of the first name and language under type 16.
bool ReadVersionData(const FileBytes &file, std::vector<unsigned char> &out) {
  unsigned char dos[64];
  if (!file.Read(0, dos, sizeof dos) || dos[0] != 'M' || dos[1] != 'Z') {
    return false;
  }
  const uint64_t peOffset = Le32(dos + 0x3c);
  unsigned char pe[24];
  if (!file.Read(peOffset, pe, sizeof pe) || memcmp(pe, "PE\0\0", 4) != 0) {
    return false;
  }
  const size_t sectionCount = Le16(pe + 6);
  const size_t optionalSize = Le16(pe + 20);
  if (sectionCount > kMaxSections) return false;

  // The optional header: its kind fixes where the data directories stand.
  std::vector<unsigned char> optional(optionalSize);
  if (optionalSize < 2 ||
      !file.Read(peOffset + 24, optional.data(), optionalSize)) {
    return false;
  }
  size_t countAt, directoriesAt;
  switch (Le16(optional.data())) {
    case 0x10b: countAt = 92; directoriesAt = 96; break;    // 32-bit
    case 0x20b: countAt = 108; directoriesAt = 112; break;  // 64-bit
    default: return false;
  }
  if (optionalSize < directoriesAt + 3 * 8) return false;
  if (Le32(optional.data() + countAt) < 3) return false;
  const uint32_t resourceAddress = Le32(optional.data() + directoriesAt + 16);
  if (resourceAddress == 0) return false;

  // The section table, behind the optional header.
  std::vector<Section> sections;
  const uint64_t tableAt = peOffset + 24 + optionalSize;
  for (size_t i = 0; i < sectionCount; ++i) {
    unsigned char raw[40];
    if (!file.Read(tableAt + 40 * i, raw, sizeof raw)) return false;
    Section s;
    const uint32_t virtualSize = Le32(raw + 8);
    s.address = Le32(raw + 12);
    s.rawSize = Le32(raw + 16);
    s.rawOffset = Le32(raw + 20);
    s.span = virtualSize > s.rawSize ? virtualSize : s.rawSize;
    sections.push_back(s);
  }

  // The resource tree: type, then name, then language.
  uint64_t base = 0, available = 0;
  if (!AddressToOffset(sections, resourceAddress, base, available)) {
    return false;
  }
  uint32_t names = 0, languages = 0, dataEntry = 0;
  if (!FindEntry(file, base, 0, kResourceTypeVersion, true, names) ||
      !FindEntry(file, base, names, -1, true, languages) ||
      !FindEntry(file, base, languages, -1, false, dataEntry)) {
    return false;
  }
  unsigned char data[16];
  if (!file.Read(base + dataEntry, data, sizeof data)) return false;
  uint64_t dataOffset = 0, dataAvailable = 0;
  if (!AddressToOffset(sections, Le32(data), dataOffset, dataAvailable)) {
    return false;
  }
  uint64_t size = Le32(data + 4);
  if (size > dataAvailable) size = dataAvailable;
  if (size > kMaxVersionSize) size = kMaxVersionSize;
  if (size < 6) return false;
  out.resize(static_cast<size_t>(size));
  return file.Read(dataOffset, out.data(), out.size());
}

// One block of the version data.
struct Block {
  size_t end = 0;          // behind its last byte
  std::u16string key;
  size_t valueAt = 0;
  size_t valueBytes = 0;
  size_t childrenAt = 0;
};

size_t Align4(size_t offset) { return (offset + 3) & ~static_cast<size_t>(3); }

bool ReadBlock(const std::vector<unsigned char> &data, size_t at,
               size_t limit, Block &block) {
  if (at + 6 > limit) return false;
  const size_t length = Le16(data.data() + at);
  const size_t valueLength = Le16(data.data() + at + 2);
  const uint16_t type = Le16(data.data() + at + 4);
  if (length < 6 || at + length > limit) return false;
  block.end = at + length;
  block.key.clear();
  size_t p = at + 6;
  for (; p + 2 <= block.end; p += 2) {
    const char16_t c = Le16(data.data() + p);
    if (c == 0) break;
    block.key += c;
  }
  p = Align4(p + 2);
  // A text value counts 16-bit units, a binary one bytes.
  const size_t bytes = type == 1 ? valueLength * 2 : valueLength;
  block.valueAt = p < block.end ? p : block.end;
  block.valueBytes = bytes < block.end - block.valueAt
                         ? bytes
                         : block.end - block.valueAt;
  block.childrenAt = Align4(block.valueAt + block.valueBytes);
  return true;
}

bool SameKey(const std::u16string &key, const char *wanted) {
  const size_t length = strlen(wanted);
  if (key.size() != length) return false;
  for (size_t i = 0; i < length; ++i) {
    char16_t a = key[i];
    char16_t b = static_cast<unsigned char>(wanted[i]);
    if (a >= 'A' && a <= 'Z') a = static_cast<char16_t>(a + 32);
    if (b >= 'A' && b <= 'Z') b = static_cast<char16_t>(b + 32);
    if (a != b) return false;
  }
  return true;
}

// The child of `parent` with the key, compared without regard to case.
bool FindChild(const std::vector<unsigned char> &data, const Block &parent,
               const char *key, Block &child) {
  size_t at = parent.childrenAt;
  while (at + 6 <= parent.end) {
    if (!ReadBlock(data, at, parent.end, child)) return false;
    if (SameKey(child.key, key)) return true;
    at = Align4(child.end);
  }
  return false;
}

}  // namespace

char *GetWinFileVersion(const char *path, char *out) {
  if (!path || !*path || !out) return nullptr;
  const int fd = open(OxOsPath(path).c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return nullptr;
  std::vector<unsigned char> data;
  const bool found = ReadVersionData(FileBytes(fd), data);
  close(fd);
  if (!found) return nullptr;

  // The root block, with its fixed file information.
  Block root;
  if (!ReadBlock(data, 0, data.size(), root) || root.valueBytes == 0) {
    return nullptr;
  }
  // The first translation: language in the low word, code page in the high.
  Block varInfo, translation;
  if (!FindChild(data, root, "VarFileInfo", varInfo) ||
      !FindChild(data, varInfo, "Translation", translation) ||
      translation.valueBytes < 4) {
    return nullptr;
  }
  const unsigned language = Le16(data.data() + translation.valueAt);
  const unsigned codePage = Le16(data.data() + translation.valueAt + 2);
  char tableKey[16];
  snprintf(tableKey, sizeof tableKey, "%04x%04x", language, codePage);

  // The FileVersion text of that translation, if there is one.
  Block stringInfo, table, version;
  if (FindChild(data, root, "StringFileInfo", stringInfo) &&
      FindChild(data, stringInfo, tableKey, table) &&
      FindChild(data, table, "FileVersion", version)) {
    std::u16string text;
    for (size_t p = version.valueAt; p + 2 <= version.valueAt +
                                             version.valueBytes; p += 2) {
      const char16_t c = Le16(data.data() + p);
      if (c == 0) break;
      text += c;
    }
    const Ox_AString narrow(text.c_str(), static_cast<int>(text.size()), 0);
    const size_t length = static_cast<size_t>(narrow.GetLength()) < kMaxOut
                              ? static_cast<size_t>(narrow.GetLength())
                              : kMaxOut;
    memcpy(out, narrow.GetString(), length);
    out[length] = '\0';
  }
  return out;
}
