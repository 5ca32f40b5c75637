// Aggregates over a million rows: GetSum of an integer and of a decimal
// column, without an index and through a row index with summary rows, and
// GetMax. items_per_second is rows per second.
#include <benchmark/benchmark.h>

#include "Ox_Dataset.h"

namespace {

const int kRows = 1000000;

// Columns I INT and D DECIMAL, `rows` rows of i % 100 and i / 4.0.
void Fill(Ox_Dataset &ds, int rows) {
  ds.AddColumn("I", 2, 0, 1);
  ds.AddColumn("D", 4, 0, 1);
  for (int i = 0; i < rows; ++i) {
    const int stored = ds.AppendRow(0);
    Ox_Record *row = ds.recs.GetItem(stored);
    const Ox_Variant whole(static_cast<long>(i % 100));
    const Ox_Variant part(i / 4.0);
    row->SetColumn(0, &whole);
    row->SetColumn(1, &part);
  }
}

Ox_Dataset &Shared() {
  static Ox_Dataset *ds = [] {
    Ox_Dataset *made = new Ox_Dataset(65001u, 1);
    Fill(*made, kRows);
    return made;
  }();
  return *ds;
}

// The same rows behind a row index with a summary row every 10 rows.
Ox_Dataset &SharedIndexed() {
  static Ox_Dataset *ds = [] {
    Ox_Dataset *made = new Ox_Dataset(65001u, 1);
    Fill(*made, kRows);
    made->recIndexValid = 1;
    for (int i = 0; i < kRows; ++i) {
      made->recIndex.Add(i);
      if (i % 10 == 9) made->recIndex.Add((1 << 24) | (i - 9));
    }
    return made;
  }();
  return *ds;
}

void BM_SumInt(benchmark::State &state) {
  const Ox_Dataset &ds = Shared();
  for (auto _ : state) {
    Ox_Variant out;
    ds.GetSum(0, 0, kRows, out, -1);
    benchmark::DoNotOptimize(out);
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_SumInt)->Unit(benchmark::kMillisecond);

void BM_SumDecimal(benchmark::State &state) {
  const Ox_Dataset &ds = Shared();
  for (auto _ : state) {
    Ox_Variant out;
    ds.GetSum(1, 0, kRows, out, -1);
    benchmark::DoNotOptimize(out);
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_SumDecimal)->Unit(benchmark::kMillisecond);

void BM_SumIntIndexed(benchmark::State &state) {
  const Ox_Dataset &ds = SharedIndexed();
  const int rows = ds.GetRowCount();
  for (auto _ : state) {
    Ox_Variant out;
    ds.GetSum(0, 0, rows, out, -1);
    benchmark::DoNotOptimize(out);
  }
  state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_SumIntIndexed)->Unit(benchmark::kMillisecond);

void BM_MaxDecimal(benchmark::State &state) {
  const Ox_Dataset &ds = Shared();
  for (auto _ : state) {
    Ox_Variant out;
    ds.GetMax(1, 0, kRows, out, -1);
    benchmark::DoNotOptimize(out);
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_MaxDecimal)->Unit(benchmark::kMillisecond);

}  // namespace
