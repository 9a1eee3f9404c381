#include "apps/paperway/completion.h"

namespace paperway::command {
namespace {

using Value = OptionHelp::Value;

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, what.size(), with);
  }
  return text;
}

template <typename List, typename Word>
std::string joined(const List& list, const std::string& between, const Word& word) {
  std::string text;
  for (const auto& each : list) text += (text.empty() ? "" : between) + word(each);
  return text;
}

std::string choices(const OptionHelp& option) {
  return joined(option.choices, " ", [](const std::string& choice) { return choice; });
}

std::string lastName(const CommandHelp& command) {
  return command.path.back();
}

// ---- bash ---------------------------------------------------------------------------------------

constexpr char kBashBegin[] = R"bash(# Completions of paperway for bash, made from its help.
_paperway_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_paperway_known_printers() {
  local name
  while IFS= read -r name; do
    [[ $name == "$1"* ]] && COMPREPLY+=("$(printf %q "$name")")
  done < <(paperway printers list --names 2>/dev/null)
}

_paperway_words() { mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1"); }

_paperway() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= word
  [[ $before == = ]] && before=${COMP_WORDS[COMP_CWORD - 2]}
  [[ $current == = ]] && current=
  COMPREPLY=()
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case "$command/$word" in
)bash";

constexpr char kBashEnd[] = R"bash(}

complete -F _paperway paperway
)bash";

std::string bashValue(const OptionHelp& option) {
  switch (option.value) {
    case Value::file:
      return "_paperway_files \"$current\"";
    case Value::printer:
      return "_paperway_known_printers \"$current\"";
    case Value::choice:
      return "_paperway_words \"$current\" '" + choices(option) + "'";
    default:
      return ":";
  }
}  // namespace paperway::command

/// What a word that begins with no "-" may be.
std::string bashWord(const CommandHelp& command) {
  if (!command.commands.empty()) {
    return "_paperway_words \"$current\" '" + joined(command.commands, " ", lastName) + "'";
  }
  return command.arguments.empty() ? ":" : bashValue(command.arguments.front());
}

std::string bashScript(const CommandHelp& program) {
  const auto names = [](const OptionHelp& option) {
    return joined(option.names, " ", [](const std::string& name) { return name; });
  };
  std::string walk;
  std::string values;
  std::string options;
  std::string words;
  for (const CommandHelp* command : withCommands(program)) {
    const std::string name = command->name(" ");
    for (const CommandHelp& below : command->commands) {
      walk +=
          "      '" + name + "/" + lastName(below) + "') command='" + below.name(" ") + "' ;;\n";
    }
    for (const OptionHelp& option : command->options) {
      if (option.value == Value::none) continue;
      const std::string pattern = joined(option.names, " | ", [&](const std::string& each) {
        return "'" + name + "/" + each + "'";
      });
      values += "    " + pattern + ") " + bashValue(option) + "; return ;;\n";
    }
    options += "      '" + name + "') _paperway_words \"$current\" '" +
               joined(command->options, " ", names) + "' ;;\n";
    words += "      '" + name + "') " + bashWord(*command) + " ;;\n";
  }
  return kBashBegin + walk + "    esac\n  done\n  case \"$command/$before\" in\n" + values +
         "  esac\n  if [[ $current == -* ]]; then\n    case \"$command\" in\n" + options +
         "    esac\n  else\n    case \"$command\" in\n" + words + "    esac\n  fi\n" + kBashEnd;
}

// ---- zsh ----------------------------------------------------------------------------------------

constexpr char kZshBegin[] = R"zsh(#compdef paperway
# Completions of paperway for zsh, made from its help.
_paperway_known_printers() {
  local -a names
  names=("${(@f)$(paperway printers list --names 2>/dev/null)}")
  compadd -a names
}

)zsh";

/// Within single quotes.
std::string zshText(const std::string& text) {
  return replaced(text, "'", "'\\''");
}

/// A text within an argument of _arguments, where brackets and colons mean something.
std::string zshDescription(std::string text) {
  for (const char* special : {"\\", "[", "]", ":"}) {
    text = replaced(text, special, std::string("\\") + special);
  }
  return zshText(text);
}

