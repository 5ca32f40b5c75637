// Ox_Variant: circles of references end every walk along a chain, and
// operator+=(int) picks the long form.
#include <gtest/gtest.h>

#include "Ox_Variant.h"

namespace {

// Writes a reference into the record directly: the setters refuse to make
// a circle, but the record is open to any caller.
void Link(Ox_Variant &from, Ox_Variant &to) {
  from.type = Ox_Variant::kReference;
  from.value.ref = &to;
}

// Unlinks before the variants go out of scope.
void Unlink(Ox_Variant &v) {
  if (v.type == Ox_Variant::kReference) v.type = Ox_Variant::kNull;
}

TEST(VariantCycle, SelfReferenceReadsAsNull) {
  Ox_Variant v;
  Link(v, v);
  EXPECT_EQ(v.ToInteger(), 0);
  EXPECT_EQ(v.ToDouble(), 0.0);
  EXPECT_STREQ(v.ToString().GetString(), "");
  Unlink(v);
}

TEST(VariantCycle, AdditionOnASelfReferenceDoesNothing) {
  Ox_Variant v;
  Link(v, v);
  v += 5L;
  v += 2.5;
  v += Ox_AString("x");
  EXPECT_EQ(v.GetType(), Ox_Variant::kReference);
  EXPECT_EQ(v.GetReference(), &v);
  Unlink(v);
}

TEST(VariantCycle, TwoVariantCircleReadsAsNullAndEqualsNothing) {
  Ox_Variant a, b;
  Link(a, b);
  Link(b, a);
  EXPECT_EQ(a.ToInteger(), 0);
  EXPECT_EQ(b.ToDouble(), 0.0);
  EXPECT_EQ(a == b, 0);
  EXPECT_EQ(a == a, 0);
  a += 1L;  // no end to add to
  EXPECT_EQ(a.GetReference(), &b);
  EXPECT_EQ(b.GetReference(), &a);
  Unlink(a);
  Unlink(b);
}

TEST(VariantCycle, WriteIntoACircleLandsOnTheVariantItself) {
  // a -> b -> a: setting a stores 7 in a, which leaves the circle; b then
  // reads 7 through a.
  Ox_Variant a, b;
  Link(a, b);
  Link(b, a);
  a.Set(7L);
  EXPECT_EQ(a.GetType(), Ox_Variant::kInteger);
  EXPECT_EQ(a.ToInteger(), 7);
  EXPECT_EQ(b.ToInteger(), 7);
  Unlink(b);
}

TEST(VariantCycle, ReferenceIntoACircleStaysNull) {
  Ox_Variant a, b, c;
  Link(a, b);
  Link(b, a);
  c.SetReference(&a);
  EXPECT_EQ(c.GetType(), Ox_Variant::kNull);
  Unlink(a);
  Unlink(b);
}

TEST(VariantCycle, ChainWithAnEndIsStillFollowed) {
  // c -> b -> a (7) written directly, three links long: reads give 7 and
  // an addition lands on a.
  Ox_Variant a, b, c;
  a.Set(7L);
  Link(b, a);
  Link(c, b);
  EXPECT_EQ(c.ToInteger(), 7);
  c += 3L;
  EXPECT_EQ(a.ToInteger(), 10);
  Unlink(b);
  Unlink(c);
}

TEST(VariantPlusInt, IntAddsAsLong) {
  Ox_Variant n;
  n.Set(2L);
  n += 5;
  EXPECT_EQ(n.GetType(), Ox_Variant::kInteger);
  EXPECT_EQ(n.ToInteger(), 7);

  Ox_Variant d;
  d.Set(1.5);
  d += 1;
  EXPECT_EQ(d.ToDouble(), 2.5);

  // A text appends the digits of the long form.
  Ox_Variant s;
  s.Set("a");
  s += -12;
  EXPECT_STREQ(s.ToString().GetString(), "a-12");

  // Null becomes the integer.
  Ox_Variant z;
  z += 4;
  EXPECT_EQ(z.GetType(), Ox_Variant::kInteger);
  EXPECT_EQ(z.ToInteger(), 4);
}

}  // namespace
