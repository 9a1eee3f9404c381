#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/export.h"

namespace paperway {

/// Other programs, and scripts for them that a user can change.
class PAPERWAY_API Shell {
 public:
  virtual ~Shell() = default;

  /// Starts a program in the background and goes on; it outlives this process. The first word is
  /// the program, looked up in the search path; no shell reads the words. An AutomationError that
  /// names the program when it cannot be started.
  virtual void start(const std::vector<std::string>& command) = 0;

  /// The command that starts the desktop's calculator; nothing when there is none.
  virtual std::optional<std::vector<std::string>> calculator() = 0;

  /// The file name of a script: the stem with the ending that the machine's scripts have.
  virtual std::filesystem::path scriptName(std::string_view stem) = 0;
  /// The text of a script that runs one line, and says what for.
  virtual std::string scriptText(std::string_view purpose, std::string_view line) = 0;
  /// A line of a script that writes a file to a device.
  virtual std::string copyLine(const std::filesystem::path& file,
                               const std::filesystem::path& device) = 0;
  /// As start(), a script of that name and text, whether or not its file may be run.
  virtual void startScript(const std::filesystem::path& script) = 0;
};

}  // namespace paperway
