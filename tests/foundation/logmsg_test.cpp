// Ox_LogMsgList::Load in every mode, the pairing, and the code and message
// helpers.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "Ox_Result.h"
#include "result_test_util.h"

namespace {

class LogMsgTest : public ResultFixture {
 protected:
  int Load(Ox_LogMsgList &list, const char *text, int mode) {
    Ox_Buffer buffer;
    buffer.Set(reinterpret_cast<const unsigned char *>(text),
               static_cast<long>(strlen(text)));
    return list.Load(buffer, mode);
  }
};

// ------------------------------------------------------------ helpers

TEST_F(LogMsgTest, ErrCodeAsInt) {
  EXPECT_EQ(0, GetErrCodeAsInt("0x"));
  EXPECT_EQ(0, GetErrCodeAsInt("0X"));
  EXPECT_EQ(-1, GetErrCodeAsInt(""));
  EXPECT_EQ(-1, GetErrCodeAsInt(nullptr));
  EXPECT_EQ(31, GetErrCodeAsInt("0x1F"));
  EXPECT_EQ(static_cast<int>(0x81000111), GetErrCodeAsInt("0x81000111"));
  EXPECT_EQ(0x12, GetErrCodeAsInt("12"));  // hexadecimal without prefix
  EXPECT_EQ(255, Ox_LogMsgList::GetErrCodeAsInt("ff"));
  // No check: 'g' is the seventh letter, 16; '-' is 3 below '0'.
  EXPECT_EQ(16, GetErrCodeAsInt("g"));
  EXPECT_EQ(16 * 1 + 16, GetErrCodeAsInt("0x1g"));
  EXPECT_EQ(-3, GetErrCodeAsInt("0x-"));
}

TEST_F(LogMsgTest, ErrorMsgFillsFromTheStartItem) {
  Ox_AStrList items(0);
  items.Add("x");
  items.Add("y");
  items.Add("z");
  Ox_AString text;
  GetErrorMsg(0, static_cast<int>(0x81000111), 1, 9, items, text);
  EXPECT_STREQ("dataset not found.[y]", text.GetString());
  // No items beyond start: the text stands alone.
  EXPECT_EQ(22, GetErrorMsg(0, static_cast<int>(0x81000111), 3, 0, items,
                            text));
  EXPECT_STREQ("dataset not found.[%s]", text.GetString());
  // A missing argument is "(?)" here.
  Ox_AStrList one(0);
  one.Add("a");
  Ox_LogMsgList::GetErrorMsg(0, static_cast<int>(0x83b10001), 0, 0, one,
                             text);
  EXPECT_STREQ("failed to load [a/(?)] into BUSINESS SERVICE in WORKER.",
               text.GetString());
}

TEST_F(LogMsgTest, ErrorMsgWithoutCatalogueTextJoinsTheItems) {
  Ox_AStrList items(0);
  items.Add("a");
  items.Add("b");
  items.Add("c");
  Ox_AString text("old");
  GetErrorMsg(0, 0x7abcdef1, 1, 0, items, text);
  EXPECT_STREQ("b,c", text.GetString());
  GetErrorMsg(0, 0x7abcdef1, 5, 0, items, text);
  EXPECT_STREQ("", text.GetString());
}

// ------------------------------------------------------------ modes

TEST_F(LogMsgTest, Mode0FillsTheRawColumns) {
  Ox_LogMsgList list;
  EXPECT_EQ(1, Load(list,
                    "\"1\",\"2\",\"h\",\"t\",\"ea\",\"eb\",\"ec\",\"0x0\"", 0));
  const Ox_LogMsg *r = list[0];
  ASSERT_NE(nullptr, r);
  EXPECT_STREQ("1", r->sessionA.GetString());
  EXPECT_STREQ("2", r->sessionB.GetString());
  EXPECT_STREQ("h", r->host.GetString());
  EXPECT_STREQ("t", r->timeText.GetString());
  EXPECT_STREQ("ea", r->extraA.GetString());
  EXPECT_STREQ("eb", r->extraB.GetString());
  EXPECT_STREQ("ec", r->extraC.GetString());
  EXPECT_STREQ("0x0", r->codeText.GetString());
  EXPECT_STREQ("", r->messageText.GetString());  // none made in mode 0
  EXPECT_EQ(-1, r->peer);
}

TEST_F(LogMsgTest, Mode1ReadsTheServerListing) {
  SetServerMode(1);
  Ox_Result result;
  const Ox_Message m = MakeMessage(static_cast<int>(0x81000111), "arg");
  result.GetSafeMessageList()->Add(&m);
  const Ox_AString listing = result.GetMessageStr("10.0.0.1", 7, 8);
  Ox_LogMsgList list;
  EXPECT_EQ(1, Load(list, listing, 1));
  const Ox_LogMsg *r = list[0];
  ASSERT_NE(nullptr, r);
  EXPECT_STREQ("7", r->sessionA.GetString());
  EXPECT_STREQ("8", r->sessionB.GetString());
  EXPECT_STREQ("10.0.0.1", r->host.GetString());
  EXPECT_STREQ("0x81000111", r->codeText.GetString());
  EXPECT_STREQ("11", r->processText.GetString());
  EXPECT_STREQ("22", r->threadText.GetString());
  EXPECT_STREQ("1970-01-02 01:01:01.007", r->timeText.GetString());
  EXPECT_STREQ("mod", r->fileText.GetString());
  EXPECT_STREQ("42", r->lineText.GetString());
  EXPECT_STREQ("dataset not found.[arg]", r->messageText.GetString());
}

TEST_F(LogMsgTest, Mode2) {
  Ox_LogMsgList list;
  EXPECT_EQ(1, Load(list,
                    "\"1\",\"2\",\"h\",\"0x81000111\",\"p\",\"t\",\"f\","
                    "\"9\",\"1\",\"arg\"",
                    2));
  const Ox_LogMsg *r = list[0];
  EXPECT_STREQ("0x81000111", r->codeText.GetString());
  EXPECT_STREQ("p", r->processText.GetString());
  EXPECT_STREQ("", r->threadText.GetString());
  EXPECT_STREQ("t", r->timeText.GetString());
  EXPECT_STREQ("f", r->fileText.GetString());
  EXPECT_STREQ("9", r->lineText.GetString());
  EXPECT_STREQ("dataset not found.[arg]", r->messageText.GetString());
}

TEST_F(LogMsgTest, Mode3SkipsFullLinesAndKeepsShortOnes) {
  Ox_LogMsgList list;
  EXPECT_EQ(1, Load(list,
                    "\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"7\"\n"
                    "short,line",
                    3));
  EXPECT_STREQ("short,line", list[0]->messageText.GetString());
  EXPECT_STREQ("", list[0]->sessionA.GetString());
}

TEST_F(LogMsgTest, Mode4) {
  Ox_LogMsgList list;
  // Six fields are enough in mode 4, and seven or more are read as well.
  EXPECT_EQ(2, Load(list,
                    "\"ec\",\"t\",\"f\",\"5\",\"0xffffffff\",\"0\"\n"
                    "\"ec\",\"t\",\"f\",\"5\",\"0x81000111\",\"1\",\"z\"",
                    4));
  const Ox_LogMsg *r = list[0];
  EXPECT_STREQ("ec", r->extraC.GetString());
  EXPECT_STREQ("t", r->timeText.GetString());
  EXPECT_STREQ("f", r->fileText.GetString());
  EXPECT_STREQ("5", r->lineText.GetString());
  EXPECT_STREQ("0xffffffff", r->codeText.GetString());
  EXPECT_STREQ("failure.", r->messageText.GetString());
  EXPECT_STREQ("dataset not found.[z]", list[1]->messageText.GetString());
}

TEST_F(LogMsgTest, Mode4ShortLineIsNotKeptRaw) {
  Ox_LogMsgList list;
  EXPECT_EQ(1, Load(list, "a,b", 4));
  // Filled by the mode-4 columns, not kept as a raw line.
  EXPECT_STREQ("a", list[0]->extraC.GetString());
  EXPECT_STREQ("b", list[0]->timeText.GetString());
  EXPECT_STRNE("a,b", list[0]->messageText.GetString());
}

TEST_F(LogMsgTest, ModesAbove4KeepOnlyShortLines) {
  Ox_LogMsgList list;
  EXPECT_EQ(1, Load(list,
                    "\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"7\"\n"
                    "a,b,c",
                    5));
  EXPECT_STREQ("a,b,c", list[0]->messageText.GetString());
}

TEST_F(LogMsgTest, EmptyLinesAreEmptyRecordsAndShortLinesStayRaw) {
  Ox_LogMsgList list;
  EXPECT_EQ(3, Load(list, "first \"raw\" line\n\nsecond", 0));
  EXPECT_STREQ("first \"raw\" line", list[0]->messageText.GetString());
  EXPECT_STREQ("", list[1]->messageText.GetString());
  EXPECT_EQ(-1, list[1]->peer);
  EXPECT_STREQ("second", list[2]->messageText.GetString());
}

TEST_F(LogMsgTest, PathEndingInBackslashKeepsItsFields) {
  Ox_LogMsgList list;
  EXPECT_EQ(1, Load(list,
                    "\"1\",\"2\",\"h\",\"0x0\",\"p\",\"t\",\"c:\\dir\\\","
                    "\"7\",\"0\"",
                    2));
  const Ox_LogMsg *r = list[0];
  EXPECT_STREQ("c:\\dir\\", r->fileText.GetString());
  EXPECT_STREQ("7", r->lineText.GetString());
  EXPECT_STREQ("success.", r->messageText.GetString());
}

TEST_F(LogMsgTest, LoadClearsTheListFirst) {
  Ox_LogMsgList list;
  EXPECT_EQ(2, Load(list, "a\nb", 0));
  EXPECT_EQ(1, Load(list, "c", 0));
  EXPECT_STREQ("c", list[0]->messageText.GetString());
}

TEST_F(LogMsgTest, BufferEndsAtNulOrSize) {
  Ox_LogMsgList list;
  Ox_Buffer buffer;
  const unsigned char bytes[] = {'a', 'b', '\n', 'c', 0, 'x', '\n', 'y'};
  buffer.Set(bytes, sizeof bytes);
  EXPECT_EQ(2, list.Load(buffer, 0));
  EXPECT_STREQ("c", list[1]->messageText.GetString());
  // No NUL at all: the size bounds the text.
  buffer.Set(bytes, 2);
  EXPECT_EQ(1, list.Load(buffer, 0));
  EXPECT_STREQ("ab", list[0]->messageText.GetString());
  Ox_Buffer empty;
  EXPECT_EQ(0, list.Load(empty, 1));
}

// ------------------------------------------------------------ pairing

TEST_F(LogMsgTest, RecordsPairBySessionValues) {
  Ox_LogMsgList list;
  const char *text =
      "\"1\",\"2\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"\n"   // 0
      "\"3\",\"4\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"\n"   // 1
      "\"1\",\"2\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"\n"   // 2
      "\"1\",\"2\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"\n"   // 3
      "\"X\",\"y\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"\n"   // 4
      "\"1\",\"2\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"\n"   // 5
      "\"x\",\"Y\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"\n"   // 6
      "\"\",\"2\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"\n"    // 7
      "\"\",\"2\",\"h\",\"t\",\"a\",\"b\",\"c\",\"0x0\"";     // 8
  EXPECT_EQ(9, Load(list, text, 0));
  EXPECT_EQ(2, list[0]->peer);
  EXPECT_EQ(0, list[2]->peer);
  EXPECT_EQ(-1, list[1]->peer);
  EXPECT_EQ(5, list[3]->peer);
  EXPECT_EQ(3, list[5]->peer);
  EXPECT_EQ(6, list[4]->peer);  // case is ignored
  EXPECT_EQ(4, list[6]->peer);
  EXPECT_EQ(-1, list[7]->peer);  // an empty session value never pairs
  EXPECT_EQ(-1, list[8]->peer);
}

// ------------------------------------------------------------ list basics

TEST_F(LogMsgTest, CodePageClearAndSave) {
  OxSetLocale(0, 949);
  Ox_LogMsgList byLocale;
  EXPECT_EQ(949u, byLocale.GetCodePage());
  OxSetLocale(0, 1252);
  Ox_LogMsgList given(932);
  EXPECT_EQ(932u, given.GetCodePage());
  given.loadState = 5;
  given.Clear();
  EXPECT_EQ(0, given.loadState);
  Ox_Buffer out;
  EXPECT_EQ(0, given.Save(out, 0));
  EXPECT_EQ(0, out.GetSize());
}

TEST_F(LogMsgTest, HandlerCompareHasTheReverseSense) {
  Ox_LogMsg a;
  a.sessionA = "1";
  a.host = "Host";
  a.fileText = "File.cpp";
  Ox_LogMsg b(a);
  b.host = "HOST";
  b.fileText = "file.CPP";
  b.messageText = "other";  // not compared
  EXPECT_EQ(1, _Ox_LogMsgHandler._CompareItem(&a, &b));
  b.sessionA = "01";
  EXPECT_EQ(0, _Ox_LogMsgHandler._CompareItem(&a, &b));
  b = a;
  b.lineText = "x";
  EXPECT_EQ(0, _Ox_LogMsgHandler._CompareItem(&a, &b));
}

TEST_F(LogMsgTest, ListCopies) {
  Ox_LogMsgList list(1252);
  Load(list, "a\nb", 0);
  Ox_LogMsgList copy(list);
  EXPECT_EQ(2, copy.Count());
  EXPECT_STREQ("b", copy[1]->messageText.GetString());
  Ox_LogMsgList other(949);
  other = list;
  EXPECT_EQ(2, other.Count());
  EXPECT_EQ(1252u, other.GetCodePage());
  EXPECT_EQ(nullptr, other.GetItem(2));
}

}  // namespace
