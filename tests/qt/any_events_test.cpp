// Any events in any order, on a report of any bytes: nothing breaks, and the widgets show what the
// models say.

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <random>

#include "facade/run_state.h"
#include "preview/frm_report.h"
#include "qt_desk.h"
#include "util/output_file.h"

namespace paperway {
namespace {

constexpr int kEvents = 1000;

class AnyEvents : public testing::TestWithParam<unsigned> {
 protected:
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  /// Bytes with many marks, line ends and form feeds.
  std::string anyReport() {
    static constexpr const char* kParts[] = {"\x0F",
                                             "\x12",
                                             "\x1B"
                                             "E",
                                             "\x1B"
                                             "F",
                                             "\r\n",
                                             "\f",
                                             "\x1B"
                                             "W",
                                             "some text",
                                             "\t",
                                             "\n"};
    std::string bytes;
    for (int i = below(3000); i > 0; --i) {
      if (below(3) == 0) {
        bytes += static_cast<char>(below(256));
      } else {
        bytes += kParts[below(static_cast<int>(std::size(kParts)))];
      }
    }
    return bytes;
  }

  void open() {
    RunState& state = runState();
    state = RunState();
    state.ModRCont = state.ModREdit = state.ModRSearch = state.ModRImport = 1;
    state.ModRExport = state.ModRColor = state.ModRPrint = 1;
    state.ModPath1 = (desk_.folder.path / "any.prn").string();
    replaceFile(state.ModPath1, anyReport(), "test");
    form_ = std::make_shared<FrmReport>(desk_.platform());
    form_->load();
    desk_.windows.show(form_);
    window_ = desk_.windows.window(*form_);
  }

  Qt::KeyboardModifiers anyModifiers() {
    static constexpr Qt::KeyboardModifiers::Int kAny[] = {
        0, 0, 0, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return Qt::KeyboardModifiers::fromInt(kAny[below(6)]);
  }

  void anyKey() {
    static constexpr Qt::Key kKeys[] = {
        Qt::Key_Tab,   Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Space,  Qt::Key_Backspace,
        Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,   Qt::Key_Home,
        Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_A,
        Qt::Key_C,     Qt::Key_V,      Qt::Key_X,        Qt::Key_Z,      Qt::Key_Y,
        Qt::Key_F,     Qt::Key_G,      Qt::Key_N,        Qt::Key_B,      Qt::Key_L,
        Qt::Key_Minus, Qt::Key_Plus,   Qt::Key_Equal,    Qt::Key_1,      Qt::Key_9,
    };
    QWidget* target = QApplication::activePopupWidget();
    if (target == nullptr) target = window_->focusWidget();
    if (target == nullptr) target = window_;
    QTest::keyClick(target, kKeys[below(static_cast<int>(std::size(kKeys)))], anyModifiers());
  }

  void anyMouse() {
    const QPoint place(below(window_->width()), below(window_->height()));
    QWidget* under = window_->childAt(place);
    if (under == nullptr) under = window_;
    const QPoint inside = under->mapFrom(window_, place);
    const Qt::MouseButton button = below(4) == 0 ? Qt::RightButton : Qt::LeftButton;
    switch (below(4)) {
      case 0:
        return QTest::mouseDClick(under, button, anyModifiers(), inside);
      case 1:
        return QTest::mouseMove(under, inside);
      default:
        return QTest::mouseClick(under, button, anyModifiers(), inside);
    }
  }

  void anyWheel() {
    QWidget* target = window_->childAt(window_->width() / 2, window_->height() / 2);
    if (target == nullptr) return;
    QWheelEvent event({5, 5}, target->mapToGlobal(QPointF(5, 5)), {}, {0, (below(7) - 3) * 120},
                      Qt::NoButton, anyModifiers(), Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &event);
  }

  void anyEvent() {
    const int kind = below(100);
    if (kind < 45) return anyKey();
    if (kind < 85) return anyMouse();
    if (kind < 92) return anyWheel();
    if (kind < 95) return window_->resize(600 + below(1200), 300 + below(900));
    if (kind < 97) return window_->act([this] { form_->Timer1.tick(); });
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
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
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  form_->unload();
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyEvents, testing::Range(1U, 9U));

}  // namespace
}  // namespace paperway
