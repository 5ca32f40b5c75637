// Ox_ObjList over a test handler whose items are a name and a number; names
// compare without regard to case, as the system's named items do.
#include <gtest/gtest.h>

#include <new>

#include "Ox_BaseFunc.h"
#include "Ox_List.h"

namespace {

struct Named {
  Ox_AString name;  // first field: the key convention reads it as text
  int value;
};

class NamedHandler : public Ox_ListObjHandler {
 public:
  constexpr NamedHandler() : Ox_ListObjHandler("Test_Named", sizeof(Named), 4) {}
  void *_InitItem(void *item) override {
    ++inits;
    Named *named = new (item) Named();
    named->value = -1;
    return named;
  }
  void _FreeItem(void *item) override {
    ++frees;
    static_cast<Named *>(item)->~Named();
  }
  void _AssignItem(void *target, void *source) override {
    ++assigns;
    *static_cast<Named *>(target) = *static_cast<Named *>(source);
  }
  // The key is the address of a `const char *`; an item is its own key.
  int _CompareItem(void *item, void *key) override {
    return ox_stricmpA(*static_cast<const char *const *>(item),
                       *static_cast<const char *const *>(key));
  }
  int inits = 0;
  int frees = 0;
  int assigns = 0;
};

NamedHandler g_handler;

class ObjListProbe : public Ox_ObjList {
 public:
  explicit ObjListProbe(int unique = 0) : Ox_ObjList(&g_handler, unique) {}
  using Ox_ObjList::AppendList;
  using Ox_ObjList::AssignList;
  using Ox_ObjList::ReleaseList;
  Named *At(int i) const { return static_cast<Named *>(GetItem(i)); }
};

Named MakeNamed(const char *name, int value) {
  Named n;
  n.name = name;
  n.value = value;
  return n;
}

class ObjListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    g_handler.inits = g_handler.frees = g_handler.assigns = 0;
  }
  // Every item that was made has been destroyed.
  void ExpectBalanced() { EXPECT_EQ(g_handler.inits, g_handler.frees); }
};

TEST_F(ObjListTest, AddCopiesTheItem) {
  {
    ObjListProbe list;
    Named a = MakeNamed("alpha", 1);
    EXPECT_EQ(list.Add(&a), 0);
    a.value = 2;  // the list holds a copy
    ASSERT_EQ(list.Count(), 1);
    EXPECT_NE(list.GetItem(0), &a);
    EXPECT_EQ(list.At(0)->value, 1);
    EXPECT_STREQ(list.At(0)->name, "alpha");
    EXPECT_EQ(list.IsLink(0), 0);
    EXPECT_TRUE(g_handler.Owns(list.GetItem(0)));
  }
  ExpectBalanced();
}

TEST_F(ObjListTest, AddNullGivesADefaultItem) {
  ObjListProbe list;
  EXPECT_EQ(list.Add(nullptr), 0);
  ASSERT_NE(list.At(0), nullptr);
  EXPECT_EQ(list.At(0)->value, -1);  // what _InitItem makes
  EXPECT_EQ(list.At(0)->name.GetLength(), 0);
  EXPECT_EQ(g_handler.assigns, 0);   // _InitItem only
}

TEST_F(ObjListTest, UniqueAddOfAnExistingNameReturnsTheOldIndex) {
  ObjListProbe list(1);
  Named a = MakeNamed("Alpha", 1);
  Named b = MakeNamed("beta", 2);
  Named again = MakeNamed("ALPHA", 3);
  EXPECT_EQ(list.Add(&a), 0);
  EXPECT_EQ(list.Add(&b), 1);
  EXPECT_EQ(list.Add(&again), 0);
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(list.At(0)->value, 1);  // the item there is kept
  // Without the flag the same name is added.
  ObjListProbe plain;
  plain.Add(&a);
  EXPECT_EQ(plain.Add(&again), 1);
  EXPECT_EQ(plain.Count(), 2);
}

