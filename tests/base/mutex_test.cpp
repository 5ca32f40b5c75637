// Ox_ThreadMutex.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "Ox_ThreadMutex.h"

namespace {

TEST(ThreadMutex, SerialisesACounter) {
  Ox_ThreadMutex mutex;
  long counter = 0;  // guarded by mutex, deliberately not atomic
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&] {
      for (int i = 0; i < 20000; ++i) {
        mutex.Lock();
        ++counter;
        mutex.Unlock();
      }
    });
  }
  for (std::thread &thread : threads) thread.join();
  EXPECT_EQ(counter, 80000);
}

TEST(ThreadMutex, LockAgainAfterUnlock) {
  Ox_ThreadMutex mutex;
  mutex.Lock();
  mutex.Unlock();
  mutex.Lock();  // would hang if the first Unlock had not released it
  mutex.Unlock();
  SUCCEED();
}

}  // namespace
