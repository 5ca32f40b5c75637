// Var_Cmp and Ox_Variant::Compare: every step, the opcodes, the two
// tolerances, and the text comparison.
#include <gtest/gtest.h>

#include "arith_helpers.h"

using namespace arith;

namespace {

constexpr short kOpcodes[] = {31, 32, 33, 34, 35};

// The five opcodes' answers as a text such as "10101" (31 to 35).
std::string Answers(const Ox_Variant &l, const Ox_Variant &r) {
  std::string out;
  for (short op : kOpcodes) out += char('0' + Var_Cmp(l, r, op));
  return out;
}

// The answers of an ordering: equal, greater or less.
const char *const kEqual = "10101";
const char *const kGreater = "01100";
const char *const kLess = "00011";
const char *const kNothing = "00000";

}  // namespace

TEST(VarCmp, NullsAreEqualOnlyToEachOther) {
  // 1. Two nulls: 1 for 31, 33 and 35.
  EXPECT_EQ(Var_Cmp(Ox_Variant(), Ox_Variant(), 33), 1);
  EXPECT_EQ(Answers(Ox_Variant(), Ox_Variant()), kEqual);
  // A null and 0: 0 with every opcode, both ways round (step 2).
  EXPECT_EQ(Answers(Ox_Variant(), Int(0)), kNothing);
  EXPECT_EQ(Answers(Int(0), Ox_Variant()), kNothing);
  EXPECT_EQ(Answers(Str(""), Ox_Variant()), kNothing);
}

TEST(VarCmp, UnknownOpcodesNeverHold) {
  for (short op : {0, 30, 36, 41, -31}) {
    EXPECT_EQ(Var_Cmp(Int(1), Int(1), op), 0) << op;
    EXPECT_EQ(Var_Cmp(Ox_Variant(), Ox_Variant(), op), 0) << op;
    EXPECT_EQ(Var_Cmp(Int(1), Dec(2.0), op), 0) << op;
  }
}

TEST(VarCmp, LikeTypesGoThroughCompare) {
  // 3.
  EXPECT_EQ(Answers(Int(1), Int(2)), kLess);
  EXPECT_EQ(Answers(Int(2), Int(1)), kGreater);
  EXPECT_EQ(Answers(Int(2), Int(2)), kEqual);
  // A difference of 1e-11 between two decimals is equal by Compare.
  EXPECT_EQ(Answers(Dec(1.0), Dec(1.0 + 1e-11)), kEqual);
  EXPECT_EQ(Answers(Str("abc"), Str("abd")), kLess);
  EXPECT_EQ(Answers(Cur(15000), Cur(15000)), kEqual);
  EXPECT_EQ(Answers(Date(5.5), Date(5.25)), kGreater);
  // Arrays compare as equal (Compare gives 0).
  EXPECT_EQ(Answers(Array({1}), Array({2})), kEqual);
}

TEST(VarCmp, NumbersAndDatesByValue) {
  // 6. The decimal 1.0 and the integer 1 are equal.
  EXPECT_EQ(Var_Cmp(Dec(1.0), Int(1), 31), 1);
  // Between an integer and a decimal the tolerance is 1e-12: 1e-11 is a
  // difference.
  EXPECT_EQ(Answers(Int(1), Dec(1.0 + 1e-11)), kLess);
  EXPECT_EQ(Answers(Dec(1.0 + 1e-13), Int(1)), kEqual);
  EXPECT_EQ(Answers(Cur(15000), Dec(1.5)), kEqual);
  EXPECT_EQ(Answers(Cur(15000), Int(1)), kGreater);
  EXPECT_EQ(Answers(Date(730485.0), Int(730486)), kLess);
  EXPECT_EQ(Answers(Int(730485), Date(730485.0)), kEqual);
}

TEST(VarCmp, StringAgainstNumberByText) {
  // 7. The integer 10 against a string that reads 9 is less.
  EXPECT_EQ(Answers(Int(10), Str("9")), kLess);
  EXPECT_EQ(Answers(Str("9"), Int(10)), kGreater);
  EXPECT_EQ(Answers(Str("12"), Int(12)), kEqual);
  EXPECT_EQ(Answers(Str("1.5"), Cur(15000)), kEqual);
  EXPECT_EQ(Answers(Str("20000101"), Date(730485.0)), kEqual);
  // An empty text sorts before any other.
  EXPECT_EQ(Answers(Str(""), Int(0)), kLess);
}

TEST(VarCmp, EverythingElseIsNothing) {
  // 8.
  EXPECT_EQ(Answers(Blob("a"), Int(1)), kNothing);
  EXPECT_EQ(Answers(Blob("a"), Str("a")), kNothing);
  EXPECT_EQ(Answers(Array({1}), Int(1)), kNothing);
  Ox_Variant target = Int(1);
  EXPECT_EQ(Answers(Ref(target), Int(1)), kNothing);
}

