// Shared blocks of Ox_AString, Ox_WString and Ox_Buffer.
//
// A block is one heap allocation: a header (share count, units in use,
// capacity) followed by `capacity + 1` units, the last one a spare that
// always holds a NUL so that text readers stop inside the block. The handle
// is a pointer to the first unit; null is the empty value.
//
// Copy on write goes through one function, MakeWritable: it returns a
// block that only this handle holds and that has room for the units asked
// for, copying or growing as needed. Share counts are atomic, so handles
// of one block may be copied and dropped from many threads at once; a
// handle object itself is used by one thread at a time.
#ifndef OX_STRING_INTERNAL_H
#define OX_STRING_INTERNAL_H

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <type_traits>

#include "Ox_Buffer.h"
#include "Ox_String.h"

namespace ox_block {

// Units in use, whatever the header calls the field.
inline int &Used(Ox_StrBlockHead *head) { return head->length; }
inline long &Used(Ox_BufBlockHead *head) { return head->size; }

template <class Head, class Unit>
class Block {
 public:
  using Count = typename std::remove_reference<decltype(
      Used(static_cast<Head *>(nullptr)))>::type;

  // The largest capacity a block may have: the count type must hold it,
  // and the byte size must stay far from the limits of size_t.
  static constexpr Count MaxCapacity() {
    return static_cast<Count>(
        (sizeof(Count) < sizeof(long) ? 0x7FFFFFF0L : 0x3FFFFFFFFFFFL) /
        static_cast<long>(sizeof(Unit)));
  }

  static Head *HeadOf(Unit *units) {
    return reinterpret_cast<Head *>(units) - 1;
  }

  // A new block held by one handle, with `used` units in use (their
  // content left to the caller) and a NUL behind them; null when the
  // capacity is out of range or memory runs out.
  static Unit *Allocate(Count capacity, Count used) {
    if (capacity < 0 || capacity > MaxCapacity() || used < 0 ||
        used > capacity)
      return nullptr;
    void *memory = std::malloc(BytesFor(capacity));
    if (!memory) return nullptr;
    Head *head = new (memory) Head();
    head->refCount.store(1, std::memory_order_relaxed);
    Used(head) = used;
    head->capacity = capacity;
    head->reserved = 0;
    Unit *units = reinterpret_cast<Unit *>(head + 1);
    units[used] = Unit(0);
    units[capacity] = Unit(0);
    return units;
  }

  // A new block holding a copy of `count` units of `source`.
  static Unit *Copy(const Unit *source, Count count) {
    Unit *units = Allocate(count, count);
    if (units && count > 0) std::memcpy(units, source, Bytes(count));
    return units;
  }

  static void AddRef(Unit *units) {
    if (units) HeadOf(units)->refCount.fetch_add(1, std::memory_order_relaxed);
  }

  // Drops this handle's share and nulls the handle; the last one frees.
  static void Release(Unit *&units) {
    Unit *old = units;
    units = nullptr;
    if (!old) return;
    Head *head = HeadOf(old);
    if (head->refCount.fetch_sub(1, std::memory_order_acq_rel) == 1) {
      head->~Head();
      std::free(head);
    }
  }

  // Makes `handle` point to a shared copy of `other` (self-assignment safe).
  static void Share(Unit *&handle, Unit *other) {
    if (handle == other) return;
    AddRef(other);
    Release(handle);
    handle = other;
  }

  static bool IsShared(Unit *units) {
    return units &&
           HeadOf(units)->refCount.load(std::memory_order_acquire) != 1;
  }

  // The one way to a writable block. Afterwards `handle` is held by this
  // handle alone and has room for `needed` units (and the NUL); the units
  // in use keep their content and count. When the block must grow and
  // `grow` is set, the capacity grows by half at least, so that a series
  // of appends costs amortised O(1). Returns the units, or null (handle
  // unchanged) when `needed` is out of range or memory runs out.
  static Unit *MakeWritable(Unit *&handle, Count needed, bool grow) {
    if (needed < 0 || needed > MaxCapacity()) return nullptr;
    Count used = handle ? Used(HeadOf(handle)) : 0;
    Count capacity = handle ? HeadOf(handle)->capacity : 0;
    bool shared = IsShared(handle);
    if (handle && !shared && capacity >= needed) return handle;
    Count target = needed > used ? needed : used;
    if (grow && handle && target > capacity) {
      Count half = capacity / 2;
      if (capacity <= MaxCapacity() - half && capacity + half > target)
        target = capacity + half;
    }
    if (handle && !shared) {
      // Held alone: grow in place where the allocator can.
      Head *head = HeadOf(handle);
      head->~Head();
      void *memory = std::realloc(head, BytesFor(target));
      if (!memory) {
        // The old block stands; give its header its life back.
        RestoreHead(head, used, capacity);
        return nullptr;
      }
      head = RestoreHead(memory, used, target);
      handle = reinterpret_cast<Unit *>(head + 1);
      handle[target] = Unit(0);
      return handle;
    }
    Unit *units = Allocate(target, used);
    if (!units) return nullptr;
    if (used > 0) std::memcpy(units, handle, Bytes(used));
    Release(handle);
    handle = units;
    return units;
  }

  // Gives back the slack of a block held alone: the capacity becomes the
  // units in use. Keeps the block as it is when shrinking fails.
  static void Shrink(Unit *&handle) {
    if (!handle || IsShared(handle)) return;
    Head *head = HeadOf(handle);
    Count used = Used(head);
    if (head->capacity == used) return;
    Count capacity = head->capacity;
    head->~Head();
    void *memory = std::realloc(head, BytesFor(used));
    if (!memory) {
      RestoreHead(head, used, capacity);
      return;
    }
    head = RestoreHead(memory, used, used);
    handle = reinterpret_cast<Unit *>(head + 1);
    handle[used] = Unit(0);
  }

  static size_t Bytes(Count count) {
    return static_cast<size_t>(count) * sizeof(Unit);
  }

 private:
  static size_t BytesFor(Count capacity) {
    return sizeof(Head) + Bytes(capacity) + sizeof(Unit);
  }
  // Starts the life of a header again in storage that moved, with the
  // share count of a block held alone.
  static Head *RestoreHead(void *memory, Count used, Count capacity) {
    Head *head = new (memory) Head();
    head->refCount.store(1, std::memory_order_relaxed);
    Used(head) = used;
    head->capacity = capacity;
    head->reserved = 0;
    return head;
  }
};

using AText = Block<Ox_StrBlockHead, char>;
using WText = Block<Ox_StrBlockHead, char16_t>;
using Bytes = Block<Ox_BufBlockHead, unsigned char>;

// True when `p` points into the units of block `units` (spare NUL included).
template <class Unit>
inline bool PointsInto(const void *p, const Unit *units, long capacity) {
  if (!p || !units) return false;
  const char *c = static_cast<const char *>(p);
  const char *begin = reinterpret_cast<const char *>(units);
  const char *end = reinterpret_cast<const char *>(units + capacity + 1);
  return !std::less<const char *>()(c, begin) && std::less<const char *>()(c, end);
}

}  // namespace ox_block

#endif
