// Digest speed: Ox_MD5Digest and Ox_SHA1Digest against OpenSSL's EVP
// interface on the same 256 MB.
#include <benchmark/benchmark.h>
#include <openssl/evp.h>

#include <random>
#include <vector>

#include "Ox_Digest.h"

namespace {

constexpr size_t kSize = 256u << 20;
constexpr int kPiece = 1 << 20;  // fed in pieces of 1 MB, as a file would be

const std::vector<unsigned char> &Data() {
  static const std::vector<unsigned char> data = [] {
    std::vector<unsigned char> out(kSize);
    std::mt19937_64 gen(77);
    for (size_t i = 0; i < kSize; i += 8) {
      const uint64_t v = gen();
      for (int k = 0; k < 8; k++) out[i + k] = static_cast<unsigned char>(v >> (8 * k));
    }
    return out;
  }();
  return data;
}

template <class D>
void BM_Ox(benchmark::State &state) {
  const auto &data = Data();
  unsigned char out[20];
  for (auto _ : state) {
    D d;
    d.Init();
    for (size_t pos = 0; pos < kSize; pos += kPiece)
      d.Update(data.data(), static_cast<int>(pos), kPiece);
    d.Digest(out);
    benchmark::DoNotOptimize(out);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kSize);
}

void RunEvp(benchmark::State &state, const EVP_MD *md) {
  const auto &data = Data();
  unsigned char out[EVP_MAX_MD_SIZE];
  unsigned int outLen = 0;
  EVP_MD_CTX *ctx = EVP_MD_CTX_new();
  for (auto _ : state) {
    EVP_DigestInit_ex(ctx, md, nullptr);
    for (size_t pos = 0; pos < kSize; pos += kPiece)
      EVP_DigestUpdate(ctx, data.data() + pos, kPiece);
    EVP_DigestFinal_ex(ctx, out, &outLen);
    benchmark::DoNotOptimize(out);
  }
  EVP_MD_CTX_free(ctx);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kSize);
}

void BM_OpenSslMd5(benchmark::State &state) { RunEvp(state, EVP_md5()); }
void BM_OpenSslSha1(benchmark::State &state) { RunEvp(state, EVP_sha1()); }

}  // namespace

BENCHMARK_TEMPLATE(BM_Ox, Ox_MD5Digest)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_OpenSslMd5)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK_TEMPLATE(BM_Ox, Ox_SHA1Digest)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_OpenSslSha1)->Unit(benchmark::kMillisecond)->MinTime(2.0);
