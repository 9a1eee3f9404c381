#include <QCheckBox>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/views.h"
#include "controls/buttons.h"
#include "controls/containers.h"

namespace paperway::qt {
namespace {

/// A widget that Qt counts among the buttons: it turns releases and keys into clicks itself.
class ButtonView : public ControlView {
 public:
  ButtonView(FormWindow& itsWindow, Control& itsControl, QAbstractButton* button)
      : ControlView(itsWindow, itsControl, button), button_(*button) {
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [this] { window.act([this] { control.click(); }); });
  }

  bool clickIsRelease(int) const override { return false; }
  bool clickIsEnter() const override { return true; }

 protected:
  void syncContent() override {
    const QString shown = caption(control.Caption);
    if (button_.text() == shown) return;
    button_.setText(shown);
    button_.setShortcut({});  // the form finds the control of an access key
  }

  QAbstractButton& button_;
};

/// Boxes and options: Qt has toggled the widget by itself, the control says what it is now.
template <typename C, typename Widget>
class ToggleView : public ButtonView {
 public:
  ToggleView(FormWindow& itsWindow, C& itsControl, QWidget* parent)
      : ButtonView(itsWindow, itsControl, new Widget(parent)), toggle_(itsControl) {
    button_.setAutoExclusive(false);
  }

  bool clickIsEnter() const override { return false; }

 protected:
  void syncContent() override {
    ButtonView::syncContent();
    const bool on = toggle_.Value != decltype(toggle_.Value.get())(0);
    if (button_.isChecked() != on) button_.setChecked(on);
  }

 private:
  C& toggle_;
};

QIcon calculatorIcon(const QPalette& palette) {
  QIcon icon;
  for (const int scale : {1, 2, 3}) {
    constexpr int kSize = 20;
    QPixmap picture(kSize * scale, kSize * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette.color(QPalette::ButtonText);
    painter.setPen(QPen(ink, 1.4));
    painter.drawRoundedRect(QRectF(3.7, 1.7, 12.6, 16.6), 2, 2);
    painter.drawRect(QRectF(6.5, 4.5, 7, 3));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (int row = 0; row < 3; ++row) {
      for (int column = 0; column < 3; ++column) {
        painter.drawRect(QRectF(6 + column * 3.0, 10 + row * 2.6, 1.8, 1.6));
      }
    }
    icon.addPixmap(picture);
  }
  return icon;
}

class PictureView : public ButtonView {
 public:
  PictureView(FormWindow& itsWindow, PictureBox& picture, QWidget* parent)
      : ButtonView(itsWindow, picture, new QToolButton(parent)) {
    auto& tool = static_cast<QToolButton&>(button_);
    tool.setAutoRaise(true);
    tool.setIconSize(QSize(20, 20));
  }

 protected:
  void syncContent() override {}
  void syncColors() override {
    if (static_cast<PictureBox&>(control).picture == PictureBox::Picture::calculator) {
      button_.setIcon(calculatorIcon(widget.palette()));
    }
  }
};

}  // namespace

std::unique_ptr<ControlView> makeButtonView(FormWindow& window, Control& control, QWidget* parent) {
  switch (control.kind) {
    case ControlKind::checkBox:
      return std::make_unique<ToggleView<CheckBox, QCheckBox>>(
          window, static_cast<CheckBox&>(control), parent);
    case ControlKind::optionButton:
      return std::make_unique<ToggleView<OptionButton, QRadioButton>>(
          window, static_cast<OptionButton&>(control), parent);
    case ControlKind::picture:
      return std::make_unique<PictureView>(window, static_cast<PictureBox&>(control), parent);
    default:
      return std::make_unique<ButtonView>(window, control, new QPushButton(parent));
  }
}

}  // namespace paperway::qt
