#include <array>
#include <limits>
#include <memory>
#include <vector>

#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/progress.h"
#include "apps/paperway/source.h"
#include "paperway/class1.h"

namespace paperway::command {
namespace {

constexpr std::size_t kTitles = 5;

struct TextOptions {
  Source source;
  std::string data;
  std::string columns;
  std::string out;
  std::vector<std::string> titles;
  int lines = 60;
  std::int32_t serial = 0;
  int pitch = 0;
  bool preview = false;
};

TextRptArguments arguments(const TextOptions& options, Recordset& rows, Progress& progress) {
  std::vector<std::string> titles = options.titles;
  titles.resize(kTitles);
  return {.Rs = rows,
          .TextFileName = options.out == "-" ? "/dev/stdout" : options.out,
          .Tital1 = titles[0],
          .Tital2 = titles[1],
          .Tital3 = titles[2],
          .Tital4 = titles[3],
          .Tital5 = titles[4],
          .MPLine = static_cast<std::uint8_t>(options.lines),
          .Srno = options.serial,
          .C_80_96_136 = static_cast<std::uint8_t>(options.pitch),
          .onProgress = [&progress](const ReportProgress& done) { progress.tell(done); }};
}

void writeText(const TextOptions& options) {
  Machine machine;
  Class1 report(machine.platform());
  Progress progress;
  report.Set_Repot_Format(*options.source.columns(options.columns));
  if (!report.formatIsWhole()) throw Told();
  const auto rows = options.source.rows(options.data);
  report.Text_Rpt(arguments(options, *rows, progress));
  if (report.lastFailure() != nullptr) throw Told();
  progress.finish(options.out);
}

}  // namespace

void addText(CLI::App& app) {
  CLI::App* text = app.add_subcommand("text", "Write a paged text report of the rows of a query");
  const auto options = std::make_shared<TextOptions>();
  options->source.addOptions(*text);
  text->add_option("--data", options->data, "Query that gives the rows, in the report's order")
      ->type_name("SELECT")
      ->required();
  text->add_option("--columns", options->columns,
                   "Column table: a file of comma-separated values, or a query")
      ->type_name("FILE.csv|SELECT")
      ->required();
  text->add_option("--out", options->out, "Report file to write; - is standard output")
      ->type_name("FILE")
      ->required();
  text->add_option("--title", options->titles,
                   "A title line; up to five times: the main title, three below it, and the text "
                   "on the page-number line. An empty one leaves its place out")
      ->type_name("TEXT")
      ->expected(1)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  text->add_option("--lines", options->lines, "Lines of a page")
      ->check(CLI::Range(0, 255))
      ->capture_default_str();
  text->add_option("--serial", options->serial, "Number the rows from here on; 0: no numbers")
      ->type_name("N")
      ->check(CLI::NonNegativeNumber);
  text->add_option("--pitch", options->pitch,
                   "Columns of the paper: 80 (10 per inch), 96 (12), 136 (17, condensed)")
      ->check(CLI::IsMember({80, 96, 136}));
  text->add_flag("--preview", options->preview, "Open the finished report in a window");
  text->footer(
      "Example:\n"
      "  paperway text --db ledger.db --data \"SELECT * FROM sales\" --columns columns.csv \\\n"
      "    --out ledger.txt --title \"Sales ledger\" --title \"April 2026\" --serial 1 --pitch "
      "136\n"
      "From another database, ledger by the name of its ODBC data source:\n"
      "  paperway text --odbc ledger --data \"SELECT * FROM sales\" --columns columns.csv \\\n"
      "    --out ledger.txt");
  text->callback([options] {
    if (options->titles.size() > kTitles) {
      throw CLI::ValidationError("--title", "at most five titles");
    }
    if (options->preview && options->out == "-") {
      throw CLI::ValidationError("--preview",
                                 "standard output cannot be read again; give --out a file");
    }
    // Opened before the work, which would be in vain without a display.
    const std::unique_ptr<Desk> desk = options->preview ? Desk::open({}) : nullptr;
    forFile("write", options->out, [&] { writeText(*options); });
    if (desk != nullptr) read(*desk, options->out);
  });
}

}  // namespace paperway::command
