// Ox_Result::Write: dated log files, rolled by size, read back by
// Ox_LogMsgList::Load.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_Result.h"
#include "result_test_util.h"

namespace {

class ResultWriteTest : public ResultFixture {
 protected:
  void SetUp() override {
    ResultFixture::SetUp();
    char pattern[] = "/tmp/ox_result_write_XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(pattern));
    dir_ = pattern;
    char today[16] = {0};
    ASSERT_NE(nullptr, ox_todayA(today));
    today_.assign(today, 8);
  }
  void TearDown() override {
    const std::string command = "rm -rf '" + dir_ + "'";
    EXPECT_EQ(0, system(command.c_str()));
    ResultFixture::TearDown();
  }
  static std::string ReadAll(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream all;
    all << in.rdbuf();
    return all.str();
  }
  static bool Exists(const std::string &path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0;
  }
  std::string LogName(const std::string &folder, int number) const {
    return folder + "/" + today_ + "_" + std::to_string(number) + ".log";
  }

  std::string dir_;
  std::string today_;
};

TEST_F(ResultWriteTest, ClientModeWritesNothing) {
  SetServerMode(0);
  Ox_Result r;
  r.AddMsg(-1, "f", 1, nullptr);
  EXPECT_EQ(0, r.Write(dir_.c_str(), "logs", 100000, 0));
  EXPECT_FALSE(Exists(dir_ + "/logs"));
}

TEST_F(ResultWriteTest, WritesOneEscapedLineAMessage) {
  SetServerMode(1);
  Ox_Result r;
  Ox_Message m = MakeMessage(static_cast<int>(0x81000111), "a\"b");
  m.args.Add("c\\d");
  r.GetSafeMessageList()->Add(&m);
  const Ox_Message n = MakeMessage(0, nullptr);
  r.GetSafeMessageList()->Add(&n);
  // Both separators divide folders; the missing ones are made.
  EXPECT_EQ(2, r.Write(dir_.c_str(), "sub\\deeper/last", 100000, 0));
  const std::string folder = dir_ + "/sub/deeper/last";
  const std::string lines =
      "\"0x81000111\",\"11\",\"22\",\"1970-01-02 01:01:01.007\","
      "\"c:\\src\\mod.cpp\",\"42\",\"2\",\"a\\\"b\",\"c\\\\d\"\n"
      "\"0x0\",\"11\",\"22\",\"1970-01-02 01:01:01.007\","
      "\"c:\\src\\mod.cpp\",\"42\",\"0\"\n";
  EXPECT_EQ(lines, ReadAll(LogName(folder, 0)));
  // A second write appends to the same file.
  EXPECT_EQ(2, r.Write(dir_.c_str(), "sub\\deeper/last", 100000, 0));
  EXPECT_EQ(lines + lines, ReadAll(LogName(folder, 0)));
  EXPECT_FALSE(Exists(LogName(folder, 1)));
}

TEST_F(ResultWriteTest, RollsOverBySize) {
  SetServerMode(1);
  Ox_Result r;
  const Ox_Message m = MakeMessage(-1, "x");
  r.GetSafeMessageList()->Add(&m);
  const std::string folder = dir_ + "/roll";
  // Each line is longer than 10 bytes, so each write fills a file.
  EXPECT_EQ(1, r.Write(dir_.c_str(), "roll", 10, 0));
  EXPECT_EQ(1, r.Write(dir_.c_str(), "roll", 10, 0));
  EXPECT_EQ(1, r.Write(dir_.c_str(), "roll", 10, 0));
  const std::string line =
      "\"0xffffffff\",\"11\",\"22\",\"1970-01-02 01:01:01.007\","
      "\"c:\\src\\mod.cpp\",\"42\",\"1\",\"x\"\n";
  EXPECT_EQ(line, ReadAll(LogName(folder, 0)));
  EXPECT_EQ(line, ReadAll(LogName(folder, 1)));
  EXPECT_EQ(line, ReadAll(LogName(folder, 2)));
  EXPECT_FALSE(Exists(LogName(folder, 3)));
  // With room left, the first file not yet full takes the lines.
  EXPECT_EQ(1, r.Write(dir_.c_str(), "roll", 1000, 0));
  EXPECT_EQ(line + line, ReadAll(LogName(folder, 0)));
}

TEST_F(ResultWriteTest, NonPositiveMaxSizeStillEnds) {
  SetServerMode(1);
  Ox_Result r;
  r.AddMsg(-1, "f", 1, nullptr);
  EXPECT_EQ(1, r.Write(dir_.c_str(), "zero", 0, 0));
  EXPECT_EQ(1, r.Write(dir_.c_str(), "zero", 0, 0));
  EXPECT_TRUE(Exists(LogName(dir_ + "/zero", 1)));
}

TEST_F(ResultWriteTest, FolderThatCannotBeMadeLosesTheLines) {
  SetServerMode(1);
  const std::string file = dir_ + "/plainfile";
  FILE *f = fopen(file.c_str(), "w");
  ASSERT_NE(nullptr, f);
  fclose(f);
  Ox_Result r;
  r.AddMsg(-1, "f", 1, nullptr);
  EXPECT_EQ(0, r.Write(file.c_str(), "sub", 1000, 0));
}

TEST_F(ResultWriteTest, LogReadBackByLogMsgList) {
  SetServerMode(1);
  Ox_Result r;
  const Ox_Message m = MakeMessage(static_cast<int>(0x81000111), "arg");
  r.GetSafeMessageList()->Add(&m);
  Ox_Message ends = MakeMessage(-1, nullptr);
  ends.file = "c:\\logs\\";  // a path ending in a backslash
  r.GetSafeMessageList()->Add(&ends);
  ASSERT_EQ(2, r.Write(dir_.c_str(), "back", 100000, 0));
  const std::string text = ReadAll(LogName(dir_ + "/back", 0));
  Ox_Buffer buffer;
  buffer.Set(reinterpret_cast<const unsigned char *>(text.data()),
             static_cast<long>(text.size()));

  // Mode 0 puts the columns of the file in its raw places: code, process,
  // thread, time, file, line, count, first argument.
  Ox_LogMsgList list(1252);
  EXPECT_EQ(2, list.Load(buffer, 0));
  const Ox_LogMsg *a = list[0];
  ASSERT_NE(nullptr, a);
  EXPECT_STREQ("0x81000111", a->sessionA.GetString());
  EXPECT_STREQ("11", a->sessionB.GetString());
  EXPECT_STREQ("22", a->host.GetString());
  EXPECT_STREQ("1970-01-02 01:01:01.007", a->timeText.GetString());
  EXPECT_STREQ("c:\\src\\mod.cpp", a->extraA.GetString());
  EXPECT_STREQ("42", a->extraB.GetString());
  EXPECT_STREQ("1", a->extraC.GetString());
  EXPECT_STREQ("arg", a->codeText.GetString());
  const Ox_LogMsg *b = list[1];
  EXPECT_STREQ("c:\\logs\\", b->extraA.GetString());
  EXPECT_STREQ("42", b->extraB.GetString());
  EXPECT_STREQ("0", b->extraC.GetString());
  // Same process and thread columns: not a session pair, since the two
  // codes differ in the first column.
  EXPECT_EQ(-1, a->peer);

  // Mode 4 reads the columns by its own table.
  EXPECT_EQ(2, list.Load(buffer, 4));
  EXPECT_STREQ("0x81000111", list[0]->extraC.GetString());
  EXPECT_STREQ("11", list[0]->timeText.GetString());
  EXPECT_STREQ("22", list[0]->fileText.GetString());
  EXPECT_STREQ("1970-01-02 01:01:01.007", list[0]->lineText.GetString());
  EXPECT_STREQ("c:\\src\\mod.cpp", list[0]->codeText.GetString());
}

}  // namespace
