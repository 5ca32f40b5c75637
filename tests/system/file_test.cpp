// Ox_File: mode strings, path kinds, sharing, data and the whole-file
// helpers.
#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_File.h"

namespace {

// Reaches the protected path operations.
class PathProbe : public Ox_File {
 public:
  using Ox_File::CheckPath;
  using Ox_File::GetWorkPath;
};

class FileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/ox_file_test_XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(pattern));
    dir_ = pattern;
    char cwd[4096];
    ASSERT_NE(nullptr, getcwd(cwd, sizeof cwd));
    oldCwd_ = cwd;
    OxSetLocale(0x0409, 1252);
  }
  void TearDown() override {
    EXPECT_EQ(0, chdir(oldCwd_.c_str()));
    const std::string command = "rm -rf '" + dir_ + "'";
    EXPECT_EQ(0, system(command.c_str()));
    setenv("TZ", "UTC", 1);
    tzset();
  }
  std::string Path(const std::string &name) const { return dir_ + "/" + name; }
  static void Put(const std::string &path, const std::string &data) {
    std::ofstream out(path, std::ios::binary);
    out << data;
  }
  static std::string Get(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream all;
    all << in.rdbuf();
    return all.str();
  }
  static bool Exists(const std::string &path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0;
  }

  std::string dir_;
  std::string oldCwd_;
};

// ------------------------------------------------------------ mode strings

TEST_F(FileTest, ModeStringsAreChecked) {
  const std::string p = Path("m.txt");
  Put(p, "data");
  Ox_File f;
  EXPECT_EQ(0, f.Open(p.c_str(), "r+b"));
  EXPECT_EQ(Ox_File::GENERIC_READ_ACCESS | Ox_File::GENERIC_WRITE_ACCESS,
            f.access);
  f.Close();
  EXPECT_EQ(-1, f.Open(p.c_str(), "rwb+"));  // four bytes
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open(p.c_str(), "x"));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open(p.c_str(), "+r"));  // first letter
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open(p.c_str(), "wa"));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open(p.c_str(), "rtb"));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open(p.c_str(), ""));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open(p.c_str(), (const char *)nullptr));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open((const char *)nullptr, "r"));
  EXPECT_EQ(123, f.lastError);
  EXPECT_EQ(-1, f.Open("", "r"));
  EXPECT_EQ(123, f.lastError);
  // "at": append, create, write, text.
  const std::string q = Path("at.txt");
  EXPECT_EQ(0, f.Open(q.c_str(), "at"));
  EXPECT_TRUE(Exists(q));
  EXPECT_EQ(Ox_File::GENERIC_WRITE_ACCESS, f.access);
}

TEST_F(FileTest, FlagConflictsAreRefused) {
  const std::string p = Path("f.txt");
  Put(p, "x");
  Ox_File f;
  EXPECT_EQ(-1, f.Open(p.c_str(), 0x30 | 0x1, 0));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open(p.c_str(), 0x300 | 0x1, 0));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Open((const char *)nullptr, 1, 0));
  EXPECT_EQ(123, f.lastError);
}

// ------------------------------------------------------------ path kinds

TEST_F(FileTest, WebAddressesAreNotSupported) {
  Ox_File f;
  EXPECT_EQ(-1, f.Open("http://a", "r"));
  EXPECT_EQ(50, f.lastError);
  EXPECT_EQ(2, f.pathKind);
  EXPECT_EQ(-1, f.Open("HTTP://a/b", "w"));
  EXPECT_EQ(50, f.lastError);
  EXPECT_EQ(-1, f.Open("ftp://", "r"));
  EXPECT_EQ(50, f.lastError);
  EXPECT_EQ(3, f.pathKind);
  // A longer ftp address is a relative path: not openable for reading.
  f.lastError = 0;
  EXPECT_EQ(-1, f.Open("ftp://host/x", "r"));
  EXPECT_EQ(-1, f.pathKind);
  EXPECT_NE(50, f.lastError);
}

