// GetWinFileVersion over program files that the test builds byte by byte:
// a DOS header, a PE header, one resource section with a version resource,
// and corrupt or truncated forms of the same.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "Ox_File.h"

namespace {

typedef std::vector<unsigned char> Bytes;

void Put16(Bytes &b, size_t at, uint16_t v) {
  if (b.size() < at + 2) b.resize(at + 2);
  b[at] = static_cast<unsigned char>(v);
  b[at + 1] = static_cast<unsigned char>(v >> 8);
}
void Put32(Bytes &b, size_t at, uint32_t v) {
  Put16(b, at, static_cast<uint16_t>(v));
  Put16(b, at + 2, static_cast<uint16_t>(v >> 16));
}
void Pad4(Bytes &b) {
  while (b.size() % 4) b.push_back(0);
}

// One block of version data: length, value length, type, key, value,
// children, each piece aligned to 4 bytes.
Bytes Block(const std::string &key, uint16_t type, const Bytes &value,
            uint16_t valueLength, const std::vector<Bytes> &children) {
  Bytes b(6, 0);
  for (char c : key) {
    b.push_back(static_cast<unsigned char>(c));
    b.push_back(0);
  }
  b.push_back(0);
  b.push_back(0);
  Pad4(b);
  b.insert(b.end(), value.begin(), value.end());
  for (const Bytes &child : children) {
    Pad4(b);
    b.insert(b.end(), child.begin(), child.end());
  }
  Put16(b, 0, static_cast<uint16_t>(b.size()));
  Put16(b, 2, valueLength);
  Put16(b, 4, type);
  return b;
}

Bytes Text(const std::string &text) {
  Bytes b;
  for (char c : text) {
    b.push_back(static_cast<unsigned char>(c));
    b.push_back(0);
  }
  b.push_back(0);
  b.push_back(0);
  return b;
}

struct VersionShape {
  bool fixedInfo = true;
  bool varInfo = true;
  uint16_t language = 0x0409;
  uint16_t codePage = 0x04b0;
  std::string tableKey = "040904b0";
  std::string fileVersion = "1.2.3.4";
};

Bytes VersionData(const VersionShape &shape) {
  Bytes fixed(52, 0);
  Put32(fixed, 0, 0xfeef04bd);
  Put32(fixed, 4, 0x00010000);
  Bytes translation(4, 0);
  Put16(translation, 0, shape.language);
  Put16(translation, 2, shape.codePage);
  std::vector<Bytes> strings;
  strings.push_back(Block("CompanyName", 1, Text("Maker"), 6, {}));
  strings.push_back(Block("FileVersion", 1, Text(shape.fileVersion),
                          static_cast<uint16_t>(shape.fileVersion.size() + 1),
                          {}));
  std::vector<Bytes> rootChildren;
  rootChildren.push_back(Block(
      "StringFileInfo", 1, {}, 0, {Block(shape.tableKey, 1, {}, 0, strings)}));
  if (shape.varInfo) {
    rootChildren.push_back(
        Block("VarFileInfo", 1, {}, 0,
              {Block("Translation", 0, translation, 4, {})}));
  }
  return shape.fixedInfo
             ? Block("VS_VERSION_INFO", 0, fixed, 52, rootChildren)
             : Block("VS_VERSION_INFO", 0, {}, 0, rootChildren);
}

struct PeShape {
  bool pe64 = false;
  uint32_t resourceType = 16;
};

// Headers in the first 0x200 bytes, the resource section behind them at
// address 0x1000: three directory levels, the data entry, the data.
Bytes MakePe(const Bytes &version, const PeShape &shape = PeShape()) {
  Bytes pe(0x200, 0);
  pe[0] = 'M';
  pe[1] = 'Z';
  Put32(pe, 0x3c, 0x40);
  memcpy(&pe[0x40], "PE\0\0", 4);
  const uint16_t optionalSize = shape.pe64 ? 240 : 224;
  Put16(pe, 0x44, shape.pe64 ? 0x8664 : 0x14c);
  Put16(pe, 0x46, 1);  // one section
  Put16(pe, 0x54, optionalSize);
  Put16(pe, 0x56, 0x2102);
  const size_t optional = 0x58;
  Put16(pe, optional, shape.pe64 ? 0x20b : 0x10b);
  const size_t countAt = shape.pe64 ? 108 : 92;
  const size_t directories = shape.pe64 ? 112 : 96;
  Put32(pe, optional + countAt, 16);

  Bytes rsrc(0x58, 0);
  Put16(rsrc, 0x0e, 1);
  Put32(rsrc, 0x10, shape.resourceType);
  Put32(rsrc, 0x14, 0x80000000u | 0x18);
  Put16(rsrc, 0x18 + 0x0e, 1);
  Put32(rsrc, 0x28, 1);
  Put32(rsrc, 0x2c, 0x80000000u | 0x30);
  Put16(rsrc, 0x30 + 0x0e, 1);
  Put32(rsrc, 0x40, 0x0409);
  Put32(rsrc, 0x44, 0x48);
  Put32(rsrc, 0x48, 0x1000 + 0x58);
  Put32(rsrc, 0x4c, static_cast<uint32_t>(version.size()));
  rsrc.insert(rsrc.end(), version.begin(), version.end());
  Pad4(rsrc);

  Put32(pe, optional + directories + 16, 0x1000);
  Put32(pe, optional + directories + 20, static_cast<uint32_t>(rsrc.size()));
  const size_t section = optional + optionalSize;
  memcpy(&pe[section], ".rsrc\0\0\0", 8);
  Put32(pe, section + 8, static_cast<uint32_t>(rsrc.size()));
  Put32(pe, section + 12, 0x1000);
  Put32(pe, section + 16, static_cast<uint32_t>(rsrc.size()));
  Put32(pe, section + 20, 0x200);
  pe.insert(pe.end(), rsrc.begin(), rsrc.end());
  return pe;
}

class FileVersionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/ox_version_test_XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(pattern));
    dir_ = pattern;
  }
  void TearDown() override {
    const std::string command = "rm -rf '" + dir_ + "'";
    EXPECT_EQ(0, system(command.c_str()));
  }
  // Writes the bytes to a file and asks for its version; "<null>" when
  // the call answers null.
  std::string Version(const Bytes &bytes, size_t length = SIZE_MAX) {
    const std::string path = dir_ + "/prog.exe";
    {
      std::ofstream out(path, std::ios::binary | std::ios::trunc);
      out.write(reinterpret_cast<const char *>(bytes.data()),
                static_cast<std::streamsize>(std::min(length, bytes.size())));
    }
    char out[300];
    strcpy(out, "keep");
    char *result = GetWinFileVersion(path.c_str(), out);
    if (!result) return "<null>";
    EXPECT_EQ(out, result);
    return out;
  }
  std::string dir_;
};

