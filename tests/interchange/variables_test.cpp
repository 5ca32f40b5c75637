// Ox_Variable, Ox_VariableList and Ox_VariableListChain in memory.
#include <gtest/gtest.h>

#include <cstring>

#include "Ox_Variable.h"

namespace {

const char *Text(const Ox_Variant &v) {
  return v.GetType() == Ox_Variant::kString ? v.GetConstStr()->GetString()
                                            : "<not a string>";
}

// --- Ox_Variable ---------------------------------------------------------------

TEST(Variable, Constructors) {
  const Ox_Variable empty;
  EXPECT_EQ(0, empty.id.GetLength());
  EXPECT_EQ(Ox_Variant::kNull, empty.var.GetType());

  const Ox_Variable number(Ox_AString("n"), Ox_Variant(7L));
  EXPECT_STREQ("n", number.id.GetString());
  EXPECT_EQ(Ox_Variant::kInteger, number.var.GetType());
  EXPECT_EQ(7, number.var.ToInteger());

  // The (name, text) form stores a string value.
  const Ox_Variable text(Ox_AString("t"), Ox_AString("12"));
  EXPECT_EQ(Ox_Variant::kString, text.var.GetType());
  EXPECT_STREQ("12", Text(text.var));

  const Ox_Variable copy(text);
  EXPECT_STREQ("t", copy.id.GetString());
  EXPECT_STREQ("12", Text(copy.var));
}

TEST(Variable, SetAndSetters) {
  Ox_Variable a(Ox_AString("a"), Ox_Variant(1L));
  Ox_Variable b;
  b.Set(a);
  EXPECT_STREQ("a", b.id.GetString());
  EXPECT_EQ(1, b.var.ToInteger());
  b.SetId(Ox_AString("bee"));
  EXPECT_STREQ("bee", b.id.GetString());
  b.SetId("cat-dog", 3);
  EXPECT_STREQ("cat", b.id.GetString());
  b.SetVar(Ox_Variant("v"));
  EXPECT_STREQ("v", Text(b.var));
  EXPECT_STREQ("a", a.id.GetString());  // the source is untouched
  Ox_Variable c;
  c = b;
  EXPECT_STREQ("cat", c.id.GetString());
  EXPECT_STREQ("v", Text(c.var));
}

TEST(Variable, EqualityOfVariablesHasReversedSense) {
  const Ox_Variable a1(Ox_AString("a"), Ox_Variant(1L));
  const Ox_Variable a1b(Ox_AString("a"), Ox_Variant(1L));
  const Ox_Variable a2(Ox_AString("a"), Ox_Variant(2L));
  const Ox_Variable b1(Ox_AString("b"), Ox_Variant(1L));
  // Different names: the compare result, "a" before "b" so negative.
  EXPECT_LT(a1 == b1, 0);
  EXPECT_GT(b1 == a1, 0);
  // Names differing only in case differ here: "A" (65) before "a" (97).
  const Ox_Variable upper(Ox_AString("A"), Ox_Variant(1L));
  EXPECT_NE(0, upper == a1);
  // Equal names: the variants' operator==, 1 for equal values.
  EXPECT_EQ(1, a1 == a1b);
  EXPECT_EQ(0, a1 == a2);
}

TEST(Variable, EqualityWithNameAndValue) {
  const Ox_Variable v(Ox_AString("name"), Ox_Variant(5L));
  EXPECT_EQ(0, v == "name");
  EXPECT_NE(0, v == "NAME");  // case-sensitive
  EXPECT_NE(0, v == "other");
  EXPECT_EQ(1, v == Ox_Variant(5L));
  EXPECT_EQ(0, v == Ox_Variant(6L));
}

TEST(Variable, InitAndFreeWithMemory) {
  alignas(Ox_Variable) unsigned char raw[sizeof(Ox_Variable)];
  auto *item = reinterpret_cast<Ox_Variable *>(raw);
  Ox_Variable::InitWithMemory(item);
  EXPECT_EQ(0, item->id.GetLength());
  item->SetId(Ox_AString("x"));
  item->SetVar(Ox_Variant("a long enough text to own a block"));
  Ox_Variable::FreeWithMemory(item);
  Ox_Variable::InitWithMemory(nullptr);  // ignored
  Ox_Variable::FreeWithMemory(nullptr);
}

TEST(VariableHandler, OperationsAndPool) {
  Ox_VariableHandler &h = Ox_Variable::_OxVariableHandler;
  EXPECT_STREQ("Ox_Variable", h.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_Variable)), h.GetItemSize());
  const Ox_Variable a(Ox_AString("Key"), Ox_Variant(1L));
  Ox_Variable b(Ox_AString("KEY"), Ox_Variant(2L));
  Ox_Variable c(Ox_AString("other"), Ox_Variant(3L));
  // Names compare ignoring case.
  EXPECT_EQ(0, h._CompareItem(const_cast<Ox_Variable *>(&a), &b));
  EXPECT_NE(0, h._CompareItem(const_cast<Ox_Variable *>(&a), &c));
  h._AssignItem(&c, const_cast<Ox_Variable *>(&a));
  EXPECT_STREQ("Key", c.id.GetString());
  EXPECT_EQ(1, c.var.ToInteger());
}

