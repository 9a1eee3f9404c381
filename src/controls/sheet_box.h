#pragma once

#include <functional>
#include <memory>
#include <string>

#include "controls/control.h"
#include "paperway/platform/sheet.h"

namespace paperway {

/// A sheet of continuous paper, as wide as the control or whole.
class SheetBox : public Control {
 public:
  SheetBox(Form& owner, std::string itsName, Control* itsContainer = nullptr);

  std::shared_ptr<const Sheet> Shown;
  bool Whole = false;

  /// The user went on beyond the end of the sheet, or back beyond its beginning.
  std::function<void(bool forward)> onTurn;
};

}  // namespace paperway
