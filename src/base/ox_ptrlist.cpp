// Ox_PtrList: a growing array of pointers.
#include "Ox_List.h"
#include "base/ox_listarray_internal.h"

using namespace ox_listarray;

Ox_PtrList::Ox_PtrList() : m_items(nullptr), m_count(0), m_capacity(0) {}

Ox_PtrList::Ox_PtrList(const Ox_PtrList &other)
    : m_items(nullptr), m_count(0), m_capacity(0) {
  AppendList(other);
}

Ox_PtrList::~Ox_PtrList() { std::free(m_items); }

Ox_PtrList &Ox_PtrList::operator=(const Ox_PtrList &other) {
  AssignList(other);
  return *this;
}

int Ox_PtrList::Add(void *item) { return Insert(m_count, item); }

int Ox_PtrList::Insert(int index, void *item) {
  if (!OpenGap(m_items, m_count, m_capacity, index, 1)) return -1;
  m_items[index] = item;
  return index;
}

long Ox_PtrList::Set(int index, void *item) {
  if (index < 0 || index >= m_count) return -1;
  m_items[index] = item;
  return 0;
}

long Ox_PtrList::Delete(int index, int count) {
  return CloseGap(m_items, m_count, index, count) ? 0 : -1;
}

long Ox_PtrList::Exchange(int a, int b) {
  if (a < 0 || a >= m_count || b < 0 || b >= m_count) return -1;
  void *item = m_items[a];
  m_items[a] = m_items[b];
  m_items[b] = item;
  return 0;
}

long Ox_PtrList::Move(int from, int to) {
  if (from < 0 || from >= m_count || to < 0 || to >= m_count) return -1;
  MoveItem(m_items, from, to);
  return 0;
}

void Ox_PtrList::Clear() {
  std::free(m_items);
  m_items = nullptr;
  m_count = 0;
  m_capacity = 0;
}

void *Ox_PtrList::GetItem(int index) const {
  if (index < 0 || index >= m_count) return nullptr;
  return m_items[index];
}

int Ox_PtrList::IndexOf(void *item) const {
  for (int i = 0; i < m_count; ++i) {
    if (m_items[i] == item) return i;
  }
  return -1;
}

void **Ox_PtrList::GetBuffer(int count) {
  return Resize(m_items, m_count, m_capacity, count);
}

void Ox_PtrList::AssignList(const Ox_PtrList &other) {
  if (&other == this) return;
  m_count = 0;
  AppendList(other);
}

void Ox_PtrList::AppendList(const Ox_PtrList &other) {
  int count = other.m_count;
  int at = m_count;
  if (count == 0 || !OpenGap(m_items, m_count, m_capacity, at, count)) return;
  // `other` may be this list: its array is read after the growth.
  std::memcpy(m_items + at, other.m_items,
              sizeof(void *) * static_cast<size_t>(count));
}
