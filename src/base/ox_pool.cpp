// Ox_ObjBufPool: fixed-size items taken from blocks, safe from any thread.
//
// Layout. Every item is an Ox_ObjBufData header (16 bytes) followed by the
// object, rounded up to 16 bytes; items stand back to back in blocks. The
// first block holds `itemsPerBlock` items, each later one twice as many as
// the one before, up to about 1 MiB a block.
//
// Speed. A pool keeps one shared free list under a lock, and every thread
// keeps a small cache of free items per pool. Alloc and Free touch only the
// calling thread's cache; the lock is taken once per batch of items, when a
// cache runs dry or grows too long. A thread's caches go back to their
// pools when the thread ends.
//
// Lifetime. A pool's state is made on first use, so a static pool works
// whatever order the static constructors ran in. Each live state owns one
// of a fixed number of cache slots and a generation number that is never
// reused; a cache entry is only trusted when its generation matches, so the
// items that a thread still caches for a pool that has gone are dropped
// without being touched. Past the last slot, pools run on the shared list
// alone.
#include <pthread.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "Ox_List.h"

// Under AddressSanitizer the object of a free item is marked unreadable,
// so that a use after Free is reported even though the memory stays with
// the pool. The header stays readable: it links the free lists.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define OX_POOL_ASAN 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define OX_POOL_ASAN 1
#endif
#ifdef OX_POOL_ASAN
#include <sanitizer/asan_interface.h>
#define OX_POOL_POISON(object, bytes) ASAN_POISON_MEMORY_REGION(object, bytes)
#define OX_POOL_UNPOISON(object, bytes) \
  ASAN_UNPOISON_MEMORY_REGION(object, bytes)
#else
#define OX_POOL_POISON(object, bytes) ((void)0)
#define OX_POOL_UNPOISON(object, bytes) ((void)0)
#endif

namespace {

constexpr int kCacheSlots = 128;             // pools with a per-thread cache
constexpr size_t kHeaderBytes = sizeof(Ox_ObjBufData);
constexpr size_t kGrowBlockBytes = 1 << 20;  // growth stops at this size
constexpr size_t kMaxBlockBytes = 64u << 20; // no block is ever larger
constexpr size_t kCacheBytes = 64 * 1024;    // bytes of one batch at most
constexpr int kMaxBatch = 32;                // items of one batch at most

static_assert(sizeof(Ox_ObjBufData) == 16, "the item header is 16 bytes");

// The address ranges of a pool's blocks, sorted, never changed once
// published: Owns reads the current set without a lock. A replaced set is
// kept on the retired chain until the pool goes.
struct BlockSet {
  BlockSet *retired;
  int count;
  struct Range {
    uintptr_t begin;
    uintptr_t end;
  } ranges[1];
};

BlockSet *NewBlockSet(int count) {
  size_t bytes = sizeof(BlockSet) +
                 sizeof(BlockSet::Range) * static_cast<size_t>(count);
  BlockSet *set = static_cast<BlockSet *>(std::calloc(1, bytes));
  if (set) set->count = count;
  return set;
}

}  // namespace

struct Ox_PoolState {
  // Read on every Alloc and Free, never changed while the pool lives.
  int slot;                   // cache slot, -1 when none
  int spillAt;                // a cache this long gives a batch back
  uint64_t generation;        // unique to this state
  pthread_mutex_t lock;       // guards the fields below up to `blocks`
  Ox_ObjBufData *freeHead;    // the shared free list
  long freeCount;             // items on the shared free list
  long totalItems;            // items carved from all blocks
  int nextBlockItems;         // items of the next block
  int growLimit;              // block growth stops at this many items
  std::atomic<BlockSet *> blocks;  // current block ranges
  size_t stride;              // header plus rounded object size
  size_t objectBytes;         // object size rounded to 16
  int batch;                  // items moved between cache and list at once
};

