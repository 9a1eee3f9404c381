#include <QGraphicsDropShadowEffect>
#include <QGroupBox>
#include <QPainter>
#include <QPainterPath>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/views.h"
#include "controls/containers.h"

namespace paperway::qt {
namespace {

/// A sheet over the other controls with its caption as a heading.
class PanelWidget : public QWidget {
 public:
  explicit PanelWidget(QWidget* parent) : QWidget(parent) {
    auto* shadow = new QGraphicsDropShadowEffect(this);
    shadow->setBlurRadius(24);
    shadow->setOffset(0, 4);
    shadow->setColor(QColor(0, 0, 0, 110));
    setGraphicsEffect(shadow);
  }

  QString title;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(palette().color(QPalette::Window));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    if (title.isEmpty()) return;
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(16, 9, width() - 32, 20), Qt::AlignLeft | Qt::AlignVCenter, title);
  }
  // What the panel does not use must not reach the controls below it.
  void mousePressEvent(QMouseEvent*) override {}
  void mouseReleaseEvent(QMouseEvent*) override {}
};

class FrameView : public ControlView {
 public:
  FrameView(FormWindow& itsWindow, Frame& frame, QWidget* itsWidget)
      : ControlView(itsWindow, frame, itsWidget) {}
  bool clickIsRelease(int) const override { return bool(control.onClick); }
};

class PanelView : public FrameView {
 public:
  PanelView(FormWindow& itsWindow, Frame& frame, QWidget* parent)
      : FrameView(itsWindow, frame, new PanelWidget(parent)) {}

 protected:
  void syncContent() override {
    auto& panel = static_cast<PanelWidget&>(widget);
    const QString title = text(captionText(control.Caption)).trimmed();
    if (panel.title == title) return;
    panel.title = title;
    panel.update();
  }
  void syncColors() override {
    FrameView::syncColors();
    widget.setAutoFillBackground(false);
  }
};

class GroupView : public FrameView {
 public:
  GroupView(FormWindow& itsWindow, Frame& frame, QWidget* parent)
      : FrameView(itsWindow, frame, new QGroupBox(parent)) {}

 protected:
  void syncContent() override {
    auto& group = static_cast<QGroupBox&>(widget);
    const QString title = caption(control.Caption);
    if (group.title() != title) group.setTitle(title);
  }
};

}  // namespace

std::unique_ptr<ControlView> makeFrameView(FormWindow& window, Control& control, QWidget* parent) {
  auto& frame = static_cast<Frame&>(control);
  if (frame.Panel) return std::make_unique<PanelView>(window, frame, parent);
  if (frame.Border) return std::make_unique<GroupView>(window, frame, parent);
  return std::make_unique<FrameView>(window, frame, new QWidget(parent));
}

}  // namespace paperway::qt