TEST_F(FileVersionTest, ReadsTheFileVersion) {
  EXPECT_EQ("1.2.3.4", Version(MakePe(VersionData(VersionShape()))));
}

TEST_F(FileVersionTest, ReadsA64BitImage) {
  PeShape pe;
  pe.pe64 = true;
  EXPECT_EQ("1.2.3.4", Version(MakePe(VersionData(VersionShape()), pe)));
}

TEST_F(FileVersionTest, TableOfTheFirstTranslationIgnoringCase) {
  VersionShape shape;
  shape.language = 0x0412;
  shape.codePage = 0x03b5;
  shape.tableKey = "041203B5";
  shape.fileVersion = "10.0.19041.1";
  EXPECT_EQ("10.0.19041.1", Version(MakePe(VersionData(shape))));
}

TEST_F(FileVersionTest, MissingStringGivesOutUnchanged) {
  VersionShape shape;
  shape.tableKey = "040704b0";  // not the translation's table
  EXPECT_EQ("keep", Version(MakePe(VersionData(shape))));
}

TEST_F(FileVersionTest, LongVersionTextIsCut) {
  VersionShape shape;
  shape.fileVersion = std::string(400, '9');
  EXPECT_EQ(std::string(259, '9'), Version(MakePe(VersionData(shape))));
}

