// What can be told of a window's looks without an eye: captions fit their controls, and controls
// stand beside one another. Run at the scale of QT_SCALE_FACTOR.

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <functional>
#include <gtest/gtest.h>

#include "backends/desktop/qt/application.h"
#include "backends/desktop/qt/control_view.h"
#include "backends/desktop/qt/convert.h"
#include "backends/desktop/qt/report_view.h"
#include "excel/report_export.h"
#include "paperway/class1.h"
#include "qt_desk.h"
#include "sticker/frm0010_sticker.h"
#include "support/report_window.h"

namespace paperway {
namespace {

constexpr int kButtonPadding = 6;  // at each side of a caption

QSize neededFor(const Control& control, const QWidget& widget) {
  const QFontMetrics metrics(widget.font());
  const QString shown = qt::caption(captionText(control.Caption));
  const QSize text(metrics.horizontalAdvance(shown), metrics.height());
  switch (control.kind) {
    case ControlKind::button:
      return text + QSize(2 * kButtonPadding, 4);
    case ControlKind::checkBox:
    case ControlKind::optionButton:
      return {widget.sizeHint().width(), text.height()};
    case ControlKind::textBox:
    case ControlKind::comboBox:
      return {0, text.height() + 4};
    case ControlKind::label:
    case ControlKind::spLebal:
      return text;
    default:
      return {0, 0};
  }
}

bool covers(const Control& control) {
  return control.kind == ControlKind::frame && static_cast<const Frame&>(control).Panel;
}

void expectTidy(const qt::FormWindow& window) {
  std::vector<const Control*> shown;
  for (const Control* control : window.form().controls()) {
    if (window.view(*control) != nullptr && control->shown()) shown.push_back(control);
  }
  for (const Control* control : shown) {
    SCOPED_TRACE(control->name);
    EXPECT_FALSE(control->accessibleName().empty());
    const QWidget& widget = window.view(*control)->widget;
    const QSize needed = neededFor(*control, widget);
    EXPECT_GE(widget.width(), needed.width()) << "caption cut off";
    EXPECT_GE(widget.height(), needed.height()) << "caption cut off";
    EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << "beyond its frame";
    const auto* group = qobject_cast<const QGroupBox*>(widget.parentWidget());
    if (group != nullptr && !group->title().isEmpty()) {
      EXPECT_GE(widget.y(), QFontMetrics(group->font()).height()) << "over the frame's caption";
    }
    for (const Control* other : shown) {
      if (other == control || covers(*control) || covers(*other)) continue;
      const QWidget& beside = window.view(*other)->widget;
      if (beside.parentWidget() != widget.parentWidget()) continue;
      EXPECT_FALSE(beside.geometry().intersects(widget.geometry())) << "over " << other->name;
    }
  }
}

class Looks : public testing::Test {
 protected:
  Looks() {
    startRun();
    form = makeReportWindow(desk.platform(), std::string(12, '\f'));
    form->JeweledButton1.onClick = form->CmdPrint.onClick = form->Label8.onClick =
        form->Label10.onClick = [] {};  // as if all that it offers were there
    form->load();
    desk.windows.show(form);
  }
  ~Looks() override { form->unload(); }

  void expectTidyAt(int width, int height) {
    qt::FormWindow& window = *desk.windows.window(*form);
    window.resize(qt::pixels(width), qt::pixels(height));
    QApplication::processEvents();
    window.sync();
    expectTidy(window);
  }

