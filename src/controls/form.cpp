#include "controls/form.h"

#include <algorithm>

#include "controls/buttons.h"
#include "paperway/automation_error.h"
#include "paperway/platform/windows.h"
#include "util/text.h"

namespace paperway {
namespace {

bool onlyLabels(const Control& control) {
  return control.kind == ControlKind::label && !control.onClick;
}

}  // namespace

Form::Form(std::string itsName) : name(std::move(itsName)) {}

void Form::load() {
  if (loaded_) return;
  Form_Load();
  loaded_ = true;
}

void Form::activate() {
  if (loaded_) Form_Activate();
}

void Form::resize(int width, int height) {
  Width = width;
  Height = height;
  if (loaded_) Form_Resize();
}

void Form::unload() {
  if (!loaded_) return;
  loaded_ = false;
  Form_Unload();
}

Control* Form::find(std::string_view controlName) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return control->name == controlName;
  });
  return found == controls_.end() ? nullptr : *found;
}

Control& Form::at(std::string_view controlName) const {
  if (Control* control = find(controlName)) return *control;
  throw AutomationError(AutomationError::kItemNotFound, name,
                        "There is no control \"" + std::string(controlName) + "\" on " + name);
}

bool Form::moveFocus(Control* to) {
  if (to == activeControl_) return true;
  if (to != nullptr && (!to->reachable() || !to->takesFocus())) return false;
  if (Control* from = activeControl_) {
    bool cancel = false;
    if (from->onValidate && from->reachable()) from->onValidate(cancel);
    if (cancel) return false;
    activeControl_ = to;
    if (from->onLostFocus) from->onLostFocus();
  }
  activeControl_ = to;
  if (to != nullptr && to->onGotFocus) to->onGotFocus();
  return true;
}

std::vector<Control*> Form::tabOrder() const {
  std::vector<Control*> order;
  std::copy_if(controls_.begin(), controls_.end(), std::back_inserter(order),
               [](const Control* c) { return c->reachable() && c->takesFocus(); });
  std::stable_sort(order.begin(), order.end(),
                   [](const Control* a, const Control* b) { return a->TabIndex < b->TabIndex; });
  return order;
}

/// Of several, those beside the focus come first, then those behind it.
Control* Form::accessKeyTarget(char32_t character) const {
  const char32_t wanted = upperCase(character);
  const Control* beside = activeControl_ == nullptr ? nullptr : activeControl_->container;
  Control* target = nullptr;
  int closest = -1;
  for (Control* control : controls_) {
    if (control->kind == ControlKind::menuItem || control->accessKey() != wanted) continue;
    if (!control->reachable()) continue;
    if (onlyLabels(*control) && labelled(*control) == activeControl_) continue;
    const bool behind = activeControl_ != nullptr && control->TabIndex > activeControl_->TabIndex;
    const int closeness = (control->container == beside ? 2 : 0) + (behind ? 1 : 0);
    if (closeness <= closest) continue;
    closest = closeness;
    target = control;
  }
  return target;
}

bool Form::pressAccessKey(char32_t character) {
  Control* target = accessKeyTarget(character);
  if (target == nullptr) return false;
  if (onlyLabels(*target)) {
    Control* box = labelled(*target);
    return box != nullptr && moveFocus(box);
  }
  press(*target);
  return true;
}

/// The control that a label stands before.
Control* Form::labelled(const Control& label) const {
  for (Control* next : tabOrder()) {
    if (next->TabIndex > label.TabIndex) return next;
  }
  return nullptr;
}

void Form::press(Control& target) {
  if (!target.takesFocus() || moveFocus(&target)) target.click();
}

bool Form::pressDefault() {
  const Control* panel = activeControl_ == nullptr ? nullptr : activeControl_->panel();
  if (panel == nullptr) return false;
  for (Control* control : controls_) {
    if (control->kind != ControlKind::button || control->panel() != panel) continue;
    if (!static_cast<JeweledButton*>(control)->Default || !control->reachable()) continue;
    press(*control);
    return true;
  }
  return false;
}

void Form::PopupMenu(Menu& menu, int x, int y) {
  popup_ = PopupRequest{&menu, x, y};
}

std::optional<Form::PopupRequest> Form::takePopup() {
  const std::optional<PopupRequest> request = popup_;
  popup_.reset();
  return request;
}

void centreOnScreen(Geometry& window, const ScreenSize& screen) {
  window.Left = (screen.Width - window.Width) / 2;
  window.Top = (screen.Height - 800 - window.Height) / 2;
}

}  // namespace paperway
