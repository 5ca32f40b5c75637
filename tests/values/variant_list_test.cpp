// Ox_VariantHandler, Ox_VariantList and Ox_VariantBufList.
#include <gtest/gtest.h>

#include <cstring>

#include "Ox_Variant.h"

namespace {

TEST(VariantHandler, PoolAndOperations) {
  EXPECT_STREQ("Ox_Variant", _OxVariantHandler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_Variant)),
            _OxVariantHandler.GetItemSize());
  // A variant is never found: _CompareItem is -1 even for itself.
  Ox_Variant v(1L);
  EXPECT_EQ(-1, _OxVariantHandler._CompareItem(&v, &v));
  alignas(Ox_Variant) unsigned char raw[sizeof(Ox_Variant)];
  std::memset(raw, 0x5A, sizeof raw);
  void *item = _OxVariantHandler._InitItem(raw);
  EXPECT_EQ(static_cast<void *>(raw), item);
  EXPECT_EQ(0, static_cast<Ox_Variant *>(item)->GetType());
  _OxVariantHandler._AssignItem(item, &v);
  EXPECT_EQ(1, static_cast<Ox_Variant *>(item)->ToInteger());
  _OxVariantHandler._FreeItem(item);
}

TEST(VariantList, AddNullGivesNullVariant) {
  Ox_VariantList list;
  list.Add(Ox_Variant(5L));
  const int index = list.Add(static_cast<const Ox_Variant *>(nullptr));
  EXPECT_EQ(1, index);
  ASSERT_NE(nullptr, list.GetItem(1));
  EXPECT_EQ(0, list.GetItem(1)->GetType());
  EXPECT_EQ(1, list.Add(nullptr) - 1);  // the literal too
  EXPECT_EQ(0, list.GetItem(2)->GetType());
}

TEST(VariantList, AddCopiesAndFindsNothing) {
  Ox_VariantList list;
  Ox_Variant v("a");
  EXPECT_EQ(0, list.Add(v));
  EXPECT_EQ(1, list.Add(v));  // not unique
  EXPECT_NE(&v, list.GetItem(0));
  EXPECT_STREQ("a", list.GetItem(0)->ToString().GetString());
  EXPECT_EQ(-1, list.FindItem(&v));
}

TEST(VariantList, LinksAreThePointers) {
  Ox_Variant v(1L);
  Ox_VariantList list;
  EXPECT_EQ(0, list.AddLink(&v));
  EXPECT_EQ(&v, list.GetItem(0));
  Ox_Variant w(2L);
  EXPECT_EQ(0, list.InsertLink(0, &w));
  EXPECT_EQ(&w, list.GetItem(0));
  Ox_Variant x(3L);
  EXPECT_EQ(0, list.SetLink(1, &x));
  EXPECT_EQ(&x, list.GetItem(1));
  EXPECT_EQ(1, v.ToInteger());  // links are never freed
}

TEST(VariantList, AddRefVarKeepsReference) {
  Ox_Variant target(9L);
  Ox_Variant ref;
  ref.SetReference(&target);
  Ox_VariantList list;
  const int index = list.AddRefVar(ref);
  ASSERT_NE(nullptr, list.GetItem(index));
  EXPECT_EQ(32768, list.GetItem(index)->GetType());
  EXPECT_EQ(&target, list.GetItem(index)->GetReference());
  // Add would copy the target's value instead.
  const int copied = list.Add(ref);
  EXPECT_EQ(3, list.GetItem(copied)->GetType());
  // A plain argument is a plain Add.
  const int plain = list.AddRefVar(Ox_Variant("p"));
  EXPECT_EQ(8, list.GetItem(plain)->GetType());
}

