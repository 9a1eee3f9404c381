#include "backends/headless/user.h"

#include <stdexcept>

#include "controls/boxes.h"
#include "controls/rich_text.h"
#include "util/text.h"

namespace paperway::headless {
namespace {

[[noreturn]] void outOfReach(std::string_view name) {
  throw std::logic_error("\"" + std::string(name) + "\" is out of the user's reach");
}

void edit(Property<std::string>& text, int key) {
  if (key == keyBack) {
    if (!text->empty())
      text = std::string(leftCharacters(text.get(), characterCount(text.get()) - 1));
  } else if (key >= ' ') {
    std::string longer = text;
    appendCharacter(longer, static_cast<char32_t>(key));
    text = longer;
  }
}

void edit(RichTextBox& box, int key) {
  std::string typed;
  if (key == keyBack) box.eraseBackward();
  if (key == keyReturn) typed = "\n";
  if (key >= ' ') appendCharacter(typed, static_cast<char32_t>(key));
  if (!typed.empty()) box.typeText(typed);
}

}  // namespace

Control& User::reach(std::string_view name) {
  Control& control = form_.at(name);
  if (!control.reachable()) outOfReach(name);
  return control;
}

void User::click(std::string_view name, int button, int shift) {
  Control& control = reach(name);
  if (control.takesFocus() && !form_.moveFocus(&control)) return;
  const MouseEvent event{button, shift, control.Width / 2, control.Height / 2};
  control.mouseDown(event);
  if (button == mbLeft || control.kind == ControlKind::spLebal) control.click();
  control.mouseUp(event);
}

void User::doubleClick(std::string_view name) {
  click(name);
  reach(name).doubleClick();
}

void User::moveMouseOver(std::string_view name) {
  reach(name).mouseMove({});
}

void User::moveMouseOverForm() {
  form_.Form_MouseMove({});
}

void User::focus(std::string_view name) {
  if (!focusMoves(name)) throw std::logic_error("the focus does not move to " + std::string(name));
}

bool User::focusMoves(std::string_view name) {
  return form_.moveFocus(&reach(name));
}

void User::type(std::string_view name, std::string_view text) {
  focus(name);
  for (std::size_t i = 0; i < text.size();) typeCharacter(reach(name), nextCharacter(text, i));
}

void User::typeCharacter(Control& control, char32_t character) {
  int key = static_cast<int>(character);
  int keyCode = static_cast<int>(upperCase(character));
  control.keyDown(keyCode);
  if (keyCode != 0) control.keyPress(key);
  if (control.kind == ControlKind::textBox && !static_cast<TextBox&>(control).Locked) {
    edit(static_cast<TextBox&>(control).Text, key);
  } else if (control.kind == ControlKind::comboBox) {
    edit(static_cast<ComboBox&>(control).Text, key);
  } else if (control.kind == ControlKind::richText) {
    edit(static_cast<RichTextBox&>(control), key);
  }
  control.keyUp(keyCode);
}

void User::press(std::string_view name, int keyCode, int shift) {
  focus(name);
  Control& control = reach(name);
  control.keyDown(keyCode, shift);
  if (control.kind == ControlKind::richText) {
    static_cast<RichTextBox&>(control).handleKey(keyCode, shift);
  }
  control.keyUp(keyCode, shift);
}

void User::alt(char32_t character) {
  if (!form_.pressAccessKey(character)) throw std::logic_error("no control has this access key");
}

void User::choose(std::string_view name, std::string_view entry) {
  ComboBox& box = dynamic_cast<ComboBox&>(reach(name));
  form_.moveFocus(&box);
  for (int i = 0; i < box.ListCount(); ++i) {
    if (box.List(i) != entry) continue;
    box.ListIndex = i;
    return;
  }
  throw std::logic_error("no entry \"" + std::string(entry) + "\" in " + std::string(name));
}

void User::scroll(std::string_view name, int value) {
  dynamic_cast<ScrollBar&>(reach(name)).scrollTo(value);
}

void User::chooseFromMenu(std::string_view name) {
  const auto request = form_.takePopup();
  if (!request) throw std::logic_error("no menu is up");
  for (MenuItem* item : request->menu->items) {
    if (item->name == name && item->reachable()) {
      item->click();
      return;
    }
  }
  outOfReach(name);
}

void User::tick(std::string_view name) {
  form_.get<Timer>(name).tick();
}

void User::resize(int width, int height) {
  form_.resize(width, height);
}

void User::close() {
  form_.unload();
}

}  // namespace paperway::headless
