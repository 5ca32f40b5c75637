// Many threads on one pool with no lock of their own: Alloc, Free, AddRef,
// Release, and one Ox_ObjList per thread over a shared handler. Meant to
// run clean under ThreadSanitizer as well.
#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <new>
#include <thread>
#include <vector>

#include "Ox_List.h"

namespace {

constexpr int kThreads = 4;

struct Payload {
  int owner;
  int serial;
  char fill[56];
};

class PayloadHandler : public Ox_ListObjHandler {
 public:
  constexpr PayloadHandler()
      : Ox_ListObjHandler("Test_Payload", sizeof(Payload), 16) {}
  void *_InitItem(void *item) override {
    inits.fetch_add(1, std::memory_order_relaxed);
    Payload *p = new (item) Payload();
    p->owner = -1;
    return p;
  }
  void _FreeItem(void *item) override {
    frees.fetch_add(1, std::memory_order_relaxed);
    static_cast<Payload *>(item)->~Payload();
  }
  void _AssignItem(void *target, void *source) override {
    *static_cast<Payload *>(target) = *static_cast<Payload *>(source);
  }
  int _CompareItem(void *item, void *key) override {
    return static_cast<Payload *>(item)->serial - *static_cast<int *>(key);
  }
  std::atomic<int> inits{0};
  std::atomic<int> frees{0};
};

PayloadHandler g_payloads;

TEST(PoolStress, AllocFreeFromManyThreads) {
  Ox_ObjBufPool pool("Test_Stress", 64, 32);
  std::atomic<int> errors{0};
  // One item shared by all threads, counted up and down concurrently.
  Ox_ObjBufData *shared = pool.Alloc();
  ASSERT_NE(shared, nullptr);

  auto work = [&](int id) {
    std::vector<Ox_ObjBufData *> held;
    for (int round = 0; round < 2000; ++round) {
      // Take a few, stamp them, check the stamps, give them back; some
      // go back on a later round so that batches move between threads.
      for (int i = 0; i < 8; ++i) {
        Ox_ObjBufData *item = pool.Alloc();
        if (!item || item->refCount.load() != 1) {
          errors.fetch_add(1);
          continue;
        }
        std::memset(item->object(), id, 64);
        held.push_back(item);
      }
      for (Ox_ObjBufData *item : held) {
        unsigned char *bytes = static_cast<unsigned char *>(item->object());
        if (bytes[0] != id || bytes[63] != id) errors.fetch_add(1);
      }
      size_t keep = round % 3 == 0 ? 4 : 0;
      while (held.size() > keep) {
        pool.Free(held.back());
        held.pop_back();
      }
      shared->AddRef(&pool);
      shared->Release(&pool);
    }
    for (Ox_ObjBufData *item : held) pool.Free(item);
  };

  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) threads.emplace_back(work, t + 1);
  for (std::thread &thread : threads) thread.join();
  EXPECT_EQ(errors.load(), 0);
  EXPECT_EQ(shared->refCount.load(), 1);
  EXPECT_EQ(shared->Release(&pool), 0);
  pool.Free(shared);
}

TEST(PoolStress, ListsPerThreadOverOneHandler) {
  int initsBefore = g_payloads.inits.load();
  int freesBefore = g_payloads.frees.load();
  // A source list made here; the threads link its items into their own
  // lists, so the counts of these items move from many threads at once.
  Ox_ObjList *source = new Ox_ObjList(&g_payloads);
  for (int i = 0; i < 64; ++i) {
    Payload p{};
    p.owner = 0;
    p.serial = i;
    source->Add(&p);
  }
  std::atomic<int> errors{0};
  auto work = [&](int id) {
    Ox_ObjList list(&g_payloads);
    for (int round = 0; round < 300; ++round) {
      for (int i = 0; i < 16; ++i) {
        Payload p{};
        p.owner = id;
        p.serial = round * 100 + i;
        if (list.Add(&p) < 0) errors.fetch_add(1);
      }
      for (int i = 0; i < 8; ++i) list.AddLink(source->GetItem((round + i) % 64));
      int key = round * 100 + 5;
      int at = list.FindItem(&key);
      if (at < 0 || static_cast<Payload *>(list.GetItem(at))->owner != id)
        errors.fetch_add(1);
      list.Delete(0, list.Count() / 2);
      if (round % 10 == 9) list.AllocItems(0);
    }
  };
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) threads.emplace_back(work, t + 1);
  for (std::thread &thread : threads) thread.join();
  EXPECT_EQ(errors.load(), 0);
  delete source;
  // Every item made has been destroyed, links counted to the last.
  EXPECT_EQ(g_payloads.inits.load() - initsBefore,
            g_payloads.frees.load() - freesBefore);
}

TEST(PoolStress, ThreadsThatEndHandTheirCachesBack) {
  Ox_ObjBufPool pool("Test_ThreadEnd", 16, 8);
  std::vector<Ox_ObjBufData *> made;
  // A thread allocates and frees; when it ends, its cached items go back
  // to the shared list, where this thread finds them again.
  std::thread([&] {
    std::vector<Ox_ObjBufData *> items;
    for (int i = 0; i < 40; ++i) items.push_back(pool.Alloc());
    for (Ox_ObjBufData *item : items) pool.Free(item);
  }).join();
  for (int i = 0; i < 40; ++i) {
    Ox_ObjBufData *item = pool.Alloc();
    ASSERT_NE(item, nullptr);
    made.push_back(item);
  }
  for (Ox_ObjBufData *item : made) pool.Free(item);
}

}  // namespace
