// The text parser of name and value pairs: SplitParamText and SetStr(text).
#include <gtest/gtest.h>

#include <string>

#include "Ox_Variable.h"

namespace {

// Every test fixes the locale's code page: lead bytes depend on it.
class ParamText : public ::testing::Test {
 protected:
  void SetUp() override { OxSetLocale(0x0409, 1252); }
  void TearDown() override { OxSetLocale(0x0409, 1252); }
};

std::string Token(const Ox_AStrList &tokens, int i) {
  const Ox_AString &t = tokens.GetItemNN(i);
  return std::string(t.GetString(), static_cast<size_t>(t.GetLength()));
}

std::string Str(const Ox_Variant &v) {
  if (v.GetType() != Ox_Variant::kString) return "<type " + std::to_string(v.GetType()) + ">";
  const Ox_AString *s = v.GetConstStr();
  return std::string(s->GetString(), static_cast<size_t>(s->GetLength()));
}

// --- SplitParamText ---------------------------------------------------------------

TEST_F(ParamText, SplitsAtRunsOfSeparators) {
  Ox_AStrList tokens;
  EXPECT_EQ(3, Ox_VariableList::SplitParamText("a \t\r\nb  c", tokens));
  EXPECT_EQ("a", Token(tokens, 0));
  EXPECT_EQ("b", Token(tokens, 1));
  EXPECT_EQ("c", Token(tokens, 2));
}

TEST_F(ParamText, LeadingSeparatorGivesAnEmptyToken) {
  // The first separator ends an empty token; a trailing run adds nothing.
  Ox_AStrList tokens;
  EXPECT_EQ(2, Ox_VariableList::SplitParamText("  x  ", tokens));
  EXPECT_EQ("", Token(tokens, 0));
  EXPECT_EQ("x", Token(tokens, 1));
}

TEST_F(ParamText, EmptyTextLeavesTheListAlone) {
  Ox_AStrList tokens;
  tokens.Add("kept");
  EXPECT_EQ(0, Ox_VariableList::SplitParamText("", tokens));
  EXPECT_EQ(1, tokens.Count());
  EXPECT_EQ(0, Ox_VariableList::SplitParamText(nullptr, tokens));
  EXPECT_EQ(1, tokens.Count());
  // A non-empty text empties the list first.
  EXPECT_EQ(1, Ox_VariableList::SplitParamText("new", tokens));
  EXPECT_EQ("new", Token(tokens, 0));
}

TEST_F(ParamText, QuotesKeepSeparatorsAndStayInTheToken) {
  Ox_AStrList tokens;
  EXPECT_EQ(2, Ox_VariableList::SplitParamText("c='x y' \"p q\"", tokens));
  EXPECT_EQ("c='x y'", Token(tokens, 0));
  EXPECT_EQ("\"p q\"", Token(tokens, 1));
  // A double quote inside single quotes is an ordinary byte, and back.
  EXPECT_EQ(1, Ox_VariableList::SplitParamText("'a\" b' ", tokens));
  EXPECT_EQ("'a\" b'", Token(tokens, 0));
}

TEST_F(ParamText, BackslashInsideQuotesStaysAndTranslatesItsFollower) {
  Ox_AStrList tokens;
  EXPECT_EQ(1, Ox_VariableList::SplitParamText("'a\\nb\\tc\\rd\\'e\\\\'", tokens));
  // 'a \ LF b \ TAB c \ CR d \ ' e \ \ ' : the escaped quote does not close.
  EXPECT_EQ(std::string("'a\\\nb\\\tc\\\rd\\'e\\\\'"), Token(tokens, 0));
}

TEST_F(ParamText, BackslashOutsideQuotesHasNoMeaning) {
  Ox_AStrList tokens;
  EXPECT_EQ(2, Ox_VariableList::SplitParamText("a\\nb c\\'d", tokens));
  EXPECT_EQ("a\\nb", Token(tokens, 0));
  // The quote after the backslash still opens a quoted state to the end.
  EXPECT_EQ("c\\'d", Token(tokens, 1));
}

TEST_F(ParamText, UnclosedQuoteRunsToTheEnd) {
  Ox_AStrList tokens;
  EXPECT_EQ(2, Ox_VariableList::SplitParamText("a 'b c", tokens));
  EXPECT_EQ("a", Token(tokens, 0));
  EXPECT_EQ("'b c", Token(tokens, 1));
  // A backslash as the very last byte inside quotes is kept alone.
  EXPECT_EQ(1, Ox_VariableList::SplitParamText("'x\\", tokens));
  EXPECT_EQ("'x\\", Token(tokens, 0));
}

TEST_F(ParamText, DoubleByteTrailBytesOpenAndEndNothingIn932) {
  OxSetLocale(0, 932);
  Ox_AStrList tokens;
  // 0x83 0x5C is one character whose trail byte is a backslash; 0x81 0x27
  // and 0x81 0x20 have a quote and a blank as trail bytes.
  const char text[] = "a=\x83\x5C\x81\x27\x81\x20z b";
  EXPECT_EQ(2, Ox_VariableList::SplitParamText(text, tokens));
  EXPECT_EQ(std::string("a=\x83\x5C\x81\x27\x81\x20z"), Token(tokens, 0));
  EXPECT_EQ("b", Token(tokens, 1));
  // Inside quotes a trail byte that is a quote does not close them.
  EXPECT_EQ(2, Ox_VariableList::SplitParamText("'\x81\x27 x' y", tokens));
  EXPECT_EQ(std::string("'\x81\x27 x'"), Token(tokens, 0));
  EXPECT_EQ("y", Token(tokens, 1));
  // The second range of 932 (0xE0 to 0xFC).
  EXPECT_EQ(1, Ox_VariableList::SplitParamText("\xE0\x20\xFC\x27", tokens));
  EXPECT_EQ(std::string("\xE0\x20\xFC\x27"), Token(tokens, 0));
  // 0xA0 is no lead byte in 932: the blank behind it separates.
  EXPECT_EQ(2, Ox_VariableList::SplitParamText("\xA0\x20q", tokens));
  // A lead byte at the very end is kept alone.
  EXPECT_EQ(1, Ox_VariableList::SplitParamText("ab\x83", tokens));
  EXPECT_EQ(std::string("ab\x83"), Token(tokens, 0));
}

TEST_F(ParamText, SingleRangeDoubleBytePages) {
  for (unsigned cp : {936u, 949u, 950u}) {
    OxSetLocale(0, cp);
    Ox_AStrList tokens;
    // 0xA0 and 0xFE lead there; 0xFF does not.
    EXPECT_EQ(1, Ox_VariableList::SplitParamText("\xA0\x20\xFE\x20", tokens)) << cp;
    EXPECT_EQ(2, Ox_VariableList::SplitParamText("\xFF\x20z", tokens)) << cp;
  }
}

TEST_F(ParamText, NoLeadBytesOutsideTheTable) {
  for (unsigned cp : {1252u, 65001u}) {
    OxSetLocale(0, cp);
    Ox_AStrList tokens;
    EXPECT_EQ(2, Ox_VariableList::SplitParamText("\x83\x20z", tokens)) << cp;
    EXPECT_EQ(2, Ox_VariableList::SplitParamText("\x83'\x20' z", tokens)) << cp;
  }
}

// --- SetStr(text) ----------------------------------------------------------------

TEST_F(ParamText, FourPairsOfEveryForm) {
  Ox_VariableList list;
  EXPECT_EQ(4, list.SetStr("a=1 b = 2.5 c='x y' d"));
  EXPECT_STREQ("a", list.Id(0).GetString());
  EXPECT_EQ(Ox_Variant::kInteger, list.Var(0).GetType());
  EXPECT_EQ(1, list.Var(0).ToInteger());
  EXPECT_STREQ("b", list.Id(1).GetString());
  EXPECT_EQ(Ox_Variant::kDecimal, list.Var(1).GetType());
  EXPECT_DOUBLE_EQ(2.5, list.Var(1).ToDouble());
  EXPECT_STREQ("c", list.Id(2).GetString());
  EXPECT_EQ("x y", Str(list.Var(2)));
  EXPECT_STREQ("d", list.Id(3).GetString());
  EXPECT_EQ("", Str(list.Var(3)));  // the empty string, not null
}

TEST_F(ParamText, NameGivenTwiceKeepsFirstPlaceTakesLaterValue) {
  Ox_VariableList list;
  EXPECT_EQ(2, list.SetStr("Key=1 other=2 KEY=3"));
  EXPECT_STREQ("Key", list.Id(0).GetString());
  EXPECT_EQ(3, list.Var(0).ToInteger());
  EXPECT_STREQ("other", list.Id(1).GetString());
}

TEST_F(ParamText, EmptyAndNullText) {
  Ox_VariableList list;
  list.AddVariable("old", Ox_Variant(1L));
  EXPECT_EQ(0, list.SetStr(""));
  EXPECT_EQ(0, list.Count());
  list.AddVariable("old", Ox_Variant(1L));
  EXPECT_EQ(-1, list.SetStr(nullptr));
  EXPECT_EQ(0, list.Count());  // cleared too
}

TEST_F(ParamText, SetStrReplacesTheWholeContent) {
  Ox_VariableList list;
  list.AddVariable("old", Ox_Variant(1L));
  EXPECT_EQ(1, list.SetStr("n=2"));
  EXPECT_EQ(-1, list.FindId("old"));
}

TEST_F(ParamText, NameWithEqualsTakesTheNextTokenAsValue) {
  Ox_VariableList list;
  EXPECT_EQ(2, list.SetStr("x= 7 y"));
  EXPECT_EQ(Ox_Variant::kInteger, list.Var("x").GetType());
  EXPECT_EQ(7, list.Var("x").ToInteger());
  EXPECT_EQ("", Str(list.Var("y")));
}

TEST_F(ParamText, NameThenEqualsValueToken) {
  Ox_VariableList list;
  // "n" then "=5": the rest of the token is the value.
  EXPECT_EQ(1, list.SetStr("n =5"));
  EXPECT_EQ(5, list.Var("n").ToInteger());
  // Tokens that do not begin with "=" are ignored while "=" is awaited.
  EXPECT_EQ(1, list.SetStr("m junk more = 'v'"));
  EXPECT_EQ("v", Str(list.Var("m")));
}

TEST_F(ParamText, NameLeftWaitingForValueGetsEmptyString) {
  Ox_VariableList list;
  EXPECT_EQ(1, list.SetStr("k ="));
  EXPECT_EQ(Ox_Variant::kString, list.Var("k").GetType());
  EXPECT_EQ("", Str(list.Var("k")));
  EXPECT_EQ(1, list.SetStr("j="));
  EXPECT_EQ("", Str(list.Var("j")));
}

TEST_F(ParamText, QuotedNumberIsAStringUnquotedIsANumber) {
  Ox_VariableList list;
  EXPECT_EQ(4, list.SetStr("d=1.0 s='1.0' q=\"12\" n=-3"));
  EXPECT_EQ(Ox_Variant::kDecimal, list.Var("d").GetType());
  EXPECT_DOUBLE_EQ(1.0, list.Var("d").ToDouble());
  EXPECT_EQ(Ox_Variant::kString, list.Var("s").GetType());
  EXPECT_EQ("1.0", Str(list.Var("s")));
  EXPECT_EQ("12", Str(list.Var("q")));
  EXPECT_EQ(Ox_Variant::kInteger, list.Var("n").GetType());
  EXPECT_EQ(-3, list.Var("n").ToInteger());
}

TEST_F(ParamText, NonNumbersAreStrings) {
  Ox_VariableList list;
  EXPECT_EQ(3, list.SetStr("a=1.2.3 b=12x c=abc"));
  EXPECT_EQ("1.2.3", Str(list.Var("a")));
  EXPECT_EQ("12x", Str(list.Var("b")));
  EXPECT_EQ("abc", Str(list.Var("c")));
}

TEST_F(ParamText, QuotedValueWithoutItsClosingQuoteKeepsIt) {
  Ox_VariableList list;
  // TrimBrace(1) takes quotes off only in pairs; the value is still quoted,
  // so it stays a string.
  EXPECT_EQ(1, list.SetStr("v='12"));
  EXPECT_EQ("'12", Str(list.Var("v")));
  // Different quotes at the two ends: nothing is taken off.
  EXPECT_EQ(1, list.SetStr("w=\"x'"));
  EXPECT_EQ("\"x'", Str(list.Var("w")));
}

TEST_F(ParamText, BackslashNInsideQuotesGivesBackslashAndLineFeed) {
  Ox_VariableList list;
  EXPECT_EQ(2, list.SetStr("in='a\\nb' out=a\\nb"));
  EXPECT_EQ(std::string("a\\\nb"), Str(list.Var("in")));
  EXPECT_EQ(std::string("a\\nb"), Str(list.Var("out")));
}

TEST_F(ParamText, EqualsInsideTheValueStays) {
  Ox_VariableList list;
  EXPECT_EQ(1, list.SetStr("u=a=b"));
  EXPECT_EQ("a=b", Str(list.Var("u")));
}

TEST_F(ParamText, EmptyNamesAreRefused) {
  Ox_VariableList list;
  // "=5" has an empty name: AddVariable refuses it.
  EXPECT_EQ(1, list.SetStr("=5 ok=1"));
  EXPECT_STREQ("ok", list.Id(0).GetString());
}

TEST_F(ParamText, DoubleByteValueIn932) {
  OxSetLocale(0, 932);
  Ox_VariableList list;
  // The trail byte 0x5C (a backslash) ends nothing; the quote after it is a
  // real closing quote.
  EXPECT_EQ(2, list.SetStr("s='\x83\x5C' t=1"));
  EXPECT_EQ(std::string("\x83\x5C"), Str(list.Var("s")));
  EXPECT_EQ(1, list.Var("t").ToInteger());
}

}  // namespace
