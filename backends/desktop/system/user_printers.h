#pragma once

#include <csignal>

#include "backends/desktop/system/direct_printers.h"
#include "backends/desktop/system/direct_spooler.h"
#include "backends/desktop/system/joined_printers.h"

namespace paperway::desktop {

/// The queues of a print service, which outlive the object, and the direct printers of the user.
class UserPrinters {
 public:
  /// A wait for a direct printer ends when `stop` is set.
  UserPrinters(paperway::Printers& queues, paperway::Spooler& queueSpooler,
               DirectPrinters::Unreadable unreadable = DirectPrinters::Unreadable::empty,
               const volatile std::sig_atomic_t* stop = nullptr)
      : direct_(DirectPrinterFile::ofUser(), unreadable),
        directSpooler_(DirectPrinterFile::ofUser(), Patience(DirectSpooler::kTimeout, stop)),
        printers(queues, direct_),
        spooler(queueSpooler, directSpooler_) {}

 private:
  DirectPrinters direct_;
  DirectSpooler directSpooler_;

 public:
  JoinedPrinters printers;
  JoinedSpooler spooler;
};

}  // namespace paperway::desktop
