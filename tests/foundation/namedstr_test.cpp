// Ox_NamedStr, Ox_NamedStrList and their handlers.
#include <gtest/gtest.h>

#include <cstring>

#include "Ox_NamedStr.h"
#include "namedstr_test_util.h"

namespace {

using oxtest::Dump;

// ---------------------------------------------------------------------------
// Ox_NamedStr

TEST(NamedStr, ConstructAndRead) {
  Ox_NamedStr empty;
  EXPECT_EQ(0, empty.Id().GetLength());
  EXPECT_EQ(0, empty.Str().GetLength());

  Ox_NamedStr pair("Name", "Text");
  EXPECT_STREQ("Name", pair.Id());
  EXPECT_STREQ("Text", pair.Str());

  Ox_NamedStr copy(pair);
  EXPECT_STREQ("Name", copy.Id());
  EXPECT_STREQ("Text", copy.Str());

  Ox_NamedStr assigned;
  assigned = pair;
  EXPECT_STREQ("Name", assigned.Id());
  EXPECT_STREQ("Text", assigned.Str());
}

TEST(NamedStr, Setters) {
  Ox_NamedStr pair;
  pair.Set(Ox_AString("a"), Ox_AString("b"));
  EXPECT_STREQ("a", pair.Id());
  EXPECT_STREQ("b", pair.Str());
  pair.SetId("abcdef", 3);
  pair.SetStr("xyz", 2);
  EXPECT_STREQ("abc", pair.Id());
  EXPECT_STREQ("xy", pair.Str());
  pair.SetId(Ox_AString("k"));
  pair.SetStr(Ox_AString("v"));
  EXPECT_STREQ("k", pair.Id());
  EXPECT_STREQ("v", pair.Str());
  Ox_NamedStr other("o", "p");
  pair.Set(other);
  EXPECT_STREQ("o", pair.Id());
  EXPECT_STREQ("p", pair.Str());
}

TEST(NamedStr, SelfAssignmentIsANoOp) {
  Ox_NamedStr pair("a", "b");
  pair.Set(pair);
  EXPECT_STREQ("a", pair.Id());
  EXPECT_STREQ("b", pair.Str());
  Ox_NamedStr &same = pair;
  pair = same;
  EXPECT_STREQ("a", pair.Id());
  EXPECT_STREQ("b", pair.Str());
}

TEST(NamedStr, CompareIsCaseSensitiveAndZeroForEqual) {
  Ox_NamedStr a("id", "x");
  Ox_NamedStr same("id", "x");
  Ox_NamedStr upper("ID", "x");
  Ox_NamedStr otherText("id", "y");
  EXPECT_EQ(0, a.Compare(same));
  EXPECT_EQ(0, a.Compare(&same));
  // operator== answers 0 for equality.
  EXPECT_EQ(0, a == same);
  // Names first: "id" > "ID" in bytes.
  EXPECT_GT(a.Compare(upper), 0);
  EXPECT_NE(0, a == upper);
  // Same name: the texts decide, "x" < "y".
  EXPECT_LT(a.Compare(otherText), 0);
  EXPECT_GT(otherText.Compare(a), 0);
}

TEST(NamedStr, CompareOneField) {
  Ox_NamedStr a("id", "text");
  EXPECT_EQ(0, a.CompareId("id"));
  EXPECT_NE(0, a.CompareId("ID"));
  EXPECT_EQ(0, a == "id");
  EXPECT_NE(0, a == "Id");
  EXPECT_EQ(0, a.CompareStr("text"));
  EXPECT_LT(a.CompareStr("zzz"), 0);
  // A null text reads as empty.
  Ox_NamedStr empty;
  EXPECT_EQ(0, empty.CompareId(nullptr));
  EXPECT_EQ(0, empty.CompareStr(nullptr));
}

TEST(NamedStr, InPlaceLifeCycle) {
  alignas(Ox_NamedStr) unsigned char memory[sizeof(Ox_NamedStr)];
  memset(memory, 0x5A, sizeof memory);
  Ox_NamedStr *item = Ox_NamedStr::InitWithMemory(memory);
  ASSERT_EQ(static_cast<void *>(memory), static_cast<void *>(item));
  EXPECT_EQ(0, item->Id().GetLength());
  item->SetId("a");
  item->SetStr("b");
  EXPECT_STREQ("a", item->Id());
  Ox_NamedStr::FreeWithMemory(item);
  EXPECT_EQ(nullptr, Ox_NamedStr::InitWithMemory(nullptr));
}

TEST(NamedStr, HandlerPoolAndKey) {
  Ox_NamedStrHandler &handler = Ox_NamedStr::_OxNamedStrHandler;
  EXPECT_STREQ("Ox_NamedStr", handler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_NamedStr)), handler.GetItemSize());

  Ox_NamedStr item("Color", "red");
  // The key is the address of a `const char *`, compared ignoring case.
  const char *key = "COLOR";
  EXPECT_EQ(0, handler._CompareItem(&item, &key));
  const char *other = "colour";
  EXPECT_NE(0, handler._CompareItem(&item, &other));

  // Construct, assign and free through the handler, as a list does.
  Ox_ObjBufData *data = handler.Alloc();
  ASSERT_NE(nullptr, data);
  void *made = handler._InitItem(data->object());
  handler._AssignItem(made, &item);
  EXPECT_STREQ("Color", static_cast<Ox_NamedStr *>(made)->Id());
  EXPECT_STREQ("red", static_cast<Ox_NamedStr *>(made)->Str());
  handler._FreeItem(made);
  handler.Free(data);
}

