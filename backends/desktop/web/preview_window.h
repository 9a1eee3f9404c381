#pragma once

#include <functional>
#include <string>

class QWidget;

namespace paperway::web {

struct PreviewCommands {
  std::function<void()> print;
  std::function<void()> savePdf;
};

/// Opens a window with pictures of the pages of a PDF document, and goes on. Failures of the
/// commands are told there. The window goes with its parent.
void showPreview(QWidget* parent, const std::string& title, const std::string& pdf,
                 PreviewCommands commands);

}  // namespace paperway::web
