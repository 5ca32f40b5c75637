// Var_Add, Var_Sub, Var_Mul, Var_Div, Var_Mod, Var_Cat and Var_AndOr: every
// numbered step and every cell of the numeric and date tables.
#include <gtest/gtest.h>

#include "arith_helpers.h"

using namespace arith;

namespace {

// 1 January 2000 is day 730485.
constexpr double kY2k = 730485.0;

Ox_Variant Add(const Ox_Variant &l, const Ox_Variant &r) {
  Ox_Variant out;
  Var_Add(l, r, out);
  return out;
}
Ox_Variant Sub(const Ox_Variant &l, const Ox_Variant &r) {
  Ox_Variant out;
  Var_Sub(l, r, out);
  return out;
}
Ox_Variant Mul(const Ox_Variant &l, const Ox_Variant &r) {
  Ox_Variant out;
  Var_Mul(l, r, out);
  return out;
}
Ox_Variant Div(const Ox_Variant &l, const Ox_Variant &r) {
  Ox_Variant out;
  Var_Div(l, r, out);
  return out;
}
Ox_Variant Mod(const Ox_Variant &l, const Ox_Variant &r) {
  Ox_Variant out;
  Var_Mod(l, r, out);
  return out;
}

}  // namespace

// ---- Var_Add: numeric pairs ----------------------------------------------

TEST(VarAddPairs, IntegerInteger) {
  Ox_Variant r = Add(Int(2), Int(3));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 5);
}
TEST(VarAddPairs, IntegerDecimal) {
  Ox_Variant r = Add(Int(2), Dec(0.5));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.5);
}
TEST(VarAddPairs, IntegerCurrency) {
  Ox_Variant r = Add(Int(2), Cur(15000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 35000);
}
TEST(VarAddPairs, DecimalInteger) {
  Ox_Variant r = Add(Dec(0.5), Int(2));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.5);
}
TEST(VarAddPairs, DecimalDecimal) {
  Ox_Variant r = Add(Dec(0.5), Dec(0.25));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 0.75);
}
TEST(VarAddPairs, DecimalCurrency) {
  Ox_Variant r = Add(Dec(0.5), Cur(15000));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.0);
}
TEST(VarAddPairs, CurrencyInteger) {
  Ox_Variant r = Add(Cur(15000), Int(2));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 35000);
}
TEST(VarAddPairs, CurrencyDecimal) {
  Ox_Variant r = Add(Cur(15000), Dec(0.5));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.0);
}
TEST(VarAddPairs, CurrencyCurrency) {
  Ox_Variant r = Add(Cur(15000), Cur(22500));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 37500);
}
TEST(VarAddPairs, IntegersWrapAt32Bits) {
  Ox_Variant r = Add(Int(2147483647), Int(1));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), -2147483647L - 1);
}
TEST(VarAddPairs, CurrencyOverflowGivesTheMarker) {
  Ox_Variant r = Add(Cur(INT64_MAX), Int(1));
  EXPECT_EQ(CountOf(r), INT64_MIN);
}

// ---- Var_Add: the steps --------------------------------------------------

TEST(VarAdd, NullSidesGiveTheOtherValue) {
  // 1. Two nulls: null; a null left gives the right value.
  Ox_Variant r = Int(9);
  Var_Add(Ox_Variant(), Ox_Variant(), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Add(Ox_Variant(), Int(5));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 5);
  r = Add(Ox_Variant(), Str("x"));
  EXPECT_EQ(TextOf(r), "x");
  // 2. A null right gives the left value.
  r = Add(Int(7), Ox_Variant());
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 7);
  r = Add(Blob("ab"), Ox_Variant());
  EXPECT_EQ(r.GetType(), 13);
  EXPECT_EQ(BytesOf(r), "ab");
}

TEST(VarAdd, DatePlusNumberShiftsTheDate) {
  // 3. Left date: a date plus 1 is the next day.
  Ox_Variant r = Add(Date(kY2k), Int(1));
  EXPECT_EQ(r.GetType(), 7);
  EXPECT_EQ(r.GetConstDateTime()->GetDay(), 2);
  r = Add(Date(kY2k), Dec(0.5));
  EXPECT_EQ(r.GetType(), 7);
  EXPECT_EQ(r.GetConstDateTime()->GetHour(), 12);
  r = Add(Date(kY2k), Cur(15000));
  EXPECT_EQ(r.GetType(), 7);
  EXPECT_DOUBLE_EQ(r.GetConstDateTime()->ToDouble(), kY2k + 1.5);
  // 4. Right date.
  r = Add(Int(1), Date(kY2k));
  EXPECT_EQ(r.GetType(), 7);
  EXPECT_DOUBLE_EQ(r.GetConstDateTime()->ToDouble(), kY2k + 1);
  r = Add(Dec(-0.25), Date(kY2k));
  EXPECT_DOUBLE_EQ(r.GetConstDateTime()->ToDouble(), kY2k - 0.25);
}

