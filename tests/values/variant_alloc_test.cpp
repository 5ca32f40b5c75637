// Setting a number, a currency or a date allocates nothing: every heap
// call of this test binary passes through the counting malloc, calloc and
// realloc of support/alloc_counter.cpp (the C++ operator new of the
// runtime calls malloc as well).
#include <gtest/gtest.h>

#include "Ox_Variant.h"
#include "support/alloc_counter.h"

namespace {

#ifdef OX_TEST_COUNTS_MALLOC
TEST(VariantAllocation, CounterSeesHeapCalls) {
  // The hook works: a text does take a block.
  const long before = HeapCalls();
  Ox_Variant v;
  v.Set("a text that needs a block", -1);
  EXPECT_GT(HeapCalls(), before);
}

TEST(VariantAllocation, NumbersCurrencyAndDatesAllocateNothing) {
  Ox_Variant v;
  const Ox_Currency money(12, 5000);
  const Ox_DateTime date(730485.5);
  const long before = HeapCalls();
  for (int i = 0; i < 100; ++i) {
    v.Set(static_cast<long>(i));
    v.Set(i * 0.5);
    v.Set(money);
    v.SetCurrency(3L, 0L);
    v.SetCurrency(2.5);
    v.Set(date);
    v.SetDate(730486.0);
    v.SetDate(2000, 1, 1, 0, 0, 0);
    v = 5L;
    v = 1.5;
    v = money;
    v = date;
    Ox_Variant copy(v);
    Ox_Variant fromLong(7L);
    Ox_Variant fromDouble(7.5);
    Ox_Variant fromMoney(money);
    Ox_Variant fromDate(date);
    (void)v.ToInteger();
    (void)v.ToDouble();
    (void)v.ToCurrency();
    (void)v.ToDateTime();
  }
  EXPECT_EQ(before, HeapCalls());
  EXPECT_EQ(7, v.GetType());
}
#else
TEST(VariantAllocation, NumbersCurrencyAndDatesAllocateNothing) {
  GTEST_SKIP() << "malloc is owned by the sanitizer in this build";
}
#endif

}  // namespace
