#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <new>
#include <optional>
#include <unistd.h>

#include "apps/paperway/command_help.h"
#include "apps/paperway/commands.h"
#include "apps/paperway/memory_limit.h"
#include "apps/paperway/standard_output.h"
#include "apps/paperway/stop_signals.h"
#include "apps/paperway/usage.h"
#include "apps/paperway/visible.h"

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;
constexpr int kSignalled = 128;

int parse(CLI::App& app, int argc, char** argv) {
  try {
    app.parse(paperway::command::wordsFor(app, argc, argv));
    return 0;
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kUsage;
  }
}

int run(int argc, char** argv) {
  paperway::command::StandardOutput output;
  std::optional<paperway::command::VisibleControls> shown;
  if (isatty(STDOUT_FILENO) != 0) shown.emplace(std::cout);
  CLI::App app{"Takes the rows of a database to paper.", "paperway"};
  app.set_version_flag("--version", std::string("paperway ") + PAPERWAY_VERSION);
  app.require_subcommand(1);
  app.failure_message(paperway::command::usageMessage);
  app.formatter(std::make_shared<paperway::command::HelpFormatter>());
  paperway::command::addText(app);
  paperway::command::addHtml(app);
  paperway::command::addSheet(app);
  paperway::command::addConvert(app);
  paperway::command::addColumns(app);
  paperway::command::addWords(app);
  paperway::command::addSetting(app);
  paperway::command::addPrint(app);
  paperway::command::addPrinters(app);
  paperway::command::addPreview(app);
  paperway::command::addBrowse(app);
  paperway::command::addStickers(app);
  paperway::command::addDocumentation(app);
  const int code = parse(app, argc, argv);
  if (code == 0) output.finish();
  return code;
}

void say(const char* text) {
  try {
    std::cerr << "paperway: " << paperway::command::visible(text) << "\n";
  } catch (const std::bad_alloc&) {
    std::cerr << "paperway: " << text << "\n";
  }
}

/// Tells the exception in hand, and needs no memory for it; the exit code.
int tellFailure(const char* command) {
  if (const int signal = paperway::command::StopSignals::raised(); signal != 0) {
    std::cerr << "paperway: stopped.\n";
    return kSignalled + signal;
  }
  try {
    throw;
  } catch (const paperway::command::Told&) {
  } catch (const std::bad_alloc&) {
    std::cerr << "paperway: Not enough memory for \"paperway " << command << "\".\n";
  } catch (const std::exception& error) {
    say(error.what());
  }
  return kFailed;
}

}  // namespace

int main(int argc, char** argv) {
  const paperway::command::VisibleControls errors(std::cerr);
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow then fails its write, which is told
  try {
    paperway::command::holdStandardDescriptors();
    paperway::command::limitMemory();
    return run(argc, argv);
  } catch (...) {
    return tellFailure(argc > 1 ? argv[1] : "");
  }
}