TEST_F(FileTest, RelativePathIsWrittenButNotRead) {
  ASSERT_EQ(0, chdir(dir_.c_str()));
  Put(Path("rel.txt"), "abc");
  Ox_File f;
  EXPECT_EQ(-1, f.Open("rel.txt", "r"));
  EXPECT_EQ(-1, f.pathKind);
  EXPECT_EQ(0, f.Open("new.txt", "w"));
  EXPECT_TRUE(Exists(Path("new.txt")));
  EXPECT_STREQ("new.txt", f.fileName.GetString());
}

TEST_F(FileTest, LocalPathForms) {
  const std::string p = Path("local.txt");
  Put(p, "abc");
  Ox_File f;
  // A path from the root.
  EXPECT_EQ(0, f.Open(p.c_str(), "r"));
  EXPECT_EQ(1, f.pathKind);
  EXPECT_STREQ(p.c_str(), f.fileName.GetString());
  f.Close();
  // The backslash form of the same path.
  std::string back = p;
  for (char &c : back) c = c == '/' ? '\\' : c;
  EXPECT_EQ(0, f.Open(back.c_str(), "r"));
  EXPECT_EQ(0, f.pathKind);
  EXPECT_STREQ(back.c_str(), f.fileName.GetString());
  f.Close();
  // A file address: its path, in the backslash form.
  const std::string url = "file://" + p;
  EXPECT_EQ(0, f.Open(url.c_str(), "r"));
  EXPECT_EQ(0, f.pathKind);
  EXPECT_STREQ(back.c_str(), f.fileName.GetString());
  char data[8];
  int len = 3;
  EXPECT_EQ(3, f.Read(data, len, 0));
  EXPECT_STREQ("abc", data);
}

TEST_F(FileTest, MissingFileForReading) {
  Ox_File f;
  EXPECT_EQ(-1, f.Open(Path("none").c_str(), "r"));
  EXPECT_EQ(ENOENT, f.lastError);
  EXPECT_FALSE(f.IsOpen());
  // The object is usable again afterwards.
  Put(Path("some"), "1");
  EXPECT_EQ(0, f.Open(Path("some").c_str(), "r"));
}

TEST_F(FileTest, CheckPathCompletesRelativePaths) {
  ASSERT_EQ(0, chdir(dir_.c_str()));
  ASSERT_EQ(0, mkdir(Path("sub").c_str(), 0777));
  Put(Path("sub/x"), "1");
  PathProbe probe;
  const std::string work = dir_ + "/";
  EXPECT_STREQ(work.c_str(), probe.GetWorkPath());
  Ox_AString real;
  int kind = 0;
  EXPECT_EQ(0, probe.CheckPath("sub/x", kind, real));
  EXPECT_EQ(0, kind);
  EXPECT_EQ(work + "sub\\x", real.GetString());
  kind = 0;
  EXPECT_EQ(0, probe.CheckPath(".\\sub\\x", kind, real));
  EXPECT_EQ(work + "sub\\x", real.GetString());
  // One folder up from the current directory.
  ASSERT_EQ(0, chdir(Path("sub").c_str()));
  kind = 1;
  EXPECT_EQ(1, probe.CheckPath("../sub/x", kind, real));
  EXPECT_EQ(work + "sub/x", real.GetString());
  // Kind 2 keeps its own kind and needs no file.
  kind = 2;
  EXPECT_EQ(2, probe.CheckPath("a\\b", kind, real));
  EXPECT_EQ(2, kind);
  EXPECT_EQ(work + "sub/a/b", real.GetString());
  // No kind given: nothing is done, and -1 results.
  kind = -1;
  EXPECT_EQ(-1, probe.CheckPath("x", kind, real));
  EXPECT_STREQ("x", real.GetString());
  // A missing local file fails the check.
  kind = 0;
  EXPECT_EQ(-1, probe.CheckPath("missing", kind, real));
  EXPECT_EQ(ENOENT, probe.lastError);
  kind = 5;
  EXPECT_EQ(-1, probe.CheckPath(nullptr, kind, real));
  EXPECT_EQ(-1, kind);
}