namespace {

// One thread's cache for one pool slot.
struct CacheEntry {
  Ox_ObjBufData *head;
  int count;
  uint64_t generation;  // the state the items belong to; 0 when unused
};

struct ThreadCaches {
  CacheEntry entries[kCacheSlots];
};

// The registry of slots: which state owns each slot now. Constant
// initialised, never destroyed.
pthread_mutex_t g_registryLock = PTHREAD_MUTEX_INITIALIZER;
struct SlotOwner {
  Ox_PoolState *state;
  uint64_t generation;
} g_slots[kCacheSlots];
uint64_t g_nextGeneration = 1;

pthread_once_t g_keyOnce = PTHREAD_ONCE_INIT;
pthread_key_t g_cacheKey;
bool g_keyMade = false;

// The calling thread's caches; initial-exec keeps the access one load.
__attribute__((tls_model("initial-exec"))) thread_local ThreadCaches
    *t_caches = nullptr;

// Puts a chain of `count` items on the shared free list of `state`.
void PushShared(Ox_PoolState *state, Ox_ObjBufData *head,
                Ox_ObjBufData *tail, int count) {
  pthread_mutex_lock(&state->lock);
  tail->next = state->freeHead;
  state->freeHead = head;
  state->freeCount += count;
  pthread_mutex_unlock(&state->lock);
}

// Thread exit: hands every cached item back to its pool, if that pool
// still owns the slot; items of pools that are gone are dropped.
void ReturnThreadCaches(void *value) {
  ThreadCaches *caches = static_cast<ThreadCaches *>(value);
  if (t_caches == caches) t_caches = nullptr;
  pthread_mutex_lock(&g_registryLock);
  for (int slot = 0; slot < kCacheSlots; ++slot) {
    CacheEntry &entry = caches->entries[slot];
    if (!entry.head) continue;
    if (g_slots[slot].state && g_slots[slot].generation == entry.generation) {
      Ox_ObjBufData *tail = entry.head;
      while (tail->next) tail = tail->next;
      PushShared(g_slots[slot].state, entry.head, tail, entry.count);
    }
  }
  pthread_mutex_unlock(&g_registryLock);
  std::free(caches);
}

void MakeCacheKey() {
  g_keyMade = pthread_key_create(&g_cacheKey, ReturnThreadCaches) == 0;
}

ThreadCaches *MakeThreadCaches() {
  pthread_once(&g_keyOnce, MakeCacheKey);
  if (!g_keyMade) return nullptr;
  ThreadCaches *caches =
      static_cast<ThreadCaches *>(std::calloc(1, sizeof(ThreadCaches)));
  if (!caches) return nullptr;
  if (pthread_setspecific(g_cacheKey, caches) != 0) {
    std::free(caches);
    return nullptr;
  }
  t_caches = caches;
  return caches;
}

// The calling thread's cache entry for `state`, or null when the pool has
// no slot or the cache can't be made. An entry left by an earlier owner of
// the slot is emptied without reading its items.
inline CacheEntry *CacheFor(Ox_PoolState *state) {
  if (state->slot < 0) return nullptr;
  ThreadCaches *caches = t_caches;
  if (!caches && !(caches = MakeThreadCaches())) return nullptr;
  CacheEntry *entry = &caches->entries[state->slot];
  if (entry->generation != state->generation) {
    entry->head = nullptr;
    entry->count = 0;
    entry->generation = state->generation;
  }
  return entry;
}

// Carves one more block into the shared free list. Lock held.
bool AddBlock(Ox_PoolState *state) {
  int items = state->nextBlockItems;
  size_t bytes = state->stride * static_cast<size_t>(items);
  unsigned char *block = static_cast<unsigned char *>(std::malloc(bytes));
  if (!block) return false;
  BlockSet *old = state->blocks.load(std::memory_order_relaxed);
  int oldCount = old ? old->count : 0;
  BlockSet *set = NewBlockSet(oldCount + 1);
  if (!set) {
    std::free(block);
    return false;
  }
  // Insert the new range in address order.
  uintptr_t begin = reinterpret_cast<uintptr_t>(block);
  int at = 0;
  while (at < oldCount && old->ranges[at].begin < begin) ++at;
  for (int i = 0; i < at; ++i) set->ranges[i] = old->ranges[i];
  set->ranges[at].begin = begin;
  set->ranges[at].end = begin + bytes;
  for (int i = at; i < oldCount; ++i) set->ranges[i + 1] = old->ranges[i];
  set->retired = old;
  state->blocks.store(set, std::memory_order_release);

  // Chain the items, lowest address first.
  for (int i = items - 1; i >= 0; --i) {
    Ox_ObjBufData *item =
        reinterpret_cast<Ox_ObjBufData *>(block + state->stride * i);
    item->refCount.store(0, std::memory_order_relaxed);
    item->reserved = 0;
    item->next = state->freeHead;
    state->freeHead = item;
  }
  state->freeCount += items;
  state->totalItems += items;
  if (items < state->growLimit) {
    state->nextBlockItems =
        items > state->growLimit / 2 ? state->growLimit : items * 2;
  }
  return true;
}

// Takes up to `want` items off the shared list, carving a block when it is
// empty. Returns the chain (null on failure) and its length in `got`.
Ox_ObjBufData *TakeShared(Ox_PoolState *state, int want, int *got) {
  pthread_mutex_lock(&state->lock);
  if (!state->freeHead && !AddBlock(state)) {
    pthread_mutex_unlock(&state->lock);
    *got = 0;
    return nullptr;
  }
  Ox_ObjBufData *head = state->freeHead;
  Ox_ObjBufData *tail = head;
  int n = 1;
  while (n < want && tail->next) {
    tail = tail->next;
    ++n;
  }
  state->freeHead = tail->next;
  state->freeCount -= n;
  tail->next = nullptr;
  pthread_mutex_unlock(&state->lock);
  *got = n;
  return head;
}

// Moves one batch from a long cache back to the shared list.
void SpillCache(Ox_PoolState *state, CacheEntry *entry) {
  Ox_ObjBufData *head = entry->head;
  Ox_ObjBufData *tail = head;
  for (int n = 1; n < state->batch; ++n) tail = tail->next;
  entry->head = tail->next;
  entry->count -= state->batch;
  tail->next = nullptr;
  PushShared(state, head, tail, state->batch);
}

Ox_PoolState *CreateState(int itemSize, int itemsPerBlock) {
  Ox_PoolState *state =
      static_cast<Ox_PoolState *>(std::calloc(1, sizeof(Ox_PoolState)));
  if (!state) return nullptr;
  if (pthread_mutex_init(&state->lock, nullptr) != 0) {
    std::free(state);
    return nullptr;
  }
  size_t size = itemSize > 0 ? static_cast<size_t>(itemSize) : 1;
  state->objectBytes = (size + 15) & ~static_cast<size_t>(15);
  state->stride = kHeaderBytes + state->objectBytes;
  // A block never exceeds kMaxBlockBytes; growth stops at kGrowBlockBytes
  // unless the first block is already larger.
  size_t maxItems = kMaxBlockBytes / state->stride;
  if (maxItems < 1) maxItems = 1;
  size_t first = itemsPerBlock > 0 ? static_cast<size_t>(itemsPerBlock) : 64;
  if (first > maxItems) first = maxItems;
  size_t grow = kGrowBlockBytes / state->stride;
  if (grow < first) grow = first;
  state->nextBlockItems = static_cast<int>(first);
  state->growLimit = static_cast<int>(grow);
  size_t batch = kCacheBytes / state->stride;
  state->batch = static_cast<int>(batch < 1 ? 1 : batch > kMaxBatch ? kMaxBatch
                                                                     : batch);
  state->spillAt = 2 * state->batch;
  state->blocks.store(nullptr, std::memory_order_relaxed);
  state->slot = -1;

  // Take a cache slot and a fresh generation.
  pthread_mutex_lock(&g_registryLock);
  state->generation = g_nextGeneration++;
  for (int slot = 0; slot < kCacheSlots; ++slot) {
    if (!g_slots[slot].state) {
      g_slots[slot].state = state;
      g_slots[slot].generation = state->generation;
      state->slot = slot;
      break;
    }
  }
  pthread_mutex_unlock(&g_registryLock);
  return state;
}

// Gives the slot back. Registry lock held by the caller.
void ReleaseSlot(Ox_PoolState *state) {
  if (state->slot >= 0 && g_slots[state->slot].state == state) {
    g_slots[state->slot].state = nullptr;
    g_slots[state->slot].generation = 0;
  }
  state->slot = -1;
}

// Frees the blocks, the block sets and the state itself.
void DestroyState(Ox_PoolState *state) {
  BlockSet *set = state->blocks.load(std::memory_order_relaxed);
  if (set) {
    for (int i = 0; i < set->count; ++i) {
      void *block = reinterpret_cast<void *>(set->ranges[i].begin);
      OX_POOL_UNPOISON(block, set->ranges[i].end - set->ranges[i].begin);
      std::free(block);
    }
  }
  while (set) {
    BlockSet *older = set->retired;
    std::free(set);
    set = older;
  }
  pthread_mutex_destroy(&state->lock);
  std::free(state);
}

}  // namespace

