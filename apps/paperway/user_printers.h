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
  return machine.with(user.spooler, user.printers, machine.printDevice);
}

}  // namespace paperway::command
