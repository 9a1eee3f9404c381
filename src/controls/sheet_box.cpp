#include "controls/sheet_box.h"

namespace paperway {

SheetBox::SheetBox(Form& owner, std::string itsName, Control* itsContainer)
    : Control(owner, ControlKind::sheet, std::move(itsName), itsContainer) {}

}  // namespace paperway
