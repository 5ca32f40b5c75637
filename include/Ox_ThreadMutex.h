// Ox_ThreadMutex: a plain, non-recursive mutex. Locks are held for a few
// instructions only.
#ifndef OX_THREADMUTEX_H
#define OX_THREADMUTEX_H

#include <pthread.h>

#include "Ox_Export.h"

class OX_API Ox_ThreadMutex {
 public:
  Ox_ThreadMutex();
  ~Ox_ThreadMutex();
  Ox_ThreadMutex(const Ox_ThreadMutex &) = delete;
  Ox_ThreadMutex &operator=(const Ox_ThreadMutex &) = delete;
  void Lock();
  void Unlock();

 private:
  pthread_mutex_t m_mutex;
};

#endif
