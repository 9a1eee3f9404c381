#pragma once

#include "apps/paperway/queues.h"
#include "backends/desktop/system/direct_printers.h"
#include "backends/desktop/system/direct_spooler.h"
#include "platform/platform.h"
#include "printing/joined_printers.h"

namespace paperway::command {

/// The queues of the machine and the direct printers of the user.
class UserPrinters {
 private:
  Queues queues_ = openQueues();
  desktop::DirectPrinters directPrinters_{desktop::DirectPrinterFile::ofUser()};
  desktop::DirectSpooler directSpooler_{desktop::DirectPrinterFile::ofUser()};

 public:
  JoinedPrinters printers{*queues_.printers, directPrinters_};
  JoinedSpooler spooler{*queues_.spooler, directSpooler_};
};

/// The same machine with these printers.
inline Platform withPrinters(const Platform& machine, UserPrinters& user) {
  return {.messageBox = machine.messageBox,
          .windows = machine.windows,
          .folders = machine.folders,
          .clipboard = machine.clipboard,
          .dialogs = machine.dialogs,
          .shell = machine.shell,
          .files = machine.files,
          .clock = machine.clock,
          .names = machine.names,
          .userStore = machine.userStore,
          .spooler = user.spooler,
          .printers = user.printers,
          .printDevice = machine.printDevice};
}

}  // namespace paperway::command
