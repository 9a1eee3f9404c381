#include <memory>

#include "apps/paperway/commands.h"
#include "apps/paperway/desk.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/progress.h"
#include "apps/paperway/rows_options.h"
#include "paperway/class1.h"

namespace paperway::command {
namespace {

struct TextOptions : RowsOptions {
  int lines = 60;
  int pitch = 0;
};

TextRptArguments arguments(const TextOptions& options, Recordset& rows, Progress& progress) {
  const auto titles = RowsOptions::fiveOf(options.titles);
  return {.Rs = rows,
          .TextFileName = options.target(),
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
  options->add(*text, "Report file",
               "A title line; up to five times: the main title, three below it, and the text on "
               "the page-number line. An empty one leaves its place out");
  text->add_option("--lines", options->lines, "Lines of a page")
      ->check(CLI::Range(0, 255))
      ->capture_default_str();
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
    options->check();
    // Opened before the work, which would be in vain without a display.
    const std::unique_ptr<Desk> desk = options->preview ? Desk::open({}) : nullptr;
    forFile("write", options->out, [&] { writeText(*options); });
    if (desk != nullptr) read(*desk, options->out);
  });
}

}  // namespace paperway::command
