#include "controls/control.h"

#include "controls/containers.h"
#include "controls/form.h"
#include "util/text.h"

namespace paperway {
namespace {

bool actsOnClickOnly(ControlKind kind) {
  return kind == ControlKind::label || kind == ControlKind::picture || kind == ControlKind::spLebal;
}

bool neverTakesFocus(ControlKind kind) {
  return kind == ControlKind::frame || kind == ControlKind::timer || kind == ControlKind::menu ||
         kind == ControlKind::menuItem;
}

}  // namespace

Control::Control(Form& owner, ControlKind itsKind, std::string itsName, Control* itsContainer)
    : form(owner),
      kind(itsKind),
      name(std::move(itsName)),
      container(itsContainer),
      TabIndex(static_cast<int>(owner.controls_.size())) {
  owner.controls_.push_back(this);
}

bool Control::click() {
  if (!reachable()) return false;
  if (onClick) onClick();
  return true;
}

bool Control::doubleClick() {
  if (!reachable()) return false;
  if (onDblClick) onDblClick();
  return true;
}

bool Control::keyPress(int& key) {
  if (!reachable()) return false;
  if (onKeyPress) onKeyPress(key);
  return true;
}

bool Control::keyDown(int& keyCode, int shift) {
  if (!reachable()) return false;
  form.Form_KeyDown(keyCode, shift);
  if (keyCode != 0 && onKeyDown) onKeyDown(keyCode, shift);
  return true;
}

bool Control::keyUp(int& keyCode, int shift) {
  if (!reachable()) return false;
  if (onKeyUp) onKeyUp(keyCode, shift);
  return true;
}

bool Control::mouseDown(const MouseEvent& event) {
  if (!reachable()) return false;
  if (onMouseDown) onMouseDown(event);
  return true;
}

bool Control::mouseMove(const MouseEvent& event) {
  if (!reachable()) return false;
  if (onMouseMove) onMouseMove(event);
  return true;
}

bool Control::mouseUp(const MouseEvent& event) {
  if (!reachable()) return false;
  if (onMouseUp) onMouseUp(event);
  return true;
}

bool Control::SetFocus() {
  return form.moveFocus(this);
}

bool Control::holds(const Control& other) const {
  const Control* outer = other.container;
  while (outer != nullptr && outer != this) outer = outer->container;
  return outer != nullptr;
}

const Control* Control::panel() const {
  const Control* outer = container;
  while (outer != nullptr &&
         (outer->kind != ControlKind::frame || !static_cast<const Frame*>(outer)->Panel)) {
    outer = outer->container;
  }
  return outer;
}

bool Control::shown() const {
  for (const Control* control = this; control != nullptr; control = control->container) {
    if (!control->Visible) return false;
  }
  return true;
}

bool Control::reachable() const {
  for (const Control* control = this; control != nullptr; control = control->container) {
    if (!control->Visible || !control->Enabled) return false;
  }
  if (!form.Enabled) return false;
  const Geometry place = onForm();
  return place.Left < form.Width && place.Top < form.Height && place.right() >= 0 &&
         place.bottom() >= 0;
}

bool Control::takesFocus() const {
  if (!TabStop || neverTakesFocus(kind)) return false;
  return !actsOnClickOnly(kind) || onClick || onDblClick;
}

Geometry Control::onForm() const {
  Geometry place = *this;
  for (const Control* outer = container; outer != nullptr; outer = outer->container) {
    place.Left += outer->Left;
    place.Top += outer->Top;
  }
  return place;
}

std::string Control::accessibleName() const {
  if (!AccessibleName.empty()) return AccessibleName;
  const std::string caption = captionText(Caption);
  const std::string_view text = trimBlanks(caption);
  if (!text.empty()) return std::string(text);
  return ToolTipText.empty() ? name : std::string(trimBlanks(ToolTipText));
}

char32_t Control::accessKey() const {
  return accessKeyOf(Caption);
}

char32_t accessKeyOf(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    ++i;
    if (caption[i] == '&') continue;
    return upperCase(nextCharacter(caption, i));
  }
  return 0;
}

std::string captionText(std::string_view caption) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    text += caption[i];
  }
  return text;
}

}  // namespace paperway
