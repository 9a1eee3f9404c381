#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/print_device.h"
#include "platform/printers.h"
#include "platform/spooler.h"

namespace paperway::headless {

/// Printers by a list. The first is the default one.
class Printers : public paperway::Printers {
 public:
  std::vector<PrinterInfo> list() override { return infos; }
  std::string current() override;
  void setCurrent(const std::string& printer) override;
  std::optional<PageSettings> settings(const std::string& printer) override;
  void keep(const std::string& printer, const PageSettings& settings) override;
  std::string sendCommand(const std::string& printer, const std::filesystem::path& file) override;

  const PrinterInfo* find(const std::string& printer) const;

  std::vector<PrinterInfo> infos{{"Dot Matrix", "headless", true}, {"Laser", "headless", false}};
  std::string currentPrinter;
  std::map<std::string, PageSettings> kept{{"Laser", {}}};  // printers that keep settings
  std::vector<std::string> calls;                           // "keep Laser 2 9"
  std::optional<AutomationError> failure;                   // raised by keep()
};

/// Keeps the documents that it gets for the printers of a list.
class Spooler : public paperway::Spooler {
 public:
  struct Job {
    enum class State { open, ended, cancelled };

    std::string printer;
    std::string documentName;
    DocumentFormat format = DocumentFormat::raw;
    std::string bytes;
    State state = State::open;
  };

  explicit Spooler(const Printers& printers) : printers_(printers) {}

  std::unique_ptr<PrintJob> open(const std::string& printer) override;

  std::vector<std::shared_ptr<Job>> jobs;    // of started documents, newest last
  std::optional<std::uint64_t> breaksAfter;  // bytes that a job takes before the printer goes away
  bool answers = true;                       // false: no print service

 private:
  const Printers& printers_;
};

/// Keeps the pages drawn. Printers of the list that are raw refuse them.
class PrintDevice : public paperway::PrintDevice {
 public:
  struct Drawn {
    StyledDocument document;
    std::vector<PrintedPage> pages;
    bool ended = false;
  };

  explicit PrintDevice(const Printers& printers) : printers_(printers) {}

  std::unique_ptr<StyledJob> start(const StyledDocument& document) override;

  std::vector<std::shared_ptr<Drawn>> documents;  // newest last

 private:
  const Printers& printers_;
};

}  // namespace paperway::headless
