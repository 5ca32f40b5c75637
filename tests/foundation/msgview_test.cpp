// Ox_MsgView::GetMsgStr: every flag, quoting, the argument filling and the
// list and result overloads.
#include <gtest/gtest.h>

#include <string>

#include "Ox_Result.h"
#include "result_test_util.h"

namespace {

const int kNotFound = static_cast<int>(0x81000111);  // "dataset not found.[%s]"
const int kTwoArgs = static_cast<int>(0x83b10001);
// "failed to load [%s/%s] into BUSINESS SERVICE in WORKER."
const int kNoText = 0x7abcdef1;  // no catalogue row

class MsgViewTest : public ResultFixture {
 protected:
  // The line of the standard message (1970-01-02 01:01:01.007, process 11,
  // thread 22, c:\src\mod.cpp line 42, "dataset not found.[arg]") with
  // separator ',' and quote '"'.
  std::string Line(int flags, int quoted = 1) {
    const Ox_Message m = MakeMessage(kNotFound, "arg");
    Ox_AString text("stale");
    const int length =
        Ox_MsgView::GetMsgStr(1252, text, &m, flags, ',', quoted, '"');
    EXPECT_EQ(text.GetLength(), length);
    return text.GetString();
  }
};

const char kMsg[] = "\"dataset not found.[arg]\"";

TEST_F(MsgViewTest, NoFlagsGivesTheQuotedMessage) {
  EXPECT_EQ(kMsg, Line(0));
  EXPECT_EQ("dataset not found.[arg]", Line(0, 0));
}

TEST_F(MsgViewTest, DateFlagIsFollowedByTwoSeparators) {
  // Q date, then Q and separator, then (no process or thread) Q and
  // separator once more.
  EXPECT_EQ(std::string("\"1970-01-02\",\",") + kMsg, Line(0x1000));
}

TEST_F(MsgViewTest, DateAndTime) {
  EXPECT_EQ(std::string("\"1970-01-02,01:01:01\",\",") + kMsg,
            Line(0x1100));
}

TEST_F(MsgViewTest, DateTimeAndMilliseconds) {
  EXPECT_EQ(std::string("\"1970-01-02,01:01:01.007\",\",") + kMsg,
            Line(0x1300));
}

TEST_F(MsgViewTest, TimeAlone) {
  EXPECT_EQ(std::string("\"01:01:01\",\",") + kMsg, Line(0x100));
}

TEST_F(MsgViewTest, MillisecondsWithoutTime) {
  // Nothing in front: no quote, the milliseconds, then Q and separator
  // twice.
  EXPECT_EQ(std::string("007\",\",") + kMsg, Line(0x200));
  // Behind the date: Q closes the date first.
  EXPECT_EQ(std::string("\"1970-01-02\"007\",\",") + kMsg, Line(0x1200));
}

TEST_F(MsgViewTest, ProcessAndThread) {
  EXPECT_EQ(std::string("\"11\",") + kMsg, Line(16));
  EXPECT_EQ(std::string("\"22\",") + kMsg, Line(32));
  EXPECT_EQ(std::string("\"11:22\",") + kMsg, Line(48));
  EXPECT_EQ(std::string("\"1970-01-02\",\"11:22\",") + kMsg,
            Line(0x1000 | 48));
}

TEST_F(MsgViewTest, FileColumns) {
  EXPECT_EQ(std::string("\"c:\\src\\mod.cpp\",") + kMsg, Line(0x10000));
  EXPECT_EQ(std::string("\"mod.cpp\",") + kMsg, Line(0x20000));
  EXPECT_EQ(std::string("\"42\",") + kMsg, Line(0x40000));
  EXPECT_EQ(std::string("\"c:\\src\\mod.cpp\",\"mod.cpp\",\"42\",") + kMsg,
            Line(0x70000));
}

TEST_F(MsgViewTest, FileNameIsCutTo63Characters) {
  Ox_Message m = MakeMessage(kNotFound, "arg");
  const std::string longName(70, 'n');
  m.file = ("c:\\dir\\" + longName).c_str();
  Ox_AString text;
  Ox_MsgView::GetMsgStr(0, text, &m, 0x20000, ';', 0, '"');
  EXPECT_EQ(std::string(63, 'n') + ";dataset not found.[arg]",
            text.GetString());
  // Without a backslash the whole file text is the name.
  m.file = "plain.cpp";
  Ox_MsgView::GetMsgStr(0, text, &m, 0x20000, ';', 0, '"');
  EXPECT_STREQ("plain.cpp;dataset not found.[arg]", text.GetString());
}

TEST_F(MsgViewTest, CodeColumns) {
  EXPECT_EQ(std::string("\"0x81000111\",") + kMsg, Line(1));
  EXPECT_EQ(std::string("\"-2130706159\",") + kMsg, Line(2));
  EXPECT_EQ(std::string("\"0x81000111\",") + kMsg, Line(3));  // 2 ignored
}

TEST_F(MsgViewTest, UnquotedWithOtherSeparator) {
  EXPECT_EQ("11|0x81000111|dataset not found.[arg]",
            [&] {
              const Ox_Message m = MakeMessage(kNotFound, "arg");
              Ox_AString text;
              Ox_MsgView::GetMsgStr(0, text, &m, 16 | 1, '|', 0, '"');
              return std::string(text.GetString());
            }());
}

TEST_F(MsgViewTest, QuoteCharacterIsTheOneGiven) {
  const Ox_Message m = MakeMessage(kNotFound, "arg");
  Ox_AString text;
  Ox_MsgView::GetMsgStr(0, text, &m, 0x40000, ',', 1, '\'');
  EXPECT_STREQ("'42','dataset not found.[arg]'", text.GetString());
}

TEST_F(MsgViewTest, NullMessageOrUnknownCodeGivesNothing) {
  Ox_AString text("x");
  EXPECT_EQ(0, Ox_MsgView::GetMsgStr(0, text, (const Ox_Message *)nullptr,
                                     0x1fff, ',', 1, '"'));
  EXPECT_EQ(0, text.GetLength());
  const Ox_Message m = MakeMessage(kNoText, "arg");
  text = "x";
  EXPECT_EQ(0, Ox_MsgView::GetMsgStr(0, text, &m, 0x1fff, ',', 1, '"'));
  EXPECT_EQ(0, text.GetLength());
}

TEST_F(MsgViewTest, TwoPlaceholdersWithOneOrTwoArguments) {
  Ox_Message m = MakeMessage(kTwoArgs, "a");
  Ox_AString text;
  Ox_MsgView::GetMsgStr(0, text, &m, 0, ',', 0, '"');
  EXPECT_STREQ("failed to load [a/(null)] into BUSINESS SERVICE in WORKER.",
               text.GetString());
  m.args.Add("b");
  Ox_MsgView::GetMsgStr(0, text, &m, 0, ',', 0, '"');
  EXPECT_STREQ("failed to load [a/b] into BUSINESS SERVICE in WORKER.",
               text.GetString());
}

TEST_F(MsgViewTest, ArgumentsMayHoldPercentSigns) {
  // 0x21000201 is "%s" alone.
  Ox_Message m = MakeMessage(0x21000201, "50%s %d");
  Ox_AString text;
  Ox_MsgView::GetMsgStr(0, text, &m, 0, ',', 0, '"');
  EXPECT_STREQ("50%s %d", text.GetString());
}

TEST_F(MsgViewTest, ListOverloadMakesOneLineAMessage) {
  SetServerMode(1);
  Ox_MessageList list;
  const Ox_Message a = MakeMessage(kNotFound, "x");
  const Ox_Message b = MakeMessage(kNoText, "y");
  const Ox_Message c = MakeMessage(-1, nullptr);
  list.Add(&a);
  list.Add(&b);
  list.Add(&c);
  Ox_AString text;
  const int length = Ox_MsgView::GetMsgStr(0, text, &list, 16, ',', 0, '"');
  EXPECT_STREQ("11,dataset not found.[x]\n(null)\n11,failure.\n",
               text.GetString());
  EXPECT_EQ(text.GetLength(), length);
  Ox_MessageList empty;
  EXPECT_EQ(0, Ox_MsgView::GetMsgStr(0, text, &empty, 16, ',', 0, '"'));
  EXPECT_EQ(0, text.GetLength());
}

TEST_F(MsgViewTest, ResultOverload) {
  Ox_Result none;
  Ox_AString text("x");
  EXPECT_EQ(0, Ox_MsgView::GetMsgStr(0, text, &none, 0, ',', 0, '"'));
  EXPECT_EQ(0, text.GetLength());
  EXPECT_EQ(0, Ox_MsgView::GetMsgStr(0, text, (const Ox_Result *)nullptr, 0,
                                     ',', 0, '"'));
  Ox_Result r;
  r.AddMsg(0, "f", 1, nullptr);
  r.AddMsg(kNotFound, "f", 2, "t", nullptr);
  EXPECT_LT(0, Ox_MsgView::GetMsgStr(0, text, &r, 1, ',', 0, '"'));
  EXPECT_STREQ("0x00000000,success.\n0x81000111,dataset not found.[t]\n",
               text.GetString());
}

}  // namespace