TEST_F(ObjListTest, InsertAndOutOfRange) {
  ObjListProbe list;
  Named a = MakeNamed("a", 1), b = MakeNamed("b", 2), c = MakeNamed("c", 3);
  list.Add(&a);
  list.Add(&b);
  EXPECT_EQ(list.Insert(1, &c), 1);  // a c b
  EXPECT_EQ(list.At(1)->value, 3);
  EXPECT_EQ(list.At(2)->value, 2);
  EXPECT_LT(list.Insert(4, &c), 0);
  EXPECT_LT(list.Insert(-1, &c), 0);
  EXPECT_EQ(list.Count(), 3);
  EXPECT_EQ(list.GetItem(3), nullptr);
  EXPECT_EQ(list.GetItem(-1), nullptr);
}

TEST_F(ObjListTest, SetAssignsInPlaceAndGrows) {
  {
    ObjListProbe list;
    Named a = MakeNamed("a", 1), b = MakeNamed("b", 2);
    list.Add(&a);
    void *before = list.GetItem(0);
    EXPECT_EQ(list.Set(0, &b), 0);
    EXPECT_EQ(list.GetItem(0), before);  // through _AssignItem
    EXPECT_EQ(list.At(0)->value, 2);
    EXPECT_NE(list.Set(2, &a), 0);       // no grow: refused
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Set(2, &a, 1), 0);    // grow: default items fill in
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list.At(1)->value, -1);
    EXPECT_EQ(list.At(2)->value, 1);
    EXPECT_EQ(list.Set(2, nullptr), 0);  // null: a default item again
    EXPECT_EQ(list.At(2)->value, -1);
    EXPECT_NE(list.Set(-1, &a, 1), 0);
  }
  ExpectBalanced();
}

TEST_F(ObjListTest, DeleteExchangeMove) {
  {
    ObjListProbe list;
    for (int i = 0; i < 5; ++i) {
      Named n = MakeNamed("n", i);
      list.Add(&n);
    }
    EXPECT_EQ(list.Move(0, 3), 0);  // 1 2 3 0 4
    EXPECT_EQ(list.At(3)->value, 0);
    EXPECT_EQ(list.At(0)->value, 1);
    EXPECT_EQ(list.Exchange(0, 4), 0);  // 4 2 3 0 1
    EXPECT_EQ(list.At(0)->value, 4);
    EXPECT_EQ(list.At(4)->value, 1);
    EXPECT_NE(list.Exchange(0, 5), 0);
    EXPECT_NE(list.Move(5, 0), 0);
    int freesBefore = g_handler.frees;
    EXPECT_EQ(list.Delete(1, 2), 0);  // 4 0 1
    EXPECT_EQ(g_handler.frees - freesBefore, 2);  // owned items are freed
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list.At(1)->value, 0);
    EXPECT_NE(list.Delete(3), 0);
  }
  ExpectBalanced();
}

TEST_F(ObjListTest, ReorderMovesEntriesWithTheirLinkBits) {
  Named outside = MakeNamed("outside", 99);
  {
    ObjListProbe list;
    for (int i = 0; i < 5; ++i) {
      Named n = MakeNamed("n", i);
      list.Add(&n);
    }
    list.AddLink(&outside);  // 0 1 2 3 4 L
    // Positions 1..5 take the entries that stood at 1 + origin[s]:
    // 1 + 4 = 5 (the link), then 3, 1, 4, 2.
    const int origin[] = {4, 2, 0, 3, 1};
    EXPECT_EQ(list.Reorder(1, origin, 5), 0);  // 0 L 3 1 4 2
    EXPECT_EQ(list.At(0)->value, 0);
    EXPECT_EQ(list.GetItem(1), &outside);
    EXPECT_EQ(list.IsLink(1), 1);
    EXPECT_EQ(list.At(2)->value, 3);
    EXPECT_EQ(list.At(3)->value, 1);
    EXPECT_EQ(list.At(4)->value, 4);
    EXPECT_EQ(list.At(5)->value, 2);
    EXPECT_EQ(list.IsLink(5), 0);
    // Not a permutation, or outside the list: nothing moves.
    const int twice[] = {0, 0};
    EXPECT_EQ(list.Reorder(0, twice, 2), -1);
    const int beyond[] = {0, 2};
    EXPECT_EQ(list.Reorder(0, beyond, 2), -1);
    const int two[] = {1, 0};
    EXPECT_EQ(list.Reorder(5, two, 2), -1);
    EXPECT_EQ(list.Reorder(-1, two, 2), -1);
    EXPECT_EQ(list.Reorder(0, nullptr, 2), -1);
    EXPECT_EQ(list.Reorder(0, nullptr, 0), 0);
    EXPECT_EQ(list.At(0)->value, 0);
    EXPECT_EQ(list.GetItem(1), &outside);
    EXPECT_EQ(list.At(2)->value, 3);
    EXPECT_EQ(list.At(5)->value, 2);
    EXPECT_EQ(list.Reorder(4, two, 2), 0);  // 0 L 3 1 2 4
    EXPECT_EQ(list.At(4)->value, 2);
    EXPECT_EQ(list.At(5)->value, 4);
  }
  // The five owned items are freed once each, the link never.
  ExpectBalanced();
  EXPECT_EQ(outside.value, 99);
}