TEST(VariantList, InsertAndSet) {
  Ox_VariantList list;
  list.Add(Ox_Variant(1L));
  EXPECT_EQ(0, list.Insert(0, Ox_Variant(0L)));
  EXPECT_EQ(0, list.GetItem(0)->ToInteger());
  EXPECT_EQ(1, list.GetItem(1)->ToInteger());
  EXPECT_EQ(0, list.Insert(0, static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(0, list.GetItem(0)->GetType());
  EXPECT_EQ(0, list.Set(0, Ox_Variant(7L)));
  EXPECT_EQ(7, list.GetItem(0)->ToInteger());
  const Ox_Variant eight(8L);
  EXPECT_EQ(0, list.Set(1, &eight));
  EXPECT_EQ(8, list.GetItem(1)->ToInteger());
  EXPECT_NE(0, list.Set(5, Ox_Variant(1L)));  // beyond the end, no grow
  EXPECT_EQ(3, list.Count());
  EXPECT_EQ(0, list.Set(5, Ox_Variant(5L), 1));
  EXPECT_EQ(6, list.Count());
  EXPECT_EQ(0, list.GetItem(4)->GetType());
  EXPECT_EQ(5, list.GetItem(5)->ToInteger());
}

TEST(VariantList, GetItemNNAndSafeItem) {
  Ox_VariantList list;
  list.Add(Ox_Variant(1L));
  EXPECT_EQ(nullptr, list.GetItem(1));
  EXPECT_EQ(nullptr, list.GetItem(-1));
  EXPECT_EQ(&_OxNullVariant, list.GetItemNN(1));
  EXPECT_EQ(&_OxNullVariant, list[-1]);
  EXPECT_EQ(list.GetItem(0), list[0]);
  EXPECT_EQ(0, _OxNullVariant.GetType());
  EXPECT_EQ(nullptr, list.GetSafeItem(1, 0));
  Ox_Variant *grown = list.GetSafeItem(1, 1);
  ASSERT_NE(nullptr, grown);
  EXPECT_EQ(2, list.Count());
  EXPECT_EQ(0, grown->GetType());
}

TEST(VariantList, AssignAppendAndOperators) {
  Ox_VariantList a;
  a.Add(Ox_Variant(1L));
  a.Add(Ox_Variant("x"));
  Ox_VariantList b;
  EXPECT_EQ(2, b.Assign(&a));
  EXPECT_EQ(0, Ox_VariantList().Assign(nullptr));
  EXPECT_EQ(2, b.Assign(nullptr));  // ignored: the count stays
  EXPECT_EQ(4, b.Append(&a));
  EXPECT_EQ(4, b.Append(nullptr));
  EXPECT_EQ(8, b.Append(&b));  // itself, copied first
  Ox_VariantList c;
  c = a;
  EXPECT_EQ(2, c.Count());
  c += a;
  EXPECT_EQ(4, c.Count());
  c = &a;
  EXPECT_EQ(2, c.Count());
  c += &a;
  EXPECT_EQ(4, c.Count());
  c = static_cast<const Ox_VariantList *>(nullptr);
  EXPECT_EQ(4, c.Count());
  // Deep copies.
  c.GetItem(0)->Set(100L);
  EXPECT_EQ(1, a.GetItem(0)->ToInteger());
  Ox_VariantList copy(a);
  EXPECT_EQ(2, copy.Count());
  EXPECT_NE(a.GetItem(0), copy.GetItem(0));
}

TEST(VariantList, InitAndFreeWithMemory) {
  alignas(Ox_VariantList) unsigned char raw[sizeof(Ox_VariantList)];
  auto *list = reinterpret_cast<Ox_VariantList *>(raw);
  Ox_VariantList::InitWithMemory(list);
  EXPECT_EQ(0, list->Count());
  list->Add(Ox_Variant("abc"));
  Ox_VariantList::FreeWithMemory(list);
  Ox_VariantList::InitWithMemory(nullptr);
  Ox_VariantList::FreeWithMemory(nullptr);
  SUCCEED();
}

TEST(VariantList, FitsInTheVariant) {
  EXPECT_LE(sizeof(Ox_VariantList), sizeof(Ox_Variant::Value));
}

TEST(VariantBufList, SameOperations) {
  Ox_VariantBufList cells;
  EXPECT_EQ(0, cells.Add(Ox_Variant(1L)));
  EXPECT_EQ(1, cells.Add(static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(0, cells.GetItem(1)->GetType());
  EXPECT_EQ(0, cells.Insert(0, Ox_Variant("first")));
  EXPECT_STREQ("first", cells.GetItem(0)->ToString().GetString());
  EXPECT_EQ(1, cells.Insert(1, static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(4, cells.Count());
  EXPECT_EQ(0, cells.Set(1, Ox_Variant(2.5)));
  EXPECT_EQ(2.5, cells.GetItem(1)->ToDouble());
  const Ox_Variant three(3L);
  EXPECT_EQ(0, cells.Set(6, &three, 1));
  EXPECT_EQ(7, cells.Count());
  EXPECT_EQ(&_OxNullVariant, cells.GetItemNN(7));
  EXPECT_EQ(&_OxNullVariant, cells[-1]);
  EXPECT_EQ(cells.GetItem(6), cells[6]);
  EXPECT_EQ(nullptr, cells.GetSafeItem(7, 0));
  EXPECT_NE(nullptr, cells.GetSafeItem(7, 1));
  EXPECT_EQ(8, cells.Count());
}

TEST(VariantBufList, AssignAppendAndOperators) {
  Ox_VariantBufList a;
  a.Add(Ox_Variant(1L));
  a.Add(Ox_Variant("x"));
  Ox_VariantBufList b;
  EXPECT_EQ(2, b.Assign(&a));
  EXPECT_EQ(2, b.Assign(nullptr));
  EXPECT_EQ(4, b.Append(&a));
  EXPECT_EQ(4, b.Append(nullptr));
  EXPECT_EQ(8, b.Append(&b));
  Ox_VariantBufList c;
  c = a;
  c += a;
  EXPECT_EQ(4, c.Count());
  c = &a;
  c += &a;
  EXPECT_EQ(4, c.Count());
  c.GetItem(0)->Set(100L);
  EXPECT_EQ(1, a.GetItem(0)->ToInteger());
  // Strings keep their text when the block grows and items move.
  Ox_VariantBufList grow;
  for (int i = 0; i < 100; ++i) grow.Add(Ox_Variant("text"));
  EXPECT_STREQ("text", grow.GetItem(0)->ToString().GetString());
  EXPECT_STREQ("text", grow.GetItem(99)->ToString().GetString());
}

}  // namespace
