#pragma once

#include <memory>
#include <string>

#include "paperway/export.h"
#include "paperway/platform.h"

namespace paperway {

/// The user's desktop as a platform: windows, messages, dialogs and the clipboard by Qt, the queues
/// of CUPS and the user's direct printers, the user's folders and files.
///
/// A host that has a QApplication makes it before, and keeps its event loop; without one the
/// desktop makes its own. Either way LC_NUMERIC is "C" from then on, as the library's files need
/// it. All calls come from the thread of the QApplication.
class PAPERWAY_API Desktop {
 public:
  struct Options {
    bool dark = false;  // dark colours, whatever the user has chosen
    /// Windows are drawn, but nowhere to be seen, which needs no display; messages go to standard
    /// error. Not for a host with a QApplication of its own, which has decided that already.
    bool screenless = false;
    double scale = 1;  // of what is drawn so
    /// Under which the user's choices are kept; empty: the executable's own name.
    std::string program{};
  };

  /// An AutomationError when there is no display.
  Desktop();
  explicit Desktop(const Options& options);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  /// Refers to the desktop, which outlives every Class1 made with it; windows that are still open
  /// close with it.
  Platform platform();

  /// Lets the user work until the last window is closed. Not needed where the host's own event loop
  /// runs.
  void run();

  // Of the window that was shown last; without one, an AutomationError.

  /// Its size without the frame, in logical pixels.
  void resize(int width, int height);
  /// A picture of it, or of the dialog that is open before it: the bytes of a PNG file.
  std::string picture();

 private:
  struct Parts;

  std::unique_ptr<Parts> parts_;
};

}  // namespace paperway
