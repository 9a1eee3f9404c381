#pragma once

#include "paperway/platform/printers.h"
#include "paperway/platform/spooler.h"

namespace paperway::desktop {

/// The queues of a print service and the printers that are written to directly, as one list. A
/// direct printer hides a queue of its name. Both parts outlive the whole.
class JoinedPrinters : public paperway::Printers {
 public:
  JoinedPrinters(Printers& queues, Printers& direct) : queues_(queues), direct_(direct) {}

  std::vector<PrinterInfo> list() override;
  std::string current() override;
  void setCurrent(const std::string& printer) override { current_ = printer; }
  std::optional<PageSettings> settings(const std::string& printer) override;
  void keep(const std::string& printer, const PageSettings& settings) override;
  std::string sendCommand(const std::string& printer, const std::filesystem::path& file) override;

 private:
  Printers& keeperOf(const std::string& printer);

  Printers& queues_;
  Printers& direct_;
  std::string current_;
};

class JoinedSpooler : public paperway::Spooler {
 public:
  JoinedSpooler(Spooler& queues, Spooler& direct) : queues_(queues), direct_(direct) {}

  std::unique_ptr<PrintJob> open(const std::string& printer) override;

 private:
  Spooler& queues_;
  Spooler& direct_;
};

}  // namespace paperway::desktop
