// Ox_Variant::operator+=: one test per cell of its table, rows by the type
// of the variant, columns by the argument (long, double, text, currency,
// date, variant).
#include <gtest/gtest.h>

#include "arith_helpers.h"

using namespace arith;

namespace {

// 1 January 2000 is day 730485.
constexpr double kY2k = 730485.0;

Ox_Currency Money(int64_t count) { return *Cur(count).GetConstCurrency(); }

double DaysOf(const Ox_Variant &v) { return v.GetConstDateTime()->ToDouble(); }

}  // namespace

// ---- null: becomes the argument ------------------------------------------

TEST(PlusNull, Long) {
  Ox_Variant v;
  v += 5L;
  EXPECT_EQ(v.GetType(), 3);
  EXPECT_EQ(v.ToInteger(), 5);
}
TEST(PlusNull, Double) {
  Ox_Variant v;
  v += 2.5;
  EXPECT_EQ(v.GetType(), 5);
  EXPECT_DOUBLE_EQ(v.ToDouble(), 2.5);
}
TEST(PlusNull, Text) {
  Ox_Variant v;
  v += "ab";
  EXPECT_EQ(v.GetType(), 8);
  EXPECT_EQ(TextOf(v), "ab");
  Ox_Variant w;
  w += Ox_AString("cd");
  EXPECT_EQ(w.GetType(), 8);
  EXPECT_EQ(TextOf(w), "cd");
}
TEST(PlusNull, Currency) {
  Ox_Variant v;
  v += Money(15000);
  EXPECT_EQ(v.GetType(), 6);
  EXPECT_EQ(CountOf(v), 15000);
}
TEST(PlusNull, Date) {
  Ox_Variant v;
  v += Ox_DateTime(kY2k);
  EXPECT_EQ(v.GetType(), 7);
  EXPECT_EQ(DaysOf(v), kY2k);
}
TEST(PlusNull, Variant) {
  Ox_Variant v;
  v += Str("x");
  EXPECT_EQ(v.GetType(), 8);
  EXPECT_EQ(TextOf(v), "x");
}

// ---- integer: adds, converted to an integer ------------------------------

TEST(PlusInteger, Long) {
  Ox_Variant v = Int(10);
  v += 5L;
  EXPECT_EQ(v.GetType(), 3);
  EXPECT_EQ(v.ToInteger(), 15);
  v = Int(2147483647);
  v += 1L;  // wraps
  EXPECT_EQ(v.ToInteger(), -2147483647L - 1);
}
TEST(PlusInteger, DoubleIsTruncated) {
  Ox_Variant v = Int(10);
  v += 2.7;
  EXPECT_EQ(v.GetType(), 3);
  EXPECT_EQ(v.ToInteger(), 12);
  v += -1.9;
  EXPECT_EQ(v.ToInteger(), 11);
}
TEST(PlusInteger, TextByToInteger) {
  Ox_Variant v = Int(10);
  v += "7";
  EXPECT_EQ(v.GetType(), 3);
  EXPECT_EQ(v.ToInteger(), 17);
  v += Ox_AString("-20");
  EXPECT_EQ(v.ToInteger(), -3);
}
TEST(PlusInteger, CurrencyByToInteger) {
  Ox_Variant v = Int(10);
  v += Money(19000);  // 1.9 gives 1
  EXPECT_EQ(v.ToInteger(), 11);
  v += Money(-19000);  // -1.9 gives 1 as well
  EXPECT_EQ(v.GetType(), 3);
  EXPECT_EQ(v.ToInteger(), 12);
}
TEST(PlusInteger, DateByToInteger) {
  Ox_Variant v = Int(10);
  v += Ox_DateTime(kY2k + 0.5);
  EXPECT_EQ(v.GetType(), 3);
  EXPECT_EQ(v.ToInteger(), 730495);
}
TEST(PlusInteger, VariantByToInteger) {
  Ox_Variant v = Int(10);
  v += Dec(2.9999999999999996);  // the nudge makes it 3
  EXPECT_EQ(v.GetType(), 3);
  EXPECT_EQ(v.ToInteger(), 13);
  v += Str("TRUE");  // the variant's own boolean word
  EXPECT_EQ(v.ToInteger(), 14);
}

