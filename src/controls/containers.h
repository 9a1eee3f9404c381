#pragma once

#include <deque>
#include <string>
#include <vector>

#include "controls/control.h"

namespace paperway {

/// Holds other controls. With a border it shows its caption on it; a panel also covers what lies
/// below it.
class Frame : public Control {
 public:
  Frame(Form& owner, std::string itsName, std::string caption = "",
        Control* itsContainer = nullptr);

  bool Border = true;
  bool Panel = false;  // stands over the other controls, with a surface of its own
};

/// A picture by its role; the renderer draws it.
class PictureBox : public Control {
 public:
  enum class Picture { none, calculator };

  PictureBox(Form& owner, std::string itsName, Picture itsPicture = Picture::none,
             Control* itsContainer = nullptr);

  Picture picture;
};

/// Not on show: runs onTimer every Interval milliseconds while it is enabled and the form is
/// loaded. An Interval of 0 stops it.
class Timer : public Control {
 public:
  Timer(Form& owner, std::string itsName, int interval);

  int Interval;
  std::function<void()> onTimer;

  void tick();
};

class MenuItem;

/// A menu that Form::PopupMenu puts up.
class Menu : public Control {
 public:
  Menu(Form& owner, std::string itsName);

  std::vector<MenuItem*> items;
};

/// A caption of "-" is a dividing line.
class MenuItem : public Control {
 public:
  MenuItem(Menu& menu, std::string itsName, std::string caption);

  bool Checked = false;
  bool divider() const { return Caption == "-"; }
};

/// Controls of one name told apart by an index: "Op(0)", "Op(1)", …
template <typename C>
class ControlArray {
 public:
  /// One control for each caption, counted from `first`.
  ControlArray(Form& owner, const std::string& itsName, const std::vector<std::string>& captions,
               Control* itsContainer = nullptr, int first = 0)
      : first_(first) {
    for (const std::string& caption : captions) {
      controls_.emplace_back(owner, itsName + "(" + std::to_string(UBound() + 1) + ")", caption,
                             itsContainer);
    }
  }

  C& operator[](int index) { return controls_.at(static_cast<std::size_t>(index - first_)); }
  const C& operator[](int index) const {
    return controls_.at(static_cast<std::size_t>(index - first_));
  }
  int LBound() const { return first_; }
  int UBound() const { return first_ + static_cast<int>(controls_.size()) - 1; }

  auto begin() { return controls_.begin(); }
  auto end() { return controls_.end(); }

 private:
  int first_;
  std::deque<C> controls_;
};

}  // namespace paperway
