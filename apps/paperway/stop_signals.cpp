#include "apps/paperway/stop_signals.h"

namespace paperway::command {
namespace {

constexpr int kStopSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t stopSignal = 0;

void askToStop(int signal) {
  stopSignal = signal;
}

/// A signal that whoever started the process had it ignore (nohup) stays ignored. Calls that wait
/// are not taken up again: they fail, and so end the wait.
void handle(int signal, void (*handler)(int)) {
  struct sigaction before {};
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESETHAND;
  sigaction(signal, nullptr, &before);
  if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
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

const volatile std::sig_atomic_t& StopSignals::flag() {
  return stopSignal;
}

}  // namespace paperway::command
