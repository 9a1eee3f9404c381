#pragma once

#include <optional>
#include <string>
#include <vector>

#include "paperway/export.h"

namespace paperway {

/// Other programs.
class PAPERWAY_API Shell {
 public:
  virtual ~Shell() = default;

  /// Starts a program in the background and goes on; it outlives this process. The first word is
  /// the program, looked up in the search path; no shell reads the words. An AutomationError that
  /// names the program when it cannot be started.
  virtual void start(const std::vector<std::string>& command) = 0;

  /// The command that starts the desktop's calculator; nothing when there is none.
  virtual std::optional<std::vector<std::string>> calculator() = 0;
};

}  // namespace paperway
