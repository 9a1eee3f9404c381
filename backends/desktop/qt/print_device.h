#pragma once

#include <memory>

#include "paperway/platform/print_device.h"
#include "paperway/platform/spooler.h"
#include "paperway/platform/storage.h"

namespace paperway::qt {

/// Draws pages as PDF, with text that can be searched, into a file or into the spooler. Needs a
/// QGuiApplication. Pages leave as they are drawn; a document without any is not sent.
class PrintDevice : public paperway::PrintDevice {
 public:
  PrintDevice(Storage& storage, Spooler& spooler) : storage_(storage), spooler_(spooler) {}

  std::unique_ptr<StyledJob> start(const StyledDocument& document) override;
  std::unique_ptr<SheetJob> startSheets(const SheetDocument& document) override;

 private:
  Storage& storage_;
  Spooler& spooler_;
};

}  // namespace paperway::qt
