// Lists and pools of the base layer.
//
// Ox_PtrList and Ox_IntList are growing arrays. Ox_ObjList holds items by
// pointer and Ox_ObjBufList holds them by value in one block; both are driven
// by an Ox_ListObjHandler, which is at once the pool the items come from and
// the table of item operations. Every typed list of the library is a thin
// subclass of one of these.
//
// Indices are int and start at 0. An index out of range gives a null
// pointer, -1 or a non-zero status, never a fault.
#ifndef OX_LIST_H
#define OX_LIST_H

#include <atomic>

#include "Ox_Export.h"
#include "Ox_String.h"

class OX_API Ox_PtrList {
 public:
  Ox_PtrList();
  Ox_PtrList(const Ox_PtrList &other);
  ~Ox_PtrList();
  Ox_PtrList &operator=(const Ox_PtrList &other);

  int Add(void *item);                 // returns the index
  int Insert(int index, void *item);   // returns the index
  long Set(int index, void *item);     // 0 when done
  long Delete(int index, int count = 1);
  long Exchange(int a, int b);
  long Move(int from, int to);         // the item at `from` ends at `to`
  void Clear();
  int Count() const { return m_count; }
  void *GetItem(int index) const;      // null out of range
  void *Items(int index) const { return m_items[index]; }  // unchecked
  int IndexOf(void *item) const;       // -1 when absent

 protected:
  // The raw array after resizing it to `count` (-1: no change).
  void **GetBuffer(int count);
  void AssignList(const Ox_PtrList &other);
  void AppendList(const Ox_PtrList &other);

 private:
  void **m_items;
  int m_count;
  int m_capacity;
};

class OX_API Ox_IntList {
 public:
  Ox_IntList();
  Ox_IntList(const Ox_IntList &other);
  ~Ox_IntList();
  Ox_IntList &operator=(const Ox_IntList &other);

  int Add(int value);                           // returns the position
  int Add2(int first, int second);              // position of the first
  int Insert(int index, int value);
  int Insert2(int index, int first, int second);
  long Set(int index, int value);               // 0 when done
  long Delete(int index, int count = 1);
  void Clear();
  int Count() const { return m_count; }         // integers, not pairs
  int GetItem(int index) const;                 // checked: 0 out of range
  int Items(int index) const { return m_items[index]; }  // unchecked
  void Reset(int count);               // 0, 1, ..., count-1
  void Reset2(int count, int value);   // pairs (i, value)

 protected:
  int *GetBuffer(int count);           // -1: no change
  void AssignList(const Ox_IntList &other);

 private:
  int *m_items;
  int m_count;
  int m_capacity;
};

class Ox_ObjBufPool;

// Header of one pool item. It stands immediately in front of the object,
// so that an object's address minus the header size leads back to it.
class OX_API Ox_ObjBufData {
 public:
  void *object() { return this + 1; }
  const void *object() const { return this + 1; }
  static Ox_ObjBufData *FromObject(const void *object) {
    return const_cast<Ox_ObjBufData *>(
        reinterpret_cast<const Ox_ObjBufData *>(object) - 1);
  }
  int AddRef(Ox_ObjBufPool *pool);   // returns the new count
  int Release(Ox_ObjBufPool *pool);  // returns the new count; frees nothing

  std::atomic<int> refCount;  // 1 for a new item
  int reserved;
  Ox_ObjBufData *next;        // free-list link while the item is free
};

struct Ox_PoolState;

// A named pool of fixed-size items, taken from blocks. Safe from any
// thread without a lock held by the caller. Pools are process-wide statics;
// the constructor only records its arguments, so a static pool is usable
// however the static constructors of the library are ordered.
class OX_API Ox_ObjBufPool {
 public:
  constexpr Ox_ObjBufPool(const char *name, int itemSize, int itemsPerBlock)
      : m_name(name), m_itemSize(itemSize), m_itemsPerBlock(itemsPerBlock),
        m_state(nullptr), m_gone(0) {}
  ~Ox_ObjBufPool();
  Ox_ObjBufPool(const Ox_ObjBufPool &) = delete;
  Ox_ObjBufPool &operator=(const Ox_ObjBufPool &) = delete;

