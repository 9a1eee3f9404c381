#include "controls/boxes.h"

#include <algorithm>

namespace paperway {

TextBox::TextBox(Form& owner, std::string itsName, std::string text, Control* itsContainer)
    : Control(owner, ControlKind::textBox, std::move(itsName), itsContainer),
      Text(std::move(text)) {
  BackColor = kWindowBackground;
  ForeColor = kWindowText;
  Text.changed = [this] {
    if (onChange) onChange();
  };
}

ComboBox::ComboBox(Form& owner, std::string itsName, std::vector<std::string> list,
                   Control* itsContainer)
    : Control(owner, ControlKind::comboBox, std::move(itsName), itsContainer),
      ListIndex(-1),
      list_(std::move(list)) {
  BackColor = kWindowBackground;
  ForeColor = kWindowText;
  Text.changed = [this] { textChanged(); };
  ListIndex.changed = [this] { indexChanged(); };
}

std::string ComboBox::List(int index) const {
  return index >= 0 && index < ListCount() ? list_[static_cast<std::size_t>(index)] : "";
}

void ComboBox::AddItem(std::string entry) {
  list_.push_back(std::move(entry));
  if (ListIndex < 0) ListIndex.setQuietly(indexOf(Text));
}

void ComboBox::Clear() {
  list_.clear();
  ListIndex.setQuietly(-1);
  Text.setQuietly("");
}

void ComboBox::textChanged() {
  ListIndex.setQuietly(indexOf(Text));
  if (onChange) onChange();
}

void ComboBox::indexChanged() {
  if (ListIndex < 0 || ListIndex >= ListCount()) {
    ListIndex.setQuietly(-1);
    Text.setQuietly("");
    return;
  }
  Text.setQuietly(List(ListIndex));
  if (onClick) onClick();
}

int ComboBox::indexOf(const std::string& text) const {
  const auto found = std::find(list_.begin(), list_.end(), text);
  return found == list_.end() ? -1 : static_cast<int>(found - list_.begin());
}

Label::Label(Form& owner, std::string itsName, std::string caption, Control* itsContainer)
    : Control(owner, ControlKind::label, std::move(itsName), itsContainer) {
  Caption = std::move(caption);
}

ScrollBar::ScrollBar(Form& owner, std::string itsName, Control* itsContainer)
    : Control(owner, ControlKind::scrollBar, std::move(itsName), itsContainer), Value(0) {
  Value.changed = [this] {
    Value.setQuietly(std::clamp(Value.get(), std::min(Min, Max), std::max(Min, Max)));
    if (Value == last_) return;
    last_ = Value;
    if (onChange) onChange();
  };
}

bool ScrollBar::scrollTo(int value) {
  if (!reachable()) return false;
  Value = value;
  return true;
}

}  // namespace paperway
