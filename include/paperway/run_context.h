#pragma once

#include <memory>

#include "paperway/export.h"

namespace paperway {

struct RunState;

/// What Class1 objects share with the windows that they open: page length and printer, the report
/// on its way to a window, whether one is open, the installation number. Copies are the same
/// context; a window keeps it alive as long as it is open. For one thread.
class PAPERWAY_API RunContext {
 public:
  /// One of its own, in which nothing is set.
  RunContext();
  /// The one that all Class1 objects of this thread have unless they are given another.
  static RunContext ofThread();

  RunState* operator->() const { return state_.get(); }
  RunState& operator*() const { return *state_; }

 private:
  std::shared_ptr<RunState> state_;
};

}  // namespace paperway
