// Ox_DateTime's text forms: ToString's default forms, every token and
// one-letter format of FormatString, the positions it reports, the locale
// words, and Format through strftime.
#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_DateTime.h"

namespace {

class DateFormat : public ::testing::Test {
 protected:
  void SetUp() override { OxSetLocale(0x0409, 1252); }
  void TearDown() override { OxSetLocale(0x0409, 1252); }

  // Friday 4 March 2005, 10:20:30.
  static struct tm Morning() {
    struct tm tm;
    Ox_DateTime(2005, 3, 4, 10, 20, 30).ConvertToTm(tm);
    return tm;
  }
  // The same day at 15:05:09.
  static struct tm Afternoon() {
    struct tm tm;
    Ox_DateTime(2005, 3, 4, 15, 5, 9).ConvertToTm(tm);
    return tm;
  }
  static std::string Fmt(struct tm tm, const char *format) {
    return Ox_DateTime::FormatString(&tm, format, nullptr).GetString();
  }
};

}  // namespace

TEST_F(DateFormat, ToStringDefaultForms) {
  EXPECT_STREQ(Ox_DateTime(2005, 3, 4).ToString(nullptr).GetString(), "20050304");
  EXPECT_STREQ(Ox_DateTime(2005, 3, 4, 10, 20, 30).ToString(nullptr).GetString(),
               "20050304102030");
  // The time-only form belongs to 1 January 1900 ...
  EXPECT_STREQ(Ox_DateTime(1900, 1, 1, 10, 20, 30).ToString().GetString(),
               "102030");
  // ... while SetTime's year 0 prints with its date.
  Ox_DateTime time;
  time.SetTime(10, 20, 30);
  EXPECT_STREQ(time.ToString().GetString(), "00000101102030");
  // A given format is walked as tokens.
  EXPECT_STREQ(Ox_DateTime(2005, 3, 4).ToString("yyyy/MM/dd").GetString(),
               "2005/03/04");
}

TEST_F(DateFormat, RFormatEndsWithMonthBetweenGAndT) {
  // No blank before GMT, and its M is the month number.
  EXPECT_EQ(Fmt(Morning(), "R"), "Fri, 04 Mar 2005 10:20:30G03T");
  EXPECT_EQ(Fmt(Morning(), "r"), "Fri, 04 Mar 2005 10:20:30G03T");
}

TEST_F(DateFormat, NullTmPrintsUnderscores) {
  EXPECT_STREQ(
      Ox_DateTime::FormatString(nullptr, "yyyy-MM-dd", nullptr).GetString(),
      "____-__-__");
  // Names print as many underscores as Sunday, January and the morning
  // word have characters.
  EXPECT_STREQ(Ox_DateTime::FormatString(nullptr, "ddd|dddd", nullptr).GetString(),
               "___|______");
  EXPECT_STREQ(Ox_DateTime::FormatString(nullptr, "MMM|MMMM", nullptr).GetString(),
               "___|_______");
  EXPECT_STREQ(Ox_DateTime::FormatString(nullptr, "tt|a", nullptr).GetString(),
               "__|__");
  EXPECT_STREQ(
      Ox_DateTime::FormatString(nullptr, "h:hh:H:m:s:yy", nullptr).GetString(),
      "__:__:__:__:__:__");
  // No format and no tm: empty at once.
  EXPECT_STREQ(Ox_DateTime::FormatString(nullptr, nullptr, nullptr).GetString(), "");
  EXPECT_STREQ(Ox_DateTime::FormatString(nullptr, "", nullptr).GetString(), "");
}

TEST_F(DateFormat, DayTokens) {
  EXPECT_EQ(Fmt(Morning(), "d"), "03/04/2005");  // one letter: short date
  EXPECT_EQ(Fmt(Morning(), "[d]"), "[04]");      // a token: two digits
  EXPECT_EQ(Fmt(Morning(), "dd"), "04");
  EXPECT_EQ(Fmt(Morning(), "ddd"), "Fri");
  EXPECT_EQ(Fmt(Morning(), "dddd"), "Friday");
  // A fifth d follows the same letter: a plain letter.
  EXPECT_EQ(Fmt(Morning(), "ddddd"), "Fridayd");
  EXPECT_EQ(Fmt(Morning(), "dddddd"), "Fridaydd");
  // Sunday is day name 7.
  struct tm sunday;
  Ox_DateTime(2005, 3, 6).ConvertToTm(sunday);
  EXPECT_EQ(Fmt(sunday, "ddd dddd"), "Sun Sunday");
  // A day below 1 prints underscores.
  struct tm bad = Morning();
  bad.tm_mday = 0;
  EXPECT_EQ(Fmt(bad, "dd"), "__");
  bad.tm_wday = 9;
  EXPECT_EQ(Fmt(bad, "ddd"), "___");
}

