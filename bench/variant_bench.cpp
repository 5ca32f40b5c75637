// Ox_Variant: creating, copying and converting 10 million variants of each
// scalar type, and copying a string variant of 1 KB (which shares the
// block instead of copying characters).
#include <benchmark/benchmark.h>

#include <string>

#include "Ox_Variant.h"

namespace {

constexpr int kCount = 10000000;

void BM_CreateInteger(benchmark::State &state) {
  for (auto _ : state) {
    for (int i = 0; i < kCount; ++i) {
      Ox_Variant v(static_cast<long>(i));
      benchmark::DoNotOptimize(v);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_CreateDecimal(benchmark::State &state) {
  for (auto _ : state) {
    for (int i = 0; i < kCount; ++i) {
      Ox_Variant v(i * 0.5);
      benchmark::DoNotOptimize(v);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_CreateCurrency(benchmark::State &state) {
  const Ox_Currency money(12, 5000);
  for (auto _ : state) {
    for (int i = 0; i < kCount; ++i) {
      Ox_Variant v(money);
      benchmark::DoNotOptimize(v);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_CreateDate(benchmark::State &state) {
  for (auto _ : state) {
    for (int i = 0; i < kCount; ++i) {
      Ox_Variant v(Ox_DateTime(730485.0 + i % 1000));
      benchmark::DoNotOptimize(v);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

// Copies of a variant of the given kind, Set by Set.
void CopyLoop(benchmark::State &state, const Ox_Variant &source) {
  Ox_Variant target;
  for (auto _ : state) {
    for (int i = 0; i < kCount; ++i) {
      target.Set(source);
      benchmark::DoNotOptimize(target);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_CopyInteger(benchmark::State &state) { CopyLoop(state, Ox_Variant(7L)); }
void BM_CopyDecimal(benchmark::State &state) { CopyLoop(state, Ox_Variant(2.5)); }
void BM_CopyCurrency(benchmark::State &state) {
  CopyLoop(state, Ox_Variant(Ox_Currency(12, 5000)));
}
void BM_CopyDate(benchmark::State &state) {
  CopyLoop(state, Ox_Variant(Ox_DateTime(730485.5)));
}

void BM_ConvertIntegerToDouble(benchmark::State &state) {
  Ox_Variant v(7L);
  for (auto _ : state) {
    double sum = 0;
    for (int i = 0; i < kCount; ++i) sum += v.ToDouble();
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_ConvertDecimalToInteger(benchmark::State &state) {
  Ox_Variant v(2.9999999999999996);
  for (auto _ : state) {
    long sum = 0;
    for (int i = 0; i < kCount; ++i) sum += v.ToInteger();
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_ConvertCurrencyToDouble(benchmark::State &state) {
  // Currency to double goes through its text form.
  Ox_Variant v(Ox_Currency(12, 5000));
  for (auto _ : state) {
    double sum = 0;
    for (int i = 0; i < kCount; ++i) sum += v.ToDouble();
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_ConvertDateToInteger(benchmark::State &state) {
  Ox_Variant v(Ox_DateTime(730485.5));
  for (auto _ : state) {
    long sum = 0;
    for (int i = 0; i < kCount; ++i) sum += v.ToInteger();
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_ConvertIntegerToString(benchmark::State &state) {
  Ox_Variant v(123456L);
  Ox_AString text;
  for (auto _ : state) {
    for (int i = 0; i < kCount; ++i) {
      v.ToString(text);
      benchmark::DoNotOptimize(text);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_CopyString1K(benchmark::State &state) {
  const std::string text(1024, 'x');
  const Ox_Variant source(text.c_str());
  Ox_Variant target;
  for (auto _ : state) {
    for (int i = 0; i < kCount; ++i) {
      target.Set(source);
      benchmark::DoNotOptimize(target);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

BENCHMARK(BM_CreateInteger)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CreateDecimal)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CreateCurrency)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CreateDate)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CopyInteger)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CopyDecimal)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CopyCurrency)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CopyDate)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConvertIntegerToDouble)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConvertDecimalToInteger)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConvertCurrencyToDouble)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConvertDateToInteger)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConvertIntegerToString)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CopyString1K)->Unit(benchmark::kMillisecond);

}  // namespace