TEST(VarAdd, TwoStringsAreJoined) {
  // 5. Even strings that read as numbers.
  Ox_Variant r = Add(Str("1"), Str("2"));
  EXPECT_EQ(r.GetType(), 8);
  EXPECT_EQ(TextOf(r), "12");
}

TEST(VarAdd, ArraysGatherElements) {
  // 7. Left array with an array, then with a scalar.
  Ox_Variant r = Add(Array({1, 2}), Array({3}));
  EXPECT_EQ(r.GetType(), 8192);
  EXPECT_EQ(TextOf(r), "[1,2,3]");
  r = Add(Array({1}), Int(5));
  EXPECT_EQ(TextOf(r), "[1,5]");
  r = Add(Array({1}), Str("x"));
  EXPECT_EQ(TextOf(r), "[1,x]");
  // 8. Right array: left first.
  r = Add(Int(5), Array({1, 2}));
  EXPECT_EQ(r.GetType(), 8192);
  EXPECT_EQ(TextOf(r), "[5,1,2]");
  r = Add(Blob("z"), Array({1}));
  EXPECT_EQ(r.GetConstArray()->Count(), 2);
  EXPECT_EQ(r.GetConstArray()->GetItem(0)->GetType(), 13);
}

TEST(VarAdd, TwoBlobsAreJoined) {
  // 9.
  Ox_Variant r = Add(Blob("ab"), Blob("cd"));
  EXPECT_EQ(r.GetType(), 13);
  EXPECT_EQ(BytesOf(r), "abcd");
}

TEST(VarAdd, ScalarsFallBackToText) {
  // 10. A number and a string that reads 2 make the text 12.
  Ox_Variant r = Add(Int(1), Str("2"));
  EXPECT_EQ(r.GetType(), 8);
  EXPECT_EQ(TextOf(r), "12");
  r = Add(Str("a"), Cur(15000));
  EXPECT_EQ(TextOf(r), "a1.5");
  // A blob and a number: the text [binary] with the number behind it.
  r = Add(Blob("ab"), Int(5));
  EXPECT_EQ(r.GetType(), 8);
  EXPECT_EQ(TextOf(r), "[binary]5");
  // Two dates: their texts run together.
  r = Add(Date(kY2k), Date(kY2k + 1));
  EXPECT_EQ(r.GetType(), 8);
  EXPECT_EQ(TextOf(r), "2000010120000102");
  r = Add(Date(kY2k), Str("!"));
  EXPECT_EQ(TextOf(r), "20000101!");
  // A reference is no known type, but its text reads through.
  Ox_Variant target = Int(5);
  r = Add(Ref(target), Int(1));
  EXPECT_EQ(r.GetType(), 8);
  EXPECT_EQ(TextOf(r), "51");
}

TEST(VarAdd, AnythingElseClears) {
  // 11. A blob and a reference: no rule.
  Ox_Variant target = Int(5);
  Ox_Variant r = Int(3);
  Var_Add(Blob("ab"), Ref(target), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(3);
  Var_Add(Blob("ab"), Ox_Variant(Ox_ObjectHolder()), r);
  EXPECT_EQ(r.GetType(), 0);
}

TEST(VarAdd, ObjectsStandForTheirDefaultProperty) {
  PropObject withDefault(Int(40));
  Ox_Variant r = Add(Obj(withDefault), Int(2));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 42);
  r = Add(Int(2), Obj(withDefault));
  EXPECT_EQ(r.ToInteger(), 42);
  // Without a default property the object itself goes on: plus null it
  // is the result, and plus a number it joins as text.
  PropObject noDefault(Int(1), false);
  r = Add(Obj(noDefault), Ox_Variant());
  EXPECT_EQ(r.GetType(), 16384);
  EXPECT_EQ(r.GetConstObject()->GetObjectA(), &noDefault);
  r = Add(Ox_Variant(), Obj(noDefault));
  EXPECT_EQ(r.GetType(), 16384);
  r = Add(Obj(noDefault), Str("x"));
  EXPECT_EQ(TextOf(r), "[object:prop]x");
  // Both objects: a missing one stands as itself.
  r = Add(Obj(withDefault), Obj(noDefault));
  EXPECT_EQ(TextOf(r), "40[object:prop]");
  // A default property whose read fails is null.
  class Failing : public PropObject {
   public:
    Failing() : PropObject(Ox_Variant()) {}
    const char *GetDefaultProp() const override { return "missing"; }
  } failed;
  r = Add(Obj(failed), Int(4));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 4);
}

