#include <memory>

#include "apps/paperway/commands.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/progress.h"
#include "apps/paperway/rows_options.h"
#include "paperway/class1.h"
#include "util/path_text.h"

namespace paperway::command {
namespace {

struct SheetOptions : RowsOptions {
  std::vector<std::string> titleFonts;
  bool landscape = false;
  std::string leftFooter;
  std::string rightFooter;
  int topMargin = 0;
  int bottomMargin = 0;
  int leftMargin = 0;
  int rightMargin = 0;
  int footerMargin = 0;
};

ExcelExportArguments arguments(const SheetOptions& options, Recordset& rows, Progress& progress) {
  const auto titles = RowsOptions::fiveOf(options.titles);
  const auto fonts = RowsOptions::fiveOf(options.titleFonts);
  return {.Rs = rows,
          .Excel_FileName = options.out,
          .Tital1 = titles[0],
          .Tital2 = titles[1],
          .Tital3 = titles[2],
          .Tital4 = titles[3],
          .Tital5 = titles[4],
          .PageOriantationPL = options.landscape ? "L" : "",
          .LeftFooter = options.leftFooter,
          .RightFooter = options.rightFooter,
          .PageTopMargin = static_cast<std::int16_t>(options.topMargin),
          .PageBottomMargin = static_cast<std::int16_t>(options.bottomMargin),
          .PageRightMargin = static_cast<std::int16_t>(options.rightMargin),
          .PageLeftMargin = static_cast<std::int16_t>(options.leftMargin),
          .PageFooterMargin = static_cast<std::int16_t>(options.footerMargin),
          .Srno = options.serial,
          .TFontNM1 = fonts[0],
          .TFontNM2 = fonts[1],
          .TFontNM3 = fonts[2],
          .TFontNM4 = fonts[3],
          .TFontNM5 = fonts[4],
          .onProgress = [&progress](const ReportProgress& done) { progress.tell(done); }};
}

void writeSheet(const SheetOptions& options) {
  Machine machine;
  const Platform platform = machine.platform();
  const std::string file = textOf(platform.workbooks->fileNamed(pathOf(options.out)));
  Class1 report(platform);
  Progress progress;
  report.Set_Repot_Format(*options.source.columns(options.columns));
  if (!report.formatIsWhole()) throw Told();
  const auto rows = options.source.rows(options.data);
  report.Excel_Export(arguments(options, *rows, progress));
  progress.finish(file);
}

void check(const SheetOptions& options) {
  options.check();
  if (options.titleFonts.size() > kTitles) {
    throw CLI::ValidationError("--title-font", "at most five, one for each title");
  }
  if (options.out == "-") {
    throw CLI::ValidationError("--out", "a workbook needs a name, whose end says its format");
  }
}

}  // namespace

void addSheet(CLI::App& app) {
  constexpr int kMostPoints = 32767;
  CLI::App* sheet =
      app.add_subcommand("sheet", "Write the rows of a query as a workbook for a spreadsheet");
  const auto options = std::make_shared<SheetOptions>();
  options->add(*sheet, "Workbook (.xlsx, or .xls for the older format)",
               "A title line; up to five times. An empty one leaves its place out");
  options
      ->addTexts(*sheet, "--title-font", options->titleFonts,
                 "Font of a title; up to five times, in the order of the titles")
      ->type_name("FONT");
  sheet->add_flag("--landscape", options->landscape, "Print on landscape pages");
  sheet
      ->add_option("--left-footer", options->leftFooter,
                   "Text at the left of each page's foot; \"&P\" is its number, \"&D\" the day")
      ->type_name("TEXT");
  sheet->add_option("--right-footer", options->rightFooter, "Text at its right")->type_name("TEXT");
  const auto margin = [&](const char* name, int& points, const char* text) {
    sheet->add_option(name, points, text)->type_name("N")->check(CLI::Range(0, kMostPoints));
  };
  margin("--top-margin", options->topMargin,
         "Margin of the printed page, in points (72 to the inch)");
  margin("--bottom-margin", options->bottomMargin, "The same at its bottom");
  margin("--left-margin", options->leftMargin, "The same at its left");
  margin("--right-margin", options->rightMargin, "The same at its right");
  margin("--footer-margin", options->footerMargin, "From the paper's edge to the foot");
  sheet->footer(
      "Example:\n"
      "  paperway sheet --db ledger.db --data \"SELECT * FROM sales\" --columns columns.csv \\\n"
      "    --out ledger.xlsx --title \"Sales ledger\" --title \"April 2026\" --serial 1 "
      "--landscape");
  sheet->callback([options] {
    check(*options);
    forFile("write", options->out, [&] { writeSheet(*options); });
  });
}

}  // namespace paperway::command
