#include "backends/desktop/qt/report_view.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "controls/form.h"

namespace paperway {
namespace {

class ReportViewTest : public testing::Test {
 protected:
  ReportViewTest() {
    view.resize(500, 300);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    view.setFocus();
  }

  void show(const std::string& text) {
    box.Text = text;
    view.sync();
  }
  void hide(std::size_t begin, std::size_t end) { box.format(begin, end, {.size = 1}); }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    view.takeKey(event);
  }
  void wheel(int notches, Qt::KeyboardModifiers modifiers = {}) {
    QWheelEvent event({50, 50},
                      view.mapToGlobal(QPointF(50, 50)),
                      {},
                      {0, notches * 120},
                      Qt::NoButton,
                      modifiers,
                      Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(view.viewport(), &event);
  }
  QPoint inside(std::size_t offset) { return view.pointOf(offset) + QPoint(1, 3); }
  std::string selected() { return box.SelText(); }

  Form form{"Form"};
  RichTextBox box{form, "box"};
  int turned = 0;
  qt::ReportView view{box,
                      [this](const std::function<void()>& handler) {
                        handler();
                        view.sync();
                      },
                      nullptr};
};

std::string lines(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "line " + std::to_string(i) + "\r\n";
  return text;
}

TEST_F(ReportViewTest, LinesAreAsHighAsTheirGreatestCharacters) {
  show("big\r\nsmall\r\nsmall\r\nbase and small\r\nlast");
  box.format(0, 3, {.size = 20});
  box.format(5, 24, {.size = 7});
  view.sync();
  const auto top = [this](std::size_t line) { return view.pointOf(box.lineIndex(line)).y(); };
  const int base = top(4) - top(3);
  EXPECT_GT(top(1) - top(0), base * 3 / 2);
  EXPECT_LT(top(2) - top(1), base);
  EXPECT_EQ(top(3) - top(2), top(2) - top(1));
}

TEST_F(ReportViewTest, PlacesAndOffsetsAgree) {
  show(
      "\x0F"
      "one \x0E"
      "two\x14 three\x12\r\n\tfour\r\n\f");
  hide(0, 1);
  box.format(1, 18, {.size = 7});
  hide(5, 6);
  box.format(6, 9, {.size = 20});
  hide(9, 10);
  hide(16, 17);
  view.sync();
  for (const std::size_t offset : {1u, 2u, 4u, 6u, 7u, 10u, 12u, 15u, 19u, 20u, 23u}) {
    const QPoint point = view.pointOf(offset) + QPoint(1, 3);
    EXPECT_EQ(view.pointOf(view.offsetAt(point)), view.pointOf(offset)) << offset;
  }
  EXPECT_EQ(view.pointOf(1), view.pointOf(0)) << "a hidden mark takes no room";
  EXPECT_EQ(view.pointOf(20).x() % 8, view.pointOf(19).x() % 8) << "a tab ends at a column";
}

TEST_F(ReportViewTest, TheMouseMovesTheCaretAndSelects) {
  show("first words\r\nsecond line\r\n");
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, inside(3));
  EXPECT_EQ(box.caret(), 3u);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, inside(15));
  EXPECT_EQ(selected(), "st words\r\nse");
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, inside(0));
  EXPECT_EQ(box.caret(), 15u) << "Ctrl belongs to the form";
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, inside(16));
  QMouseEvent dragged(QEvent::MouseMove,
                      inside(19),
                      view.mapToGlobal(inside(19)),
                      Qt::NoButton,
                      Qt::LeftButton,
                      {});
  QApplication::sendEvent(view.viewport(), &dragged);
  EXPECT_EQ(selected(), "ond");
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, inside(19));

  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, inside(7));
  EXPECT_EQ(selected(), "words");
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, inside(7));
  EXPECT_EQ(selected(), "first words\r\n") << "a third click takes the line";
}

