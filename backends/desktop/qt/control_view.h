#pragma once

#include <QColor>
#include <QWidget>
#include <memory>
#include <optional>

#include "controls/control.h"

class QKeyEvent;

namespace paperway::qt {

class FormWindow;

/// The widget of one control. The widget belongs to the widget that it lies on.
class ControlView {
 public:
  ControlView(FormWindow& window, Control& control, QWidget* widget);
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  FormWindow& window;
  Control& control;
  QWidget& widget;

  /// Copies to the widget what changed in the control since the last call.
  void sync();
  /// The desktop's colours or fonts changed: the next sync copies everything.
  void forgetLook() { look_.reset(); }

  /// The widget has no click of its own: releasing a mouse button on it, or Enter, is one.
  virtual bool clickIsRelease(int button) const;
  virtual bool clickIsEnter() const { return false; }
  /// A key that the form's handlers let through, perhaps as another character. True: nothing is
  /// left for the widget to do.
  virtual bool takeKey(QKeyEvent& /*event*/, char32_t /*before*/, char32_t /*after*/) {
    return false;
  }
  /// Where the form's menu appears that is asked for by key; none where the widget has its own.
  virtual std::optional<QPoint> menuPoint() { return {}; }

 protected:
  /// The part of the widget that the mouse is over, and its pointer there.
  virtual QWidget& pointed() { return widget; }
  virtual Qt::CursorShape usualPointer() const { return Qt::ArrowCursor; }
  virtual void syncContent() {}
  virtual void syncColors();
  virtual void place(const QRect& rect);
  /// What lies behind the control's text.
  QColor surface() const;
  QColor textColor() const;

 private:
  struct Look {
    Color backColor;
    Color foreColor;
    FontSpec font;
    bool enabled;
    QColor surface;

    bool operator==(const Look&) const = default;
  };

  void syncLook();
  void syncReach();

  std::unique_ptr<Look> look_;
  std::string toolTip_;
  int mousePointer_ = mpDefault;
};

/// Null for kinds that have no widget.
std::unique_ptr<ControlView> makeView(FormWindow& window, Control& control, QWidget* parent);

}  // namespace paperway::qt
