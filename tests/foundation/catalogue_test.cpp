// Ox_ErrorMsg: lookup by code page and code, the conversion of the text,
// GetMsgPtr and the formatting members; and every step of the lookup over
// made-up tables.
#include <gtest/gtest.h>

#include <cstdarg>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_ErrorMsg.h"
#include "Ox_String.h"
#include "foundation/catalogue_internal.h"

namespace {

std::string Bytes(const Ox_AString &text) {
  return std::string(text.GetString(), text.GetLength());
}

std::u16string Text(const char16_t *text) {
  return text ? std::u16string(text) : std::u16string(u"<null>");
}

// "성공하였습니다." in code page 949 and in UTF-8, worked out with iconv.
const char kKoSuccess949[] =
    "\xbc\xba\xb0\xf8\xc7\xcf\xbf\xb4\xbd\xc0\xb4\xcf\xb4\xd9.";
const char kKoSuccessUtf8[] =
    "\xec\x84\xb1\xea\xb3\xb5\xed\x95\x98\xec\x98\x80\xec\x8a\xb5\xeb\x8b\x88"
    "\xeb\x8b\xa4.";
// "成功しました。" in code page 932 and in UTF-8.
const char kJaSuccess932[] = "\x90\xac\x8c\xf7\x82\xb5\x82\xdc\x82\xb5\x82\xbd\x81\x42";
const char kJaSuccessUtf8[] =
    "\xe6\x88\x90\xe5\x8a\x9f\xe3\x81\x97\xe3\x81\xbe\xe3\x81\x97\xe3\x81\x9f"
    "\xe3\x80\x82";

// Codes of the English table that neither other language has.
const int kChartSeriesCode = static_cast<int>(0x83b01033u);  // chart row
const int kPluginPointerCode = static_cast<int>(0x83ab0002u);  // plug-in row
// A code on five English rows; the first reads "failed to execute Dataset
// Transform.".
const int kRepeatedCode = static_cast<int>(0x83aa0201u);

class ErrorMsgTest : public ::testing::Test {
 protected:
  void TearDown() override { OxSetLocale(0x0409, 1252); }
  Ox_ErrorMsg msg;
};

// Calls GetPMsgv through a variadic wrapper of the test's own.
int CallPMsgv(Ox_ErrorMsg &msg, unsigned codePage, Ox_AString &text,
              int code, ...) {
  va_list args;
  va_start(args, code);
  int result = msg.GetPMsgv(codePage, text, code, args);
  va_end(args);
  return result;
}

}  // namespace

// GetMsg(949, text, 0) gives the Korean text of success, converted for the
// locale: 949 bytes under a Korean locale, UTF-8 under a UTF-8 one.
TEST_F(ErrorMsgTest, KoreanSuccessConvertedForTheLocale) {
  OxSetLocale(0x0412, 949);
  Ox_AString text;
  EXPECT_EQ(1, msg.GetMsg(949, text, 0));
  EXPECT_EQ(std::string(kKoSuccess949), Bytes(text));

  OxSetLocale(0x0409, 65001);
  EXPECT_EQ(1, msg.GetMsg(949, text, 0));
  EXPECT_EQ(std::string(kKoSuccessUtf8), Bytes(text));
}

// GetMsg(1250, text, 0) with an active code page that has no table gives
// the English "success.".
TEST_F(ErrorMsgTest, PageWithoutTableGivesEnglish) {
  OxSetLocale(0x0409, 65001);
  Ox_AString text("junk");
  EXPECT_EQ(1, msg.GetMsg(1250, text, 0));
  EXPECT_EQ("success.", Bytes(text));
  EXPECT_EQ(1, msg.GetMsg(1250, text, -1));
  EXPECT_EQ("failure.", Bytes(text));
}

// A code present only in the English table, asked for in 932, gives 0 and
// an empty string: there is no fall-back to English.
TEST_F(ErrorMsgTest, CodeOnlyInEnglishGivesNothingIn932) {
  OxSetLocale(0x0411, 932);
  for (int code : {kChartSeriesCode, kPluginPointerCode}) {
    Ox_AString text("junk");
    EXPECT_EQ(0, msg.GetMsg(932, text, code));
    EXPECT_EQ(0, text.GetLength());
    EXPECT_EQ(nullptr, msg.GetMsgPtr(932, code));
    // The English table has it.
    EXPECT_NE(nullptr, msg.GetMsgPtr(1252, code));
  }
  // The chart row is missing in Korean too.
  Ox_AString text("junk");
  EXPECT_EQ(0, msg.GetMsg(949, text, kChartSeriesCode));
  EXPECT_EQ(0, text.GetLength());
}

