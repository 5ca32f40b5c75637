// Ox_AStrList.
#include <gtest/gtest.h>

#include "Ox_List.h"

namespace {

TEST(AStrList, AddReturnsTheIndex) {
  Ox_AStrList list(0);
  EXPECT_EQ(list.Add("one"), 0);
  EXPECT_EQ(list.Add(Ox_AString("two")), 1);
  EXPECT_EQ(list.Add(static_cast<const char *>(nullptr)), 2);  // empty
  ASSERT_EQ(list.Count(), 3);
  EXPECT_STREQ(*list.GetItem(0), "one");
  EXPECT_STREQ(*list.GetItem(1), "two");
  EXPECT_EQ(list.GetItem(2)->GetLength(), 0);
}

TEST(AStrList, FindIsExact) {
  Ox_AStrList list(0);
  list.Add("Alpha");
  list.Add("beta");
  list.Add("");
  EXPECT_EQ(list.Find("beta"), 1);
  EXPECT_EQ(list.Find("alpha"), -1);  // case counts
  EXPECT_EQ(list.Find("Alpha"), 0);
  EXPECT_EQ(list.Find(""), 2);
  EXPECT_EQ(list.Find(nullptr), 2);  // null reads as empty
  EXPECT_EQ(list.Find("gamma"), -1);
}

TEST(AStrList, GetItemNNOutOfRangeIsEmpty) {
  Ox_AStrList list(0);
  list.Add("x");
  EXPECT_EQ(list.GetItemNN(-1).GetLength(), 0);
  EXPECT_STREQ(list.GetItemNN(-1), "");
  EXPECT_EQ(&list.GetItemNN(-1), &_OxNullString);
  EXPECT_EQ(&list.GetItemNN(1), &_OxNullString);
  EXPECT_STREQ(list.GetItemNN(0), "x");
  EXPECT_EQ(list.GetItem(1), nullptr);
  EXPECT_EQ(list.GetItem(-1), nullptr);
}

TEST(AStrList, GetSafeItemWritesIntoTheList) {
  Ox_AStrList list(0);
  list.Add("x");
  Ox_AString *item = list.GetSafeItem(0);
  ASSERT_NE(item, nullptr);
  item->Set("y");
  EXPECT_STREQ(list.GetItemNN(0), "y");
  EXPECT_EQ(list.GetSafeItem(1), nullptr);  // no growth here
  EXPECT_EQ(list.Count(), 1);
}

TEST(AStrList, AppendCopiesAndReturnsTheCount) {
  Ox_AStrList a(0), b(0);
  a.Add("1");
  b.Add("2");
  b.Add("3");
  EXPECT_EQ(a.Append(&b), 3);
  EXPECT_STREQ(a.GetItemNN(2), "3");
  b.GetSafeItem(1)->Set("changed");
  EXPECT_STREQ(a.GetItemNN(2), "3");
  EXPECT_EQ(a.Append(nullptr), 3);
}

TEST(AStrList, CopyAssignClear) {
  Ox_AStrList a(0);
  a.Add("p");
  a.Add("q");
  Ox_AStrList copy(a);
  EXPECT_EQ(copy.Count(), 2);
  EXPECT_NE(copy.GetItem(0), a.GetItem(0));
  Ox_AStrList assigned(0);
  assigned.Add("old");
  assigned = a;
  EXPECT_EQ(assigned.Count(), 2);
  EXPECT_STREQ(assigned.GetItemNN(1), "q");
  assigned.Clear();
  EXPECT_EQ(assigned.Count(), 0);
}

TEST(AStrList, UniqueListAddsATextOnce) {
  Ox_AStrList list(1);
  EXPECT_EQ(list.Add("a"), 0);
  EXPECT_EQ(list.Add("b"), 1);
  EXPECT_EQ(list.Add("a"), 0);
  EXPECT_EQ(list.Add("A"), 2);  // exact comparison
  EXPECT_EQ(list.Count(), 3);
}

TEST(AStrList, ItemsComeFromThePool) {
  Ox_AStrList list(0);
  list.Add("x");
  const Ox_ListObjHandler *handler = list.GetHandler();
  ASSERT_NE(handler, nullptr);
  EXPECT_STREQ(handler->GetName(), "Ox_AString");
  EXPECT_EQ(handler->GetItemSize(), static_cast<int>(sizeof(Ox_AString)));
  EXPECT_NE(handler->Owns(list.GetItem(0)), 0);
}

}  // namespace
