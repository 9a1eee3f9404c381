#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "backends/desktop/browser_widget.h"
#include "backends/desktop/qt/form_window.h"
#include "backends/desktop/qt/views.h"
#include "controls/web_browser.h"

namespace paperway::qt {
namespace {

/// A surface on which the page's own widget lies.
class BrowserSurface : public QWidget {
 public:
  using QWidget::QWidget;

  QPointer<QWidget> keyTarget;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool toWindow =
        event->type() == QEvent::Wheel &&
        (static_cast<QWheelEvent*>(event)->modifiers() & Qt::ControlModifier) != 0;
    if (!toWindow) return QWidget::eventFilter(watched, event);
    event->ignore();
    QCoreApplication::sendEvent(parentWidget(), event);
    return true;
  }
};

class BrowserView : public ControlView {
 public:
  BrowserView(FormWindow& itsWindow, WebBrowser& browser, QWidget* parent)
      : ControlView(itsWindow, browser, new BrowserSurface(parent)),
        surface_(static_cast<BrowserSurface&>(widget)),
        page_(dynamic_cast<desktop::BrowserWidget*>(&browser.page())) {
    if (page_ == nullptr) return;
    auto* layout = new QVBoxLayout(&surface_);
    layout->setContentsMargins({});
    layout->addWidget(&page_->widget());
    surface_.setFocusProxy(&page_->widget());
    page_->tellWithin(
        [&itsWindow](const std::function<void()>& handler) { itsWindow.act(handler); });
  }

  /// Keys of other controls that move through the page.
  bool takeKey(QKeyEvent& event, char32_t, char32_t) override {
    QWidget* target = surface_.keyTarget;
    if (passesOn_ || target == nullptr || target->hasFocus()) return false;
    QKeyEvent copy(event.type(), event.key(), event.modifiers(), event.text());
    passesOn_ = true;
    QCoreApplication::sendEvent(target, &copy);
    passesOn_ = false;
    return true;
  }

 protected:
  void syncContent() override {
    if (page_ == nullptr || page_->keyTarget() == surface_.keyTarget) return;
    surface_.keyTarget = page_->keyTarget();
    if (surface_.keyTarget == nullptr) return;
    surface_.keyTarget->installEventFilter(&surface_);
    window.watch(*surface_.keyTarget, *this);
  }

 private:
  BrowserSurface& surface_;
  desktop::BrowserWidget* page_;
  bool passesOn_ = false;  // a key is on its way to the page
};

}  // namespace

std::unique_ptr<ControlView> makeBrowserView(FormWindow& window, Control& control,
                                             QWidget* parent) {
  return std::make_unique<BrowserView>(window, static_cast<WebBrowser&>(control), parent);
}

}  // namespace paperway::qt
