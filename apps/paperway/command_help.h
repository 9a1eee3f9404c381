#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace paperway::command {

/// An option or an argument as help, manual page and completions tell it.
struct OptionHelp {
  enum class Value { none, text, file, printer, choice };

  std::vector<std::string> names{};  // "-h", "--help"; of an argument its one name
  std::string usage{};               // "--page N"
  std::string description{};
  Value value = Value::none;
  std::vector<std::string> choices{};
  bool repeats = false;
};

/// A command, or the program itself.
struct CommandHelp {
  std::vector<std::string> path{};  // "printers", "add"; empty for the program
  std::string usage{};              // "paperway printers add [OPTIONS] NAME TARGET"
  std::string description{};
  std::string footer{};
  std::vector<OptionHelp> options{};
  std::vector<OptionHelp> arguments{};
  std::vector<CommandHelp> commands{};

  /// The words of the path behind one another.
  std::string name(const std::string& between) const;
};

/// All that --help says, below the program or a command.
CommandHelp describe(const CLI::App& app);

/// Each command below this one, and the one itself, in the order of help.
std::vector<const CommandHelp*> withCommands(const CommandHelp& command);

/// How --help looks: descriptions are broken into lines.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter();
  std::string make_option_opts(const CLI::Option* option) const override;
  std::string make_option_desc(const CLI::Option* option) const override;
};

}  // namespace paperway::command
