// Ox_Variant: ToString, the conversion table, ChangeType and operator==.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "Ox_Object.h"
#include "Ox_Variant.h"

namespace {

// 4 March 2005 is day 732374 (see variant_test.cpp); its ToString with no
// format is "20050304".
constexpr double kMar4th2005 = 732374.0;
constexpr double kJan1st2000 = 730485.0;

Ox_Variant Blob() {
  Ox_Variant v;
  const unsigned char bytes[] = {'a', 'b'};
  v.SetBinary(bytes, 2);
  return v;
}

// --- ToString ---------------------------------------------------------------

TEST(VariantToString, ByType) {
  EXPECT_STREQ("", Ox_Variant().ToString().GetString());
  EXPECT_STREQ("-42", Ox_Variant(-42L).ToString().GetString());
  EXPECT_STREQ("2.5", Ox_Variant(2.5).ToString().GetString());
  EXPECT_STREQ("12.5", Ox_Variant(Ox_Currency(12, 5000)).ToString().GetString());
  EXPECT_STREQ("20050304",
               Ox_Variant(Ox_DateTime(kMar4th2005)).ToString().GetString());
  EXPECT_STREQ("abc", Ox_Variant("abc").ToString().GetString());
  EXPECT_STREQ("[binary]", Blob().ToString().GetString());
  EXPECT_STREQ("[]", Ox_Variant(Ox_VariantList()).ToString().GetString());
}

TEST(VariantToString, ValuelessTypesAreEmpty) {
  const unsigned short kTypes[] = {1, 2, 4, 9, 10, 11, 12, 99};
  for (unsigned short t : kTypes) {
    Ox_Variant v;
    v.type = t;
    Ox_AString out("old");
    v.ToString(out);
    EXPECT_STREQ("", out.GetString()) << t;
    v.Init();
  }
}

TEST(VariantToString, ArrayWithNullElement) {
  Ox_VariantList list;
  list.Add(Ox_Variant(1L));
  list.Add(Ox_Variant(2L));
  list.Add(static_cast<const Ox_Variant *>(nullptr));
  EXPECT_STREQ("[1,2,]", Ox_Variant(list).ToString().GetString());
}

TEST(VariantToString, ReferenceWithoutTargetLeavesOutput) {
  Ox_Variant v;
  v.type = Ox_Variant::kReference;
  Ox_AString out("kept");
  v.ToString(out);
  EXPECT_STREQ("kept", out.GetString());
  Ox_Variant target(5L);
  Ox_Variant ref;
  ref.SetReference(&target);
  ref.ToString(out);
  EXPECT_STREQ("5", out.GetString());
  EXPECT_STREQ("5", ref.ToAString().GetString());
}

TEST(VariantToString, NumberExpOnlyChangesDecimals) {
  Ox_AString expected;
  expected.NumFormatExp(2.5, 0, 10);
  EXPECT_STREQ(expected.GetString(), Ox_Variant(2.5).ToNumberExp().GetString());
  EXPECT_STREQ("7", Ox_Variant(7L).ToNumberExp().GetString());
  // Array elements and a reference's target use plain ToString.
  Ox_VariantList list;
  list.Add(Ox_Variant(2.5));
  EXPECT_STREQ("[2.5]", Ox_Variant(list).ToNumberExp().GetString());
  Ox_Variant target(2.5);
  Ox_Variant ref;
  ref.SetReference(&target);
  EXPECT_STREQ("2.5", ref.ToNumberExp().GetString());
}

// --- Conversion table: one test per source row --------------------------

TEST(VariantConvert, FromInteger) {
  Ox_Variant v(7L);
  EXPECT_EQ(7, v.ToInteger());
  EXPECT_EQ(7.0, v.ToDouble());
  EXPECT_EQ(70000u, v.ToCurrency().low);  // SetCurrency(7, 0)
  EXPECT_EQ(0, v.ToCurrency().high);
  EXPECT_EQ(7.0, v.ToDateTime().ToDouble());
}

TEST(VariantConvert, FromDecimal) {
  // The nudge: 2.9999999999999996 + 5e-16 reaches 3.
  EXPECT_EQ(3, Ox_Variant(2.9999999999999996).ToInteger());
  EXPECT_EQ(-3, Ox_Variant(-2.9999999999999996).ToInteger());
  EXPECT_EQ(2, Ox_Variant(2.5).ToInteger());
  EXPECT_EQ(-2, Ox_Variant(-2.5).ToInteger());
  EXPECT_EQ(0, Ox_Variant(0.0).ToInteger());
  Ox_Variant v(2.5);
  EXPECT_EQ(2.5, v.ToDouble());
  EXPECT_EQ(25000u, v.ToCurrency().low);
  EXPECT_EQ(2.5, v.ToDateTime().ToDouble());
}

TEST(VariantConvert, FromCurrency) {
  Ox_Variant v(Ox_Currency(12, 5000));  // 12.5
  EXPECT_EQ(12, v.ToInteger());
  EXPECT_EQ(12.5, v.ToDouble());
  EXPECT_EQ(125000u, v.ToCurrency().low);
  EXPECT_EQ(12.5, v.ToDateTime().ToDouble());
}

TEST(VariantConvert, FromDate) {
  Ox_Variant v(Ox_DateTime(kJan1st2000 + 0.5));
  EXPECT_EQ(730485, v.ToInteger());
  EXPECT_EQ(kJan1st2000 + 0.5, v.ToDouble());
  // 730485.5 units are 7304855000 ten-thousandths: high 1, low
  // 7304855000 - 4294967296 = 3009887704.
  Ox_Currency money = v.ToCurrency();
  EXPECT_EQ(1, money.high);
  EXPECT_EQ(3009887704u, money.low);
  EXPECT_EQ(kJan1st2000 + 0.5, v.ToDateTime().ToDouble());
}

TEST(VariantConvert, FromString) {
  EXPECT_EQ(1, Ox_Variant("TRUE").ToInteger());
  EXPECT_EQ(0, Ox_Variant("TRUE").ToDouble());
  EXPECT_EQ(1, Ox_Variant("true").ToInteger());
  EXPECT_EQ(0, Ox_Variant("False").ToInteger());
  EXPECT_EQ(12, Ox_Variant("12.5").ToInteger());
  EXPECT_EQ(12.5, Ox_Variant("12.5").ToDouble());
  EXPECT_EQ(125000u, Ox_Variant("12.5").ToCurrency().low);
  EXPECT_EQ(kMar4th2005, Ox_Variant("20050304").ToDateTime().ToDouble());
  // Month and day default to 0 here, which is no date: the default date.
  EXPECT_EQ(0.0, Ox_Variant("2005").ToDateTime().ToDouble());
  EXPECT_EQ(0.0, Ox_Variant("99").ToDateTime().ToDouble());
}

TEST(VariantConvert, FromOtherTypes) {
  Ox_Variant null;
  EXPECT_EQ(0, null.ToInteger());
  EXPECT_EQ(0.0, null.ToDouble());
  EXPECT_EQ(0u, null.ToCurrency().low);
  EXPECT_EQ(0.0, null.ToDateTime().ToDouble());
  Ox_Variant blob = Blob();
  EXPECT_EQ(0, blob.ToInteger());
  EXPECT_EQ(0.0, blob.ToDouble());
  Ox_Variant array(Ox_VariantList{});
  EXPECT_EQ(0, array.ToInteger());
  EXPECT_EQ(0.0, array.ToDateTime().ToDouble());
}

TEST(VariantConvert, ThroughReference) {
  Ox_Variant target(2.5);
  Ox_Variant ref;
  ref.SetReference(&target);
  EXPECT_EQ(2, ref.ToInteger());
  EXPECT_EQ(2.5, ref.ToDouble());
  EXPECT_EQ(25000u, ref.ToCurrency().low);
  EXPECT_EQ(2.5, ref.ToDateTime().ToDouble());
  Ox_Variant broken;
  broken.type = Ox_Variant::kReference;
  EXPECT_EQ(0, broken.ToInteger());
  EXPECT_EQ(0.0, broken.ToDouble());
}

// --- ChangeType: one test per source row --------------------------------

TEST(VariantChangeType, FromInteger) {
  Ox_Variant v(7L);
  v.ChangeType(3);
  EXPECT_EQ(3, v.GetType());
  EXPECT_EQ(7, v.ToInteger());
  v.ChangeType(5);
  EXPECT_EQ(5, v.GetType());
  EXPECT_EQ(7.0, v.value.dVal);
  Ox_Variant c(7L);
  c.ChangeType(6);
  EXPECT_EQ(6, c.GetType());
  EXPECT_EQ(70000u, c.GetConstCurrency()->low);
  Ox_Variant d(7L);
  d.ChangeType(7);
  EXPECT_EQ(7, d.GetType());
  EXPECT_EQ(7.0, d.GetConstDateTime()->ToDouble());
  Ox_Variant s(7L);
  s.ChangeType(8);
  EXPECT_EQ(8, s.GetType());
  EXPECT_STREQ("7", s.GetConstStr()->GetString());
}

TEST(VariantChangeType, FromDecimal) {
  // No nudge here: 2.9999999999999996 truncates to 2.
  Ox_Variant i(2.9999999999999996);
  i.ChangeType(3);
  EXPECT_EQ(3, i.GetType());
  EXPECT_EQ(2, i.value.lVal);
  Ox_Variant n(-2.5);
  n.ChangeType(3);
  EXPECT_EQ(-2, n.value.lVal);
  Ox_Variant c(2.5);
  c.ChangeType(6);
  EXPECT_EQ(6, c.GetType());
  EXPECT_EQ(25000u, c.GetConstCurrency()->low);
  Ox_Variant d(2.5);
  d.ChangeType(7);
  EXPECT_EQ(2.5, d.GetConstDateTime()->ToDouble());
  Ox_Variant s(2.5);
  s.ChangeType(8);
  EXPECT_STREQ("2.5", s.GetConstStr()->GetString());
  Ox_Variant same(2.5);
  same.ChangeType(5);
  EXPECT_EQ(2.5, same.value.dVal);
}

TEST(VariantChangeType, FromCurrency) {
  Ox_Variant i(Ox_Currency(12, 5000));
  i.ChangeType(3);
  EXPECT_EQ(12, i.value.lVal);
  Ox_Variant f(Ox_Currency(12, 5000));
  f.ChangeType(5);
  EXPECT_EQ(12.5, f.value.dVal);
  Ox_Variant d(Ox_Currency(12, 5000));
  d.ChangeType(7);
  EXPECT_EQ(12.5, d.GetConstDateTime()->ToDouble());
  Ox_Variant s(Ox_Currency(12, 5000));
  s.ChangeType(8);
  EXPECT_STREQ("12.5", s.GetConstStr()->GetString());
}

TEST(VariantChangeType, FromDate) {
  Ox_Variant i{Ox_DateTime(kMar4th2005)};
  i.ChangeType(3);
  EXPECT_EQ(732374, i.value.lVal);
  Ox_Variant f{Ox_DateTime(kMar4th2005)};
  f.ChangeType(5);
  EXPECT_EQ(kMar4th2005, f.value.dVal);
  // 7323740000 ten-thousandths: high 1, low 7323740000 - 4294967296.
  Ox_Variant c{Ox_DateTime(kMar4th2005)};
  c.ChangeType(6);
  EXPECT_EQ(1, c.GetConstCurrency()->high);
  EXPECT_EQ(3028772704u, c.GetConstCurrency()->low);
  Ox_Variant s{Ox_DateTime(kMar4th2005)};
  s.ChangeType(8);
  EXPECT_STREQ("20050304", s.GetConstStr()->GetString());
}

TEST(VariantChangeType, FromString) {
  Ox_Variant i("true");
  i.ChangeType(3);  // with the boolean words
  EXPECT_EQ(3, i.GetType());
  EXPECT_EQ(1, i.value.lVal);
  Ox_Variant f("12.5");
  f.ChangeType(5);
  EXPECT_EQ(12.5, f.value.dVal);
  Ox_Variant c("12.5");
  c.ChangeType(6);
  EXPECT_EQ(125000u, c.GetConstCurrency()->low);
  Ox_Variant d("20050304");
  d.ChangeType(7);
  EXPECT_EQ(kMar4th2005, d.GetConstDateTime()->ToDouble());
  Ox_Variant s("abc");
  s.ChangeType(8);
  EXPECT_STREQ("abc", s.GetConstStr()->GetString());
}

TEST(VariantChangeType, DateDefaultsDifferFromSetDate) {
  // Month and day default to 1: "2005" is 1 January 2005, day
  // 730485 + 366 + 365 + 365 + 365 + 366 = 732312.
  Ox_Variant year("2005");
  year.ChangeType(7);
  EXPECT_EQ(732312.0, year.GetConstDateTime()->ToDouble());
  // Shorter than 4: the whole text is the year. Year 99, 1 January:
  // 99 * 365 + 24 - 0 + 0 + 0 + 1 = 36160.
  Ox_Variant shortText("99");
  shortText.ChangeType(7);
  EXPECT_EQ(36160.0, shortText.GetConstDateTime()->ToDouble());
}

TEST(VariantChangeType, FromOtherTypes) {
  Ox_Variant i;
  i.ChangeType(3);
  EXPECT_EQ(3, i.GetType());
  EXPECT_EQ(0, i.value.lVal);
  Ox_Variant f;
  f.ChangeType(5);
  EXPECT_EQ(5, f.GetType());
  EXPECT_EQ(0.0, f.value.dVal);
  Ox_Variant c;
  c.ChangeType(6);
  EXPECT_EQ(6, c.GetType());
  EXPECT_EQ(0u, c.GetConstCurrency()->low);
  Ox_Variant d;
  d.ChangeType(7);
  EXPECT_EQ(7, d.GetType());
  EXPECT_EQ(0.0, d.GetConstDateTime()->ToDouble());
  Ox_Variant s;
  s.ChangeType(8);
  EXPECT_EQ(8, s.GetType());
  EXPECT_EQ(0, s.GetConstStr()->GetLength());
  Ox_Variant b = Blob();
  b.ChangeType(8);  // ToString of a blob
  EXPECT_STREQ("[binary]", b.GetConstStr()->GetString());
  Ox_Variant bi = Blob();
  bi.ChangeType(3);
  EXPECT_EQ(0, bi.value.lVal);
}

TEST(VariantChangeType, EmptyStringBecomesNull) {
  for (unsigned short t : {3, 5, 6, 7}) {
    Ox_Variant v("");
    v.ChangeType(t);
    EXPECT_EQ(0, v.GetType()) << t;
  }
  Ox_Variant text("");
  text.ChangeType(8);
  EXPECT_EQ(8, text.GetType());
}

TEST(VariantChangeType, StringToBlobKeepsBytes) {
  Ox_Variant v("abc");
  v.ChangeType(13);
  EXPECT_EQ(13, v.GetType());
  ASSERT_EQ(3, v.GetConstBinary()->GetSize());
  EXPECT_EQ(0, std::memcmp("abc", v.GetConstBinary()->GetData(), 3));
}

TEST(VariantChangeType, FromAnotherVariant) {
  Ox_Variant source("12.5");
  Ox_Variant v(1L);
  v.ChangeType(5, &source);
  EXPECT_EQ(5, v.GetType());
  EXPECT_EQ(12.5, v.value.dVal);
  EXPECT_EQ(8, source.GetType());
  // Outside the convertible set nothing happens with another source.
  Ox_Variant w(1L);
  w.ChangeType(13, &source);
  EXPECT_EQ(3, w.GetType());
  // An empty text source makes this variant null.
  Ox_Variant empty("");
  Ox_Variant x(1L);
  x.ChangeType(3, &empty);
  EXPECT_EQ(0, x.GetType());
}

TEST(VariantChangeType, ReferenceConvertsItsTarget) {
  Ox_Variant target("42");
  Ox_Variant ref;
  ref.SetReference(&target);
  ref.ChangeType(3);
  EXPECT_EQ(3, target.GetType());
  EXPECT_EQ(42, target.value.lVal);
  EXPECT_EQ(32768, ref.GetType());
}

TEST(VariantChangeType, UnsafeTagRewritesAreRefused) {
  Ox_Variant v("abc");
  v.ChangeType(8192);
  EXPECT_EQ(8, v.GetType());
  EXPECT_STREQ("abc", v.GetConstStr()->GetString());
}

// --- operator== against plain values: one test per right-side row ------

TEST(VariantEqualsPlain, Text) {
  EXPECT_FALSE(Ox_Variant(5L) == "5");
  EXPECT_FALSE(Ox_Variant(5.0) == "5");
  EXPECT_FALSE(Ox_Variant(Ox_Currency(5, 0)) == "5");
  EXPECT_FALSE(Ox_Variant(Ox_DateTime(5.0)) == "5");
  EXPECT_TRUE(Ox_Variant("abc") == "abc");
  EXPECT_FALSE(Ox_Variant("abc") == "ABC");
  // A string whose pointer is null equals "" and a null text.
  Ox_Variant empty;
  empty.Set(static_cast<const char *>(nullptr));
  EXPECT_EQ(8, empty.GetType());
  EXPECT_TRUE(empty == "");
  EXPECT_TRUE(empty == static_cast<const char *>(nullptr));
  EXPECT_FALSE(Ox_Variant() == "");
}

TEST(VariantEqualsPlain, Long) {
  EXPECT_TRUE(Ox_Variant(5L) == 5L);
  EXPECT_FALSE(Ox_Variant(5L) == 6L);
  EXPECT_TRUE(Ox_Variant(5.00000000001) == 5L);  // within 1e-10
  EXPECT_FALSE(Ox_Variant(5.001) == 5L);
  EXPECT_TRUE(Ox_Variant(Ox_Currency(5, 5000)) == 5L);  // ToInteger 5
  EXPECT_TRUE(Ox_Variant(Ox_DateTime(kJan1st2000 + 0.75)) == 730485L);
  EXPECT_FALSE(Ox_Variant("5") == 5L);
  EXPECT_FALSE(Ox_Variant() == 0L);
}

TEST(VariantEqualsPlain, Double) {
  EXPECT_TRUE(Ox_Variant(5L) == 5.00000000001);
  EXPECT_FALSE(Ox_Variant(5L) == 5.0001);
  EXPECT_TRUE(Ox_Variant(2.5) == 2.50000000001);
  EXPECT_TRUE(Ox_Variant(Ox_Currency(2, 5000)) == 2.5);
  EXPECT_TRUE(Ox_Variant(Ox_DateTime(2.5)) == 2.5);
  EXPECT_FALSE(Ox_Variant(Ox_DateTime(2.5)) == 2.50000000001);  // exact
  EXPECT_FALSE(Ox_Variant("2.5") == 2.5);
}

TEST(VariantEqualsPlain, Currency) {
  const Ox_Currency fiveAndAHalf(5, 5000);
  EXPECT_TRUE(Ox_Variant(5L) == fiveAndAHalf);  // its ToInteger
  EXPECT_TRUE(Ox_Variant(5.5) == fiveAndAHalf);
  EXPECT_TRUE(Ox_Variant(Ox_Currency(5, 5000)) == fiveAndAHalf);
  EXPECT_FALSE(Ox_Variant(Ox_Currency(5, 0)) == fiveAndAHalf);
  EXPECT_TRUE(Ox_Variant(Ox_DateTime(5.5)) == fiveAndAHalf);
  EXPECT_FALSE(Ox_Variant("5.5") == fiveAndAHalf);
}

TEST(VariantEqualsPlain, DateTime) {
  const Ox_DateTime date(kJan1st2000 + 0.75);
  EXPECT_TRUE(Ox_Variant(730485L) == date);
  EXPECT_TRUE(Ox_Variant(kJan1st2000 + 0.75) == date);
  EXPECT_TRUE(Ox_Variant(Ox_Currency(2, 5000)) == Ox_DateTime(2.5));
  EXPECT_TRUE(Ox_Variant(Ox_DateTime(kJan1st2000 + 0.75)) == date);
  EXPECT_FALSE(Ox_Variant(Ox_DateTime(kJan1st2000)) == date);
  EXPECT_FALSE(Ox_Variant("x") == date);
}

TEST(VariantEqualsVariant, ByType) {
  EXPECT_TRUE(Ox_Variant() == Ox_Variant());
  EXPECT_TRUE(Ox_Variant(3L) == Ox_Variant(3L));
  EXPECT_FALSE(Ox_Variant(3L) == Ox_Variant(3.0));  // types differ
  EXPECT_TRUE(Ox_Variant(1.0) == Ox_Variant(1.00000000001));
  EXPECT_TRUE(Ox_Variant(Ox_Currency(1, 0)) == Ox_Variant(Ox_Currency(1, 0)));
  EXPECT_TRUE(Ox_Variant(Ox_DateTime(1.0)) == Ox_Variant(Ox_DateTime(1.0)));
  EXPECT_TRUE(Ox_Variant("a") == Ox_Variant("a"));
  EXPECT_FALSE(Ox_Variant("a") == Ox_Variant("b"));
  EXPECT_TRUE(Blob() == Blob());
  Ox_Variant other;
  const unsigned char ac[] = {'a', 'c'};
  other.SetBinary(ac, 2);
  EXPECT_FALSE(Blob() == other);
  Ox_Variant shorter;
  shorter.SetBinary(ac, 1);
  EXPECT_FALSE(Blob() == shorter);
}

TEST(VariantEqualsVariant, NullAndEmptyDiffer) {
  Ox_Variant empty("");
  EXPECT_FALSE(Ox_Variant() == empty);
  Ox_Variant nullPointer;
  nullPointer.Set(static_cast<const char *>(nullptr));
  EXPECT_TRUE(empty == nullPointer);  // null and empty text are equal
}

TEST(VariantEqualsVariant, ArraysNeverEqual) {
  Ox_VariantList list;
  list.Add(Ox_Variant(1L));
  Ox_Variant a(list);
  Ox_Variant b(list);
  EXPECT_FALSE(a == b);
  EXPECT_FALSE(a == a);
}

TEST(VariantEqualsVariant, References) {
  Ox_Variant x(5L);
  Ox_Variant y(5L);
  Ox_Variant rx;
  rx.SetReference(&x);
  Ox_Variant ry;
  ry.SetReference(&y);
  EXPECT_TRUE(rx == ry);  // both followed
  EXPECT_FALSE(rx == y);  // a mixed pair is unequal
  Ox_Variant broken;
  broken.type = Ox_Variant::kReference;
  EXPECT_FALSE(broken == rx);
}

}  // namespace