// ---- decimal: adds, converted to a double --------------------------------

TEST(PlusDecimal, Long) {
  Ox_Variant v = Dec(0.5);
  v += 2L;
  EXPECT_EQ(v.GetType(), 5);
  EXPECT_DOUBLE_EQ(v.ToDouble(), 2.5);
}
TEST(PlusDecimal, Double) {
  Ox_Variant v = Dec(0.5);
  v += 0.25;
  EXPECT_DOUBLE_EQ(v.ToDouble(), 0.75);
}
TEST(PlusDecimal, TextByToDouble) {
  Ox_Variant v = Dec(0.5);
  v += "1.25";
  EXPECT_EQ(v.GetType(), 5);
  EXPECT_DOUBLE_EQ(v.ToDouble(), 1.75);
}
TEST(PlusDecimal, CurrencyByToDouble) {
  Ox_Variant v = Dec(0.5);
  v += Money(15000);
  EXPECT_EQ(v.GetType(), 5);
  EXPECT_DOUBLE_EQ(v.ToDouble(), 2.0);
}
TEST(PlusDecimal, DateByToDouble) {
  Ox_Variant v = Dec(0.5);
  v += Ox_DateTime(2.25);
  EXPECT_EQ(v.GetType(), 5);
  EXPECT_DOUBLE_EQ(v.ToDouble(), 2.75);
}
TEST(PlusDecimal, VariantByToDouble) {
  Ox_Variant v = Dec(0.5);
  v += Cur(15000);
  EXPECT_EQ(v.GetType(), 5);
  EXPECT_DOUBLE_EQ(v.ToDouble(), 2.0);
}

// ---- currency: adds a currency -------------------------------------------

TEST(PlusCurrency, LongAsWholeUnits) {
  Ox_Variant v = Cur(15000);
  v += 2L;
  EXPECT_EQ(v.GetType(), 6);
  EXPECT_EQ(CountOf(v), 35000);
}
TEST(PlusCurrency, Double) {
  Ox_Variant v = Cur(15000);
  v += 0.25;
  EXPECT_EQ(CountOf(v), 17500);
}
TEST(PlusCurrency, TextByTheCurrencyParser) {
  Ox_Variant v = Cur(15000);
  v += "0.125";
  EXPECT_EQ(CountOf(v), 16250);
  v += static_cast<const char *>(nullptr);  // no text adds nothing
  EXPECT_EQ(CountOf(v), 16250);
}
TEST(PlusCurrency, Currency) {
  Ox_Variant v = Cur(15000);
  v += Money(22500);
  EXPECT_EQ(CountOf(v), 37500);
  v = Cur(INT64_MAX);
  v += Money(1);
  EXPECT_EQ(CountOf(v), INT64_MIN);  // the overflow marker
}
TEST(PlusCurrency, DateByToDouble) {
  Ox_Variant v = Cur(15000);
  v += Ox_DateTime(2.5);
  EXPECT_EQ(v.GetType(), 6);
  EXPECT_EQ(CountOf(v), 40000);
}
TEST(PlusCurrency, VariantByToCurrency) {
  Ox_Variant v = Cur(15000);
  v += Int(3);
  EXPECT_EQ(v.GetType(), 6);
  EXPECT_EQ(CountOf(v), 45000);
}

// ---- date: moves by a number of days -------------------------------------

TEST(PlusDate, Long) {
  Ox_Variant v = Date(kY2k);
  v += 1L;
  EXPECT_EQ(v.GetType(), 7);
  EXPECT_EQ(DaysOf(v), kY2k + 1);
}
TEST(PlusDate, Double) {
  Ox_Variant v = Date(kY2k);
  v += 0.5;
  EXPECT_DOUBLE_EQ(DaysOf(v), kY2k + 0.5);
  EXPECT_EQ(v.GetConstDateTime()->GetHour(), 12);
}
TEST(PlusDate, TextByToDouble) {
  Ox_Variant v = Date(kY2k);
  v += "2.25";
  EXPECT_EQ(v.GetType(), 7);
  EXPECT_DOUBLE_EQ(DaysOf(v), kY2k + 2.25);
}
TEST(PlusDate, CurrencyByToDouble) {
  Ox_Variant v = Date(kY2k);
  v += Money(15000);
  EXPECT_DOUBLE_EQ(DaysOf(v), kY2k + 1.5);
}
TEST(PlusDate, DateByToDouble) {
  Ox_Variant v = Date(kY2k);
  v += Ox_DateTime(0.5);
  EXPECT_EQ(v.GetType(), 7);
  EXPECT_DOUBLE_EQ(DaysOf(v), kY2k + 0.5);
}
TEST(PlusDate, VariantByToDouble) {
  Ox_Variant v = Date(kY2k);
  v += Int(2);
  EXPECT_DOUBLE_EQ(DaysOf(v), kY2k + 2);
}

