#include "apps/paperway/acts.h"

#include <stdexcept>

#include "controls/boxes.h"
#include "controls/form.h"
#include "report/layout.h"

namespace paperway::command {
namespace {

constexpr std::int16_t kNameWidth = 20;  // of what --do takes, in the list of it

enum class Act { none, click, type };

/// What --do can do with a control.
Act actOn(const Control& control) {
  switch (control.kind) {
    case ControlKind::textBox:
      return control.onDblClick ? Act::none : Act::type;  // not into a box of colour
    case ControlKind::button:
    case ControlKind::checkBox:
    case ControlKind::optionButton:
    case ControlKind::label:
    case ControlKind::spLebal:
    case ControlKind::picture:
      return control.onClick ? Act::click : Act::none;
    default:
      return Act::none;
  }
}

}  // namespace

CLI::Option* addActs(CLI::App& command, std::vector<std::string>& acts) {
  return command
      .add_option("--do", acts,
                  "Before the picture, click a control of the window by its name (Command2), or "
                  "type into one (Text4=total); may be given again. The names are below")
      ->type_name("ACT")
      ->expected(1)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void perform(Form& form, const std::string& act) {
  const std::size_t equals = act.find('=');
  Control& control = form.at(act.substr(0, equals));
  const Act wanted = equals == std::string::npos ? Act::click : Act::type;
  if (actOn(control) != wanted) {
    throw std::runtime_error(control.name + (wanted == Act::click ? " is nothing to click."
                                                                  : " is nothing to type into."));
  }
  if (wanted == Act::click) {
    form.moveFocus(&control);
    if (!control.click()) throw std::runtime_error(control.name + " cannot be clicked now.");
    return;
  }
  TextBox& box = form.get<TextBox>(control.name);
  if (!form.moveFocus(&box)) throw std::runtime_error(box.name + " cannot be typed into now.");
  box.Text = act.substr(equals + 1);
  int key = keyReturn;
  box.keyPress(key);
}

std::string controlsToActOn(const Form& form) {
  std::string lines;
  for (const Control* control : form.controls()) {
    const Act act = actOn(*control);
    if (act == Act::none) continue;
    const std::string name = control->name + (act == Act::type ? "=TEXT" : "");
    lines += "  " + TxtL(name, kNameWidth) + control->accessibleName() + "\n";
  }
  return lines;
}

}  // namespace paperway::command