TEST_F(DateFormat, HourTokens) {
  EXPECT_EQ(Fmt(Afternoon(), "hh"), "03");
  EXPECT_EQ(Fmt(Afternoon(), "[h]"), "[03]");
  EXPECT_EQ(Fmt(Afternoon(), "hhh"), "03h");  // a third h is plain
  EXPECT_EQ(Fmt(Afternoon(), "HH"), "15");
  EXPECT_EQ(Fmt(Afternoon(), "[H]"), "[15]");
  EXPECT_EQ(Fmt(Morning(), "hh"), "10");
  // Noon on the 12-hour clock is 00.
  struct tm noon = Morning();
  noon.tm_hour = 12;
  EXPECT_EQ(Fmt(noon, "hh tt"), "00 PM");
  struct tm midnight = Morning();
  midnight.tm_hour = 0;
  EXPECT_EQ(Fmt(midnight, "hh tt HH"), "00 AM 00");
}

TEST_F(DateFormat, MinuteSecondAndMonthTokens) {
  EXPECT_EQ(Fmt(Afternoon(), "[m]"), "[05]");
  EXPECT_EQ(Fmt(Afternoon(), "mm"), "05");
  EXPECT_EQ(Fmt(Afternoon(), "[s]"), "[09]");
  EXPECT_EQ(Fmt(Afternoon(), "ss"), "09");
  EXPECT_EQ(Fmt(Afternoon(), "[M]"), "[03]");
  EXPECT_EQ(Fmt(Afternoon(), "MM"), "03");
  EXPECT_EQ(Fmt(Afternoon(), "MMM"), "Mar");
  EXPECT_EQ(Fmt(Afternoon(), "MMMM"), "March");
  EXPECT_EQ(Fmt(Afternoon(), "MMMMM"), "MarchM");
  struct tm bad = Morning();
  bad.tm_mon = -1;
  EXPECT_EQ(Fmt(bad, "MM|MMM|MMMM"), "__|___|_______");
}

TEST_F(DateFormat, AmPmTokens) {
  EXPECT_EQ(Fmt(Morning(), "[a]"), "[AM]");
  EXPECT_EQ(Fmt(Morning(), "aa"), "AM");
  EXPECT_EQ(Fmt(Afternoon(), "[t]"), "[PM]");
  EXPECT_EQ(Fmt(Afternoon(), "tt"), "PM");
  EXPECT_EQ(Fmt(Afternoon(), "ttt"), "PMt");
  // a and t are different letters: two tokens.
  EXPECT_EQ(Fmt(Afternoon(), "at"), "PMPM");
}

TEST_F(DateFormat, YearTokens) {
  EXPECT_EQ(Fmt(Morning(), "[y]"), "[05]");
  EXPECT_EQ(Fmt(Morning(), "yy"), "05");
  EXPECT_EQ(Fmt(Morning(), "yyy"), "2005");
  EXPECT_EQ(Fmt(Morning(), "yyyy"), "2005");
  EXPECT_EQ(Fmt(Morning(), "yyyyy"), "2005y");
  struct tm early = Morning();
  early.tm_year = 5 - 1900;  // year 5
  EXPECT_EQ(Fmt(early, "yyyy yy"), "0005 05");
  early.tm_year = -1 - 1900;  // year -1
  EXPECT_EQ(Fmt(early, "yy"), "__");
  EXPECT_EQ(Fmt(early, "yyyy"), "-001");
}

TEST_F(DateFormat, EscapesQuotesAndPlainCharacters) {
  EXPECT_EQ(Fmt(Morning(), "\\d\\M dd"), "dM 04");
  EXPECT_EQ(Fmt(Morning(), "'dd MM' yy"), "dd MM 05");
  EXPECT_EQ(Fmt(Morning(), "\"it's\" yy"), "it's 05");
  EXPECT_EQ(Fmt(Morning(), "'say \"yy\"'"), "say \"yy\"");
  EXPECT_EQ(Fmt(Morning(), "'open"), "open");  // an unclosed quote runs out
  EXPECT_EQ(Fmt(Morning(), "Q-x,Z"), "Q-x,Z");
  EXPECT_EQ(Fmt(Morning(), "GMT"), "G03T");
}