  Ox_ObjBufData *Alloc();          // a new item with the count 1
  void Free(Ox_ObjBufData *item);  // back to the pool

  // Non-zero when `object` is the object of an item of this pool.
  int Owns(const void *object) const;
  // Non-zero once the destructor has run. Static pools die at exit while
  // static lists in other files may still hold items; those lists then
  // leave their items alone instead of calling into a dead handler.
  int IsGone() const { return m_gone.load(std::memory_order_acquire); }
  const char *GetName() const { return m_name; }
  int GetItemSize() const { return m_itemSize; }

 private:
  Ox_PoolState *State() const;
  // The paths that take the shared list's lock, make the state, or check
  // and poison items in debug builds; Alloc and Free inline the rest.
  Ox_ObjBufData *AllocSlow();
  void FreeSlow(Ox_ObjBufData *item);
  const char *m_name;
  int m_itemSize;
  int m_itemsPerBlock;
  mutable std::atomic<Ox_PoolState *> m_state;
  std::atomic<int> m_gone;
};

// Tells a list how to treat its items; also the pool they come from.
class OX_API Ox_ListObjHandler : public Ox_ObjBufPool {
 public:
  constexpr Ox_ListObjHandler(const char *name, int itemSize,
                              int itemsPerBlock)
      : Ox_ObjBufPool(name, itemSize, itemsPerBlock) {}

  // Slot 0: construct an item in raw memory; returns it.
  virtual void *_InitItem(void *item) = 0;
  // Slot 1: destroy the item; the memory stays with the pool.
  virtual void _FreeItem(void *item) = 0;
  // Slot 2: deep copy of source into an already constructed target.
  virtual void _AssignItem(void *target, void *source) = 0;
  // Slot 3: 0 when the item matches the key.
  virtual int _CompareItem(void *item, void *key) = 0;

  virtual ~Ox_ListObjHandler();
};

// A list of items held by pointer. An owned item is a copy taken from the
// handler's pool; a link is a pointer stored as it is. Every entry that
// refers to an item of the handler's pool holds one count on it, so an item
// linked into a second list stays alive until the last list lets go of it.
// A link to an item from elsewhere is never freed by the list.
class OX_API Ox_ObjList {
 public:
  explicit Ox_ObjList(Ox_ListObjHandler *handler, int unique = 0);
  Ox_ObjList(const Ox_ObjList &other);  // owned copies of the items
  ~Ox_ObjList();
  // Deep copy, as AssignList; the handler and the unique flag stay.
  Ox_ObjList &operator=(const Ox_ObjList &other);

  int Add(void *const item);                 // copy; null: default item
  int Insert(int index, void *const item);
  int AddLink(void *const item);             // the pointer itself
  int InsertLink(int index, void *const item);
  long Set(int index, void *const item, int grow = 0);
  long SetLink(int index, void *const item, int grow = 0);
  long Delete(int index, int count = 1);
  long Exchange(int a, int b);
  long Move(int from, int to);
  // Puts the entries lo .. lo + count - 1 into the order `origin` gives:
  // position lo + s receives the entry that stood at lo + origin[s]. Each
  // entry moves whole, owned or link. -1, and nothing moves, when the
  // range is outside the list or `origin` is not a permutation of
  // 0 .. count - 1.
  long Reorder(int lo, const int *origin, int count);
  void *GetItem(int index) const;
  void *GetSafeItem(int index, int grow = 0);
  int FindItem(void *const key) const;
  int AllocItems(int count);
  int Count() const { return m_count; }
  Ox_ListObjHandler *GetHandler() const { return m_handler; }
  // The unique flag given to the constructor.
  int IsUnique() const { return m_unique; }
  // Non-zero when the entry at `index` is a link.
  int IsLink(int index) const;