// The row of a duplicated code shows the first text.
TEST_F(ErrorMsgTest, RepeatedCodeShowsTheFirstRow) {
  OxSetLocale(0x0409, 1252);
  Ox_AString text;
  EXPECT_EQ(1, msg.GetMsg(1252, text, kRepeatedCode));
  EXPECT_EQ("failed to execute Dataset Transform.", Bytes(text));
  // Code 0x83b03009 stands on English rows 2 and 642 with other texts.
  EXPECT_EQ(1, msg.GetMsg(1252, text, static_cast<int>(0x83b03009u)));
  EXPECT_EQ("Failed to call CreateFrameObject function. Please check the "
            "appropriate dll.",
            Bytes(text));
  // Code 0x81000103 on rows 163 and 164.
  EXPECT_EQ(1, msg.GetMsg(1252, text, static_cast<int>(0x81000103u)));
  EXPECT_EQ("The value of %s(...) function's  (%s) ARGUMENT is invalid value.",
            Bytes(text));

  // In every table the pointer is that of the first row of the code.
  const Ox_MsgRow *tables[] = {_OxMsgTableEn, _OxMsgTableKo, _OxMsgTableJa};
  const unsigned pages[] = {1252, 949, 932};
  for (int t = 0; t < 3; ++t) {
    const Ox_MsgRow *first = nullptr;
    int rows = 0;
    for (const Ox_MsgRow *row = tables[t]; row->text; ++row) {
      if (row->code != kRepeatedCode) continue;
      if (!first) first = row;
      ++rows;
    }
    ASSERT_NE(nullptr, first);
    EXPECT_EQ(5, rows);
    EXPECT_EQ(first->text, msg.GetMsgPtr(pages[t], kRepeatedCode));
  }
}

TEST_F(ErrorMsgTest, FirstWalkConvertsToTheLocaleWhateverWasAsked) {
  // Japanese asked for under a UTF-8 locale comes out in UTF-8, not 932.
  OxSetLocale(0x0409, 65001);
  Ox_AString text;
  EXPECT_EQ(1, msg.GetMsg(932, text, 0));
  EXPECT_EQ(std::string(kJaSuccessUtf8), Bytes(text));
  // And in 932 under a Japanese locale.
  OxSetLocale(0x0411, 932);
  EXPECT_EQ(1, msg.GetMsg(932, text, 0));
  EXPECT_EQ(std::string(kJaSuccess932), Bytes(text));
}

TEST_F(ErrorMsgTest, SecondWalkFindsTheActiveCodePage) {
  // Code page 0 is not in the language table; the active page, 949 here,
  // is, and the text is converted to it.
  OxSetLocale(0x0412, 949);
  Ox_AString text;
  EXPECT_EQ(1, msg.GetMsg(0, text, 0));
  EXPECT_EQ(std::string(kKoSuccess949), Bytes(text));
  // A page that is neither in the table nor known resolves the same way.
  EXPECT_EQ(1, msg.GetMsg(4242, text, 0));
  EXPECT_EQ(std::string(kKoSuccess949), Bytes(text));
  OxSetLocale(0x0411, 932);
  EXPECT_EQ(1, msg.GetMsg(0, text, 0));
  EXPECT_EQ(std::string(kJaSuccess932), Bytes(text));
}

TEST_F(ErrorMsgTest, UnknownCodeGivesNothing) {
  OxSetLocale(0x0409, 1252);
  Ox_AString text("junk");
  EXPECT_EQ(0, msg.GetMsg(1252, text, 0x12345678));
  EXPECT_EQ(0, text.GetLength());
  // The terminator's code is not a row of the table.
  EXPECT_EQ(0, msg.GetMsg(1252, text, kOxMsgTerminator));
  EXPECT_EQ(nullptr, msg.GetMsgPtr(1252, kOxMsgTerminator));
}

TEST_F(ErrorMsgTest, GetMsgPtrGoesStraightToEnglishForUnknownPages) {
  // Under a Korean locale GetMsg(0) finds Korean through the second walk,
  // but GetMsgPtr has no second walk and answers from the English table.
  OxSetLocale(0x0412, 949);
  EXPECT_EQ(_OxMsgTableEn[0].text, msg.GetMsgPtr(0, 0));
  EXPECT_EQ(_OxMsgTableEn[0].text, msg.GetMsgPtr(1250, 0));
  EXPECT_EQ(u"success.", Text(msg.GetMsgPtr(4242, 0)));
  EXPECT_EQ(u"dataset not found.[%s]",
            Text(msg.GetMsgPtr(1250, static_cast<int>(0x81000111u))));
  // Pages with a table give their own rows.
  EXPECT_EQ(_OxMsgTableKo[0].text, msg.GetMsgPtr(949, 0));
  EXPECT_EQ(_OxMsgTableJa[1].text, msg.GetMsgPtr(932, -1));
  EXPECT_EQ(nullptr, msg.GetMsgPtr(0, 0x12345678));
}

