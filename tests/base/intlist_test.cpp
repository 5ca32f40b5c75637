// Ox_IntList, also used as an array of pairs.
#include <gtest/gtest.h>

#include "Ox_List.h"

namespace {

// Gives tests the protected members.
class IntListProbe : public Ox_IntList {
 public:
  using Ox_IntList::AssignList;
  using Ox_IntList::GetBuffer;
};

TEST(IntList, AddAndPairs) {
  Ox_IntList list;
  EXPECT_EQ(list.Add(5), 0);
  EXPECT_EQ(list.Add2(6, 7), 1);  // 5 6 7
  EXPECT_EQ(list.Count(), 3);     // integers, not pairs
  EXPECT_EQ(list.Insert(0, 4), 0);       // 4 5 6 7
  EXPECT_EQ(list.Insert2(2, 8, 9), 2);   // 4 5 8 9 6 7
  const int expected[] = {4, 5, 8, 9, 6, 7};
  ASSERT_EQ(list.Count(), 6);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(list.Items(i), expected[i]);
  EXPECT_EQ(list.Insert2(7, 1, 1), -1);
}

TEST(IntList, SetDeleteGetItem) {
  Ox_IntList list;
  list.Reset(5);  // 0 1 2 3 4
  EXPECT_EQ(list.Set(2, 20), 0);
  EXPECT_NE(list.Set(5, 1), 0);
  EXPECT_EQ(list.GetItem(2), 20);
  EXPECT_EQ(list.GetItem(5), 0);
  EXPECT_EQ(list.GetItem(-1), 0);
  EXPECT_EQ(list.Delete(0, 2), 0);  // 20 3 4
  EXPECT_EQ(list.Items(0), 20);
  EXPECT_EQ(list.Count(), 3);
  EXPECT_NE(list.Delete(3), 0);
  list.Clear();
  EXPECT_EQ(list.Count(), 0);
}

TEST(IntList, ResetAndReset2) {
  Ox_IntList list;
  list.Add(99);
  list.Reset(4);
  ASSERT_EQ(list.Count(), 4);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(list.Items(i), i);
  list.Reset2(3, -1);  // (0,-1) (1,-1) (2,-1)
  ASSERT_EQ(list.Count(), 6);
  const int expected[] = {0, -1, 1, -1, 2, -1};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(list.Items(i), expected[i]);
  list.Reset(0);
  EXPECT_EQ(list.Count(), 0);
}

TEST(IntList, BufferAndAssign) {
  IntListProbe list;
  int *raw = list.GetBuffer(3);
  ASSERT_NE(raw, nullptr);
  EXPECT_EQ(list.Count(), 3);
  EXPECT_EQ(raw[2], 0);
  raw[1] = 11;
  EXPECT_EQ(list.GetItem(1), 11);
  IntListProbe other;
  other.AssignList(list);
  EXPECT_EQ(other.Count(), 3);
  EXPECT_EQ(other.GetItem(1), 11);
  Ox_IntList copy(other);
  EXPECT_EQ(copy.GetItem(1), 11);
  copy = Ox_IntList();
  EXPECT_EQ(copy.Count(), 0);
}

}  // namespace
