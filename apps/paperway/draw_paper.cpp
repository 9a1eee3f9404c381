#include "apps/paperway/draw_paper.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <optional>

#include "apps/paperway/desk.h"
#include "apps/paperway/printer_choice.h"
#include "apps/paperway/report_input.h"
#include "paperway/platform/print_device.h"
#include "printing/paper_picture.h"
#include "printing/printer_letters.h"

namespace paperway::command {
namespace {

constexpr std::int64_t kSheetsOfAPicture = 10;  // a PNG has them below one another

std::optional<SheetDocument::Format> formatOf(const std::filesystem::path& file) {
  if (file.extension() == ".pdf") return SheetDocument::Format::pdf;
  if (file.extension() == ".png") return SheetDocument::Format::png;
  return {};
}

/// "11" or "14.875x11".
std::optional<PaperShape> fanfoldOf(const std::string& text, PaperShape shape) {
  constexpr double kSmallestPaper = 1;
  constexpr double kLargestPaper = 24;
  double width = shape.width;
  double height = 0;
  const std::size_t cross = text.find('x');
  if (!CLI::detail::lexical_cast(cross == text.npos ? text : text.substr(cross + 1), height)) {
    return {};
  }
  if (cross != text.npos && !CLI::detail::lexical_cast(text.substr(0, cross), width)) return {};
  const auto isPaper = [](double inches) {
    return inches >= kSmallestPaper && inches <= kLargestPaper;
  };
  if (!isPaper(width) || !isPaper(height)) return {};
  return fanfold(width, height);
}

PaperShape shapeOf(const PrintOptions& options, const std::optional<PageSettings>& settings) {
  const PaperShape usual = paperShape(settings, options.paper);
  return options.fanfold.empty() ? usual : *fanfoldOf(options.fanfold, usual);
}

}  // namespace

void requirePaperPicture(const PrintOptions& options) {
  if (!formatOf(options.paperPicture)) {
    throw CLI::ValidationError("--paper-picture", "takes a file that ends in .pdf or .png");
  }
  if (!options.fanfold.empty() && !fanfoldOf(options.fanfold, {})) {
    throw CLI::ValidationError(
        "--fanfold", "takes a height, or a width and a height, of 1 to 24 inches: 11, 14.875x11");
  }
}

void drawPaper(PrintOptions options) {
  const std::unique_ptr<Desk> desk = Desk::open({.screenless = true});
  const Platform platform = desk->platform();
  const ReportInput input(options.file, platform.folders);
  options.file = input.path();
  const FileToPrint part(options, platform.storage, platform.folders);
  if (!options.printer.empty()) requirePrinter(options.printer, platform.printers);
  const std::string printer =
      options.printer.empty() ? platform.printers.current() : options.printer;
  PrintFileArguments arguments = rawArguments(options, part.path(), input.source());
  arguments.codeTable = keptCodeTable(platform.userStore, printer);
  InputFile file(platform.storage, part.path(), "PaperPicture");
  const PaperJob job{
      .text = textOf(file),
      .stream = streamSettings(arguments),
      .printer = {.pins = options.pins == 9 ? PaperFeed::Pins::nine : PaperFeed::Pins::twentyFour,
                  .codeTable = firstCodeTable(arguments.codeTable)},
      .shape = shapeOf(options, platform.printers.settings(printer))};
  const SheetDocument document{.name = documentNameOf(options.file),
                               .file = options.paperPicture,
                               .format = *formatOf(options.paperPicture),
                               .sources = {input.source(), part.path()}};
  const auto pictures = platform.printDevice.startSheets(document);
  const bool isLimited = document.format == SheetDocument::Format::png;
  const auto findings = layOutPaper(job, [&](const Sheet& sheet) {
    if (!isLimited || sheet.number <= kSheetsOfAPicture) pictures->sheet(sheet);
    return true;
  });
  pictures->end();
  for (const std::string& finding : findings->told()) std::cerr << "warning: " << finding << "\n";
  if (isLimited && findings->sheets > kSheetsOfAPicture) {
    std::cerr << "warning: " << options.paperPicture << " shows " << kSheetsOfAPicture << " of "
              << findings->sheets << " sheets; --pages chooses others, and a PDF shows all.\n";
  }
}

}  // namespace paperway::command
