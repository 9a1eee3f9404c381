#pragma once

#include <memory>

#include "paperway/platform/printers.h"
#include "paperway/platform/spooler.h"

namespace paperway::command {

/// The machine's print service; one without any queue where the build knows none.
struct Queues {
  std::unique_ptr<Printers> printers;
  std::unique_ptr<Spooler> spooler;
};

Queues openQueues();

}  // namespace paperway::command