int Ox_ObjBufData::AddRef(Ox_ObjBufPool *) {
  return refCount.fetch_add(1, std::memory_order_relaxed) + 1;
}

int Ox_ObjBufData::Release(Ox_ObjBufPool *) {
  // acq_rel: the thread that sees the count fall to 0 frees the object and
  // must see every write made through the other handles.
  return refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
}

Ox_PoolState *Ox_ObjBufPool::State() const {
  Ox_PoolState *state = m_state.load(std::memory_order_acquire);
  if (state) return state;
  state = CreateState(m_itemSize, m_itemsPerBlock);
  if (!state) return nullptr;
  Ox_PoolState *expected = nullptr;
  if (!m_state.compare_exchange_strong(expected, state,
                                       std::memory_order_acq_rel,
                                       std::memory_order_acquire)) {
    // Another thread made the state first: use that one.
    pthread_mutex_lock(&g_registryLock);
    ReleaseSlot(state);
    pthread_mutex_unlock(&g_registryLock);
    DestroyState(state);
    return expected;
  }
  return state;
}

// The fast paths touch only the calling thread's cache entry for this
// pool; anything else (no state yet, no cache, empty or foreign entry, a
// cache due to give back a batch, debug checks) goes the slow way, which
// gives the same results.
Ox_ObjBufData *Ox_ObjBufPool::Alloc() {
  Ox_PoolState *state = m_state.load(std::memory_order_acquire);
  ThreadCaches *caches = t_caches;
  if (__builtin_expect(state && caches && state->slot >= 0, 1)) {
    CacheEntry *entry = &caches->entries[state->slot];
    Ox_ObjBufData *item = entry->head;
    if (__builtin_expect(item && entry->generation == state->generation, 1)) {
      entry->head = item->next;
      --entry->count;
      item->refCount.store(1, std::memory_order_relaxed);
      OX_POOL_UNPOISON(item->object(), state->objectBytes);
      return item;
    }
  }
  return AllocSlow();
}