// ------------------------------------------------------------ creation

TEST_F(FileTest, CreationKinds) {
  const std::string p = Path("c.txt");
  Put(p, "old data");
  Ox_File f;
  // "w" empties an existing file.
  EXPECT_EQ(0, f.Open(p.c_str(), "w"));
  EXPECT_EQ(Ox_File::CREATE_ALWAYS_FILE, f.creation);
  EXPECT_EQ(Ox_File::SHARE_READ, f.shareMode);
  EXPECT_EQ(0, f.GetSize());
  f.Close();
  // "a" appends, and creates a missing file.
  Put(p, "ab");
  EXPECT_EQ(0, f.Open(p.c_str(), "a"));
  EXPECT_EQ(Ox_File::OPEN_EXISTING_FILE, f.creation);
  EXPECT_EQ(2, f.Write("cd", 2, -1));
  f.Close();
  EXPECT_EQ("abcd", Get(p));
  const std::string q = Path("fresh.txt");
  EXPECT_EQ(0, f.Open(q.c_str(), "a"));
  EXPECT_EQ(Ox_File::CREATE_NEW_FILE, f.creation);
  f.Close();
  // Create without append or truncate: the file must be new.
  EXPECT_EQ(-1, f.Open(p.c_str(), 0x1002, 0));
  EXPECT_EQ(EEXIST, f.lastError);
  // Without the create flag a missing file is not made.
  EXPECT_EQ(-1, f.Open(Path("nope").c_str(), 0x2, 0));
  EXPECT_FALSE(Exists(Path("nope")));
  // Reading shares reading and writing.
  EXPECT_EQ(0, f.Open(p.c_str(), "r"));
  EXPECT_EQ(Ox_File::SHARE_READ | Ox_File::SHARE_WRITE, f.shareMode);
}

// ------------------------------------------------------------ sharing

TEST_F(FileTest, WriterRefusesOtherWritersButNotReaders) {
  const std::string p = Path("s.txt");
  Put(p, "shared");
  Ox_File writer;
  ASSERT_EQ(0, writer.Open(p.c_str(), "r+"));
  Ox_File second;
  EXPECT_EQ(-1, second.Open(p.c_str(), 0x3, 0));
  EXPECT_EQ(32, second.lastError);
  Ox_File reader;
  EXPECT_EQ(0, reader.Open(p.c_str(), "r"));
  // With retryReadOnly the open falls back to reading.
  Ox_File retried;
  EXPECT_EQ(1, retried.Open(p.c_str(), 0x3, 1));
  char data[16];
  int len = 6;
  EXPECT_EQ(6, retried.Read(data, len, 0));
  EXPECT_STREQ("shared", data);
  EXPECT_EQ(-1, retried.Write("x", 1, -1));
  writer.Close();
  EXPECT_EQ(0, second.Open(p.c_str(), 0x3, 0));
}

TEST_F(FileTest, FileOpenedForWritingByAnotherProcess) {
  const std::string p = Path("proc.txt");
  Put(p, "from child");
  int ready[2], done[2];
  ASSERT_EQ(0, pipe(ready));
  ASSERT_EQ(0, pipe(done));
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Ox_File writer;
    const char status = writer.Open(p.c_str(), "a") == 0 ? 'y' : 'n';
    if (write(ready[1], &status, 1) != 1) _exit(2);
    char wait;
    if (read(done[0], &wait, 1) < 0) _exit(3);
    _exit(0);
  }
  char status = 0;
  ASSERT_EQ(1, read(ready[0], &status, 1));
  ASSERT_EQ('y', status);
  Ox_File f;
  EXPECT_EQ(-1, f.Open(p.c_str(), 0x3, 0));
  EXPECT_EQ(32, f.lastError);
  EXPECT_EQ(1, f.Open(p.c_str(), 0x3, 1));
  char data[16];
  int len = 10;
  EXPECT_EQ(10, f.Read(data, len, 0));
  EXPECT_EQ(-1, f.Write("x", 1, -1));
  const char go = 'g';
  EXPECT_EQ(1, write(done[1], &go, 1));
  int exitStatus = 0;
  waitpid(child, &exitStatus, 0);
  EXPECT_EQ(0, exitStatus);
  for (int fd : {ready[0], ready[1], done[0], done[1]}) close(fd);
}

