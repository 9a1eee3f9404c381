#pragma once

#include "controls/control.h"
#include "controls/property.h"

namespace paperway {

/// The graphical button of all forms. The Default one of a panel is pressed by Enter in it.
class JeweledButton : public Control {
 public:
  JeweledButton(Form& owner, std::string itsName, std::string caption,
                Control* itsContainer = nullptr);

  bool Default = false;
};

/// Ticked is 1, clear is 0. A change of Value, by whomever, runs onClick; but boxes of one
/// container that set one another in their handlers do not run in a circle: while the handler of
/// one runs, its neighbours change without running theirs.
class CheckBox : public Control {
 public:
  CheckBox(Form& owner, std::string itsName, std::string caption, Control* itsContainer = nullptr);

  Property<int> Value;

  bool click() override;

 private:
  void valueChanged();
  bool neighbourRuns() const;
  bool running_ = false;
};

/// One of the options of its container. Setting Value selects it, clears the others quietly and
/// runs onClick; an option already selected stays as it is.
class OptionButton : public Control {
 public:
  OptionButton(Form& owner, std::string itsName, std::string caption,
               Control* itsContainer = nullptr);

  Property<bool> Value;

  bool click() override;

 private:
  void valueChanged();
};

}  // namespace paperway
