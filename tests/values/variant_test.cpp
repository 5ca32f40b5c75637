// Ox_Variant: construction, setters, references, type names.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

#include "Ox_Variant.h"

namespace {

// Day numbers worked out by hand: 1 January 2000 is 730485 (given);
// 4 March 2005 is 730485 + 366 + 365 + 365 + 365 + 366 (to 1 January 2005)
// + 31 + 28 + 3 = 732374.
constexpr double kJan1st2000 = 730485.0;
constexpr double kMar4th2005 = 732374.0;

TEST(VariantBasics, NewVariantIsNull) {
  Ox_Variant v;
  EXPECT_EQ(0, v.GetType());
  EXPECT_STREQ("null", v.GetTypeString());
  EXPECT_STREQ("", v.ToString().GetString());
  EXPECT_EQ(0, v.ToInteger());
  // All of the record is zero.
  Ox_Variant zero;
  std::memset(static_cast<void *>(&zero), 0, sizeof zero);
  EXPECT_EQ(0, std::memcmp(&v, &zero, sizeof v));
}

TEST(VariantBasics, RecordIsSmall) {
  EXPECT_LE(sizeof(Ox_Variant), 32u);
  EXPECT_EQ(2u, sizeof(Ox_Variant().type));
}

TEST(VariantBasics, ConstructorsSetTypeAndValue) {
  EXPECT_EQ(8, Ox_Variant(Ox_AString("abc")).GetType());
  Ox_Variant part("abcdef", 3);
  EXPECT_EQ(8, part.GetType());
  EXPECT_STREQ("abc", part.GetConstStr()->GetString());
  EXPECT_STREQ("abcdef", Ox_Variant("abcdef").GetConstStr()->GetString());
  Ox_Variant integer(42L);
  EXPECT_EQ(3, integer.GetType());
  EXPECT_EQ(42, integer.value.lVal);
  Ox_Variant decimal(2.5);
  EXPECT_EQ(5, decimal.GetType());
  EXPECT_EQ(2.5, decimal.value.dVal);
  Ox_Variant money(Ox_Currency(1, 0));
  EXPECT_EQ(6, money.GetType());
  EXPECT_EQ(10000u, money.GetConstCurrency()->low);
  Ox_Variant date{Ox_DateTime(kJan1st2000)};
  EXPECT_EQ(7, date.GetType());
  EXPECT_EQ(kJan1st2000, date.GetConstDateTime()->ToDouble());
  Ox_VariantList list;
  list.Add(Ox_Variant(1L));
  Ox_Variant array(list);
  EXPECT_EQ(8192, array.GetType());
  EXPECT_EQ(1, array.GetConstArray()->Count());
  Ox_Variant copy(integer);
  EXPECT_EQ(3, copy.GetType());
  EXPECT_EQ(42, copy.value.lVal);
}

TEST(VariantBasics, IntegerWrapsAtThirtyTwoBits) {
  Ox_Variant v;
  v.Set(2147483648L);  // 2^31 wraps to -2^31
  EXPECT_EQ(3, v.GetType());
  EXPECT_EQ(-2147483647L - 1, v.ToInteger());
  v.Set(4294967297L);  // 2^32 + 1 wraps to 1
  EXPECT_EQ(1, v.ToInteger());
}

TEST(VariantSetters, TextSetters) {
  Ox_Variant v;
  v.Set("hello", -1);
  EXPECT_EQ(8, v.GetType());
  EXPECT_STREQ("hello", v.GetConstStr()->GetString());
  v.SetStr("hello", 4);
  EXPECT_STREQ("hell", v.GetConstStr()->GetString());
  v.Set(Ox_AString("xyz"));
  EXPECT_STREQ("xyz", v.GetConstStr()->GetString());
  // A text taken from the variant itself survives the clear.
  v.Set(*v.GetConstStr());
  EXPECT_STREQ("xyz", v.GetConstStr()->GetString());
  v.Set(v.GetConstStr()->GetString() + 1, -1);
  EXPECT_STREQ("yz", v.GetConstStr()->GetString());
}

TEST(VariantSetters, IntegerAndDoubleFromText) {
  Ox_Variant v;
  v.SetInteger("42abc");  // atol stops at the first non-digit
  EXPECT_EQ(3, v.GetType());
  EXPECT_EQ(42, v.ToInteger());
  v.SetInteger(nullptr);
  EXPECT_EQ(3, v.GetType());
  EXPECT_EQ(0, v.ToInteger());
  v.SetInteger("");
  EXPECT_EQ(3, v.GetType());
  EXPECT_EQ(0, v.ToInteger());
  v.SetDouble("2.25");
  EXPECT_EQ(5, v.GetType());
  EXPECT_EQ(2.25, v.ToDouble());
  v.SetDouble(nullptr);
  EXPECT_EQ(5, v.GetType());
  EXPECT_EQ(0.0, v.ToDouble());
  v.SetDouble("");
  EXPECT_EQ(5, v.GetType());
}

TEST(VariantSetters, CurrencySetters) {
  Ox_Variant v;
  v.SetCurrency(12L, 5000L);  // 12 units and 5000 ten-thousandths
  EXPECT_EQ(6, v.GetType());
  EXPECT_EQ(125000u, v.GetConstCurrency()->low);
  EXPECT_EQ(0, v.GetConstCurrency()->high);
  v.SetCurrency(1.5);
  EXPECT_EQ(15000u, v.GetConstCurrency()->low);
  v.SetCurrency("2.5");
  EXPECT_EQ(25000u, v.GetConstCurrency()->low);
  v.SetCurrency(static_cast<const char *>(nullptr));
  EXPECT_EQ(6, v.GetType());
  EXPECT_EQ(0u, v.GetConstCurrency()->low);  // zero
  v.Set(Ox_Currency(3, 0));
  EXPECT_EQ(30000u, v.GetConstCurrency()->low);
}

TEST(VariantSetters, DateSetters) {
  Ox_Variant v;
  v.SetDate(2000, 1, 1, 0, 0, 0);
  EXPECT_EQ(7, v.GetType());
  EXPECT_EQ(kJan1st2000, v.ToDouble());
  v.SetDate(kMar4th2005);
  EXPECT_EQ(kMar4th2005, v.ToDouble());
  v.SetDate(Ox_DateTime(kJan1st2000 + 0.5));
  EXPECT_EQ(kJan1st2000 + 0.5, v.ToDouble());
  v.Set(Ox_DateTime(1.0));
  EXPECT_EQ(1.0, v.ToDouble());
}

TEST(VariantSetters, DateFromSecondsIsLocalTime) {
  const char *old = std::getenv("TZ");
  std::string saved = old ? old : "";
  setenv("TZ", "UTC", 1);
  tzset();
  Ox_Variant v;
  v.SetDate(static_cast<Ox_Int64>(0));
  // 1 January 1970: 730485 - 10957 (30 years, 7 of them leap) = 719528.
  EXPECT_EQ(7, v.GetType());
  EXPECT_EQ(719528.0, v.ToDouble());
  if (old) setenv("TZ", saved.c_str(), 1); else unsetenv("TZ");
  tzset();
}

TEST(VariantSetters, FixedPositionDateText) {
  Ox_Variant v;
  v.SetDate(Ox_AString("20050304102030"));
  EXPECT_EQ(7, v.GetType());
  EXPECT_DOUBLE_EQ(kMar4th2005 + (10 * 3600 + 20 * 60 + 30) / 86400.0,
                   v.ToDouble());
  v.SetDate(Ox_AString("20050304"));
  EXPECT_EQ(kMar4th2005, v.ToDouble());
  // A text that stops before the month leaves month and day 0: no valid
  // date, so the default date stays.
  v.SetDate(Ox_AString("2005"));
  EXPECT_EQ(7, v.GetType());
  EXPECT_EQ(0.0, v.ToDouble());
  // A partial slice is not read: "2005030" has no whole day slice.
  v.SetDate(Ox_AString("2005030"));
  EXPECT_EQ(0.0, v.ToDouble());
}

TEST(VariantSetters, BinarySetters) {
  const unsigned char bytes[] = {1, 2, 0, 4};
  Ox_Variant v;
  v.SetBinary(bytes, 4);
  EXPECT_EQ(13, v.GetType());
  EXPECT_EQ(4, v.GetConstBinary()->GetSize());
  EXPECT_EQ(0, std::memcmp(bytes, v.GetConstBinary()->GetData(), 4));
  Ox_Buffer buffer;
  buffer.Set(bytes, 2);
  v.SetBinary(buffer);
  EXPECT_EQ(2, v.GetConstBinary()->GetSize());
  // The block is shared, not copied.
  EXPECT_EQ(buffer.GetData(), v.GetConstBinary()->GetData());
  Ox_Variant w;
  w = buffer;
  EXPECT_EQ(13, w.GetType());
  v.SetBinary(nullptr, 3);
  EXPECT_EQ(13, v.GetType());
  EXPECT_EQ(0, v.GetConstBinary()->GetSize());
}

TEST(VariantSetters, ArrayIsDeepCopy) {
  Ox_VariantList list;
  list.Add(Ox_Variant(1L));
  Ox_Variant v;
  v.Set(list);
  list.GetItem(0)->Set(99L);
  EXPECT_EQ(8192, v.GetType());
  EXPECT_EQ(1, v.GetConstArray()->GetItem(0)->ToInteger());
  Ox_Variant w;
  w = v;
  v.GetArray()->GetItem(0)->Set(7L);
  EXPECT_EQ(1, w.GetConstArray()->GetItem(0)->ToInteger());
  // An element of the variant's own array as the source.
  Ox_Variant self(list);
  self.Set(*self.GetConstArray()->GetItem(0));
  EXPECT_EQ(3, self.GetType());
  EXPECT_EQ(99, self.ToInteger());
}

TEST(VariantSetters, SetOverwritesAnyType) {
  Ox_Variant v("text");
  v.Set(5L);
  EXPECT_EQ(3, v.GetType());
  v.Set(2.5);
  EXPECT_EQ(5, v.GetType());
  Ox_Variant null;
  v.Set(null);
  EXPECT_EQ(0, v.GetType());
}

TEST(VariantSetters, AssignmentOperators) {
  Ox_Variant v;
  v = Ox_AString("a");
  EXPECT_EQ(8, v.GetType());
  v = "b";
  EXPECT_STREQ("b", v.GetConstStr()->GetString());
  v = 3L;
  EXPECT_EQ(3, v.GetType());
  v = 1.5;
  EXPECT_EQ(5, v.GetType());
  v = Ox_Currency(1, 0);
  EXPECT_EQ(6, v.GetType());
  v = Ox_DateTime(2.0);
  EXPECT_EQ(7, v.GetType());
  Ox_VariantList list;
  v = list;
  EXPECT_EQ(8192, v.GetType());
  Ox_Variant source(9L);
  v = source;
  EXPECT_EQ(9, v.ToInteger());
  v = &source;
  EXPECT_EQ(9, v.ToInteger());
}

TEST(VariantSetters, AssignNullPointerLeavesPlainVariant) {
  Ox_Variant v(5L);
  v = static_cast<const Ox_Variant *>(nullptr);
  EXPECT_EQ(3, v.GetType());
  EXPECT_EQ(5, v.ToInteger());
}

TEST(VariantSetters, AssignNullPointerClearsReferenceTarget) {
  Ox_Variant target(5L);
  Ox_Variant ref;
  ref.SetReference(&target);
  ref = static_cast<const Ox_Variant *>(nullptr);
  EXPECT_EQ(0, target.GetType());
  EXPECT_EQ(32768, ref.GetType());
}

TEST(VariantLifeCycle, InitAndClear) {
  Ox_Variant v("text");
  v.Clear();
  EXPECT_EQ(0, v.GetType());
  EXPECT_EQ(nullptr, v.value.ptr);
  // Init zeroes without releasing: keep a copy of the block's owner.
  Ox_Variant w(5L);
  w.Init();
  EXPECT_EQ(0, w.GetType());
  alignas(Ox_Variant) unsigned char raw[sizeof(Ox_Variant)];
  std::memset(raw, 0xAB, sizeof raw);
  Ox_Variant *placed = reinterpret_cast<Ox_Variant *>(raw);
  Ox_Variant::InitWithMemory(placed);
  EXPECT_EQ(0, placed->GetType());
  placed->Set("abc");
  Ox_Variant::FreeWithMemory(placed);
  Ox_Variant::InitWithMemory(nullptr);  // ignored
  Ox_Variant::FreeWithMemory(nullptr);
}

// --- References ------------------------------------------------------------

TEST(VariantReference, ReferenceToString) {
  Ox_Variant target("abc");
  Ox_Variant ref;
  ref.SetReference(&target);
  EXPECT_EQ(32768, ref.GetType());
  EXPECT_STREQ("UNKNOWN", ref.GetTypeString());
  EXPECT_STREQ("abc", ref.ToString().GetString());
  EXPECT_EQ(&target, ref.GetReference());
  EXPECT_EQ(&target, ref.GetConstReference());
  // A setter writes the target.
  ref.Set(7L);
  EXPECT_EQ(3, target.GetType());
  EXPECT_EQ(7, target.ToInteger());
  EXPECT_EQ(32768, ref.GetType());
  // Clear drops the reference alone.
  ref.Clear();
  EXPECT_EQ(0, ref.GetType());
  EXPECT_EQ(3, target.GetType());
  EXPECT_EQ(7, target.ToInteger());
}

TEST(VariantReference, NullTargetLeavesNull) {
  Ox_Variant ref(5L);
  ref.SetReference(nullptr);
  EXPECT_EQ(0, ref.GetType());
}

TEST(VariantReference, ChainsCollapse) {
  Ox_Variant target(1L);
  Ox_Variant first;
  first.SetReference(&target);
  Ox_Variant second;
  second.SetReference(&first);
  EXPECT_EQ(32768, second.GetType());
  EXPECT_EQ(&target, second.GetReference());
}

TEST(VariantReference, ReferenceWithoutTargetGivesNull) {
  Ox_Variant empty;
  empty.type = Ox_Variant::kReference;  // a reference with no target
  Ox_Variant ref(5L);
  ref.SetReference(&empty);
  EXPECT_EQ(0, ref.GetType());
}

TEST(VariantReference, SetReferenceDoesNotWriteThrough) {
  Ox_Variant a(1L);
  Ox_Variant b(2L);
  Ox_Variant ref;
  ref.SetReference(&a);
  ref.SetReference(&b);
  EXPECT_EQ(&b, ref.GetReference());
  EXPECT_EQ(1, a.ToInteger());
}

TEST(VariantReference, NoCycles) {
  Ox_Variant a(1L);
  Ox_Variant b;
  b.SetReference(&a);
  // a referring to b would lead back to a: a stays null instead.
  a.SetReference(&b);
  EXPECT_EQ(0, a.GetType());
  Ox_Variant self(3L);
  self.SetReference(&self);
  EXPECT_EQ(0, self.GetType());
}

TEST(VariantReference, SetReadsAndWritesThroughChains) {
  Ox_Variant target("x");
  Ox_Variant ref;
  ref.SetReference(&target);
  Ox_Variant copy;
  copy.Set(ref);  // reads the target
  EXPECT_EQ(8, copy.GetType());
  EXPECT_STREQ("x", copy.GetConstStr()->GetString());
  Ox_Variant other("y");
  ref.Set(other);  // writes the target
  EXPECT_STREQ("y", target.GetConstStr()->GetString());
  // Two references to one target meet: nothing happens.
  Ox_Variant ref2;
  ref2.SetReference(&target);
  ref2.Set(ref);
  EXPECT_STREQ("y", target.GetConstStr()->GetString());
  // Self assignment is a no-op.
  target.Set(target);
  EXPECT_STREQ("y", target.GetConstStr()->GetString());
}

TEST(VariantReference, CopyingReferenceWithoutTargetKeepsType) {
  Ox_Variant empty;
  empty.type = Ox_Variant::kReference;
  Ox_Variant copy(5L);
  copy.Set(empty);
  EXPECT_EQ(32768, copy.GetType());
  EXPECT_EQ(nullptr, copy.GetReference());
}

TEST(VariantReference, SetterOnBrokenChainActsOnLastVariant) {
  Ox_Variant broken;
  broken.type = Ox_Variant::kReference;
  broken.Set(5L);
  EXPECT_EQ(3, broken.GetType());
  EXPECT_EQ(5, broken.ToInteger());
}

// --- Type names ------------------------------------------------------------

TEST(VariantTypeNames, GetTypeString) {
  Ox_Variant v;
  EXPECT_STREQ("null", v.GetTypeString());
  v.Set(1L);
  EXPECT_STREQ("INTEGER", v.GetTypeString());
  v.Set(1.0);
  EXPECT_STREQ("DECIMAL", v.GetTypeString());
  v.SetCurrency(1L, 0L);
  EXPECT_STREQ("CURRENCY", v.GetTypeString());
  v.SetDate(1.0);
  EXPECT_STREQ("DATE", v.GetTypeString());
  v.Set("a");
  EXPECT_STREQ("STRING", v.GetTypeString());
  v.SetBinary(nullptr, 0);
  EXPECT_STREQ("BLOB", v.GetTypeString());
  v.Set(Ox_VariantList());
  EXPECT_STREQ("ARRAY", v.GetTypeString());
  v.Clear();
  v.type = 16384;
  EXPECT_STREQ("object", v.GetTypeString());
  v.type = 32768;
  EXPECT_STREQ("UNKNOWN", v.GetTypeString());
  v.type = 1;
  EXPECT_STREQ("UNKNOWN", v.GetTypeString());
  v.type = 12;
  EXPECT_STREQ("UNKNOWN", v.GetTypeString());
  v.Init();
}

TEST(VariantTypeNames, GetTypeNo) {
  EXPECT_EQ(3, Ox_Variant::GetTypeNo("int"));
  EXPECT_EQ(3, Ox_Variant::GetTypeNo("INTEGER"));
  EXPECT_EQ(0, Ox_Variant::GetTypeNo("in"));
  EXPECT_EQ(5, Ox_Variant::GetTypeNo("decimal"));
  EXPECT_EQ(0, Ox_Variant::GetTypeNo("dec"));  // seven letters needed
  EXPECT_EQ(8, Ox_Variant::GetTypeNo("String"));
  EXPECT_EQ(6, Ox_Variant::GetTypeNo("CURRENCY"));
  EXPECT_EQ(0, Ox_Variant::GetTypeNo("curr"));
  EXPECT_EQ(7, Ox_Variant::GetTypeNo("date"));
  EXPECT_EQ(7, Ox_Variant::GetTypeNo("datetime"));
  EXPECT_EQ(13, Ox_Variant::GetTypeNo("blob"));
  EXPECT_EQ(13, Ox_Variant::GetTypeNo("binary"));
  EXPECT_EQ(8192, Ox_Variant::GetTypeNo("array"));
  EXPECT_EQ(0, Ox_Variant::GetTypeNo("bool"));
  EXPECT_EQ(0, Ox_Variant::GetTypeNo(""));
  EXPECT_EQ(0, Ox_Variant::GetTypeNo(nullptr));
}

TEST(VariantTypeNames, IsComparable) {
  EXPECT_EQ(1, Ox_Variant(1L).IsComparable(Ox_Variant(2L)));
  EXPECT_EQ(1, Ox_Variant(1.0).IsComparable(Ox_Variant(2.0)));
  EXPECT_EQ(1, Ox_Variant(Ox_Currency(1, 0)).IsComparable(
                   Ox_Variant(Ox_Currency(2, 0))));
  EXPECT_EQ(1, Ox_Variant(Ox_DateTime(1.0)).IsComparable(
                   Ox_Variant(Ox_DateTime(2.0))));
  EXPECT_EQ(1, Ox_Variant("a").IsComparable(Ox_Variant("b")));
  EXPECT_EQ(0, Ox_Variant(1L).IsComparable(Ox_Variant(1.0)));
  EXPECT_EQ(0, Ox_Variant().IsComparable(Ox_Variant()));
  Ox_Variant blob;
  blob.SetBinary(nullptr, 0);
  EXPECT_EQ(0, blob.IsComparable(blob));
}

TEST(VariantCopy, LongStringCopySharesCharacters) {
  std::string text(1024, 'x');
  Ox_Variant a(text.c_str());
  Ox_Variant b(a);
  EXPECT_EQ(a.GetConstStr()->GetString(), b.GetConstStr()->GetString());
  Ox_Variant c;
  c = a;
  EXPECT_EQ(a.GetConstStr()->GetString(), c.GetConstStr()->GetString());
}

}  // namespace
