// Ox_ObjBufList: items held by value in one heap block, so that a row's
// cells cost one allocation.
//
// The block starts with a 16-byte header (count and capacity, in items);
// m_block points behind it, at the first item, and keeps 16-byte alignment.
// Items are built in place with the handler's _InitItem, copied with
// _AssignItem and destroyed with _FreeItem. When the block grows, and on
// Insert and Delete, items move with memmove: they must be trivially
// relocatable, which the system's item types are (their strings and
// buffers are one pointer, with nothing pointing back into the item).
#include <climits>
#include <cstdlib>
#include <cstring>

#include "Ox_List.h"

namespace {

struct BlockHead {
  int count;
  int capacity;
  int reserved[2];  // keeps the items 16-byte aligned
};
static_assert(sizeof(BlockHead) == 16, "block header is 16 bytes");

BlockHead *HeadOf(unsigned char *block) {
  return block ? reinterpret_cast<BlockHead *>(block) - 1 : nullptr;
}

}  // namespace

Ox_ObjBufList::Ox_ObjBufList(Ox_ListObjHandler *handler, int itemSize)
    : m_handler(handler), m_block(nullptr),
      m_itemSize(itemSize > 0 ? itemSize : 0) {}

Ox_ObjBufList::Ox_ObjBufList(const Ox_ObjBufList &other)
    : m_handler(other.m_handler), m_block(nullptr),
      m_itemSize(other.m_itemSize) {
  AppendList(other);
}

Ox_ObjBufList::~Ox_ObjBufList() { ReleaseList(); }

Ox_ObjBufList &Ox_ObjBufList::operator=(const Ox_ObjBufList &other) {
  AssignList(other);
  return *this;
}

int Ox_ObjBufList::Count() const { return m_block ? HeadOf(m_block)->count : 0; }

void *Ox_ObjBufList::Slot(int index) const {
  return m_block + static_cast<size_t>(index) * static_cast<size_t>(m_itemSize);
}

// Makes room for at least `count` items; false when impossible.
bool Ox_ObjBufList::Reserve(int count) {
  if (m_itemSize <= 0 || !m_handler || m_handler->IsGone() || count < 0)
    return false;
  BlockHead *head = HeadOf(m_block);
  int capacity = head ? head->capacity : 0;
  if (count <= capacity) return true;
  int grown = capacity < 4 ? 4 : capacity + capacity / 2;
  if (grown < count) grown = count;
  size_t bytes = static_cast<size_t>(grown) * static_cast<size_t>(m_itemSize);
  if (bytes / static_cast<size_t>(m_itemSize) != static_cast<size_t>(grown) ||
      bytes > static_cast<size_t>(INT_MAX))
    return false;
  BlockHead *grownHead = static_cast<BlockHead *>(
      std::realloc(head, sizeof(BlockHead) + bytes));
  if (!grownHead) return false;
  if (!head) grownHead->count = 0;
  grownHead->capacity = grown;
  m_block = reinterpret_cast<unsigned char *>(grownHead + 1);
  return true;
}

int Ox_ObjBufList::Add(void *const item) { return Insert(Count(), item); }

int Ox_ObjBufList::Insert(int index, void *const item) {
  int count = Count();
  if (index < 0 || index > count) return -1;
  // The source may be an item of this very list: remember it by index, as
  // the block may move and the items behind `index` shift.
  int sourceIndex = -1;
  if (item && m_block && item >= Slot(0) && item < Slot(count)) {
    sourceIndex = static_cast<int>(
        (static_cast<unsigned char *>(item) - m_block) / m_itemSize);
    if (sourceIndex >= index) ++sourceIndex;
  }
  if (!Reserve(count + 1)) return -1;
  std::memmove(Slot(index + 1), Slot(index),
               static_cast<size_t>(count - index) *
                   static_cast<size_t>(m_itemSize));
  ++HeadOf(m_block)->count;
  void *target = Slot(index);
  m_handler->_InitItem(target);
  if (item) {
    m_handler->_AssignItem(target,
                           sourceIndex >= 0 ? Slot(sourceIndex) : item);
  }
  return index;
}