std::string zshAction(const OptionHelp& option) {
  switch (option.value) {
    case Value::file:
      return "_files";
    case Value::printer:
      return "_paperway_known_printers";
    case Value::choice:
      return "(" + choices(option) + ")";
    default:
      return " ";
  }
}

std::string zshOption(const OptionHelp& option) {
  std::string text;
  for (const std::string& name : option.names) {
    text += " \\\n    '" + std::string(option.repeats ? "*" : "") + name;
    if (option.value != Value::none) text += name.starts_with("--") ? "=" : "+";
    text += "[" + zshDescription(option.description) + "]";
    if (option.value != Value::none) text += ":value:" + zshAction(option);
    text += "'";
  }
  return text;
}

std::string zshFunction(const CommandHelp& command) {
  const std::string name = command.name("_");
  std::string text = "_paperway" + std::string(name.empty() ? "" : "_") + name + "() {\n";
  text += "  local state line curcontext=$curcontext\n  local -a commands\n  _arguments -C";
  for (const OptionHelp& option : command.options) text += zshOption(option);
  for (const OptionHelp& argument : command.arguments) {
    text += " \\\n    ':" + argument.names.front() + ":" + zshAction(argument) + "'";
  }
  if (command.commands.empty()) return text + "\n}\n\n";
  text += " \\\n    '1: :->command' '*:: :->rest'\n  case $state in\n    command)\n";
  text += "      commands=(\n";
  for (const CommandHelp& below : command.commands) {
    text += "        '" + lastName(below) + ":" + zshText(below.description) + "'\n";
  }
  text += "      )\n      _describe command commands ;;\n    rest)\n      case $line[1] in\n";
  for (const CommandHelp& below : command.commands) {
    text += "        " + lastName(below) + ") _paperway_" + below.name("_") + " ;;\n";
  }
  return text + "      esac ;;\n  esac\n}\n\n";
}

std::string zshScript(const CommandHelp& program) {
  std::string script = kZshBegin;
  for (const CommandHelp* command : withCommands(program)) script += zshFunction(*command);
  return script + "_paperway \"$@\"\n";
}

// ---- fish ---------------------------------------------------------------------------------------

std::string fishText(const std::string& text) {
  return "'" + replaced(replaced(text, "\\", "\\\\"), "'", "\\'") + "'";
}

/// True where this command, and none below it, is being typed.
std::string fishCondition(const CommandHelp& command) {
  if (command.path.empty()) return "__fish_use_subcommand";
  std::string text = joined(command.path, "; and ", [](const std::string& word) {
    return "__fish_seen_subcommand_from " + word;
  });
  if (!command.commands.empty()) {
    text += "; and not __fish_seen_subcommand_from " + joined(command.commands, " ", lastName);
  }
  return text;
}

std::string fishValue(const OptionHelp& option) {
  switch (option.value) {
    case Value::none:
      return "";
    case Value::file:
      return " -r -F";
    case Value::printer:
      return " -x -a '(paperway printers list --names 2>/dev/null)'";
    case Value::choice:
      return " -x -a '" + choices(option) + "'";
    default:
      return " -x";
  }
}

std::string fishScript(const CommandHelp& program) {
  std::string script = "# Completions of paperway for fish, made from its help.\n";
  script += "complete -c paperway -f\n";
  for (const CommandHelp* command : withCommands(program)) {
    const std::string line = "complete -c paperway -n " + fishText(fishCondition(*command));
    for (const CommandHelp& below : command->commands) {
      script += line + " -a " + lastName(below) + " -d " + fishText(below.description) + "\n";
    }
    for (const OptionHelp& option : command->options) {
      script += line;
      for (const std::string& name : option.names) {
        script += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
      }
      script += fishValue(option) + " -d " + fishText(option.description) + "\n";
    }
    if (command->arguments.empty()) continue;
    const OptionHelp& argument = command->arguments.front();
    if (argument.value == Value::file) script += line + " -F\n";
    if (argument.value == Value::printer) script += line + fishValue(argument) + "\n";
  }
  return script;
}

}  // namespace

std::string completionScript(const std::string& shell, const CommandHelp& program) {
  if (shell == "bash") return bashScript(program);
  if (shell == "zsh") return zshScript(program);
  return shell == "fish" ? fishScript(program) : "";
}

}  // namespace paperway::command
