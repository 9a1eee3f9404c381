#pragma once

#include <chrono>
#include <csignal>

namespace paperway {

/// How long somebody waits for a printer, or for a print service, that makes no progress.
struct Patience {
  Patience(std::chrono::milliseconds time, const volatile std::sig_atomic_t* stopFlag = nullptr)
      : timeout(time), stop(stopFlag) {}

  /// The user wants to stop; a wait sees it within a tenth of a second.
  bool isOver() const { return stop != nullptr && *stop != 0; }

  std::chrono::milliseconds timeout;
  const volatile std::sig_atomic_t* stop;  // 0 until a signal sets it; null: nobody asks to stop
};

}  // namespace paperway
