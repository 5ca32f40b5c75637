// Ox_CodeStr, Ox_CodeStrList and their handler.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "Ox_NamedStr.h"

namespace {

std::string Dump(const Ox_CodeStrList &list) {
  std::string out;
  for (int i = 0; i < list.Count(); ++i) {
    out += std::to_string(list.Code(i));
    out += '=';
    out += list.Str(i).GetString();
    out += ';';
  }
  return out;
}

TEST(CodeStr, ConstructAndSet) {
  Ox_CodeStr empty;
  EXPECT_EQ(0, empty.Code());
  EXPECT_EQ(0, empty.Str().GetLength());
  Ox_CodeStr a(5, Ox_AString("five"));
  Ox_CodeStr b(6, "six");
  EXPECT_EQ(5, a.Code());
  EXPECT_STREQ("five", a.Str());
  EXPECT_STREQ("six", b.Str());
  Ox_CodeStr copy(a);
  EXPECT_EQ(5, copy.Code());
  copy = b;
  EXPECT_EQ(6, copy.Code());
  EXPECT_STREQ("six", copy.Str());
  copy.Set(a);
  EXPECT_EQ(5, copy.Code());
  copy.Set(9, Ox_AString("nine"));
  EXPECT_EQ(9, copy.Code());
  EXPECT_STREQ("nine", copy.Str());
  copy.SetCode(10);
  copy.SetStr(Ox_AString("ten"));
  EXPECT_EQ(10, copy.Code());
  EXPECT_STREQ("ten", copy.Str());
  copy.SetStr("tenth", 3);
  EXPECT_STREQ("ten", copy.Str());
  copy.Set(copy);  // self: unchanged
  EXPECT_EQ(10, copy.Code());
}

TEST(CodeStr, CompareGivesTheCodeDifferenceFirst) {
  Ox_CodeStr five(5, "a"), three(3, "z"), fiveB(5, "b");
  EXPECT_EQ(2, five.Compare(three));
  EXPECT_EQ(-2, three.Compare(&five));
  EXPECT_EQ(2, five == three);
  // Same code: the texts, "a" < "b".
  EXPECT_LT(five.Compare(fiveB), 0);
  EXPECT_EQ(0, five.Compare(Ox_CodeStr(5, "a")));
  EXPECT_EQ(0, five == Ox_CodeStr(5, "a"));
  // Extreme codes differ without overflow and never compare as equal.
  Ox_CodeStr low(INT_MIN, ""), high(INT_MAX, "");
  EXPECT_NE(0, low.Compare(high));
}

TEST(CodeStr, CodeTestsAnswerOneForEqual) {
  Ox_CodeStr item(7, "x");
  EXPECT_EQ(1, item == 7);
  EXPECT_EQ(0, item == 8);
  EXPECT_EQ(1, item.CompareCode(7));
  EXPECT_EQ(0, item.CompareCode(-7));
  EXPECT_EQ(0, item.CompareStr("x"));
  EXPECT_NE(0, item.CompareStr("X"));
}

TEST(CodeStr, HandlerPoolAndKey) {
  Ox_CodeStrHandler &handler = Ox_CodeStr::_OxCodeStrHandler;
  EXPECT_STREQ("Ox_CodeStr", handler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_CodeStr)), handler.GetItemSize());
  Ox_CodeStr item(42, "x");
  int key = 42, other = 43;
  EXPECT_EQ(0, handler._CompareItem(&item, &key));
  EXPECT_EQ(1, handler._CompareItem(&item, &other));
}

TEST(CodeStrList, AddAlwaysAddsAndFindCode) {
  Ox_CodeStrList list;
  EXPECT_EQ(0, list.AddStr(1, Ox_AString("one")));
  EXPECT_EQ(1, list.AddStr(2, "two"));
  EXPECT_EQ(2, list.AddStr(1, "uno"));  // the same code again
  EXPECT_EQ(3, list.Add(Ox_CodeStr(3, "three")));
  EXPECT_EQ("1=one;2=two;1=uno;3=three;", Dump(list));
  EXPECT_EQ(0, list.FindCode(1));
  EXPECT_EQ(3, list.FindCode(3));
  EXPECT_EQ(-1, list.FindCode(4));
}

