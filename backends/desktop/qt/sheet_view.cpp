#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/sheet_painter.h"
#include "backends/desktop/qt/views.h"
#include "controls/sheet_box.h"

namespace paperway::qt {
namespace {

constexpr int kDesk = 12;  // pixels around the sheet
constexpr int kStep = 48;

/// Draws the sheet, and scrolls over it; beyond its ends are its neighbours.
class SheetArea : public QAbstractScrollArea {
 public:
  SheetArea(SheetBox& box, FormWindow& window, QWidget* parent)
      : QAbstractScrollArea(parent), box_(box), window_(window) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(kStep);
  }

  void sync() {
    if (shown_ == box_.Shown && whole_ == box_.Whole) return;
    const bool other = shown_ != box_.Shown;
    const bool back = other && shown_ && box_.Shown && box_.Shown->number < shown_->number;
    shown_ = box_.Shown;
    whole_ = box_.Whole;
    updateBar();
    if (other)
      verticalScrollBar()->setValue(back && fromBelow_ ? verticalScrollBar()->maximum() : 0);
    fromBelow_ = false;
    viewport()->update();
  }

  bool takeKey(const QKeyEvent& event) {
    if (event.modifiers() != Qt::NoModifier && event.modifiers() != Qt::KeypadModifier &&
        !(event.key() == Qt::Key_Space && event.modifiers() == Qt::ShiftModifier)) {
      return false;
    }
    const int page = std::max(kStep, viewport()->height() - kStep);
    switch (event.key()) {
      case Qt::Key_Space:
        scroll(event.modifiers() == Qt::ShiftModifier ? -page : page);
        return true;
      case Qt::Key_PageDown:
        scroll(page);
        return true;
      case Qt::Key_PageUp:
        scroll(-page);
        return true;
      case Qt::Key_Down:
        scroll(kStep);
        return true;
      case Qt::Key_Up:
        scroll(-kStep);
        return true;
      default:
        return false;
    }
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Mid));
    if (!shown_) return;
    const double scale = dotsPerInch();
    const double left = (viewport()->width() - shown_->width * scale) / 2;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.translate(left, kDesk - verticalScrollBar()->value());
    painter_.paint(painter, *shown_, scale);
  }

  void resizeEvent(QResizeEvent*) override { updateBar(); }
  void wheelEvent(QWheelEvent* event) override {
    event->accept();
    scroll(-event->angleDelta().y() * kStep / 40);
  }

 private:
  double dotsPerInch() const {
    const double width = (viewport()->width() - 2 * kDesk) / shown_->width;
    const double height = (viewport()->height() - 2 * kDesk) / shown_->height;
    return std::max(8.0, whole_ ? std::min(width, height) : width);
  }

  void updateBar() {
    if (!shown_) return;
    const int height = qRound(shown_->height * dotsPerInch()) + 2 * kDesk;
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
  }

  void scroll(int distance) {
    QScrollBar* const bar = verticalScrollBar();
    const bool atEnd = bar->value() == (distance > 0 ? bar->maximum() : bar->minimum());
    if (!atEnd) return bar->setValue(bar->value() + distance);
    if (!box_.onTurn || distance == 0) return;
    fromBelow_ = distance < 0;
    window_.act([&] { box_.onTurn(distance > 0); });
  }

  SheetBox& box_;
  FormWindow& window_;
  SheetPainter painter_;
  std::shared_ptr<const Sheet> shown_;
  bool whole_ = false;
  bool fromBelow_ = false;  // the reader turns back from the top of the sheet behind
};

class SheetView : public ControlView {
 public:
  SheetView(FormWindow& itsWindow, SheetBox& box, QWidget* parent)
      : ControlView(itsWindow, box, new SheetArea(box, itsWindow, parent)),
        area_(static_cast<SheetArea&>(widget)) {
    window.watch(*area_.viewport(), *this);
  }

  bool takeKey(QKeyEvent& event, char32_t before, char32_t after) override {
    return after == before && area_.takeKey(event);
  }

 protected:
  QWidget& pointed() override { return *area_.viewport(); }
  void syncContent() override { area_.sync(); }

 private:
  SheetArea& area_;
};

}  // namespace

std::unique_ptr<ControlView> makeSheetView(FormWindow& window, Control& control, QWidget* parent) {
  return std::make_unique<SheetView>(window, static_cast<SheetBox&>(control), parent);
}

}  // namespace paperway::qt
