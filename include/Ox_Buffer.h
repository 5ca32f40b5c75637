// Ox_Buffer: bytes, one pointer wide, with the same shared block and copy on
// write as Ox_AString. A null pointer is the empty buffer.
#ifndef OX_BUFFER_H
#define OX_BUFFER_H

#include <atomic>

#include "Ox_Export.h"
#include "Ox_String.h"

// Header in front of the bytes of a shared buffer block.
struct Ox_BufBlockHead {
  std::atomic<long> refCount;  // handles sharing the block
  long size;                   // bytes in use
  long capacity;               // bytes that fit
  long reserved;               // keeps the bytes 16-byte aligned
};

class OX_API Ox_Buffer {
 public:
  constexpr Ox_Buffer() : m_data(nullptr) {}
  Ox_Buffer(const Ox_Buffer &other);
  ~Ox_Buffer();
  Ox_Buffer &operator=(const Ox_Buffer &other);

  void Set(const Ox_Buffer &other);
  void Set(const unsigned char *data, long size);
  // Both return the new size (a null or empty piece leaves it as it is),
  // or -1 when memory runs out.
  long Append(const unsigned char *data, long size);
  long AppendStr(const char *text);  // without the NUL

  // Unshares, sets the size (-1 keeps it) and returns a writable pointer;
  // null when memory runs out.
  unsigned char *GetSafeBuffer(long size);
  // Grow by `count` bytes or set the size; the old content stays in front,
  // new bytes are 0, and the block may move. Both return the resulting
  // size, or -1 (size unchanged) for a negative size or when memory runs
  // out. A negative `count` shrinks, down to 0.
  long AddSize(long count);
  long SetSize(long size);
  // Drops the block; the buffer is empty afterwards.
  void Release();

  Ox_AString EncodeBase64() const;

  long GetSize() const { return m_data ? Head()->size : 0; }
  const unsigned char *GetData() const { return m_data; }

 private:
  Ox_BufBlockHead *Head() const {
    return reinterpret_cast<Ox_BufBlockHead *>(m_data) - 1;
  }
  unsigned char *m_data;
};

#endif
