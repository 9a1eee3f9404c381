#include <CLI/CLI.hpp>
#include <string>

int main(int argc, char** argv) {
  CLI::App app{"Reports from the rows of a database to paper", "paperway"};
  app.set_version_flag("--version", std::string("paperway ") + PAPERWAY_VERSION);
  app.require_subcommand(1);
  CLI11_PARSE(app, argc, argv);
  return 0;
}