TEST(VarAdd, ResultIsWrittenThroughAReference) {
  Ox_Variant target = Str("old");
  Ox_Variant result = Ref(target);
  Var_Add(Int(2), Int(3), result);
  EXPECT_EQ(target.GetType(), 3);
  EXPECT_EQ(target.ToInteger(), 5);
  EXPECT_EQ(result.GetType(), 32768);
}

// ---- Var_Sub -------------------------------------------------------------

TEST(VarSubPairs, IntegerInteger) {
  Ox_Variant r = Sub(Int(2), Int(3));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), -1);
}
TEST(VarSubPairs, IntegerDecimal) {
  Ox_Variant r = Sub(Int(2), Dec(0.5));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 1.5);
}
TEST(VarSubPairs, IntegerCurrency) {
  Ox_Variant r = Sub(Int(2), Cur(15000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 5000);
}
TEST(VarSubPairs, DecimalInteger) {
  Ox_Variant r = Sub(Dec(0.5), Int(2));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), -1.5);
}
TEST(VarSubPairs, DecimalDecimal) {
  Ox_Variant r = Sub(Dec(0.5), Dec(0.25));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 0.25);
}
TEST(VarSubPairs, DecimalCurrency) {
  Ox_Variant r = Sub(Dec(0.5), Cur(15000));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), -1.0);
}
TEST(VarSubPairs, CurrencyInteger) {
  Ox_Variant r = Sub(Cur(15000), Int(2));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), -5000);
}
TEST(VarSubPairs, CurrencyDecimal) {
  Ox_Variant r = Sub(Cur(15000), Dec(0.5));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 1.0);
}
TEST(VarSubPairs, CurrencyCurrency) {
  Ox_Variant r = Sub(Cur(15000), Cur(22500));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), -7500);
}
TEST(VarSubPairs, IntegersWrapAt32Bits) {
  Ox_Variant r = Sub(Int(-2147483647L - 1), Int(1));
  EXPECT_EQ(r.ToInteger(), 2147483647);
}

TEST(VarSubDates, IntegerMinusDate) {
  Ox_Variant r = Sub(Int(730490), Date(kY2k + 0.5));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 5);  // ToInteger of both: 730490 - 730485
}
TEST(VarSubDates, DecimalMinusDate) {
  Ox_Variant r = Sub(Dec(kY2k + 2.75), Date(kY2k + 0.5));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.25);
}
TEST(VarSubDates, CurrencyMinusDate) {
  Ox_Variant r = Sub(Cur(7304905000LL), Date(kY2k));  // 730490.5 - 730485
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 55000);
}
TEST(VarSubDates, DateMinusInteger) {
  Ox_Variant r = Sub(Date(kY2k + 0.5), Int(5));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 730480);
}
TEST(VarSubDates, DateMinusDecimal) {
  Ox_Variant r = Sub(Date(kY2k + 0.5), Dec(0.25));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), kY2k + 0.25);
}
TEST(VarSubDates, DateMinusCurrency) {
  Ox_Variant r = Sub(Date(kY2k), Cur(15000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 7304835000LL);  // 730483.5
}
TEST(VarSubDates, DateMinusDateIsDecimalDays) {
  Ox_Variant r = Sub(Date(kY2k + 2.5), Date(kY2k));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.5);
}

TEST(VarSub, StringsAndOtherTypesGiveNull) {
  // 1. Even a string that reads 2.
  Ox_Variant r = Int(9);
  Var_Sub(Int(1), Str("2"), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Sub(Str("5"), Int(1), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Sub(Blob("a"), Int(1), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Sub(Array({1}), Ox_Variant(), r);
  EXPECT_EQ(r.GetType(), 0);
  // 2. Two nulls.
  r = Int(9);
  Var_Sub(Ox_Variant(), Ox_Variant(), r);
  EXPECT_EQ(r.GetType(), 0);
}

TEST(VarSub, NullLeftNegates) {
  Ox_Variant r = Sub(Ox_Variant(), Int(5));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), -5);
  r = Sub(Ox_Variant(), Dec(2.5));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), -2.5);
  r = Sub(Ox_Variant(), Cur(15000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), -15000);
  // A date turns into a negated currency.
  r = Sub(Ox_Variant(), Date(kY2k));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), -7304850000LL);
}

