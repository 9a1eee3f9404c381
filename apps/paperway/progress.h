#pragma once

#include <chrono>
#include <string>

#include "apps/paperway/stop_signals.h"
#include "paperway/arguments.h"

namespace paperway::command {

/// Rows, rows a second and pages of the report in progress, on standard error when that is a
/// terminal and the run lasts. Listens for Ctrl-C while it lives.
class Progress {
 public:
  Progress();
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// To be called often. Throws Interrupted when the user wants to stop.
  void tell(const ReportProgress& done);

  /// The last line: what was written where. Data that may command the printer is told.
  void finish(const std::string& fileName);

 private:
  using Clock = std::chrono::steady_clock;

  std::string line() const;

  const StopSignals stopSignals_;
  const bool terminal_;
  const Clock::time_point start_ = Clock::now();
  Clock::time_point shown_ = start_;
  ReportProgress done_;
  bool onShow_ = false;
};

}  // namespace paperway::command
