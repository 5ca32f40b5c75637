// The message tables as data: row counts, terminators, first rows, rows
// compared with their texts, and the shape of the Korean and Japanese
// tables against the English one.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "foundation/catalogue_internal.h"

namespace {

std::u16string Text(const char16_t *text) {
  return text ? std::u16string(text) : std::u16string(u"<null>");
}

// Number of rows of `code` in `table`.
int CountCode(const Ox_MsgRow *table, int code) {
  int count = 0;
  for (int i = 0; table[i].text; ++i)
    if (table[i].code == code) ++count;
  return count;
}

// The printf forms of a text ("%s", "%d", "%- 14s", "%2" ...) in order.
std::vector<std::u16string> PrintfForms(const char16_t *text) {
  std::vector<std::u16string> forms;
  for (const char16_t *p = text; *p; ++p) {
    if (*p != u'%') continue;
    std::u16string form(1, *p);
    ++p;
    while (*p == u'-' || *p == u'+' || *p == u' ' || *p == u'#' ||
           *p == u'.' || (*p >= u'0' && *p <= u'9'))
      form += *p++;
    if ((*p >= u'a' && *p <= u'z') || (*p >= u'A' && *p <= u'Z')) form += *p;
    else --p;
    forms.push_back(form);
  }
  return forms;
}

// Number of two-character sequences backslash + n.
int BackslashN(const char16_t *text) {
  int count = 0;
  for (const char16_t *p = text; p[0]; ++p)
    if (p[0] == u'\\' && p[1] == u'n') ++count;
  return count;
}

// The brackets of a text, in order.
std::u16string Brackets(const char16_t *text) {
  std::u16string out;
  for (const char16_t *p = text; *p; ++p)
    if (*p == u'[' || *p == u']' || *p == u'(' || *p == u')') out += *p;
  return out;
}

}  // namespace

TEST(CatalogueTables, RowCountsBeforeTheTerminator) {
  EXPECT_EQ(831, OxMsgRowCount(_OxMsgTableEn));
  EXPECT_EQ(818, OxMsgRowCount(_OxMsgTableKo));
  EXPECT_EQ(789, OxMsgRowCount(_OxMsgTableJa));
  EXPECT_EQ(0, OxMsgRowCount(nullptr));
}

TEST(CatalogueTables, EveryTableEndsWithTheTerminatorRow) {
  // -99999 is 0xfffe7961 as an unsigned 32-bit number.
  EXPECT_EQ(-99999, kOxMsgTerminator);
  EXPECT_EQ(0xfffe7961u, static_cast<unsigned>(kOxMsgTerminator));
  const Ox_MsgRow *tables[] = {_OxMsgTableEn, _OxMsgTableKo, _OxMsgTableJa};
  const int counts[] = {831, 818, 789};
  for (int t = 0; t < 3; ++t) {
    EXPECT_EQ(-99999, tables[t][counts[t]].code) << t;
    EXPECT_EQ(nullptr, tables[t][counts[t]].text) << t;
    // No row before the terminator lacks its text.
    for (int i = 0; i < counts[t]; ++i) ASSERT_NE(nullptr, tables[t][i].text);
  }
}

TEST(CatalogueTables, LanguageTableMapsCodePagesAndEndsWithZeros) {
  EXPECT_EQ(1252u, _OxMsgLangTable[0].codePage);
  EXPECT_EQ(_OxMsgTableEn, _OxMsgLangTable[0].table);
  EXPECT_EQ(949u, _OxMsgLangTable[1].codePage);
  EXPECT_EQ(_OxMsgTableKo, _OxMsgLangTable[1].table);
  EXPECT_EQ(932u, _OxMsgLangTable[2].codePage);
  EXPECT_EQ(_OxMsgTableJa, _OxMsgLangTable[2].table);
  EXPECT_EQ(0u, _OxMsgLangTable[3].codePage);
  EXPECT_EQ(nullptr, _OxMsgLangTable[3].table);
}