// ---- string: appends text ------------------------------------------------

TEST(PlusString, LongAsDecimal) {
  Ox_Variant v = Str("s");
  v += 5L;
  EXPECT_EQ(v.GetType(), 8);
  EXPECT_EQ(TextOf(v), "s5");
  v += -30L;
  EXPECT_EQ(TextOf(v), "s5-30");
}
TEST(PlusString, Double) {
  Ox_Variant v = Str("s");
  v += 0.5;
  Ox_AString expected("s");
  expected += 0.5;  // the string's own text of a double
  EXPECT_EQ(TextOf(v), expected.GetString());
  EXPECT_EQ(TextOf(v).substr(0, 1), "s");
  EXPECT_GT(TextOf(v).size(), 1u);
}
TEST(PlusString, Text) {
  Ox_Variant v = Str("s");
  v += "t";
  EXPECT_EQ(TextOf(v), "st");
  v += Ox_AString("u");
  EXPECT_EQ(TextOf(v), "stu");
  v += *v.GetConstStr();  // its own text
  EXPECT_EQ(TextOf(v), "stustu");
}
TEST(PlusString, CurrencyText) {
  Ox_Variant v = Str("s");
  v += Money(15000);
  EXPECT_EQ(TextOf(v), "s1.5");
}
TEST(PlusString, DateText) {
  Ox_Variant v = Str("s");
  v += Ox_DateTime(kY2k);
  EXPECT_EQ(TextOf(v), "s20000101");
}
TEST(PlusString, VariantText) {
  Ox_Variant v = Str("s");
  v += Int(5);
  EXPECT_EQ(TextOf(v), "s5");
  v += v;
  EXPECT_EQ(TextOf(v), "s5s5");
}

// ---- reference with a target: acts on the target, but not for a variant

TEST(PlusReference, Long) {
  Ox_Variant target = Int(10);
  Ox_Variant v = Ref(target);
  v += 5L;
  EXPECT_EQ(v.GetType(), 32768);
  EXPECT_EQ(target.ToInteger(), 15);
}
TEST(PlusReference, Double) {
  Ox_Variant target = Int(10);
  Ox_Variant v = Ref(target);
  v += 2.7;
  EXPECT_EQ(target.ToInteger(), 12);
}
TEST(PlusReference, Text) {
  Ox_Variant target = Str("a");
  Ox_Variant v = Ref(target);
  v += "b";
  EXPECT_EQ(TextOf(target), "ab");
}
TEST(PlusReference, Currency) {
  Ox_Variant target = Cur(10000);
  Ox_Variant v = Ref(target);
  v += Money(5000);
  EXPECT_EQ(CountOf(target), 15000);
}
TEST(PlusReference, Date) {
  Ox_Variant target = Dec(1.0);
  Ox_Variant v = Ref(target);
  v += Ox_DateTime(0.5);
  EXPECT_DOUBLE_EQ(target.ToDouble(), 1.5);
}
TEST(PlusReference, VariantHasNoEffect) {
  Ox_Variant target = Int(10);
  Ox_Variant v = Ref(target);
  v += Int(5);
  EXPECT_EQ(v.GetType(), 32768);
  EXPECT_EQ(target.ToInteger(), 10);
}
TEST(PlusReference, WithoutTargetNothingHappens) {
  Ox_Variant v;
  v.type = 32768;  // a reference with no target
  v += 5L;
  v += "x";
  EXPECT_EQ(v.GetType(), 32768);
  EXPECT_EQ(v.GetConstReference(), nullptr);
  // A variant that refers to itself is left alone instead of recursing.
  Ox_Variant self;
  self.type = 32768;
  self.value.ref = &self;
  self += 5L;
  self += Money(1);
  EXPECT_EQ(self.GetType(), 32768);
  self.Init();
}