// ------------------------------------------------------------ data

TEST_F(FileTest, ReadOfTenBytesWritesEleven) {
  const std::string p = Path("r.txt");
  Put(p, "0123456789ABC");
  Ox_File f(p.c_str(), FILE_MODE_READ);
  ASSERT_TRUE(f.IsOpen());
  char data[16];
  memset(data, 'x', sizeof data);
  int len = 10;
  EXPECT_EQ(10, f.Read(data, len, 0));
  EXPECT_EQ(10, len);
  EXPECT_EQ(0, memcmp(data, "0123456789", 10));
  EXPECT_EQ('\0', data[10]);
  EXPECT_EQ('x', data[11]);
  // At the end fewer come back.
  len = 10;
  EXPECT_EQ(3, f.Read(data, len, 0));
  EXPECT_EQ(3, len);
  EXPECT_STREQ("ABC", data);
}

TEST_F(FileTest, ReadAndWriteArguments) {
  const std::string p = Path("a.txt");
  Ox_File f;
  ASSERT_EQ(0, f.Open(p.c_str(), "w+"));
  EXPECT_EQ(-1, f.Write(nullptr, 1, -1));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(-1, f.Write("a", -1, -1));
  EXPECT_EQ(87, f.lastError);
  EXPECT_EQ(0, f.Write("a", 0, -1));
  int len = 1;
  EXPECT_EQ(-1, f.Read(nullptr, len, 0));
  EXPECT_EQ(87, f.lastError);
  char data[4];
  len = -2;
  EXPECT_EQ(-1, f.Read(data, len, 0));
  len = 0;
  EXPECT_EQ(0, f.Read(data, len, 0));
  EXPECT_EQ(5, f.Write("hello", 5, -1));
  EXPECT_EQ(5, f.GetSize());
}

TEST_F(FileTest, SeekAndSetEndOfFile) {
  Ox_File closed;
  EXPECT_EQ(-1, closed.Seek(0, Ox_File::FILE_BEGIN));
  EXPECT_EQ(0, closed.GetSize());
  const std::string p = Path("seek.txt");
  Put(p, "0123456789");
  Ox_File f;
  ASSERT_EQ(0, f.Open(p.c_str(), "r+"));
  EXPECT_EQ(4, f.Seek(4, Ox_File::FILE_BEGIN));
  EXPECT_EQ(6, f.Seek(2, Ox_File::FILE_CURRENT));
  EXPECT_EQ(10, f.Seek(0, Ox_File::FILE_END));
  EXPECT_EQ(-1, f.Seek(-20, Ox_File::FILE_BEGIN));
  EXPECT_EQ(EINVAL, f.lastError);
  EXPECT_EQ(3, f.Seek(3, Ox_File::FILE_BEGIN));
  EXPECT_EQ(1, f.SetEndOfFile());
  EXPECT_EQ(3, f.GetSize());
  f.Close();
  EXPECT_EQ("012", Get(p));
  EXPECT_EQ(0, f.SetEndOfFile());
}

TEST_F(FileTest, AppendPositionsAtTheEnd) {
  const std::string p = Path("app.txt");
  Put(p, "12345");
  Ox_File f;
  ASSERT_EQ(0, f.Open(p.c_str(), "a+"));
  EXPECT_EQ(5, f.Seek(0, Ox_File::FILE_CURRENT));
}