// ---------------------------------------------------------------------------
// Ox_NamedStrList: lookup and access

TEST(NamedStrList, FindIdIgnoresCase) {
  Ox_NamedStrList list;
  list.AddStr("Alpha", "1");
  list.AddStr("Beta", "2");
  EXPECT_EQ(0, list.FindId("alpha"));
  EXPECT_EQ(1, list.FindId("BETA"));
  EXPECT_EQ(-1, list.FindId("gamma"));
  EXPECT_EQ(-1, list.FindId(nullptr));  // reads as "", which no item has
}

TEST(NamedStrList, AccessorsByIndexAndName) {
  Ox_NamedStrList list;
  list.AddStr("a", "1");
  list.AddStr("b", "2");
  ASSERT_NE(nullptr, list.GetItem(1));
  EXPECT_STREQ("b", list.GetItem(1)->Id());
  EXPECT_STREQ("2", list.GetItem("B")->Str());
  EXPECT_EQ(nullptr, list.GetItem(2));
  EXPECT_EQ(nullptr, list.GetItem(-1));
  EXPECT_EQ(nullptr, list.GetItem("c"));
  ASSERT_NE(nullptr, list.GetSafeItem(0));
  list.GetSafeItem(0)->SetStr("changed");
  EXPECT_STREQ("changed", list.Str(0));
  list.GetSafeItem("b")->SetStr("two");
  EXPECT_STREQ("two", list.Str("b"));
  EXPECT_EQ(nullptr, list.GetSafeItem(5));
  EXPECT_EQ(nullptr, list.GetSafeItem("zz"));
  EXPECT_STREQ("a", list.Id(0));
  EXPECT_STREQ("two", list[1].Str());
}

TEST(NamedStrList, GetItemNNOfMissingGivesEmptyStrings) {
  Ox_NamedStrList list;
  list.AddStr("a", "1");
  const Ox_NamedStr &missing = list.GetItemNN("nope");
  EXPECT_EQ(0, missing.Id().GetLength());
  EXPECT_EQ(0, missing.Str().GetLength());
  EXPECT_EQ(0, list.GetItemNN(7).Id().GetLength());
  EXPECT_EQ(0, list.GetItemNN(-1).Str().GetLength());
  EXPECT_EQ(0, list[3].Id().GetLength());
  EXPECT_STREQ("1", list.GetItemNN("A").Str());
  // Id and Str give the shared empty string when absent.
  EXPECT_EQ(&_OxNullString, &list.Id(9));
  EXPECT_EQ(&_OxNullString, &list.Str(9));
  EXPECT_EQ(&_OxNullString, &list.Str("nope"));
}

