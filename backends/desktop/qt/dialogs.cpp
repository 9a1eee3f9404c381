#include "backends/desktop/qt/dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "backends/desktop/qt/convert.h"

namespace paperway::qt {
namespace {

using Purpose = FileQuestion::Purpose;

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

QFileDialog::FileMode fileMode(const FileQuestion& question) {
  const bool several = question.multiple && question.purpose == Purpose::read;
  return several ? QFileDialog::ExistingFiles : QFileDialog::AnyFile;
}

void beginAt(QFileDialog& dialog, const QString& start) {
  if (QFileInfo(start).isDir()) {
    dialog.setDirectory(start);
  } else {
    dialog.setDirectory(QFileInfo(start).absolutePath());
    dialog.selectFile(QFileInfo(start).fileName());
  }
}

/// One question on the screen, and what its filters and names mean.
class AskedDialog {
 public:
  explicit AskedDialog(const FileQuestion& question);

  FileAnswer ask();

 private:
  void followFilter(qsizetype index);
  void setExtension(const QString& extension);
  QString completed(const QString& file) const;
  QString objection(const QFileInfo& file) const;

  const FileQuestion& question_;
  QFileDialog dialog_;
  QString extension_;  // for a name without one
  qsizetype filter_ = 0;
};

QWidget* ownerOf(const FileQuestion& question) {
  QWidget* owner = question.owner == 0 ? nullptr : QWidget::find(question.owner);
  return owner == nullptr ? QApplication::activeWindow() : owner;
}

AskedDialog::AskedDialog(const FileQuestion& question)
    : question_(question), dialog_(ownerOf(question)) {
  const bool writes = question.purpose == Purpose::write;
  dialog_.setAcceptMode(writes ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog_.setFileMode(fileMode(question));
  dialog_.setOption(QFileDialog::DontConfirmOverwrite, !question.confirmReplace);
  if (!question.title.empty()) dialog_.setWindowTitle(text(question.title));
  QStringList filters;
  for (const FileQuestion::Filter& filter : question.filters) filters << nameFilter(filter);
  if (!filters.isEmpty()) dialog_.setNameFilters(filters);
  if (!question.start.empty()) beginAt(dialog_, QFile::decodeName(question.start.c_str()));
  QObject::connect(&dialog_, &QFileDialog::filterSelected, &dialog_, [this](const QString& chosen) {
    followFilter(dialog_.nameFilters().indexOf(chosen));
  });
  const auto first = static_cast<qsizetype>(question.filter);
  if (first < filters.size()) {
    dialog_.selectNameFilter(filters[first]);
    followFilter(first);
  }
  const std::string given = question.extension.value_or("");
  if (!given.empty()) setExtension(text(given));
}

void AskedDialog::followFilter(qsizetype index) {
  if (index < 0) return;
  filter_ = index;
  const QString named = extension(question_.filters[static_cast<std::size_t>(index)]);
  if (question_.extension && (question_.extension->empty() || !named.isEmpty())) {
    setExtension(named);
  }
}

/// A dialog adds the extension itself before it asks whether to replace a file, but to the name of
/// a file that is there, too.
void AskedDialog::setExtension(const QString& extension) {
  extension_ = extension;
  if (question_.purpose == Purpose::write) dialog_.setDefaultSuffix(extension);
}

QString AskedDialog::completed(const QString& file) const {
  const QFileInfo info(file);
  const bool open = question_.purpose == Purpose::read && !extension_.isEmpty();
  if (!open || info.exists() || info.fileName().contains('.')) return file;
  return file + '.' + extension_;
}

/// Why the question does not want this file; empty when it does.
QString AskedDialog::objection(const QFileInfo& file) const {
  const QString folder = file.absolutePath();
  if ((question_.folderMustExist || question_.fileMustExist) && !QFileInfo(folder).isDir()) {
    return "There is no folder \"" + folder + "\".";
  }
  if (question_.fileMustExist && question_.purpose == Purpose::read && !file.exists()) {
    return "There is no file \"" + file.fileName() + "\" in \"" + folder + "\".";
  }
  return {};
}

FileAnswer AskedDialog::ask() {
  while (dialog_.exec() == QDialog::Accepted) {
    FileAnswer answer;
    answer.filter = static_cast<std::size_t>(filter_);
    QString refused;
    for (const QString& selected : dialog_.selectedFiles()) {
      const QString file = completed(selected);
      if (refused.isEmpty()) refused = objection(QFileInfo(file));
      answer.files.emplace_back(QFile::encodeName(file).toStdString());
    }
    if (refused.isEmpty()) return answer;
    QMessageBox::warning(dialog_.parentWidget(), dialog_.windowTitle(), refused);
  }
  return {};
}

}  // namespace

FileAnswer Dialogs::askForFiles(const FileQuestion& question) {
  return AskedDialog(question).ask();
}

std::optional<std::uint32_t> Dialogs::color(std::uint32_t start) {
  const QColor chosen = QColorDialog::getColor(qt::color(start, QApplication::palette()),
                                               QApplication::activeWindow());
  if (!chosen.isValid()) return std::nullopt;
  return colorValue(chosen);
}

}  // namespace paperway::qt