void Ox_ObjBufPool::Free(Ox_ObjBufData *item) {
#ifdef NDEBUG
  Ox_PoolState *state = m_state.load(std::memory_order_acquire);
  ThreadCaches *caches = t_caches;
  if (__builtin_expect(item && state && caches && state->slot >= 0, 1)) {
    CacheEntry *entry = &caches->entries[state->slot];
    if (__builtin_expect(entry->generation == state->generation &&
                             entry->count < state->spillAt - 1,
                         1)) {
      item->refCount.store(0, std::memory_order_relaxed);
      OX_POOL_POISON(item->object(), state->objectBytes);
      item->next = entry->head;
      entry->head = item;
      ++entry->count;
      return;
    }
  }
#endif
  FreeSlow(item);
}

Ox_ObjBufData *Ox_ObjBufPool::AllocSlow() {
  Ox_PoolState *state = State();
  if (!state) return nullptr;
  Ox_ObjBufData *item;
  CacheEntry *entry = CacheFor(state);
  if (entry) {
    if (!entry->head) {
      int got = 0;
      entry->head = TakeShared(state, state->batch, &got);
      entry->count = got;
      if (!entry->head) return nullptr;
    }
    item = entry->head;
    entry->head = item->next;
    --entry->count;
  } else {
    int got = 0;
    item = TakeShared(state, 1, &got);
    if (!item) return nullptr;
  }
  item->refCount.store(1, std::memory_order_relaxed);
  OX_POOL_UNPOISON(item->object(), state->objectBytes);
  return item;
}

