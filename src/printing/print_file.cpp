#include "printing/print_file.h"

#include <algorithm>
#include <filesystem>

#include "facade/run_state.h"
#include "facade/settings_store.h"
#include "platform/message_box.h"
#include "platform/printers.h"
#include "platform/spooler.h"
#include "printing/print_stream.h"
#include "util/automation_error.h"

namespace paperway {
namespace {

void tell(MessageBox& messageBox, const std::string& text) {
  messageBox.show(text, "Printer Error Information", MessageBox::Buttons::ok,
                  MessageBox::Icon::information);
}

void takeStoredTearLines(PrintFileArguments& arguments, Folders& folders) {
  const ReportViewSettings settings(settingsPath(folders, runState().ModGuidComp));
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

std::uint64_t wholePages(const PrintFileArguments& arguments, std::uint64_t bytes) {
  std::uint64_t pages = 0;
  writePrintStream(arguments.fileName, streamSettings(arguments), [&](std::string_view piece) {
    const auto end =
        piece.begin() + static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(bytes, piece.size()));
    pages += static_cast<std::uint64_t>(std::count(piece.begin(), end, kFormFeed));
    bytes -= static_cast<std::uint64_t>(end - piece.begin());
  });
  return pages;
}

std::string howFarItCame(const PrintFileArguments& arguments, const SpoolError& error) {
  if (error.accepted() == 0) return error.description();
  return std::string(error.description()) + " It has " +
         std::to_string(wholePages(arguments, error.accepted())) + " whole pages.";
}

}  // namespace

std::string documentNameOf(std::string fileName) {
  std::replace(fileName.begin(), fileName.end(), '/', '\\');
  return fileName.substr(fileName.rfind('\\') + 1);
}

bool PrintFile(PrintFileArguments& arguments, const Platform& platform) {
  if (arguments.tear == 1) takeStoredTearLines(arguments, platform.folders);
  runState().ModDosFont = DOSEFONTcHR{};
  if (!exists(arguments.fileName)) {
    tell(platform.messageBox, "File " + arguments.fileName + " does not exists");
    return false;
  }
  if (arguments.printerName.empty()) arguments.printerName = platform.printers.current();
  try {
    const auto job = platform.spooler.open(arguments.printerName);
    if (!job) {
      tell(platform.messageBox,
           "The Printer Name (" + arguments.printerName + ") wasn't recognized.");
      return false;
    }
    job->start(documentNameOf(arguments.fileName), DocumentFormat::raw);
    writePrintStream(arguments.fileName, streamSettings(arguments),
                     [&](std::string_view piece) { job->write(piece); });
    job->end();
    return true;
  } catch (const SpoolError& error) {
    tell(platform.messageBox, howFarItCame(arguments, error));
  } catch (const AutomationError& error) {
    tell(platform.messageBox, error.description());
  }
  return false;
}

}  // namespace paperway
