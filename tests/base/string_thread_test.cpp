// Handles of one shared block copied and dropped from many threads at once.
#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

#include "Ox_Buffer.h"
#include "Ox_String.h"

namespace {

constexpr int kThreads = 4;
constexpr int kIterations = 100000;

TEST(SharedBlocks, ConcurrentCopiesAndReleases) {
  const Ox_AString text("a text shared by every thread");
  Ox_Buffer bytes;
  bytes.AppendStr("bytes shared by every thread");
  std::vector<std::thread> threads;
  std::vector<int> failures(kThreads, 0);
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < kIterations; ++i) {
        Ox_AString copy(text);
        Ox_AString other;
        other = copy;
        Ox_Buffer buffer(bytes);
        Ox_Buffer again;
        again = buffer;
        // Writing a private copy must not disturb the others.
        if (i % 64 == 0) {
          other += "!";
          again.AppendStr("!");
          if (other.GetLength() != text.GetLength() + 1) ++failures[t];
          if (again.GetSize() != bytes.GetSize() + 1) ++failures[t];
        }
        if (copy.GetString() != text.GetString()) ++failures[t];
        if (buffer.GetData() != bytes.GetData()) ++failures[t];
      }
    });
  }
  for (std::thread &th : threads) th.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(0, failures[t]);
  EXPECT_STREQ("a text shared by every thread", text.GetString());
  ASSERT_EQ(28, bytes.GetSize());
  EXPECT_EQ(0, memcmp("bytes shared by every thread", bytes.GetData(), 28));
}

TEST(SharedBlocks, LastHandleFreedOnAnotherThread) {
  // Each round hands the only other handle to a thread that drops it.
  for (int round = 0; round < 1000; ++round) {
    Ox_AString *s = new Ox_AString("round");
    Ox_AString keep(*s);
    std::thread th([s] { delete s; });
    keep += "x";
    th.join();
    ASSERT_STREQ("roundx", keep.GetString());
  }
}

TEST(SharedBlocks, ConversionsOnManyThreads) {
  // Each thread converts with its own iconv descriptors.
  std::vector<std::thread> threads;
  std::vector<int> failures(kThreads, 0);
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < 2000; ++i) {
        Ox_AString s;
        if (s.ConvertCodePageFrom(65001, "\xEA\xB0\x80", -1, 949) != 2 ||
            strcmp(s.GetString(), "\xB0\xA1") != 0)
          ++failures[t];
        if (s.ConvertCodePageFrom(932, "\x82\xA0", -1, 65001) != 3) ++failures[t];
      }
    });
  }
  for (std::thread &th : threads) th.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(0, failures[t]);
}

}  // namespace
