#pragma once

#include "apps/paperway/commands.h"
#include "apps/paperway/stop_signals.h"
#include "backends/desktop/system/system.h"
#include "paperway/headless.h"
#include "paperway/platform.h"
#include "paperway/workbook.h"

namespace paperway::command {

/// The machine as a command without a window sees it: the user's own folders and files, messages
/// on the console.
class Machine {
 public:
  Machine() { system_.names.program = kProgram; }

  Platform platform() {
    return {.messageBox = messageBox_,
            .windows = screenless_.windows,
            .folders = system_.folders,
            .clipboard = screenless_.clipboard,
            .dialogs = screenless_.dialogs,
            .shell = screenless_.shell,
            .storage = system_.storage,
            .files = system_.files,
            .clock = system_.clock,
            .names = system_.names,
            .userStore = system_.userStore,
            .spooler = screenless_.spooler,
            .printers = screenless_.printers,
            .printDevice = screenless_.printDevice,
            .pageSetup = system_.pageSetup,
            .workbooks = &workbooks_};
  }

  /// Throws Told when a message has been shown.
  void throwIfTold() const {
    if (messageBox_.told) throw Told();
  }

 private:
  /// Remembers that it has been used.
  struct MessageBoxes : desktop::ConsoleMessageBox {
    Answer show(std::string_view text, std::string_view title, Buttons buttons,
                Icon icon) override {
      if (StopSignals::raised() != 0) throw Interrupted();  // which is what the user expects
      told = true;
      return ConsoleMessageBox::show(text, title, buttons, icon);
    }
    bool told = false;
  };

  MessageBoxes messageBox_;
  desktop::System system_;
  WorkbookFiles workbooks_{system_.storage};
  headless::Headless screenless_{std::filesystem::path()};  // its folders and files are not used
};

}  // namespace paperway::command
