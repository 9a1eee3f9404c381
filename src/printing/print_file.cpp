#include "printing/print_file.h"

#include <algorithm>
#include <filesystem>

#include "paperway/automation_error.h"
#include "paperway/platform/message_box.h"
#include "paperway/platform/printers.h"
#include "paperway/platform/spooler.h"
#include "printing/print_stream.h"
#include "session/run_state.h"
#include "session/settings_store.h"

namespace paperway {
namespace {

void tell(MessageBox& messageBox, const std::string& text) {
  messageBox.show(text, "Printer Error Information", MessageBox::Buttons::ok,
                  MessageBox::Icon::information);
}

void takeStoredTearLines(PrintFileArguments& arguments, Folders& folders,
                         const std::string& company) {
  const ReportViewSettings settings(settingsPath(folders, company));
  const TearLines lines = settings.tearLines();
  arguments.linesIn = static_cast<std::uint8_t>(std::max(lines.in, 0));
  arguments.linesOut = static_cast<std::uint8_t>(std::max(lines.out, 0));
}

bool exists(const std::string& fileName) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::status(fileName, ignored));
}

PrintStreamSettings streamSettings(const PrintFileArguments& arguments) {
  return {.paperHeight = arguments.paperHeight,
          .draft = arguments.draft,
          .condensed = arguments.cond == 1,
          .semiCondensed = arguments.semiCond == 1,
          .copies = arguments.copies,
          .linesIn = arguments.linesIn,
          .linesOut = arguments.linesOut};
}

/// Form feeds among the first bytes of the job, but for the numbers of the set-up.
std::uint64_t wholePages(InputFile& file, const PrintStreamSettings& settings,
                         std::uint64_t bytes) {
  struct Enough {};
  const std::uint64_t setup = printerSetup(settings).size();
  std::uint64_t at = 0;
  std::uint64_t pages = 0;
  try {
    writePrintStream(file, settings, [&](std::string_view piece) {
      const std::uint64_t left = bytes - std::min(at, bytes);
      const auto end =
          piece.begin() + static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(left, piece.size()));
      if (at >= setup) {
        pages += static_cast<std::uint64_t>(std::count(piece.begin(), end, kFormFeed));
      }
      at += piece.size();
      if (at >= bytes) throw Enough();
    });
  } catch (const Enough&) {
  }
  return pages;
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
bool print(InputFile& file, const PrintFileArguments& arguments, Spooler& spooler) {
  const PrintStreamSettings settings = streamSettings(arguments);
  try {
    const auto job = spooler.open(arguments.printerName);
    if (!job) return false;
    job->start(documentNameOf(arguments.fileName), DocumentFormat::raw);
    writePrintStream(file, settings, [&](std::string_view piece) { job->write(piece); });
    job->end();
    return true;
  } catch (const SpoolError& error) {
    throw AutomationError(error.number(), error.source(), howFarItCame(file, settings, error));
  }
}

}  // namespace

std::string documentNameOf(std::string fileName) {
  std::replace(fileName.begin(), fileName.end(), '/', '\\');
  return fileName.substr(fileName.rfind('\\') + 1);
}

bool PrintFile(PrintFileArguments& arguments, const Platform& platform, RunState& run) {
  try {
    if (arguments.tear == 1) {
      takeStoredTearLines(arguments, platform.folders, run.ModGuidComp);
    }
    run.ModDosFont = DOSEFONTcHR{};
    if (!exists(arguments.fileName)) {
      tell(platform.messageBox, "File " + arguments.fileName + " does not exists");
      return false;
    }
    // Opened before the printer, which is not to move its paper for a report that cannot be read.
    InputFile file(arguments.fileName, "PrintFile");
    if (arguments.printerName.empty()) arguments.printerName = platform.printers.current();
    if (print(file, arguments, platform.spooler)) return true;
    tell(platform.messageBox,
         "The Printer Name (" + arguments.printerName + ") wasn't recognized.");
  } catch (const AutomationError& error) {
    tell(platform.messageBox, error.description());
  }
  return false;
}

}  // namespace paperway