TEST(VarSub, NullRightGivesTheLeft) {
  Ox_Variant r = Sub(Int(5), Ox_Variant());
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 5);
  r = Sub(Date(kY2k), Ox_Variant());
  EXPECT_EQ(r.GetType(), 7);
}

TEST(VarSub, ObjectRules) {
  PropObject withDefault(Int(10));
  PropObject noDefault(Int(1), false);
  Ox_Variant r = Sub(Obj(withDefault), Int(3));
  EXPECT_EQ(r.ToInteger(), 7);
  // Left object without a default: null goes on, so the right is negated.
  r = Sub(Obj(noDefault), Int(3));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), -3);
  // Right object without a default: the result is the left operand.
  r = Sub(Str("left"), Obj(noDefault));
  EXPECT_EQ(TextOf(r), "left");
  // Both objects: a missing one stays a null temporary.
  r = Sub(Obj(withDefault), Obj(noDefault));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 10);
  r = Sub(Obj(noDefault), Obj(withDefault));
  EXPECT_EQ(r.ToInteger(), -10);
}

// ---- Var_Mul -------------------------------------------------------------

TEST(VarMul, NullStringsAndOthersGiveNull) {
  Ox_Variant r = Int(9);
  Var_Mul(Ox_Variant(), Int(5), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Mul(Int(5), Ox_Variant(), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Mul(Str("2"), Int(3), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Mul(Int(3), Blob("a"), r);
  EXPECT_EQ(r.GetType(), 0);
}

TEST(VarMul, IntegersAndDecimalsAndDates) {
  Ox_Variant r = Mul(Int(6), Int(7));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 42);
  r = Mul(Int(65536), Int(65536));  // wraps to 0
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 0);
  r = Mul(Dec(1.5), Dec(2.0));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 3.0);
  r = Mul(Int(2), Dec(1.5));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 3.0);
  r = Mul(Cur(15000), Dec(2.0));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 3.0);
  r = Mul(Date(2.5), Int(2));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 5.0);
  r = Mul(Cur(20000), Date(1.5));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 3.0);
}

TEST(VarMul, CurrencyByInteger) {
  Ox_Variant r = Mul(Cur(15000), Int(3));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 45000);
  r = Mul(Int(3), Cur(15000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 45000);
}

TEST(VarMul, CurrencyByCurrency) {
  // a. Both whole: the greater times the integer of the other.
  Ox_Variant r = Mul(Cur(20000), Cur(30000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 60000);
  r = Mul(Cur(30000), Cur(20000));
  EXPECT_EQ(CountOf(r), 60000);
  // b. Only the left whole: the right times the integer of the left.
  r = Mul(Cur(20000), Cur(15000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 30000);
  // c. Only the right whole.
  r = Mul(Cur(15000), Cur(20000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 30000);
  // -2 is not whole by IsInt (its low word is 4294947296), so this is
  // case c: -2 times 3.
  r = Mul(Cur(-20000), Cur(30000));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), -60000);
  // d. Neither whole: the left value squared, as a decimal.
  r = Mul(Cur(15000), Cur(25000));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.25);
}

TEST(VarMul, ObjectRules) {
  PropObject withDefault(Int(21));
  PropObject noDefault(Int(1), false);
  Ox_Variant r = Mul(Obj(withDefault), Int(2));
  EXPECT_EQ(r.ToInteger(), 42);
  r = Int(9);
  Var_Mul(Obj(noDefault), Int(2), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Mul(Int(2), Obj(noDefault), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Mul(Obj(withDefault), Obj(noDefault), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Mul(Obj(withDefault), Obj(withDefault));
  EXPECT_EQ(r.ToInteger(), 441);
}

// ---- Var_Div -------------------------------------------------------------

TEST(VarDiv, OperandTest) {
  Ox_Variant r = Int(9);
  Var_Div(Ox_Variant(), Int(1), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Div(Str("4"), Int(2), r);
  EXPECT_EQ(r.GetType(), 0);
}

TEST(VarDiv, CurrencyByInteger) {
  Ox_Variant r = Div(Cur(45000), Int(2));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), 22500);
  // By 0: the overflow marker, not null.
  r = Div(Cur(45000), Int(0));
  EXPECT_EQ(r.GetType(), 6);
  EXPECT_EQ(CountOf(r), INT64_MIN);
}

TEST(VarDiv, ByZeroGivesNull) {
  Ox_Variant r = Int(9);
  Var_Div(Int(1), Int(0), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Div(Dec(1.0), Dec(1e-16), r);
  EXPECT_EQ(r.GetType(), 0);
}

TEST(VarDiv, AlwaysDecimal) {
  Ox_Variant r = Div(Int(7), Int(2));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 3.5);
  r = Div(Cur(45000), Cur(15000));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 3.0);
  r = Div(Int(3), Cur(15000));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.0);
  r = Div(Date(5.0), Dec(2.0));
  EXPECT_EQ(r.GetType(), 5);
  EXPECT_DOUBLE_EQ(r.ToDouble(), 2.5);
}

