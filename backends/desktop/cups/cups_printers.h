#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "backends/desktop/cups/connection.h"
#include "paperway/platform/printers.h"

namespace paperway::desktop {

/// The queues of CUPS. Settings are kept among the user's own options ("lpoptions"), where other
/// programs of the user find them too.
class CupsPrinters : public paperway::Printers {
 public:
  explicit CupsPrinters(const Patience& patience = kPrintQueryTimeout) : patience_(patience) {}

  std::vector<PrinterInfo> list() override;
  std::string current() override;
  void setCurrent(const std::string& printer) override { current_ = printer; }
  std::optional<PageSettings> settings(const std::string& printer) override;
  void keep(const std::string& printer, const PageSettings& settings) override;
  std::string sendCommand(const std::string& printer, const std::filesystem::path& file) override;

 private:
  const Patience patience_;
  std::string current_;
};

}  // namespace paperway::desktop