TEST_F(ReportViewTest, WheelAndKeysScroll) {
  show(lines(200));
  wheel(-2);
  EXPECT_EQ(view.firstLine(), 6u);
  wheel(-1, Qt::ControlModifier);
  EXPECT_EQ(view.firstLine(), 6u);
  press(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(view.firstLine(), 0u) << "the caret, which stood there, comes into sight";
  press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_GT(view.firstLine(), 180u);
  press(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(view.firstLine(), 0u);
  press(Qt::Key_PageDown);
  const std::uint64_t page = view.firstLine();
  EXPECT_GT(page, 10u);
  EXPECT_EQ(box.lineFromChar(box.caret()), page) << "the caret comes along";
  press(Qt::Key_PageUp);
  EXPECT_EQ(view.firstLine(), 0u);
}

TEST_F(ReportViewTest, PageKeysOfAReaderTurnPagesAtTheEnds) {
  box.onTurnPage = [this](bool forward) { turned += forward ? 1 : 100; };
  show(lines(30));
  press(Qt::Key_PageDown);
  EXPECT_EQ(turned, 0);
  box.Locked = true;
  press(Qt::Key_PageDown);
  press(Qt::Key_PageDown);
  EXPECT_GE(turned, 1);
  press(Qt::Key_PageUp, Qt::ShiftModifier);
  show(lines(3));
  turned = 0;
  press(Qt::Key_PageUp);
  EXPECT_EQ(turned, 100);
}

TEST_F(ReportViewTest, ClipboardLeavesOutWhatIsHidden) {
  show(
      "a\x1B"
      "Ebc\r\nd");
  hide(1, 3);
  press(Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "abc\r\nd");
  QApplication::clipboard()->setText(QStringLiteral("x\ny\u20AC"));
  box.Locked = true;
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.buffer().size(), 8u);
  box.Locked = false;
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box.Text, "x\r\ny\x80");
}

TEST_F(ReportViewTest, AnotherPageBeginsAtItsTopAndKeepsItsPlaceSideways) {
  const std::string wide(300, 'x');
  show(lines(100) + wide);
  view.horizontalScrollBar()->setValue(200);
  wheel(-5);
  show(lines(100) + wide);
  EXPECT_EQ(view.firstLine(), 0u);
  EXPECT_EQ(view.horizontalScrollBar()->value(), 200);
}

TEST_F(ReportViewTest, ScreenReadersReadItByLinesAndMoveTheCaret) {
  show("one\r\ncaf\xE9\r\n\f");
  QAccessibleTextInterface* text = QAccessible::queryAccessibleInterface(&view)->textInterface();
  int begin = 0;
  int end = 0;
  EXPECT_EQ(text->textAtOffset(6, QAccessible::LineBoundary, &begin, &end),
            QStringLiteral("caf\u00E9\r\n"));
  EXPECT_EQ(text->textBeforeOffset(begin, QAccessible::WordBoundary, &begin, &end), "one\r\n");
  text->setSelection(0, begin, end - 2);
  EXPECT_EQ(selected(), "one");
}

TEST_F(ReportViewTest, TheFormFeedThatClosesAPageTakesNoRoom) {
  show("one\r\ntwo\r\n");
  view.resize(500, 40);
  const int range = view.verticalScrollBar()->maximum();
  show("one\r\ntwo\r\n\f");
  EXPECT_LT(view.verticalScrollBar()->maximum(), range);
}

TEST_F(ReportViewTest, TextsOfAnyLengthAreDrawn) {
  show(lines(1'000'000));
  press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_GT(view.firstLine(), 999'900u);
  show(std::string(10'000'000, 'y') + "\r\nshort");
  press(Qt::Key_End);
  EXPECT_FALSE(view.grab().isNull());
  show("");
  EXPECT_EQ(view.offsetAt({200, 200}), 0u);
  EXPECT_FALSE(view.grab().isNull());
}

}  // namespace
}  // namespace paperway
