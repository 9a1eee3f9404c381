#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "backends/desktop/cups/connection.h"
#include "paperway/platform/spooler.h"

namespace paperway::desktop {

/// Hands documents to the queues of CUPS. A job is done when its queue has taken it; what the
/// printer then makes of it is the queue's to tell. A job that fails, or is cancelled, is cancelled
/// at the queue. A raw queue refuses a PDF document, which its printer would print as text.
class CupsSpooler : public paperway::Spooler {
 public:
  explicit CupsSpooler(const Patience& patience = kPrintServiceTimeout) : patience_(patience) {}

  std::unique_ptr<PrintJob> open(const std::string& printer) override;

 private:
  const Patience patience_;
};

}  // namespace paperway::desktop
