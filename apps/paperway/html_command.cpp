#include <memory>

#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/progress.h"
#include "apps/paperway/rows_options.h"
#include "apps/paperway/user_printers.h"
#include "paperway/class1.h"

namespace paperway::command {
namespace {

constexpr std::int32_t kRestartingNumbers = 9;
constexpr int kMostOfByte = 255;
constexpr int kMostOfShort = 32767;

struct HtmlOptions : RowsOptions {
  std::string align = "left";
  std::vector<std::string> titleFonts;
  float characterWidth = 0;
  bool landscape = false;

  bool salary = false;
  bool restart = false;
  std::string numberFont;
  double numberSize = 9;
  std::string space;
  int titleSize = 0;
  int rowHeight = 0;
  std::string pageBreak;
  int topMargin = 0;
  int leftMargin = 0;
  int paper = 0;
  bool twoLineTotal = false;
  bool references = false;
  int fixedHead = 0;
  int fixedRow = 0;

  std::uint8_t alignment() const { return align == "left" ? 0 : align == "center" ? 1 : 2; }
  std::uint8_t groupOfPages() const {
    return pageBreak == "inner" ? 1 : pageBreak == "outer" ? 2 : 0;
  }
};

/// What both exports take.
template <class Arguments>
Arguments common(const HtmlOptions& options, Recordset& rows, Progress& progress) {
  const auto titles = RowsOptions::fiveOf(options.titles);
  const auto fonts = RowsOptions::fiveOf(options.titleFonts);
  Arguments arguments{.Rs = rows};
  arguments.HTML_FileName = options.target();
  arguments.Tital1 = titles[0];
  arguments.Tital2 = titles[1];
  arguments.Tital3 = titles[2];
  arguments.Tital4 = titles[3];
  arguments.Tital5 = titles[4];
  arguments.Srno = options.serial;
  arguments.CenterHeder1Right2 = options.alignment();
  arguments.TFontNM1 = fonts[0];
  arguments.TFontNM2 = fonts[1];
  arguments.TFontNM3 = fonts[2];
  arguments.TFontNM4 = fonts[3];
  arguments.TFontNM5 = fonts[4];
  arguments.ChrWidth = options.characterWidth;
  arguments.PortraitLansscape = options.landscape ? "L" : "";
  arguments.onProgress = [&progress](const ReportProgress& done) { progress.tell(done); };
  return arguments;
}

std::string exportTable(Class1& report, const HtmlOptions& options, Recordset& rows,
                        Progress& progress) {
  auto arguments = common<HtmlExportArguments>(options, rows, progress);
  report.HTML_Export(arguments);
  return arguments.PortraitLansscape;
}

std::string exportSalary(Class1& report, const HtmlOptions& options, Recordset& rows,
                         Progress& progress) {
  auto arguments = common<HtmlExportSalaryArguments>(options, rows, progress);
  if (options.restart) arguments.Srno = kRestartingNumbers;
  arguments.SrNo_FontName = options.numberFont;
  arguments.SrNo_FontSZ = options.numberSize;
  arguments.Space_Numeric = options.space;
  arguments.Tital_FontSize = static_cast<std::int16_t>(options.titleSize);
  arguments.Row_Height = static_cast<std::int16_t>(options.rowHeight);
  arguments.PageBrack_When_GroupChange = options.groupOfPages();
  arguments.Top_margin = static_cast<std::uint8_t>(options.topMargin);
  arguments.Left_margin = static_cast<std::uint8_t>(options.leftMargin);
  arguments.Page_Size = static_cast<std::int16_t>(options.paper);
  arguments.DoubleLine_LastTotal = options.twoLineTotal ? 1 : 0;
  arguments.Unicode_RPT = options.references ? 1 : 0;
  arguments.FixHeder_Row_Height = static_cast<std::int16_t>(options.fixedHead);
  arguments.FixRow_Height = static_cast<std::int16_t>(options.fixedRow);
  report.HTML_Export_Salary(arguments);
  return arguments.PortraitLansscape;
}

/// The orientation that the document asks the printer for.
std::string writeHtml(const HtmlOptions& options) {
  Machine machine;
  StoppablePrinters user;
  const Platform screenless = machine.platform();
  Class1 report(screenless.with(user.spooler, user.printers, screenless.printDevice));
  Progress progress;
  report.Set_Repot_Format(*options.source.columns(options.columns));
  if (!report.formatIsWhole()) throw Told();
  const auto rows = options.source.rows(options.data);
  const std::string orientation = options.salary ? exportSalary(report, options, *rows, progress)
                                                 : exportTable(report, options, *rows, progress);
  progress.finish(options.out);
  return orientation;
}

void show(Desk& desk, const std::string& document, const std::string& orientation) {
  Class1 window(desk.platform());
  window.PreviewReportWindows({.Path1 = document, .PL1 = orientation});
  desk.run();
}

void addSalaryOptions(CLI::App& html, HtmlOptions& options) {
  CLI::Option* salary = html.add_flag("--salary", options.salary,
                                      "Write the table with a style sheet, whose columns may be "
                                      "hidden (Sz 0) and have captions above them");
  const auto only = [salary](CLI::Option* option) { return option->needs(salary); };
  const auto number = [&](const char* name, int& value, const char* text, int most) {
    return only(html.add_option(name, value, text)->type_name("N")->check(CLI::Range(0, most)));
  };
  only(html.add_flag("--restart", options.restart,
                     "Number the rows of each first-level group from 1"))
      ->excludes(options.serialOption);
  only(html.add_option("--number-font", options.numberFont, "Font of the numbers")
           ->type_name("FONT"));
  only(html.add_option("--number-size", options.numberSize, "Size of the numbers, in points")
           ->type_name("N")
           ->check(CLI::Range(0.0, 1000.0))
           ->capture_default_str());
  number("--title-size", options.titleSize, "Size of the titles, in points", 1000);
  only(html.add_option("--space", options.space,
                       "What stands beside numbers and captions, such as \"&nbsp;\"")
           ->type_name("HTML"));
  only(html.add_option("--page-break", options.pageBreak,
                       "Begin a page with each group: inner ones, with --restart alone, or outer")
           ->check(CLI::IsMember({"inner", "outer"})));
  number("--top-margin", options.topMargin, "Small blank lines at the top of each page",
         kMostOfByte);
  number("--left-margin", options.leftMargin, "Levels of indentation", kMostOfByte);
  number("--row-height", options.rowHeight, "What a row counts, in twips (1440 to the inch)",
         kMostOfShort);
  number("--fixed-head", options.fixedHead, "Height of the page head, in 1/90 inch", kMostOfShort);
  number("--fixed-row", options.fixedRow, "Height of the rows, in 1/90 inch", kMostOfShort);
  number("--paper", options.paper, "Paper of the printer by its number (9 is A4); 0: as it is",
         kMostOfShort);
  only(html.add_flag("--two-line-total", options.twoLineTotal,
                     "Spread the grand total over two lines, two columns for each figure"));
  only(html.add_flag(
      "--references", options.references,
      "Write titles, captions and columns of a \"unicode\" font as character references"));
}

void check(const HtmlOptions& options) {
  options.check();
  if (options.titleFonts.size() > kTitles) {
    throw CLI::ValidationError("--title-font", "at most five, one for each title");
  }
  if (options.salary && options.serial == kRestartingNumbers) {
    throw CLI::ValidationError("--serial", "a salary sheet cannot begin with 9");
  }
  if (options.pageBreak == "inner" && !options.restart) {
    throw CLI::ValidationError("--page-break", "inner groups begin a page with --restart alone");
  }
}

}  // namespace

void addHtml(CLI::App& app) {
  CLI::App* html = app.add_subcommand(
      "html", "Write the rows of a query as an HTML document of tables, page by page");
  const auto options = std::make_shared<HtmlOptions>();
  options->add(*html, "HTML file",
               "A title line; up to five times. An empty one leaves its place out");
  html->add_option("--align", options->align, "Where the titles stand; left ones have no font")
      ->check(CLI::IsMember({"left", "center", "right"}))
      ->capture_default_str();
  options
      ->addTexts(*html, "--title-font", options->titleFonts,
                 "Font of a title; up to five times, in the order of the titles")
      ->type_name("FONT");
  html->add_option("--char-width", options->characterWidth,
                   "Width of a character of a column, in units of the table's width")
      ->type_name("N")
      ->check(CLI::Range(0.01F, 1000.0F))
      ->default_str("6");
  html->add_flag("--landscape", options->landscape, "The pages are for landscape paper");
  html->add_flag("--preview", options->preview, "Open the finished document in a window");
  addSalaryOptions(*html, *options);
  html->footer(
      "Paper and orientation are those of the default printer; margins and text size those of the "
      "page set-up.\n"
      "Examples:\n"
      "  paperway html --db ledger.db --data \"SELECT * FROM sales\" --columns columns.csv \\\n"
      "    --out ledger.html --title \"Sales ledger\" --align center --serial 1 --landscape\n"
      "  paperway html --salary --db salary.db --data \"SELECT * FROM pay\" --columns pay.csv \\\n"
      "    --out salary.html --title \"Salaries^\" --title-size 14 --restart --two-line-total");
  html->callback([options] {
    check(*options);
    // Opened before the work, which would be in vain without a display.
    const std::unique_ptr<Desk> desk = options->preview ? Desk::open({}) : nullptr;
    std::string orientation;
    forFile("write", options->out, [&] { orientation = writeHtml(*options); });
    if (desk != nullptr) show(*desk, options->out, orientation);
  });
}

}  // namespace paperway::command
