#include <benchmark/benchmark.h>
#include <vector>

#include "util/amounts.h"

namespace {

/// Amounts of all lengths, with and without paise.
std::vector<double> amounts() {
  std::vector<double> all;
  for (double paise = 1; paise < 1e11; paise = paise * 1.37 + 1) {
    all.push_back(static_cast<double>(static_cast<long>(paise)) / 100);
    all.push_back(static_cast<double>(static_cast<long>(paise / 100)));
  }
  return all;
}

void numToText(benchmark::State& state) {
  const std::vector<double> all = amounts();
  std::int64_t words = 0;
  for (auto _ : state) {
    for (const double amount : all) benchmark::DoNotOptimize(paperway::NumToText(amount));
    words += static_cast<std::int64_t>(all.size());
  }
  state.SetItemsProcessed(words);
}
BENCHMARK(numToText);

}  // namespace

BENCHMARK_MAIN();