TEST_F(FileTest, CloseResetsTheOpenValues) {
  const std::string p = Path("close.txt");
  Put(p, "x");
  Ox_File f;
  ASSERT_EQ(0, f.Open(p.c_str(), "r"));
  f.lastError = 9;
  f.Close();
  EXPECT_FALSE(f.IsOpen());
  EXPECT_EQ(OX_INVALID_HANDLE, f.handle);
  EXPECT_EQ(0u, f.access);
  EXPECT_EQ(0u, f.shareMode);
  EXPECT_EQ(0u, f.creation);
  EXPECT_EQ(0, f.lastError);
  f.Close();  // closing twice is harmless
}

TEST_F(FileTest, FileErrorKeepsTheSystemNumber) {
  Ox_File f;
  errno = ENOSPC;
  EXPECT_EQ(-1, f._file_error());
  EXPECT_EQ(ENOSPC, f.lastError);
  EXPECT_EQ(ENOSPC, f.GetLastError());
}

TEST_F(FileTest, CopiesAndAssignment) {
  const std::string p = Path("copy.txt");
  Put(p, "abcdef");
  Ox_File f;
  ASSERT_EQ(0, f.Open(p.c_str(), "r"));
  Ox_File constructed(f);
  EXPECT_FALSE(constructed.IsOpen());
  EXPECT_EQ(0, constructed.fileName.GetLength());
  Ox_File byInt(0);
  EXPECT_FALSE(byInt.IsOpen());
  Ox_File assigned;
  assigned = f;
  ASSERT_TRUE(assigned.IsOpen());
  EXPECT_NE(f.handle, assigned.handle);
  EXPECT_EQ(f.access, assigned.access);
  EXPECT_EQ(f.shareMode, assigned.shareMode);
  EXPECT_STREQ(f.fileName.GetString(), assigned.fileName.GetString());
  f.Close();
  // The duplicate stays usable after the original is closed.
  char data[8];
  int len = 3;
  EXPECT_EQ(3, assigned.Read(data, len, 0));
  EXPECT_STREQ("abc", data);
  // Setting from a closed file leaves this one closed.
  assigned.Set(f);
  EXPECT_FALSE(assigned.IsOpen());
}

TEST_F(FileTest, WriteBinWritesTheWholeBuffer) {
  const std::string p = Path("bin.txt");
  Ox_File f;
  ASSERT_EQ(0, f.Open(p.c_str(), "wb"));
  Ox_Buffer buffer;
  const unsigned char bytes[] = {1, 0, 2, 255};
  buffer.Set(bytes, 4);
  EXPECT_EQ(4, f.WriteBin(buffer));
  f.Close();
  EXPECT_EQ(std::string("\x01\x00\x02\xff", 4), Get(p));
}

unsigned long long Ticks(const FILETIME &ft) {
  return (static_cast<unsigned long long>(ft.dwHighDateTime) << 32) |
         ft.dwLowDateTime;
}

TEST_F(FileTest, FileDateInLocalTime) {
  const std::string p = Path("date.txt");
  Put(p, "x");
  struct timespec times[2];
  times[0].tv_sec = times[1].tv_sec = 1000000000;  // 2001-09-09 01:46:40 UTC
  times[0].tv_nsec = times[1].tv_nsec = 500;
  ASSERT_EQ(0, utimensat(AT_FDCWD, p.c_str(), times, 0));
  setenv("TZ", "UTC", 1);
  tzset();
  Ox_File f;
  ASSERT_EQ(0, f.Open(p.c_str(), "r"));
  FILETIME ft = {0, 0};
  ASSERT_EQ(1, f.GetFileDate(ft, nullptr));
  // (1000000000 + 11644473600) seconds of 10,000,000 steps, plus 5 steps.
  unsigned long long expected =
      (1000000000ULL + 11644473600ULL) * 10000000ULL + 5;
  EXPECT_EQ(expected, Ticks(ft));
  // Two hours east of UTC.
  setenv("TZ", "XST-2", 1);
  tzset();
  ASSERT_EQ(1, f.GetFileDate(ft, nullptr));
  expected += 7200ULL * 10000000ULL;
  EXPECT_EQ(expected, Ticks(ft));
  // Another handle, given explicitly.
  Ox_File other;
  ASSERT_EQ(0, other.Open(p.c_str(), "r"));
  FILETIME viaHandle = {0, 0};
  EXPECT_EQ(1, f.GetFileDate(viaHandle, other.handle));
  EXPECT_EQ(ft.dwLowDateTime, viaHandle.dwLowDateTime);
  Ox_File closed;
  EXPECT_EQ(0, closed.GetFileDate(ft, nullptr));
}

