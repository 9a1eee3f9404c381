#include <cmath>
#include <iostream>
#include <memory>
#include <string>

#include "apps/paperway/commands.h"
#include "paperway/value.h"
#include "util/amounts.h"
#include "util/numbers.h"

namespace paperway::command {
namespace {

double parseAmount(std::string text) {
  std::erase(text, ',');
  const auto amount = parseNumber(text);
  if (amount && std::isfinite(*amount)) return *amount;
  throw CLI::ValidationError("AMOUNT", "\"" + text + "\" is no number");
}

}  // namespace

void addWords(CLI::App& app) {
  CLI::App* words =
      app.add_subcommand("words", "Write an amount in words, in thousands, lakhs and crores");
  const auto amount = std::make_shared<std::string>();
  words->add_option("amount", *amount, "The amount; commas in it count for nothing")
      ->type_name("AMOUNT")
      ->required();
  words->footer(
      "Example:\n"
      "  paperway words 12,34,567.89");
  words->callback([amount] { std::cout << NumToText(parseAmount(*amount)) << std::endl; });
}

}  // namespace paperway::command
