#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "apps/paperway/draw_paper.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/print_options.h"
#include "apps/paperway/printer_choice.h"
#include "apps/paperway/report_input.h"
#include "apps/paperway/user_printers.h"
#include "platform/input_file.h"
#include "printed/page_ranges.h"
#include "printing/drawn_report.h"
#include "printing/page_fit.h"
#include "printing/print_file.h"
#include "printing/printer_letters.h"
#include "session/run_state.h"
#include "session/settings_store.h"

namespace paperway::command {
namespace {

void readPages(PrintOptions& options) {
  if (options.pages.empty()) return;
  const auto chosen = PageRanges::read(options.pages);
  if (!chosen) throw CLI::ValidationError("--pages", "takes pages and ranges, such as 1,3,7-9,12-");
  options.chosen = *chosen;
}

void warn(const std::vector<std::string>& warnings) {
  if (!warnings.empty()) std::cerr << "warning: " << fitLine(warnings) << "\n";
}

ReportExtent extentOf(Storage& storage, const std::string& file, const PrintOptions& options) {
  ExtentScan scan({options.pitch == 12, options.pitch == 17}, Pen::Widths::printed, options.chosen);
  readBlocks(storage, file, "PrintFile", [&](std::string_view block) { scan.block(block); });
  return scan.end();
}

void printRaw(PrintOptions options) {
  Machine machine;
  StoppablePrinters user;
  const ReportInput input(options.file, machine.platform().folders);
  options.file = input.path();
  const Platform screenless = machine.platform();
  const Platform platform = screenless.with(user.spooler, user.printers, screenless.printDevice);
  const FileToPrint part(options, platform.storage, platform.folders);
  const std::string file = part.path();
  PrintFileArguments arguments = rawArguments(options, file, input.source());
  arguments.printerName = printerFor(options.printer, user.printers);
  if (std::filesystem::is_regular_file(file)) {
    warn(
        fitWarnings(extentOf(platform.storage, file, options),
                    rawRoom(user.printers.settings(arguments.printerName), arguments.paperHeight)));
  }
  PrintFile(arguments, platform, runState());
  const std::string plain = plainLetters(arguments.plain, arguments.codeTable);
  if (!plain.empty()) std::cerr << "warning: " << plain << "\n";
}

/// The printer's paper. A file takes the first that holds the report: the usual one, upright or
/// across, or wide fanfold.
PageSettings paperFor(const PrintOptions& options, const ReportExtent& report, Printers& printers) {
  const std::string printer = options.printer.empty() ? printers.current() : options.printer;
  const auto kept = printer.empty() ? std::nullopt : printers.settings(printer);
  PageSettings settings = kept.value_or(PageSettings{});
  if (options.pdf.empty()) return settings;
  const auto holds = [&](const PageSettings& paper) {
    return fitWarnings({.width = report.width, .lines = report.lines}, sheetRoom(paper)).empty();
  };
  constexpr std::int16_t kFanfold = 39;
  for (const PageSettings paper : {settings, {2, settings.PaperSize}, {1, kFanfold}}) {
    if (holds(paper)) return paper;
  }
  return settings;
}

void printStyled(PrintOptions options) {
  const std::unique_ptr<Desk> desk = Desk::open({.screenless = true});
  const Platform platform = desk->platform();
  if (!options.pdf.empty() && !options.printer.empty()) {
    requirePrinter(options.printer, platform.printers);  // whose paper the file takes
  }
  const ReportInput input(options.file, platform.folders);  // not before another program takes over
  options.file = input.path();
  if (options.pdf == "-") options.pdf = "/dev/stdout";
  const ReportDocument file = ReportDocument::read(platform.storage, options.file);
  const std::int64_t count = file.pages().PageCount();
  requirePages(options, count);
  const ReportViewSettings settings(platform.storage,
                                    settingsPath(platform.folders, RunContext()->ModGuidComp));
  const DrawnReport drawn{file, options.chosen.within(count), storedLook(settings.snapshot()),
                          options.copies};
  const ReportExtent report = drawn.extent();
  StyledDocument document{.name = documentNameOf(options.file),
                          .printer = options.printer,
                          .file = options.pdf,
                          .sources = {input.source()},
                          .settings = paperFor(options, report, platform.printers)};
  if (options.pdf.empty()) document.printer = printerFor(options.printer, platform.printers);
  warn(fitWarnings(report, sheetRoom(document.settings)));
  drawn.draw(document, platform.printDevice);
}

/// Raw, with what the printer is told; drawn; or into a file.
void addWays(CLI::App& print, PrintOptions& options) {
  CLI::Option* pitch =
      print.add_option("--pitch", options.pitch, "Characters to the inch: 10, 12 or 17")
          ->check(CLI::IsMember({10, 12, 17}))
          ->capture_default_str();
  CLI::Option* paper = print.add_option("--paper", options.paper, "Height of the paper")
                           ->type_name("INCHES")
                           ->check(CLI::Range(1, 22))
                           ->capture_default_str();
  CLI::Option* tear =
      print.add_option("--tear", options.tear, "Lines to feed back before, and on after, the job")
          ->type_name("IN,OUT")
          ->delimiter(',')
          ->expected(2)
          ->check(CLI::Range(0, 99));
  CLI::Option* styled = print.add_flag("--styled", options.styled,
                                       "Draw the pages, for printers that take more than raw text");
  CLI::Option* pdf =
      print.add_option("--pdf", options.pdf, "Draw the pages into a file; - is standard output")
          ->type_name("OUT.pdf");
  CLI::Option* picture = print
                             .add_option("--paper-picture", options.paperPicture,
                                         "Draw the paper as it will come out of the printer")
                             ->type_name("OUT.pdf|OUT.png");
  CLI::Option* fanfold =
      print.add_option("--fanfold", options.fanfold, "The sheets of that paper, in inches")
          ->type_name("HEIGHT|WIDTHxHEIGHT")
          ->default_str("the printer's, or as high as --paper")
          ->needs(picture);
  CLI::Option* pins = print.add_option("--pins", options.pins, "Of the printer's head: 9 or 24")
                          ->check(CLI::IsMember({9, 24}))
                          ->capture_default_str()
                          ->needs(picture);
  styled->excludes(pdf)->excludes(picture);
  pdf->excludes(picture);
  for (CLI::Option* raw : {pitch, paper, tear, fanfold, pins}) {
    styled->excludes(raw);
    pdf->excludes(raw);
  }
}

}  // namespace

void printPdf(const std::string& report, const std::string& pdf) {
  PrintOptions options;
  options.file = report;
  options.pdf = pdf;
  printStyled(std::move(options));
}

void addPrint(CLI::App& app) {
  CLI::App* print = app.add_subcommand("print", "Print a report file, or make a PDF of it");
  const auto options = std::make_shared<PrintOptions>();
  print->add_option("FILE", options->file, "Report file, or any text file; - is standard input")
      ->required();
  print->add_option("--printer", options->printer, "A printer of \"paperway printers\"")
      ->type_name("PRINTER")
      ->default_str("the default printer");
  print->add_option("--pages", options->pages, "These pages alone")->type_name("1,3,7-9,12-");
  print->add_option("--copies", options->copies, "How often")
      ->type_name("N")
      ->check(CLI::Range(0, 255))
      ->capture_default_str();
  addWays(*print, *options);
  print->footer(
      "Examples:\n"
      "  paperway print ledger.txt --printer Matrix --pitch 17 --paper 12 --tear 3,5\n"
      "  paperway print ledger.txt --pages 1,3,7-9 --copies 2\n"
      "  paperway print ledger.txt --styled --printer Laser\n"
      "  paperway print ledger.txt --pages 1 --pdf first.pdf\n"
      "  paperway print ledger.txt --pitch 17 --paper 12 --paper-picture paper.pdf --fanfold 11");
  print->callback([options] {
    readPages(*options);
    if (options->pdf == "-" && isatty(STDOUT_FILENO) != 0) {
      throw CLI::ValidationError("--pdf", "a PDF is nothing for a terminal to show");
    }
    const bool drawn = options->styled || !options->pdf.empty();
    if (!options->paperPicture.empty()) requirePaperPicture(*options);
    forFile("print", options->file, [&] {
      if (!options->paperPicture.empty()) return drawPaper(*options);
      drawn ? printStyled(*options) : printRaw(*options);
    });
  });
}

}  // namespace paperway::command
