// Ox_Currency: the two-word form, the text parser, ToString's sign-as-digit
// rule, the overflow marker, the loose product test, ToInteger's sign rule,
// the comparisons and the locale money formats.
#include <gtest/gtest.h>

#include <new>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_Currency.h"

namespace {

// A currency of `count` ten-thousandths.
Ox_Currency Count(int64_t count) {
  Ox_Currency c;
  c.low = uint32_t(uint64_t(count));
  c.high = int32_t(uint32_t(uint64_t(count) >> 32));
  return c;
}

int64_t CountOf(const Ox_Currency &c) {
  return int64_t((uint64_t(uint32_t(c.high)) << 32) | c.low);
}

bool IsMarker(const Ox_Currency &c) {
  return c.high == int32_t(0x80000000u) && c.low == 0;
}

std::string Text(const Ox_Currency &c) { return c.ToString().GetString(); }

}  // namespace

TEST(Currency, LayoutIsLowWordThenHighWord) {
  static_assert(sizeof(Ox_Currency) == 8, "two 32-bit words");
  Ox_Currency c = Count((int64_t(3) << 32) + 7);
  EXPECT_EQ(reinterpret_cast<uint32_t *>(&c)[0], 7u);
  EXPECT_EQ(reinterpret_cast<int32_t *>(&c)[1], 3);
  EXPECT_EQ(Ox_Currency().low, 0u);
  EXPECT_EQ(Ox_Currency().high, 0);
}

TEST(Currency, WholeAndFraction) {
  Ox_Currency one(1, 0);
  EXPECT_EQ(CountOf(one), 10000);
  EXPECT_EQ(one.IsInt(), 1);
  EXPECT_EQ(CountOf(Ox_Currency(12, 3400)), 123400);
  // The fraction raises the value, so with a negative whole it moves
  // toward zero: (-1, 5000) is -0.5.
  EXPECT_EQ(CountOf(Ox_Currency(-1, 5000)), -5000);
  // A fraction below 1 is ignored.
  EXPECT_EQ(CountOf(Ox_Currency(2, -5)), 20000);
  EXPECT_EQ(CountOf(Ox_Currency(2, 0)), 20000);
  Ox_Currency c;
  c = 7L;
  EXPECT_EQ(CountOf(c), 70000);
  c.SetCurrency(-3L, 0L);
  EXPECT_EQ(CountOf(c), -30000);
}

TEST(Currency, TextRoundsAtTheFifthDecimal) {
  EXPECT_EQ(CountOf(Ox_Currency("12.34567")), 123457);
  EXPECT_EQ(CountOf(Ox_Currency("12.34565")), 123457);
  EXPECT_EQ(CountOf(Ox_Currency("12.34564")), 123456);
  EXPECT_EQ(CountOf(Ox_Currency("1.99995")), 20000);
  EXPECT_EQ(CountOf(Ox_Currency("0.00005")), 1);
  // Rounding is on the magnitude, before the sign: -0.00004 is 0.
  EXPECT_EQ(CountOf(Ox_Currency("-0.00004")), 0);
  EXPECT_EQ(CountOf(Ox_Currency("-0.00005")), -1);
  // Reading ends after the fourth decimal and the rounding digit.
  EXPECT_EQ(CountOf(Ox_Currency("1.00001999")), 10000);
}

TEST(Currency, TextSeparatorsCountLikeZeros) {
  // Before the point every character shifts the value: "1,000" is 10000.
  EXPECT_EQ(CountOf(Ox_Currency("1,000")), 10000 * 10000LL);
  EXPECT_EQ(CountOf(Ox_Currency("1 5")), 105 * 10000);
  // Characters before the first digit shift a zero: no effect.
  EXPECT_EQ(CountOf(Ox_Currency("  $5")), 50000);
}

TEST(Currency, TextSignAndPoints) {
  EXPECT_EQ(CountOf(Ox_Currency("-12.5")), -125000);
  // A minus sign anywhere makes the value negative, and before the point
  // it shifts like any other character.
  EXPECT_EQ(CountOf(Ox_Currency("5-")), -500000);
  EXPECT_EQ(CountOf(Ox_Currency("1.5-")), -15000);
  EXPECT_EQ(CountOf(Ox_Currency(".5")), 5000);
  // A second point starts counting the places again, while the step and
  // the value read so far stay: "1.2.3" is 1.2 and then 3 at the next
  // place, 1.23.
  EXPECT_EQ(CountOf(Ox_Currency("1.2.3")), 12300);
  EXPECT_EQ(CountOf(Ox_Currency("")), 0);
  EXPECT_EQ(CountOf(Ox_Currency("abc")), 0);
}

