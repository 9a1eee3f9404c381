#include "apps/paperway/progress.h"

#include <csignal>
#include <iostream>
#include <unistd.h>

#include "apps/paperway/commands.h"
#include "facade/run_state.h"
#include "util/format_pattern.h"

namespace paperway::command {
namespace {

constexpr auto kBeforeFirstLine = std::chrono::seconds(1);
constexpr auto kBetweenLines = std::chrono::milliseconds(200);

constexpr int kStopSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t stopSignal = 0;

void askToStop(int signal) {
  stopSignal = signal;
  std::signal(signal, SIG_DFL);  // a second one ends the process at once
}

/// A signal that whoever started the process had it ignore (nohup) stays ignored.
void handle(int signal, void (*handler)(int)) {
  if (std::signal(signal, handler) == SIG_IGN) std::signal(signal, SIG_IGN);
}

std::string grouped(std::int64_t number) {
  return FormatPattern("#,##0")(ValueView(number));
}

}  // namespace

Progress::Progress() : terminal_(isatty(STDERR_FILENO) != 0) {
  stopSignal = 0;
  for (const int signal : kStopSignals) handle(signal, askToStop);
}

Progress::~Progress() {
  if (onShow_) std::cerr << "\r\033[K";
  for (const int signal : kStopSignals) handle(signal, SIG_DFL);
}

bool Progress::isInterrupted() {
  return stopSignal != 0;
}

int Progress::interruptSignal() {
  return stopSignal;
}

void Progress::look() {
  if (isInterrupted()) throw Interrupted();
  if (!terminal_) return;
  const auto now = Clock::now();
  if (now - start_ < kBeforeFirstLine || now - shown_ < kBetweenLines) return;
  shown_ = now;
  onShow_ = true;
  std::cerr << "\r\033[K" << line() << std::flush;
}

std::string Progress::line() const {
  const RunState& state = runState();
  const double seconds = std::chrono::duration<double>(Clock::now() - start_).count();
  const double rate = seconds > 0 ? static_cast<double>(state.rowsDone) / seconds : 0;
  return grouped(state.rowsDone) + " rows, " + grouped(static_cast<std::int64_t>(rate)) +
         " rows/s, " + grouped(state.pagesDone) + " pages";
}

void Progress::finish(const std::string& fileName) {
  if (!onShow_) return;
  onShow_ = false;
  std::cerr << "\r\033[K" << fileName << ": " << line() << "\n";
}

}  // namespace paperway::command