// --- Ox_VariableList: adding and finding -------------------------------------

TEST(VariableList, SizeIsThatOfTheBaseList) {
  EXPECT_EQ(24u, sizeof(Ox_VariableList));
}

TEST(VariableList, FindIdIgnoresCaseButEqualityDoesNot) {
  Ox_VariableList list;
  EXPECT_EQ(0, list.AddVariable("name", Ox_Variant(1L)));
  EXPECT_EQ(0, list.FindId("NAME"));
  EXPECT_EQ(0, list.FindId("Name"));
  // The same variable says that it differs from the upper-case name.
  EXPECT_NE(0, *list.GetItem(0) == "NAME");
  EXPECT_EQ(-1, list.FindId("nam"));
  EXPECT_EQ(-1, list.FindId(nullptr));
}

TEST(VariableList, AddVariableInsertsOrReplacesKeepingFirstSpelling) {
  Ox_VariableList list;
  EXPECT_EQ(0, list.AddVariable(Ox_AString("Alpha"), Ox_Variant(1L)));
  EXPECT_EQ(1, list.AddVariable(Ox_AString("beta"), Ox_Variant(2L)));
  EXPECT_EQ(0, list.AddVariable(Ox_AString("ALPHA"), Ox_Variant("new")));
  EXPECT_EQ(2, list.Count());
  EXPECT_STREQ("Alpha", list.Id(0).GetString());
  EXPECT_STREQ("new", Text(list.Var(0)));
  EXPECT_STREQ("beta", list.Id(1).GetString());
}

