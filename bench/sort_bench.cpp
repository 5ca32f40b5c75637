// Sort of a million rows, beside std::sort of the same keys taken out into
// a vector and beside an ORDER BY of an in-memory SQLite table holding the
// same rows; then Filter(expr) and GetSum over a million rows.
//
// Keys: "int" is one INT column of random values below 1,000,000; "string
// then int" is a STRING column of 10,000 different names and the INT
// column. Every timed run starts from the same shuffled order: between
// runs (untimed) the rows go back by a sort on a column holding their
// first position.
//
// std::sort takes plain copies of the keys (int, or a text pointer and an
// int compared by strcmp and then by value), made untimed before each run.
// The SQLite run times the query stepping through every row, not the
// inserts.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "Ox_Dataset.h"

namespace {

const int kRows = 1000000;

// Columns K (INT), S (STRING), P (INT, the first position of the row).
struct Data {
  std::vector<int> keys;
  std::vector<std::string> names;
  Ox_Dataset ds{65001u, 1};
  sqlite3 *db = nullptr;

  Data() {
    std::mt19937 random(42);
    keys.resize(kRows);
    names.resize(kRows);
    char text[32];
    for (int i = 0; i < kRows; ++i) {
      keys[i] = static_cast<int>(random() % 1000000);
      std::snprintf(text, sizeof text, "customer-%05u",
                    static_cast<unsigned>(random() % 10000));
      names[i] = text;
    }
    ds.AddColumn("K", 2, 0, 1);
    ds.AddColumn("S", 1, 20, 1);
    ds.AddColumn("P", 2, 0, 1);
    for (int i = 0; i < kRows; ++i) {
      Ox_Record *row = ds.recs.GetItem(ds.AppendRow(0));
      const Ox_Variant k(static_cast<long>(keys[i]));
      const Ox_Variant s(names[i].c_str());
      const Ox_Variant p(static_cast<long>(i));
      row->SetColumn(0, &k);
      row->SetColumn(1, &s);
      row->SetColumn(2, &p);
    }
    sqlite3_open(":memory:", &db);
    sqlite3_exec(db, "CREATE TABLE t(k INTEGER, s TEXT, p INTEGER)", nullptr,
                 nullptr, nullptr);
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_stmt *insert = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO t VALUES(?, ?, ?)", -1, &insert,
                       nullptr);
    for (int i = 0; i < kRows; ++i) {
      sqlite3_bind_int(insert, 1, keys[i]);
      sqlite3_bind_text(insert, 2, names[i].c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_int(insert, 3, i);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  }
  ~Data() { sqlite3_close(db); }

  // Back to the first order.
  void Restore() { ds.Sort("P", 1, 0, 0); }
};

Data &Shared() {
  static Data data;
  return data;
}

void BM_SortInt(benchmark::State &state) {
  Data &data = Shared();
  for (auto _ : state) {
    state.PauseTiming();
    data.Restore();
    state.ResumeTiming();
    benchmark::DoNotOptimize(data.ds.Sort("K", 1, 0, 0));
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_SortInt)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_StdSortInt(benchmark::State &state) {
  Data &data = Shared();
  std::vector<int> keys;
  for (auto _ : state) {
    state.PauseTiming();
    keys = data.keys;
    state.ResumeTiming();
    std::sort(keys.begin(), keys.end());
    benchmark::DoNotOptimize(keys.data());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_StdSortInt)->Unit(benchmark::kMillisecond)->UseRealTime();

// Steps through every row of `sql`, reading the first column.
void RunQuery(benchmark::State &state, const char *sql) {
  Data &data = Shared();
  for (auto _ : state) {
    sqlite3_stmt *query = nullptr;
    sqlite3_prepare_v2(data.db, sql, -1, &query, nullptr);
    long long sum = 0;
    while (sqlite3_step(query) == SQLITE_ROW)
      sum += sqlite3_column_int(query, 0);
    sqlite3_finalize(query);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_SqliteOrderByInt(benchmark::State &state) {
  RunQuery(state, "SELECT p FROM t ORDER BY k");
}
BENCHMARK(BM_SqliteOrderByInt)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_SortStringInt(benchmark::State &state) {
  Data &data = Shared();
  for (auto _ : state) {
    state.PauseTiming();
    data.Restore();
    state.ResumeTiming();
    benchmark::DoNotOptimize(data.ds.Sort("S,K", 1, 0, 0));
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_SortStringInt)->Unit(benchmark::kMillisecond)->UseRealTime();

struct TextInt {
  const char *text;
  int value;
};

void BM_StdSortStringInt(benchmark::State &state) {
  Data &data = Shared();
  std::vector<TextInt> first(kRows);
  for (int i = 0; i < kRows; ++i)
    first[i] = {data.names[i].c_str(), data.keys[i]};
  std::vector<TextInt> keys;
  for (auto _ : state) {
    state.PauseTiming();
    keys = first;
    state.ResumeTiming();
    std::sort(keys.begin(), keys.end(), [](const TextInt &a, const TextInt &b) {
      const int c = std::strcmp(a.text, b.text);
      return c != 0 ? c < 0 : a.value < b.value;
    });
    benchmark::DoNotOptimize(keys.data());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_StdSortStringInt)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_SqliteOrderByStringInt(benchmark::State &state) {
  RunQuery(state, "SELECT p FROM t ORDER BY s, k");
}
BENCHMARK(BM_SqliteOrderByStringInt)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// Filter(expr) over a million rows: every row's K as text against the
// text; the rows that match are hidden (about one in a million here, so
// the scan is what is timed). UnFilter between runs, untimed.
void BM_FilterExpr(benchmark::State &state) {
  Data &data = Shared();
  for (auto _ : state) {
    state.PauseTiming();
    data.ds.UnFilter();
    state.ResumeTiming();
    benchmark::DoNotOptimize(data.ds.Filter("K=4711"));
  }
  data.ds.UnFilter();
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_FilterExpr)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_GetSum(benchmark::State &state) {
  Data &data = Shared();
  Ox_Variant sum;
  for (auto _ : state) {
    data.ds.GetSum(0, 0, kRows, sum);
    benchmark::DoNotOptimize(sum.GetType());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_GetSum)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
