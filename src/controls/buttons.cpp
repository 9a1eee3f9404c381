#include "controls/buttons.h"

#include "controls/form.h"

namespace paperway {

JeweledButton::JeweledButton(Form& owner, std::string itsName, std::string caption,
                             Control* itsContainer)
    : Control(owner, ControlKind::button, std::move(itsName), itsContainer) {
  Caption = std::move(caption);
}

CheckBox::CheckBox(Form& owner, std::string itsName, std::string caption, Control* itsContainer)
    : Control(owner, ControlKind::checkBox, std::move(itsName), itsContainer) {
  Caption = std::move(caption);
  Value.changed = [this] { valueChanged(); };
}

bool CheckBox::click() {
  if (!reachable()) return false;
  Value = Value == 0 ? 1 : 0;
  return true;
}

void CheckBox::valueChanged() {
  if (!onClick || neighbourRuns()) return;
  struct Running {
    bool& flag;
    explicit Running(bool& f) : flag(f) { flag = true; }
    ~Running() { flag = false; }
  } running(running_);
  onClick();
}

bool CheckBox::neighbourRuns() const {
  for (const Control* control : form.controls()) {
    if (control->kind != ControlKind::checkBox || control->container != container) continue;
    if (static_cast<const CheckBox*>(control)->running_) return true;
  }
  return false;
}

OptionButton::OptionButton(Form& owner, std::string itsName, std::string caption,
                           Control* itsContainer)
    : Control(owner, ControlKind::optionButton, std::move(itsName), itsContainer) {
  Caption = std::move(caption);
  Value.changed = [this] { valueChanged(); };
}

bool OptionButton::click() {
  if (!reachable()) return false;
  Value = true;
  return true;
}

void OptionButton::valueChanged() {
  if (!Value) return;
  for (Control* control : form.controls()) {
    if (control == this || control->kind != ControlKind::optionButton) continue;
    if (control->container == container) {
      static_cast<OptionButton*>(control)->Value.setQuietly(false);
    }
  }
  if (onClick) onClick();
}

}  // namespace paperway
