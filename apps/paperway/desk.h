#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "paperway/platform.h"

namespace paperway {
class Form;
}

namespace paperway::command {

/// The user's desktop, with windows, dialogs and printers. There is one at a time.
class Desk {
 public:
  struct Options {
    bool screenless = false;  // windows are drawn, but nowhere to be seen
    double scale = 1;         // of a screenless desk
    bool dark = false;
  };

  /// A std::runtime_error when there is no display, or no windows in this build.
  static std::unique_ptr<Desk> open(const Options& options);

  virtual ~Desk() = default;
  virtual Platform platform() = 0;

  /// The form that was shown last.
  virtual Form& form() = 0;
  /// Lets the user work until the last window is closed.
  virtual void run() = 0;
  /// In logical pixels.
  virtual void resize(int width, int height) = 0;
  /// Writes a picture (PNG) of the form that was shown last, which shows that report.
  virtual void draw(const std::filesystem::path& picture, const std::filesystem::path& report) = 0;
};

/// Opens a report with everything on offer; returns when the last window is closed.
void read(Desk& desk, const std::string& report);

}  // namespace paperway::command