TEST_F(DateFormat, OneLetterFormats) {
  const struct tm m = Morning();
  EXPECT_EQ(Fmt(m, "d"), "03/04/2005");
  EXPECT_EQ(Fmt(m, "D"), "Friday, March 04, 2005");
  EXPECT_EQ(Fmt(m, "f"), "Friday, March 04, 2005 10:20 AM");
  EXPECT_EQ(Fmt(m, "F"), "Friday, March 04, 2005 10:20:30 AM");
  EXPECT_EQ(Fmt(m, "g"), "03/04/2005 10:20");
  EXPECT_EQ(Fmt(m, "G"), "03/04/2005 10:20:30");
  EXPECT_EQ(Fmt(m, "M"), "March 04");
  EXPECT_EQ(Fmt(m, "m"), "March 04");
  // In s and u, mm is the minute, so the month's place holds 20.
  EXPECT_EQ(Fmt(m, "s"), "2005-20-04 10:20:30");
  EXPECT_EQ(Fmt(m, "u"), "2005-20-04 10:20:30");
  EXPECT_EQ(Fmt(m, "t"), "10:20");
  EXPECT_EQ(Fmt(m, "T"), "10:20:30");
  EXPECT_EQ(Fmt(m, "U"), "Friday, March 04, 2005 10:20:30 AM");
  EXPECT_EQ(Fmt(m, "Y"), "March, 2005");
  EXPECT_EQ(Fmt(m, "y"), "March, 2005");
  EXPECT_EQ(Fmt(m, "q"), "");
  EXPECT_EQ(Fmt(m, "1"), "");
}

TEST_F(DateFormat, EmptyFormatPicksGOrD) {
  EXPECT_EQ(Fmt(Morning(), ""), "03/04/2005 10:20");
  EXPECT_EQ(Fmt(Morning(), nullptr), "03/04/2005 10:20");
  struct tm midnight;
  Ox_DateTime(2005, 3, 4).ConvertToTm(midnight);
  EXPECT_EQ(Fmt(midnight, nullptr), "03/04/2005");
}

TEST_F(DateFormat, PercentLettersStandForOneLetterFormats) {
  EXPECT_EQ(Fmt(Morning(), "%d %t"), "03/04/2005 10:20");
  EXPECT_EQ(Fmt(Morning(), "[%q]"), "[]");
  EXPECT_EQ(Fmt(Morning(), "100%"), "100%");
  EXPECT_EQ(Fmt(Morning(), "%%T"), "%10:20:30");
}

TEST_F(DateFormat, InfoIsResetAndFilled) {
  struct tm m = Morning();
  OX_DATETIME_FORMATINFO info;
  memset(&info, 0x55, sizeof info);
  Ox_DateTime::FormatString(&m, "QQ", &info);
  EXPECT_EQ(info.yearPos, -1);
  EXPECT_EQ(info.yearLen, 0);
  EXPECT_EQ(info.monthPos, -1);
  EXPECT_EQ(info.monthLen, 0);
  EXPECT_EQ(info.monthKind, -1);
  EXPECT_EQ(info.dayPos, -1);
  EXPECT_EQ(info.hourPos, -1);
  EXPECT_EQ(info.hourKind, -1);
  EXPECT_EQ(info.minutePos, -1);
  EXPECT_EQ(info.secondPos, -1);
  EXPECT_EQ(info.ampmPos, -1);
  EXPECT_EQ(info.ampmLen, 0);
  EXPECT_EQ(info.isPM, 0);

  Ox_DateTime::FormatString(&m, "yyyy-MM-dd HH:mm:ss", &info);
  EXPECT_EQ(info.yearPos, 0);
  EXPECT_EQ(info.yearLen, 4);
  EXPECT_EQ(info.monthPos, 5);
  EXPECT_EQ(info.monthLen, 2);
  EXPECT_EQ(info.monthKind, 0);
  EXPECT_EQ(info.dayPos, 8);
  EXPECT_EQ(info.hourPos, 11);
  EXPECT_EQ(info.hourKind, 1);
  EXPECT_EQ(info.minutePos, 14);
  EXPECT_EQ(info.secondPos, 17);
  EXPECT_EQ(info.ampmPos, -1);
  EXPECT_EQ(info.isPM, 0);
}

