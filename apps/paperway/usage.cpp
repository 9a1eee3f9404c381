#include "apps/paperway/usage.h"

#include <algorithm>
#include <optional>

#include "apps/paperway/near_miss.h"
#include "apps/paperway/visible.h"

namespace paperway::command {
namespace {

bool takesValue(const CLI::App& app, const std::string& name) {
  const CLI::Option* option = app.get_option_no_throw(name);
  if (option != nullptr && option->get_items_expected_max() > 0) return true;
  const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
  return std::any_of(commands.begin(), commands.end(),
                     [&](const CLI::App* command) { return takesValue(*command, name); });
}

std::string fullName(const CLI::App& app) {
  const std::string own = app.get_name();
  return app.get_parent() == nullptr ? own : fullName(*app.get_parent()) + " " + own;
}

std::vector<std::string> optionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_group().empty()) continue;
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

std::vector<std::string> commandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(command->get_name());
  }
  return names;
}

/// The first word that this command alone, without its subcommands, knows nothing to do with.
std::string unknownWord(const CLI::App& app) {
  const std::vector<std::string> words = app.remaining();
  const auto option = std::find_if(words.begin(), words.end(),
                                   [](const std::string& word) { return word.starts_with("-"); });
  if (option != words.end()) return *option;
  return words.empty() ? "" : words.front();
}

std::optional<std::string> unknown(const CLI::App& app) {
  const std::string word = unknownWord(app);
  const std::string command = "\"" + fullName(app) + "\"";
  if (word.starts_with("-")) {
    const std::string name = word.substr(0, word.find('='));
    return command + " has no option " + name + "." + didYouMean(name, optionNames(app));
  }
  if (!word.empty()) {
    const auto names = commandNames(app);
    if (names.empty()) return command + " has no place for \"" + word + "\".";
    return command + " has no command \"" + word + "\"." + didYouMean(word, names);
  }
  for (const CLI::App* used : app.get_subcommands()) {
    if (auto message = unknown(*used)) return message;
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::string> wordsFor(const CLI::App& app, int argc, const char* const* argv) {
  std::vector<std::string> words;
  bool options = true;
  for (int i = 1; i < argc; ++i) {
    std::string word = argv[i];
    options = options && word != "--";
    const std::size_t name = word.size() - 1;
    if (options && word.starts_with("--") && word.find('=') == name &&
        takesValue(app, word.substr(0, name))) {
      word.pop_back();
      words.push_back(word);
      word.clear();
    }
    words.push_back(word);
  }
  std::reverse(words.begin(), words.end());
  return words;
}

std::string usageMessage(const CLI::App* app, const CLI::Error& error) {
  const bool mayBeSpelling = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr ||
                             dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
  const auto message = mayBeSpelling ? unknown(*app) : std::nullopt;
  return visible(message.value_or(error.what())) + "\nRun with --help for more information.\n";
}

}  // namespace paperway::command
