#include "printing/print_file.h"

#include <algorithm>

#include "paperway/automation_error.h"
#include "paperway/platform/message_boxes.h"
#include "paperway/platform/printers.h"
#include "paperway/platform/spooler.h"
#include "platform/input_file.h"
#include "printed/printed_reader.h"
#include "printing/print_stream.h"
#include "printing/printer_letters.h"
#include "session/run_state.h"
#include "session/settings_store.h"
#include "util/path_text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "PrintFile";

/// Pages that end among the first bytes of a job.
class EndedPages : public NoEvents {
 public:
  explicit EndedPages(std::uint64_t bytes) : left_(bytes), reader_(*this) {}
  EndedPages(const EndedPages&) = delete;
  EndedPages& operator=(const EndedPages&) = delete;

  void add(std::string_view piece) {
    const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(left_, piece.size()));
    reader_.block(piece.substr(0, size));
    left_ -= size;
  }
  bool isComplete() const { return left_ == 0; }
  std::uint64_t count() const { return count_; }

  void pageEnd(const Pen&) { ++count_; }

 private:
  std::uint64_t left_;
  std::uint64_t count_ = 0;
  PrintedReader<EndedPages> reader_;
};

std::uint64_t wholePages(InputFile& file, const PrintStreamSettings& settings,
                         std::uint64_t bytes) {
  struct Enough {};
  EndedPages pages(bytes);
  try {
    writePrintStream(textOf(file), settings, [&](std::string_view piece) {
      pages.add(piece);
      if (pages.isComplete()) throw Enough();
    });
  } catch (const Enough&) {
  }
  return pages.count();
}

std::string howFarItCame(InputFile& file, const PrintStreamSettings& settings,
                         const SpoolError& error) {
  std::string told = error.description();
  if (error.accepted() == 0) return told;
  try {
    const std::uint64_t pages = wholePages(file, settings, error.accepted());
    told += " It has " + std::to_string(pages) + " whole pages.";
  } catch (const AutomationError&) {
    // A pipe cannot be read twice; the printer's failure is what counts.
  }
  return told;
}

/// Gives the bytes of the file to the printer. False when there is no such printer.
bool print(InputFile& file, PrintFileArguments& arguments, Spooler& spooler) {
  const PrintStreamSettings settings = streamSettings(arguments);
  try {
    const auto job = spooler.open(arguments.printerName);
    if (!job) return false;
    std::vector<std::filesystem::path> sources = arguments.sources;
    sources.emplace_back(arguments.fileName);
    job->setSources(std::move(sources));
    job->start(documentNameOf(arguments.fileName), DocumentFormat::raw);
    arguments.plain = writePrintStream(textOf(file), settings,
                                       [&](std::string_view piece) { job->write(piece); });
    job->end();
    return true;
  } catch (const SpoolError& error) {
    throw AutomationError(error.number(), error.source(), howFarItCame(file, settings, error));
  }
}

}  // namespace

void takeKeptSettings(PrintFileArguments& arguments, const Platform& platform,
                      const std::string& company) {
  if (arguments.printerName.empty()) arguments.printerName = platform.printers.current();
  arguments.codeTable = keptCodeTable(platform.userStore, arguments.printerName);
  if (arguments.tear != 1) return;
  const ReportViewSettings settings(platform.storage, settingsPath(platform.folders, company));
  const TearLines lines = settings.tearLines();
  arguments.linesIn = static_cast<std::uint8_t>(std::max(lines.in, 0));
  arguments.linesOut = static_cast<std::uint8_t>(std::max(lines.out, 0));
}

PrintStreamSettings streamSettings(const PrintFileArguments& arguments) {
  return {.paperHeight = arguments.paperHeight,
          .draft = arguments.draft,
          .condensed = arguments.cond == 1,
          .semiCondensed = arguments.semiCond == 1,
          .copies = arguments.copies,
          .linesIn = arguments.linesIn,
          .linesOut = arguments.linesOut,
          .codeTable = arguments.codeTable};
}

std::string documentNameOf(const std::filesystem::path& file) {
  const std::string name = textOf(file);
  return name.substr(name.find_last_of("/\\") + 1);
}

void PrintFile(PrintFileArguments& arguments, const Platform& platform, RunState& run) {
  takeKeptSettings(arguments, platform, run.ModGuidComp);
  run.ModDosFont = DOSEFONTcHR{};
  if (!fileExists(platform.storage, arguments.fileName, kSource)) {
    throw AutomationError(AutomationError::kFileNotFound, kSource,
                          "File " + textOf(arguments.fileName) + " does not exists");
  }
  // Opened before the printer, which is not to move its paper for a report that cannot be read.
  InputFile file(platform.storage, arguments.fileName, kSource);
  if (print(file, arguments, platform.spooler)) return;
  throw AutomationError(AutomationError::kInvalidCall, kSource,
                        "The Printer Name (" + arguments.printerName + ") wasn't recognized.");
}

void showPrintFailure(MessageBoxes& messageBox, const AutomationError& error) {
  messageBox.show(error.description(), "Printer Error Information", MessageBoxes::Buttons::ok,
                  MessageBoxes::Icon::information);
}

}  // namespace paperway
