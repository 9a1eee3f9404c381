#include "apps/paperway/queues.h"
#include "backends/desktop/cups/cups_printers.h"
#include "backends/desktop/cups/cups_spooler.h"

namespace paperway::command {

Queues openQueues(const volatile std::sig_atomic_t* stop) {
  using desktop::kPrintQueryTimeout;
  using desktop::kPrintServiceTimeout;
  return {std::make_unique<desktop::CupsPrinters>(Patience(kPrintQueryTimeout, stop)),
          std::make_unique<desktop::CupsSpooler>(Patience(kPrintServiceTimeout, stop))};
}

}  // namespace paperway::command