TEST_F(ObjListTest, GetSafeItemAtTheCount) {
  ObjListProbe list;
  list.Add(nullptr);
  list.Add(nullptr);
  EXPECT_EQ(list.GetSafeItem(2, 0), nullptr);
  EXPECT_EQ(list.Count(), 2);
  void *item = list.GetSafeItem(2, 1);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(list.Count(), 3);  // extended by one
  EXPECT_EQ(item, list.GetItem(2));
  EXPECT_EQ(list.GetSafeItem(1, 0), list.GetItem(1));
  EXPECT_EQ(list.GetSafeItem(-1, 1), nullptr);
}

TEST_F(ObjListTest, FindItemPassesTheKeyUnchanged) {
  ObjListProbe list;
  Named a = MakeNamed("Alpha", 1), b = MakeNamed("Beta", 2);
  list.Add(&a);
  list.Add(&b);
  const char *key = "beta";
  EXPECT_EQ(list.FindItem(&key), 1);  // the address of the local
  key = "gamma";
  EXPECT_EQ(list.FindItem(&key), -1);
}

TEST_F(ObjListTest, AllocItemsKeepsThoseInFront) {
  {
    ObjListProbe list;
    Named a = MakeNamed("a", 7);
    list.Add(&a);
    EXPECT_EQ(list.AllocItems(4), 4);
    EXPECT_EQ(list.At(0)->value, 7);
    EXPECT_EQ(list.At(3)->value, -1);
    EXPECT_EQ(list.AllocItems(2), 2);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.At(0)->value, 7);
    EXPECT_EQ(list.AllocItems(0), 0);
    EXPECT_EQ(list.Count(), 0);
  }
  ExpectBalanced();
}

TEST_F(ObjListTest, LinkedItemOutlivesDeleteFromTheFirstList) {
  auto first = new ObjListProbe;
  ObjListProbe second;
  Named a = MakeNamed("rec", 5);
  first->Add(&a);
  void *item = first->GetItem(0);
  EXPECT_EQ(second.AddLink(item), 0);
  EXPECT_EQ(second.GetItem(0), item);  // the pointer itself
  EXPECT_EQ(second.IsLink(0), 1);
  EXPECT_EQ(first->Delete(0), 0);
  EXPECT_EQ(g_handler.frees, 0);  // still held by the second list
  EXPECT_EQ(second.At(0)->value, 5);
  delete first;
  EXPECT_EQ(g_handler.frees, 0);
  EXPECT_EQ(second.Delete(0), 0);  // the last list lets go
  EXPECT_EQ(g_handler.frees, 1);
  ExpectBalanced();
}

TEST_F(ObjListTest, FirstListOutlivingTheLinkFreesOnce) {
  ObjListProbe first;
  first.Add(nullptr);
  {
    ObjListProbe second;
    second.InsertLink(0, first.GetItem(0));
  }
  EXPECT_EQ(g_handler.frees, 0);
  first.ReleaseList();
  EXPECT_EQ(g_handler.frees, 1);
}

TEST_F(ObjListTest, LinkToANonPoolObjectIsNeverFreed) {
  Named outside = MakeNamed("outside", 9);
  {
    ObjListProbe list;
    EXPECT_EQ(list.AddLink(&outside), 0);
    EXPECT_EQ(list.GetItem(0), &outside);
    EXPECT_EQ(list.SetLink(0, &outside), 0);
    EXPECT_EQ(list.Delete(0), 0);
    list.AddLink(&outside);
  }
  EXPECT_EQ(g_handler.frees, 0);
  EXPECT_EQ(outside.value, 9);
  EXPECT_STREQ(outside.name, "outside");
}

