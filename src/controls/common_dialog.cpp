#include "controls/common_dialog.h"

#include "paperway/platform/dialogs.h"
#include "util/text.h"

namespace paperway {
namespace {

std::vector<std::string> split(std::string_view text, char divider) {
  std::vector<std::string> parts;
  for (std::size_t begin = 0;;) {
    const std::size_t end = text.find(divider, begin);
    parts.emplace_back(trimBlanks(text.substr(begin, end - begin)));
    if (end == std::string_view::npos) return parts;
    begin = end + 1;
  }
}

FileQuestion questionOf(const CommonDialog& dialog) {
  FileQuestion question;
  question.title = dialog.DialogTitle;
  question.start = dialog.FileName;
  const std::vector<std::string> parts = split(dialog.Filter, '|');
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    question.filters.push_back({parts[i], split(parts[i + 1], ';')});
  }
  return question;
}

}  // namespace

void CommonDialog::ShowOpen() {
  if (const auto chosen = dialogs_.openFile(questionOf(*this))) FileName = *chosen;
}

void CommonDialog::ShowSave() {
  if (const auto chosen = dialogs_.saveFile(questionOf(*this))) FileName = *chosen;
}

void CommonDialog::ShowColor() {
  if (const auto chosen = dialogs_.color(Color)) Color = *chosen;
}

}  // namespace paperway
