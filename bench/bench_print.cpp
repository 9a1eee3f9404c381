// A report of 600 MB on its way to the printer: into a file by a direct printer, into a sink that
// counts, and measured for what will not fit. Run it from a folder that takes two such files.

#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>

#include "backends/desktop/system/direct_spooler.h"
#include "paperway/storage.h"
#include "platform/input_file.h"
#include "printed/report_extent.h"
#include "printing/print_stream.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;

desktop::Storage storage;

constexpr int kPages = 107'000;
constexpr int kLines = 50;

/// In the file system's cache.
const fs::path& report() {
  static const fs::path path = [] {
    const fs::path file = fs::absolute("bench_print.prn");
    std::ofstream out(file, std::ios::binary);
    char line[160];
    for (int page = 0; page < kPages; ++page) {
      out << "\x0F\r\n";
      for (int i = 0; i < kLines; ++i) {
        std::snprintf(line, sizeof line,
                      "%8d  Customer number %06d      2026-03-%02d  Item %05d %12.2f %14.2f   "
                      "North     V/%07d\r\n",
                      page * kLines + i, (page * 37 + i) % 999983, i % 28 + 1, i * 7, i * 1.5,
                      i * page * 0.125, page + i);
        out << line;
      }
      out << "\x12\f\r\n";
    }
    return file;
  }();
  return path;
}

double peakMegabytes() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  return static_cast<double>(used.ru_maxrss) * 1024 / 1e6;
}

void finish(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(report())));
  state.counters["peak_MB"] = peakMegabytes();
}

const PrintStreamSettings kSettings{.paperHeight = 12, .draft = true, .condensed = true};

void StreamToNowhere(benchmark::State& state) {
  report();
  for (auto _ : state) {
    std::size_t bytes = 0;
    InputFile file(storage, report(), "bench");
    writePrintStream(file, kSettings, [&](std::string_view piece) { bytes += piece.size(); });
    benchmark::DoNotOptimize(bytes);
  }
  finish(state);
}
BENCHMARK(StreamToNowhere)->Unit(benchmark::kMillisecond);

void StreamToFile(benchmark::State& state) {
  report();
  const fs::path target = fs::absolute("bench_print.out");
  const desktop::DirectPrinterFile printers(fs::absolute("bench_printers"));
  printers.add({"File", "file://" + target.string()});
  for (auto _ : state) {
    const auto job = desktop::DirectSpooler(printers).open("File");
    job->start("report", DocumentFormat::raw);
    InputFile file(storage, report(), "bench");
    writePrintStream(file, kSettings, [&](std::string_view piece) { job->write(piece); });
    job->end();
  }
  finish(state);
  fs::remove(target);
}
BENCHMARK(StreamToFile)->Unit(benchmark::kMillisecond);

void MeasureFit(benchmark::State& state) {
  report();
  for (auto _ : state) {
    ExtentScan scan({});
    readBlocks(storage, report(), "bench", [&](std::string_view block) { scan.block(block); });
    benchmark::DoNotOptimize(scan.end());
  }
  finish(state);
}
BENCHMARK(MeasureFit)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace paperway

BENCHMARK_MAIN();
