#pragma once

#include <string>
#include <string_view>

#include "backends/desktop/qt/form_window.h"

class QWidget;

namespace paperway {

/// The acts of headless::User with real keys and a real mouse on the widgets of a window.
class QtUser {
 public:
  explicit QtUser(qt::FormWindow& window);

  void click(std::string_view control, int button = mbLeft, int shift = 0);
  void doubleClick(std::string_view control);
  void type(std::string_view control, std::string_view text);
  void press(std::string_view control, int keyCode, int shift = 0);
  void focus(std::string_view control);
  void alt(char character);
  void choose(std::string_view comboBox, std::string_view entry);
  void scroll(std::string_view scrollBar, int value);
  void chooseFromMenu(std::string_view item);

  /// The widget that mouse and keys go to.
  QWidget& widget(std::string_view control) const;

 private:
  QWidget& mouseTarget(std::string_view control) const;

  qt::FormWindow& window_;
  Form& form_;
};

/// Fails where a widget shows anything but what its model says.
void expectAgreement(const qt::FormWindow& window);

}  // namespace paperway
