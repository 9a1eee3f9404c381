#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "apps/paperway/stop_signals.h"
#include "paperway/recordset.h"

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
  void tick() {
    if (++ticks_ % kTicksPerLook == 0) look();
  }

  /// The last line: what was written where.
  void finish(const std::string& fileName);

 private:
  static constexpr std::uint32_t kTicksPerLook = 1024;
  using Clock = std::chrono::steady_clock;

  void look();
  std::string line() const;

  const StopSignals stopSignals_;
  const bool terminal_;
  const Clock::time_point start_ = Clock::now();
  Clock::time_point shown_ = start_;
  std::uint32_t ticks_ = 0;
  bool onShow_ = false;
};

/// A recordset that reports each of its moves.
template <typename Base>
class Watched : public Base {
 public:
  template <typename... Arguments>
  explicit Watched(Progress& progress, Arguments&&... arguments)
      : Base(std::forward<Arguments>(arguments)...), progress_(progress) {}

  void MoveNext() override {
    progress_.tick();
    Base::MoveNext();
  }

 private:
  Progress& progress_;
};

}  // namespace paperway::command