TEST_F(DateFormat, InfoOfNamesAndTwelveHourClock) {
  // "March 04, 05 03:05 PM": month at 0 (5 long), day at 6, year at 10,
  // hour at 13, minute at 16, the afternoon word at 19.
  struct tm a = Afternoon();
  OX_DATETIME_FORMATINFO info;
  EXPECT_STREQ(
      Ox_DateTime::FormatString(&a, "MMMM dd, yy hh:mm tt", &info).GetString(),
      "March 04, 05 03:05 PM");
  EXPECT_EQ(info.monthPos, 0);
  EXPECT_EQ(info.monthLen, 5);
  EXPECT_EQ(info.monthKind, 1);
  EXPECT_EQ(info.dayPos, 6);
  EXPECT_EQ(info.yearPos, 10);
  EXPECT_EQ(info.yearLen, 2);
  EXPECT_EQ(info.hourPos, 13);
  EXPECT_EQ(info.hourKind, 2);
  EXPECT_EQ(info.minutePos, 16);
  EXPECT_EQ(info.ampmPos, 19);
  EXPECT_EQ(info.ampmLen, 2);
  EXPECT_EQ(info.isPM, 1);
  // The 12-hour clock alone sets isPM too.
  Ox_DateTime::FormatString(&a, "hh", &info);
  EXPECT_EQ(info.isPM, 1);
  // Names keep an earlier month position; h keeps an earlier hour.
  Ox_DateTime::FormatString(&a, "MM MMM HH hh", &info);
  EXPECT_EQ(info.monthPos, 0);
  EXPECT_EQ(info.monthLen, 2);
  EXPECT_EQ(info.monthKind, 0);
  EXPECT_EQ(info.hourPos, 7);
  EXPECT_EQ(info.hourKind, 1);
  Ox_DateTime::FormatString(&a, "MMM", &info);
  EXPECT_EQ(info.monthKind, 2);
  EXPECT_EQ(info.monthLen, 3);
  // Positions are set without a tm as well.
  Ox_DateTime::FormatString(nullptr, "dd/yyyy", &info);
  EXPECT_EQ(info.dayPos, 0);
  EXPECT_EQ(info.yearPos, 3);
  EXPECT_EQ(info.yearLen, 4);
}

TEST_F(DateFormat, KoreanWordsInCodePage949) {
  OxSetLocale(0x0412, 949);
  const struct tm a = Afternoon();
  EXPECT_EQ(Fmt(a, "d"), "2005-03-04");
  // 2005'년' 03'월' 04'일' 금요일 in code page 949.
  EXPECT_EQ(Fmt(a, "D"),
            "2005\xb3\xe2 03\xbf\xf9 04\xc0\xcf \xb1\xdd\xbf\xe4\xc0\xcf");
  EXPECT_EQ(Fmt(a, "tt"), "\xbf\xc0\xc8\xc4");        // 오후
  EXPECT_EQ(Fmt(Morning(), "tt"), "\xbf\xc0\xc0\xfc");  // 오전
  EXPECT_EQ(Fmt(a, "ddd"), "\xb1\xdd");                // 금
  EXPECT_EQ(Fmt(a, "MMMM"), "3\xbf\xf9");              // 3월
}

TEST_F(DateFormat, KoreanWordsInUtf8) {
  OxSetLocale(0x0412, 65001);
  const struct tm a = Afternoon();
  EXPECT_EQ(Fmt(a, "D"), "2005년 03월 04일 금요일");
  EXPECT_EQ(Fmt(a, "tt"), "오후");
  EXPECT_EQ(Fmt(a, "MMM"), "3월");
  // Without a tm a name prints one underscore per byte of Sunday's.
  EXPECT_STREQ(Ox_DateTime::FormatString(nullptr, "dddd", nullptr).GetString(),
               "_________");
}

TEST_F(DateFormat, JapaneseWords) {
  OxSetLocale(0x0411, 65001);
  const struct tm a = Afternoon();
  EXPECT_EQ(Fmt(a, "d"), "2005/03/04");
  EXPECT_EQ(Fmt(a, "D"), "2005年03月04日");
  EXPECT_EQ(Fmt(a, "tt"), "午後");
  EXPECT_EQ(Fmt(a, "dddd"), "金曜日");
  OxSetLocale(0x0411, 932);
  EXPECT_EQ(Fmt(a, "D"), "2005\x94N03\x8c\x8e" "04\x93\xfa");
  EXPECT_EQ(Fmt(Morning(), "tt"), "\x8c\xdf\x91O");  // 午前
}

TEST_F(DateFormat, UnknownLocaleReadsAsEnglish) {
  OxSetLocale(0x0407, 1252);
  EXPECT_EQ(Fmt(Morning(), "D"), "Friday, March 04, 2005");
}

TEST_F(DateFormat, FormatGoesThroughStrftime) {
  EXPECT_STREQ(Ox_DateTime(2005, 3, 4, 10, 20, 30).Format("%Y-%m-%d %H:%M:%S").GetString(),
               "2005-03-04 10:20:30");
  EXPECT_STREQ(Ox_DateTime(2005, 3, 4).Format().GetString(), "20050304");
  EXPECT_STREQ(Ox_DateTime(1900, 1, 1, 10, 20, 30).Format().GetString(), "10:20:30");
  EXPECT_STREQ(Ox_DateTime(2005, 3, 4, 10, 20, 30).Format().GetString(),
               "20050304 10:20:30");
  // The English language's names.
  EXPECT_STREQ(Ox_DateTime(2005, 3, 4).Format("%A %B").GetString(), "Friday March");
  // Out of room: empty.
  std::string longFormat(200, 'x');
  EXPECT_STREQ(Ox_DateTime(2005, 3, 4).Format(longFormat.c_str()).GetString(), "");
}
