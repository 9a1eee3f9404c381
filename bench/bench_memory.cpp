// The ledger report from a table in memory, so that nothing but the report itself is measured.
//
//   bench_memory LEDGER.db [options of Google Benchmark]

#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "paperway/class1.h"
#include "paperway/headless.h"
#include "paperway/memory.h"
#include "paperway/sqlite.h"

namespace paperway {
namespace {

MemoryTable load(const SqliteDatabase& database, const std::string& statement) {
  SqliteRecordset rows(database, statement);
  std::vector<std::string> names;
  for (std::size_t i = 0; i < rows.fieldCount(); ++i) names.emplace_back(rows.fieldName(i));
  MemoryTable table(std::move(names));
  std::vector<ValueView> cells(rows.fieldCount());
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = rows.value(i);
    table.addRow(cells);
  }
  return table;
}

void writeLedger(benchmark::State& state, MemoryTable& rows, MemoryTable& columns,
                 const std::string& file) {
  const auto folder = std::filesystem::temp_directory_path() / "paperway-bench";
  headless::Headless machine(folder);
  for (auto _ : state) {
    Class1 report(machine.platform());
    report.Set_Repot_Format(columns);
    report.Text_Rpt({.Rs = rows,
                     .TextFileName = file,
                     .Tital1 = "Sales ledger",
                     .MPLine = 60,
                     .Srno = 1,
                     .C_80_96_136 = 136});
  }
  state.SetItemsProcessed(state.iterations() * rows.RecordCount());
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace paperway

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "usage: bench_memory LEDGER.db\n");
    return 2;
  }
  const paperway::SqliteDatabase database(argv[1]);
  auto rows = paperway::load(database, "SELECT * FROM sales");
  auto columns = paperway::load(database, "SELECT * FROM columns");
  const std::string report = std::string(argv[1]) + ".txt";
  const auto add = [&](const char* name, const std::string& file) {
    benchmark::RegisterBenchmark(name, [&rows, &columns, file](benchmark::State& state) {
      paperway::writeLedger(state, rows, columns, file);
    })->Unit(benchmark::kMillisecond);
  };
  add("ledger from memory to nowhere", "/dev/null");
  add("ledger from memory to a file", report);
  benchmark::RunSpecifiedBenchmarks();
  std::filesystem::remove(report);
  return 0;
}