TEST(VarDiv, ObjectWithoutDefaultClears) {
  PropObject noDefault(Int(1), false);
  Ox_Variant r = Int(9);
  Var_Div(Int(4), Obj(noDefault), r);
  EXPECT_EQ(r.GetType(), 0);
}

// ---- Var_Mod -------------------------------------------------------------

TEST(VarMod, RemainderTakesTheSignOfTheDividend) {
  Ox_Variant r = Mod(Int(-7), Int(2));
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), -1);
  r = Mod(Int(7), Int(-2));
  EXPECT_EQ(r.ToInteger(), 1);
  r = Mod(Int(-2147483647L - 1), Int(-1));
  EXPECT_EQ(r.ToInteger(), 0);
}

TEST(VarMod, OperandsGoThroughToInteger) {
  Ox_Variant r = Mod(Dec(7.9), Int(3));  // 7 % 3
  EXPECT_EQ(r.GetType(), 3);
  EXPECT_EQ(r.ToInteger(), 1);
  r = Mod(Cur(75000), Int(2));  // 7 % 2
  EXPECT_EQ(r.ToInteger(), 1);
}

TEST(VarMod, ZeroDivisorAndBadOperandsGiveNull) {
  Ox_Variant r = Int(9);
  Var_Mod(Int(7), Int(0), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Mod(Int(7), Dec(0.4), r);  // ToInteger 0
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Mod(Str("7"), Int(2), r);
  EXPECT_EQ(r.GetType(), 0);
  r = Int(9);
  Var_Mod(Ox_Variant(), Int(2), r);
  EXPECT_EQ(r.GetType(), 0);
}

// ---- Var_Cat and Var_AndOr -----------------------------------------------

TEST(VarCat, TextsOfBothSides) {
  Ox_Variant r;
  Var_Cat(Ox_Variant(), Ox_Variant(), r);
  EXPECT_EQ(r.GetType(), 8);  // two nulls give an empty string
  EXPECT_EQ(r.GetConstStr()->GetLength(), 0);
  Var_Cat(Str("a"), Int(5), r);
  EXPECT_EQ(TextOf(r), "a5");
  Var_Cat(Int(5), Ox_Variant(), r);
  EXPECT_EQ(TextOf(r), "5");
  Var_Cat(Cur(15000), Date(kY2k), r);
  EXPECT_EQ(TextOf(r), "1.520000101");
}

TEST(VarCat, ResultMayBeAnOperand) {
  Ox_Variant v = Str("ab");
  Var_Cat(v, Str("cd"), v);
  EXPECT_EQ(TextOf(v), "abcd");
  Var_Cat(v, v, v);
  EXPECT_EQ(TextOf(v), "abcdabcd");
}

TEST(VarAndOr, AndAndOr) {
  EXPECT_EQ(Var_AndOr(Int(1), Int(2), 41), 1);
  EXPECT_EQ(Var_AndOr(Int(1), Int(0), 41), 0);
  EXPECT_EQ(Var_AndOr(Str("TRUE"), Int(1), 41), 1);
  EXPECT_EQ(Var_AndOr(Dec(0.5), Int(1), 41), 0);  // ToInteger of 0.5 is 0
  EXPECT_EQ(Var_AndOr(Int(0), Int(0), 42), 0);
  EXPECT_EQ(Var_AndOr(Int(0), Int(3), 42), 1);
  EXPECT_EQ(Var_AndOr(Ox_Variant(), Str("false"), 0), 0);
  EXPECT_EQ(Var_AndOr(Ox_Variant(), Str("7"), 0), 1);
}
