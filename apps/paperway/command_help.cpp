#include "apps/paperway/command_help.h"

#include <array>
#include <sstream>
#include <string_view>

namespace paperway::command {
namespace {

constexpr std::size_t kDescriptionColumn = 34;
constexpr std::size_t kDescriptionWidth = 62;

/// The choices of a type such as "INT:{80,96,136}".
std::vector<std::string> choicesOf(const std::string& type) {
  const std::size_t begin = type.find('{');
  if (begin == std::string::npos) return {};
  std::istringstream list(type.substr(begin + 1, type.find('}', begin) - begin - 1));
  std::vector<std::string> choices;
  for (std::string choice; std::getline(list, choice, ',');) choices.push_back(choice);
  return choices;
}

/// What stands for a value says what it is: FILE.csv, OUT.pdf, PRINTER.
OptionHelp::Value valueOf(const std::string& placeholder) {
  constexpr std::array<std::string_view, 3> kFiles{"FILE", "PATH", "OUT."};
  for (const std::string_view file : kFiles) {
    if (placeholder.starts_with(file)) return OptionHelp::Value::file;
  }
  return placeholder == "PRINTER" ? OptionHelp::Value::printer : OptionHelp::Value::text;
}

OptionHelp describe(const CLI::Option& option) {
  const HelpFormatter formatter;
  const bool positional = option.get_positional();
  const std::string type = option.get_type_name();
  OptionHelp help{.usage = formatter.make_option_name(&option, positional) +
                           formatter.make_option_opts(&option),
                  .description = option.get_description(),
                  .choices = choicesOf(type),
                  .repeats = option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll};
  if (positional) {
    help.names = {option.get_name(true, false)};
    help.value = valueOf(type == "TEXT" ? help.names.front() : type);
    return help;
  }
  for (const std::string& name : option.get_snames()) help.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) help.names.push_back("--" + name);
  if (option.get_items_expected_max() > 0) help.value = valueOf(type);
  if (!help.choices.empty()) help.value = OptionHelp::Value::choice;
  return help;
}

CommandHelp describe(const CLI::App& app, std::vector<std::string> path) {
  const CLI::Formatter formatter;
  CommandHelp help{.path = std::move(path),
                   .usage = "paperway",
                   .description = app.get_description(),
                   .footer = app.get_footer()};
  for (const std::string& word : help.path) help.usage += " " + word;
  const std::string usage = formatter.make_usage(&app, help.usage);
  const std::size_t begin = usage.find("paperway");
  help.usage = usage.substr(begin, usage.find('\n') - begin);
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_group().empty()) continue;
    (option->get_positional() ? help.arguments : help.options).push_back(describe(*option));
  }
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    std::vector<std::string> below = help.path;
    below.push_back(command->get_name());
    help.commands.push_back(describe(*command, std::move(below)));
  }
  return help;
}

}  // namespace

std::string CommandHelp::name(const std::string& between) const {
  std::string text;
  for (const std::string& word : path) text += (text.empty() ? "" : between) + word;
  return text;
}

CommandHelp describe(const CLI::App& app) {
  return describe(app, {});
}

std::vector<const CommandHelp*> withCommands(const CommandHelp& command) {
  std::vector<const CommandHelp*> all{&command};
  for (const CommandHelp& below : command.commands) {
    for (const CommandHelp* each : withCommands(below)) all.push_back(each);
  }
  return all;
}

HelpFormatter::HelpFormatter() {
  column_width(kDescriptionColumn);
}

/// An argument's name says what it is.
std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
  std::string text = Formatter::make_option_opts(option);
  constexpr std::string_view kPlain = " TEXT";
  if (option->get_positional() && text.starts_with(kPlain)) text.erase(0, kPlain.size());
  return text;
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
  std::istringstream words(option->get_description());
  std::string text;
  std::size_t width = 0;
  for (std::string word; words >> word; width += word.size() + 1) {
    const bool breaks = width + word.size() > kDescriptionWidth;
    if (breaks) width = 0;
    text += (text.empty() ? "" : breaks ? "\n" : " ") + word;
  }
  return text;
}

}  // namespace paperway::command
