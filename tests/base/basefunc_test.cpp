// Free functions of the base layer.
#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <limits>

#include "Ox_BaseFunc.h"

namespace {

TEST(BaseFunc, MallocAndFree) {
  char *p = static_cast<char *>(_ox_malloc(16));
  ASSERT_NE(nullptr, p);
  memset(p, 'x', 16);
  ox_free(p);
  void *zero = _ox_malloc(0);
  ox_free(zero);
  EXPECT_EQ(nullptr, _ox_malloc(-1));
  ox_free(nullptr);
}

TEST(BaseFunc, StricmpA) {
  EXPECT_EQ(0, ox_stricmpA("Hello", "hELLO"));
  EXPECT_EQ(0, ox_stricmpA("", ""));
  EXPECT_EQ(0, ox_stricmpA(nullptr, ""));
  EXPECT_EQ(0, ox_stricmpA(nullptr, nullptr));
  EXPECT_LT(ox_stricmpA("abc", "ABD"), 0);
  EXPECT_GT(ox_stricmpA("abd", "ABC"), 0);
  EXPECT_LT(ox_stricmpA("ab", "abc"), 0);
  EXPECT_GT(ox_stricmpA("a", nullptr), 0);
  // Only ASCII letters fold: bytes of other code pages compare as they are.
  EXPECT_NE(0, ox_stricmpA("\xC9", "\xE9"));
}

TEST(BaseFunc, StrnicmpA) {
  EXPECT_EQ(0, ox_strnicmpA("HelloX", "helloY", 5));
  EXPECT_NE(0, ox_strnicmpA("HelloX", "helloY", 6));
  EXPECT_EQ(0, ox_strnicmpA("abc", "xyz", 0));
  EXPECT_EQ(0, ox_strnicmpA("ab", "AB", 10));  // both end within the count
  EXPECT_LT(ox_strnicmpA("ab", "abc", 10), 0);
  EXPECT_EQ(0, ox_strnicmpA(nullptr, "", 3));
}

TEST(BaseFunc, StristrA) {
  const char *text = "The Quick Brown";
  EXPECT_EQ(text + 4, ox_stristrA(text, "qUICK"));
  EXPECT_EQ(text, ox_stristrA(text, "the"));
  EXPECT_EQ(nullptr, ox_stristrA(text, "fox"));
  EXPECT_EQ(text, ox_stristrA(text, ""));
  EXPECT_EQ(nullptr, ox_stristrA(nullptr, "a"));
  EXPECT_EQ(nullptr, ox_stristrA("ab", "abc"));
}

TEST(BaseFunc, StrpbrkAndStrrchr) {
  const char *text = "key=value;next";
  EXPECT_EQ(text + 3, ox_strpbrkA(text, ";="));
  EXPECT_EQ(nullptr, ox_strpbrkA(text, "#"));
  EXPECT_EQ(nullptr, ox_strpbrkA(nullptr, "#"));
  EXPECT_EQ(nullptr, ox_strpbrkA(text, nullptr));
  const char *path = "a/b/c";
  EXPECT_EQ(path + 3, ox_strrchrA(path, '/'));
  EXPECT_EQ(nullptr, ox_strrchrA(path, '\\'));
  EXPECT_EQ(nullptr, ox_strrchrA(nullptr, '/'));
}

TEST(BaseFunc, StrlwrA) {
  char text[] = "MiXeD 123 \xC9";
  ox_strlwrA(text);
  EXPECT_STREQ("mixed 123 \xC9", text);
  ox_strlwrA(nullptr);
}

TEST(BaseFunc, FindSkip) {
  EXPECT_EQ(3, ox_findskipA(" \t\nabc  ", 8));
  EXPECT_EQ(2, ox_findrskipA(" \t\nabc  ", 8));
  EXPECT_EQ(0, ox_findskipA("abc", 3));
  EXPECT_EQ(0, ox_findrskipA("abc", 3));
  // Only the first `length` characters count.
  EXPECT_EQ(2, ox_findskipA("  abc", 2));
  EXPECT_EQ(1, ox_findrskipA("ab cd", 3));
  EXPECT_EQ(4, ox_findskipA("\r\v\f ", 4));
  EXPECT_EQ(4, ox_findrskipA("\r\v\f ", 4));
  EXPECT_EQ(0, ox_findskipA(nullptr, 5));
  EXPECT_EQ(0, ox_findrskipA(nullptr, 5));
  EXPECT_EQ(0, ox_findskipA("  ", 0));
  // Bytes above 127 are no white space.
  EXPECT_EQ(0, ox_findskipA("\xA0x", 2));
  EXPECT_EQ(0, ox_findrskipA("x\x85", 2));
}

TEST(BaseFunc, TodayIsLocalDate) {
  setenv("TZ", "UTC0", 1);
  tzset();
  char buffer[12];
  memset(buffer, 'z', sizeof buffer);
  time_t before = time(nullptr);
  char *r = ox_todayA(buffer);
  time_t after = time(nullptr);
  ASSERT_EQ(buffer, r);
  ASSERT_EQ(8u, strlen(buffer));
  // The date of either clock reading (the day may turn in between).
  char expect1[16], expect2[16];
  struct tm t;
  gmtime_r(&before, &t);
  strftime(expect1, sizeof expect1, "%Y%m%d", &t);
  gmtime_r(&after, &t);
  strftime(expect2, sizeof expect2, "%Y%m%d", &t);
  EXPECT_TRUE(strcmp(expect1, buffer) == 0 || strcmp(expect2, buffer) == 0)
      << buffer;
  EXPECT_EQ(nullptr, ox_todayA(nullptr));
  unsetenv("TZ");
  tzset();
}

TEST(BaseFunc, GetLastError) {
  errno = ENOENT;
  EXPECT_EQ(ENOENT, ox_getlasterror());
}

TEST(BaseFunc, Crc32) {
  const unsigned char *digits = reinterpret_cast<const unsigned char *>("123456789");
  EXPECT_EQ(0xCBF43926u, ox_crc32(0, digits, 9));
  // Two calls over the halves equal one call.
  EXPECT_EQ(0xCBF43926u, ox_crc32(ox_crc32(0, digits, 4), digits + 4, 5));
  EXPECT_EQ(0u, ox_crc32(0, digits, 0));
  EXPECT_EQ(0u, ox_crc32(0, nullptr, 5));
  EXPECT_EQ(0x1234u, ox_crc32(0x1234, nullptr, 5));
  // "The quick brown fox jumps over the lazy dog": 0x414FA339.
  const char *fox = "The quick brown fox jumps over the lazy dog";
  EXPECT_EQ(0x414FA339u,
            ox_crc32(0, reinterpret_cast<const unsigned char *>(fox),
                     static_cast<int>(strlen(fox))));
}

TEST(BaseFunc, Crc32AnySplitEqualsOneCall) {
  unsigned char data[100];
  for (int i = 0; i < 100; ++i) data[i] = static_cast<unsigned char>(i * 37 + 11);
  unsigned whole = ox_crc32(0, data, 100);
  // Reference: one byte at a time.
  unsigned bytewise = 0;
  for (int i = 0; i < 100; ++i) bytewise = ox_crc32(bytewise, data + i, 1);
  EXPECT_EQ(whole, bytewise);
  for (int split = 0; split <= 100; ++split)
    ASSERT_EQ(whole, ox_crc32(ox_crc32(0, data, split), data + split, 100 - split));
}

TEST(BaseFunc, DoubleBytes) {
  char bytes[8];
  ox_dtobyte(1.0, bytes);
  const unsigned char one[8] = {0x3F, 0xF0, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(0, memcmp(one, bytes, 8));
  EXPECT_EQ(1.0, ox_bytetod(bytes));
  // -2.0: sign 1, exponent 0x400: C0 00 ...
  ox_dtobyte(-2.0, bytes);
  EXPECT_EQ(static_cast<char>(0xC0), bytes[0]);
  EXPECT_EQ(0, bytes[1]);
  for (double v : {0.0, -0.0, 0.1, 123456.789, -1e300, 5e-324}) {
    ox_dtobyte(v, bytes);
    double back = ox_bytetod(bytes);
    EXPECT_EQ(0, memcmp(&v, &back, sizeof v));
  }
  ox_dtobyte(1.0, nullptr);
  EXPECT_EQ(0.0, ox_bytetod(nullptr));
}

TEST(BaseFunc, IsInf) {
  EXPECT_NE(0, ox_isinf(std::numeric_limits<double>::infinity()));
  EXPECT_NE(0, ox_isinf(-std::numeric_limits<double>::infinity()));
  EXPECT_NE(0, ox_isinf(std::numeric_limits<double>::quiet_NaN()));
  EXPECT_EQ(0, ox_isinf(0.0));
  EXPECT_EQ(0, ox_isinf(1e308));
  EXPECT_EQ(0, ox_isinf(-5e-324));
}

}  // namespace
