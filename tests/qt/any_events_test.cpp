// Any events in any order, on a report of any bytes: nothing breaks, and the widgets show what the
// models say.

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

#include "qt_desk.h"
#include "support/report_window.h"

namespace paperway {
namespace {

constexpr int kEvents = 1000;

class AnyEvents : public testing::TestWithParam<unsigned> {
 protected:
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  /// Bytes with many marks, line ends and form feeds.
  std::string anyReport() {
    static constexpr std::string_view kOften = "\017\022\033\033\033\033EFW\r\n\r\n\f\f some text";
    std::string bytes;
    for (int i = below(6000); i > 0; --i) {
      bytes += below(9) == 0 ? static_cast<char>(below(256)) : kOften[random_() % kOften.size()];
    }
    return bytes;
  }

  void open() {
    startRun();
    form_ = openReportWindow(desk_.platform(), anyReport());
    window_ = desk_.windows.window(*form_);
  }

  Qt::KeyboardModifiers anyModifiers() {
    static constexpr Qt::KeyboardModifiers::Int kAny[] = {
        0, 0, 0, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return Qt::KeyboardModifiers::fromInt(kAny[below(6)]);
  }

  void anyKey() {
    QWidget* target = QApplication::activePopupWidget();
    if (target == nullptr) target = window_->focusWidget();
    if (target == nullptr) target = window_;
    // A character, or a key of the blocks from Escape to Delete and from Home to Page Down.
    const int key = below(2) == 0 ? Qt::Key_Space + below(Qt::Key_Z - Qt::Key_Space + 1)
                                  : Qt::Key_Escape + below(8) + 16 * below(2);
    QTest::keyClick(target, static_cast<Qt::Key>(key), anyModifiers());
  }

  void anyMouse() {
    const QPoint place(below(window_->width()), below(window_->height()));
    QWidget* under = window_->childAt(place);
    if (under == nullptr) under = window_;
    const QPoint inside = under->mapFrom(window_, place);
    const Qt::MouseButton button = below(4) == 0 ? Qt::RightButton : Qt::LeftButton;
    const int act = below(4);
    if (act == 0) return QTest::mouseDClick(under, button, anyModifiers(), inside);
    if (act == 1) return QTest::mouseMove(under, inside);
    QTest::mouseClick(under, button, anyModifiers(), inside);
  }

  void anyWheel() {
    QWidget* target = window_->childAt(window_->width() / 2, window_->height() / 2);
    if (target == nullptr) return;
    QWheelEvent event({5, 5},
                      target->mapToGlobal(QPointF(5, 5)),
                      {},
                      {0, (below(7) - 3) * 120},
                      Qt::NoButton,
                      anyModifiers(),
                      Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(target, &event);
  }

  void closePopups() {
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  }

  void anyEvent() {
    const int kind = below(100);
    if (kind < 45) return anyKey();
    if (kind < 85) return anyMouse();
    if (kind < 92) return anyWheel();
    if (kind < 95) return window_->resize(600 + below(1200), 300 + below(900));
    if (kind < 97) return window_->act([this] { form_->Timer1.tick(); });
    closePopups();
    QApplication::processEvents();
  }

  QtDesk desk_;
  std::mt19937 random_{GetParam()};
  std::shared_ptr<FrmReport> form_;
  qt::FormWindow* window_ = nullptr;
};

TEST_P(AnyEvents, LeaveModelAndViewInAgreement) {
  open();
  for (int i = 0; i < kEvents; ++i) {
    anyEvent();
    if (!form_->loaded()) open();
    if (i % 20 != 0) continue;
    window_->grab();
    expectAgreement(*window_);
    ASSERT_FALSE(HasFailure()) << "after event " << i;
  }
  closePopups();
  form_->unload();
}

/// PAPERWAY_EVENT_SEEDS: how many, for longer walks by hand.
unsigned seeds() {
  const char* text = std::getenv("PAPERWAY_EVENT_SEEDS");
  return text == nullptr ? 3 : static_cast<unsigned>(std::atoi(text));
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyEvents, testing::Range(1U, seeds() + 1));

}  // namespace
}  // namespace paperway
