// Ox_AString and Ox_WString: every operation of the interface, sharing,
// copy on write and the empty value.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>

#include "Ox_Buffer.h"
#include "Ox_String.h"

namespace {

// Gives back an Ox_AString through a printf-style member, to exercise
// Formatv with a real va_list.
const char *CallFormatv(Ox_AString &s, const char *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const char *r = s.Formatv(format, arguments);
  va_end(arguments);
  return r;
}

TEST(AString, DefaultIsEmptyAndNeverNull) {
  Ox_AString s;
  EXPECT_EQ(0, s.GetLength());
  ASSERT_NE(nullptr, s.GetString());
  EXPECT_STREQ("", s.GetString());
  EXPECT_STREQ("", static_cast<const char *>(s));
  EXPECT_EQ(0, _OxNullString.GetLength());
  EXPECT_STREQ("", _OxNullString.GetString());
}

TEST(AString, ConstructFromTextAndLength) {
  Ox_AString a("hello");
  EXPECT_EQ(5, a.GetLength());
  EXPECT_STREQ("hello", a.GetString());
  Ox_AString b("hello", 3);
  EXPECT_EQ(3, b.GetLength());
  EXPECT_STREQ("hel", b.GetString());
  Ox_AString c(nullptr);
  EXPECT_EQ(0, c.GetLength());
  EXPECT_STREQ("", c.GetString());
  Ox_AString d(nullptr, 5);  // a null text gives empty whatever the length
  EXPECT_EQ(0, d.GetLength());
  Ox_AString e("", -1);
  EXPECT_EQ(0, e.GetLength());
}

TEST(AString, CopySharesTheBlockAndWritingUnshares) {
  Ox_AString a("shared text");
  Ox_AString b(a);
  EXPECT_EQ(a.GetString(), b.GetString());  // one block
  Ox_AString c;
  c = a;
  EXPECT_EQ(a.GetString(), c.GetString());
  b.SetAt(0, 'S');
  EXPECT_NE(a.GetString(), b.GetString());
  EXPECT_STREQ("shared text", a.GetString());
  EXPECT_STREQ("Shared text", b.GetString());
  c += "!";
  EXPECT_STREQ("shared text", a.GetString());
  EXPECT_STREQ("shared text!", c.GetString());
  char *w = a.GetSafeBuffer(-1);
  EXPECT_NE(w, c.GetString());
}

TEST(AString, GetSafeBufferOnSharedBlockCopies) {
  Ox_AString a("abc");
  Ox_AString b = a;
  char *p = b.GetSafeBuffer(-1);
  ASSERT_NE(nullptr, p);
  EXPECT_NE(a.GetString(), static_cast<const char *>(p));
  p[0] = 'x';
  EXPECT_STREQ("abc", a.GetString());
  EXPECT_STREQ("xbc", b.GetString());
}

TEST(AString, SelfAssignment) {
  Ox_AString a("self");
  Ox_AString &r = a;
  a = r;
  EXPECT_STREQ("self", a.GetString());
  a.Set(a);
  EXPECT_STREQ("self", a.GetString());
  a.Set(a.GetString() + 1);  // text inside its own block
  EXPECT_STREQ("elf", a.GetString());
}

TEST(AString, AssignFromText) {
  Ox_AString a;
  a = "xyz";
  EXPECT_STREQ("xyz", a.GetString());
  a = static_cast<const char *>(nullptr);
  EXPECT_EQ(0, a.GetLength());
  a.Set("abcdef", 2);
  EXPECT_STREQ("ab", a.GetString());
}

TEST(AString, SetNumbers) {
  Ox_AString s;
  EXPECT_STREQ("12", s.Set(12).GetString());
  EXPECT_STREQ("-2147483648", s.Set(INT_MIN).GetString());
  EXPECT_STREQ("0", s.Set(0).GetString());
  // Whole doubles carry no point; halves are exact.
  EXPECT_STREQ("12", s.Set(12.0).GetString());
  EXPECT_STREQ("0.5", s.Set(0.5).GetString());
  EXPECT_STREQ("-3.25", s.Set(-3.25).GetString());
  // 0.1 has no exact binary form; 15 digits already read back as it.
  EXPECT_STREQ("0.1", s.Set(0.1).GetString());
  // 0.1 + 0.2 is 0.30000000000000004440892098500626...: 15 and 16
  // digits give 0.3 and 0.3000000000000000 (= 0.3, a different double),
  // 17 digits give 0.30000000000000004.
  EXPECT_STREQ("0.30000000000000004", s.Set(0.1 + 0.2).GetString());
  // The smallest subnormal, 4.94065645841246544e-324, reads back from
  // its one-digit text.
  EXPECT_STREQ("5e-324", s.Set(5e-324).GetString());
  EXPECT_STREQ("1e+21", s.Set(1e21).GetString());
  EXPECT_STREQ("-0.001", s.Set(-0.001).GetString());
}

TEST(AString, SetDoubleReadsBackExactly) {
  const double values[] = {1.0 / 3.0, 2.0 / 3.0, 1e300,  -1e-300, 123456789.123,
                           3.141592653589793, 1e21, 5e-324, 1.7976931348623157e308};
  for (double v : values) {
    Ox_AString s;
    s.Set(v);
    EXPECT_EQ(v, s.ToDouble()) << s.GetString();
  }
}

TEST(AString, AppendOperators) {
  Ox_AString s("a");
  s += Ox_AString("b");
  s += "c";
  s += 'd';
  s += 12;
  s += 0.5;
  EXPECT_STREQ("abcd120.5", s.GetString());
  EXPECT_EQ(9, s.GetLength());
  s += static_cast<const char *>(nullptr);
  s += "";
  EXPECT_EQ(9, s.GetLength());
  s += s;  // itself
  EXPECT_STREQ("abcd120.5abcd120.5", s.GetString());
  Ox_AString t("xy");
  t += t.GetString() + 1;  // text inside its own block
  EXPECT_STREQ("xyy", t.GetString());
}

TEST(AString, AppendToEmptySharesTheOther) {
  Ox_AString empty;
  Ox_AString full("text");
  empty += full;
  EXPECT_STREQ("text", empty.GetString());
  EXPECT_EQ(full.GetString(), empty.GetString());
}

TEST(AString, AppendManyGrowsAndKeepsContent) {
  Ox_AString s;
  for (int i = 0; i < 1000; ++i) s += static_cast<char>('a' + i % 26);
  ASSERT_EQ(1000, s.GetLength());
  for (int i = 0; i < 1000; ++i) ASSERT_EQ('a' + i % 26, s[i]);
}

TEST(AString, PlusOperators) {
  Ox_AString a("left");
  EXPECT_STREQ("left+", (a + "+").GetString());
  EXPECT_STREQ("+left", ("+" + a).GetString());
  EXPECT_STREQ("leftleft", (a + a).GetString());
  EXPECT_STREQ("left", (a + static_cast<const char *>(nullptr)).GetString());
  EXPECT_STREQ("left", a.GetString());
}

TEST(AString, Empty) {
  Ox_AString s("x");
  Ox_AString t(s);
  s.Empty();
  EXPECT_EQ(0, s.GetLength());
  EXPECT_STREQ("", s.GetString());
  EXPECT_STREQ("x", t.GetString());
}

TEST(AString, GetAtAndIndexClamp) {
  Ox_AString s("abc");
  EXPECT_EQ('a', s.GetAt(0));
  EXPECT_EQ('c', s[2]);
  EXPECT_EQ('\0', s.GetAt(3));
  EXPECT_EQ('\0', s.GetAt(-1));
  Ox_AString e;
  EXPECT_EQ('\0', e.GetAt(0));
  e.SetAt(0, 'x');  // out of range: nothing
  EXPECT_EQ(0, e.GetLength());
  s.SetAt(5, 'x');
  s.SetAt(-1, 'x');
  EXPECT_STREQ("abc", s.GetString());
}

TEST(AString, SetAtZeroKeepsLengthUntilFreeExtra) {
  Ox_AString s("hello world");
  Ox_AString other(s);
  s.SetAt(5, '\0');
  EXPECT_STREQ("hello", s.GetString());  // C text cut
  EXPECT_EQ(11, s.GetLength());          // old length still reported
  EXPECT_STREQ("hello world", other.GetString());
  s.FreeExtra(-1);
  EXPECT_EQ(5, s.GetLength());
  EXPECT_STREQ("hello", s.GetString());
}

TEST(AString, Compare) {
  Ox_AString s("abc");
  EXPECT_EQ(0, s.Compare("abc"));
  EXPECT_LT(s.Compare("abd"), 0);
  EXPECT_GT(s.Compare("ab"), 0);
  EXPECT_GT(s.Compare(nullptr), 0);
  EXPECT_LT(s.Compare("b"), 0);
  Ox_AString e;
  EXPECT_EQ(0, e.Compare(nullptr));
  EXPECT_EQ(0, e.Compare(""));
  EXPECT_LT(e.Compare("a"), 0);
}

TEST(AString, FindCharAndText) {
  Ox_AString s("abcabc");
  EXPECT_EQ(1, s.Find('b'));
  EXPECT_EQ(4, s.Find('b', 2));
  EXPECT_EQ(-1, s.Find('z'));
  EXPECT_EQ(1, s.Find('b', -5));  // start clamps to 0
  EXPECT_EQ(-1, s.Find('a', 6));
  EXPECT_EQ(-1, s.Find('a', 100));
  EXPECT_EQ(0, s.Find("abc"));
  EXPECT_EQ(3, s.Find("abc", 1));
  EXPECT_EQ(-1, s.Find("abc", 4));
  EXPECT_EQ(2, s.Find("ca"));
  EXPECT_EQ(-1, s.Find("cab", 3));
  EXPECT_EQ(-1, s.Find("abcabcabc"));
  EXPECT_EQ(-1, s.Find(static_cast<const char *>(nullptr)));
  EXPECT_EQ(-1, s.Find(""));
  Ox_AString e;
  EXPECT_EQ(-1, e.Find('a'));
  EXPECT_EQ(-1, e.Find("a"));
}

TEST(AString, FindiIgnoresCase) {
  Ox_AString s("Hello World");
  EXPECT_EQ(6, s.Findi("WORLD"));
  EXPECT_EQ(0, s.Findi("hello"));
  EXPECT_EQ(-1, s.Findi("hello", 1));
  EXPECT_EQ(-1, s.Find("WORLD"));
  EXPECT_EQ(-1, s.Findi(nullptr));
  EXPECT_EQ(-1, Ox_AString().Findi("a"));
}

TEST(AString, LeftRightMidClamp) {
  Ox_AString s("abcdef");
  EXPECT_STREQ("abc", s.Left(3).GetString());
  EXPECT_STREQ("abcdef", s.Left(99).GetString());
  EXPECT_STREQ("", s.Left(-1).GetString());
  EXPECT_STREQ("def", s.Right(3).GetString());
  EXPECT_STREQ("abcdef", s.Right(10).GetString());
  EXPECT_STREQ("", s.Right(-2).GetString());
  EXPECT_STREQ("cdef", s.Mid(2).GetString());
  EXPECT_STREQ("", s.Mid(6).GetString());
  EXPECT_STREQ("", s.Mid(60).GetString());
  EXPECT_STREQ("abcdef", s.Mid(-3).GetString());
  EXPECT_STREQ("cd", s.Mid(2, 2).GetString());
  EXPECT_STREQ("cdef", s.Mid(2, 100).GetString());
  EXPECT_STREQ("", s.Mid(2, -1).GetString());
  EXPECT_STREQ("ab", s.Mid(-1, 2).GetString());
  EXPECT_EQ(0, Ox_AString().Mid(1, 2).GetLength());
  // The whole text is shared, not copied.
  EXPECT_EQ(s.GetString(), s.Mid(0).GetString());
}

TEST(AString, InsertReturnsNewLength) {
  Ox_AString s("ad");
  EXPECT_EQ(4, s.Insert(1, "bc"));
  EXPECT_STREQ("abcd", s.GetString());
  EXPECT_EQ(5, s.Insert(0, ">"));
  EXPECT_STREQ(">abcd", s.GetString());
  EXPECT_EQ(6, s.Insert(99, "<"));  // clamps to the end
  EXPECT_STREQ(">abcd<", s.GetString());
  EXPECT_EQ(7, s.Insert(-4, "["));  // clamps to the start
  EXPECT_STREQ("[>abcd<", s.GetString());
  EXPECT_EQ(7, s.Insert(2, nullptr));
  EXPECT_EQ(7, s.Insert(2, ""));
  Ox_AString e;
  EXPECT_EQ(2, e.Insert(5, "xy"));
  EXPECT_STREQ("xy", e.GetString());
  Ox_AString self("abc");
  EXPECT_EQ(5, self.Insert(1, self.GetString() + 1));  // "bc" from itself
  EXPECT_STREQ("abcbc", self.GetString());
}

TEST(AString, InsertUnsharesFirst) {
  Ox_AString a("xz");
  Ox_AString b(a);
  b.Insert(1, "y");
  EXPECT_STREQ("xz", a.GetString());
  EXPECT_STREQ("xyz", b.GetString());
}

TEST(AString, ReplaceTextReturnsCount) {
  Ox_AString s("a-b-c");
  EXPECT_EQ(2, s.Replace("-", "::"));
  EXPECT_STREQ("a::b::c", s.GetString());
  EXPECT_EQ(2, s.Replace("::", ""));
  EXPECT_STREQ("abc", s.GetString());
  EXPECT_EQ(0, s.Replace("x", "y"));
  EXPECT_STREQ("abc", s.GetString());
  EXPECT_EQ(1, s.Replace("abc", nullptr));
  EXPECT_EQ(0, s.GetLength());
  EXPECT_EQ(0, s.Replace("a", "b"));
  // Matches do not overlap: "aaa" holds one "aa" and a lone "a".
  Ox_AString t("aaa");
  EXPECT_EQ(1, t.Replace("aa", "b"));
  EXPECT_STREQ("ba", t.GetString());
  EXPECT_EQ(0, t.Replace(nullptr, "x"));
  EXPECT_EQ(0, t.Replace("", "x"));
  // A replacement that contains the pattern is not scanned again.
  Ox_AString u("xx");
  EXPECT_EQ(2, u.Replace("x", "xx"));
  EXPECT_STREQ("xxxx", u.GetString());
}

TEST(AString, ReplaceCharReturnsCount) {
  Ox_AString s("a.b.c");
  Ox_AString keep(s);
  EXPECT_EQ(2, s.Replace('.', '/'));
  EXPECT_STREQ("a/b/c", s.GetString());
  EXPECT_STREQ("a.b.c", keep.GetString());
  EXPECT_EQ(0, s.Replace('.', '/'));
  EXPECT_EQ(0, Ox_AString().Replace('a', 'b'));
}

TEST(AString, Trim) {
  Ox_AString s(" \t ab c \r\n");
  s.Trim();
  EXPECT_STREQ("ab c", s.GetString());
  EXPECT_EQ(4, s.GetLength());
  Ox_AString blank("  \t ");
  blank.Trim();
  EXPECT_EQ(0, blank.GetLength());
  Ox_AString none("x");
  none.Trim();
  EXPECT_STREQ("x", none.GetString());
  Ox_AString e;
  e.Trim();
  EXPECT_EQ(0, e.GetLength());
}

TEST(AString, TrimBrace) {
  Ox_AString a("\"quoted\"");
  a.TrimBrace(1);
  EXPECT_STREQ("quoted", a.GetString());
  Ox_AString b("'single'");
  b.TrimBrace(0);
  EXPECT_STREQ("single", b.GetString());
  Ox_AString c("\"mixed'");
  c.TrimBrace(1);
  EXPECT_STREQ("\"mixed'", c.GetString());
  Ox_AString d("plain");
  d.TrimBrace(0);
  EXPECT_STREQ("plain", d.GetString());
  Ox_AString e("\"");
  e.TrimBrace(1);
  EXPECT_STREQ("\"", e.GetString());
  Ox_AString f("\"\"");
  f.TrimBrace(1);
  EXPECT_EQ(0, f.GetLength());
  Ox_AString g("\"a\"b\"");  // only one pair comes off
  g.TrimBrace(1);
  EXPECT_STREQ("a\"b", g.GetString());
}

TEST(AString, QuoteStr) {
  EXPECT_STREQ("\"abc\"", Ox_AString("abc").QuoteStr('"').GetString());
  EXPECT_STREQ("'abc'", Ox_AString("abc").QuoteStr('\'').GetString());
  EXPECT_STREQ("\"a\\\"b\"", Ox_AString("a\"b").QuoteStr('"').GetString());
  EXPECT_STREQ("\"a\\\\b\"", Ox_AString("a\\b").QuoteStr('"').GetString());
  // The other quote character needs no protection.
  EXPECT_STREQ("\"it's\"", Ox_AString("it's").QuoteStr('"').GetString());
  EXPECT_STREQ("'it\\'s'", Ox_AString("it's").QuoteStr('\'').GetString());
  EXPECT_STREQ("\"\"", Ox_AString().QuoteStr('"').GetString());
}

TEST(AString, UnQuoteStr) {
  EXPECT_STREQ("abc", Ox_AString("\"abc\"").UnQuoteStr().GetString());
  EXPECT_STREQ("abc", Ox_AString("'abc'").UnQuoteStr().GetString());
  EXPECT_STREQ("a\"b", Ox_AString("\"a\\\"b\"").UnQuoteStr().GetString());
  EXPECT_STREQ("a\\b", Ox_AString("\"a\\\\b\"").UnQuoteStr().GetString());
  // Not enclosed: unchanged.
  EXPECT_STREQ("abc", Ox_AString("abc").UnQuoteStr().GetString());
  EXPECT_STREQ("\"abc'", Ox_AString("\"abc'").UnQuoteStr().GetString());
  EXPECT_STREQ("\"", Ox_AString("\"").UnQuoteStr().GetString());
  EXPECT_STREQ("", Ox_AString("''").UnQuoteStr().GetString());
  EXPECT_STREQ("", Ox_AString().UnQuoteStr().GetString());
  // A text with backslashes but no quotes keeps them.
  EXPECT_STREQ("a\\b", Ox_AString("a\\b").UnQuoteStr().GetString());
}

TEST(AString, QuoteThenUnQuoteGivesTheTextBack) {
  const char *texts[] = {"", "plain", "a\"b", "a'b", "back\\slash", "\\\"",
                         "end\\", "\"both\""};
  for (const char *t : texts) {
    for (char q : {'"', '\''}) {
      Ox_AString s(t);
      EXPECT_STREQ(t, s.QuoteStr(q).UnQuoteStr().GetString()) << t << q;
    }
  }
}

TEST(AString, EncodeXml) {
  EXPECT_STREQ("&lt;a href=&quot;x&quot;&gt;&amp;&apos;&lt;/a&gt;",
               Ox_AString("<a href=\"x\">&'</a>").EncodeXml().GetString());
  Ox_AString plain("no entities");
  EXPECT_STREQ("no entities", plain.EncodeXml().GetString());
  EXPECT_EQ(0, Ox_AString().EncodeXml().GetLength());
}

TEST(AString, DecodeXml) {
  EXPECT_STREQ("<a href=\"x\">&'</a>",
               Ox_AString("&lt;a href=&quot;x&quot;&gt;&amp;&apos;&lt;/a&gt;")
                   .DecodeXml()
                   .GetString());
  // Other references and stray ampersands stay as they are.
  EXPECT_STREQ("&#65; &nbsp; & &am",
               Ox_AString("&#65; &nbsp; & &am").DecodeXml().GetString());
  // &amp;lt; is an ampersand followed by "lt;", decoded once.
  EXPECT_STREQ("&lt;", Ox_AString("&amp;lt;").DecodeXml().GetString());
  EXPECT_EQ(0, Ox_AString().DecodeXml().GetLength());
}

TEST(AString, XmlRoundTrip) {
  Ox_AString s("if (a < b && c > \"d\") 'e'");
  EXPECT_STREQ(s.GetString(), s.EncodeXml().DecodeXml().GetString());
}

TEST(AString, DecodeBase64Vectors) {
  struct {
    const char *text;
    const char *bytes;
  } vectors[] = {{"", ""},          {"Zg==", "f"},         {"Zm8=", "fo"},
                 {"Zm9v", "foo"},   {"Zm9vYg==", "foob"}, {"Zm9vYmE=", "fooba"},
                 {"Zm9vYmFy", "foobar"}};
  for (const auto &v : vectors) {
    Ox_Buffer b = Ox_AString(v.text).DecodeBase64();
    ASSERT_EQ(static_cast<long>(strlen(v.bytes)), b.GetSize()) << v.text;
    if (b.GetSize()) {
      EXPECT_EQ(0, memcmp(v.bytes, b.GetData(), strlen(v.bytes)));
    }
  }
}

TEST(AString, DecodeBase64SkipsWhiteSpace) {
  Ox_Buffer b = Ox_AString(" Zm9v\r\nYmFy\t ").DecodeBase64();
  ASSERT_EQ(6, b.GetSize());
  EXPECT_EQ(0, memcmp("foobar", b.GetData(), 6));
}

TEST(AString, DecodeBase64BadCharactersGiveEmpty) {
  EXPECT_EQ(0, Ox_AString("Zm9v!mFy").DecodeBase64().GetSize());
  EXPECT_EQ(0, Ox_AString("Zg==Zg==").DecodeBase64().GetSize());  // data after '='
  EXPECT_EQ(0, Ox_AString("Z").DecodeBase64().GetSize());  // one character: no byte
  EXPECT_EQ(0, Ox_AString("Zg=").DecodeBase64().GetSize());  // short padding
  EXPECT_EQ(0, Ox_AString("Zg===").DecodeBase64().GetSize());
  EXPECT_EQ(0, Ox_AString("====").DecodeBase64().GetSize());
}

TEST(AString, DecodeBase64AllByteValues) {
  unsigned char all[256];
  for (int i = 0; i < 256; ++i) all[i] = static_cast<unsigned char>(i);
  Ox_Buffer in;
  in.Set(all, 256);
  Ox_Buffer out = in.EncodeBase64().DecodeBase64();
  ASSERT_EQ(256, out.GetSize());
  EXPECT_EQ(0, memcmp(all, out.GetData(), 256));
}

TEST(AString, IsNumber) {
  EXPECT_NE(0, Ox_AString("0").IsNumber());
  EXPECT_NE(0, Ox_AString("123").IsNumber());
  EXPECT_NE(0, Ox_AString("-123").IsNumber());
  EXPECT_NE(0, Ox_AString("1.5").IsNumber());
  EXPECT_NE(0, Ox_AString("-.5").IsNumber());
  EXPECT_NE(0, Ox_AString("5.").IsNumber());
  EXPECT_EQ(0, Ox_AString("").IsNumber());
  EXPECT_EQ(0, Ox_AString("-").IsNumber());
  EXPECT_EQ(0, Ox_AString(".").IsNumber());
  EXPECT_EQ(0, Ox_AString("-.").IsNumber());
  EXPECT_EQ(0, Ox_AString("1.2.3").IsNumber());
  EXPECT_EQ(0, Ox_AString("+1").IsNumber());
  EXPECT_EQ(0, Ox_AString(" 1").IsNumber());
  EXPECT_EQ(0, Ox_AString("1 ").IsNumber());
  EXPECT_EQ(0, Ox_AString("1e5").IsNumber());
  EXPECT_EQ(0, Ox_AString("--1").IsNumber());
  EXPECT_EQ(0, Ox_AString("12a").IsNumber());
}

TEST(AString, ToIntegerLikeAtoi) {
  EXPECT_EQ(0, Ox_AString().ToInteger());
  EXPECT_EQ(42, Ox_AString("42").ToInteger());
  EXPECT_EQ(-42, Ox_AString("  -42abc").ToInteger());
  EXPECT_EQ(7, Ox_AString("+7").ToInteger());
  EXPECT_EQ(0, Ox_AString("abc").ToInteger());
  EXPECT_EQ(3, Ox_AString("3.9").ToInteger());
  EXPECT_EQ(INT_MAX, Ox_AString("99999999999999").ToInteger());
  EXPECT_EQ(INT_MIN, Ox_AString("-99999999999999").ToInteger());
}

TEST(AString, ToDoubleLikeAtof) {
  EXPECT_EQ(0.0, Ox_AString().ToDouble());
  EXPECT_EQ(1.5, Ox_AString("1.5").ToDouble());
  EXPECT_EQ(-250.0, Ox_AString(" -2.5e2xyz").ToDouble());
  EXPECT_EQ(0.0, Ox_AString("x1").ToDouble());
  EXPECT_EQ(12.0, Ox_AString("12").ToDouble());
}

TEST(AString, FormatAndFormatv) {
  Ox_AString s("old");
  EXPECT_STREQ("7-x-2.50", s.Format("%d-%s-%.2f", 7, "x", 2.5));
  EXPECT_STREQ("7-x-2.50", s.GetString());
  EXPECT_EQ(8, s.GetLength());
  EXPECT_STREQ("ab 3", CallFormatv(s, "%s %d", "ab", 3));
  // Longer than any small stack buffer.
  s.Format("%0600d", 1);
  EXPECT_EQ(600, s.GetLength());
  EXPECT_EQ('1', s[599]);
  EXPECT_EQ('0', s[0]);
  // The string's own text as an argument.
  Ox_AString t("me");
  t.Format("%s+%s", t.GetString(), t.GetString());
  EXPECT_STREQ("me+me", t.GetString());
  EXPECT_STREQ("", t.Format("%s", ""));
  EXPECT_EQ(0, t.GetLength());
}

TEST(AString, NumFormatExpWritesTenSignificantDigits) {
  // One digit, a point, nine more digits, 'e', a sign, two or more
  // exponent digits.
  Ox_AString s;
  EXPECT_STREQ("1.234567890e+09", s.NumFormatExp(1234567890.0, 0, 10));
  EXPECT_STREQ("1.000000000e+00", s.NumFormatExp(1.0, 0, 10));
  EXPECT_STREQ("-2.500000000e-03", s.NumFormatExp(-0.0025, 0, 10));
  EXPECT_STREQ("0.000000000e+00", s.NumFormatExp(0.0, 0, 10));
  EXPECT_STREQ("1.000000000e+100", s.NumFormatExp(1e100, 0, 10));
  // 2/3 = 0.666666666666...: the tenth digit rounds up.
  EXPECT_STREQ("6.666666667e-01", s.NumFormatExp(2.0 / 3.0, 0, 10));
  EXPECT_STREQ("6.666666667e-01", s.GetString());
}

TEST(AString, GetSafeBufferAndFreeExtra) {
  Ox_AString s;
  char *p = s.GetSafeBuffer(10);
  ASSERT_NE(nullptr, p);
  strcpy(p, "written");
  s.FreeExtra(-1);
  EXPECT_EQ(7, s.GetLength());
  EXPECT_STREQ("written", s.GetString());
  // With a length: takes it as given.
  p = s.GetSafeBuffer(-1);
  ASSERT_NE(nullptr, p);
  EXPECT_STREQ("written", p);
  s.FreeExtra(4);
  EXPECT_STREQ("writ", s.GetString());
  EXPECT_EQ(4, s.GetLength());
  // An empty string still hands out a writable NUL.
  Ox_AString e;
  char *q = e.GetSafeBuffer(-1);
  ASSERT_NE(nullptr, q);
  EXPECT_EQ('\0', q[0]);
  e.FreeExtra(-1);
  EXPECT_EQ(0, e.GetLength());
  Ox_AString f;
  f.FreeExtra(-1);
  EXPECT_EQ(0, f.GetLength());
}

TEST(AString, GetSafeBufferHugeSizeFails) {
  Ox_AString s("keep");
  EXPECT_EQ(nullptr, s.GetSafeBuffer(INT_MAX));
  EXPECT_STREQ("keep", s.GetString());
  Ox_AString e;
  EXPECT_EQ(nullptr, e.GetSafeBuffer(INT_MAX));
  EXPECT_EQ(0, e.GetLength());
  Ox_WString w;
  EXPECT_EQ(nullptr, w.GetSafeBuffer(INT_MAX));
  EXPECT_EQ(0, w.GetLength());
}

TEST(WString, EmptyAndSet) {
  Ox_WString w;
  EXPECT_EQ(0, w.GetLength());
  ASSERT_NE(nullptr, w.GetString());
  EXPECT_EQ(u'\0', w.GetString()[0]);
  w.Set(u"abc");
  EXPECT_EQ(3, w.GetLength());
  EXPECT_EQ(std::u16string(u"abc"), std::u16string(w.GetString()));
  w.Set(u"abcdef", 2);
  EXPECT_EQ(std::u16string(u"ab"), std::u16string(w.GetString()));
  w.Set(static_cast<const char16_t *>(nullptr));
  EXPECT_EQ(0, w.GetLength());
  Ox_WString x(u"xyz");
  x.Empty();
  EXPECT_EQ(0, x.GetLength());
}

TEST(WString, CopySharesAndSetCopies) {
  Ox_WString a(u"shared");
  Ox_WString b(a);
  EXPECT_EQ(a.GetString(), b.GetString());
  Ox_WString c;
  c.Set(a);
  EXPECT_EQ(a.GetString(), c.GetString());
  char16_t *p = b.GetSafeBuffer(-1);
  ASSERT_NE(nullptr, p);
  p[0] = u'S';
  EXPECT_EQ(std::u16string(u"shared"), std::u16string(a.GetString()));
  EXPECT_EQ(std::u16string(u"Shared"), std::u16string(b.GetString()));
  Ox_WString &same = a;
  a = same;
  EXPECT_EQ(6, a.GetLength());
}

TEST(WString, SetFromCodePage) {
  Ox_WString w;
  // 가 is U+AC00: EA B0 80 in UTF-8.
  EXPECT_EQ(1, w.Set("\xEA\xB0\x80", -1, 65001));
  ASSERT_EQ(1, w.GetLength());
  EXPECT_EQ(0xAC00, w.GetString()[0]);
  EXPECT_EQ(3, w.Set("abc", -1, 1252));
  EXPECT_EQ(std::u16string(u"abc"), std::u16string(w.GetString()));
  EXPECT_EQ(2, w.Set("abc", 2, 1252));
  EXPECT_EQ(0, w.Set(nullptr, -1, 65001));
  EXPECT_EQ(0, w.GetLength());
  EXPECT_EQ(0, w.Set("", -1, 65001));
  // Bytes that are not UTF-8 fail and leave the string empty.
  EXPECT_LT(w.Set("\xFF\xFE", -1, 65001), 1);
  EXPECT_EQ(0, w.GetLength());
}

TEST(WString, GetSafeBufferAndFreeExtra) {
  Ox_WString w;
  char16_t *p = w.GetSafeBuffer(4);
  ASSERT_NE(nullptr, p);
  p[0] = u'h';
  p[1] = u'i';
  p[2] = 0;
  w.FreeExtra(-1);
  EXPECT_EQ(2, w.GetLength());
  EXPECT_EQ(std::u16string(u"hi"), std::u16string(w.GetString()));
}

}  // namespace