TEST(CatalogueTables, FirstRowsOfAllThreeTables) {
  EXPECT_EQ(0, _OxMsgTableEn[0].code);
  EXPECT_EQ(u"success.", Text(_OxMsgTableEn[0].text));
  EXPECT_EQ(0, _OxMsgTableKo[0].code);
  EXPECT_EQ(u"성공하였습니다.", Text(_OxMsgTableKo[0].text));
  EXPECT_EQ(0, _OxMsgTableJa[0].code);
  EXPECT_EQ(u"成功しました。", Text(_OxMsgTableJa[0].text));

  // Code 0xffffffff is -1 as a signed int.
  EXPECT_EQ(-1, _OxMsgTableEn[1].code);
  EXPECT_EQ(u"failure.", Text(_OxMsgTableEn[1].text));
  EXPECT_EQ(-1, _OxMsgTableKo[1].code);
  EXPECT_EQ(u"실패하였습니다.", Text(_OxMsgTableKo[1].text));
  EXPECT_EQ(-1, _OxMsgTableJa[1].code);
  EXPECT_EQ(u"失敗しました。", Text(_OxMsgTableJa[1].text));
}

// Rows spread over the English table, typed from the message list by hand.
// A "\\n" below is the two characters backslash and n, as the list has them.
TEST(CatalogueTables, EnglishRowsMatchTheirTexts) {
  struct Sample {
    int index;
    unsigned code;
    const char16_t *text;
  };
  const Sample samples[] = {
      {2, 0x83b03009u,
       u"Failed to call CreateFrameObject function. Please check the "
       u"appropriate dll."},
      {4, 0x81000111u, u"dataset not found.[%s]"},
      {10, 0x83b10001u,
       u"failed to load [%s/%s] into BUSINESS SERVICE in WORKER."},
      {28, 0x83b10001u,
       u"failed to load [%s/%s.so] into BUSINESS SERVICE in WORKER."},
      {45, 0x83b10201u, u"failed to connect to the server. IP[%s],PORT[%d]"},
      {69, 0x83b10403u, u"[%s] in SECTION there is no \"%s\"."},
      {159, 0x22000001u, u""},
      {160, 0x30000000u, u"Reset Error Message"},
      {163, 0x81000103u,
       u"The value of %s(...) function's  (%s) ARGUMENT is invalid value."},
      {171, 0x8100010au, u"CONFIG FILE에 SECTION(%s):No ITEM(%s)."},
      {212, 0x21250001u, u"%s:%s"},
      {316, 0x84a00104u,
       u"Listener (%2) needed to be operated in Monitor is running already."},
      {371, 0x84a10208u, u"Process에서 Worker를 Load하는데 실패했습니다."},
      {478, 0x81a90201u,
       u"cannot find [%s]'s \"%s\" information from config file"},
      {498, 0x81a90501u, u"\"%s\" is invalid command type."},
      {502, 0x21a90001u, u"%- 14s=[%s]"},
      {537, 0x83aa0201u, u"LOCK failure: %s."},
      {600, 0x83ab0027u,
       u"failed to install encrypted ActiveX component. \\nPlease install "
       u"directly from the appropriate site."},
      {618, 0x13b04001u,
       u"failed to receive sceen information from Server.\\n Would you like "
       u"read Cache information?\\nIn case of select Yes, all data and "
       u"screen information should be read from cache.\\n"},
      {632, 0x65u, u"Telephone Connected.\\nWould you like to disconnect it?"},
      {642, 0x83b03009u,
       u"failed to call CreateFrameObject. Please check the proper "
       u"dll.\\n(%s)"},
      {671, 0x83b06000u, u"%s\\n%s"},
      {712, 0x83b03065u,
       u"Need more system %s resource. Tessara™ browser will be termiated."},
      {769, 0x83b01107u,
       u"rejected column modification in script or component that received "
       u"CanColumnChange event.\\nDatasetID=%s,Row=%d,ColumnID=%s,"
       u"OldValue=%s,Value=%s"},
      {786, 0x83b01401u, u"Window(&W)"},
      {814, 0x83b01524u, u"CallService function return  Fault XML(%s)."},
      {824, 0x83b02000u,
       u"0123456789012345678901234567890123456789012345678901234567890123456"
       u"789012345678901234567890123456789"},
      {830, 0x83b02101u, u"(%s)Fail to load RSS Data to XML."},
  };
  for (const Sample &s : samples) {
    EXPECT_EQ(static_cast<int>(s.code), _OxMsgTableEn[s.index].code)
        << s.index;
    EXPECT_EQ(std::u16string(s.text), Text(_OxMsgTableEn[s.index].text))
        << s.index;
  }
}