// ---- blob: only a variant's blob or string bytes are appended -------------

TEST(PlusBlob, LongHasNoEffect) {
  Ox_Variant v = Blob("ab");
  v += 5L;
  EXPECT_EQ(v.GetType(), 13);
  EXPECT_EQ(BytesOf(v), "ab");
}
TEST(PlusBlob, DoubleHasNoEffect) {
  Ox_Variant v = Blob("ab");
  v += 0.5;
  EXPECT_EQ(BytesOf(v), "ab");
}
TEST(PlusBlob, TextHasNoEffect) {
  Ox_Variant v = Blob("ab");
  v += "cd";
  v += Ox_AString("cd");
  EXPECT_EQ(BytesOf(v), "ab");
}
TEST(PlusBlob, CurrencyHasNoEffect) {
  Ox_Variant v = Blob("ab");
  v += Money(10000);
  EXPECT_EQ(BytesOf(v), "ab");
}
TEST(PlusBlob, DateHasNoEffect) {
  Ox_Variant v = Blob("ab");
  v += Ox_DateTime(kY2k);
  EXPECT_EQ(BytesOf(v), "ab");
}
TEST(PlusBlob, VariantBlobOrStringBytes) {
  Ox_Variant v = Blob("ab");
  v += Blob("cd");
  EXPECT_EQ(BytesOf(v), "abcd");
  v += Str("ef");
  EXPECT_EQ(BytesOf(v), "abcdef");
  v += Int(5);
  EXPECT_EQ(BytesOf(v), "abcdef");
  v += v;
  EXPECT_EQ(v.GetType(), 13);
  EXPECT_EQ(BytesOf(v), "abcdefabcdef");
}

// ---- array: only a variant argument is added ------------------------------

TEST(PlusArray, LongHasNoEffect) {
  Ox_Variant v = Array({1});
  v += 5L;
  EXPECT_EQ(TextOf(v), "[1]");
}
TEST(PlusArray, DoubleHasNoEffect) {
  Ox_Variant v = Array({1});
  v += 0.5;
  EXPECT_EQ(TextOf(v), "[1]");
}
TEST(PlusArray, TextHasNoEffect) {
  Ox_Variant v = Array({1});
  v += "x";
  EXPECT_EQ(TextOf(v), "[1]");
}
TEST(PlusArray, CurrencyHasNoEffect) {
  Ox_Variant v = Array({1});
  v += Money(10000);
  EXPECT_EQ(TextOf(v), "[1]");
}
TEST(PlusArray, DateHasNoEffect) {
  Ox_Variant v = Array({1});
  v += Ox_DateTime(kY2k);
  EXPECT_EQ(TextOf(v), "[1]");
}
TEST(PlusArray, VariantElementsOrOneElement) {
  Ox_Variant v = Array({1});
  v += Array({2, 3});
  EXPECT_EQ(TextOf(v), "[1,2,3]");
  v += Int(5);
  EXPECT_EQ(TextOf(v), "[1,2,3,5]");
  v += Str("x");
  EXPECT_EQ(TextOf(v), "[1,2,3,5,x]");
  Ox_Variant w = Array({7});
  w += w;
  EXPECT_EQ(TextOf(w), "[7,7]");
}

// ---- any other type: no effect -------------------------------------------

TEST(PlusOther, NoEffectForEveryArgument) {
  PropObject object(Int(1));
  Ox_Variant v = Obj(object);
  v += 5L;
  v += 0.5;
  v += "x";
  v += Ox_AString("y");
  v += Money(10000);
  v += Ox_DateTime(kY2k);
  v += Int(5);
  EXPECT_EQ(v.GetType(), 16384);
  EXPECT_EQ(v.GetConstObject()->GetObjectA(), &object);
  Ox_Variant raw;
  raw.type = 2;  // a type number that carries no value
  raw += 5L;
  raw += 0.5;
  raw += "x";
  raw += Money(10000);
  raw += Ox_DateTime(kY2k);
  raw += Int(5);
  EXPECT_EQ(raw.GetType(), 2);
}
