// Ox_NamedStrList::ParseStr: the attribute text walk, state by state.
#include <gtest/gtest.h>

#include <string>

#include "Ox_NamedStr.h"
#include "namedstr_test_util.h"

namespace {

using oxtest::Dump;

TEST(ParseStr, ThreeItemsTwoCounted) {
  // a="1" finishes in state 0; b, "=", 2 go through states 1 and 2; c is
  // left pending and added with an empty value, without being counted.
  Ox_NamedStrList list;
  EXPECT_EQ(2, list.ParseStr("a=\"1\" b = 2 c", 0));
  EXPECT_EQ("a=1;b=2;c=;", Dump(list));
}

TEST(ParseStr, QuotedValueKeepsItsBlank) {
  Ox_NamedStrList list;
  EXPECT_EQ(1, list.ParseStr("x='a b'", 0));
  EXPECT_EQ("x=a b;", Dump(list));
  EXPECT_EQ(2, list.ParseStr("x=\"a  b\" y='c'", 0));
  EXPECT_EQ("x=a  b;y=c;", Dump(list));
}

TEST(ParseStr, ValuesWithoutQuotes) {
  Ox_NamedStrList list;
  EXPECT_EQ(3, list.ParseStr("a=1 b=two c=3.5", 0));
  EXPECT_EQ("a=1;b=two;c=3.5;", Dump(list));
}

TEST(ParseStr, NameWithEqualsAndNoValue) {
  // "name=" moves to state 2; the text ends there, so the pending name is
  // added with an empty value and not counted.
  Ox_NamedStrList list;
  EXPECT_EQ(0, list.ParseStr("name=", 0));
  EXPECT_EQ("name=;", Dump(list));
}

TEST(ParseStr, NameEqualsThenValueItem) {
  // State 0 "a=" -> state 2; the next item is the value.
  Ox_NamedStrList list;
  EXPECT_EQ(1, list.ParseStr("a= \"x y\"", 0));
  EXPECT_EQ("a=x y;", Dump(list));
}

TEST(ParseStr, NameThenEqualsWithValue) {
  // State 1: an item that starts with '=' and has more is the value.
  Ox_NamedStrList list;
  EXPECT_EQ(1, list.ParseStr("a =x", 0));
  EXPECT_EQ("a=x;", Dump(list));
  EXPECT_EQ(1, list.ParseStr("a ='q r'", 0));
  EXPECT_EQ("a=q r;", Dump(list));
}

TEST(ParseStr, NameThenLoneEqualsThenValue) {
  Ox_NamedStrList list;
  EXPECT_EQ(1, list.ParseStr("a = b", 0));
  EXPECT_EQ("a=b;", Dump(list));
}

TEST(ParseStr, StateOneSkipsOtherItems) {
  // "a" waits for its '='; "b=c" and "d" are skipped, the state stays, and
  // "a" ends pending with an empty value.
  Ox_NamedStrList list;
  EXPECT_EQ(0, list.ParseStr("a b=c d", 0));
  EXPECT_EQ("a=;", Dump(list));
  // After the skipped item the '=' still completes the pair.
  EXPECT_EQ(1, list.ParseStr("a junk = v", 0));
  EXPECT_EQ("a=v;", Dump(list));
}

TEST(ParseStr, StateTwoTakesAnyItem) {
  // In state 2 even an item holding '=' is the value, whole.
  Ox_NamedStrList list;
  EXPECT_EQ(1, list.ParseStr("a = b=c", 0));
  EXPECT_EQ("a=b=c;", Dump(list));
  // Only the first '=' of a name=value item splits it.
  EXPECT_EQ(1, list.ParseStr("k=v=w", 0));
  EXPECT_EQ("k=v=w;", Dump(list));
}

TEST(ParseStr, BlanksTabsAndLineEndsSeparate) {
  Ox_NamedStrList list;
  EXPECT_EQ(3, list.ParseStr("  a=1\tb=2\r\n\r\nc=3  ", 0));
  EXPECT_EQ("a=1;b=2;c=3;", Dump(list));
}

TEST(ParseStr, DecodeFlag) {
  Ox_NamedStrList list;
  // Quotes come off first, then the entities are resolved in both name and
  // value.
  EXPECT_EQ(2, list.ParseStr("a=\"&lt;x&gt;\" b&amp;c=&quot;q&quot;", 1));
  EXPECT_EQ("a=<x>;b&c=\"q\";", Dump(list));
  // Without the flag the entities stay.
  EXPECT_EQ(1, list.ParseStr("a=\"&lt;x&gt;\"", 0));
  EXPECT_EQ("a=&lt;x&gt;;", Dump(list));
}

TEST(ParseStr, PendingNameIsNotDecoded) {
  Ox_NamedStrList list;
  EXPECT_EQ(0, list.ParseStr("a&amp;b", 1));
  EXPECT_EQ("a&amp;b=;", Dump(list));
}

TEST(ParseStr, EmptyTextGivesZeroAndEmptiesTheList) {
  Ox_NamedStrList list;
  list.AddStr("old", "1");
  EXPECT_EQ(0, list.ParseStr(Ox_AString(), 0));
  EXPECT_EQ(0, list.Count());
  list.AddStr("old", "1");
  EXPECT_EQ(0, list.ParseStr("   ", 0));
  EXPECT_EQ(0, list.Count());
}

TEST(ParseStr, ListIsEmptiedFirst) {
  Ox_NamedStrList list;
  list.AddStr("old", "1");
  EXPECT_EQ(1, list.ParseStr("new=2", 0));
  EXPECT_EQ("new=2;", Dump(list));
}

TEST(ParseStr, DuplicateNamesFollowTheList) {
  // AddStr(name, value, 0): a list that is not unique keeps both; a unique
  // list keeps the first. Both pairs count.
  Ox_NamedStrList plain(0);
  EXPECT_EQ(2, plain.ParseStr("a=1 A=2", 0));
  EXPECT_EQ("a=1;A=2;", Dump(plain));
  Ox_NamedStrList unique(1);
  EXPECT_EQ(2, unique.ParseStr("a=1 A=2", 0));
  EXPECT_EQ("a=1;", Dump(unique));
}

TEST(ParseStr, EmptyNameIsCountedButNotAdded) {
  // "=x" in state 0 splits into an empty name and "x"; the pair finishes
  // and counts, but AddStr refuses the empty name.
  Ox_NamedStrList list;
  EXPECT_EQ(1, list.ParseStr("=x", 0));
  EXPECT_EQ(0, list.Count());
}

TEST(ParseStr, UnmatchedQuoteStaysInTheValue) {
  // TrimBrace takes off a pair only.
  Ox_NamedStrList list;
  EXPECT_EQ(1, list.ParseStr("a='x\"", 0));
  EXPECT_EQ("a='x\";", Dump(list));
}

}  // namespace