  QtDesk desk;
  std::shared_ptr<FrmReport> form;
};

TEST_F(Looks, CaptionsFitAndControlsStandApart) {
  const std::pair<const char*, std::function<void(FrmReport&)>> states[] = {
      {"as opened", [](FrmReport&) {}},
      {"longest captions",
       [](FrmReport& f) {
         f.LbPageNo.Caption = "Page 100000/100000";
         f.LBPage.Caption = "100000";
         f.Command2.Caption = "Zoom Out";
         f.CmdExelExp.Visible = true;
         f.CmdExelExp.Caption = "Finsh Record Click";
       }},
      {"setting panel", [](FrmReport& f) { f.Frame6.Visible = true; }},
      {"print panel",
       [](FrmReport& f) {
         f.Frame6.Visible = false;
         f.Frame1.Visible = true;
         f.OptDosLocal.Visible = true;
         for (Control* control : f.controls()) {
           if (control->container == &f.Frame1) control->Font.Bold = true;
         }
       }},
  };
  for (const auto& [name, enter] : states) {
    SCOPED_TRACE(name);
    enter(*form);
    expectTidyAt(form->MinWidth, form->MinHeight);
    expectTidyAt(28800, 16200);
  }
}

TEST(StickerLooks, CaptionsFitAndTheWindowGrowsWithItsSettings) {
  QtDesk desk;
  runState() = RunState();
  Class1 class1(desk.platform());
  class1.StickerPrint();
  auto& form = dynamic_cast<Frm0010Sticker&>(*runState().ModStickerForm.lock());
  qt::FormWindow& window = *desk.windows.window(form);
  QtUser user(window);
  expectTidy(window);
  const auto width = [&window] {
    QApplication::processEvents();
    return window.widget()->width();
  };
  const int narrow = width();
  user.click("JeweledButton1");
  EXPECT_GT(width(), narrow);
  expectTidy(window);
  user.type("TxNos", "20");
  EXPECT_EQ(form.TxRow.Text, "3");
  desk.expectAgreement(form);
  user.click("JeweledButton1");
  EXPECT_EQ(width(), narrow);
  user.alt('W');
  EXPECT_EQ(desk.windows.windows().size(), 2u) << "the sheet is on show";
  std::static_pointer_cast<Form>(runState().ModReportForm.lock())->unload();
  QtUser(window).alt('X');
  EXPECT_FALSE(form.loaded());
}

/// From an empty window to a saved preset and a sheet, with no mouse.
TEST(StickerLooks, IsWorkedByTheKeyboardAlone) {
  QtDesk desk;
  runState() = RunState();
  Class1 class1(desk.platform());
  class1.StickerPrint();
  auto& form = dynamic_cast<Frm0010Sticker&>(*runState().ModStickerForm.lock());
  qt::FormWindow& window = *desk.windows.window(form);
  QtUser user(window);
  std::string visited;
  const auto tabTo = [&](const Control& control) {
    for (int steps = 0; form.activeControl() != &control && steps < 40; ++steps) {
      QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
      visited += form.activeControl()->name + " ";
    }
    EXPECT_EQ(form.activeControl(), &control) << visited;
  };
  const auto key = [&](Qt::Key pressed) { QTest::keyClick(window.focusWidget(), pressed); };
  const auto type = [&](const Control& box, const char* text) {
    tabTo(box);
    QTest::keyClicks(window.focusWidget(), text);
  };
  tabTo(form.OPss[1]);
  key(Qt::Key_Right);
  EXPECT_EQ(form.OPss[1].Tag, "2") << "arrows choose among the presets";
  type(form.Atxt[0], "Shelf");
  tabTo(form.JeweledButton1);
  key(Qt::Key_Space);
  EXPECT_TRUE(form.Frame1.Visible);
  tabTo(form.OPF[1]);
  key(Qt::Key_Right);
  type(form.TxMaxFLenth, "9");
  EXPECT_EQ(form.TxMaxFLenth.Text, "9") << "a box is selected when the keyboard comes to it";
  type(form.TxNos, "18");
  EXPECT_EQ(form.TxRow.Text, "3");
  tabTo(form.CmdSave);
  key(Qt::Key_Return);
  EXPECT_EQ(desk.machine.userStore.get("paperway", "Sticker", "2 MaxF", ""), "2");
  user.alt('W');
  EXPECT_EQ(desk.windows.windows().size(), 2u);
}

/// With real clicks on the page, and Esc while the form takes no input.
TEST(ColumnPick, ShowsItsMarksAndEscStopsTheWorkbook) {
  QtDesk desk;
  startRun();
  std::string report;
  for (int i = 0; i < 2000; ++i) report += "\x0FItem\x12 of a row     12   1.50\r\n";
  auto form = makeReportWindow(desk.platform(), report + "\f");
  bindReportExport(*form, desk.platform());
  form->load();
  desk.windows.show(form);
  desk.machine.dialogs.files = {desk.folder.path / "book.xls"};
  qt::FormWindow& window = *desk.windows.window(*form);
  QtUser user(window);
  user.click("JeweledButton1");
  user.click("CmdExelExp");
  auto& page = dynamic_cast<qt::ReportView&>(user.widget("Rt1"));
  const QImage before = page.viewport()->grab().toImage();
  for (const int column : {8, 18}) {
    QTest::mouseClick(
        page.viewport(), Qt::LeftButton, {}, page.pointOf(31 + column) + QPoint(1, 4));
    form->Timer1_Timer();
  }
  window.sync();
  QApplication::processEvents();
  EXPECT_EQ(form->Rt1.Guides, (std::vector<std::int16_t>{8, 18}));
  const QRect guide(page.pointOf(20 * 31 + 18) + QPoint(-1, 2), QSize(3, 1));
  EXPECT_NE(page.viewport()->grab().toImage().copy(guide), before.copy(guide));
  QTimer::singleShot(0, [&] { QTest::keyClick(&window, Qt::Key_Escape); });
  user.click("CmdExelExp");
  EXPECT_TRUE(desk.machine.workbooks.books.empty());
  EXPECT_TRUE(window.isEnabled() && !form->CmdExelExp.Visible);
}

TEST_F(Looks, WhatTheScreenCannotHoldIsReachedByScrolling) {
  qt::FormWindow& window = *desk.windows.window(*form);
  window.resize(1, 1);
  QApplication::processEvents();
  EXPECT_EQ(window.size().boundedTo(window.screen()->availableSize()), window.size());
  const auto inSight = [&](const Control& control) {
    const QWidget& widget = window.view(control)->widget;
    return widget.visibleRegion().boundingRect() == widget.rect();
  };
  for (Control* control : {static_cast<Control*>(&form->Text4),
                           static_cast<Control*>(&form->JeExit),
                           static_cast<Control*>(&form->CmdFst),
                           static_cast<Control*>(&form->Check2)}) {
    EXPECT_TRUE(control->SetFocus());
    window.sync();
    EXPECT_TRUE(inSight(*control)) << control->name;
  }
  window.verticalScrollBar()->setValue(0);
  window.horizontalScrollBar()->setValue(window.horizontalScrollBar()->maximum());
  EXPECT_TRUE(inSight(form->LbPageNo));
}

TEST_F(Looks, TextCanBeReadInDarkColors) {
  const QPalette before = QApplication::palette();
  qt::useDarkColors();
  QApplication::processEvents();
  const qt::FormWindow& window = *desk.windows.window(*form);
  for (const Control* control : form->controls()) {
    if (window.view(*control) == nullptr || control->Caption.empty()) continue;
    const QPalette palette = window.view(*control)->widget.palette();
    EXPECT_GT(std::abs(palette.color(QPalette::WindowText).lightness() -
                       palette.color(QPalette::Window).lightness()),
              75)
        << control->name;
  }
  const QImage picture = desk.windows.window(*form)->grab().toImage();
  EXPECT_LT(picture.pixelColor(2, 2).lightness(), 80) << "the window is dark";
  EXPECT_EQ(picture.pixelColor(picture.rect().center()), QColor(Qt::white)) << "the paper is not";
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace paperway
