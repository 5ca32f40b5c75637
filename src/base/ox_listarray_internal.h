// Growing arrays of plain values, shared by Ox_PtrList and Ox_IntList.
#ifndef OX_LISTARRAY_INTERNAL_H
#define OX_LISTARRAY_INTERNAL_H

#include <climits>
#include <cstdlib>
#include <cstring>

namespace ox_listarray {

// Makes room for `count` values in `items` (capacity in `capacity`), by
// half again at least; false when impossible. New room is not cleared.
template <typename T>
bool Reserve(T *&items, int &capacity, int count) {
  if (count <= capacity) return true;
  if (count < 0 || static_cast<size_t>(count) > INT_MAX / sizeof(T))
    return false;
  int grown = capacity < 8 ? 8 : capacity + capacity / 2;
  if (grown < count || static_cast<size_t>(grown) > INT_MAX / sizeof(T))
    grown = count;
  T *moved = static_cast<T *>(
      std::realloc(items, sizeof(T) * static_cast<size_t>(grown)));
  if (!moved) return false;
  items = moved;
  capacity = grown;
  return true;
}

// Opens a gap of `width` values at `index` (0..count); the count grows.
template <typename T>
bool OpenGap(T *&items, int &count, int &capacity, int index, int width) {
  if (index < 0 || index > count || width < 0 || count > INT_MAX - width)
    return false;
  if (!Reserve(items, capacity, count + width)) return false;
  std::memmove(items + index + width, items + index,
               sizeof(T) * static_cast<size_t>(count - index));
  count += width;
  return true;
}

// Removes `width` values at `index`, clamped to the end; false when the
// index is out of range or the width negative.
template <typename T>
bool CloseGap(T *items, int &count, int index, int width) {
  if (index < 0 || index >= count || width < 0) return false;
  if (width > count - index) width = count - index;
  std::memmove(items + index, items + index + width,
               sizeof(T) * static_cast<size_t>(count - index - width));
  count -= width;
  return true;
}

// Moves the value at `from` to `to`; those between close up.
template <typename T>
void MoveItem(T *items, int from, int to) {
  T value = items[from];
  if (from < to) {
    std::memmove(items + from, items + from + 1,
                 sizeof(T) * static_cast<size_t>(to - from));
  } else if (from > to) {
    std::memmove(items + to + 1, items + to,
                 sizeof(T) * static_cast<size_t>(from - to));
  }
  items[to] = value;
}

// Resizes to `count` values (-1: no change), clearing new room.
template <typename T>
T *Resize(T *&items, int &count, int &capacity, int wanted) {
  if (wanted < 0) return items;
  if (!Reserve(items, capacity, wanted)) return nullptr;
  if (wanted > count)
    std::memset(static_cast<void *>(items + count), 0,
                sizeof(T) * static_cast<size_t>(wanted - count));
  count = wanted;
  return items;
}

}  // namespace ox_listarray

#endif