// ---------------------------------------------------------------------------
// Ox_NamedStrList: Add

TEST(NamedStrList, AddWithEmptyIdGivesMinusOne) {
  Ox_NamedStrList list;
  EXPECT_EQ(-1, list.Add(Ox_NamedStr("", "x"), 0));
  EXPECT_EQ(-1, list.Add(Ox_NamedStr(), 1));
  EXPECT_EQ(0, list.Count());
}

TEST(NamedStrList, AddOfExistingNameWithoutOverwriteChangesNothing) {
  for (int unique = 0; unique <= 1; ++unique) {
    Ox_NamedStrList list(unique);
    EXPECT_EQ(0, list.Add(Ox_NamedStr("a", "1"), 0));
    EXPECT_EQ(1, list.Add(Ox_NamedStr("b", "2"), 0));
    // Any overwrite other than 1 keeps the old item.
    EXPECT_EQ(0, list.Add(Ox_NamedStr("A", "new"), 0));
    EXPECT_EQ(0, list.Add(Ox_NamedStr("a", "new"), 2));
    EXPECT_EQ(2, list.Count());
    EXPECT_EQ("a=1;b=2;", Dump(list)) << "unique " << unique;
  }
}

TEST(NamedStrList, AddOverwriteReplacesInPlaceWhenNotUnique) {
  Ox_NamedStrList list(0);
  list.Add(Ox_NamedStr("a", "1"), 0);
  list.Add(Ox_NamedStr("b", "2"), 0);
  // The whole item is replaced, name included.
  EXPECT_EQ(0, list.Add(Ox_NamedStr("A", "new"), 1));
  EXPECT_EQ("A=new;b=2;", Dump(list));
}

TEST(NamedStrList, AddOverwriteMovesToTheEndWhenUnique) {
  Ox_NamedStrList list(1);
  list.Add(Ox_NamedStr("a", "1"), 0);
  list.Add(Ox_NamedStr("b", "2"), 0);
  EXPECT_EQ(1, list.Add(Ox_NamedStr("A", "new"), 1));
  EXPECT_EQ("b=2;A=new;", Dump(list));
}

TEST(NamedStrList, AddOfNewNameGoesToTheEnd) {
  Ox_NamedStrList list;
  EXPECT_EQ(0, list.Add(Ox_NamedStr("x", "1"), 1));
  EXPECT_EQ(1, list.Add(Ox_NamedStr("y", "2"), 0));
  EXPECT_EQ("x=1;y=2;", Dump(list));
}

// ---------------------------------------------------------------------------
// Ox_NamedStrList: AddStr and DelStr

TEST(NamedStrList, AddStrEmptyIdGivesMinusOne) {
  Ox_NamedStrList list;
  EXPECT_EQ(-1, list.AddStr(Ox_AString(), Ox_AString("v"), 0));
  EXPECT_EQ(-1, list.AddStr("", 5, 1));
  EXPECT_EQ(-1, list.AddStr("", 1.5, 0));
  EXPECT_EQ(0, list.Count());
}

TEST(NamedStrList, AddStrOverwriteSetsTextWhenNotUnique) {
  Ox_NamedStrList list(0);
  list.AddStr("a", "1");
  list.AddStr("b", "2");
  // Only the text changes; the name keeps its case.
  EXPECT_EQ(0, list.AddStr("A", "new", 1));
  EXPECT_EQ("a=new;b=2;", Dump(list));
}

TEST(NamedStrList, AddStrOverwriteInUniqueListDeletesAndAdds) {
  Ox_NamedStrList list(1);
  list.AddStr("a", "1");
  list.AddStr("b", "2");
  EXPECT_EQ(1, list.AddStr("A", "new", 1));
  EXPECT_EQ("b=2;A=new;", Dump(list));
}

