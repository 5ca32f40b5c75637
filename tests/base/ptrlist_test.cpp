// Ox_PtrList.
#include <gtest/gtest.h>

#include "Ox_List.h"

namespace {

// Gives tests the protected members.
class PtrListProbe : public Ox_PtrList {
 public:
  using Ox_PtrList::AppendList;
  using Ox_PtrList::AssignList;
  using Ox_PtrList::GetBuffer;
};

int g_values[8];
void *P(int i) { return &g_values[i]; }

PtrListProbe MakeList(int count) {
  PtrListProbe list;
  for (int i = 0; i < count; ++i) list.Add(P(i));
  return list;
}

TEST(PtrList, AddAndInsertReturnTheIndex) {
  Ox_PtrList list;
  EXPECT_EQ(list.Add(P(0)), 0);
  EXPECT_EQ(list.Add(P(1)), 1);
  EXPECT_EQ(list.Insert(0, P(2)), 0);  // 2 0 1
  EXPECT_EQ(list.Insert(3, P(3)), 3);  // at the end: 2 0 1 3
  ASSERT_EQ(list.Count(), 4);
  EXPECT_EQ(list.GetItem(0), P(2));
  EXPECT_EQ(list.GetItem(1), P(0));
  EXPECT_EQ(list.GetItem(2), P(1));
  EXPECT_EQ(list.GetItem(3), P(3));
  EXPECT_EQ(list.Insert(5, P(4)), -1);
  EXPECT_EQ(list.Insert(-1, P(4)), -1);
  EXPECT_EQ(list.Count(), 4);
}

TEST(PtrList, SetDeleteExchange) {
  PtrListProbe list = MakeList(5);  // 0 1 2 3 4
  EXPECT_EQ(list.Set(1, P(7)), 0);
  EXPECT_EQ(list.Items(1), P(7));
  EXPECT_NE(list.Set(5, P(7)), 0);
  EXPECT_EQ(list.Delete(1, 2), 0);  // 0 3 4
  ASSERT_EQ(list.Count(), 3);
  EXPECT_EQ(list.Items(1), P(3));
  EXPECT_EQ(list.Exchange(0, 2), 0);  // 4 3 0
  EXPECT_EQ(list.Items(0), P(4));
  EXPECT_EQ(list.Items(2), P(0));
  EXPECT_NE(list.Exchange(0, 3), 0);
  EXPECT_NE(list.Delete(3, 1), 0);
  EXPECT_EQ(list.Delete(1, 99), 0);  // a count past the end stops there
  EXPECT_EQ(list.Count(), 1);
}

TEST(PtrList, MoveEndsTheItemAtTheTarget) {
  PtrListProbe list = MakeList(5);  // 0 1 2 3 4
  EXPECT_EQ(list.Move(1, 3), 0);    // 0 2 3 1 4
  EXPECT_EQ(list.Items(0), P(0));
  EXPECT_EQ(list.Items(1), P(2));
  EXPECT_EQ(list.Items(2), P(3));
  EXPECT_EQ(list.Items(3), P(1));
  EXPECT_EQ(list.Items(4), P(4));
  EXPECT_EQ(list.Move(4, 0), 0);  // 4 0 2 3 1
  EXPECT_EQ(list.Items(0), P(4));
  EXPECT_EQ(list.Items(1), P(0));
  EXPECT_EQ(list.Items(4), P(1));
  EXPECT_NE(list.Move(0, 5), 0);
}

TEST(PtrList, CheckedReadsAndIndexOf) {
  PtrListProbe list = MakeList(3);
  EXPECT_EQ(list.GetItem(-1), nullptr);
  EXPECT_EQ(list.GetItem(3), nullptr);
  EXPECT_EQ(list.IndexOf(P(2)), 2);
  EXPECT_EQ(list.IndexOf(P(6)), -1);
  list.Clear();
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.GetItem(0), nullptr);
}

TEST(PtrList, BufferAssignAppendCopy) {
  PtrListProbe list = MakeList(2);
  void **raw = list.GetBuffer(4);  // grows; the new room is null
  ASSERT_NE(raw, nullptr);
  EXPECT_EQ(list.Count(), 4);
  EXPECT_EQ(raw[0], P(0));
  EXPECT_EQ(raw[3], nullptr);
  EXPECT_EQ(list.GetBuffer(-1), raw);
  EXPECT_EQ(list.Count(), 4);
  list.GetBuffer(1);
  EXPECT_EQ(list.Count(), 1);

  PtrListProbe other = MakeList(3);
  list.AppendList(other);  // 0 0 1 2
  ASSERT_EQ(list.Count(), 4);
  EXPECT_EQ(list.Items(3), P(2));
  list.AppendList(list);  // doubles once
  EXPECT_EQ(list.Count(), 8);
  list.AssignList(other);
  EXPECT_EQ(list.Count(), 3);
  Ox_PtrList copy(list);
  EXPECT_EQ(copy.Count(), 3);
  EXPECT_EQ(copy.GetItem(1), P(1));
}

}  // namespace