TEST(Currency, NullTextLeavesTheValue) {
  Ox_Currency c(5, 0);
  c.SetCurrency(static_cast<const char *>(nullptr));
  EXPECT_EQ(CountOf(c), 50000);
  c = static_cast<const char *>(nullptr);
  EXPECT_EQ(CountOf(c), 50000);
  // The constructor leaves the words as found in memory.
  alignas(Ox_Currency) unsigned char memory[sizeof(Ox_Currency)];
  Ox_Currency *placed = new (memory) Ox_Currency(3, 0);
  placed = new (memory) Ox_Currency(static_cast<const char *>(nullptr));
  EXPECT_EQ(CountOf(*placed), 30000);
}

TEST(Currency, FromDouble) {
  EXPECT_EQ(CountOf(Ox_Currency(1.5)), 15000);
  EXPECT_EQ(CountOf(Ox_Currency(-2.25)), -22500);
  EXPECT_EQ(CountOf(Ox_Currency(0.00005)), 1);  // "%21.4f" rounds to 0.0001
  EXPECT_EQ(CountOf(Ox_Currency(123456789.125)), 1234567891250LL);
  EXPECT_TRUE(IsMarker(Ox_Currency(1e16)));
  EXPECT_TRUE(IsMarker(Ox_Currency(-1e16)));
  EXPECT_TRUE(IsMarker(Ox_Currency(1e300)));
  EXPECT_FALSE(IsMarker(Ox_Currency(9.99e15)));
  Ox_Currency c;
  c = 3.0;
  EXPECT_EQ(CountOf(c), 30000);
}

TEST(Currency, ToStringSignCountsAsADigit) {
  EXPECT_EQ(Text(Count(15000)), "1.5");
  EXPECT_EQ(Text(Count(5)), "0.0005");
  EXPECT_EQ(Text(Count(10000)), "1");
  EXPECT_EQ(Text(Count(100000)), "10");
  EXPECT_EQ(Text(Count(0)), "0");
  EXPECT_EQ(Text(Count(1234)), "0.1234");
  EXPECT_EQ(Text(Count(12345)), "1.2345");
  EXPECT_EQ(Text(Count(1000000)), "100");
  EXPECT_EQ(Text(Count(-15000)), "-1.5");
  EXPECT_EQ(Text(Count(-5000)), "-.5");
  EXPECT_EQ(Text(Count(-500)), "0.-5");
  EXPECT_EQ(Text(Count(-5)), "0.00-5");
  EXPECT_EQ(Text(Count(-10000)), "-1");
  EXPECT_EQ(Text(Count(INT64_MIN)), "-922337203685477.5808");
  EXPECT_EQ(Text(Count(INT64_MAX)), "922337203685477.5807");
}

TEST(Currency, ToDoubleReadsTheText) {
  EXPECT_DOUBLE_EQ(Count(15000).ToDouble(), 1.5);
  EXPECT_DOUBLE_EQ(Count(-5000).ToDouble(), -0.5);
  EXPECT_DOUBLE_EQ(Count(-500).ToDouble(), 0.0);
  EXPECT_DOUBLE_EQ(Count(-5).ToDouble(), 0.0);
  EXPECT_DOUBLE_EQ(Count(-15000).ToDouble(), -1.5);
}

TEST(Currency, ToIntegerGivesPositiveForNegatives) {
  EXPECT_EQ(Ox_Currency(-1.9).ToInteger(), 1);
  EXPECT_EQ(Ox_Currency(1.9).ToInteger(), 1);
  EXPECT_EQ(Ox_Currency(-1.5).ToInteger(), 1);
  EXPECT_EQ(Ox_Currency(-12.0).ToInteger(), 12);
  EXPECT_EQ(Ox_Currency(12.0).ToInteger(), 12);
  EXPECT_EQ(Ox_Currency(0.5).ToInteger(), 0);
  EXPECT_EQ(Ox_Currency(300000.0).ToInteger(), 300000);
}

