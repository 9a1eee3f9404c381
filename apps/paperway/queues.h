#pragma once

#include <csignal>
#include <memory>

#include "paperway/platform/printers.h"
#include "paperway/platform/spooler.h"

namespace paperway::command {

/// The machine's print service; one without any queue where the build knows none.
struct Queues {
  std::unique_ptr<Printers> printers;
  std::unique_ptr<Spooler> spooler;
};

/// A wait for the service ends when `stop` is set.
Queues openQueues(const volatile std::sig_atomic_t* stop);

}  // namespace paperway::command
