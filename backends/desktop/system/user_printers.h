#pragma once

#include "backends/desktop/system/direct_printers.h"
#include "backends/desktop/system/direct_spooler.h"
#include "backends/desktop/system/joined_printers.h"

namespace paperway::desktop {

/// The queues of a print service, which outlive the object, and the direct printers of the user.
class UserPrinters {
 public:
  UserPrinters(paperway::Printers& queues, paperway::Spooler& queueSpooler)
      : printers(queues, direct_), spooler(queueSpooler, directSpooler_) {}

 private:
  DirectPrinters direct_{DirectPrinterFile::ofUser()};
  DirectSpooler directSpooler_{DirectPrinterFile::ofUser()};

 public:
  JoinedPrinters printers;
  JoinedSpooler spooler;
};

}  // namespace paperway::desktop
