#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/appearance.h"
#include "controls/input_events.h"

namespace paperway {

class Form;

enum class ControlKind {
  button,
  checkBox,
  optionButton,
  textBox,
  comboBox,
  label,
  scrollBar,
  frame,
  picture,
  timer,
  menu,
  menuItem,
  richText,
  spLebal,
  webBrowser,
  sheet,
};

/// What stands on a form: plain values that a renderer copies to its widgets after each event, and
/// the handlers that it calls. A control belongs to the form for the form's whole life. Texts are
/// UTF-8.
class Control : public Geometry {
 public:
  /// `container` is a frame (or picture) of the same form; none means the form itself. Left and Top
  /// count from it.
  Control(Form& owner, ControlKind itsKind, std::string itsName, Control* itsContainer);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& form;
  const ControlKind kind;
  const std::string name;  // as published: "CmdFst", "Op(2)"
  Control* const container;

  std::string Caption;  // "&" marks the access key, "&&" stands for "&"
  bool Enabled = true;
  bool Visible = true;
  Color BackColor = kButtonFace;
  Color ForeColor = kButtonText;
  FontSpec Font;
  std::string Tag;
  std::string ToolTipText;
  int MousePointer = mpDefault;
  int TabIndex = 0;  // the order of construction unless set
  bool TabStop = true;
  std::string AccessibleName;  // when the caption does not say it

  std::function<void()> onClick;
  std::function<void()> onDblClick;
  std::function<void()> onChange;
  /// The handler may change the key; 0 takes it away. Key presses are characters (code points,
  /// 8 backspace, 13 Enter), key codes those of KeyCode.
  std::function<void(int& key)> onKeyPress;
  std::function<void(int& keyCode, int shift)> onKeyDown;
  std::function<void(int& keyCode, int shift)> onKeyUp;
  std::function<void(const MouseEvent&)> onMouseDown;
  std::function<void(const MouseEvent&)> onMouseMove;
  std::function<void(const MouseEvent&)> onMouseUp;
  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;
  /// Runs before the focus leaves; cancel keeps it here.
  std::function<void(bool& cancel)> onValidate;

  /// What the user does. Each does nothing, and returns false, when the control is out of reach.
  virtual bool click();
  bool doubleClick();
  bool keyPress(int& key);
  bool keyDown(int& keyCode, int shift = 0);
  bool keyUp(int& keyCode, int shift = 0);
  bool mouseDown(const MouseEvent& event);
  bool mouseMove(const MouseEvent& event);
  bool mouseUp(const MouseEvent& event);

  /// Moves the focus here, as the user would.
  bool SetFocus();

  /// The other one stands in it, directly or in a container of it.
  bool holds(const Control& other) const;
  /// The panel in which it stands; null when it stands in none.
  const Control* panel() const;
  /// Visible, with every container of it.
  bool shown() const;
  /// Shown, enabled with every container and the form, and on the form's surface.
  bool reachable() const;
  /// The keyboard can come to it: a tab stop of a kind that takes keys or that acts on a click.
  bool takesFocus() const;
  /// Left and Top counted from the form's surface.
  Geometry onForm() const;

  std::string accessibleName() const;
  char32_t accessKey() const;
};

/// The character behind a caption's "&" in upper case, 0 when there is none, and the caption as it
/// is read, without the marks.
char32_t accessKeyOf(std::string_view caption);
std::string captionText(std::string_view caption);

}  // namespace paperway
