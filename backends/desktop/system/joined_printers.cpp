#include "backends/desktop/system/joined_printers.h"

#include <algorithm>

namespace paperway::desktop {
namespace {

bool holds(const std::vector<PrinterInfo>& printers, const std::string& name) {
  return std::any_of(printers.begin(), printers.end(),
                     [&](const PrinterInfo& printer) { return printer.DeviceName == name; });
}

}  // namespace

std::vector<PrinterInfo> JoinedPrinters::list() {
  const std::vector<PrinterInfo> direct = direct_.list();
  std::vector<PrinterInfo> all = queues_.list();
  std::erase_if(all, [&](const PrinterInfo& queue) { return holds(direct, queue.DeviceName); });
  all.insert(all.end(), direct.begin(), direct.end());
  return all;
}

std::string JoinedPrinters::current() {
  if (!current_.empty()) return current_;
  const std::string queue = queues_.current();
  return queue.empty() ? direct_.current() : queue;
}

Printers& JoinedPrinters::keeperOf(const std::string& printer) {
  return holds(direct_.list(), printer) ? direct_ : queues_;
}

std::optional<PageSettings> JoinedPrinters::settings(const std::string& printer) {
  return keeperOf(printer).settings(printer);
}

void JoinedPrinters::keep(const std::string& printer, const PageSettings& settings) {
  keeperOf(printer).keep(printer, settings);
}

std::string JoinedPrinters::sendCommand(const std::string& printer,
                                        const std::filesystem::path& file) {
  return keeperOf(printer).sendCommand(printer, file);
}

std::unique_ptr<PrintJob> JoinedSpooler::open(const std::string& printer) {
  auto job = direct_.open(printer);
  return job ? std::move(job) : queues_.open(printer);
}

}  // namespace paperway::desktop