TEST_F(ObjListTest, SetLinkReplacesAndGrows) {
  {
    ObjListProbe list;
    ObjListProbe other;
    other.Add(nullptr);
    list.Add(nullptr);
    EXPECT_EQ(list.SetLink(0, other.GetItem(0)), 0);  // the owned one goes
    EXPECT_EQ(g_handler.frees, 1);
    EXPECT_EQ(list.GetItem(0), other.GetItem(0));
    EXPECT_NE(list.SetLink(3, other.GetItem(0)), 0);
    EXPECT_EQ(list.SetLink(2, other.GetItem(0), 1), 0);
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.IsLink(1), 0);
    EXPECT_EQ(list.IsLink(2), 1);
    EXPECT_LT(list.AddLink(nullptr), 0);
    // Set over a link puts an owned copy in its place.
    Named n = MakeNamed("n", 4);
    EXPECT_EQ(list.Set(0, &n), 0);
    EXPECT_EQ(list.IsLink(0), 0);
    EXPECT_NE(list.GetItem(0), other.GetItem(0));
  }
  ExpectBalanced();
}

TEST_F(ObjListTest, CopiesAreDeepAndLinksBecomeOwned) {
  {
    ObjListProbe source;
    Named a = MakeNamed("a", 1);
    Named outside = MakeNamed("out", 2);
    source.Add(&a);
    source.AddLink(&outside);
    Ox_ObjList copy(source);
    ASSERT_EQ(copy.Count(), 2);
    EXPECT_NE(copy.GetItem(0), source.GetItem(0));
    EXPECT_NE(copy.GetItem(1), &outside);
    EXPECT_EQ(copy.IsLink(1), 0);
    EXPECT_EQ(static_cast<Named *>(copy.GetItem(1))->value, 2);

    ObjListProbe target;
    target.Add(nullptr);
    target.AssignList(source);  // replaces
    ASSERT_EQ(target.Count(), 2);
    EXPECT_EQ(target.At(0)->value, 1);
    target.AppendList(source);  // adds
    EXPECT_EQ(target.Count(), 4);
    EXPECT_EQ(target.At(3)->value, 2);
    target.AppendList(target);  // doubles once
    EXPECT_EQ(target.Count(), 8);
    target.AssignList(target);  // no change
    EXPECT_EQ(target.Count(), 8);

    Ox_ObjList assigned(&g_handler);
    assigned = source;
    EXPECT_EQ(assigned.Count(), 2);
    EXPECT_NE(assigned.GetItem(0), source.GetItem(0));
  }
  ExpectBalanced();
}

TEST_F(ObjListTest, AssignFromAListThatLinksOurItems) {
  // `other` links the only copy of an item of `list`; assigning `other`
  // to `list` must copy before the old entries go.
  ObjListProbe list;
  Named a = MakeNamed("a", 3);
  list.Add(&a);
  ObjListProbe other;
  other.AddLink(list.GetItem(0));
  list.AssignList(other);
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.At(0)->value, 3);
}

TEST(ObjListLayout, StaysFourFields) {
  EXPECT_EQ(sizeof(Ox_ObjList), 24u);
  EXPECT_LE(sizeof(Ox_ObjBufList), 24u);
}

// A static list may outlive its static handler at exit: the list then
// leaves its items alone instead of calling into the dead handler.
alignas(NamedHandler) unsigned char g_dyingStorage[sizeof(NamedHandler)];

TEST(ObjListAtExit, ListOutlivingItsHandlerLeavesItemsAlone) {
  NamedHandler *handler = new (g_dyingStorage) NamedHandler();
  auto list = new Ox_ObjList(handler);
  auto cells = new Ox_ObjBufList(handler, sizeof(Named));
  Named a = MakeNamed("a", 1);
  list->Add(&a);
  cells->Add(nullptr);  // an empty name: nothing of its own to leak
  EXPECT_EQ(handler->IsGone(), 0);
  handler->~NamedHandler();
  EXPECT_NE(handler->IsGone(), 0);
  EXPECT_LT(list->Add(&a), 0);  // nothing new from a dead handler
  EXPECT_EQ(list->FindItem(&a), -1);
  delete list;   // would call a pure virtual function otherwise
  delete cells;
}

}  // namespace