TEST(NamedStrList, AddStrWithoutOverwriteMayHoldANameTwice) {
  Ox_NamedStrList list(0);
  EXPECT_EQ(0, list.AddStr("a", "1", 0));
  EXPECT_EQ(1, list.AddStr("A", "2", 0));
  EXPECT_EQ("a=1;A=2;", Dump(list));
  EXPECT_EQ(0, list.FindId("a"));  // the first one is found

  // A unique list refuses the second one and gives the old index.
  Ox_NamedStrList unique(1);
  EXPECT_EQ(0, unique.AddStr("a", "1", 0));
  EXPECT_EQ(0, unique.AddStr("A", "2", 0));
  EXPECT_EQ("a=1;", Dump(unique));
}

TEST(NamedStrList, AddStrNumbersAsDecimalText) {
  Ox_NamedStrList list;
  EXPECT_EQ(0, list.AddStr("i", -42, 0));
  EXPECT_EQ(1, list.AddStr("d", 2.5, 0));
  EXPECT_EQ(2, list.AddStr("z", 0, 0));
  EXPECT_STREQ("-42", list.Str("i"));
  EXPECT_STREQ("2.5", list.Str("d"));
  EXPECT_STREQ("0", list.Str("z"));
  EXPECT_EQ(0, list.AddStr("I", 7, 1));
  EXPECT_STREQ("7", list.Str("i"));
}

TEST(NamedStrList, DelStr) {
  Ox_NamedStrList list;
  list.AddStr("a", "1");
  list.AddStr("b", "2");
  list.AddStr("c", "3");
  EXPECT_EQ(-1, list.DelStr(nullptr));
  EXPECT_EQ(-1, list.DelStr(""));
  EXPECT_LT(list.DelStr("zz"), 0);
  EXPECT_EQ(1, list.DelStr("B"));  // its former index
  EXPECT_EQ("a=1;c=3;", Dump(list));
  // Only the first item of the name goes.
  list.AddStr("a", "again", 0);
  EXPECT_EQ(0, list.DelStr("a"));
  EXPECT_EQ("c=3;a=again;", Dump(list));
}

// ---------------------------------------------------------------------------
// Ox_NamedStrList: whole lists

TEST(NamedStrList, AssignAndAppendReturnCounts) {
  Ox_NamedStrList a, b;
  a.AddStr("x", "1");
  b.AddStr("y", "2");
  b.AddStr("z", "3");
  EXPECT_EQ(2, a.Assign(&b));
  EXPECT_EQ("y=2;z=3;", Dump(a));
  EXPECT_EQ(2, a.Assign(nullptr));  // ignored
  EXPECT_EQ(4, a.Append(&b));
  EXPECT_EQ("y=2;z=3;y=2;z=3;", Dump(a));
  EXPECT_EQ(4, a.Append(nullptr));
  EXPECT_EQ(2, b.Assign(&b));  // itself: unchanged
  EXPECT_EQ("y=2;z=3;", Dump(b));
  EXPECT_EQ(4, b.Append(&b));  // itself: doubled
  EXPECT_EQ("y=2;z=3;y=2;z=3;", Dump(b));
}

TEST(NamedStrList, Operators) {
  Ox_NamedStrList a, b;
  b.AddStr("k", "v");
  a = b;
  EXPECT_EQ("k=v;", Dump(a));
  a += b;
  EXPECT_EQ("k=v;k=v;", Dump(a));
  a = &b;
  EXPECT_EQ("k=v;", Dump(a));
  a += &b;
  EXPECT_EQ(2, a.Count());
  // Copies are deep: changing the copy leaves the source alone.
  a.GetSafeItem(0)->SetStr("changed");
  EXPECT_STREQ("v", b.Str(0));
  Ox_NamedStrList copy(b);
  EXPECT_EQ("k=v;", Dump(copy));
}

TEST(NamedStrList, CompareIgnoresOrder) {
  Ox_NamedStrList a, b;
  a.AddStr("x", "1");
  a.AddStr("y", "2");
  b.AddStr("Y", "2");
  b.AddStr("x", "1");
  EXPECT_EQ(0, a.Compare(b));
  EXPECT_EQ(0, b.Compare(a));
  EXPECT_EQ(0, a == b);
  EXPECT_EQ(0, a.Compare(a));
}

