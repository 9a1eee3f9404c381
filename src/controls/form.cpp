#include "controls/form.h"

#include <algorithm>

#include "paperway/automation_error.h"
#include "paperway/platform/windows.h"
#include "util/text.h"

namespace paperway {

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
  int nearest = -1;
  for (Control* control : controls_) {
    if (control->kind == ControlKind::menuItem || control->accessKey() != wanted) continue;
    if (!control->reachable()) continue;
    const bool behind = activeControl_ != nullptr && control->TabIndex > activeControl_->TabIndex;
    const int near = (control->container == beside ? 2 : 0) + (behind ? 1 : 0);
    if (near <= nearest) continue;
    nearest = near;
    target = control;
  }
  return target;
}

bool Form::pressAccessKey(char32_t character) {
  Control* target = accessKeyTarget(character);
  if (target == nullptr) return false;
  if (target->kind == ControlKind::label && !target->onClick) {
    for (Control* next : tabOrder()) {
      if (next->TabIndex > target->TabIndex) return moveFocus(next);
    }
    return false;
  }
  if (target->takesFocus() && !moveFocus(target)) return true;
  target->click();
  return true;
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
