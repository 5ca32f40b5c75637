// Ox_Result, Ox_Message and Ox_MessageList: sharing, codes, errors and the
// text forms.
#include <gtest/gtest.h>
#include <unistd.h>

#include <ctime>

#include "Ox_Result.h"
#include "result_test_util.h"

namespace {

const int kNotFound = static_cast<int>(0x81000111);  // "dataset not found.[%s]"
const int kFailure = -1;                             // "failure."

class ResultTest : public ResultFixture {};

// ------------------------------------------------------------ server mode

TEST_F(ResultTest, ServerModeIsSetAndReturned) {
  EXPECT_EQ(3, SetServerMode(3));
  EXPECT_EQ(3, IsServerMode());
  EXPECT_EQ(0, SetServerMode(0));
  EXPECT_EQ(0, IsServerMode());
}

// ------------------------------------------------------------ codes

TEST_F(ResultTest, EmptyResultHasCodeZeroAndNoList) {
  Ox_Result r;
  EXPECT_EQ(0, r.GetCode());
  EXPECT_EQ(0, r.Count());
  EXPECT_EQ(nullptr, r.GetMessageList());
}

TEST_F(ResultTest, AssigningAnIntSetsTheCodeAlone) {
  Ox_Result r;
  r = -1;
  EXPECT_EQ(-1, int(r));
  EXPECT_EQ(-1, r.GetLastCode());
  EXPECT_EQ(0, r.GetCode());  // no list yet
  EXPECT_EQ(0, r.Mask(-1));
  EXPECT_EQ(nullptr, r.GetMessageList());
}

TEST_F(ResultTest, CodeConstructorMakesNoList) {
  Ox_Result r(5);
  EXPECT_EQ(5, r.GetLastCode());
  EXPECT_EQ(0, r.GetCode());
  EXPECT_EQ(0, r.Count());
}

TEST_F(ResultTest, MaskAndCodeWithAList) {
  SetServerMode(0);
  Ox_Result r;
  r.AddMsg(kNotFound, "a.cpp", 1, nullptr);
  EXPECT_EQ(kNotFound, r.GetCode());
  EXPECT_EQ(0x111, r.Mask(0xfff));
}

// ------------------------------------------------------------ AddMsg

TEST_F(ResultTest, AddMsgInClientModeKeepsCodeAndArgumentsOnly) {
  SetServerMode(0);
  Ox_Result r;
  EXPECT_EQ(kNotFound, r.AddMsg(kNotFound, "c:\\src\\a.cpp", 12, "x", "y",
                                nullptr));
  EXPECT_EQ(kNotFound, int(r));
  ASSERT_EQ(1, r.Count());
  const Ox_Message *m = r.GetMessageA(0);
  ASSERT_NE(nullptr, m);
  EXPECT_EQ(kNotFound, m->code);
  EXPECT_EQ(0, m->time);
  EXPECT_EQ(0, m->millitm);
  EXPECT_EQ(0, m->processId);
  EXPECT_EQ(0, m->threadId);
  EXPECT_STREQ("", m->file.GetString());
  EXPECT_EQ(-1, m->line);
  ASSERT_EQ(2, m->args.Count());
  EXPECT_STREQ("x", m->args.GetItemNN(0).GetString());
  EXPECT_STREQ("y", m->args.GetItemNN(1).GetString());
  // The server listing is empty out of server mode.
  EXPECT_EQ(0, r.GetMessageStr("host", 1, 2).GetLength());
}

TEST_F(ResultTest, AddMsgInServerModeKeepsTimeAndPlace) {
  SetServerMode(1);
  const Ox_Int64 before = static_cast<Ox_Int64>(::time(nullptr));
  Ox_Result r;
  r.AddMsg(kFailure, "c:\\src\\a.cpp", 12, "x", nullptr);
  const Ox_Int64 after = static_cast<Ox_Int64>(::time(nullptr));
  const Ox_Message *m = r[0];
  ASSERT_NE(nullptr, m);
  EXPECT_GE(m->time, before);
  EXPECT_LE(m->time, after);
  EXPECT_LT(m->millitm, 1000);
  EXPECT_EQ(static_cast<int>(getpid()), m->processId);
  EXPECT_NE(0, m->threadId);
  EXPECT_STREQ("c:\\src\\a.cpp", m->file.GetString());
  EXPECT_EQ(12, m->line);
  EXPECT_EQ(1, m->args.Count());
}

TEST_F(ResultTest, AddMsgWithoutArguments) {
  Ox_Result r;
  r.AddMsg(0, nullptr, 0, nullptr);
  ASSERT_EQ(1, r.Count());
  EXPECT_EQ(0, r[0]->args.Count());
}

// ------------------------------------------------------------ sharing

TEST_F(ResultTest, CopyAddsToTheSameSharedList) {
  Ox_Result a;
  a.AddMsg(1, "f", 1, nullptr);
  Ox_Result b(a);
  b.AddMsg(2, "f", 2, nullptr);
  EXPECT_EQ(a.GetMessageList(), b.GetMessageList());
  EXPECT_EQ(2, a.Count());
  EXPECT_EQ(2, b.Count());
  // The list outlives the handle that made it.
  {
    Ox_Result c(b);
    c.AddMsg(3, "f", 3, nullptr);
  }
  EXPECT_EQ(3, a.Count());
}

TEST_F(ResultTest, AssignBetweenTwoListsAppends) {
  Ox_Result a;
  a.AddMsg(1, "f", 1, nullptr);
  Ox_Result b;
  b.AddMsg(2, "f", 2, "p", nullptr);
  b.AddMsg(3, "f", 3, nullptr);
  a = b;
  EXPECT_EQ(3, a.Count());
  EXPECT_EQ(2, b.Count());
  EXPECT_NE(a.GetMessageList(), b.GetMessageList());
  EXPECT_EQ(3, a.GetLastCode());
  EXPECT_EQ(2, a[1]->code);
  EXPECT_STREQ("p", a[1]->args.GetItemNN(0).GetString());
  // The two stay apart.
  b.AddMsg(4, "f", 4, nullptr);
  EXPECT_EQ(3, a.Count());
}

TEST_F(ResultTest, AssignToAResultWithoutListShares) {
  Ox_Result a;
  Ox_Result b;
  b.AddMsg(7, "f", 1, nullptr);
  a = b;
  EXPECT_EQ(b.GetMessageList(), a.GetMessageList());
  EXPECT_EQ(7, a.GetCode());
}

TEST_F(ResultTest, AssignFromAResultWithoutListCopiesTheCode) {
  Ox_Result a;
  a.AddMsg(7, "f", 1, nullptr);
  Ox_Result b(9);
  a = b;
  EXPECT_EQ(9, a.GetLastCode());
  EXPECT_EQ(1, a.Count());
}

TEST_F(ResultTest, SelfAssignIsANoOp) {
  Ox_Result a;
  a.AddMsg(7, "f", 1, nullptr);
  Ox_Result &same = a;
  a = same;
  EXPECT_EQ(1, a.Count());
  EXPECT_EQ(7, a.GetLastCode());
}

TEST_F(ResultTest, SetClearsThenShares) {
  Ox_Result a;
  a.AddMsg(1, "f", 1, nullptr);
  Ox_Result b;
  b.AddMsg(2, "f", 2, nullptr);
  b.AddMsg(3, "f", 3, nullptr);
  a.Set(b);
  EXPECT_EQ(b.GetMessageList(), a.GetMessageList());
  EXPECT_EQ(2, a.Count());
  // Setting from a handle of the same list keeps the list alive.
  Ox_Result c(b);
  c.Set(b);
  EXPECT_EQ(2, c.Count());
}

TEST_F(ResultTest, ClearReleasesAndZeroesTheCode) {
  Ox_Result a;
  a.AddMsg(5, "f", 1, nullptr);
  Ox_Result b(a);
  a.Clear();
  EXPECT_EQ(0, a.GetLastCode());
  EXPECT_EQ(0, a.Count());
  EXPECT_EQ(1, b.Count());  // the other handle keeps the list
}

TEST_F(ResultTest, GetSafeMessageListMakesTheList) {
  Ox_Result r;
  Ox_MessageList *list = r.GetSafeMessageList();
  ASSERT_NE(nullptr, list);
  EXPECT_EQ(list, r.GetMessageList());
  EXPECT_EQ(0, r.Count());
}

TEST_F(ResultTest, MessageAccessIsChecked) {
  Ox_Result r;
  EXPECT_EQ(nullptr, r.GetMessageA(0));
  r.AddMsg(1, "f", 1, nullptr);
  EXPECT_NE(nullptr, r.GetMessageA(0));
  EXPECT_NE(nullptr, r.GetSafeMessage(0));
  EXPECT_EQ(nullptr, r.GetMessageA(1));
  EXPECT_EQ(nullptr, r.GetSafeMessage(-1));
  EXPECT_EQ(nullptr, r[5]);
}

// ------------------------------------------------------------ errors

TEST_F(ResultTest, FirstAndLastError) {
  Ox_Result r;
  EXPECT_EQ(0, r.GetFirstError());
  EXPECT_EQ(nullptr, r.GetLastErrorMsg());
  r.AddMsg(0, "f", 1, nullptr);
  r.AddMsg(kFailure, "f", 2, nullptr);
  r.AddMsg(5, "f", 3, nullptr);
  r.AddMsg(kNotFound, "f", 4, nullptr);
  r.AddMsg(6, "f", 5, nullptr);
  EXPECT_EQ(kFailure, r.GetFirstError());
  EXPECT_EQ(r[1], r.GetFirstErrorMsg());
  EXPECT_EQ(kNotFound, r.GetLastError());
  EXPECT_EQ(r[3], r.GetLastErrorMsg());
}

TEST_F(ResultTest, MarkStartWithoutListDoesNothing) {
  Ox_Result r;
  r.MarkStart();
  EXPECT_EQ(0, r.Count());
  EXPECT_EQ(nullptr, r.GetMessageList());
}

TEST_F(ResultTest, MarkStartAddsTheMarkAndKeepsTheCode) {
  Ox_Result r;
  r.AddMsg(kFailure, "f", 1, nullptr);
  r.MarkStart();
  ASSERT_EQ(2, r.Count());
  EXPECT_EQ(0x30000000, r[1]->code);
  EXPECT_EQ(kFailure, r.GetLastCode());
}

TEST_F(ResultTest, StartErrorIgnoresErrorsBeforeTheMark) {
  Ox_Result r;
  r.AddMsg(kFailure, "f", 1, nullptr);
  r.MarkStart();
  EXPECT_EQ(0, r.GetStartError());
  EXPECT_EQ(nullptr, r.GetStartErrorMsg());
  r.AddMsg(4, "f", 2, nullptr);
  EXPECT_EQ(0, r.GetStartError());
  EXPECT_EQ(nullptr, r.GetStartErrorMsg());
  r.AddMsg(kNotFound, "f", 3, nullptr);
  EXPECT_EQ(kNotFound, r.GetStartError());
  EXPECT_EQ(r[3], r.GetStartErrorMsg());
}

TEST_F(ResultTest, StartErrorFromTheLastMark) {
  Ox_Result r;
  r.AddMsg(1, "f", 1, nullptr);
  r.MarkStart();
  r.AddMsg(kFailure, "f", 2, nullptr);
  r.MarkStart();
  r.AddMsg(kNotFound, "f", 3, nullptr);
  EXPECT_EQ(kNotFound, r.GetStartError());
  EXPECT_EQ(r[4], r.GetStartErrorMsg());
}

TEST_F(ResultTest, StartErrorWithoutMarkIsTheFirstError) {
  Ox_Result r;
  r.AddMsg(1, "f", 1, nullptr);
  r.AddMsg(kNotFound, "f", 2, nullptr);
  r.AddMsg(kFailure, "f", 3, nullptr);
  EXPECT_EQ(kNotFound, r.GetStartError());
  EXPECT_EQ(r[1], r.GetStartErrorMsg());
}

TEST_F(ResultTest, StartErrorWithTheMarkLastFindsNothing) {
  Ox_Result r;
  r.AddMsg(kFailure, "f", 1, nullptr);
  r.MarkStart();
  r.AddMsg(kNotFound, "f", 2, nullptr);
  r.MarkStart();
  EXPECT_EQ(0, r.GetStartError());
  EXPECT_EQ(nullptr, r.GetStartErrorMsg());
}

// ------------------------------------------------------------ text forms

TEST_F(ResultTest, GetMessageStrListsCodesAndEscapedArguments) {
  Ox_Result r;
  r.AddMsg(kNotFound, "f", 1, "a\"b", "c\\d", nullptr);
  r.AddMsg(0, "f", 2, nullptr);
  EXPECT_STREQ(
      "\"0x81000111\",\"2\",\"a\\\"b\",\"c\\\\d\"\n"
      "\"0x0\",\"0\"\n",
      r.GetMessageStr().GetString());
}

TEST_F(ResultTest, GetMessageStrOfOneMessageJoinsTheArguments) {
  Ox_Result r;
  r.AddMsg(kNotFound, "f", 1, "a\"b", "c\\d", "e", nullptr);
  EXPECT_STREQ("a\\\"b,c\\\\d,e", r.GetMessageStr(0, 0).GetString());
  EXPECT_STREQ("No Message", r.GetMessageStr(1, 0).GetString());
  EXPECT_STREQ("No Message", r.GetMessageStr(-1, 949).GetString());
  EXPECT_STREQ("a\\\"b,c\\\\d,e", r.GetLastMsg().GetString());
}

TEST_F(ResultTest, GetLastMsgWithoutMessages) {
  Ox_Result r;
  EXPECT_STREQ("No Message", r.GetLastMsg().GetString());
}

TEST_F(ResultTest, ServerListingForm) {
  SetServerMode(1);
  Ox_Result r;
  const Ox_Message m = MakeMessage(kNotFound, "a\"rg");
  r.GetSafeMessageList()->Add(&m);
  // The file name loses its folder and extension: "mod".
  EXPECT_STREQ(
      "\"1\",\"2\",\"10.0.0.1\",\"0x81000111\",\"11\",\"22\","
      "\"1970-01-02 01:01:01.007\",\"mod\",\"42\",\"1\",\"a\\\"rg\"\n",
      r.GetMessageStr("10.0.0.1", 1, 2).GetString());
  EXPECT_STREQ(
      "\"4294967295\",\"0\",\"0.0.0.0\",\"0x81000111\",\"11\",\"22\","
      "\"1970-01-02 01:01:01.007\",\"mod\",\"42\",\"1\",\"a\\\"rg\"\n",
      r.GetMessageStr(nullptr, 0xffffffffu, 0).GetString());
}

TEST_F(ResultTest, ListingFormsOfAFileWithoutFolder) {
  SetServerMode(1);
  Ox_Result r;
  Ox_Message m = MakeMessage(0, nullptr);
  // Without a folder, and with forward slashes, the name is found too.
  m.file = "mod.cpp";
  r.GetSafeMessageList()->Add(&m);
  m.file = "/src/lib/other.cpp";
  r.GetSafeMessageList()->Add(&m);
  EXPECT_STREQ(
      "\"1970-01-02 01:01:01.007\",\"0x0\",\"11\",\"22\",\"mod\",\"42\",\"\"\n"
      "\"1970-01-02 01:01:01.007\",\"0x0\",\"11\",\"22\",\"other\",\"42\","
      "\"\"\n",
      r.GetMsgWithFormat(0).GetString());
}

TEST_F(ResultTest, GetMsgWithFormat) {
  SetServerMode(1);
  Ox_Result r;
  Ox_Message m = MakeMessage(kNotFound, "x");
  m.args.Add("y\\z");
  r.GetSafeMessageList()->Add(&m);
  EXPECT_STREQ(
      "\"1970-01-02 01:01:01.007\",\"0x81000111\",\"11\",\"22\",\"mod\","
      "\"42\",\"x,y\\\\z\"\n",
      r.GetMsgWithFormat(1252).GetString());
  Ox_Result none;
  EXPECT_EQ(0, none.GetMsgWithFormat(0).GetLength());
}

// ------------------------------------------------------------ Save, Load

TEST_F(ResultTest, SaveWithoutMessagesIsEmpty) {
  Ox_Result r;
  Ox_AString text("old");
  EXPECT_EQ(0, r.Save(text, 0));
  EXPECT_EQ(0, text.GetLength());
}

TEST_F(ResultTest, SaveClientForm) {
  SetServerMode(0);
  Ox_Result r;
  r.AddMsg(kFailure, "f", 1, "a", "b", nullptr);
  r.AddMsg(kNotFound, "f", 2, nullptr);
  Ox_AString text;
  const char *expected =
      "\"\",\"0\",\"0\",\"0\",\"0\",\"0\",\"-1\",\"a\"\"\",\"b\"\"\",\n"
      "\"\",\"0\",\"0\",\"0\",\"0\",\"0\",\"-2130706159\"";
  EXPECT_EQ(static_cast<int>(strlen(expected)), r.Save(text, 0));
  EXPECT_STREQ(expected, text.GetString());
}

TEST_F(ResultTest, SaveServerForm) {
  SetServerMode(1);
  Ox_Result r;
  Ox_Message m = MakeMessage(kNotFound, nullptr);
  m.file = "c:\\x.cpp";
  // Only the low 32 bits of the time are written.
  m.time = (static_cast<Ox_Int64>(1) << 32) + 5;
  r.GetSafeMessageList()->Add(&m);
  Ox_Message n = MakeMessage(3, "q");
  r.GetSafeMessageList()->Add(&n);
  Ox_AString text;
  r.Save(text, 0);
  EXPECT_STREQ(
      "\"c:\\x.cpp\",\"42\",\"11\",\"22\",\"5\",\"7\",\"-2130706159\"\n"
      "\"c:\\src\\mod.cpp\",\"42\",\"11\",\"22\",\"90061\",\"7\",\"3\","
      "\"q\"\"\",",
      text.GetString());
}

TEST_F(ResultTest, SaveThenLoadGivesTheArgumentsBack) {
  SetServerMode(0);
  const char *args[] = {"plain", "a\"b", "c\\d", "x,y", "\"", "", "end\\",
                        "q\"\"\"", "50%s", "\"quoted\""};
  Ox_Result r;
  r.AddMsg(kNotFound, "f", 1, args[0], args[1], args[2], args[3], args[4],
           args[5], args[6], args[7], args[8], args[9], nullptr);
  r.AddMsg(kFailure, "f", 2, nullptr);
  r.AddMsg(0, "f", 3, "last", nullptr);
  Ox_AString text;
  r.Save(text, 0);

  Ox_Result back;
  EXPECT_EQ(3, back.Load(text, 1, 0));
  ASSERT_EQ(3, back.Count());
  EXPECT_EQ(kNotFound, back[0]->code);
  ASSERT_EQ(10, back[0]->args.Count());
  for (int i = 0; i < 10; ++i) {
    EXPECT_STREQ(args[i], back[0]->args.GetItemNN(i).GetString()) << i;
  }
  EXPECT_EQ(kFailure, back[1]->code);
  EXPECT_EQ(0, back[1]->args.Count());
  ASSERT_EQ(1, back[2]->args.Count());
  EXPECT_STREQ("last", back[2]->args.GetItemNN(0).GetString());
}

TEST_F(ResultTest, SaveThenLoadInServerModeKeepsThePlace) {
  SetServerMode(1);
  Ox_Result r;
  Ox_Message m = MakeMessage(kNotFound, "c:\\dir\\");
  r.GetSafeMessageList()->Add(&m);
  Ox_AString text;
  r.Save(text, 0);
  Ox_Result back;
  EXPECT_EQ(1, back.Load(text, 0, 0));
  const Ox_Message *b = back[0];
  ASSERT_NE(nullptr, b);
  EXPECT_STREQ("c:\\src\\mod.cpp", b->file.GetString());
  EXPECT_EQ(42, b->line);
  EXPECT_EQ(11, b->processId);
  EXPECT_EQ(22, b->threadId);
  EXPECT_EQ(kTime, b->time);
  EXPECT_EQ(7, b->millitm);
  EXPECT_EQ(kNotFound, b->code);
  EXPECT_STREQ("c:\\dir\\", b->args.GetItemNN(0).GetString());
}

TEST_F(ResultTest, LoadInClientModeTakesCodeAndArgumentsOnly) {
  SetServerMode(0);
  Ox_Result r;
  EXPECT_EQ(1, r.Load("\"c:\\a.cpp\",\"9\",\"1\",\"2\",\"3\",\"4\",\"-1\","
                      "\"x\"\"\",",
                      0, 0));
  const Ox_Message *m = r[0];
  ASSERT_NE(nullptr, m);
  EXPECT_STREQ("", m->file.GetString());
  EXPECT_EQ(-1, m->line);
  EXPECT_EQ(0, m->time);
  EXPECT_EQ(-1, m->code);
  ASSERT_EQ(1, m->args.Count());
  EXPECT_STREQ("x", m->args.GetItemNN(0).GetString());
}

TEST_F(ResultTest, LoadSkipsShortLinesAndKeepsTheCode) {
  SetServerMode(0);
  Ox_Result r(77);
  // Six fields only, then an empty line, then a good line.
  EXPECT_EQ(1, r.Load("\"\",\"0\",\"0\",\"0\",\"0\",\"0\"\n\n"
                      "\"\",\"0\",\"0\",\"0\",\"0\",\"0\",\"5\"",
                      0, 0));
  EXPECT_EQ(77, r.GetLastCode());
  EXPECT_EQ(5, r[0]->code);
  // A text without good lines makes no list.
  Ox_Result none;
  EXPECT_EQ(0, none.Load("a,b\n", 0, 0));
  EXPECT_EQ(nullptr, none.GetMessageList());
  EXPECT_EQ(0, none.Load(nullptr, 1, 0));
}

TEST_F(ResultTest, LoadAppendsUnlessCleared) {
  SetServerMode(0);
  const char *line = "\"\",\"0\",\"0\",\"0\",\"0\",\"0\",\"1\"\r\n"
                     "\"\",\"0\",\"0\",\"0\",\"0\",\"0\",\"2\"\r\n";
  Ox_Result r;
  EXPECT_EQ(2, r.Load(line, 0, 0));
  EXPECT_EQ(4, r.Load(line, 0, 0));
  EXPECT_EQ(2, r.Load(line, 1, 0));
  EXPECT_EQ(1, r[0]->code);
  EXPECT_EQ(2, r[1]->code);
  // Without clearing the code stays; clearing is Clear, which zeroes it.
  r = 9;
  r.Load(line, 0, 0);
  EXPECT_EQ(9, r.GetLastCode());
  r.Load(line, 1, 0);
  EXPECT_EQ(0, r.GetLastCode());
  EXPECT_EQ(2, r.Count());
}

// ------------------------------------------------------------ Ox_Message

TEST_F(ResultTest, MessageDefaultsAndClear) {
  Ox_Message m;
  EXPECT_EQ(-1, m.line);
  EXPECT_EQ(0, m.code);
  m = MakeMessage(5, "a");
  m.Clear();
  EXPECT_EQ(-1, m.line);
  EXPECT_EQ(0, m.time);
  EXPECT_EQ(0, m.processId);
  EXPECT_EQ(0, m.args.Count());
  EXPECT_EQ(0, m.file.GetLength());
}

TEST_F(ResultTest, MessageCopyTakesEveryField) {
  SetServerMode(0);
  const Ox_Message a = MakeMessage(5, "a");
  Ox_Message b(a);
  EXPECT_EQ(42, b.line);
  EXPECT_EQ(kTime, b.time);
  Ox_Message c;
  c = a;
  EXPECT_STREQ("c:\\src\\mod.cpp", c.file.GetString());
  EXPECT_EQ(1, c.args.Count());
}

TEST_F(ResultTest, MessageSetFiltersTheLocationInClientMode) {
  SetServerMode(0);
  const Ox_Message source = MakeMessage(5, "b");
  Ox_Message m;
  m.args.Add("a");
  m.Set(source);
  EXPECT_EQ(5, m.code);
  EXPECT_EQ(-1, m.line);
  EXPECT_EQ(0, m.time);
  EXPECT_EQ(0, m.file.GetLength());
  // The arguments are appended.
  ASSERT_EQ(2, m.args.Count());
  EXPECT_STREQ("a", m.args.GetItemNN(0).GetString());
  EXPECT_STREQ("b", m.args.GetItemNN(1).GetString());
}

TEST_F(ResultTest, MessageSetCopiesTheLocationInServerMode) {
  SetServerMode(1);
  const Ox_Message source = MakeMessage(5, "b");
  Ox_Message m;
  m.Set(source);
  EXPECT_EQ(42, m.line);
  EXPECT_EQ(kTime, m.time);
  EXPECT_EQ(7, m.millitm);
  EXPECT_EQ(11, m.processId);
  EXPECT_EQ(22, m.threadId);
  EXPECT_STREQ("c:\\src\\mod.cpp", m.file.GetString());
}

TEST_F(ResultTest, MessageSetWithArgumentLists) {
  SetServerMode(1);
  Ox_Message m;
  const Ox_Int64 when = 1234;
  const unsigned short ms = 5;
  m.Set(when, ms, 6, 7, "f.cpp", 8, 9, "a", "b", nullptr);
  EXPECT_EQ(1234, m.time);
  EXPECT_EQ(5, m.millitm);
  EXPECT_EQ(6, m.processId);
  EXPECT_EQ(7, m.threadId);
  EXPECT_STREQ("f.cpp", m.file.GetString());
  EXPECT_EQ(8, m.line);
  EXPECT_EQ(9, m.code);
  EXPECT_EQ(2, m.args.Count());
  // The short form clears the time fields.
  Ox_Message n;
  n.Set(when, ms, 6, 7, "f.cpp", 8, 9, nullptr);
  n.Set("g.cpp", 3, 4, "c", nullptr);
  EXPECT_EQ(0, n.time);
  EXPECT_EQ(0, n.millitm);
  EXPECT_STREQ("g.cpp", n.file.GetString());
  EXPECT_EQ(3, n.line);
  EXPECT_EQ(4, n.code);
  EXPECT_EQ(1, n.args.Count());
  // Client mode stores the code and arguments only.
  SetServerMode(0);
  Ox_Message c;
  c.Set("g.cpp", 3, 4, "c", "d", nullptr);
  EXPECT_EQ(-1, c.line);
  EXPECT_EQ(0, c.file.GetLength());
  EXPECT_EQ(4, c.code);
  EXPECT_EQ(2, c.args.Count());
}

TEST_F(ResultTest, MessageListAddAppliesTheServerModeFilter) {
  SetServerMode(0);
  const Ox_Message source = MakeMessage(5, "b");
  Ox_MessageList list;
  EXPECT_EQ(0, list.Add(&source));
  EXPECT_EQ(1, list.Add(nullptr));
  ASSERT_EQ(2, list.Count());
  EXPECT_EQ(-1, list[0]->line);
  EXPECT_EQ(5, list[0]->code);
  EXPECT_EQ(0, list[1]->code);
  EXPECT_EQ(nullptr, list.GetItem(2));
  EXPECT_NE(nullptr, list.GetSafeItem(2, 1));
  EXPECT_EQ(3, list.Count());
}

TEST_F(ResultTest, MessageListCopyAppendAndAssign) {
  SetServerMode(1);
  Ox_MessageList a;
  const Ox_Message m = MakeMessage(5, "b");
  a.Add(&m);
  Ox_MessageList b(a);
  EXPECT_EQ(1, b.Count());
  EXPECT_EQ(42, b[0]->line);
  EXPECT_EQ(2, b.Append(&a));
  EXPECT_EQ(4, b.Append(&b));
  EXPECT_EQ(4, b.Append(nullptr));
  a = b;
  EXPECT_EQ(4, a.Count());
  EXPECT_NE(a[0], b[0]);  // copies
}

TEST_F(ResultTest, MessageHandlerComparesByModeAndFindItemUsesIt) {
  Ox_MessageList list;
  SetServerMode(1);
  Ox_Message a = MakeMessage(1, nullptr);
  a.file = "A.cpp";
  a.line = 10;
  Ox_Message b = MakeMessage(2, nullptr);
  b.file = "b.cpp";
  b.line = 20;
  list.Add(&a);
  list.Add(&b);
  Ox_Message key;
  key.file = "B.CPP";  // case is ignored
  key.line = 20;
  EXPECT_EQ(1, list.FindItem(&key));
  key.line = 21;
  EXPECT_EQ(-1, list.FindItem(&key));
  EXPECT_EQ(-1, _OxMessageHandler._CompareItem(list[1], &key));
  // Client mode compares the code alone.
  SetServerMode(0);
  Ox_Message byCode;
  byCode.code = 1;
  EXPECT_EQ(0, list.FindItem(&byCode));
  byCode.code = 5;
  EXPECT_EQ(-3, _OxMessageHandler._CompareItem(list[1], &byCode));
}

TEST_F(ResultTest, HandlerPoolsHaveTheirNames) {
  EXPECT_STREQ("Ox_Message", _OxMessageHandler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_Message)),
            _OxMessageHandler.GetItemSize());
  EXPECT_STREQ("Ox_LogMsg", _Ox_LogMsgHandler.GetName());
}

// ------------------------------------------------------------ system text

TEST_F(ResultTest, SystemErrorTexts) {
  Ox_AString text;
  EXPECT_STREQ("2:No such file or directory", OxSysErrorStr(2, text));
  EXPECT_STREQ("No such file or directory", OxSysErrorStr(2).GetString());
  EXPECT_STREQ("99999:Unknown error.", OxSysErrorStr(99999, text));
  EXPECT_STREQ("Unknown error.", OxSysErrorStr(99999).GetString());
}

TEST_F(ResultTest, SysErrStrCutsToTheBuffer) {
  char buffer[8];
  EXPECT_EQ(buffer, ox_syserrstr(2, buffer, 5));
  EXPECT_STREQ("2:No", buffer);
  char big[64];
  EXPECT_STREQ("2:No such file or directory", ox_syserrstr(2, big, 64));
  big[0] = 'x';
  EXPECT_EQ(nullptr, ox_syserrstr(99999, big, 64));
  EXPECT_STREQ("", big);
  EXPECT_EQ(nullptr, ox_syserrstr(2, nullptr, 10));
  EXPECT_EQ(nullptr, ox_syserrstr(2, big, 0));
}

}  // namespace