TEST(VariableList, AddVariableOverloadsAndRefusals) {
  Ox_VariableList list;
  EXPECT_EQ(-1, list.AddVariable(Ox_AString(), Ox_Variant(1L)));
  EXPECT_EQ(-1, list.AddVariable(Ox_AString(""), static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(-1, list.AddVariable(static_cast<const char *>(nullptr), Ox_Variant(1L)));
  EXPECT_EQ(-1, list.AddVariable(static_cast<const char *>(nullptr),
                                 static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(-1, list.AddVariable("", Ox_Variant(1L)));
  EXPECT_EQ(0, list.Count());

  const Ox_Variant three(3L);
  EXPECT_EQ(0, list.AddVariable("p", &three));
  EXPECT_EQ(3, list.Var(0).ToInteger());
  // A null pointer stands for the empty variant: the value becomes null.
  EXPECT_EQ(0, list.AddVariable(Ox_AString("P"), static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(Ox_Variant::kNull, list.Var(0).GetType());
  EXPECT_EQ(1, list.AddVariable("q", static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(Ox_Variant::kNull, list.Var(1).GetType());
  EXPECT_EQ(2, list.Count());
}

TEST(VariableList, AddOfACopyWithAnExistingNameMakesTwo) {
  Ox_VariableList list;
  EXPECT_EQ(0, list.AddVariable("dup", Ox_Variant(1L)));
  const Ox_Variable second(Ox_AString("DUP"), Ox_Variant(2L));
  EXPECT_EQ(1, list.Add(second));
  EXPECT_EQ(2, list.Add(&second));
  EXPECT_EQ(3, list.Count());
  // FindId always answers with the first.
  EXPECT_EQ(0, list.FindId("dup"));
  EXPECT_EQ(0, list.FindId("DUP"));
  EXPECT_EQ(1, list.Var("dup").ToInteger());
  // The copies are owned: the original may change freely.
  EXPECT_NE(&second, list.GetItem(1));
}

TEST(VariableList, AddRefusesNullAndEmptyNames) {
  Ox_VariableList list;
  EXPECT_EQ(-1, list.Add(static_cast<const Ox_Variable *>(nullptr)));
  const Ox_Variable unnamed(Ox_AString(), Ox_Variant(1L));
  EXPECT_EQ(-1, list.Add(unnamed));
  EXPECT_EQ(-1, list.Add(&unnamed));
  EXPECT_EQ(0, list.Count());
}

TEST(VariableList, AddLinkDoesNotCopyNorOwn) {
  Ox_Variable outside(Ox_AString("ext"), Ox_Variant(1L));
  {
    Ox_VariableList list;
    EXPECT_EQ(-1, list.AddLink(nullptr));
    EXPECT_EQ(0, list.AddLink(&outside));
    EXPECT_EQ(&outside, list.GetItem(0));
    outside.SetVar(Ox_Variant(9L));
    EXPECT_EQ(9, list.Var("EXT").ToInteger());  // the list sees the change
  }
  // The list is gone; the variable it linked is intact.
  EXPECT_STREQ("ext", outside.id.GetString());
  EXPECT_EQ(9, outside.var.ToInteger());
}

TEST(VariableList, AddRefVariableRefersToTheCallersVariant) {
  Ox_VariableList list;
  Ox_Variant mine(5L);
  EXPECT_EQ(-1, list.AddRefVariable(Ox_AString(), &mine));
  EXPECT_EQ(0, list.AddRefVariable(Ox_AString("r"), &mine));
  EXPECT_EQ(Ox_Variant::kReference, list.GetItem(0)->var.GetType());
  EXPECT_EQ(5, list.Var(0).ToInteger());
  mine.Set(6L);
  EXPECT_EQ(6, list.Var("R").ToInteger());
  // An existing name keeps its place and turns into a reference.
  EXPECT_EQ(1, list.AddVariable("s", Ox_Variant(1L)));
  Ox_Variant other("o");
  EXPECT_EQ(1, list.AddRefVariable(Ox_AString("S"), &other));
  EXPECT_EQ(2, list.Count());
  EXPECT_STREQ("s", list.Id(1).GetString());
  EXPECT_EQ(&other, list.GetItem(1)->var.GetConstReference());
}

TEST(VariableList, AddStrStoresStrings) {
  Ox_VariableList list;
  EXPECT_EQ(-1, list.AddStr(Ox_AString(), Ox_AString("x")));
  EXPECT_EQ(-1, list.AddStr(Ox_AString(), "x", 1));
  EXPECT_EQ(0, list.AddStr(Ox_AString("s"), Ox_AString("12")));
  EXPECT_EQ(Ox_Variant::kString, list.Var(0).GetType());  // not a number
  EXPECT_STREQ("12", Text(list.Var(0)));
}

TEST(VariableList, AddStrWithLengthTakesTheWholeText) {
  Ox_VariableList list;
  // The length 3 is ignored: all ten bytes are stored.
  EXPECT_EQ(0, list.AddStr(Ox_AString("t"), "0123456789", 3));
  EXPECT_STREQ("0123456789", Text(list.Var(0)));
  EXPECT_EQ(10, list.Var(0).GetConstStr()->GetLength());
}

// --- Ox_VariableList: replacing and reading ----------------------------------

TEST(VariableList, SetByIndex) {
  Ox_VariableList list;
  list.AddVariable("a", Ox_Variant(1L));
  list.AddVariable("b", Ox_Variant(2L));
  EXPECT_EQ(1, list.SetVariant(1, Ox_Variant(2.5)));
  EXPECT_EQ(Ox_Variant::kDecimal, list.Var(1).GetType());
  EXPECT_EQ(-1, list.SetVariant(-1, Ox_Variant(1L)));
  EXPECT_EQ(-1, list.SetVariant(2, Ox_Variant(1L)));

  EXPECT_EQ(0, list.SetStr(0, Ox_AString("txt")));
  EXPECT_STREQ("txt", Text(list.Var(0)));
  EXPECT_EQ(-1, list.SetStr(2, Ox_AString("x")));
  EXPECT_EQ(-1, list.SetStr(-1, Ox_AString("x")));

  // The (text, length) form keeps to the length.
  EXPECT_EQ(1, list.SetStr(1, "abcdef", 3));
  EXPECT_STREQ("abc", Text(list.Var(1)));
  EXPECT_EQ(-1, list.SetStr(5, "abc", 3));
  EXPECT_EQ(-1, list.SetStr(-3, "abc", 3));
  EXPECT_EQ(2, list.Count());
}

TEST(VariableList, GetItemForms) {
  Ox_VariableList list;
  list.AddVariable("one", Ox_Variant(1L));
  const Ox_VariableList &view = list;
  EXPECT_EQ(view.GetItem(0), view.GetItem("ONE"));
  EXPECT_EQ(nullptr, view.GetItem(1));
  EXPECT_EQ(nullptr, view.GetItem(-1));
  EXPECT_EQ(nullptr, view.GetItem("two"));
  EXPECT_EQ(nullptr, view.GetItem(static_cast<const char *>(nullptr)));

  Ox_Variable *safe = list.GetSafeItem(0);
  ASSERT_NE(nullptr, safe);
  safe->SetVar(Ox_Variant(11L));
  EXPECT_EQ(11, list.Var(0).ToInteger());
  EXPECT_EQ(safe, list.GetSafeItem("One"));
  // The do-not-create flag: nothing is made out of range.
  EXPECT_EQ(nullptr, list.GetSafeItem(1));
  EXPECT_EQ(nullptr, list.GetSafeItem("missing"));
  EXPECT_EQ(1, list.Count());
}

TEST(VariableList, NeverNullReadersGiveSharedEmptyObjects) {
  Ox_VariableList list;
  list.AddVariable("x", Ox_Variant(4L));
  EXPECT_EQ(list.GetItem(0), list.GetItemNN(0));
  const Ox_Variable *emptyItem = list.GetItemNN(3);
  ASSERT_NE(nullptr, emptyItem);
  EXPECT_EQ(0, emptyItem->id.GetLength());
  EXPECT_EQ(Ox_Variant::kNull, emptyItem->var.GetType());
  // One shared object, the same for every list and every miss.
  Ox_VariableList other;
  EXPECT_EQ(emptyItem, other.GetItemNN(-1));

  EXPECT_EQ(0, list.Id(7).GetLength());
  EXPECT_EQ(&list.Id(7), &other.Id(-2));

  EXPECT_EQ(4, list.Var(0).ToInteger());
  EXPECT_EQ(4, list[0].ToInteger());
  EXPECT_EQ(Ox_Variant::kNull, list.Var(1).GetType());
  EXPECT_EQ(Ox_Variant::kNull, list.Var("nope").GetType());
  EXPECT_EQ(Ox_Variant::kNull, list[9].GetType());
  EXPECT_EQ(&list.Var(1), &other.Var("nope"));
  EXPECT_EQ(&list[9], &list.Var(static_cast<const char *>(nullptr)));
}

TEST(VariableList, AssignAndAppendCopyWithoutMerging) {
  Ox_VariableList source;
  source.AddVariable("a", Ox_Variant(1L));
  source.AddVariable("b", Ox_Variant(2L));
  Ox_VariableList target;
  target.AddVariable("A", Ox_Variant(9L));

  EXPECT_EQ(3, target.Append(&source));  // "A" and "a" both stay
  EXPECT_STREQ("A", target.Id(0).GetString());
  EXPECT_STREQ("a", target.Id(1).GetString());
  EXPECT_EQ(3, target.Append(nullptr));
  EXPECT_EQ(2, target.Assign(&source));
  EXPECT_STREQ("a", target.Id(0).GetString());
  EXPECT_EQ(2, target.Assign(nullptr));

  // Copies: a change in the source does not show in the target.
  source.SetVariant(0, Ox_Variant(100L));
  EXPECT_EQ(1, target.Var(0).ToInteger());

  Ox_VariableList third;
  third = source;
  EXPECT_EQ(2, third.Count());
  third += source;
  EXPECT_EQ(4, third.Count());
  third += &source;
  EXPECT_EQ(6, third.Count());
  third = &source;
  EXPECT_EQ(2, third.Count());
  third = static_cast<const Ox_VariableList *>(nullptr);
  EXPECT_EQ(2, third.Count());
  EXPECT_EQ(4, third.Append(&third));  // itself: what it held before
  EXPECT_EQ(4, third.Assign(&third));

  const Ox_VariableList copied(source);
  EXPECT_EQ(2, copied.Count());
  EXPECT_EQ(100, copied.Var("A").ToInteger());
}

TEST(VariableList, ClearEmpties) {
  Ox_VariableList list;
  list.AddVariable("a", Ox_Variant(1L));
  list.Clear();
  EXPECT_EQ(0, list.Count());
  EXPECT_EQ(-1, list.FindId("a"));
}

// --- Ox_VariableListChain ------------------------------------------------------

TEST(VariableListChain, AddKeepsEachListOnce) {
  Ox_VariableList first;
  Ox_VariableList second;
  Ox_VariableListChain chain;
  EXPECT_EQ(-1, chain.Add(nullptr));
  EXPECT_EQ(0, chain.Add(&first));
  EXPECT_EQ(1, chain.Add(&second));
  EXPECT_EQ(0, chain.Add(&first));  // present: its position
  EXPECT_EQ(2, chain.Count());

  Ox_VariableListChain started(&second);
  EXPECT_EQ(1, started.Count());
  EXPECT_EQ(&second, started.GetItem(0));
}

TEST(VariableListChain, SearchOrderStopsAtFirstList) {
  Ox_VariableList first;
  Ox_VariableList second;
  first.AddVariable("shared", Ox_Variant(1L));
  second.AddVariable("SHARED", Ox_Variant(2L));
  second.AddVariable("only2", Ox_Variant(3L));
  Ox_VariableListChain chain(&first);
  chain.Add(&second);
  const Ox_Variant *found = chain.GetVar("Shared");
  ASSERT_NE(nullptr, found);
  EXPECT_EQ(1, found->ToInteger());
  // The first list lacks the name: the search goes on to the second.
  found = chain.GetVar("ONLY2");
  ASSERT_NE(nullptr, found);
  EXPECT_EQ(3, found->ToInteger());
  EXPECT_EQ(nullptr, chain.GetVar("none"));
  EXPECT_EQ(nullptr, chain.GetVar(nullptr));

  Ox_Variant *writable = chain.GetSafeVar("only2");
  ASSERT_NE(nullptr, writable);
  writable->Set(30L);
  EXPECT_EQ(30, second.Var("only2").ToInteger());
  EXPECT_EQ(nullptr, chain.GetSafeVar("none"));
}

TEST(VariableListChain, ListTwiceIsSearchedOnceAndEmptyChainFindsNothing) {
  Ox_VariableListChain empty;
  EXPECT_EQ(nullptr, empty.GetVar("a"));
  EXPECT_EQ(nullptr, empty.GetSafeVar("a"));

  Ox_VariableList list;
  list.AddVariable("a", Ox_Variant(1L));
  Ox_VariableListChain chain;
  chain.Add(&list);
  chain.Add(&list);
  EXPECT_EQ(1, chain.Count());
  ASSERT_NE(nullptr, chain.GetVar("A"));
  EXPECT_EQ(&list.GetItem(0)->var, chain.GetVar("A"));
}

TEST(VariableListChain, OwnsNeitherListsNorVariables) {
  auto *list = new Ox_VariableList();
  list->AddVariable("k", Ox_Variant(1L));
  {
    Ox_VariableListChain chain(list);
  }
  // The chain is gone; the list and its variable remain.
  EXPECT_EQ(1, list->Count());
  EXPECT_EQ(1, list->Var("k").ToInteger());
  delete list;
}

}  // namespace
