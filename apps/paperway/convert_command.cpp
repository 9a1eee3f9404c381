#include <array>
#include <functional>
#include <iostream>
#include <limits>
#include <memory>

#include "apps/paperway/commands.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/progress.h"
#include "apps/paperway/report_input.h"
#include "excel/report_table.h"
#include "html/report_html.h"
#include "platform/copy_file.h"
#include "preview/frm_report.h"
#include "session/run_state.h"
#include "session/settings_store.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway::command {
namespace {

constexpr const char* kCaller = "convert";

struct ConvertOptions {
  std::string report;
  std::string out;
  std::vector<int> marks;
  bool totals = false;
  bool show = false;
  std::string saveMap;
  std::string map;

  /// What tables alone have use for.
  bool asksForColumns() const {
    return !marks.empty() || totals || show || !saveMap.empty() || !map.empty();
  }
};

/// A conversion under way.
struct Conversion {
  const ConvertOptions& options;
  const Platform& platform;
  const ReportInput& input;
};

void throwIfStopped() {
  if (StopSignals::raised() != 0) throw Interrupted();
}

/// In the colours of the report window.
ReportHtmlColors colorsOf(const ReportViewSettings& settings) {
  const auto color = [&](ReportViewKey key) {
    return static_cast<std::int32_t>(settings.color(key));
  };
  return {.page = color(ReportViewKey::RepotBackColor),
          .wide = color(ReportViewKey::BBold),
          .bold = color(ReportViewKey::Bold),
          .condensed = color(ReportViewKey::Cond)};
}

void writeHtml(const Conversion& conversion) {
  const Platform& platform = conversion.platform;
  const ReportViewSettings settings(platform.storage, settingsPath(platform.folders, ""));
  convertReport({.report = pathOf(conversion.input.path()),
                 .html = pathOf(conversion.options.out),
                 .colors = colorsOf(settings),
                 .breaksPages = true,
                 .caller = kCaller,
                 .onProgress = [](std::int64_t) { throwIfStopped(); }},
                DOSEFONTcHR(), platform.storage);
}

/// All pages as the report window exports them.
void writeRichText(const Conversion& conversion) {
  RunContext run;
  run->ModPath1 = conversion.input.path();
  const auto form = std::make_shared<FrmReport>(conversion.platform, run);
  form->load();
  form->Op[0].Value = true;
  form->styleExportCopy();
  form->RT3.SaveFile(conversion.platform.storage, pathOf(conversion.options.out),
                     RichTextBox::rtfRTF, {pathOf(conversion.input.source())});
}

void copyText(const Conversion& conversion) {
  copyFile(conversion.platform.storage, pathOf(conversion.input.path()),
           pathOf(conversion.options.out), kCaller);
}

// --- tables

ReportTableArguments tableArguments(const Conversion& conversion, Progress& progress) {
  ReportTableArguments arguments{
      .report = pathOf(conversion.input.path()),
      .out = pathOf(conversion.options.out),
      .inputs = {pathOf(conversion.input.source())},
      .totals = conversion.options.totals,
      .caller = kCaller,
      .onProgress = [&progress](const ReportProgress& done) { progress.tell(done); }};
  for (const std::string& map : {conversion.options.map, conversion.options.saveMap}) {
    if (!map.empty()) arguments.inputs.push_back(pathOf(map));
  }
  return arguments;
}

FoundReport findReport(const Conversion& conversion) {
  Storage& storage = conversion.platform.storage;
  const ConvertOptions& options = conversion.options;
  FoundReport found =
      findColumns(storage, pathOf(conversion.input.path()), kCaller, throwIfStopped);
  if (!options.map.empty()) found.map = loadColumnMap(storage, pathOf(options.map), kCaller);
  if (!options.saveMap.empty()) {
    saveColumnMap(storage, pathOf(options.saveMap), found.map, kCaller,
                  {pathOf(conversion.input.source()), pathOf(options.out)});
  }
  if (options.show) std::cout << drawColumns(found, found.map);
  return found;
}

void warn(const ReportTableResult& result) {
  if (result.crossed > 0) {
    std::cerr << "warning: " << result.crossed
              << (result.crossed == 1 ? " row has a word" : " rows have words")
              << " across the edge of a column, the first is row " << result.firstCrossed
              << "; see --show\n";
  }
  if (result.otherHeads > 0) {
    std::cerr << "warning: another heading than the first page's stands on " << result.otherHeads
              << (result.otherHeads == 1 ? " page" : " pages")
              << "; the rows there are cut as those of the first page are\n";
  }
}

std::vector<std::int16_t> marksOf(const ConvertOptions& options) {
  std::vector<std::int16_t> marks{0};
  for (const int mark : options.marks) marks.push_back(static_cast<std::int16_t>(mark));
  return marks;
}

ReportTableResult writeTable(const Conversion& conversion, const ReportTableArguments& arguments,
                             bool csv) {
  Storage& storage = conversion.platform.storage;
  Workbooks& workbooks = *conversion.platform.workbooks;
  if (!conversion.options.marks.empty()) {
    const auto marks = marksOf(conversion.options);
    return csv ? writeCutCsv(arguments, marks, storage)
               : writeCutSheet(arguments, marks, workbooks, storage);
  }
  const FoundReport found = findReport(conversion);
  return csv ? writeReportCsv(arguments, found, storage)
             : writeReportSheet(arguments, found, workbooks, storage);
}

void writeTableOf(const Conversion& conversion, bool csv) {
  Progress progress;
  warn(writeTable(conversion, tableArguments(conversion, progress), csv));
  progress.finish(conversion.options.out);
}

void writeCsv(const Conversion& conversion) {
  writeTableOf(conversion, true);
}

void writeWorkbook(const Conversion& conversion) {
  writeTableOf(conversion, false);
}

void findOnly(const Conversion& conversion) {
  findReport(conversion);
}

// --- by the end of the name

struct Ending {
  std::string_view name;
  bool table = false;
  void (*write)(const Conversion& conversion) = nullptr;
};

constexpr std::array<Ending, 8> kEndings = {{{".html", false, writeHtml},
                                             {".htm", false, writeHtml},
                                             {".xlsx", true, writeWorkbook},
                                             {".xls", true, writeWorkbook},
                                             {".csv", true, writeCsv},
                                             {".rtf", false, writeRichText},
                                             {".txt", false, copyText},
                                             {".pdf", false, nullptr}}};

const Ending* endingOf(const std::string& name) {
  for (const Ending& ending : kEndings) {
    if (name.size() > ending.name.size() &&
        equalIgnoringCase(name.substr(name.size() - ending.name.size()), ending.name)) {
      return &ending;
    }
  }
  return nullptr;
}

void convert(const ConvertOptions& options) {
  const Ending* const ending = endingOf(options.out);
  if (ending != nullptr && ending->write == nullptr) return printPdf(options.report, options.out);
  Machine machine;
  const Platform platform = machine.platform();
  const StopSignals stopSignals;
  const ReportInput input(options.report, platform.folders);
  const Conversion conversion{options, platform, input};
  ending == nullptr ? findOnly(conversion) : ending->write(conversion);
}

void check(const ConvertOptions& options) {
  if (options.out.empty()) {
    if (options.marks.empty() && !options.totals && (options.show || !options.saveMap.empty()))
      return;
    throw CLI::ValidationError("OUT",
                               "is needed, unless --show or --save-map asks for columns alone");
  }
  const Ending* const ending = endingOf(options.out);
  if (ending == nullptr) {
    throw CLI::ValidationError("OUT", "\"" + options.out +
                                          "\" ends in none of .html, .htm, .xlsx, .xls, .csv, "
                                          ".rtf, .txt, .pdf");
  }
  if (options.asksForColumns() && !ending->table) {
    throw CLI::ValidationError("OUT", "columns are for .xlsx, .xls and .csv alone");
  }
}

void addColumnOptions(CLI::App& command, ConvertOptions& options) {
  CLI::Option* marks =
      command
          .add_option("--marks", options.marks,
                      "Cut each line behind these characters, whatever it is, and find nothing")
          ->type_name("N,N,...")
          ->delimiter(',')
          ->check(CLI::Range(0, int{std::numeric_limits<std::int16_t>::max()}));
  CLI::Option* totals = command.add_flag("--totals", options.totals,
                                         "Also the totals of groups, and the grand total, in bold");
  CLI::Option* show =
      command.add_flag("--show", options.show, "Show the columns that are found above the heading");
  CLI::Option* saveMap =
      command.add_option("--save-map", options.saveMap, "Keep the columns that are found")
          ->type_name("FILE");
  CLI::Option* map = command.add_option("--map", options.map, "Take the columns that were kept")
                         ->type_name("FILE");
  for (CLI::Option* finds : {totals, show, saveMap, map}) marks->excludes(finds);
}

}  // namespace

void addConvert(CLI::App& app) {
  CLI::App* command = app.add_subcommand(
      "convert", "Make a workbook, a table, a page of HTML or a PDF of a report file");
  const auto options = std::make_shared<ConvertOptions>();
  command
      ->add_option("REPORT", options->report, "Report file, or any text file; - is standard input")
      ->required();
  command->add_option(
      "OUT", options->out,
      "File to write, by its end: .xlsx, .xls or .csv (the rows, in the columns that "
      "are found), .html, .pdf, .rtf (styled), .txt (as it is)");
  addColumnOptions(*command, *options);
  command->footer(
      "Examples:\n"
      "  paperway convert ledger.txt ledger.xlsx\n"
      "  paperway convert ledger.txt --show\n"
      "  paperway convert ledger.txt ledger.csv --totals\n"
      "  paperway convert ledger.txt ledger.html");
  command->callback([options] {
    check(*options);
    const bool writes = !options->out.empty();
    forFile(writes ? "write" : "read", writes ? options->out : options->report,
            [&] { convert(*options); });
  });
}

}  // namespace paperway::command
