#include "controls/containers.h"

#include "controls/form.h"

namespace paperway {

Frame::Frame(Form& owner, std::string itsName, std::string caption, Control* itsContainer)
    : Control(owner, ControlKind::frame, std::move(itsName), itsContainer) {
  Caption = std::move(caption);
}

PictureBox::PictureBox(Form& owner, std::string itsName, Picture itsPicture, Control* itsContainer)
    : Control(owner, ControlKind::picture, std::move(itsName), itsContainer), picture(itsPicture) {}

Timer::Timer(Form& owner, std::string itsName, int interval)
    : Control(owner, ControlKind::timer, std::move(itsName), nullptr), Interval(interval) {
  Visible = false;
}

void Timer::tick() {
  if (Enabled && Interval > 0 && form.loaded() && onTimer) onTimer();
}

Menu::Menu(Form& owner, std::string itsName)
    : Control(owner, ControlKind::menu, std::move(itsName), nullptr) {}

MenuItem::MenuItem(Menu& menu, std::string itsName, std::string caption)
    : Control(menu.form, ControlKind::menuItem, std::move(itsName), &menu) {
  Caption = std::move(caption);
  menu.items.push_back(this);
}

}  // namespace paperway
