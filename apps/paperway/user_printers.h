#pragma once

#include "apps/paperway/queues.h"
#include "backends/desktop/system/direct_printers.h"
#include "backends/desktop/system/direct_spooler.h"
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

}  // namespace paperway::command
