// Ox_ObjList: items held by pointer, driven by a handler that is also the
// pool the owned items come from.
//
// Entries. An entry is the item's address with two flag bits in its low
// bits. An owned item (no bit) was made by this list from the handler's
// pool and holds one count on its header. A link (kLinkBit) to an item of
// the handler's pool also takes a count (kCountedBit), so that it keeps the
// item alive: an item linked into a second list outlives Delete from the
// first, and the last list to let go frees it. A link to anything else is
// stored as it is and never freed by the list.
//
// Array. The entries stand in a heap array with its capacity in one word in
// front of it, so that the list itself stays four fields wide.
#include <climits>
#include <cstdlib>
#include <cstring>
#include <new>

#include "Ox_List.h"

namespace {

uintptr_t *ArrayBase(uintptr_t *items) { return items ? items - 1 : nullptr; }

}  // namespace

Ox_ObjList::Ox_ObjList(Ox_ListObjHandler *handler, int unique)
    : m_handler(handler), m_items(nullptr), m_count(0), m_unique(unique) {}

Ox_ObjList::Ox_ObjList(const Ox_ObjList &other)
    : m_handler(other.m_handler), m_items(nullptr), m_count(0),
      m_unique(other.m_unique) {
  AppendList(other);
}

Ox_ObjList::~Ox_ObjList() { ReleaseList(); }

Ox_ObjList &Ox_ObjList::operator=(const Ox_ObjList &other) {
  AssignList(other);
  return *this;
}

int Ox_ObjList::Capacity() const {
  return m_items ? static_cast<int>(m_items[-1]) : 0;
}

// Makes room for at least `count` entries; false when impossible.
bool Ox_ObjList::Reserve(int count) {
  int capacity = Capacity();
  if (count <= capacity) return true;
  if (count < 0 || count > INT_MAX / 2 - 1) return false;
  int grown = capacity < 8 ? 8 : capacity + capacity / 2;
  if (grown < count) grown = count;
  uintptr_t *base = static_cast<uintptr_t *>(std::realloc(
      ArrayBase(m_items), sizeof(uintptr_t) * (static_cast<size_t>(grown) + 1)));
  if (!base) return false;
  base[0] = static_cast<uintptr_t>(grown);
  m_items = base + 1;
  return true;
}

// Lets go of one entry: owned items and counted links give back their
// count, and the last count frees the item.
void Ox_ObjList::DropEntry(uintptr_t entry) {
  if ((entry & kLinkBit) && !(entry & kCountedBit)) return;
  void *object = reinterpret_cast<void *>(entry & ~kEntryBits);
  // A handler that is gone (a static list outliving it at exit) is not
  // called any more; the item stays where it is.
  if (!object || !m_handler || m_handler->IsGone()) return;
  Ox_ObjBufData *header = Ox_ObjBufData::FromObject(object);
  if (header->Release(m_handler) < 1) {
    m_handler->_FreeItem(object);
    m_handler->Free(header);
  }
}

// A new owned item from the pool: default-constructed, then a deep copy of
// `source` when there is one. 0 on failure.
uintptr_t Ox_ObjList::MakeOwned(void *source) {
  if (!m_handler || m_handler->IsGone()) return 0;
  Ox_ObjBufData *header = m_handler->Alloc();
  if (!header) return 0;
  void *object = m_handler->_InitItem(header->object());
  if (!object) object = header->object();
  if (source) m_handler->_AssignItem(object, source);
  return reinterpret_cast<uintptr_t>(object);
}

// A link entry; an item of the handler's pool gets a count. 0 on failure
// (null or misaligned pointer).
uintptr_t Ox_ObjList::MakeLink(void *item) {
  uintptr_t address = reinterpret_cast<uintptr_t>(item);
  if (!item || (address & kEntryBits)) return 0;
  if (m_handler && m_handler->Owns(item)) {
    Ox_ObjBufData::FromObject(item)->AddRef(m_handler);
    return address | kLinkBit | kCountedBit;
  }
  return address | kLinkBit;
}

