// Ox_IntList: a growing array of integers, also used as an array of pairs
// (pair n at positions 2n and 2n+1).
#include "Ox_List.h"
#include "base/ox_listarray_internal.h"

using namespace ox_listarray;

Ox_IntList::Ox_IntList() : m_items(nullptr), m_count(0), m_capacity(0) {}

Ox_IntList::Ox_IntList(const Ox_IntList &other)
    : m_items(nullptr), m_count(0), m_capacity(0) {
  AssignList(other);
}

Ox_IntList::~Ox_IntList() { std::free(m_items); }

Ox_IntList &Ox_IntList::operator=(const Ox_IntList &other) {
  AssignList(other);
  return *this;
}

int Ox_IntList::Add(int value) { return Insert(m_count, value); }

int Ox_IntList::Add2(int first, int second) {
  return Insert2(m_count, first, second);
}

int Ox_IntList::Insert(int index, int value) {
  if (!OpenGap(m_items, m_count, m_capacity, index, 1)) return -1;
  m_items[index] = value;
  return index;
}

int Ox_IntList::Insert2(int index, int first, int second) {
  if (!OpenGap(m_items, m_count, m_capacity, index, 2)) return -1;
  m_items[index] = first;
  m_items[index + 1] = second;
  return index;
}

long Ox_IntList::Set(int index, int value) {
  if (index < 0 || index >= m_count) return -1;
  m_items[index] = value;
  return 0;
}

long Ox_IntList::Delete(int index, int count) {
  return CloseGap(m_items, m_count, index, count) ? 0 : -1;
}

void Ox_IntList::Clear() {
  std::free(m_items);
  m_items = nullptr;
  m_count = 0;
  m_capacity = 0;
}

int Ox_IntList::GetItem(int index) const {
  if (index < 0 || index >= m_count) return 0;
  return m_items[index];
}

void Ox_IntList::Reset(int count) {
  if (count < 0) count = 0;
  if (!Resize(m_items, m_count, m_capacity, count)) return;
  for (int i = 0; i < count; ++i) m_items[i] = i;
}

void Ox_IntList::Reset2(int count, int value) {
  if (count < 0 || count > INT_MAX / 2) count = 0;
  if (!Resize(m_items, m_count, m_capacity, count * 2)) return;
  for (int i = 0; i < count; ++i) {
    m_items[2 * i] = i;
    m_items[2 * i + 1] = value;
  }
}

int *Ox_IntList::GetBuffer(int count) {
  return Resize(m_items, m_count, m_capacity, count);
}

void Ox_IntList::AssignList(const Ox_IntList &other) {
  if (&other == this) return;
  m_count = 0;
  if (other.m_count == 0 ||
      !Reserve(m_items, m_capacity, other.m_count))
    return;
  std::memcpy(m_items, other.m_items,
              sizeof(int) * static_cast<size_t>(other.m_count));
  m_count = other.m_count;
}
