#pragma once

#include <csignal>

namespace paperway::command {

/// Listens for Ctrl-C, and for the requests to end of the system, while it lives. A second one ends
/// the process at once.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  /// The signal that came; 0 for none.
  static int raised();
  /// The same, for those that wait with no knowledge of signals.
  static const volatile std::sig_atomic_t& flag();
};

}  // namespace paperway::command