// Puts a made entry at `index` (0..count). On failure the entry is let go
// and -1 returned.
int Ox_ObjList::InsertEntry(int index, uintptr_t entry) {
  if (!Reserve(m_count + 1)) {
    DropEntry(entry);
    return -1;
  }
  std::memmove(m_items + index + 1, m_items + index,
               sizeof(uintptr_t) * static_cast<size_t>(m_count - index));
  m_items[index] = entry;
  ++m_count;
  return index;
}

int Ox_ObjList::Add(void *const item) {
  // A unique list gives back the index of an equal item instead of adding;
  // the item itself is the key.
  if (m_unique && item && m_handler && !m_handler->IsGone()) {
    for (int i = 0; i < m_count; ++i) {
      if (m_handler->_CompareItem(RawItem(i), item) == 0) return i;
    }
  }
  return Insert(m_count, item);
}

int Ox_ObjList::Insert(int index, void *const item) {
  if (index < 0 || index > m_count) return -1;
  uintptr_t entry = MakeOwned(item);
  if (!entry) return -1;
  return InsertEntry(index, entry);
}

int Ox_ObjList::AddLink(void *const item) { return InsertLink(m_count, item); }

int Ox_ObjList::InsertLink(int index, void *const item) {
  if (index < 0 || index > m_count) return -1;
  uintptr_t entry = MakeLink(item);
  if (!entry) return -1;
  return InsertEntry(index, entry);
}

long Ox_ObjList::Set(int index, void *const item, int grow) {
  if (index < 0) return -1;
  if (index >= m_count && (!grow || AllocItems(index + 1) != index + 1))
    return -1;
  uintptr_t entry = m_items[index];
  void *object = reinterpret_cast<void *>(entry & ~kEntryBits);
  // An owned item takes the copy in place; a link, or a null source (a
  // fresh default item), is replaced by a new owned item.
  if (item && !(entry & kLinkBit)) {
    if (m_handler->IsGone()) return -1;
    if (object != item) m_handler->_AssignItem(object, item);
    return 0;
  }
  uintptr_t made = MakeOwned(item);
  if (!made) return -1;
  m_items[index] = made;
  DropEntry(entry);
  return 0;
}

long Ox_ObjList::SetLink(int index, void *const item, int grow) {
  if (index < 0) return -1;
  if (index >= m_count && (!grow || AllocItems(index + 1) != index + 1))
    return -1;
  uintptr_t made = MakeLink(item);
  if (!made) return -1;
  // The new link is made before the old entry goes, so that linking an
  // item to the place it already holds keeps it alive.
  uintptr_t old = m_items[index];
  m_items[index] = made;
  DropEntry(old);
  return 0;
}

long Ox_ObjList::Delete(int index, int count) {
  if (index < 0 || index >= m_count || count < 0) return -1;
  if (count > m_count - index) count = m_count - index;
  for (int i = index; i < index + count; ++i) DropEntry(m_items[i]);
  std::memmove(m_items + index, m_items + index + count,
               sizeof(uintptr_t) *
                   static_cast<size_t>(m_count - index - count));
  m_count -= count;
  return 0;
}

long Ox_ObjList::Exchange(int a, int b) {
  if (a < 0 || a >= m_count || b < 0 || b >= m_count) return -1;
  uintptr_t entry = m_items[a];
  m_items[a] = m_items[b];
  m_items[b] = entry;
  return 0;
}

