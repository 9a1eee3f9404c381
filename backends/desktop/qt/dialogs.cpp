#include "backends/desktop/qt/dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

#include "backends/desktop/qt/convert.h"

namespace paperway::qt {
namespace {

namespace fs = std::filesystem;

/// "Text (*.txt *.prn)": Qt reads the patterns from between the brackets, so none may stand in the
/// description itself.
QString nameFilter(const FileQuestion::Filter& filter) {
  QStringList patterns;
  for (const std::string& pattern : filter.patterns) patterns << text(pattern);
  const QString description = text(filter.description);
  return description.section('(', 0, 0).trimmed() + " (" + patterns.join(' ') + ')';
}

/// "txt" of "*.txt"; empty when the pattern names no extension.
QString extension(const FileQuestion::Filter& filter) {
  for (const std::string& pattern : filter.patterns) {
    if (pattern.size() > 2 && pattern.compare(0, 2, "*.") == 0 &&
        pattern.find_first_of("*?", 2) == std::string::npos) {
      return text(std::string_view(pattern).substr(2));
    }
  }
  return {};
}

void begin(QFileDialog& dialog, const FileQuestion& question) {
  if (!question.title.empty()) dialog.setWindowTitle(text(question.title));
  QStringList filters;
  for (const FileQuestion::Filter& filter : question.filters) filters << nameFilter(filter);
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  if (question.start.empty()) return;
  const QString start = QFile::decodeName(question.start.c_str());
  if (QFileInfo(start).isDir()) {
    dialog.setDirectory(start);
  } else {
    dialog.setDirectory(QFileInfo(start).absolutePath());
    dialog.selectFile(QFileInfo(start).fileName());
  }
}

std::optional<fs::path> chosen(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return fs::path(QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString());
}

}  // namespace

std::optional<fs::path> Dialogs::openFile(const FileQuestion& question) {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setFileMode(QFileDialog::ExistingFile);
  begin(dialog, question);
  return chosen(dialog);
}

std::optional<fs::path> Dialogs::saveFile(const FileQuestion& question) {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  begin(dialog, question);
  const auto followFilter = [&](const QString& selected) {
    const qsizetype index = dialog.nameFilters().indexOf(selected);
    if (index >= 0) {
      dialog.setDefaultSuffix(extension(question.filters[static_cast<std::size_t>(index)]));
    }
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, followFilter);
  if (!question.filters.empty()) followFilter(dialog.nameFilters().constFirst());
  return chosen(dialog);
}

std::optional<std::uint32_t> Dialogs::color(std::uint32_t start) {
  const QColor chosen = QColorDialog::getColor(qt::color(start, QApplication::palette()),
                                               QApplication::activeWindow());
  if (!chosen.isValid()) return std::nullopt;
  return colorValue(chosen);
}

}  // namespace paperway::qt