namespace {

// Every kind of variant, references with and without a target included.
std::vector<Ox_Variant> AllKinds(Ox_Variant &target) {
  std::vector<Ox_Variant> all(13);
  all[1].Set(-7L);
  all[2].Set(2.5);
  all[3].SetCurrency(1L, 5000L);
  all[4].SetDate(2000, 1, 1, 12, 0, 0);
  all[5].Set("text");
  all[6].Set("");
  const unsigned char bytes[] = {0, 1, 2};
  all[7].SetBinary(bytes, 3);
  Ox_VariantList list;
  list.Add(Ox_Variant(1L));
  all[8].Set(list);
  all[9].Set(Ox_ObjectHolder());
  all[10].SetReference(&target);
  all[11].type = Ox_Variant::kReference;  // no target
  all[12].type = 11;                      // a number with no value
  return all;
}

TEST(VariantRobustness, ChangeTypeOverAllPairsKeepsAWellFormedVariant) {
  const unsigned short kTargets[] = {0, 1, 3, 5, 6, 7, 8, 13, 8192, 16384,
                                     32768, 99};
  for (size_t i = 0; i < 13; ++i) {
    for (unsigned short newType : kTargets) {
      Ox_Variant target("12");
      std::vector<Ox_Variant> all = AllKinds(target);
      Ox_Variant &v = all[i];
      const unsigned short before = v.GetType();
      v.ChangeType(newType);
      Ox_Variant *end = &v;
      while (end->GetType() == Ox_Variant::kReference &&
             end->GetReference() != nullptr) {
        end = end->GetReference();
      }
      const unsigned short after = end->GetType();
      const bool convertible = newType == 3 || newType == 5 || newType == 6 ||
                               newType == 7 || newType == 8;
      if (convertible) {
        // The new type, or null for an empty text asked to be a number.
        EXPECT_TRUE(after == newType || after == 0) << i << "->" << newType;
      } else if (before == 8 && newType == 13) {
        EXPECT_EQ(13, after);
      } else {
        EXPECT_EQ(before, v.GetType()) << i << "->" << newType;
      }
      (void)v.ToString();  // readable afterwards
    }
  }
}

TEST(VariantRobustness, EqualityAndTextOverAllPairs) {
  Ox_Variant target("12");
  std::vector<Ox_Variant> all = AllKinds(target);
  for (size_t i = 0; i < all.size(); ++i) {
    for (size_t j = 0; j < all.size(); ++j) {
      const int equal = all[i] == all[j];
      if (i != j && all[i].GetType() != all[j].GetType()) {
        EXPECT_EQ(0, equal);
      }
      Ox_Variant copy;
      copy.Set(all[j]);
      all[i].Set(copy);  // every kind over every kind
    }
    (void)all[i].ToNumberExp();
    (void)all[i].ToInteger();
    (void)all[i].ToCurrency();
  }
  SUCCEED();
}

}  // namespace
