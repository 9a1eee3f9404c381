#include "apps/paperway/queues.h"
#include "backends/desktop/cups/cups_printers.h"
#include "backends/desktop/cups/cups_spooler.h"

namespace paperway::command {

Queues openQueues() {
  return {std::make_unique<desktop::CupsPrinters>(), std::make_unique<desktop::CupsSpooler>()};
}

}  // namespace paperway::command
