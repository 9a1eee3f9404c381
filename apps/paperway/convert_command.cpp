#include <memory>

#include "apps/paperway/commands.h"
#include "apps/paperway/machine.h"
#include "apps/paperway/report_input.h"
#include "apps/paperway/stop_signals.h"
#include "html/report_html.h"
#include "session/settings_store.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway::command {
namespace {

struct ConvertOptions {
  std::string report;
  std::string out;
};

bool endsIn(const std::string& name, std::string_view ending) {
  return name.size() > ending.size() &&
         equalIgnoringCase(name.substr(name.size() - ending.size()), ending);
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

void convert(const ConvertOptions& options) {
  Machine machine;
  const Platform platform = machine.platform();
  const StopSignals stopSignals;
  const ReportInput input(options.report, platform.folders);
  const ReportViewSettings settings(platform.storage, settingsPath(platform.folders, ""));
  convertReport({.report = pathOf(input.path()),
                 .html = pathOf(options.out),
                 .colors = colorsOf(settings),
                 .breaksPages = true,
                 .caller = "convert",
                 .onProgress =
                     [](std::int64_t) {
                       if (StopSignals::raised() != 0) throw Interrupted();
                     }},
                DOSEFONTcHR(), platform.storage);
}

}  // namespace

void addConvert(CLI::App& app) {
  CLI::App* command = app.add_subcommand("convert", "Make a page of HTML of a report file");
  const auto options = std::make_shared<ConvertOptions>();
  command
      ->add_option("REPORT", options->report, "Report file, or any text file; - is standard input")
      ->required();
  command->add_option("OUT.html", options->out, "File to write; its name ends in .html or .htm")
      ->required();
  command->footer(
      "Example:\n"
      "  paperway convert ledger.txt ledger.html");
  command->callback([options] {
    if (!endsIn(options->out, ".html") && !endsIn(options->out, ".htm")) {
      throw CLI::ValidationError("OUT.html", "\"" + options->out + "\" does not end in .html");
    }
    forFile("write", options->out, [&] { convert(*options); });
  });
}

}  // namespace paperway::command
