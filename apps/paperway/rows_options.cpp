#include "apps/paperway/rows_options.h"

#include <algorithm>

namespace paperway::command {

void RowsOptions::add(CLI::App& command, const std::string& kind, const std::string& titlesAre) {
  source.addOptions(command);
  command.add_option("--data", data, "Query that gives the rows, in the report's order")
      ->type_name("SELECT")
      ->required();
  command
      .add_option("--columns", columns,
                  "Column table: a file of comma-separated values, or a query")
      ->type_name("FILE.csv|SELECT")
      ->required();
  command.add_option("--out", out, kind + " to write; - is standard output")
      ->type_name("FILE")
      ->required();
  addTexts(command, "--title", titles, titlesAre);
  serialOption =
      command.add_option("--serial", serial, "Number the rows from here on; 0: no numbers");
  serialOption->type_name("N")->check(CLI::NonNegativeNumber);
}

CLI::Option* RowsOptions::addTexts(CLI::App& command, const char* name,
                                   std::vector<std::string>& texts,
                                   const std::string& description) const {
  return command.add_option(name, texts, description)
      ->type_name("TEXT")
      ->expected(1)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void RowsOptions::check() const {
  if (titles.size() > kTitles) throw CLI::ValidationError("--title", "at most five titles");
  if (preview && out == "-") {
    throw CLI::ValidationError("--preview",
                               "standard output cannot be read again; give --out a file");
  }
}

std::array<std::string, kTitles> RowsOptions::fiveOf(const std::vector<std::string>& texts) {
  std::array<std::string, kTitles> five;
  std::copy_n(texts.begin(), std::min(texts.size(), kTitles), five.begin());
  return five;
}

}  // namespace paperway::command
