// The row store: appending rows of 10 columns, and deleting every other
// row under change tracking followed by Reset.
//
// Counters: items_per_second is rows per second; heap_bytes_per_row is
// what the heap holds for one row after the appends (glibc's count of
// bytes in use, pool blocks included); maxrss_kb is the process's peak
// resident size after the run.
//
// A delete closes up the row list (a move of the entries behind the row),
// and Reset puts each deleted row back by an insert, so the delete run is
// quadratic in the row count: it runs on 100,000 rows, and once on a
// million.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sys/resource.h>

#include "Ox_Dataset.h"

namespace {

void TenColumns(Ox_Dataset &ds) {
  const char *names[] = {"C0", "C1", "C2", "C3", "C4",
                         "C5", "C6", "C7", "C8", "C9"};
  for (const char *name : names) ds.AddColumn(name, 2, 0, 1);
}

// `rows` rows, each with ten integer cells.
void AppendRows(Ox_Dataset &ds, int rows) {
  for (int i = 0; i < rows; ++i) {
    const int stored = ds.AppendRow(0);
    Ox_Record *row = ds.recs.GetItem(stored);
    for (int c = 0; c < 10; ++c) {
      const Ox_Variant value(static_cast<long>(i + c));
      row->SetColumn(c, &value);
    }
  }
}

// Bytes in use on the heap, large blocks served by mmap included.
double HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

double MaxRssKb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss);
}

void BM_AppendRows(benchmark::State &state) {
  const int rows = static_cast<int>(state.range(0));
  double bytesPerRow = 0;
  for (auto _ : state) {
    Ox_Dataset ds(65001u, 1);
    TenColumns(ds);
    const double before = HeapInUse();
    AppendRows(ds, rows);
    bytesPerRow = (HeapInUse() - before) / rows;
    benchmark::DoNotOptimize(ds.recs.Count());
    state.PauseTiming();
    ds.ClearAll();  // the release is not part of the append
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * rows);
  state.counters["heap_bytes_per_row"] = bytesPerRow;
  state.counters["maxrss_kb"] = MaxRssKb();
}
BENCHMARK(BM_AppendRows)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_DeleteEveryOtherTrackedThenReset(benchmark::State &state) {
  const int rows = static_cast<int>(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    Ox_Dataset ds(65001u, 1);
    TenColumns(ds);
    AppendRows(ds, rows);
    ds.SetUpdate(1);
    state.ResumeTiming();
    // From the last odd row down, so the rows still to go keep their
    // numbers.
    for (int row = rows - 1 - (rows % 2 == 0 ? 0 : 1); row > 0; row -= 2)
      ds.DeleteRow(row);
    ds.Reset();
    benchmark::DoNotOptimize(ds.recs.Count());
    state.PauseTiming();
    if (ds.recs.Count() != rows) state.SkipWithError("Reset lost rows");
    ds.ClearAll();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * rows);
  state.counters["maxrss_kb"] = MaxRssKb();
}
BENCHMARK(BM_DeleteEveryOtherTrackedThenReset)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
// The full million once: about a hundred times the run above.
BENCHMARK(BM_DeleteEveryOtherTrackedThenReset)
    ->Arg(1000000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
