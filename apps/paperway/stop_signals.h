#pragma once

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
};

}  // namespace paperway::command
