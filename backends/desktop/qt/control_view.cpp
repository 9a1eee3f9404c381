#include "backends/desktop/qt/control_view.h"

#include <QApplication>
#include <QCursor>
#include <QPainter>
#include <QPixmap>

#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/views.h"

namespace paperway::qt {
namespace {

/// A magnifying glass.
QCursor zoomCursor() {
  constexpr int kSize = 24;
  const qreal ratio = qApp->devicePixelRatio();
  QPixmap picture(QSize(kSize, kSize) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [color, width] : {std::pair(Qt::white, 4.5), std::pair(Qt::black, 2.0)}) {
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(QPointF(9, 9), 6, 6);
    painter.drawLine(QPointF(13.5, 13.5), QPointF(20, 20));
  }
  return QCursor(picture, 9, 9);
}

void setPointer(QWidget& widget, int pointer, Qt::CursorShape usual) {
  if (pointer == mpHourglass) {
    widget.setCursor(Qt::WaitCursor);
  } else if (pointer == mpCustom) {
    widget.setCursor(zoomCursor());
  } else {
    widget.setCursor(usual);
  }
}

}  // namespace

ControlView::ControlView(FormWindow& itsWindow, Control& itsControl, QWidget* itsWidget)
    : window(itsWindow), control(itsControl), widget(*itsWidget) {
  widget.setObjectName(text(control.name));
  widget.setVisible(false);
  widget.setMouseTracking(widget.hasMouseTracking() || control.onMouseMove);
  window.watch(widget, *this);
}

void ControlView::sync() {
  place(pixels(control));
  syncLook();
  syncContent();
  syncReach();
}

void ControlView::place(const QRect& rect) {
  if (widget.geometry() != rect) widget.setGeometry(rect);
}

void ControlView::syncLook() {
  const Look now{control.BackColor, control.ForeColor, control.Font, control.Enabled, surface()};
  if (look_ == nullptr || *look_ != now) {
    look_ = std::make_unique<Look>(now);
    widget.setFont(font(control.Font, QApplication::font(&widget)));
    syncColors();
  }
  if (toolTip_ != control.ToolTipText) {
    toolTip_ = control.ToolTipText;
    widget.setToolTip(caption(toolTip_));
  }
  if (mousePointer_ != control.MousePointer) {
    mousePointer_ = control.MousePointer;
    setPointer(pointed(), mousePointer_, usualPointer());
  }
}

void ControlView::syncReach() {
  if (widget.isEnabledTo(widget.parentWidget()) != control.Enabled) {
    widget.setEnabled(control.Enabled);
  }
  const Qt::FocusPolicy policy = control.takesFocus() ? Qt::StrongFocus : Qt::NoFocus;
  if (widget.focusPolicy() != policy) widget.setFocusPolicy(policy);
  const QString name = text(control.accessibleName());
  if (widget.accessibleName() != name) widget.setAccessibleName(name);
  if (widget.isVisibleTo(widget.parentWidget()) != control.Visible) {
    widget.setVisible(control.Visible);
  }
}

QColor ControlView::surface() const {
  for (const Control* at = &control; at != nullptr; at = at->container) {
    if (!isSystemColor(at->BackColor)) return color(at->BackColor, QApplication::palette());
  }
  return color(window.form().BackColor, QApplication::palette());
}

QColor ControlView::textColor() const {
  const QPalette palette = QApplication::palette();
  if (isSystemColor(control.ForeColor)) {
    const auto group = control.Enabled ? QPalette::Active : QPalette::Disabled;
    return readable(palette.color(group, QPalette::WindowText), surface());
  }
  return readable(color(control.ForeColor, palette), surface());
}

void ControlView::syncColors() {
  QPalette palette;
  const bool ownText = !isSystemColor(control.ForeColor);
  const bool ownBack = !isSystemColor(control.BackColor);
  if (ownText || ownBack) palette.setColor(QPalette::WindowText, textColor());
  if (ownBack) palette.setColor(QPalette::Window, surface());
  widget.setPalette(palette);
  widget.setAutoFillBackground(ownBack);
}

bool ControlView::clickIsRelease(int button) const {
  return button == mbLeft;
}

std::unique_ptr<ControlView> makeView(FormWindow& window, Control& control, QWidget* parent) {
  switch (control.kind) {
    case ControlKind::button:
    case ControlKind::checkBox:
    case ControlKind::optionButton:
    case ControlKind::picture:
      return makeButtonView(window, control, parent);
    case ControlKind::textBox:
    case ControlKind::comboBox:
    case ControlKind::scrollBar:
      return makeBoxView(window, control, parent);
    case ControlKind::label:
    case ControlKind::spLebal:
      return makeLabelView(window, control, parent);
    case ControlKind::frame:
      return makeFrameView(window, control, parent);
    case ControlKind::richText:
      return makeReportView(window, control, parent);
    case ControlKind::webBrowser:
      return makeBrowserView(window, control, parent);
    case ControlKind::sheet:
      return makeSheetView(window, control, parent);
    case ControlKind::timer:
    case ControlKind::menu:
    case ControlKind::menuItem:
      return nullptr;
  }
  return nullptr;
}

}  // namespace paperway::qt
