#pragma once

#include <memory>
#include <string>

#include "backends/desktop/system/direct_printers.h"
#include "paperway/platform/spooler.h"
#include "platform/patience.h"

namespace paperway::desktop {

/// Writes raw documents to the user's direct printers. A printer that makes no progress for
/// longer than `patience`, or the time of its own, fails the job: while it is called, while it
/// takes bytes, and when it should have taken the last of them. A cancelled job drops what the
/// printer has not taken; a file that is the target of a printer is replaced by a whole document
/// only.
class DirectSpooler : public paperway::Spooler {
 public:
  static constexpr std::chrono::milliseconds kTimeout{30'000};

  explicit DirectSpooler(DirectPrinterFile file, const Patience& patience = kTimeout)
      : file_(std::move(file)), patience_(patience) {}

  std::unique_ptr<PrintJob> open(const std::string& printer) override;

 private:
  DirectPrinterFile file_;
  Patience patience_;
};

}  // namespace paperway::desktop