TEST(Currency, IsIntLooksAtTheLowWordOnly) {
  EXPECT_EQ(Count(20000).IsInt(), 1);
  EXPECT_EQ(Count(15000).IsInt(), 0);
  // -1 is 0xFFFFFFFF_FFFFD8F0: 4294957296 is no multiple of 10000.
  EXPECT_EQ(Count(-10000).IsInt(), 0);
  // 2^32 ten-thousandths has a low word of 0.
  EXPECT_EQ(Count(int64_t(1) << 32).IsInt(), 1);
}

TEST(Currency, NotEqualComparesLowWordsOnly) {
  EXPECT_FALSE(Count(int64_t(1) << 32) != Count(0));
  EXPECT_FALSE(Count(int64_t(1) << 32) == Count(0));
  EXPECT_TRUE(Count(1) != Count(2));
  EXPECT_TRUE(Count(7) == Count(7));
}

TEST(Currency, Ordering) {
  EXPECT_TRUE(Count(-10000) < Count(10000));
  EXPECT_TRUE(Count(10000) > Count(-10000));
  // Equal high words: low words as unsigned.
  EXPECT_TRUE(Count(0x7FFFFFFF) < Count(0x80000000LL));
  EXPECT_TRUE(Count(int64_t(1) << 32) > Count(0xFFFFFFFFLL));
  EXPECT_TRUE(Count(5) <= Count(5));
  EXPECT_TRUE(Count(5) >= Count(5));
  EXPECT_FALSE(Count(6) <= Count(5));
  EXPECT_FALSE(Count(4) >= Count(5));
}

TEST(Currency, AdditionAndSubtraction) {
  EXPECT_EQ(CountOf(Count(15000) + Count(22500)), 37500);
  EXPECT_EQ(CountOf(Count(15000) - Count(22500)), -7500);
  Ox_Currency c = Count(100);
  c += Count(50);
  EXPECT_EQ(CountOf(c), 150);
  c -= Count(200);
  EXPECT_EQ(CountOf(c), -50);
  EXPECT_EQ(CountOf(-c), 50);
}

TEST(Currency, OverflowGivesTheMarker) {
  EXPECT_TRUE(IsMarker(Count(INT64_MAX) + Count(1)));
  EXPECT_TRUE(IsMarker(Count(INT64_MIN + 1) + Count(-2)));
  EXPECT_TRUE(IsMarker(Count(INT64_MAX) - Count(-1)));
  EXPECT_TRUE(IsMarker(Count(-2) - Count(INT64_MAX)));
  // Different signs cannot overflow an addition.
  EXPECT_EQ(CountOf(Count(INT64_MAX) + Count(-1)), INT64_MAX - 1);
  // The marker stays the marker under negation, and is an ordinary value.
  const Ox_Currency marker = Count(INT64_MIN);
  EXPECT_TRUE(IsMarker(-marker));
  EXPECT_EQ(CountOf(marker + Count(1)), INT64_MIN + 1);
}

TEST(Currency, Product) {
  EXPECT_EQ(CountOf(Count(15000) * 3), 45000);
  EXPECT_EQ(CountOf(Count(-15000) * 3), -45000);
  EXPECT_EQ(CountOf(Count(15000) * -3), -45000);
  EXPECT_EQ(CountOf(Count(-15000) * -3), 45000);
  EXPECT_EQ(CountOf(Count(0) * 5), 0);
  EXPECT_EQ(CountOf(Count(15000) * 0), 0);
  EXPECT_TRUE(IsMarker(Count(INT64_MIN) * 1));
  Ox_Currency c = Count(20000);
  c *= 4;
  EXPECT_EQ(CountOf(c), 80000);
}

