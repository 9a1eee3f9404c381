// The report window on the screen (an offscreen one), from the user's act to the finished frame, on
// a report of 600 MB.

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <benchmark/benchmark.h>
#include <filesystem>

#include "backends/desktop/qt/application.h"
#include "backends/desktop/qt/control_view.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/report_view.h"
#include "backends/desktop/qt/windows.h"
#include "bench/big_report.h"
#include "paperway/headless.h"
#include "preview/frm_report.h"
#include "session/run_state.h"

namespace paperway {
namespace {

namespace fs = std::filesystem;
using bench::kPages;
using bench::peakMegabytes;
using bench::report;

/// Draws what is due.
void frame() {
  QApplication::processEvents();
}

class Window {
 public:
  Window() : machine_(fs::absolute("bench_preview_home")) {
    RunState& state = runState();
    state = RunState();
    state.ModRCont = state.ModREdit = state.ModRSearch = state.ModRPrint = 1;
    state.ModPath1 = report().string();
    form = std::make_shared<FrmReport>(machine_.platform().with(windows_), RunContext::ofThread());
    form->load();
    windows_.show(form);
    frame();
  }
  ~Window() {
    window().act([this] { form->unload(); });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  qt::FormWindow& window() { return *windows_.window(*form); }
  qt::ReportView& view() { return static_cast<qt::ReportView&>(window().view(form->Rt1)->widget); }
  void click(Control& control) {
    window().act([&control] { control.click(); });
    frame();
  }
  void type(TextBox& box, const std::string& text) {
    window().act([&] {
      box.Text = text;
      int enter = keyReturn;
      box.keyPress(enter);
    });
    frame();
  }

  std::shared_ptr<FrmReport> form;

 private:
  headless::Headless machine_;
  qt::Windows windows_;
};

Window& window() {
  static auto* shared = new Window;  // the application goes before static objects do
  return *shared;
}

void OpenReport(benchmark::State& state) {
  bench::timeOpening<Window>(state);
}
BENCHMARK(OpenReport)->Unit(benchmark::kMillisecond)->Iterations(3);

void NextPage(benchmark::State& state) {
  window().click(window().form->CmdFst);
  for (auto _ : state) window().click(window().form->CmdNxt);
}
BENCHMARK(NextPage)->Unit(benchmark::kMillisecond);

void LastPage(benchmark::State& state) {
  for (auto _ : state) window().click(window().form->CmdLast);
}
BENCHMARK(LastPage)->Unit(benchmark::kMillisecond);

void GoToPage(benchmark::State& state) {
  int number = 1;
  for (auto _ : state) {
    number = (number * 7919) % kPages + 1;
    window().type(window().form->Text2, std::to_string(number));
  }
}
BENCHMARK(GoToPage)->Unit(benchmark::kMillisecond);

void OpenContinuousView(benchmark::State& state) {
  for (auto _ : state) window().click(window().form->Check3);
  state.counters["peak_MB"] = peakMegabytes();
}
BENCHMARK(OpenContinuousView)->Unit(benchmark::kMillisecond)->Iterations(1);

void ScrollByWheel(benchmark::State& state) {
  qt::ReportView& view = window().view();
  for (auto _ : state) {
    QWheelEvent notch(QPointF(50, 50), view.mapToGlobal(QPointF(50, 50)), {}, {0, -120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &notch);
    frame();
  }
}
BENCHMARK(ScrollByWheel)->Unit(benchmark::kMillisecond);

void ScrollByThumb(benchmark::State& state) {
  QScrollBar* bar = window().view().verticalScrollBar();
  std::int64_t place = 1;
  for (auto _ : state) {
    place = (place * 7919 + 12'345'677) % bar->maximum();
    bar->setValue(static_cast<int>(place));
    frame();
  }
}
BENCHMARK(ScrollByThumb)->Unit(benchmark::kMillisecond);

void Search(benchmark::State& state, const char* text) {
  for (auto _ : state) window().type(window().form->Text4, text);
  state.SetBytesProcessed(state.iterations() *
                          static_cast<std::int64_t>(window().form->Rt1.buffer().size()));
  state.counters["peak_MB"] = peakMegabytes();
}
BENCHMARK_CAPTURE(Search, no_hit, "no such words")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Search, hit_on_each_page, "Sales Ledger")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

}  // namespace
}  // namespace paperway

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const auto application = paperway::qt::makeApplication(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