TEST_F(FileVersionTest, WithoutTranslationOrFixedInfoGivesNull) {
  VersionShape noVar;
  noVar.varInfo = false;
  EXPECT_EQ("<null>", Version(MakePe(VersionData(noVar))));
  VersionShape noFixed;
  noFixed.fixedInfo = false;
  EXPECT_EQ("<null>", Version(MakePe(VersionData(noFixed))));
}

TEST_F(FileVersionTest, WithoutVersionResourceGivesNull) {
  PeShape pe;
  pe.resourceType = 3;  // icons only
  EXPECT_EQ("<null>", Version(MakePe(VersionData(VersionShape()), pe)));
}

TEST_F(FileVersionTest, NotAProgramGivesNull) {
  const std::string text = "just some text, not a program at all";
  EXPECT_EQ("<null>", Version(Bytes(text.begin(), text.end())));
  EXPECT_EQ("<null>", Version(Bytes()));
  char out[16];
  EXPECT_EQ(nullptr, GetWinFileVersion((dir_ + "/missing.exe").c_str(), out));
  EXPECT_EQ(nullptr, GetWinFileVersion(dir_.c_str(), out));  // a folder
  EXPECT_EQ(nullptr, GetWinFileVersion(nullptr, out));
  const Bytes good = MakePe(VersionData(VersionShape()));
  Version(good);
  EXPECT_EQ(nullptr, GetWinFileVersion((dir_ + "/prog.exe").c_str(), nullptr));
}

TEST_F(FileVersionTest, EveryTruncationIsSafe) {
  const Bytes good = MakePe(VersionData(VersionShape()));
  for (size_t length = 0; length < good.size(); length += 5) {
    const std::string got = Version(good, length);
    // Nothing reads past the end; with the headers cut there is no result.
    if (length < 0x200 + 0x58) {
      EXPECT_EQ("<null>", got) << length;
    } else {
      EXPECT_TRUE(got == "<null>" || got == "keep" || got == "1.2.3.4")
          << length;
    }
  }
}

TEST_F(FileVersionTest, CorruptOffsetsGiveNull) {
  const Bytes good = MakePe(VersionData(VersionShape()));
  {
    Bytes bad = good;  // PE header far behind the end
    Put32(bad, 0x3c, 0xfffffff0u);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // section data behind the end of the file
    Put32(bad, 0x58 + 224 + 20, 0x7ffffff0u);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // resource address in no section
    Put32(bad, 0x58 + 96 + 16, 0x9000);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // a huge entry count, the scan running off the end
    Put16(bad, 0x200 + 0x0c, 0xffff);
    Put16(bad, 0x200 + 0x0e, 0xffff);
    Put32(bad, 0x200 + 0x10, 3);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // a directory entry pointing far away
    Put32(bad, 0x200 + 0x14, 0x80000000u | 0x7ffffff0u);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // a data entry pointing outside the section
    Put32(bad, 0x200 + 0x48, 0xfffffff0u);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // a root block longer than the data
    Put16(bad, 0x200 + 0x58, 0xfff0);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // an unknown optional header
    Put16(bad, 0x58, 0x107);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // too few data directories
    Put32(bad, 0x58 + 92, 2);
    EXPECT_EQ("<null>", Version(bad));
  }
  {
    Bytes bad = good;  // a data size beyond the section is cut to it
    Put32(bad, 0x200 + 0x4c, 0xffffffffu);
    EXPECT_EQ("1.2.3.4", Version(bad));
  }
}

TEST_F(FileVersionTest, ZeroLengthChildBlocksEndTheSearch) {
  VersionShape shape;
  Bytes version = VersionData(shape);
  // The first child of the root (StringFileInfo) gets length 0. It stands
  // behind the header (6 bytes), the key "VS_VERSION_INFO" with its NUL
  // (32 bytes), padding to 40, and the fixed information (52 bytes): 92.
  Put16(version, 92, 0);
  EXPECT_EQ("<null>", Version(MakePe(version)));
}

}  // namespace
