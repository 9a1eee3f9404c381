#pragma once

#include <memory>

#include "platform/printers.h"
#include "platform/spooler.h"

namespace paperway::command {

/// The machine's print service; one without any queue where the build knows none.
struct Queues {
  std::unique_ptr<Printers> printers;
  std::unique_ptr<Spooler> spooler;
};

Queues openQueues();

}  // namespace paperway::command
