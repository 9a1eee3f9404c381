#include <algorithm>

#include "paperway/headless.h"

namespace paperway::headless {
namespace {

constexpr const char* kRawAlone = "It takes raw text alone";

class RecordedJob : public PrintJob {
 public:
  RecordedJob(Spooler& spooler, const PrinterInfo& printer) : spooler_(spooler), raw_(printer.raw) {
    job_->printer = printer.DeviceName;
  }

  ~RecordedJob() override {
    if (job_->state == Spooler::Job::State::open) job_->state = Spooler::Job::State::cancelled;
  }

  void start(const std::string& documentName, DocumentFormat format) override {
    if (raw_ && format != DocumentFormat::raw) throw SpoolError(job_->printer, kRawAlone);
    job_->documentName = documentName;
    job_->format = format;
    spooler_.jobs.push_back(job_);
  }

  void write(std::string_view bytes) override {
    const std::uint64_t room =
        spooler_.breaksAfter.value_or(UINT64_MAX) - std::uint64_t{job_->bytes.size()};
    job_->bytes += bytes.substr(0, std::min<std::uint64_t>(room, bytes.size()));
    if (bytes.size() > room) fail();
  }

  void end() override {
    if (spooler_.breaksAfter == job_->bytes.size()) fail();
    job_->state = Spooler::Job::State::ended;
  }

 private:
  [[noreturn]] void fail() const {
    throw SpoolError(job_->printer, "The printer went away", job_->bytes.size());
  }

  Spooler& spooler_;
  const bool raw_;
  std::shared_ptr<Spooler::Job> job_ = std::make_shared<Spooler::Job>();
};

class RecordedPages : public StyledJob {
 public:
  explicit RecordedPages(std::shared_ptr<PrintDevice::Drawn> drawn) : drawn_(std::move(drawn)) {}

  void page(const PrintedPage& lines) override { drawn_->pages.push_back(lines); }
  void end() override { drawn_->ended = true; }

 private:
  std::shared_ptr<PrintDevice::Drawn> drawn_;
};

class RecordedSheets : public SheetJob {
 public:
  explicit RecordedSheets(std::shared_ptr<PrintDevice::Pictured> pictured)
      : pictured_(std::move(pictured)) {}

  void sheet(const Sheet& sheet) override { pictured_->sheets.push_back(sheet); }
  void end() override { pictured_->ended = true; }

 private:
  std::shared_ptr<PrintDevice::Pictured> pictured_;
};

}  // namespace

const PrinterInfo* Printers::find(const std::string& printer) const {
  const auto found = std::find_if(infos.begin(), infos.end(), [&](const PrinterInfo& info) {
    return info.DeviceName == printer;
  });
  return found == infos.end() ? nullptr : &*found;
}

std::string Printers::current() {
  if (!currentPrinter.empty() || infos.empty()) return currentPrinter;
  return infos.front().DeviceName;
}

void Printers::setCurrent(const std::string& printer) {
  calls.push_back("setCurrent " + printer);
  currentPrinter = printer;
}

std::optional<PageSettings> Printers::settings(const std::string& printer) {
  const auto found = kept.find(printer);
  return found == kept.end() ? std::nullopt : std::optional(found->second);
}

void Printers::keep(const std::string& printer, const PageSettings& settings) {
  calls.push_back("keep " + printer + " " + std::to_string(settings.Orientation) + " " +
                  std::to_string(settings.PaperSize));
  if (failure) throw AutomationError(*failure);
  kept[printer] = settings;
}

std::string Printers::sendCommand(const std::string& printer, const std::filesystem::path& file) {
  return find(printer) == nullptr ? "" : "send \"" + printer + "\" \"" + file.string() + "\"";
}

std::unique_ptr<PrintJob> Spooler::open(const std::string& printer) {
  if (!answers) throw SpoolError(printer, "No print service answers");
  const PrinterInfo* const found = printers_.find(printer);
  return found == nullptr ? nullptr : std::make_unique<RecordedJob>(*this, *found);
}

std::unique_ptr<StyledJob> PrintDevice::start(const StyledDocument& document) {
  if (document.file.empty()) {
    const PrinterInfo* const printer = printers_.find(document.printer);
    if (printer == nullptr) throw SpoolError(document.printer, "There is no such printer");
    if (printer->raw) throw SpoolError(document.printer, kRawAlone);
  }
  documents.push_back(std::make_shared<Drawn>());
  documents.back()->document = document;
  return std::make_unique<RecordedPages>(documents.back());
}

std::unique_ptr<SheetJob> PrintDevice::startSheets(const SheetDocument& document) {
  pictures.push_back(std::make_shared<Pictured>());
  pictures.back()->document = document;
  return std::make_unique<RecordedSheets>(pictures.back());
}

}  // namespace paperway::headless
