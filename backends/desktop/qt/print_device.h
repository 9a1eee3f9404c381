#pragma once

#include <memory>

#include "paperway/platform/print_device.h"
#include "paperway/platform/spooler.h"

namespace paperway::qt {

/// Draws pages as PDF, with text that can be searched, into a file or into the spooler. Needs a
/// QGuiApplication. Pages leave as they are drawn; a document without any is not sent.
class PrintDevice : public paperway::PrintDevice {
 public:
  explicit PrintDevice(Spooler& spooler) : spooler_(spooler) {}

  std::unique_ptr<StyledJob> start(const StyledDocument& document) override;

 private:
  Spooler& spooler_;
};

}  // namespace paperway::qt
