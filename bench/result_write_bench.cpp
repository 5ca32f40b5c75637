// Ox_Result::Write in server mode: log lines per second, one message a
// call, 100,000 calls into a temporary folder.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <string>

#include "Ox_Result.h"

namespace {

void BM_ResultWriteLine(benchmark::State &state) {
  char pattern[] = "/tmp/ox_result_bench_XXXXXX";
  if (!mkdtemp(pattern)) {
    state.SkipWithError("no temporary folder");
    return;
  }
  const int savedMode = IsServerMode();
  SetServerMode(1);
  Ox_Result result;
  result.AddMsg(static_cast<int>(0x81000111), "c:\\src\\bench.cpp", 42,
                "dataset", "with \"quotes\" and \\ backslashes", nullptr);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        result.Write(pattern, "logs", 64 * 1024 * 1024, 0));
  }
  state.SetItemsProcessed(state.iterations());
  SetServerMode(savedMode);
  const std::string command = std::string("rm -rf '") + pattern + "'";
  if (system(command.c_str()) != 0) state.SkipWithError("cleanup failed");
}
BENCHMARK(BM_ResultWriteLine)
    ->Iterations(100000)
    ->Unit(benchmark::kMicrosecond);

// The same with rolling: a small maxSize makes each call walk the files of
// the day that are full already (here up to 100).
void BM_ResultWriteRolling(benchmark::State &state) {
  char pattern[] = "/tmp/ox_result_bench_XXXXXX";
  if (!mkdtemp(pattern)) {
    state.SkipWithError("no temporary folder");
    return;
  }
  const int savedMode = IsServerMode();
  SetServerMode(1);
  Ox_Result result;
  result.AddMsg(-1, "c:\\src\\bench.cpp", 7, "x", nullptr);
  for (auto _ : state) {
    benchmark::DoNotOptimize(result.Write(pattern, "roll", 8000, 0));
  }
  state.SetItemsProcessed(state.iterations());
  SetServerMode(savedMode);
  const std::string command = std::string("rm -rf '") + pattern + "'";
  if (system(command.c_str()) != 0) state.SkipWithError("cleanup failed");
}
BENCHMARK(BM_ResultWriteRolling)
    ->Iterations(10000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