TEST_F(ErrorMsgTest, GetPMsgFillsTheArguments) {
  OxSetLocale(0x0409, 1252);
  Ox_AString text;
  EXPECT_EQ(1, msg.GetPMsg(1252, text, static_cast<int>(0x81000111u), "abc"));
  EXPECT_EQ("dataset not found.[abc]", Bytes(text));
  EXPECT_EQ(1, msg.GetPMsg(1252, text, static_cast<int>(0x83b10001u), "grp",
                           "svc"));
  EXPECT_EQ("failed to load [grp/svc] into BUSINESS SERVICE in WORKER.",
            Bytes(text));
  EXPECT_EQ(1, msg.GetPMsg(1252, text, static_cast<int>(0x83b10201u),
                           "10.0.0.1", 8080));
  EXPECT_EQ("failed to connect to the server. IP[10.0.0.1],PORT[8080]",
            Bytes(text));
  // A percent sign in an argument is not read as a format.
  EXPECT_EQ(1, msg.GetPMsg(1252, text, static_cast<int>(0x81000111u), "%d"));
  EXPECT_EQ("dataset not found.[%d]", Bytes(text));
}

TEST_F(ErrorMsgTest, GetPMsgInKoreanUnderUtf8) {
  OxSetLocale(0x0409, 65001);
  Ox_AString text;
  EXPECT_EQ(1, msg.GetPMsg(949, text, static_cast<int>(0x81000111u), "x"));
  // "dataset을 찾을 수 없습니다.[x]" in UTF-8.
  EXPECT_EQ("dataset\xec\x9d\x84 \xec\xb0\xbe\xec\x9d\x84 \xec\x88\x98 "
            "\xec\x97\x86\xec\x8a\xb5\xeb\x8b\x88\xeb\x8b\xa4.[x]",
            Bytes(text));
}

TEST_F(ErrorMsgTest, GetPMsgWithoutTextGivesZeroAndEmpty) {
  OxSetLocale(0x0411, 932);
  Ox_AString text("junk");
  EXPECT_EQ(0, msg.GetPMsg(932, text, kChartSeriesCode, "a", "b"));
  EXPECT_EQ(0, text.GetLength());
  text = "junk";
  EXPECT_EQ(0, msg.GetPMsg(1252, text, 0x12345678));
  EXPECT_EQ(0, text.GetLength());
}

TEST_F(ErrorMsgTest, GetPMsgvTakesAnArgumentList) {
  OxSetLocale(0x0409, 1252);
  Ox_AString text;
  EXPECT_EQ(1, CallPMsgv(msg, 1252, text, static_cast<int>(0x81000106u),
                         "/var/log", "denied"));
  EXPECT_EQ("failed to open LOG FILE.(path:/var/log, cause:denied)",
            Bytes(text));
  EXPECT_EQ(0, CallPMsgv(msg, 1252, text, 0x12345678, "x"));
  EXPECT_EQ(0, text.GetLength());
}

TEST_F(ErrorMsgTest, CopiesUseTheSameTables) {
  OxSetLocale(0x0409, 1252);
  Ox_ErrorMsg copy(msg);
  Ox_ErrorMsg assigned;
  assigned = copy;
  for (unsigned page : {1252u, 949u, 932u, 0u}) {
    EXPECT_EQ(msg.GetMsgPtr(page, 0), copy.GetMsgPtr(page, 0));
    EXPECT_EQ(msg.GetMsgPtr(page, 0), assigned.GetMsgPtr(page, 0));
  }
  Ox_ErrorMsg *heap = new Ox_ErrorMsg(assigned);
  EXPECT_EQ(_OxMsgTableJa[0].text, heap->GetMsgPtr(932, 0));
  delete heap;
}

// Every step of the lookup, over made-up tables.
namespace {

const Ox_MsgRow kTableA[] = {
    {0, u"a-zero"}, {7, u"a-seven"}, {7, u"a-seven-again"},
    {kOxMsgTerminator, nullptr}};
const Ox_MsgRow kTableB[] = {
    {0, u"b-zero"}, {9, u"b-nine"}, {kOxMsgTerminator, nullptr}};
// A table that stops at a row without text before its terminator.
const Ox_MsgRow kTableGap[] = {
    {1, u"gap-one"}, {2, nullptr}, {3, u"gap-three"},
    {kOxMsgTerminator, nullptr}};
const Ox_MsgRow kTableEmpty[] = {{0, nullptr}, {0, u"never"},
                                 {kOxMsgTerminator, nullptr}};

}  // namespace