 protected:
  void ReleaseList();
  void AssignList(const Ox_ObjList &other);
  void AppendList(const Ox_ObjList &other);
  // Unchecked read for subclasses on hot paths.
  void *RawItem(int index) const {
    return reinterpret_cast<void *>(m_items[index] & ~kEntryBits);
  }

 private:
  // An entry is the item's address with two flag bits in its low bits
  // (items are at least 4-byte aligned). An owned item has neither bit.
  static constexpr uintptr_t kLinkBit = 1;     // entry is a link
  static constexpr uintptr_t kCountedBit = 2;  // the link holds a pool count
  static constexpr uintptr_t kEntryBits = kLinkBit | kCountedBit;
  bool Reserve(int count);
  void DropEntry(uintptr_t entry);
  uintptr_t MakeOwned(void *source);
  uintptr_t MakeLink(void *item);
  int InsertEntry(int index, uintptr_t entry);
  int Capacity() const;

  // Four fields, 24 bytes: an Ox_VariantList is held in place inside an
  // Ox_Variant, whose value area is 24 bytes. The capacity of the entry
  // array stands in a small header in front of it.
  Ox_ListObjHandler *m_handler;
  uintptr_t *m_items;
  int m_count;
  int m_unique;
};

// A list of items held by value in one contiguous block. Items are built in
// place and the block may move: a pointer to an item is good only until the
// next growth.
class OX_API Ox_ObjBufList {
 public:
  Ox_ObjBufList(Ox_ListObjHandler *handler, int itemSize);
  Ox_ObjBufList(const Ox_ObjBufList &other);
  ~Ox_ObjBufList();
  // Deep copy, as AssignList.
  Ox_ObjBufList &operator=(const Ox_ObjBufList &other);

  int Add(void *const item);               // copy; null: default item
  int Insert(int index, void *const item);
  long Set(int index, void *const item, int grow = 0);
  long Delete(int index, int count = 1);
  void *GetItem(int index) const;
  void *GetSafeItem(int index, int grow = 0);
  int AllocItems(int count);
  int Count() const;

 protected:
  void ReleaseList();
  void AssignList(const Ox_ObjBufList &other);
  void AppendList(const Ox_ObjBufList &other);
  void *RawItem(int index) const { return m_block + index * m_itemSize; }

 private:
  bool Reserve(int count);
  void *Slot(int index) const;  // address of the item at `index`

  // Items move by memmove when the block grows and on Insert and Delete:
  // they must be trivially relocatable (no pointers into themselves).
  Ox_ListObjHandler *m_handler;
  unsigned char *m_block;  // count and capacity stand in front of it
  int m_itemSize;
};

// A list of Ox_AString. Constructed with an int, always 0 here.
class OX_API Ox_AStrList : public Ox_ObjList {
 public:
  explicit Ox_AStrList(int unique = 0);
  Ox_AStrList(const Ox_AStrList &other);
  ~Ox_AStrList();
  Ox_AStrList &operator=(const Ox_AStrList &other);

  int Add(const char *text);            // returns the index
  int Add(const Ox_AString &text);
  int Append(const Ox_AStrList *other);  // copies; returns the count
  int Find(const char *text) const;      // exact; -1 when absent
  Ox_AString *GetItem(int index) const;  // null out of range
  const Ox_AString &GetItemNN(int index) const;  // empty out of range
  Ox_AString *GetSafeItem(int index);    // null out of range
  void Clear() { ReleaseList(); }
  // Splits `text` into items; empties the list first; returns the count.
  int Parse(const char *text, const char *delimiters, char escape, int trim,
            int quotes, int unquote, int keepEmpty, int reserved);
};

#if defined(__x86_64__) || defined(_M_X64)
// An Ox_VariantList is held in place in the 24-byte value area of an
// Ox_Variant; a row's cell list must fit there as well.
static_assert(sizeof(Ox_ObjList) == 24, "Ox_ObjList must stay 24 bytes");
static_assert(sizeof(Ox_ObjBufList) <= 24, "Ox_ObjBufList must fit 24 bytes");
static_assert(sizeof(Ox_AStrList) == 24, "Ox_AStrList adds no field");
#endif

#endif
