// The report window on a report of 600 MB: 100,000 pages of 50 lines. Every figure is of the models
// alone; what a renderer adds is measured with it. Run it from a folder that takes the file.

#include <benchmark/benchmark.h>
#include <filesystem>

#include "bench/big_report.h"
#include "paperway/headless.h"
#include "preview/frm_report.h"
#include "preview/page_styles.h"
#include "session/run_state.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;

using bench::kPages;
using bench::peakMegabytes;
using bench::report;

struct Window {
  Window() {
    RunState& state = runState();
    state = RunState();
    state.ModRCont = state.ModREdit = state.ModRSearch = state.ModRPrint = 1;
    state.ModPath1 = report().string();
    form->load();
    form->activate();
  }
  headless::Headless machine{fs::absolute("bench_preview_home")};
  std::shared_ptr<FrmReport> form =
      std::make_shared<FrmReport>(machine.platform(), RunContext::ofThread());
};

Window& window() {
  static Window shared;
  return shared;
}

void OpenReport(benchmark::State& state) {
  bench::timeOpening<Window>(state);
}
BENCHMARK(OpenReport)->Unit(benchmark::kMillisecond)->Iterations(3);

void LastPage(benchmark::State& state) {
  for (auto _ : state) window().form->CmdLast_Click();
}
BENCHMARK(LastPage)->Unit(benchmark::kMicrosecond);

void NextPage(benchmark::State& state) {
  window().form->CmdFst_Click();
  for (auto _ : state) window().form->CmdNxt_Click();
}
BENCHMARK(NextPage)->Unit(benchmark::kMicrosecond);

void GoToPage(benchmark::State& state) {
  int number = 1;
  for (auto _ : state) {
    number = (number * 7919) % kPages + 1;
    window().form->Text2.Text = std::to_string(number);
    int enter = keyReturn;
    window().form->Text2.keyPress(enter);
  }
}
BENCHMARK(GoToPage)->Unit(benchmark::kMicrosecond);

void OpenContinuousView(benchmark::State& state) {
  FrmReport& form = *window().form;
  for (auto _ : state) {
    form.Check3.Value.setQuietly(1);
    form.Check3_Click();
    benchmark::DoNotOptimize(form.Rt1.lineCount());
  }
  state.counters["peak_MB"] = peakMegabytes();
}
BENCHMARK(OpenContinuousView)->Unit(benchmark::kMillisecond)->Iterations(1);

void LineOfContinuousView(benchmark::State& state) {
  FrmReport& form = *window().form;
  form.Check3_Click();
  const std::uint64_t lines = form.Rt1.lineCount();
  std::uint64_t line = 0;
  for (auto _ : state) {
    line = (line + 1'234'567) % lines;
    for (std::uint64_t i = 0; i < 60; ++i) benchmark::DoNotOptimize(form.Rt1.styledLine(line + i));
  }
}
BENCHMARK(LineOfContinuousView)->Name("ScreenOfContinuousView")->Unit(benchmark::kMicrosecond);

void Find(benchmark::State& state, const char* text) {
  const RichTextBox& box = window().form->Rt1;
  window().form->Check3_Click();
  const auto size = static_cast<std::int64_t>(box.buffer().size());
  for (auto _ : state) benchmark::DoNotOptimize(box.Find(text, 0, size));
  state.SetBytesProcessed(state.iterations() * size);
}
BENCHMARK_CAPTURE(Find, word, "no such words")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Find, number, "99999999.99")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Find, twoLetters, "qz")->Unit(benchmark::kMillisecond);

void SearchWithHits(benchmark::State& state) {
  FrmReport& form = *window().form;
  form.Text4.Text = "Sales Ledger";
  for (auto _ : state) {
    state.PauseTiming();
    form.Check3_Click();
    state.ResumeTiming();
    int enter = keyReturn;
    form.Text4.keyPress(enter);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(form.Rt1.buffer().size()));
  state.counters["hits"] = kPages;
  state.counters["peak_MB"] = peakMegabytes();
}
BENCHMARK(SearchWithHits)->Unit(benchmark::kMillisecond);

void StyleMarks(benchmark::State& state) {
  std::string text;
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    text += i % 2 == 0 ? "some text \x1B"
                         "Ebold\x1B"
                         "F plain\r\n"
                       : "double \x0E\x1B"
                         "E\x1BGwide\x14\x1B"
                         "F\x1BH end\r\n";
  }
  FrmReport& form = *window().form;
  for (auto _ : state) {
    state.PauseTiming();
    form.Rt1.Text = text;
    state.ResumeTiming();
    form.ApplyPageStyles();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(StyleMarks)
    ->RangeMultiplier(4)
    ->Range(600, 600 * 64)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();

}  // namespace
}  // namespace paperway

BENCHMARK_MAIN();
