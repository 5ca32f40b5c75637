// Ox_ObjBufPool and Ox_ObjBufData.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <set>
#include <vector>

#include "Ox_List.h"

namespace {

TEST(Pool, AllocGivesCountOneAndAnAlignedObject) {
  Ox_ObjBufPool pool("Test_Plain", 24, 8);
  EXPECT_STREQ(pool.GetName(), "Test_Plain");
  EXPECT_EQ(pool.GetItemSize(), 24);
  Ox_ObjBufData *item = pool.Alloc();
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->refCount.load(), 1);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(item->object()) % 16, 0u);
  // The header stands right in front of the object.
  EXPECT_EQ(static_cast<char *>(item->object()) - reinterpret_cast<char *>(item),
            16);
  EXPECT_EQ(Ox_ObjBufData::FromObject(item->object()), item);
  std::memset(item->object(), 0x5A, 24);  // the whole object is writable
  pool.Free(item);
}

TEST(Pool, AddRefAndReleaseReturnTheNewCount) {
  Ox_ObjBufPool pool("Test_Count", 8, 4);
  Ox_ObjBufData *item = pool.Alloc();
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->AddRef(&pool), 2);
  EXPECT_EQ(item->AddRef(&pool), 3);
  EXPECT_EQ(item->Release(&pool), 2);
  EXPECT_EQ(item->Release(&pool), 1);
  EXPECT_EQ(item->Release(&pool), 0);  // frees nothing by itself
  pool.Free(item);
}

TEST(Pool, ItemsAreDistinctAcrossBlocks) {
  // 3 items a block: 20 items need several blocks.
  Ox_ObjBufPool pool("Test_Blocks", 40, 3);
  std::vector<Ox_ObjBufData *> items;
  std::set<char *> objects;
  for (int i = 0; i < 20; ++i) {
    Ox_ObjBufData *item = pool.Alloc();
    ASSERT_NE(item, nullptr);
    items.push_back(item);
    objects.insert(static_cast<char *>(item->object()));
    std::memset(item->object(), i, 40);
  }
  EXPECT_EQ(objects.size(), 20u);
  // No object overlaps the next one (stride at least header + 48).
  char *previous = nullptr;
  for (char *object : objects) {
    if (previous) {
      EXPECT_GE(object - previous, 64);
    }
    previous = object;
  }
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(static_cast<unsigned char *>(items[i]->object())[39], i);
  }
  for (Ox_ObjBufData *item : items) pool.Free(item);
}

TEST(Pool, FreedItemsAreReused) {
  Ox_ObjBufPool pool("Test_Reuse", 16, 4);
  Ox_ObjBufData *first = pool.Alloc();
  pool.Free(first);
  Ox_ObjBufData *second = pool.Alloc();
  EXPECT_EQ(second, first);  // the thread's cache gives it back first
  pool.Free(second);
}

TEST(Pool, OwnsOnlyObjectsOfItsItems) {
  Ox_ObjBufPool pool("Test_Owns", 32, 4);
  Ox_ObjBufPool other("Test_Other", 32, 4);
  EXPECT_EQ(pool.Owns(nullptr), 0);
  Ox_ObjBufData *item = pool.Alloc();
  Ox_ObjBufData *foreign = other.Alloc();
  ASSERT_NE(item, nullptr);
  EXPECT_NE(pool.Owns(item->object()), 0);
  EXPECT_EQ(pool.Owns(item), 0);  // the header is not an object
  EXPECT_EQ(pool.Owns(static_cast<char *>(item->object()) + 8), 0);
  EXPECT_EQ(pool.Owns(foreign->object()), 0);
  int onStack = 0;
  EXPECT_EQ(pool.Owns(&onStack), 0);
  // Not yet used: nothing is owned, and no state is made.
  Ox_ObjBufPool unused("Test_Unused", 8, 4);
  EXPECT_EQ(unused.Owns(item->object()), 0);
  pool.Free(item);
  other.Free(foreign);
}

#if defined(__SANITIZE_ADDRESS__)
#define OX_TEST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define OX_TEST_ASAN 1
#endif
#endif

#if !defined(NDEBUG) && !defined(OX_TEST_ASAN)
TEST(Pool, DebugBuildsPoisonFreedItems) {
  Ox_ObjBufPool pool("Test_Poison", 32, 4);
  Ox_ObjBufData *item = pool.Alloc();
  unsigned char *object = static_cast<unsigned char *>(item->object());
  std::memset(object, 0, 32);
  pool.Free(item);
  // The memory stays with the pool's block; read it as bytes.
  for (int i = 0; i < 32; ++i) EXPECT_EQ(object[i], 0xDD) << i;
}
#endif

#ifdef OX_TEST_ASAN
TEST(Pool, AddressSanitizerReportsUseAfterFree) {
  Ox_ObjBufPool pool("Test_AsanPoison", 32, 4);
  Ox_ObjBufData *item = pool.Alloc();
  volatile unsigned char *object =
      static_cast<unsigned char *>(item->object());
  pool.Free(item);
  EXPECT_DEATH(object[0] = 1, "use-after-poison");
  Ox_ObjBufData *again = pool.Alloc();  // readable again once handed out
  static_cast<unsigned char *>(again->object())[31] = 1;
  pool.Free(again);
}
#endif

TEST(Pool, OddArgumentsStillWork) {
  Ox_ObjBufPool zero("Test_Zero", 0, 0);
  Ox_ObjBufData *item = zero.Alloc();
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->refCount.load(), 1);
  zero.Free(item);
  zero.Free(nullptr);  // ignored
  Ox_ObjBufPool big("Test_Big", 1 << 20, 1000);  // blocks are capped
  Ox_ObjBufData *large = big.Alloc();
  ASSERT_NE(large, nullptr);
  std::memset(large->object(), 1, 1 << 20);
  big.Free(large);
}

// A pool with a static lifetime, as the system declares them.
Ox_ObjBufPool g_static("Test_Static", 16, 32);

TEST(Pool, StaticPoolIsUsableAtOnce) {
  Ox_ObjBufData *item = g_static.Alloc();
  ASSERT_NE(item, nullptr);
  EXPECT_NE(g_static.Owns(item->object()), 0);
  g_static.Free(item);
}

TEST(Pool, ManyPoolsAtOnce) {
  // More pools than the per-thread cache has slots: the rest run on their
  // shared lists and behave the same.
  std::vector<Ox_ObjBufPool *> pools;
  std::vector<Ox_ObjBufData *> items;
  for (int i = 0; i < 200; ++i) {
    pools.push_back(new Ox_ObjBufPool("Test_Many", 16, 2));
    items.push_back(pools.back()->Alloc());
    ASSERT_NE(items.back(), nullptr);
    EXPECT_NE(pools.back()->Owns(items.back()->object()), 0);
  }
  for (int i = 0; i < 200; ++i) {
    pools[i]->Free(items[i]);
    EXPECT_EQ(pools[i]->Alloc(), items[i]);
    pools[i]->Free(items[i]);
    delete pools[i];
  }
}

}  // namespace