TEST(Currency, ProductOverflowTestIsLoose) {
  // High word 1 (bit length 1) times 2^62 (bit length 63): 1 + 63 - 1 is
  // not above 63, so the product 2^94 wraps to 0.
  EXPECT_EQ(CountOf(Count(int64_t(1) << 32) * (long(1) << 62)), 0);
  // High word 2 (bit length 2): 2 + 63 - 1 = 64 is above 63: the marker.
  EXPECT_TRUE(IsMarker(Count(int64_t(1) << 33) * (long(1) << 62)));
  // A zero high word is never tested: 2^31 * 2^33 wraps to 0.
  EXPECT_EQ(CountOf(Count(int64_t(1) << 31) * (long(1) << 33)), 0);
  // High word 3 (bit length 2) times 2^31 (bit length 32): 33 <= 63, the
  // product 3 * 2^63 wraps modulo 2^64 to 2^63, then the sign is positive.
  EXPECT_EQ(CountOf(Count(int64_t(3) << 32) * (long(1) << 31)), INT64_MIN);
}

TEST(Currency, Quotient) {
  EXPECT_EQ(CountOf(Count(45000) / 2), 22500);
  EXPECT_EQ(CountOf(Count(-45000) / 2), -22500);
  EXPECT_EQ(CountOf(Count(45000) / -2), -22500);
  EXPECT_EQ(CountOf(Count(-45000) / -2), 22500);
  EXPECT_EQ(CountOf(Count(1) / 3), 0);
  EXPECT_EQ(CountOf(Count(-7) / 2), -3);
  EXPECT_TRUE(IsMarker(Count(15000) / 0));
  Ox_Currency c = Count(90);
  c /= 9;
  EXPECT_EQ(CountOf(c), 10);
  c /= 0;
  EXPECT_TRUE(IsMarker(c));
}

TEST(CurrencyFormat, English) {
  OxSetLocale(0x0409, 1252);
  EXPECT_STREQ(Ox_Currency("1234.56").GetFormatString(0).GetString(), "$1,234.56");
  EXPECT_STREQ(Ox_Currency("-1234.56").GetFormatString(0).GetString(),
               "($1,234.56)");
  EXPECT_STREQ(Ox_Currency("1234.5").GetFormatString(0x0409).GetString(),
               "$1,234.50");
  EXPECT_STREQ(Ox_Currency("0").GetFormatString(0).GetString(), "$0.00");
  EXPECT_STREQ(Ox_Currency("1.2345").GetFormatString(0).GetString(), "$1.23");
  EXPECT_STREQ(Ox_Currency("1.005").GetFormatString(0).GetString(), "$1.01");
  EXPECT_STREQ(Ox_Currency("999.995").GetFormatString(0).GetString(), "$1,000.00");
  EXPECT_STREQ(Ox_Currency("1234567.89").GetFormatString(0).GetString(),
               "$1,234,567.89");
  // -0.5 writes "-.5", which still reads as a number.
  EXPECT_STREQ(Count(-5000).GetFormatString(0).GetString(), "($0.50)");
  // "0.-5" is no number: the plain text stands.
  EXPECT_STREQ(Count(-500).GetFormatString(0).GetString(), "0.-5");
  // An unknown locale reads as English.
  EXPECT_STREQ(Ox_Currency("2").GetFormatString(0x0407).GetString(), "$2.00");
}

TEST(CurrencyFormat, KoreanAndJapanese) {
  OxSetLocale(0x0412, 949);
  // In the locales' own code pages the won and yen signs are the byte 0x5C.
  EXPECT_STREQ(Ox_Currency("1234.56").GetFormatString(0).GetString(), "\\1,235");
  EXPECT_STREQ(Ox_Currency("-1234.56").GetFormatString(0).GetString(), "-\\1,235");
  EXPECT_STREQ(Ox_Currency("1234.4").GetFormatString(0x0411).GetString(), "\\1,234");
  // The lcid argument wins over the process's locale.
  EXPECT_STREQ(Ox_Currency("1234.56").GetFormatString(0x0409).GetString(),
               "$1,234.56");
  OxSetLocale(0x0412, 65001);
  EXPECT_STREQ(Ox_Currency("1234.56").GetFormatString(0).GetString(), "₩1,235");
  EXPECT_STREQ(Ox_Currency("-1234.56").GetFormatString(0).GetString(), "-₩1,235");
  EXPECT_STREQ(Ox_Currency("1234.56").GetFormatString(0x0411).GetString(), "¥1,235");
  EXPECT_STREQ(Ox_Currency("-1234.56").GetFormatString(0x0411).GetString(),
               "-¥1,235");
  OxSetLocale(0x0409, 1252);
}
