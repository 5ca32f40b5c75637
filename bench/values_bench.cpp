// Benchmarks of the value classes: variant addition of numbers and the
// date formatter.
#include <benchmark/benchmark.h>

#include "Ox_BaseFunc.h"
#include "Ox_DateTime.h"
#include "Ox_VariantOps.h"

namespace {

// 10 million sums of two variants of the same numeric type.
void BM_VarAddIntegers(benchmark::State &state) {
  const Ox_Variant left(12345L), right(678L);
  Ox_Variant result;
  for (auto _ : state) {
    Var_Add(left, right, result);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(BM_VarAddIntegers)->Iterations(10000000);

void BM_VarAddDecimals(benchmark::State &state) {
  const Ox_Variant left(1234.5), right(0.25);
  Ox_Variant result;
  for (auto _ : state) {
    Var_Add(left, right, result);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(BM_VarAddDecimals)->Iterations(10000000);

void BM_VarAddCurrencies(benchmark::State &state) {
  const Ox_Variant left(Ox_Currency(1234, 5000)), right(Ox_Currency(7, 2500));
  Ox_Variant result;
  for (auto _ : state) {
    Var_Add(left, right, result);
    benchmark::DoNotOptimize(result);
  }
}
BENCHMARK(BM_VarAddCurrencies)->Iterations(10000000);

// 1 million formatted dates with names, numbers and the 12-hour clock.
void BM_FormatString(benchmark::State &state) {
  OxSetLocale(0x0409, 1252);
  struct tm tm;
  Ox_DateTime(2005, 3, 4, 15, 5, 9).ConvertToTm(tm);
  OX_DATETIME_FORMATINFO info;
  for (auto _ : state) {
    Ox_AString text =
        Ox_DateTime::FormatString(&tm, "dddd, MMMM dd, yyyy hh:mm:ss tt", &info);
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(BM_FormatString)->Iterations(1000000);

// The default text of a date, as the interchange formats write it.
void BM_DateToString(benchmark::State &state) {
  const Ox_DateTime date(2005, 3, 4, 15, 5, 9);
  for (auto _ : state) {
    Ox_AString text = date.ToString(nullptr);
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(BM_DateToString)->Iterations(1000000);

}  // namespace
