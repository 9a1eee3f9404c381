#include "backends/desktop/qt/shell.h"

#include <QProcess>
#include <QStandardPaths>

#include "backends/desktop/qt/convert.h"
#include "paperway/automation_error.h"

namespace paperway::qt {

void Shell::start(const std::vector<std::string>& command) {
  if (command.empty()) {
    throw AutomationError(AutomationError::kInvalidCall, "Shell", "There is no program to start.");
  }
  QStringList arguments;
  for (std::size_t i = 1; i < command.size(); ++i) arguments << text(command[i]);
  if (!QProcess::startDetached(text(command.front()), arguments)) {
    throw AutomationError(AutomationError::kFileNotFound, "Shell",
                          "The program \"" + command.front() + "\" cannot be started.");
  }
}

std::optional<std::vector<std::string>> Shell::calculator() {
  for (const char* program : {"gnome-calculator", "kcalc", "mate-calc", "galculator",
                              "deepin-calculator", "qalculate-gtk", "qalculate-qt", "xcalc"}) {
    if (!QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty()) {
      return std::vector<std::string>{program};
    }
  }
  return std::nullopt;
}

}  // namespace paperway::qt