long Ox_ObjBufList::Set(int index, void *const item, int grow) {
  if (index < 0 || !m_handler || m_handler->IsGone()) return -1;
  if (index >= Count()) {
    // Growing would move the block under an item taken from it: copy the
    // source first.
    if (!grow) return -1;
    if (item && m_block && item >= Slot(0) && item < Slot(Count())) {
      Ox_ObjBufList keep(m_handler, m_itemSize);
      if (keep.Add(item) != 0 || AllocItems(index + 1) != index + 1) return -1;
      m_handler->_AssignItem(Slot(index), keep.Slot(0));
      return 0;
    }
    if (AllocItems(index + 1) != index + 1) return -1;
  }
  void *target = Slot(index);
  if (!item) {
    // A null source makes the item a default one again.
    m_handler->_FreeItem(target);
    m_handler->_InitItem(target);
  } else if (item != target) {
    m_handler->_AssignItem(target, item);
  }
  return 0;
}

long Ox_ObjBufList::Delete(int index, int count) {
  int total = Count();
  if (index < 0 || index >= total || count < 0) return -1;
  if (count > total - index) count = total - index;
  if (!m_handler->IsGone()) {
    for (int i = index; i < index + count; ++i) m_handler->_FreeItem(Slot(i));
  }
  std::memmove(Slot(index), Slot(index + count),
               static_cast<size_t>(total - index - count) *
                   static_cast<size_t>(m_itemSize));
  HeadOf(m_block)->count = total - count;
  return 0;
}

void *Ox_ObjBufList::GetItem(int index) const {
  if (index < 0 || index >= Count()) return nullptr;
  return Slot(index);
}

void *Ox_ObjBufList::GetSafeItem(int index, int grow) {
  if (index < 0) return nullptr;
  if (index >= Count() && (!grow || AllocItems(index + 1) != index + 1))
    return nullptr;
  return Slot(index);
}

int Ox_ObjBufList::AllocItems(int count) {
  if (count < 0) return -1;
  int total = Count();
  if (count < total) {
    Delete(count, total - count);
    return Count();
  }
  if (count == total) return total;
  if (!Reserve(count)) return total;
  for (int i = total; i < count; ++i) m_handler->_InitItem(Slot(i));
  HeadOf(m_block)->count = count;
  return count;
}

void Ox_ObjBufList::ReleaseList() {
  // The block is detached before the items are destroyed, so that an item
  // that reaches back into this list finds it empty.
  unsigned char *block = m_block;
  m_block = nullptr;
  if (!block) return;
  BlockHead *head = HeadOf(block);
  // A handler that is gone (a static list outliving it at exit) is not
  // called any more; only the block goes.
  for (int i = 0; i < head->count && !m_handler->IsGone(); ++i) {
    m_handler->_FreeItem(block + static_cast<size_t>(i) *
                                     static_cast<size_t>(m_itemSize));
  }
  std::free(head);
}

void Ox_ObjBufList::AssignList(const Ox_ObjBufList &other) {
  if (&other == this) return;
  ReleaseList();
  AppendList(other);
}

void Ox_ObjBufList::AppendList(const Ox_ObjBufList &other) {
  // Items of a list with another item size can't be copied by value.
  if (other.m_itemSize != m_itemSize) return;
  int count = other.Count();
  int total = Count();
  if (count == 0 || !Reserve(total + count)) return;
  // Reserve first: when `other` is this list, its block may have moved.
  for (int i = 0; i < count; ++i) {
    void *target = Slot(total + i);
    m_handler->_InitItem(target);
    m_handler->_AssignItem(target, other.Slot(i));
    HeadOf(m_block)->count = total + i + 1;
  }
}
