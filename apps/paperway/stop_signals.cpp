#include "apps/paperway/stop_signals.h"

#include <csignal>

namespace paperway::command {
namespace {

constexpr int kStopSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t stopSignal = 0;

void askToStop(int signal) {
  stopSignal = signal;
  std::signal(signal, SIG_DFL);
}

/// A signal that whoever started the process had it ignore (nohup) stays ignored.
void handle(int signal, void (*handler)(int)) {
  if (std::signal(signal, handler) == SIG_IGN) std::signal(signal, SIG_IGN);
}

}  // namespace

StopSignals::StopSignals() {
  stopSignal = 0;
  for (const int signal : kStopSignals) handle(signal, askToStop);
}

StopSignals::~StopSignals() {
  for (const int signal : kStopSignals) handle(signal, SIG_DFL);
}

int StopSignals::raised() {
  return stopSignal;
}

}  // namespace paperway::command
