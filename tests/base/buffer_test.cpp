// Ox_Buffer: every operation, sharing, growth and base64 encoding.
#include <gtest/gtest.h>

#include <cstring>

#include "Ox_Buffer.h"

namespace {

const unsigned char *Bytes(const char *text) {
  return reinterpret_cast<const unsigned char *>(text);
}

TEST(Buffer, DefaultIsEmpty) {
  Ox_Buffer b;
  EXPECT_EQ(0, b.GetSize());
  EXPECT_EQ(nullptr, b.GetData());
  Ox_Buffer c(b);
  EXPECT_EQ(0, c.GetSize());
}

TEST(Buffer, SetCopiesAndCopySharesTheBlock) {
  Ox_Buffer a;
  a.Set(Bytes("abc"), 3);
  ASSERT_EQ(3, a.GetSize());
  EXPECT_EQ(0, memcmp("abc", a.GetData(), 3));
  Ox_Buffer b(a);
  EXPECT_EQ(a.GetData(), b.GetData());
  Ox_Buffer c;
  c.Set(a);
  EXPECT_EQ(a.GetData(), c.GetData());
  Ox_Buffer d;
  d = a;
  EXPECT_EQ(a.GetData(), d.GetData());
  // Writing one unshares it.
  unsigned char *w = b.GetSafeBuffer(-1);
  ASSERT_NE(nullptr, w);
  EXPECT_NE(a.GetData(), w);
  w[0] = 'X';
  EXPECT_EQ(0, memcmp("abc", a.GetData(), 3));
  EXPECT_EQ(0, memcmp("Xbc", b.GetData(), 3));
}

TEST(Buffer, SetNullOrEmptyGivesEmpty) {
  Ox_Buffer a;
  a.Set(Bytes("abc"), 3);
  a.Set(nullptr, 3);
  EXPECT_EQ(0, a.GetSize());
  a.Set(Bytes("abc"), 3);
  a.Set(Bytes("abc"), 0);
  EXPECT_EQ(0, a.GetSize());
  a.Set(Bytes("abc"), -5);
  EXPECT_EQ(0, a.GetSize());
}

TEST(Buffer, SetFromItsOwnBytes) {
  Ox_Buffer a;
  a.Set(Bytes("abcdef"), 6);
  a.Set(a.GetData() + 2, 3);
  ASSERT_EQ(3, a.GetSize());
  EXPECT_EQ(0, memcmp("cde", a.GetData(), 3));
  Ox_Buffer &same = a;
  a = same;
  EXPECT_EQ(3, a.GetSize());
}

TEST(Buffer, AppendReturnsNewSizeWithoutNul) {
  Ox_Buffer b;
  EXPECT_EQ(2, b.Append(Bytes("ab"), 2));
  EXPECT_EQ(5, b.AppendStr("cde"));
  EXPECT_EQ(5, b.AppendStr(nullptr));
  EXPECT_EQ(5, b.AppendStr(""));
  EXPECT_EQ(5, b.Append(nullptr, 4));
  EXPECT_EQ(5, b.Append(Bytes("x"), 0));
  EXPECT_EQ(5, b.Append(Bytes("x"), -1));
  ASSERT_EQ(5, b.GetSize());
  EXPECT_EQ(0, memcmp("abcde", b.GetData(), 5));
  // Bytes of the buffer itself.
  EXPECT_EQ(10, b.Append(b.GetData(), 5));
  EXPECT_EQ(0, memcmp("abcdeabcde", b.GetData(), 10));
}

TEST(Buffer, AppendUnsharesFirst) {
  Ox_Buffer a;
  a.AppendStr("one");
  Ox_Buffer b(a);
  b.AppendStr("two");
  EXPECT_EQ(3, a.GetSize());
  EXPECT_EQ(6, b.GetSize());
  EXPECT_EQ(0, memcmp("onetwo", b.GetData(), 6));
}

TEST(Buffer, GetSafeBufferSetsTheSize) {
  Ox_Buffer b;
  unsigned char *p = b.GetSafeBuffer(4);
  ASSERT_NE(nullptr, p);
  EXPECT_EQ(4, b.GetSize());
  memcpy(p, "wxyz", 4);
  p = b.GetSafeBuffer(2);
  ASSERT_NE(nullptr, p);
  EXPECT_EQ(2, b.GetSize());
  EXPECT_EQ(0, memcmp("wx", b.GetData(), 2));
  p = b.GetSafeBuffer(-1);
  EXPECT_EQ(2, b.GetSize());
  EXPECT_NE(nullptr, p);
  Ox_Buffer e;
  EXPECT_NE(nullptr, e.GetSafeBuffer(0));
  EXPECT_EQ(0, e.GetSize());
}

TEST(Buffer, AddSizeKeepsContentInFront) {
  Ox_Buffer b;
  b.AppendStr("head");
  EXPECT_EQ(12, b.AddSize(8));
  EXPECT_EQ(12, b.GetSize());
  EXPECT_EQ(0, memcmp("head", b.GetData(), 4));
  // The new bytes are zero.
  for (int i = 4; i < 12; ++i) EXPECT_EQ(0, b.GetData()[i]);
  EXPECT_EQ(12, b.AddSize(0));
  EXPECT_EQ(10, b.AddSize(-2));
  EXPECT_EQ(0, b.AddSize(-100));
}

TEST(Buffer, SetSize) {
  Ox_Buffer b;
  b.AppendStr("content");
  EXPECT_EQ(3, b.SetSize(3));
  EXPECT_EQ(0, memcmp("con", b.GetData(), 3));
  EXPECT_EQ(100, b.SetSize(100));
  EXPECT_EQ(0, memcmp("con", b.GetData(), 3));
  EXPECT_EQ(-1, b.SetSize(-1));
  EXPECT_EQ(100, b.GetSize());
  EXPECT_EQ(0, b.SetSize(0));
  EXPECT_EQ(0, b.GetSize());
}

TEST(Buffer, FieldByFieldGrowth) {
  // The binary streams grow the buffer by each field and write at their
  // own running offset, reading the data pointer again.
  Ox_Buffer b;
  long offset = 0;
  for (int i = 0; i < 10000; ++i) {
    ASSERT_EQ(offset + 4, b.AddSize(4));
    unsigned char *p = b.GetSafeBuffer(-1);
    p[offset] = static_cast<unsigned char>(i >> 24);
    p[offset + 1] = static_cast<unsigned char>(i >> 16);
    p[offset + 2] = static_cast<unsigned char>(i >> 8);
    p[offset + 3] = static_cast<unsigned char>(i);
    offset += 4;
  }
  ASSERT_EQ(40000, b.GetSize());
  for (int i = 0; i < 10000; ++i) {
    const unsigned char *p = b.GetData() + 4 * i;
    ASSERT_EQ(i, (p[0] << 24) | (p[1] << 16) | (p[2] << 8) | p[3]);
  }
}

TEST(Buffer, HugeSizesFailWithoutChange) {
  Ox_Buffer b;
  b.AppendStr("keep");
  EXPECT_LT(b.AddSize(0x7FFFFFFFFFFFFFFFL), 0);
  EXPECT_LT(b.SetSize(0x7FFFFFFFFFFFFFFFL), 0);
  EXPECT_EQ(nullptr, b.GetSafeBuffer(0x7FFFFFFFFFFFFFFFL));
  EXPECT_LT(b.Append(Bytes("x"), 0x7FFFFFFFFFFFFFFFL), 0);
  ASSERT_EQ(4, b.GetSize());
  EXPECT_EQ(0, memcmp("keep", b.GetData(), 4));
}

TEST(Buffer, ReleaseEmpties) {
  Ox_Buffer a;
  a.AppendStr("data");
  Ox_Buffer b(a);
  a.Release();
  EXPECT_EQ(0, a.GetSize());
  EXPECT_EQ(nullptr, a.GetData());
  EXPECT_EQ(4, b.GetSize());
  a.Release();
  EXPECT_EQ(0, a.GetSize());
}

TEST(Buffer, EncodeBase64Vectors) {
  struct {
    const char *bytes;
    const char *text;
  } vectors[] = {{"", ""},          {"f", "Zg=="},         {"fo", "Zm8="},
                 {"foo", "Zm9v"},   {"foob", "Zm9vYg=="}, {"fooba", "Zm9vYmE="},
                 {"foobar", "Zm9vYmFy"}};
  for (const auto &v : vectors) {
    Ox_Buffer b;
    b.Set(Bytes(v.bytes), static_cast<long>(strlen(v.bytes)));
    EXPECT_STREQ(v.text, b.EncodeBase64().GetString()) << v.bytes;
  }
}

TEST(Buffer, EncodeBase64HighBytesAndNoLineBreaks) {
  // FF FE FD = 11111111 11111110 11111101 -> 111111 111111 111011 111101
  // = 63 63 59 61 = "//79".
  const unsigned char high[] = {0xFF, 0xFE, 0xFD};
  Ox_Buffer b;
  b.Set(high, 3);
  EXPECT_STREQ("//79", b.EncodeBase64().GetString());
  Ox_Buffer big;
  big.SetSize(3000);
  Ox_AString text = big.EncodeBase64();
  EXPECT_EQ(4000, text.GetLength());
  EXPECT_EQ(-1, text.Find('\n'));
}

}  // namespace
