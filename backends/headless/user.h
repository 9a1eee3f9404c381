#pragma once

#include <string>
#include <string_view>

#include "controls/form.h"

namespace paperway::headless {

/// A person at a form without a screen: acts on controls by their names through the same doors that
/// a renderer uses. An act on a control that a person could not reach is a std::logic_error.
class User {
 public:
  explicit User(Form& form) : form_(form) {}

  void click(std::string_view control, int button = mbLeft, int shift = 0);
  void doubleClick(std::string_view control);
  void moveMouseOver(std::string_view control);
  void moveMouseOverForm();

  /// Types characters into a control, "\r" for Enter and "\b" for backspace.
  void type(std::string_view control, std::string_view text);
  void press(std::string_view control, int keyCode, int shift = 0);
  void focus(std::string_view control);
  bool focusMoves(std::string_view control);
  void alt(char32_t character);

  void choose(std::string_view comboBox, std::string_view entry);
  void scroll(std::string_view scrollBar, int value);
  /// Chooses an item of the menu that popped up.
  void chooseFromMenu(std::string_view item);

  void tick(std::string_view timer);
  void resize(int width, int height);
  void close();

 private:
  Control& reach(std::string_view name);
  void typeCharacter(Control& control, char32_t character);
  Form& form_;
};

}  // namespace paperway::headless
