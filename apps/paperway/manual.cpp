#include "apps/paperway/manual.h"

#include <sstream>

namespace paperway::command {
namespace {

/// A text that roff takes for a text.
std::string plain(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\\') {
      result += "\\e";
    } else if (c == '-') {
      result += "\\-";
    } else {
      result += c;
    }
  }
  const bool request = result.starts_with(".") || result.starts_with("'");
  return (request ? "\\&" : "") + result;
}

/// Indented lines stand as they are, the others are paragraphs.
std::string footer(const std::string& text) {
  std::istringstream lines(text);
  std::string result;
  bool example = false;
  for (std::string line; std::getline(lines, line);) {
    const bool indented = line.starts_with("  ");
    if (indented != example) result += indented ? ".IP\n.nf\n" : ".fi\n";
    if (!indented && !line.empty()) result += ".PP\n";
    if (!line.empty()) result += plain(indented ? line.substr(2) : line) + "\n";
    example = indented;
  }
  return result + (example ? ".fi\n" : "");
}

std::string options(const std::vector<OptionHelp>& list) {
  std::string result;
  for (const OptionHelp& option : list) {
    result += ".TP\n.B " + plain(option.usage) + "\n" + plain(option.description) + "\n";
  }
  return result;
}

std::string section(const CommandHelp& command) {
  return ".SS " + plain(command.usage) + "\n" + plain(command.description) + ".\n" +
         options(command.arguments) + options(command.options) + footer(command.footer);
}

}  // namespace

std::string manualPage(const CommandHelp& program, const std::string& version) {
  std::string page = ".TH PAPERWAY 1 \"\" \"" + plain(version) + "\" \"User Commands\"\n";
  page += ".SH NAME\npaperway \\- takes the rows of a database to paper\n";
  page += ".SH SYNOPSIS\n.B " + plain(program.usage) + "\n";
  page += ".SH DESCRIPTION\n" + plain(program.description) + "\n" + options(program.options) +
          footer(program.footer) + ".SH COMMANDS\n";
  for (const CommandHelp* command : withCommands(program)) {
    if (command != &program) page += section(*command);
  }
  return page;
}

}  // namespace paperway::command
