#pragma once

#include <filesystem>
#include <string>

#include "controls/appearance.h"

namespace paperway {

class Dialogs;

/// The file and colour dialog of a form. A cancelled dialog leaves FileName and Color as they were.
class CommonDialog {
 public:
  explicit CommonDialog(Dialogs& dialogs) : dialogs_(dialogs) {}

  std::string Filter;  // "Text (*.txt)|*.txt|…": pairs of description and pattern
  std::string DialogTitle;
  std::filesystem::path FileName;
  paperway::Color Color = 0;

  void ShowOpen();
  /// False when it was cancelled.
  bool ShowSave();
  void ShowColor();

 private:
  Dialogs& dialogs_;
};

}  // namespace paperway