long Ox_ObjList::Reorder(int lo, const int *origin, int count) {
  if (count == 0) return 0;
  if (origin == nullptr || lo < 0 || count < 0 || lo > m_count - count)
    return -1;
  // The new order is built in a side array and copied back in one pass;
  // `seen` turns away an origin that names a position twice or lies
  // outside the range, before anything has moved.
  uintptr_t *ordered = new (std::nothrow) uintptr_t[count];
  unsigned char *seen = new (std::nothrow) unsigned char[count]();
  long result = ordered != nullptr && seen != nullptr ? 0 : -1;
  for (int s = 0; result == 0 && s < count; ++s) {
    const int from = origin[s];
    if (from < 0 || from >= count || seen[from] != 0) {
      result = -1;
      break;
    }
    seen[from] = 1;
    ordered[s] = m_items[lo + from];
  }
  if (result == 0)
    std::memcpy(m_items + lo, ordered,
                sizeof(uintptr_t) * static_cast<size_t>(count));
  delete[] seen;
  delete[] ordered;
  return result;
}

long Ox_ObjList::Move(int from, int to) {
  if (from < 0 || from >= m_count || to < 0 || to >= m_count) return -1;
  // The entry at `from` ends at `to`; those between close up.
  uintptr_t entry = m_items[from];
  if (from < to) {
    std::memmove(m_items + from, m_items + from + 1,
                 sizeof(uintptr_t) * static_cast<size_t>(to - from));
  } else if (from > to) {
    std::memmove(m_items + to + 1, m_items + to,
                 sizeof(uintptr_t) * static_cast<size_t>(from - to));
  }
  m_items[to] = entry;
  return 0;
}

void *Ox_ObjList::GetItem(int index) const {
  if (index < 0 || index >= m_count) return nullptr;
  return RawItem(index);
}

void *Ox_ObjList::GetSafeItem(int index, int grow) {
  if (index < 0) return nullptr;
  if (index >= m_count && (!grow || AllocItems(index + 1) != index + 1))
    return nullptr;
  return RawItem(index);
}

int Ox_ObjList::FindItem(void *const key) const {
  if (!m_handler || m_handler->IsGone()) return -1;
  for (int i = 0; i < m_count; ++i) {
    if (m_handler->_CompareItem(RawItem(i), key) == 0) return i;
  }
  return -1;
}

int Ox_ObjList::AllocItems(int count) {
  if (count < 0) return -1;
  if (count < m_count) {
    Delete(count, m_count - count);
    return m_count;
  }
  if (!Reserve(count)) return m_count;
  while (m_count < count) {
    uintptr_t entry = MakeOwned(nullptr);
    if (!entry) break;
    m_items[m_count++] = entry;
  }
  return m_count;
}

int Ox_ObjList::IsLink(int index) const {
  if (index < 0 || index >= m_count) return 0;
  return (m_items[index] & kLinkBit) ? 1 : 0;
}

void Ox_ObjList::ReleaseList() {
  // Entries are let go from the last, and the array is cleared before any
  // item's destructor runs, so an item that reaches back into this list
  // finds it empty.
  uintptr_t *items = m_items;
  int count = m_count;
  m_items = nullptr;
  m_count = 0;
  for (int i = count - 1; i >= 0; --i) DropEntry(items[i]);
  std::free(ArrayBase(items));
}

void Ox_ObjList::AssignList(const Ox_ObjList &other) {
  if (&other == this) return;
  // Copies first, then the old entries go: `other` may hold links to items
  // that only this list keeps alive.
  Ox_ObjList copy(m_handler, m_unique);
  copy.AppendList(other);
  uintptr_t *items = m_items;
  int count = m_count;
  m_items = copy.m_items;
  m_count = copy.m_count;
  copy.m_items = items;
  copy.m_count = count;
}

void Ox_ObjList::AppendList(const Ox_ObjList &other) {
  // Every entry of `other`, link or owned, becomes an owned copy here. The
  // count is taken first, so appending a list to itself doubles it once.
  int count = other.m_count;
  if (!Reserve(m_count + count)) return;
  for (int i = 0; i < count; ++i) {
    uintptr_t entry = MakeOwned(other.RawItem(i));
    if (!entry) return;
    m_items[m_count++] = entry;
  }
}
