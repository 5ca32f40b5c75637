// Compression speed: the zlib and gzip frames against plain zlib
// (compress2/uncompress) on the same 64 MB of mixed, compressible data,
// and the LZSS form's speed and ratio.
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "Ox_Compress.h"
#include "../tests/system/compress_test_support.h"

namespace {

constexpr size_t kSize = 64u << 20;
constexpr size_t kLzssSize = 16u << 20;
constexpr int kLevel = 6;

// Business-like records: words, numbers and some random bytes, made by
// the generator the compression tests use.
const std::vector<unsigned char> &MixedData() {
  static const std::vector<unsigned char> data =
      oxtest::MixedBytes(kSize, 2026);
  return data;
}

Ox_Buffer MixedBuffer(size_t size) {
  Ox_Buffer b;
  b.Set(MixedData().data(), static_cast<long>(size));
  return b;
}

void Finish(benchmark::State &state, size_t plain, long packed) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(plain));
  state.counters["ratio"] = static_cast<double>(plain) / static_cast<double>(packed);
}

void BM_PlainCompress2(benchmark::State &state) {
  const auto &data = MixedData();
  std::vector<unsigned char> out(compressBound(kSize));
  uLongf size = 0;
  for (auto _ : state) {
    size = out.size();
    compress2(out.data(), &size, data.data(), kSize, kLevel);
    benchmark::DoNotOptimize(out.data());
  }
  Finish(state, kSize, static_cast<long>(size));
}

void BM_ZlibFrameEncode(benchmark::State &state) {
  const Ox_Buffer in = MixedBuffer(kSize);
  Ox_Compress c;
  Ox_Buffer out;
  for (auto _ : state) c.Encode(in, out, 2, kLevel);
  Finish(state, kSize, out.GetSize());
}

void BM_Compress2Encode(benchmark::State &state) {
  const Ox_Buffer in = MixedBuffer(kSize);
  Ox_Compress2 c;
  Ox_Buffer out;
  for (auto _ : state) c.Encode(in, out, kLevel);
  Finish(state, kSize, out.GetSize());
}

void BM_GzipEncode(benchmark::State &state) {
  const Ox_Buffer in = MixedBuffer(kSize);
  Ox_Buffer out;
  for (auto _ : state) Ox_Compress::Deflate(in, out, kLevel);
  Finish(state, kSize, out.GetSize());
}

void BM_PlainUncompress(benchmark::State &state) {
  const auto &data = MixedData();
  std::vector<unsigned char> packed(compressBound(kSize));
  uLongf packedSize = packed.size();
  compress2(packed.data(), &packedSize, data.data(), kSize, kLevel);
  std::vector<unsigned char> out(kSize);
  for (auto _ : state) {
    uLongf size = kSize;
    uncompress(out.data(), &size, packed.data(), packedSize);
    benchmark::DoNotOptimize(out.data());
  }
  Finish(state, kSize, static_cast<long>(packedSize));
}

// The same, writing each time into new memory, as the decoders must (they
// hand out a new buffer): the fair measure for them.
void BM_PlainUncompressFresh(benchmark::State &state) {
  const auto &data = MixedData();
  std::vector<unsigned char> packed(compressBound(kSize));
  uLongf packedSize = packed.size();
  compress2(packed.data(), &packedSize, data.data(), kSize, kLevel);
  for (auto _ : state) {
    std::unique_ptr<unsigned char[]> out(new unsigned char[kSize]);
    uLongf size = kSize;
    uncompress(out.get(), &size, packed.data(), packedSize);
    benchmark::DoNotOptimize(out.get());
  }
  Finish(state, kSize, static_cast<long>(packedSize));
}

void BM_ZlibFrameDecode(benchmark::State &state) {
  Ox_Compress c;
  Ox_Buffer packed, out;
  c.Encode(MixedBuffer(kSize), packed, 2, kLevel);
  for (auto _ : state) c.Decode(packed, out);
  if (out.GetSize() != static_cast<long>(kSize)) state.SkipWithError("bad size");
  Finish(state, kSize, packed.GetSize());
}

void BM_Compress2Decode(benchmark::State &state) {
  Ox_Compress2 c;
  Ox_Buffer packed, out;
  c.Encode(MixedBuffer(kSize), packed, kLevel);
  for (auto _ : state) c.Decode(packed, out);
  if (out.GetSize() != static_cast<long>(kSize)) state.SkipWithError("bad size");
  Finish(state, kSize, packed.GetSize());
}

void BM_Compress2DecodeData64K(benchmark::State &state) {
  // The frame arriving in pieces of 64 KB.
  Ox_Compress2 c;
  Ox_Buffer packed;
  c.Encode(MixedBuffer(kSize), packed, kLevel);
  long total = 0;
  for (auto _ : state) {
    total = 0;
    c.DecodeInit();
    for (long pos = 0; pos < packed.GetSize(); pos += 65536) {
      const long n = packed.GetSize() - pos < 65536 ? packed.GetSize() - pos : 65536;
      Ox_Buffer out;
      c.DecodeData(packed.GetData() + pos, static_cast<int>(n), out);
      total += out.GetSize();
    }
  }
  if (total != static_cast<long>(kSize)) state.SkipWithError("bad size");
  Finish(state, kSize, packed.GetSize());
}

void BM_GzipDecode(benchmark::State &state) {
  Ox_Buffer packed, out;
  Ox_Compress::Deflate(MixedBuffer(kSize), packed, kLevel);
  for (auto _ : state) Ox_Compress::Inflate(packed, out);
  if (out.GetSize() != static_cast<long>(kSize)) state.SkipWithError("bad size");
  Finish(state, kSize, packed.GetSize());
}

void BM_LzssEncode(benchmark::State &state) {
  const Ox_Buffer in = MixedBuffer(kLzssSize);
  Ox_Compress c;
  Ox_Buffer out;
  for (auto _ : state) c.Encode(in, out, 1, 0);
  Finish(state, kLzssSize, out.GetSize());
}

void BM_LzssDecode(benchmark::State &state) {
  Ox_Compress c;
  Ox_Buffer packed, out;
  c.Encode(MixedBuffer(kLzssSize), packed, 1, 0);
  for (auto _ : state) c.Decode(packed, out);
  if (out.GetSize() != static_cast<long>(kLzssSize)) state.SkipWithError("bad size");
  Finish(state, kLzssSize, packed.GetSize());
}

}  // namespace

BENCHMARK(BM_PlainCompress2)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_ZlibFrameEncode)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_Compress2Encode)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_GzipEncode)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_PlainUncompress)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_PlainUncompressFresh)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ZlibFrameDecode)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_Compress2Decode)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_Compress2DecodeData64K)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_GzipDecode)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_LzssEncode)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(BM_LzssDecode)->Unit(benchmark::kMillisecond)->Iterations(5);