TEST(VarCmp, ObjectsStandForTheirDefaultProperty) {
  // 4, then 5 to 7 with the values.
  PropObject answer(Int(42));
  PropObject text(Str("abc"));
  PropObject noDefault(Int(1), false);
  EXPECT_EQ(Answers(Obj(answer), Int(42)), kEqual);
  EXPECT_EQ(Answers(Int(41), Obj(answer)), kLess);
  // 5. Two texts after the replacement.
  EXPECT_EQ(Answers(Obj(text), Str("abd")), kLess);
  EXPECT_EQ(Answers(Str("abc"), Obj(text)), kEqual);
  // No default property: a null temporary, which as a left side compares
  // by value (0 - 5 is less) ...
  EXPECT_EQ(Answers(Obj(noDefault), Int(5)), kLess);
  // ... and as a right side matches nothing.
  EXPECT_EQ(Answers(Int(5), Obj(noDefault)), kNothing);
  EXPECT_EQ(Answers(Obj(noDefault), Str("")), kEqual);
  // Two objects have the same type: Compare of the holders decides.
  EXPECT_EQ(Answers(Obj(answer), Obj(answer)), kEqual);
  EXPECT_EQ(Answers(Obj(answer), Obj(text)), kGreater);
}

TEST(VariantCompare, NullsAndTypeMismatches) {
  EXPECT_EQ(Ox_Variant().Compare(Ox_Variant()), 0);
  // The integer 1 and a string that reads 1: 1, both ways round.
  EXPECT_EQ(Int(1).Compare(Str("1")), 1);
  EXPECT_EQ(Str("1").Compare(Int(1)), 1);
  EXPECT_EQ(Ox_Variant().Compare(Int(0)), 1);
  EXPECT_EQ(Int(0).Compare(Ox_Variant()), 1);
}

TEST(VariantCompare, Integers) {
  EXPECT_EQ(Int(5).Compare(Int(3)), 2);
  EXPECT_EQ(Int(3).Compare(Int(5)), -2);
  EXPECT_EQ(Int(3).Compare(Int(3)), 0);
  // Left minus right wraps: the most negative minus 1 is the most positive.
  EXPECT_EQ(Int(-2147483647L - 1).Compare(Int(1)), 2147483647);
}

TEST(VariantCompare, Decimals) {
  EXPECT_EQ(Dec(1.0).Compare(Dec(1.0 + 1e-11)), 0);
  EXPECT_EQ(Dec(0.5).Compare(Dec(1.0)), -1);
  EXPECT_EQ(Dec(1.5).Compare(Dec(1.0)), 1);
  EXPECT_EQ(Dec(1.0).Compare(Dec(1.0 + 2e-10)), -1);
}

TEST(VariantCompare, CurrenciesAndDatesWithoutTolerance) {
  EXPECT_EQ(Cur(15000).Compare(Cur(25000)), -1);
  EXPECT_EQ(Cur(25000).Compare(Cur(15000)), 1);
  EXPECT_EQ(Cur(1).Compare(Cur(1)), 0);
  EXPECT_EQ(Cur(2).Compare(Cur(1)), 1);
  // The difference overflows to the marker, which is negative.
  EXPECT_EQ(Cur(INT64_MIN).Compare(Cur(1)), -1);
  EXPECT_EQ(Date(5.0).Compare(Date(5.0 + 1e-12)), -1);
  EXPECT_EQ(Date(6.0).Compare(Date(5.0)), 1);
  EXPECT_EQ(Date(6.0).Compare(Date(6.0)), 0);
  // Negative dates compare by their arithmetic values.
  EXPECT_EQ(Date(-1.75).Compare(Date(-1.25)), -1);
}

TEST(VariantCompare, StringsBlobsObjectsAndArrays) {
  EXPECT_LT(Str("abc").Compare(Str("abd")), 0);
  EXPECT_GT(Str("b").Compare(Str("abc")), 0);
  EXPECT_EQ(Str("abc").Compare(Str("abc")), 0);
  EXPECT_LT(Str("").Compare(Str("a")), 0);
  // Blobs: the length difference, then the bytes.
  EXPECT_EQ(Blob("abc").Compare(Blob("abcde")), -2);
  EXPECT_EQ(Blob("abcde").Compare(Blob("ab")), 3);
  EXPECT_LT(Blob("abc").Compare(Blob("abd")), 0);
  EXPECT_EQ(Blob("abc").Compare(Blob("abc")), 0);
  PropObject a(Int(1)), b(Int(1));
  EXPECT_EQ(Obj(a).Compare(Obj(a)), 0);
  EXPECT_EQ(Obj(a).Compare(Obj(b)), 1);
  EXPECT_EQ(Array({1}).Compare(Array({2, 3})), 0);
}

TEST(VariantCompare, ReferencesCompareByTheirTargets) {
  Ox_Variant five = Int(5), three = Int(3);
  EXPECT_EQ(Ref(five).Compare(Int(3)), 2);
  EXPECT_EQ(Int(3).Compare(Ref(five)), -2);
  EXPECT_EQ(Ref(five).Compare(Ref(three)), 2);
  EXPECT_EQ(Ref(five).Compare(Str("5")), 1);
}
