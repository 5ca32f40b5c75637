// Code pages: the locale, charset names and conversions with known bytes.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_String.h"
#include "base/ox_codepage_internal.h"

namespace {

// Korean 가 (U+AC00), Japanese あ (U+3042), é (U+00E9) in each page.
const char kGaUtf8[] = "\xEA\xB0\x80";
const char kGa949[] = "\xB0\xA1";
const char kAUtf8[] = "\xE3\x81\x82";
const char kA932[] = "\x82\xA0";
const char kEUtf8[] = "\xC3\xA9";
const char kE1252[] = "\xE9";

std::string Text(const Ox_AString &s) {
  return std::string(s.GetString(), static_cast<size_t>(s.GetLength()));
}

TEST(CodePage, OxSetLocaleDecidesLocaleAndActivePage) {
  OxSetLocale(0x0412, 949);
  EXPECT_EQ(949u, OxGetLocaleCP());
  EXPECT_EQ(0x0412u, OxGetLCID());
  EXPECT_EQ(0x12u, OxGetLCID() & 0x3FF);  // primary language: Korean
  EXPECT_EQ(949u, ox_activecodepage(0));
  EXPECT_EQ(949u, ox_activecodepage(12345));  // unknown page
  EXPECT_EQ(65001u, ox_activecodepage(65001));
  EXPECT_EQ(932u, ox_activecodepage(932));
  // 0 leaves a value as it is.
  OxSetLocale(0, 932);
  EXPECT_EQ(932u, OxGetLocaleCP());
  EXPECT_EQ(0x0412u, OxGetLCID());
  OxSetLocale(0x0411, 0);
  EXPECT_EQ(932u, OxGetLocaleCP());
  EXPECT_EQ(0x0411u, OxGetLCID());
  EXPECT_EQ(932u, ox_activecodepage(0));
  OxSetLocale(0x0409, 1252);
  EXPECT_EQ(1252u, ox_activecodepage(0));
  EXPECT_EQ(1252u, ox_activecodepage(99));
}

// Sets LC_ALL, LC_CTYPE and LANG for one test and puts them back after.
class LocaleEnvironment : public ::testing::Test {
 protected:
  void SetUp() override {
    for (int i = 0; i < 3; ++i) {
      const char *v = getenv(kNames[i]);
      m_had[i] = v != nullptr;
      if (v) m_saved[i] = v;
    }
    ox_cp_reset_locale();
  }
  void TearDown() override {
    for (int i = 0; i < 3; ++i) {
      if (m_had[i]) {
        setenv(kNames[i], m_saved[i].c_str(), 1);
      } else {
        unsetenv(kNames[i]);
      }
    }
    OxSetLocale(0x0409, 1252);
  }
  static void Use(const char *all, const char *ctype, const char *lang) {
    const char *values[] = {all, ctype, lang};
    for (int i = 0; i < 3; ++i) {
      if (values[i]) {
        setenv(kNames[i], values[i], 1);
      } else {
        unsetenv(kNames[i]);
      }
    }
  }
  static constexpr const char *kNames[3] = {"LC_ALL", "LC_CTYPE", "LANG"};
  bool m_had[3];
  std::string m_saved[3];
};

TEST_F(LocaleEnvironment, CodePageAndLcidFromTheEnvironment) {
  Use(nullptr, nullptr, "ko_KR.UTF-8");  // UTF-8 codeset wins over Korean
  EXPECT_EQ(65001u, OxGetLocaleCP());
  EXPECT_EQ(0x0412u, OxGetLCID());
  Use(nullptr, nullptr, "ko_KR.eucKR");
  EXPECT_EQ(949u, OxGetLocaleCP());
  EXPECT_EQ(0x0412u, OxGetLCID());
  Use(nullptr, nullptr, "ja_JP.SJIS");
  EXPECT_EQ(932u, OxGetLocaleCP());
  EXPECT_EQ(0x0411u, OxGetLCID());
  Use(nullptr, nullptr, "de_DE.ISO-8859-1");
  EXPECT_EQ(1252u, OxGetLocaleCP());
  EXPECT_EQ(0x0409u, OxGetLCID());
  Use(nullptr, nullptr, "C.utf8");
  EXPECT_EQ(65001u, OxGetLocaleCP());
  Use(nullptr, nullptr, nullptr);  // nothing set: the C locale
  EXPECT_EQ(1252u, OxGetLocaleCP());
  EXPECT_EQ(0x0409u, OxGetLCID());
  EXPECT_EQ(1252u, ox_activecodepage(0));
}

TEST_F(LocaleEnvironment, LcAllThenLcCtypeThenLang) {
  Use("ja_JP", "ko_KR", "en_US.UTF-8");
  EXPECT_EQ(932u, OxGetLocaleCP());
  EXPECT_EQ(0x0411u, OxGetLCID());
  Use("", "ko_KR", "en_US.UTF-8");  // empty counts as not set
  EXPECT_EQ(949u, OxGetLocaleCP());
  Use(nullptr, nullptr, "en_US.UTF-8");
  EXPECT_EQ(65001u, OxGetLocaleCP());
  // OxSetLocale overrides the environment.
  OxSetLocale(0x0412, 949);
  EXPECT_EQ(949u, OxGetLocaleCP());
  EXPECT_EQ(0x0412u, OxGetLCID());
}

TEST(CodePage, KnownPagesAreActiveAsThey) {
  OxSetLocale(0x0409, 1252);
  for (unsigned page : {1252u, 949u, 932u, 65001u, 1200u, 28591u, 20127u})
    EXPECT_EQ(page, ox_activecodepage(page));
}

TEST(CodePage, FindCodePageIgnoresCase) {
  EXPECT_EQ(65001u, ox_findcodepageA("utf-8"));
  EXPECT_EQ(65001u, ox_findcodepageA("UTF-8"));
  EXPECT_EQ(949u, ox_findcodepageA("euc-kr"));
  EXPECT_EQ(949u, ox_findcodepageA("EUC-KR"));
  EXPECT_EQ(949u, ox_findcodepageA("ks_c_5601-1987"));
  EXPECT_EQ(949u, ox_findcodepageA("windows-949"));
  EXPECT_EQ(949u, ox_findcodepageA("CP949"));
  EXPECT_EQ(932u, ox_findcodepageA("Shift_JIS"));
  EXPECT_EQ(932u, ox_findcodepageA("windows-932"));
  EXPECT_EQ(932u, ox_findcodepageA("cp932"));
  EXPECT_EQ(1252u, ox_findcodepageA("Windows-1252"));
  EXPECT_EQ(28591u, ox_findcodepageA("ISO-8859-1"));
  EXPECT_EQ(20127u, ox_findcodepageA("us-ascii"));
  EXPECT_EQ(1200u, ox_findcodepageA("UTF-16"));
  EXPECT_EQ(0u, ox_findcodepageA("koi8-r"));
  EXPECT_EQ(0u, ox_findcodepageA(""));
  EXPECT_EQ(0u, ox_findcodepageA(nullptr));
  EXPECT_EQ(0u, ox_findcodepageA("utf-8 "));
}

TEST(CodePage, FindCharset) {
  EXPECT_STREQ("utf-8", ox_findcharset(65001));
  EXPECT_STREQ("euc-kr", ox_findcharset(949));
  EXPECT_STREQ("shift_jis", ox_findcharset(932));
  EXPECT_STREQ("windows-1252", ox_findcharset(1252));
  EXPECT_STREQ("iso-8859-1", ox_findcharset(28591));
  EXPECT_STREQ("us-ascii", ox_findcharset(20127));
  EXPECT_STREQ("utf-16", ox_findcharset(1200));
  ASSERT_NE(nullptr, ox_findcharset(0));
  EXPECT_STREQ("", ox_findcharset(0));
  EXPECT_STREQ("", ox_findcharset(437));
  // Each name leads back to its page.
  for (unsigned page : {65001u, 949u, 932u, 1252u, 28591u, 20127u, 1200u})
    EXPECT_EQ(page, ox_findcodepageA(ox_findcharset(page)));
}

TEST(CodePage, ConvertKoreanBothWays) {
  Ox_AString s;
  EXPECT_EQ(2, s.ConvertCodePageFrom(65001, kGaUtf8, -1, 949));
  EXPECT_EQ(kGa949, Text(s));
  EXPECT_EQ(3, s.ConvertCodePageFrom(949, kGa949, -1, 65001));
  EXPECT_EQ(kGaUtf8, Text(s));
}

TEST(CodePage, ConvertJapaneseBothWays) {
  Ox_AString s;
  EXPECT_EQ(2, s.ConvertCodePageFrom(65001, kAUtf8, -1, 932));
  EXPECT_EQ(kA932, Text(s));
  EXPECT_EQ(3, s.ConvertCodePageFrom(932, kA932, 2, 65001));
  EXPECT_EQ(kAUtf8, Text(s));
}

TEST(CodePage, ConvertLatinBothWays) {
  Ox_AString s;
  EXPECT_EQ(1, s.ConvertCodePageFrom(65001, kEUtf8, -1, 1252));
  EXPECT_EQ(kE1252, Text(s));
  EXPECT_EQ(2, s.ConvertCodePageFrom(1252, kE1252, -1, 65001));
  EXPECT_EQ(kEUtf8, Text(s));
  EXPECT_EQ(1, s.ConvertCodePageFrom(65001, kEUtf8, -1, 28591));
  EXPECT_EQ(kE1252, Text(s));
}

TEST(CodePage, ConvertMixedText) {
  // "a가b" in UTF-8 is 61 EA B0 80 62, in 949 61 B0 A1 62.
  Ox_AString s;
  EXPECT_EQ(4, s.ConvertCodePageFrom(65001, "a\xEA\xB0\x80" "b", -1, 949));
  EXPECT_EQ("a\xB0\xA1" "b", Text(s));
}

TEST(CodePage, ConvertToUtf16Bytes) {
  // 가 as UTF-16LE bytes: 00 AC; "A" is 41 00.
  Ox_AString s;
  EXPECT_EQ(4, s.ConvertCodePageFrom(65001, "A\xEA\xB0\x80", -1, 1200));
  EXPECT_EQ(std::string("A\0\x00\xAC", 4), Text(s));
  EXPECT_EQ(4, s.ConvertCodePageFrom(1200, "A\0\x00\xAC", 4, 65001));
  EXPECT_EQ("A\xEA\xB0\x80", Text(s));
}

TEST(CodePage, SamePageCopies) {
  Ox_AString s;
  // Not valid UTF-8, yet copied as it stands: no conversion runs.
  EXPECT_EQ(2, s.ConvertCodePageFrom(65001, "\xFF\xFE", -1, 65001));
  EXPECT_EQ("\xFF\xFE", Text(s));
  OxSetLocale(0x0409, 1252);
  EXPECT_EQ(3, s.ConvertCodePageFrom(0, "abc", -1, 1252));
  EXPECT_EQ("abc", Text(s));
}

TEST(CodePage, EmptyConversionGivesZero) {
  Ox_AString s("old");
  EXPECT_EQ(0, s.ConvertCodePageFrom(65001, "", -1, 949));
  EXPECT_EQ(0, s.GetLength());
  s = "old";
  EXPECT_EQ(0, s.ConvertCodePageFrom(65001, nullptr, 5, 949));
  EXPECT_EQ(0, s.GetLength());
}

TEST(CodePage, ImpossibleConversionsFail) {
  Ox_AString s("old");
  // B0 alone is a lead byte of 949 with no trail byte.
  EXPECT_LT(s.ConvertCodePageFrom(949, "\xB0", -1, 65001), 1);
  EXPECT_EQ(0, s.GetLength());
  // FF is no character of 949.
  s = "old";
  EXPECT_LT(s.ConvertCodePageFrom(949, "a\xFF\xFF", -1, 65001), 1);
  EXPECT_EQ(0, s.GetLength());
  // Korean has no form in 1252.
  s = "old";
  EXPECT_LT(s.ConvertCodePageFrom(65001, kGaUtf8, -1, 1252), 1);
  EXPECT_EQ(0, s.GetLength());
  // Nor é in ASCII.
  s = "old";
  EXPECT_LT(s.ConvertCodePageFrom(65001, kEUtf8, -1, 20127), 1);
  EXPECT_EQ(0, s.GetLength());
  // Broken UTF-8.
  s = "old";
  EXPECT_LT(s.ConvertCodePageFrom(65001, "\xC3", -1, 949), 1);
  EXPECT_EQ(0, s.GetLength());
}

TEST(CodePage, AStringFromSixteenBitText) {
  const char16_t ga[] = {0xAC00, 0};
  Ox_AString a(ga, -1, 65001);
  EXPECT_EQ(kGaUtf8, Text(a));
  Ox_AString b(ga, -1, 949);
  EXPECT_EQ(kGa949, Text(b));
  const char16_t hira[] = {0x3042, 0};
  Ox_AString c(hira, 1, 932);
  EXPECT_EQ(kA932, Text(c));
  const char16_t e[] = {0x00E9, 0};
  Ox_AString d;
  d.Set(e, -1, 1252);
  EXPECT_EQ(kE1252, Text(d));
  // 0 takes the locale's page.
  OxSetLocale(0x0412, 949);
  Ox_AString f(ga, -1, 0);
  EXPECT_EQ(kGa949, Text(f));
  OxSetLocale(0x0409, 1252);
  Ox_AString g(u"plain", -1, 0);
  EXPECT_EQ("plain", Text(g));
  // Null and empty give empty; an impossible conversion too.
  EXPECT_EQ(0, Ox_AString(static_cast<const char16_t *>(nullptr), -1, 65001).GetLength());
  EXPECT_EQ(0, Ox_AString(u"", -1, 65001).GetLength());
  EXPECT_EQ(0, Ox_AString(ga, -1, 1252).GetLength());
  // A lone surrogate is no valid 16-bit text.
  const char16_t lone[] = {0xD800, 0};
  EXPECT_EQ(0, Ox_AString(lone, -1, 65001).GetLength());
}

TEST(CodePage, SurrogatePairToUtf8) {
  // U+1F600 is D83D DE00, F0 9F 98 80 in UTF-8.
  const char16_t pair[] = {0xD83D, 0xDE00, 0};
  Ox_AString s(pair, -1, 65001);
  EXPECT_EQ("\xF0\x9F\x98\x80", Text(s));
  Ox_WString w;
  EXPECT_EQ(2, w.Set("\xF0\x9F\x98\x80", -1, 65001));
  EXPECT_EQ(0xD83D, w.GetString()[0]);
  EXPECT_EQ(0xDE00, w.GetString()[1]);
}

TEST(CodePage, WStringDecodesEachPage) {
  Ox_WString w;
  EXPECT_EQ(1, w.Set(kGa949, -1, 949));
  EXPECT_EQ(0xAC00, w.GetString()[0]);
  EXPECT_EQ(1, w.Set(kA932, -1, 932));
  EXPECT_EQ(0x3042, w.GetString()[0]);
  EXPECT_EQ(1, w.Set(kE1252, -1, 1252));
  EXPECT_EQ(0x00E9, w.GetString()[0]);
  EXPECT_EQ(1, w.Set(kE1252, -1, 28591));
  EXPECT_EQ(0x00E9, w.GetString()[0]);
  EXPECT_LT(w.Set(kE1252, -1, 20127), 1);  // not ASCII
  EXPECT_LT(w.Set("\xB0", -1, 949), 1);
  EXPECT_EQ(0, w.GetLength());
}

TEST(CodePage, AsciiIsTheSameInEveryAsciiPage) {
  // Every byte 1..127 widens to the unit of the same value.
  char ascii[128];
  for (int i = 1; i < 128; ++i) ascii[i - 1] = static_cast<char>(i);
  ascii[127] = 0;
  for (unsigned page : {1252u, 949u, 932u, 65001u, 28591u, 20127u}) {
    Ox_WString w;
    ASSERT_EQ(127, w.Set(ascii, -1, page)) << page;
    for (int i = 0; i < 127; ++i) ASSERT_EQ(i + 1, w.GetString()[i]) << page;
    Ox_AString back(w.GetString(), w.GetLength(), page);
    EXPECT_STREQ(ascii, back.GetString()) << page;
  }
}

}  // namespace
