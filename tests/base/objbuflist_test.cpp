// Ox_ObjBufList: items by value in one block.
#include <gtest/gtest.h>

#include <new>

#include "Ox_List.h"

namespace {

struct Cell {
  Ox_AString text;  // one pointer: the item moves with memmove
  int value;
};

class CellHandler : public Ox_ListObjHandler {
 public:
  constexpr CellHandler() : Ox_ListObjHandler("Test_Cell", sizeof(Cell), 8) {}
  void *_InitItem(void *item) override {
    ++live;
    Cell *cell = new (item) Cell();
    cell->value = -1;
    return cell;
  }
  void _FreeItem(void *item) override {
    --live;
    static_cast<Cell *>(item)->~Cell();
  }
  void _AssignItem(void *target, void *source) override {
    *static_cast<Cell *>(target) = *static_cast<Cell *>(source);
  }
  int _CompareItem(void *, void *) override { return -1; }
  int live = 0;  // items constructed and not yet destroyed
};

CellHandler g_cells;

class CellList : public Ox_ObjBufList {
 public:
  CellList() : Ox_ObjBufList(&g_cells, sizeof(Cell)) {}
  using Ox_ObjBufList::AppendList;
  using Ox_ObjBufList::AssignList;
  using Ox_ObjBufList::ReleaseList;
  Cell *At(int i) const { return static_cast<Cell *>(GetItem(i)); }
};

Cell MakeCell(const char *text, int value) {
  Cell c;
  c.text = text;
  c.value = value;
  return c;
}

TEST(ObjBufList, AddInsertBuildInPlace) {
  {
    CellList list;
    EXPECT_EQ(list.Count(), 0);
    Cell a = MakeCell("a", 1), b = MakeCell("b", 2);
    EXPECT_EQ(list.Add(&a), 0);
    EXPECT_EQ(list.Add(nullptr), 1);  // default item
    EXPECT_EQ(list.Insert(0, &b), 0);  // b a default
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list.At(0)->value, 2);
    EXPECT_STREQ(list.At(1)->text, "a");
    EXPECT_EQ(list.At(2)->value, -1);
    // Items stand back to back in one block.
    EXPECT_EQ(static_cast<char *>(list.GetItem(1)) -
                  static_cast<char *>(list.GetItem(0)),
              static_cast<long>(sizeof(Cell)));
    EXPECT_LT(list.Insert(5, &a), 0);
    EXPECT_EQ(list.GetItem(3), nullptr);
    EXPECT_EQ(list.GetItem(-1), nullptr);
  }
  EXPECT_EQ(g_cells.live, 0);
}

TEST(ObjBufList, GrowthKeepsTheItems) {
  {
    CellList list;
    for (int i = 0; i < 100; ++i) {
      Cell c = MakeCell("x", i);
      ASSERT_EQ(list.Add(&c), i);
    }
    for (int i = 0; i < 100; ++i) EXPECT_EQ(list.At(i)->value, i);
    // Adding an item of the list itself while the block moves.
    EXPECT_EQ(list.Add(list.GetItem(50)), 100);
    EXPECT_EQ(list.At(100)->value, 50);
    EXPECT_EQ(list.Insert(0, list.GetItem(99)), 0);
    EXPECT_EQ(list.At(0)->value, 99);
    EXPECT_EQ(list.At(100)->value, 99);  // the old 99 moved up by one
  }
  EXPECT_EQ(g_cells.live, 0);
}

TEST(ObjBufList, SetDeleteSafeItemAlloc) {
  {
    CellList list;
    Cell a = MakeCell("a", 1);
    EXPECT_NE(list.Set(0, &a), 0);
    EXPECT_EQ(list.Set(2, &a, 1), 0);  // grows with default items
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list.At(0)->value, -1);
    EXPECT_EQ(list.At(2)->value, 1);
    EXPECT_EQ(list.Set(2, nullptr), 0);
    EXPECT_EQ(list.At(2)->value, -1);
    EXPECT_EQ(list.GetSafeItem(3, 0), nullptr);
    EXPECT_NE(list.GetSafeItem(3, 1), nullptr);
    EXPECT_EQ(list.Count(), 4);
    EXPECT_EQ(list.Delete(1, 2), 0);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_NE(list.Delete(2), 0);
    EXPECT_EQ(list.AllocItems(5), 5);
    EXPECT_EQ(list.AllocItems(1), 1);
    EXPECT_EQ(g_cells.live, 1);
    list.ReleaseList();
    EXPECT_EQ(list.Count(), 0);
  }
  EXPECT_EQ(g_cells.live, 0);
}

TEST(ObjBufList, CopiesAreDeep) {
  {
    CellList list;
    Cell a = MakeCell("a", 1);
    list.Add(&a);
    list.Add(nullptr);
    Ox_ObjBufList copy(list);
    ASSERT_EQ(copy.Count(), 2);
    EXPECT_NE(copy.GetItem(0), list.GetItem(0));
    EXPECT_EQ(static_cast<Cell *>(copy.GetItem(0))->value, 1);
    CellList other;
    other.Add(nullptr);
    other.AssignList(list);
    EXPECT_EQ(other.Count(), 2);
    other.AppendList(other);
    EXPECT_EQ(other.Count(), 4);
    EXPECT_EQ(other.At(2)->value, 1);
    copy = other;
    EXPECT_EQ(copy.Count(), 4);
  }
  EXPECT_EQ(g_cells.live, 0);
}

TEST(ObjBufList, BadItemSizeRefusesItems) {
  Ox_ObjBufList list(&g_cells, 0);
  EXPECT_LT(list.Add(nullptr), 0);
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.GetSafeItem(0, 1), nullptr);
}

}  // namespace