// ------------------------------------------------------------ statics

TEST_F(FileTest, ExistDeleteAndSizes) {
  const std::string p = Path("e.txt");
  EXPECT_EQ(0, Ox_File::IsExist(p.c_str()));
  EXPECT_EQ(0, Ox_File::GetFileSize(p.c_str()));
  Put(p, "12345");
  EXPECT_EQ(1, Ox_File::IsExist(p.c_str()));
  EXPECT_EQ(0, Ox_File::IsExist(dir_.c_str()));  // a folder is no file
  EXPECT_EQ(0, Ox_File::IsExist(nullptr));
  EXPECT_EQ(5, Ox_File::GetFileSize(p.c_str()));
  FILE *file = fopen(p.c_str(), "r");
  ASSERT_NE(nullptr, file);
  EXPECT_EQ(5, Ox_File::GetFileSize(file));
  EXPECT_EQ(1, Ox_File::GetFileLinkCnt(file));
  ASSERT_EQ(0, link(p.c_str(), Path("e2.txt").c_str()));
  EXPECT_EQ(2, Ox_File::GetFileLinkCnt(file));
  fclose(file);
  EXPECT_EQ(-1, Ox_File::GetFileSize(static_cast<FILE *>(nullptr)));
  EXPECT_EQ(0, Ox_File::GetFileLinkCnt(nullptr));
  EXPECT_EQ(1, Ox_File::Delete(p.c_str()));
  EXPECT_EQ(0, Ox_File::Delete(p.c_str()));
  EXPECT_EQ(0, Ox_File::IsExist(p.c_str()));
}

TEST_F(FileTest, MakeDirMakesTheChain) {
  const std::string deep = Path("a/b/c");
  EXPECT_EQ(0, Ox_File::MakeDir(deep.c_str()));
  EXPECT_TRUE(Exists(deep));
  EXPECT_EQ(0, Ox_File::MakeDir(deep.c_str()));  // there already
  std::string back = Path("x\\y\\z");
  EXPECT_EQ(0, Ox_File::MakeDir(back.c_str()));
  EXPECT_TRUE(Exists(Path("x/y/z")));
  EXPECT_EQ(0, Ox_File::MakeDir("a"));
  EXPECT_EQ(0, Ox_File::MakeDir(nullptr));
  // Under a plain file nothing can be made.
  Put(Path("plain"), "x");
  EXPECT_EQ(static_cast<long>(0x80004005L),
            Ox_File::MakeDir(Path("plain/sub/deeper").c_str()));
  // A drive colon ends the walk with 0, and nothing is made.
  ASSERT_EQ(0, chdir(dir_.c_str()));
  EXPECT_EQ(0, Ox_File::MakeDir("q:"));
  EXPECT_FALSE(Exists(Path("q:")));
  // Without any separator the walk runs out of bytes: nothing is made.
  EXPECT_EQ(0, Ox_File::MakeDir("single"));
  EXPECT_FALSE(Exists(Path("single")));
  // So a relative chain fails at its first step, which was never made.
  EXPECT_EQ(static_cast<long>(0x80004005L), Ox_File::MakeDir("rel/sub"));
  EXPECT_FALSE(Exists(Path("rel")));
}

