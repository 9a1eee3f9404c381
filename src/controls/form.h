#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/appearance.h"
#include "controls/containers.h"

namespace paperway {

/// A window as data: its controls are members of the class derived from it, its handlers plain
/// member functions that the controls' hooks call. A renderer shows it: a user's act goes to the
/// control (`click`, `keyPress`, …) or to one of the functions below, and afterwards the renderer
/// copies what changed from here to its widgets. An AutomationError that leaves a handler is the
/// renderer's to tell the user. Geometry is in twips; Width and Height are the inner surface.
class Form : public Geometry, public std::enable_shared_from_this<Form> {
 public:
  explicit Form(std::string itsName);
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string name;
  std::string Caption;
  std::string Tag;
  bool Enabled = true;
  Color BackColor = kButtonFace;
  FontSpec Font;
  int MousePointer = mpDefault;
  bool Sizable = true;
  int MinWidth = 0;
  int MinHeight = 0;

  // The handlers of the window itself.
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Resize() {}
  virtual void Form_Unload() {}
  virtual void Form_MouseMove(const MouseEvent&) {}
  /// Keys go here before they go to the control with the focus; 0 takes them away.
  virtual void Form_KeyDown(int& /*keyCode*/, int /*shift*/) {}

  /// Runs Form_Load, once. An error of it leaves the form unloaded and goes to the caller.
  void load();
  /// The window came to the front.
  void activate();
  /// The window has another size.
  void resize(int width, int height);
  /// Runs Form_Unload, once, and makes the form one that a renderer closes. Both the user's closing
  /// of the window and the program's.
  void unload();
  bool loaded() const { return loaded_; }

  /// In the order of construction, which is also the order of drawing.
  const std::vector<Control*>& controls() const { return controls_; }
  Control* find(std::string_view controlName) const;
  /// The named control; an error that names it when it is not of this form or another kind.
  template <typename C>
  C& get(std::string_view controlName) const {
    return dynamic_cast<C&>(at(controlName));
  }
  Control& at(std::string_view controlName) const;

  /// A click on a control by its name, as the user would; false when it is out of reach.
  bool click(std::string_view controlName) { return at(controlName).click(); }

  /// The control with the focus. moveFocus asks the leaving control's onValidate first and returns
  /// false when that keeps the focus.
  Control* activeControl() const { return activeControl_; }
  bool moveFocus(Control* to);
  /// The controls that Tab visits, in order.
  std::vector<Control*> tabOrder() const;

  /// Enter where the control with the focus has no use for it: presses the default button of the
  /// panel. False when there is none.
  bool pressDefault();

  /// Alt and a character: presses the button, ticks the box, selects the option, or moves the focus
  /// behind the label, unless it is there. Where several have the character, those beside the focus
  /// come first, then those behind it.
  bool pressAccessKey(char32_t character);

  /// Puts a menu up at a place of the form once the handler that asks for it has ended.
  void PopupMenu(Menu& menu, int x, int y);
  struct PopupRequest {
    Menu* menu;
    int x;
    int y;
  };
  /// For the renderer: the menu asked for since the last call.
  std::optional<PopupRequest> takePopup();

 private:
  friend class Control;
  Control* accessKeyTarget(char32_t character) const;
  Control* labelled(const Control& label) const;
  void press(Control& target);

  std::vector<Control*> controls_;
  Control* activeControl_ = nullptr;
  std::optional<PopupRequest> popup_;
  bool loaded_ = false;
};

struct ScreenSize;

/// In the middle of the screen, 400 twips above the true centre.
void centreOnScreen(Geometry& window, const ScreenSize& screen);

}  // namespace paperway
