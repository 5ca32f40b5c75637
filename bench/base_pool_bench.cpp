// Pool items against the heap, and Ox_ObjList growth.
//
// The pool must beat malloc+free of the same size in the same run, single
// threaded: compare BM_PoolAllocFree with BM_MallocFree, and the batch
// forms, which keep 1000 items outstanding before giving them back.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>
#include <vector>

#include "Ox_List.h"

namespace {

constexpr int kItemSize = 64;

Ox_ObjBufPool g_pool("Bench_Pool", kItemSize, 256);

void BM_PoolAllocFree(benchmark::State &state) {
  for (auto _ : state) {
    Ox_ObjBufData *item = g_pool.Alloc();
    benchmark::DoNotOptimize(item);
    g_pool.Free(item);
  }
}
BENCHMARK(BM_PoolAllocFree);

void BM_MallocFree(benchmark::State &state) {
  for (auto _ : state) {
    void *memory = std::malloc(kItemSize);
    benchmark::DoNotOptimize(memory);
    std::free(memory);
  }
}
BENCHMARK(BM_MallocFree);

void BM_PoolAllocFreeBatch1000(benchmark::State &state) {
  std::vector<Ox_ObjBufData *> items(1000);
  for (auto _ : state) {
    for (auto &item : items) item = g_pool.Alloc();
    benchmark::DoNotOptimize(items.data());
    for (auto *item : items) g_pool.Free(item);
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_PoolAllocFreeBatch1000);

void BM_MallocFreeBatch1000(benchmark::State &state) {
  std::vector<void *> items(1000);
  for (auto _ : state) {
    for (auto &item : items) item = std::malloc(kItemSize);
    benchmark::DoNotOptimize(items.data());
    for (void *item : items) std::free(item);
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_MallocFreeBatch1000);

struct Item {
  int a;
  int b;
  double c;
};

class ItemHandler : public Ox_ListObjHandler {
 public:
  constexpr ItemHandler() : Ox_ListObjHandler("Bench_Item", sizeof(Item), 256) {}
  void *_InitItem(void *item) override { return new (item) Item(); }
  void _FreeItem(void *) override {}
  void _AssignItem(void *target, void *source) override {
    *static_cast<Item *>(target) = *static_cast<Item *>(source);
  }
  int _CompareItem(void *, void *) override { return -1; }
};

ItemHandler g_items;

void BM_ObjListAdd1M(benchmark::State &state) {
  Item item{1, 2, 3.0};
  for (auto _ : state) {
    Ox_ObjList list(&g_items);
    for (int i = 0; i < 1000000; ++i) list.Add(&item);
    benchmark::DoNotOptimize(list.Count());
  }
  state.SetItemsProcessed(state.iterations() * 1000000);
}
BENCHMARK(BM_ObjListAdd1M)->Unit(benchmark::kMillisecond);

}  // namespace
