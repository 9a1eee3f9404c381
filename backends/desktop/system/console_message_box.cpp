#include "backends/desktop/system/console_message_box.h"

#include <iostream>
#include <string>
#include <unistd.h>

namespace paperway::desktop {
namespace {

std::istream* terminalUser() {
  return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0 ? &std::cin : nullptr;
}

void writeWithPlainLineEnds(std::ostream& out, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    out << text[i];
  }
}

}  // namespace

ConsoleMessageBox::ConsoleMessageBox(Answer fixed)
    : ConsoleMessageBox(std::cerr, terminalUser(), fixed) {}

MessageBoxes::Answer ConsoleMessageBox::show(std::string_view text, std::string_view title,
                                             Buttons buttons, Icon /*icon*/) {
  if (!title.empty()) out_ << title << ": ";
  writeWithPlainLineEnds(out_, text);
  if (buttons == Buttons::yesNo) return ask();
  out_ << std::endl;
  return Answer::ok;
}

MessageBoxes::Answer ConsoleMessageBox::ask() {
  if (user_ == nullptr) {
    out_ << (fixed_ == Answer::yes ? " [yes]" : " [no]") << std::endl;
    return fixed_;
  }
  std::string line;
  do {
    out_ << " [y/n] " << std::flush;
    if (!std::getline(*user_, line)) return Answer::no;
  } while (line != "y" && line != "Y" && line != "n" && line != "N");
  return line == "y" || line == "Y" ? Answer::yes : Answer::no;
}

}  // namespace paperway::desktop
