#include "controls/common_dialog.h"

#include "controls/filter_text.h"
#include "paperway/platform/dialogs.h"

namespace paperway {
namespace {

FileQuestion questionOf(const CommonDialog& dialog) {
  FileQuestion question;
  question.title = dialog.DialogTitle;
  question.start = dialog.FileName;
  question.filters = filtersOf(dialog.Filter, '|');
  return question;
}

}  // namespace

void CommonDialog::ShowOpen() {
  if (const auto chosen = dialogs_.openFile(questionOf(*this))) FileName = *chosen;
}

bool CommonDialog::ShowSave() {
  const auto chosen = dialogs_.saveFile(questionOf(*this));
  if (chosen) FileName = *chosen;
  return chosen.has_value();
}

void CommonDialog::ShowColor() {
  if (const auto chosen = dialogs_.color(Color)) Color = *chosen;
}

}  // namespace paperway
