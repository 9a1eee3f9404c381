#include "apps/paperway/printer_choice.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <vector>

#include "apps/paperway/near_miss.h"

namespace paperway::command {
namespace {

std::string currentPrinter(Printers& printers) {
  const std::vector<PrinterInfo> all = printers.list();
  const bool chosen = std::any_of(all.begin(), all.end(),
                                  [](const PrinterInfo& printer) { return printer.isDefault; });
  const std::string current = printers.current();
  if (!chosen && all.size() > 1) {
    std::cerr << "No printer is the default one; this goes to \"" << current
              << "\", the first of them. --printer names another.\n";
  }
  return current;
}

std::vector<std::string> namesOf(Printers& printers) {
  std::vector<std::string> names;
  for (const PrinterInfo& printer : printers.list()) names.push_back(printer.DeviceName);
  return names;
}

}  // namespace

void requirePrinter(const std::string& name, Printers& printers) {
  const std::vector<std::string> names = namesOf(printers);
  if (std::find(names.begin(), names.end(), name) == names.end()) {
    throw std::runtime_error(noPrinter(name, printers));
  }
}

std::string printerFor(const std::string& named, Printers& printers) {
  if (named.empty()) return currentPrinter(printers);
  const std::vector<std::string> names = namesOf(printers);
  const bool known = std::find(names.begin(), names.end(), named) != names.end();
  if (!known && !nearMiss(named, names).empty()) {
    throw std::runtime_error(noPrinter(named, printers));
  }
  return named;
}

std::string noPrinter(const std::string& name, Printers& printers) {
  return "There is no printer \"" + name + "\"." + didYouMean(name, namesOf(printers));
}

}  // namespace paperway::command
