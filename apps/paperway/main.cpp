#include <CLI/CLI.hpp>
#include <clocale>
#include <exception>
#include <iostream>
#include <optional>
#include <unistd.h>

#include "apps/paperway/command_help.h"
#include "apps/paperway/commands.h"
#include "apps/paperway/stop_signals.h"
#include "apps/paperway/usage.h"
#include "apps/paperway/visible.h"

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;
constexpr int kSignalled = 128;

int run(CLI::App& app, int argc, char** argv) {
  try {
    app.parse(paperway::command::wordsFor(app, argc, argv));
    return 0;
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kUsage;
  } catch (const paperway::command::Told&) {
    return kFailed;
  } catch (const std::exception& error) {
    if (const int signal = paperway::command::StopSignals::raised(); signal != 0) {
      std::cerr << "paperway: stopped.\n";
      return kSignalled + signal;
    }
    std::cerr << "paperway: " << paperway::command::visible(error.what()) << "\n";
    return kFailed;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const paperway::command::VisibleControls errors(std::cerr);
  std::optional<paperway::command::VisibleControls> output;
  if (isatty(STDOUT_FILENO) != 0) output.emplace(std::cout);
  CLI::App app{"Takes the rows of a database to paper.", "paperway"};
  app.set_version_flag("--version", std::string("paperway ") + PAPERWAY_VERSION);
  app.require_subcommand(1);
  app.failure_message(paperway::command::usageMessage);
  app.formatter(std::make_shared<paperway::command::HelpFormatter>());
  paperway::command::addText(app);
  paperway::command::addColumns(app);
  paperway::command::addWords(app);
  paperway::command::addSetting(app);
  paperway::command::addPrint(app);
  paperway::command::addPrinters(app);
  paperway::command::addPreview(app);
  paperway::command::addDocumentation(app);
  return run(app, argc, argv);
}