TEST(CatalogueTables, FortySevenEnglishCodesOccurMoreThanOnce) {
  std::map<int, int> counts;
  for (int i = 0; _OxMsgTableEn[i].text; ++i) ++counts[_OxMsgTableEn[i].code];
  int repeated = 0;
  for (const auto &entry : counts)
    if (entry.second > 1) ++repeated;
  EXPECT_EQ(47, repeated);
  // Two codes stand on more than two rows.
  EXPECT_EQ(5, counts[static_cast<int>(0x83aa0201u)]);
  EXPECT_EQ(3, counts[static_cast<int>(0x83aa1001u)]);
}

// The Korean and Japanese tables keep the English order, leave out only
// codes that stand once in English, keep every repeated code as often, and
// keep the printf forms, backslash-n sequences and brackets of each row.
TEST(CatalogueTables, TranslatedTablesFollowTheEnglishRows) {
  struct Lang {
    const Ox_MsgRow *table;
    int leftOut;
  };
  const Lang langs[] = {{_OxMsgTableKo, 13}, {_OxMsgTableJa, 42}};
  for (const Lang &lang : langs) {
    int en = 0;
    int skipped = 0;
    for (int i = 0; lang.table[i].text; ++i, ++en) {
      // Walk English to the row of the same code: the rows in between are
      // the ones this language leaves out.
      while (_OxMsgTableEn[en].text &&
             _OxMsgTableEn[en].code != lang.table[i].code) {
        EXPECT_EQ(1, CountCode(_OxMsgTableEn, _OxMsgTableEn[en].code))
            << "left out a repeated code at English row " << en;
        EXPECT_EQ(0, CountCode(lang.table, _OxMsgTableEn[en].code));
        ++en;
        ++skipped;
      }
      ASSERT_NE(nullptr, _OxMsgTableEn[en].text) << "row " << i;
      const char16_t *english = _OxMsgTableEn[en].text;
      const char16_t *mine = lang.table[i].text;
      EXPECT_EQ(PrintfForms(english), PrintfForms(mine)) << "row " << i;
      EXPECT_EQ(BackslashN(english), BackslashN(mine)) << "row " << i;
      EXPECT_EQ(Brackets(english), Brackets(mine)) << "row " << i;
    }
    while (_OxMsgTableEn[en].text) {
      ++en;
      ++skipped;
    }
    EXPECT_EQ(lang.leftOut, skipped);
  }
}

TEST(CatalogueTables, TextsOnlyOfPlaceholdersOrDigitsStayAsTheyAre) {
  // English rows 212 ("%s:%s"), 502 ("%- 14s=[%s]"), 671 ("%s\n%s"),
  // 824 (the digits) and 159 (empty) are kept unchanged in both languages;
  // neither language leaves out a row before 575, so 212 and 502 stand at
  // the same index there.
  for (const Ox_MsgRow *table : {_OxMsgTableKo, _OxMsgTableJa}) {
    EXPECT_EQ(u"", Text(table[159].text));
    EXPECT_EQ(u"%s:%s", Text(table[212].text));
    EXPECT_EQ(u"%- 14s=[%s]", Text(table[502].text));
  }
}
