#include "backends/desktop/qt/shell.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/shell_quote.h"
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

std::filesystem::path Shell::scriptName(std::string_view stem) {
  return std::string(stem) + ".sh";
}

std::string Shell::scriptText(std::string_view purpose, std::string_view line) {
  return "#!/bin/sh\n# " + std::string(purpose) + "\n" + std::string(line) + "\n";
}

std::string Shell::copyLine(const std::filesystem::path& file,
                            const std::filesystem::path& device) {
  return "cat " + shellQuoted(file.string()) + " > " + shellQuoted(device.string());
}

void Shell::startScript(const std::filesystem::path& script) {
  if (QFileInfo(text(script.string())).isExecutable()) {
    start({script.string()});
  } else {
    start({"/bin/sh", script.string()});
  }
}

}  // namespace paperway::qt