void Ox_ObjBufPool::FreeSlow(Ox_ObjBufData *item) {
  if (!item) return;
  Ox_PoolState *state = State();
  if (!state) return;
#ifndef NDEBUG
  // Debug builds refuse foreign items and poison freed ones, so that a use
  // after Free shows.
  if (!Owns(item->object())) return;
  std::memset(item->object(), 0xDD, state->objectBytes);
#endif
  item->refCount.store(0, std::memory_order_relaxed);
  OX_POOL_POISON(item->object(), state->objectBytes);
  CacheEntry *entry = CacheFor(state);
  if (entry) {
    item->next = entry->head;
    entry->head = item;
    if (++entry->count >= state->spillAt) SpillCache(state, entry);
  } else {
    PushShared(state, item, item, 1);
  }
}

int Ox_ObjBufPool::Owns(const void *object) const {
  if (!object) return 0;
  Ox_PoolState *state = m_state.load(std::memory_order_acquire);
  if (!state) return 0;
  const BlockSet *set = state->blocks.load(std::memory_order_acquire);
  if (!set) return 0;
  // Binary search for the block whose range holds the address; only the
  // ranges are read, never the memory at the address.
  uintptr_t address = reinterpret_cast<uintptr_t>(object);
  int lo = 0;
  int hi = set->count - 1;
  while (lo <= hi) {
    int mid = lo + (hi - lo) / 2;
    const BlockSet::Range &range = set->ranges[mid];
    if (address < range.begin) {
      hi = mid - 1;
    } else if (address >= range.end) {
      lo = mid + 1;
    } else {
      // Inside this block: an object starts one header behind each item.
      return (address - range.begin) % state->stride == kHeaderBytes;
    }
  }
  return 0;
}

Ox_ObjBufPool::~Ox_ObjBufPool() {
  // An atomic store: it stays, even though the object is ending.
  m_gone.store(1, std::memory_order_release);
  Ox_PoolState *state = m_state.load(std::memory_order_acquire);
  if (!state) return;
  // Leave the registry first, so that no ending thread hands items back
  // any more, then take back what this thread caches.
  pthread_mutex_lock(&g_registryLock);
  if (state->slot >= 0 && t_caches) {
    CacheEntry &entry = t_caches->entries[state->slot];
    if (entry.generation == state->generation && entry.head) {
      Ox_ObjBufData *tail = entry.head;
      while (tail->next) tail = tail->next;
      PushShared(state, entry.head, tail, entry.count);
    }
    entry.head = nullptr;
    entry.count = 0;
    entry.generation = 0;
  }
  ReleaseSlot(state);
  pthread_mutex_unlock(&g_registryLock);

  pthread_mutex_lock(&state->lock);
  bool allBack = state->freeCount == state->totalItems;
  pthread_mutex_unlock(&state->lock);
  // Items still held elsewhere (static objects that die later, other
  // threads' caches) keep the blocks: the state stays, reachable from
  // this object, and a late Free still finds its shared list.
  if (!allBack) return;
  m_state.store(nullptr, std::memory_order_release);
  DestroyState(state);
}

Ox_ListObjHandler::~Ox_ListObjHandler() {}