TEST(CodeStrList, UniqueListKeepsACodeOnce) {
  Ox_CodeStrList list(1);
  EXPECT_EQ(0, list.AddStr(1, "one"));
  EXPECT_EQ(0, list.AddStr(1, "uno"));
  EXPECT_EQ("1=one;", Dump(list));
}

TEST(CodeStrList, DelStr) {
  Ox_CodeStrList list;
  list.AddStr(1, "a");
  list.AddStr(2, "b");
  list.AddStr(1, "c");
  EXPECT_LT(list.DelStr(9), 0);
  EXPECT_EQ(0, list.DelStr(1));  // the first item of the code
  EXPECT_EQ("2=b;1=c;", Dump(list));
}

TEST(CodeStrList, Accessors) {
  Ox_CodeStrList list;
  list.AddStr(10, "ten");
  list.AddStr(20, "twenty");
  EXPECT_EQ(20, list.GetItem(1)->Code());
  EXPECT_EQ(nullptr, list.GetItem(2));
  EXPECT_EQ(nullptr, list.GetItem(-1));
  list.GetSafeItem(0)->SetStr("TEN");
  EXPECT_STREQ("TEN", list.Str(0));
  EXPECT_EQ(nullptr, list.GetSafeItem(5));
  EXPECT_EQ(0, list.GetItemNN(5).Code());
  EXPECT_EQ(0, list.GetItemNN(5).Str().GetLength());
  EXPECT_EQ(20, list[1].Code());
  EXPECT_EQ(0, list[-3].Code());
  EXPECT_EQ(10, list.Code(0));
  EXPECT_EQ(0, list.Code(2));  // 0 out of range
  EXPECT_EQ(0, list.Str(2).GetLength());
  EXPECT_STREQ("twenty", list.StrByCode(20));
  EXPECT_EQ(0, list.StrByCode(30).GetLength());
}

TEST(CodeStrList, AssignMayTakeItself) {
  Ox_CodeStrList a, b;
  b.AddStr(1, "x");
  b.AddStr(2, "y");
  EXPECT_EQ(2, a.Assign(&b));
  EXPECT_EQ("1=x;2=y;", Dump(a));
  EXPECT_EQ(2, a.Assign(&a));
  EXPECT_EQ("1=x;2=y;", Dump(a));
  EXPECT_EQ(2, a.Assign(nullptr));
  EXPECT_EQ(4, a.Append(&b));
  EXPECT_EQ(8, a.Append(&a));
  EXPECT_EQ(8, a.Append(nullptr));
  a = b;
  EXPECT_EQ("1=x;2=y;", Dump(a));
  a += b;
  EXPECT_EQ(4, a.Count());
  a = &b;
  a += &b;
  EXPECT_EQ("1=x;2=y;1=x;2=y;", Dump(a));
  a.Clear();
  EXPECT_EQ(0, a.Count());
  Ox_CodeStrList copy(b);
  EXPECT_EQ("1=x;2=y;", Dump(copy));
}

TEST(CodeStrList, CompareIgnoresOrder) {
  Ox_CodeStrList a, b, longer, missing, texts;
  a.AddStr(1, "x");
  a.AddStr(2, "y");
  b.AddStr(2, "y");
  b.AddStr(1, "x");
  EXPECT_EQ(0, a.Compare(b));
  EXPECT_EQ(0, a == b);
  EXPECT_EQ(0, a.Compare(a));
  longer = a;
  longer.AddStr(3, "z");
  EXPECT_EQ(-1, a.Compare(longer));
  EXPECT_EQ(1, longer.Compare(a));
  missing.AddStr(1, "x");
  missing.AddStr(5, "y");
  EXPECT_EQ(-1, a.Compare(missing));
  texts.AddStr(1, "x");
  texts.AddStr(2, "z");
  EXPECT_LT(a.Compare(texts), 0);  // "y" before "z"
}

TEST(CodeStrList, AppendDiffList) {
  Ox_CodeStrList base, changed, out;
  base.AddStr(1, "a");
  base.AddStr(2, "b");
  changed.AddStr(1, "a");  // unchanged: skipped
  changed.AddStr(2, "B");  // changed
  changed.AddStr(3, "c");  // new
  EXPECT_EQ(2, out.AppendDiffList(base, changed));
  EXPECT_EQ("2=B;3=c;", Dump(out));
  Ox_CodeStrList empty;
  EXPECT_EQ(0, out.AppendDiffList(base, empty));
}

}  // namespace
