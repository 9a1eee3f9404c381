#pragma once

#include <array>
#include <ostream>
#include <streambuf>

namespace paperway::command {

/// What std::cout writes to while it lives. It remembers a failure, so that one place tells it for
/// all commands.
class StandardOutput : private std::streambuf {
 public:
  StandardOutput();
  ~StandardOutput() override;
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;

  /// Raises an AutomationError when something could not be written.
  void finish();

 private:
  int_type overflow(int_type character) override;
  int sync() override;

  std::array<char, 4096> buffer_;
  int error_ = 0;
  std::streambuf* const before_;
};

/// A closed standard descriptor would go to the next file that is opened, and messages into that.
/// It is opened in a way that fails whatever is written to it or read from it.
void holdStandardDescriptors();

}  // namespace paperway::command