TEST_F(FileTest, ReadFileForms) {
  Ox_Buffer buffer;
  const unsigned char keep[] = {'k', 'e', 'e', 'p'};
  buffer.Set(keep, 4);
  // Empty file: 0, and the buffer is not touched.
  const std::string empty = Path("empty.txt");
  Put(empty, "");
  EXPECT_EQ(0, Ox_File::ReadFile(empty.c_str(), buffer));
  EXPECT_EQ(4, buffer.GetSize());
  // Missing file: -1, and the reason.
  const std::string missing = Path("missing.txt");
  EXPECT_EQ(-1, Ox_File::ReadFile(missing.c_str(), buffer));
  EXPECT_EQ("File Not Exist: " + missing,
            std::string(reinterpret_cast<const char *>(buffer.GetData()),
                        buffer.GetSize()));
  // A file with data.
  const std::string full = Path("full.txt");
  Put(full, std::string("a\0b\xe9", 4));
  EXPECT_EQ(4, Ox_File::ReadFile(full.c_str(), buffer));
  EXPECT_EQ(std::string("a\0b\xe9", 4),
            std::string(reinterpret_cast<const char *>(buffer.GetData()),
                        buffer.GetSize()));
  Ox_AString text;
  EXPECT_EQ(-1, Ox_File::ReadFile(missing.c_str(), text));
  EXPECT_EQ("File Not Exist: " + missing, text.GetString());
  Put(full, "h\xe9");
  EXPECT_EQ(2, Ox_File::ReadFile(full.c_str(), text));
  EXPECT_STREQ("h\xe9", text.GetString());
  Ox_WString wide;
  EXPECT_EQ(2, Ox_File::ReadFile(full.c_str(), wide));
  ASSERT_EQ(2, wide.GetLength());
  EXPECT_EQ(u'h', wide.GetString()[0]);
  EXPECT_EQ(u'\u00e9', wide.GetString()[1]);
}

TEST_F(FileTest, ReadFileOfARelativePathFailsAtTheOpen) {
  ASSERT_EQ(0, chdir(dir_.c_str()));
  Put(Path("r.txt"), "abc");
  Ox_Buffer buffer;
  EXPECT_EQ(-1, Ox_File::ReadFile("r.txt", buffer));
  const std::string text(reinterpret_cast<const char *>(buffer.GetData()),
                         buffer.GetSize());
  EXPECT_EQ(0u, text.find("File: r.txt, "));
}

TEST_F(FileTest, WriteFileForms) {
  const std::string p = Path("w.txt");
  EXPECT_EQ(3, Ox_File::WriteFile(p.c_str(), "abc", 3));
  EXPECT_EQ("abc", Get(p));
  EXPECT_EQ(1, Ox_File::WriteFile(p.c_str(), "z", 1));
  EXPECT_EQ("z", Get(p));
  Ox_Buffer buffer;
  const unsigned char bytes[] = {0, 1, 2};
  buffer.Set(bytes, 3);
  EXPECT_EQ(3, Ox_File::WriteFile(p.c_str(), buffer, 77u));
  EXPECT_EQ(std::string("\0\1\2", 3), Get(p));
  // 16-bit text in the locale's code page (1252), or in the one given.
  EXPECT_EQ(2, Ox_File::WriteFile(p.c_str(), u"h\u00e9", 2));
  EXPECT_EQ("h\xe9", Get(p));
  EXPECT_EQ(3, Ox_File::WriteFile(p.c_str(), u"h\u00e9", 2, 0u, 65001u));
  EXPECT_EQ("h\xc3\xa9", Get(p));
  EXPECT_EQ(2, Ox_File::WriteFile(p.c_str(), "h\xc3\xa9", 3, 65001u, 1252u));
  EXPECT_EQ("h\xe9", Get(p));
  // The failing Open's result when the folder is missing.
  EXPECT_EQ(-1, Ox_File::WriteFile(Path("no/such.txt").c_str(), "a", 1));
}

}  // namespace
