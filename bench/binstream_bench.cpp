// The first binary stream on 1,000,000 rows of 10 mixed columns: save and
// load of the whole stream, beside a memcpy of the same number of bytes and
// beside msgpack-c packing the same rows (one array per row) and unpacking
// them again, all in one run.
//
// Counters: bytes_per_second is the size of each format's own output (the
// memcpy copies the stream's size); items_per_second is rows per second.
#include <benchmark/benchmark.h>
#include <msgpack.h>

#include <cstring>
#include <vector>

#include "Ox_BinStream.h"

namespace {

const int kRows = 1000000;

// Columns: 3 INT, DECIMAL, CURRENCY, DATE, STRING, 2 STRING, BLOB-free mix.
struct Fixture {
  Ox_Dataset ds{"BENCH"};
  Ox_VariableList vars;
  Ox_DatasetList list;
  Ox_Buffer stream;

  Fixture() {
    const char *names[] = {"ID", "QTY", "AMOUNT", "PRICE", "WHEN",
                           "NAME", "CODE", "NOTE", "FLAG", "REF"};
    const short types[] = {2, 2, 4, 5, 8, 1, 1, 1, 2, 1};
    for (int c = 0; c < 10; ++c) ds.AddColumn(names[c], types[c], 16, 0);
    vars.AddVariable("user", Ox_Variant("bench"));
    for (int i = 0; i < kRows; ++i) {
      const int stored = ds.AppendRow(0);
      Ox_Record *row = ds.recs.GetItem(stored);
      char text[32];
      const Ox_Variant cells[10] = {
          Ox_Variant(static_cast<long>(i)),
          Ox_Variant(static_cast<long>(i % 100)),
          Ox_Variant(i * 0.25),
          Ox_Variant(Ox_Currency(i % 5000, 2500)),
          Ox_Variant(Ox_DateTime()),
          Ox_Variant((snprintf(text, sizeof text, "name-%07d", i), text)),
          Ox_Variant("ABCD"),
          Ox_Variant("a somewhat longer note"),
          Ox_Variant(static_cast<long>(i & 1)),
          Ox_Variant("R1")};
      for (int c = 0; c < 10; ++c) row->SetColumn(c, &cells[c]);
    }
    list.AddLink(&ds);
    OxBinStreamSave(vars, list, stream, 0, 3100, 0);
  }
};

Fixture &Data() {
  static Fixture fixture;
  return fixture;
}

void BM_Memcpy(benchmark::State &state) {
  const Ox_Buffer &stream = Data().stream;
  std::vector<unsigned char> target(static_cast<size_t>(stream.GetSize()));
  for (auto _ : state) {
    std::memcpy(target.data(), stream.GetData(), target.size());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * stream.GetSize());
  state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_BinStreamSave(benchmark::State &state) {
  Fixture &data = Data();
  Ox_Buffer out;
  for (auto _ : state) {
    OxBinStreamSave(data.vars, data.list, out, 0, 3100, 0);
    benchmark::DoNotOptimize(out.GetData());
  }
  state.SetBytesProcessed(state.iterations() * out.GetSize());
  state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_BinStreamLoad(benchmark::State &state) {
  Fixture &data = Data();
  for (auto _ : state) {
    Ox_VariableList vars;
    Ox_DatasetList list;
    if (OxBinStreamLoad(vars, list, data.stream, 0) != 1) state.SkipWithError("load");
    benchmark::DoNotOptimize(list.GetItem(0));
  }
  state.SetBytesProcessed(state.iterations() * data.stream.GetSize());
  state.SetItemsProcessed(state.iterations() * kRows);
}

// As above, with the freeing of the loaded rows left out of the timing.
void BM_BinStreamLoadNoFree(benchmark::State &state) {
  Fixture &data = Data();
  for (auto _ : state) {
    auto *vars = new Ox_VariableList;
    auto *list = new Ox_DatasetList;
    if (OxBinStreamLoad(*vars, *list, data.stream, 0) != 1) state.SkipWithError("load");
    state.PauseTiming();
    delete list;
    delete vars;
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * data.stream.GetSize());
  state.SetItemsProcessed(state.iterations() * kRows);
}

// The same rows as msgpack arrays: integers, doubles, the currency as its
// 64-bit count, the date as a double, texts as str.
void PackRows(msgpack_packer &pk, const Ox_Dataset &ds) {
  for (int r = 0; r < ds.recs.Count(); ++r) {
    const Ox_Record *row = ds.recs.GetItem(r);
    msgpack_pack_array(&pk, static_cast<size_t>(row->Count()));
    for (int c = 0; c < row->Count(); ++c) {
      const Ox_Variant *cell = row->GetItem(c);
      switch (cell->GetType()) {
        case Ox_Variant::kInteger: msgpack_pack_int32(&pk, cell->value.lVal); break;
        case Ox_Variant::kDecimal: msgpack_pack_double(&pk, cell->value.dVal); break;
        case Ox_Variant::kCurrency: {
          const Ox_Currency *m = cell->GetConstCurrency();
          msgpack_pack_int64(&pk, (static_cast<int64_t>(m->high) << 32) | m->low);
          break;
        }
        case Ox_Variant::kDate:
          msgpack_pack_double(&pk, cell->GetConstDateTime()->GetStoredValue());
          break;
        case Ox_Variant::kString: {
          const Ox_AString *s = cell->GetConstStr();
          msgpack_pack_str(&pk, static_cast<size_t>(s->GetLength()));
          msgpack_pack_str_body(&pk, s->GetString(), static_cast<size_t>(s->GetLength()));
          break;
        }
        default: msgpack_pack_nil(&pk); break;
      }
    }
  }
}

void BM_MsgpackPack(benchmark::State &state) {
  Fixture &data = Data();
  size_t bytes = 0;
  for (auto _ : state) {
    msgpack_sbuffer sbuf;
    msgpack_sbuffer_init(&sbuf);
    msgpack_packer pk;
    msgpack_packer_init(&pk, &sbuf, msgpack_sbuffer_write);
    PackRows(pk, data.ds);
    bytes = sbuf.size;
    benchmark::DoNotOptimize(sbuf.data);
    msgpack_sbuffer_destroy(&sbuf);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
  state.SetItemsProcessed(state.iterations() * kRows);
}

void BM_MsgpackUnpack(benchmark::State &state) {
  Fixture &data = Data();
  msgpack_sbuffer sbuf;
  msgpack_sbuffer_init(&sbuf);
  msgpack_packer pk;
  msgpack_packer_init(&pk, &sbuf, msgpack_sbuffer_write);
  PackRows(pk, data.ds);
  for (auto _ : state) {
    msgpack_unpacked result;
    msgpack_unpacked_init(&result);
    size_t offset = 0;
    int rows = 0;
    while (msgpack_unpack_next(&result, sbuf.data, sbuf.size, &offset) ==
           MSGPACK_UNPACK_SUCCESS) {
      ++rows;
    }
    msgpack_unpacked_destroy(&result);
    if (rows != kRows) state.SkipWithError("unpack");
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * sbuf.size));
  state.SetItemsProcessed(state.iterations() * kRows);
  msgpack_sbuffer_destroy(&sbuf);
}

BENCHMARK(BM_Memcpy)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BinStreamSave)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BinStreamLoad)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BinStreamLoadNoFree)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MsgpackPack)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MsgpackUnpack)->Unit(benchmark::kMillisecond);

}  // namespace