TEST(NamedStrList, CompareByCountKeyAndText) {
  Ox_NamedStrList a, longer, other, texts;
  a.AddStr("x", "1");
  a.AddStr("y", "2");
  longer = a;
  longer.AddStr("z", "3");
  EXPECT_EQ(-1, a.Compare(longer));  // other is longer
  EXPECT_EQ(1, longer.Compare(a));   // other is shorter
  other.AddStr("x", "1");
  other.AddStr("w", "2");
  EXPECT_EQ(-1, a.Compare(other));  // "y" is missing in other
  texts.AddStr("x", "1");
  texts.AddStr("y", "3");
  // CompareStr of "2" with "3": negative; the other way positive.
  EXPECT_LT(a.Compare(texts), 0);
  EXPECT_GT(texts.Compare(a), 0);
  EXPECT_NE(0, a == texts);
}

TEST(NamedStrList, AppendDiffList) {
  Ox_NamedStrList base, changed, out;
  base.AddStr("a", "1");
  base.AddStr("b", "2");
  changed.AddStr("A", "1");  // same text under the same name: skipped
  changed.AddStr("b", "3");  // changed text: added
  changed.AddStr("c", "4");  // not in base: added
  EXPECT_EQ(2, out.AppendDiffList(base, changed));
  EXPECT_EQ("b=3;c=4;", Dump(out));

  Ox_NamedStrList empty;
  EXPECT_EQ(0, out.AppendDiffList(base, empty));
  EXPECT_EQ(2, out.Count());
}

TEST(NamedStrList, ClearEmpties) {
  Ox_NamedStrList list;
  list.AddStr("a", "1");
  list.Clear();
  EXPECT_EQ(0, list.Count());
}

// ---------------------------------------------------------------------------
// Lists of lists

TEST(NamedStrListHandler, PoolAndItemOperations) {
  Ox_NamedStrListHandler &handler = Ox_NamedStrList::_OxNamedStrListHandler;
  EXPECT_STREQ("Ox_NamedStrList", handler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_NamedStrList)), handler.GetItemSize());

  // A shared list made the way markup elements make their attribute lists.
  Ox_ObjBufData *data = handler.Alloc();
  ASSERT_NE(nullptr, data);
  Ox_NamedStrList *list = Ox_NamedStrList::InitWithMemory(data->object());
  ASSERT_NE(nullptr, list);
  list->AddStr("a", "1");
  // Pool-made lists hold a name once.
  EXPECT_EQ(0, list->AddStr("A", "2", 0));
  EXPECT_EQ(1, list->Count());
  EXPECT_EQ(2, data->AddRef(&handler));
  EXPECT_EQ(1, data->Release(&handler));
  EXPECT_EQ(0, data->Release(&handler));
  Ox_NamedStrList::FreeWithMemory(list);
  handler.Free(data);
}

TEST(NamedStrListHandler, ListOfListsFindsByCompare) {
  Ox_ObjList lists(&Ox_NamedStrList::_OxNamedStrListHandler, 0);
  Ox_NamedStrList first, second;
  first.AddStr("a", "1");
  second.AddStr("b", "2");
  second.AddStr("c", "3");
  EXPECT_EQ(0, lists.Add(&first));
  EXPECT_EQ(1, lists.Add(&second));
  // The owned copies are deep.
  Ox_NamedStrList *held = static_cast<Ox_NamedStrList *>(lists.GetItem(1));
  ASSERT_NE(nullptr, held);
  EXPECT_EQ("b=2;c=3;", Dump(*held));
  // The key is another list, compared without regard to order.
  Ox_NamedStrList key;
  key.AddStr("c", "3");
  key.AddStr("b", "2");
  EXPECT_EQ(1, lists.FindItem(&key));
  key.AddStr("d", "4");
  EXPECT_EQ(-1, lists.FindItem(&key));
}

}  // namespace