TEST(MsgLookup, Step1FirstWalkFindsThePageAndConvertsToTheLocale) {
  OxSetLocale(0x0409, 65001);
  const Ox_MsgLang langs[] = {{949, kTableA}, {932, kTableGap}, {0, nullptr}};
  Ox_MsgFound found = OxMsgLookup(langs, kTableB, 949, 7, 1);
  EXPECT_EQ(u"a-seven", Text(found.text));
  EXPECT_EQ(65001u, found.convertPage);
  found = OxMsgLookup(langs, kTableB, 932, 3, 1);
  EXPECT_EQ(nullptr, found.text);  // behind the gap, see step 5
  OxSetLocale(0x0409, 1252);
}

TEST(MsgLookup, Step2SecondWalkThenDefaultTable) {
  const Ox_MsgLang langs[] = {{949, kTableA}, {0, nullptr}};
  // Page 0 resolves to the locale's page 949, which the table has: the
  // text is converted to that resolved page.
  OxSetLocale(0x0412, 949);
  Ox_MsgFound found = OxMsgLookup(langs, kTableB, 0, 0, 1);
  EXPECT_EQ(u"a-zero", Text(found.text));
  EXPECT_EQ(949u, found.convertPage);
  // Without the second walk (GetMsgPtr) the default table answers.
  found = OxMsgLookup(langs, kTableB, 0, 0, 0);
  EXPECT_EQ(u"b-zero", Text(found.text));
  // Under a locale without a table both walks fail: default table, and
  // the locale's page for the conversion.
  OxSetLocale(0x0409, 1252);
  found = OxMsgLookup(langs, kTableB, 0, 9, 1);
  EXPECT_EQ(u"b-nine", Text(found.text));
  EXPECT_EQ(1252u, found.convertPage);
  // No fall-back: a code of the default table only, asked for in 949.
  found = OxMsgLookup(langs, kTableB, 949, 9, 1);
  EXPECT_EQ(nullptr, found.text);
}

TEST(MsgLookup, LanguageWalkStopsAtThePairOfZeros) {
  OxSetLocale(0x0409, 1252);
  const Ox_MsgLang langs[] = {{0, nullptr}, {949, kTableA}, {0, nullptr}};
  Ox_MsgFound found = OxMsgLookup(langs, kTableB, 949, 0, 1);
  EXPECT_EQ(u"b-zero", Text(found.text));
  // No language table at all: the default table.
  found = OxMsgLookup(nullptr, kTableB, 949, 9, 1);
  EXPECT_EQ(u"b-nine", Text(found.text));
}

TEST(MsgLookup, Step3EntryWithNullTableGivesNothing) {
  OxSetLocale(0x0409, 1252);
  const Ox_MsgLang langs[] = {{949, nullptr}, {0, nullptr}};
  // The default table has code 0, but the entry for 949 was found.
  Ox_MsgFound found = OxMsgLookup(langs, kTableB, 949, 0, 1);
  EXPECT_EQ(nullptr, found.text);
  found = OxMsgLookup(langs, kTableB, 949, 0, 0);
  EXPECT_EQ(nullptr, found.text);
  // A null default table gives nothing either.
  found = OxMsgLookup(langs, nullptr, 932, 0, 1);
  EXPECT_EQ(nullptr, found.text);
}

TEST(MsgLookup, Step4FirstRowWithoutTextGivesNothing) {
  OxSetLocale(0x0409, 1252);
  const Ox_MsgLang langs[] = {{949, kTableEmpty}, {0, nullptr}};
  Ox_MsgFound found = OxMsgLookup(langs, kTableB, 949, 0, 1);
  EXPECT_EQ(nullptr, found.text);
}

TEST(MsgLookup, Step5SearchStopsAtFirstRowWithoutTextAndTakesFirstRow) {
  OxSetLocale(0x0409, 1252);
  const Ox_MsgLang langs[] = {{949, kTableGap}, {932, kTableA},
                              {0, nullptr}};
  EXPECT_EQ(u"gap-one", Text(OxMsgLookup(langs, kTableB, 949, 1, 1).text));
  EXPECT_EQ(nullptr, OxMsgLookup(langs, kTableB, 949, 3, 1).text);
  EXPECT_EQ(kTableA[1].text, OxMsgLookup(langs, kTableB, 932, 7, 1).text);
  EXPECT_EQ(3, OxMsgRowCount(kTableA));
  EXPECT_EQ(1, OxMsgRowCount(kTableGap));
}
