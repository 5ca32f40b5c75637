// Strings and buffers: shared copies, appending, field-by-field growth and
// the code page conversions.
#include <benchmark/benchmark.h>

#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_Buffer.h"
#include "Ox_String.h"

namespace {

// A copy shares the block: one atomic increment and one decrement.
void BM_StringCopyShared(benchmark::State &state) {
  Ox_AString source("a text of some thirty characters");
  for (auto _ : state) {
    Ox_AString copy(source);
    benchmark::DoNotOptimize(copy.GetString());
  }
}
BENCHMARK(BM_StringCopyShared);

// A copy that is then written: the block is duplicated once.
void BM_StringCopyThenWrite(benchmark::State &state) {
  Ox_AString source("a text of some thirty characters");
  for (auto _ : state) {
    Ox_AString copy(source);
    copy.SetAt(0, 'A');
    benchmark::DoNotOptimize(copy.GetString());
  }
}
BENCHMARK(BM_StringCopyThenWrite);

// Appending one character at a time: amortised O(1) each.
void BM_StringAppendChar(benchmark::State &state) {
  const int count = static_cast<int>(state.range(0));
  for (auto _ : state) {
    Ox_AString s;
    for (int i = 0; i < count; ++i) s += 'x';
    benchmark::DoNotOptimize(s.GetString());
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_StringAppendChar)->Arg(1000)->Arg(100000);

void BM_StringAppendText(benchmark::State &state) {
  const int count = static_cast<int>(state.range(0));
  for (auto _ : state) {
    Ox_AString s;
    for (int i = 0; i < count; ++i) s += "field;";
    benchmark::DoNotOptimize(s.GetString());
  }
  state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_StringAppendText)->Arg(1000)->Arg(100000);

void BM_StringSetDouble(benchmark::State &state) {
  Ox_AString s;
  double v = 1234.5678;
  for (auto _ : state) {
    s.Set(v);
    benchmark::DoNotOptimize(s.GetString());
  }
}
BENCHMARK(BM_StringSetDouble);

// The binary streams' way: grow by each field, write at a running offset.
void BM_BufferAddSizeFieldByField(benchmark::State &state) {
  const long fields = state.range(0);
  for (auto _ : state) {
    Ox_Buffer b;
    long offset = 0;
    for (long i = 0; i < fields; ++i) {
      b.AddSize(4);
      unsigned char *p = b.GetSafeBuffer(-1);
      memcpy(p + offset, &i, 4);
      offset += 4;
    }
    benchmark::DoNotOptimize(b.GetData());
  }
  state.SetItemsProcessed(state.iterations() * fields);
}
BENCHMARK(BM_BufferAddSizeFieldByField)->Arg(1000)->Arg(100000);

void BM_BufferAppend(benchmark::State &state) {
  const long fields = state.range(0);
  const unsigned char field[8] = {1, 2, 3, 4, 5, 6, 7, 8};
  for (auto _ : state) {
    Ox_Buffer b;
    for (long i = 0; i < fields; ++i) b.Append(field, 8);
    benchmark::DoNotOptimize(b.GetData());
  }
  state.SetItemsProcessed(state.iterations() * fields);
}
BENCHMARK(BM_BufferAppend)->Arg(1000)->Arg(100000);

void BM_BufferCopyShared(benchmark::State &state) {
  Ox_Buffer source;
  source.SetSize(1024);
  for (auto _ : state) {
    Ox_Buffer copy(source);
    benchmark::DoNotOptimize(copy.GetData());
  }
}
BENCHMARK(BM_BufferCopyShared);

void BM_ConvertUtf8To949(benchmark::State &state) {
  Ox_AString text;
  for (int i = 0; i < 100; ++i) text += "\xEA\xB0\x80 abc ";
  for (auto _ : state) {
    Ox_AString out;
    out.ConvertCodePageFrom(65001, text.GetString(), text.GetLength(), 949);
    benchmark::DoNotOptimize(out.GetString());
  }
  state.SetBytesProcessed(state.iterations() * text.GetLength());
}
BENCHMARK(BM_ConvertUtf8To949);

void BM_ConvertAsciiUtf8To1252(benchmark::State &state) {
  Ox_AString text;
  for (int i = 0; i < 100; ++i) text += "plain text ";
  for (auto _ : state) {
    Ox_AString out;
    out.ConvertCodePageFrom(65001, text.GetString(), text.GetLength(), 1252);
    benchmark::DoNotOptimize(out.GetString());
  }
  state.SetBytesProcessed(state.iterations() * text.GetLength());
}
BENCHMARK(BM_ConvertAsciiUtf8To1252);

void BM_Crc32(benchmark::State &state) {
  Ox_Buffer b;
  b.SetSize(65536);
  for (auto _ : state)
    benchmark::DoNotOptimize(ox_crc32(0, b.GetData(), 65536));
  state.SetBytesProcessed(state.iterations() * 65536);
}
BENCHMARK(BM_Crc32);

void BM_Base64RoundTrip(benchmark::State &state) {
  Ox_Buffer b;
  b.SetSize(4096);
  for (auto _ : state) {
    Ox_Buffer back = b.EncodeBase64().DecodeBase64();
    benchmark::DoNotOptimize(back.GetData());
  }
  state.SetBytesProcessed(state.iterations() * 4096);
}
BENCHMARK(BM_Base64RoundTrip);

}  // namespace
