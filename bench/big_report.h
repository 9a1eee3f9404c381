#pragma once

#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>

/// A report of 600 MB: 100,000 pages of 50 lines.
namespace paperway::bench {

inline constexpr int kPages = 100'000;
inline constexpr int kLines = 50;

inline std::string page(int number) {
  std::string text =
      "\x0F\r\n\x0E\x1B"
      "E\x1BGSales ledger\x14\x1B"
      "F\x1BH\r\n\x1B"
      "EPage No # " +
      std::to_string(number) +
      "\x1B"
      "F\r\n";
  char line[160];
  for (int i = 0; i < kLines; ++i) {
    std::snprintf(
        line, sizeof line,
        "%8d  Customer number %06d      2026-03-%02d  Item %05d %12.2f %12.2f %14.2f      "
        "North     V/%07d\r\n",
        number * kLines + i, (number * 37 + i) % 999983, i % 28 + 1, i * 7, i * 1.5, number * 0.25,
        i * number * 0.125, number + i);
    text += line;
  }
  return text + "\x12\f";
}

/// The report, in the file system's cache. Run a benchmark from a folder that takes the file.
inline const std::filesystem::path& report() {
  static const std::filesystem::path path = [] {
    const std::filesystem::path file = std::filesystem::absolute("bench_preview.prn");
    std::ofstream out(file, std::ios::binary);
    for (int i = 0; i < kPages; ++i) out << page(i);
    return file;
  }();
  return path;
}

inline double peakMegabytes() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  return static_cast<double>(used.ru_maxrss) * 1024 / 1e6;
}

template <class Window>
void timeOpening(benchmark::State& state) {
  report();
  for (auto _ : state) Window opened;
  state.counters["file_MB"] = static_cast<double>(std::filesystem::file_size(report())) / 1e6;
  state.counters["peak_MB"] = peakMegabytes();
}

}  // namespace paperway::bench
