#pragma once

#include "apps/paperway/queues.h"
#include "backends/desktop/system/user_printers.h"

namespace paperway::command {

/// The queues of the machine and the direct printers of the user.
class UserPrinters {
 private:
  Queues queues_ = openQueues();
  desktop::UserPrinters user_{*queues_.printers, *queues_.spooler};

 public:
  Printers& printers = user_.printers;
  Spooler& spooler = user_.spooler;
};

}  // namespace paperway::command
