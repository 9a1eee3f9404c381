#include <QClipboard>

#include "contract/form_contract.h"
#include "contract/report_window_contract.h"
#include "qt_desk.h"

namespace paperway {

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, FormContract, QtDesk);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, ReportWindowContract, QtDesk);

TEST(ReportWindowOnTheDesktop, EveryKeyIsToldAndTheMenuKeyOpensTheMenu) {
  QtDesk desk;
  startRun();
  const auto form = openReportWindow(desk.platform(), "page\f");
  QWidget& page = desk.user(*form).widget("Rt1");
  form->Timer1.Tag = "1";
  QTest::keyClick(&page, Qt::Key_Semicolon);
  EXPECT_EQ(form->Timer1.Tag, "0");
  QTest::keyClick(&page, Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QApplication::activePopupWidget()->close();
  auto& area = dynamic_cast<QAbstractScrollArea&>(page);
  QTest::keyPress(&page, Qt::Key_Control);
  EXPECT_EQ(area.viewport()->cursor().shape(), Qt::BitmapCursor);
  QTest::keyRelease(&page, Qt::Key_Control);
  EXPECT_EQ(area.viewport()->cursor().shape(), Qt::IBeamCursor);
  QTest::keyPress(&page, Qt::Key_Control);
  form->Text4.SetFocus();
  desk.expectAgreement(*form);
  EXPECT_EQ(area.viewport()->cursor().shape(), Qt::IBeamCursor) << "the key comes up elsewhere";
  form->unload();
}

TEST(ReportWindowOnTheDesktop, BoxesTakeTheDeleteKeyAndNoEnterFromAPastedLine) {
  QtDesk desk;
  startRun();
  const auto form = openReportWindow(desk.platform(), "1\f2\f3\f4\f5\f6\f");
  auto& box = dynamic_cast<QLineEdit&>(desk.user(*form).widget("Text2"));
  form->Text2.Text = "12";
  form->Text2.SetFocus();
  desk.expectAgreement(*form);
  EXPECT_EQ(box.selectedText(), "12") << "typing takes its place";
  box.setCursorPosition(0);
  QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, {}, QStringLiteral("\x7F"));
  QApplication::sendEvent(&box, &key);
  EXPECT_EQ(form->Text2.Text, "2");
  QApplication::clipboard()->setText(QStringLiteral("3\r\n"));
  box.selectAll();
  QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(form->Text2.Text, "3");
  EXPECT_EQ(form->CurrentPage, 0) << "nobody pressed Enter";
  form->unload();
}

TEST(ReportWindowOnTheDesktop, KeysOfTheWindowHoldWhereverTheFocusIs) {
  QtDesk desk;
  startRun();
  const auto form = openReportWindow(desk.platform(), "1\f2\f3\f4\f5\f6\f");
  QtUser user = desk.user(*form);
  for (const char* control : {"Text4", "Check1", "Command2", "Text2"}) {
    user.press(control, keyEnd, smCtrl);
    EXPECT_EQ(form->CurrentPage, 5) << control;
    user.press(control, keyHome, smCtrl);
    EXPECT_EQ(form->CurrentPage, 0) << control;
  }
  for (const auto& [box, key] : {std::pair("Text4", 'F'), std::pair("Text2", 'G')}) {
    user.type(box, "12");
    QTest::keyClick(&user.widget(box), static_cast<Qt::Key>(key), Qt::ControlModifier);
    EXPECT_EQ(dynamic_cast<QLineEdit&>(user.widget(box)).selectedText(), "12") << box;
  }
  form->unload();
}

TEST(ReportWindowOnTheDesktop, CtrlAndTheWheelZoom) {
  QtDesk desk;
  startRun();
  const auto form = openReportWindow(desk.platform(), "page\f");
  auto& area = dynamic_cast<QAbstractScrollArea&>(desk.user(*form).widget("Rt1"));
  const auto wheel = [&](int turned) {
    QWheelEvent event({5, 5},
                      area.mapToGlobal(QPointF(5, 5)),
                      {},
                      {0, turned},
                      Qt::NoButton,
                      Qt::ControlModifier,
                      Qt::NoScrollPhase,
                      false);
    QSpontaneKeyEvent::setSpontaneous(&event);  // others do not go on to what lies behind
    qApp->notify(area.viewport(), &event);
    return form->ZoomOn;
  };
  EXPECT_TRUE(wheel(120));
  EXPECT_TRUE(wheel(0));
  EXPECT_FALSE(wheel(-120));
  form->unload();
}

/// The same picture with and without the focus would leave the user guessing.
TEST(ReportWindowOnTheDesktop, EveryStopShowsTheFocus) {
  QtDesk desk;
  startRun();
  const auto form = makeReportWindow(desk.platform(), "1\f2\f3\f4\f5\f6\f");
  form->JeweledButton1.onClick = form->CmdPrint.onClick = form->Label8.onClick =
      form->Label10.onClick = [] {};
  form->load();
  desk.windows.show(form);
  QtUser user = desk.user(*form);
  qt::FormWindow& window = *desk.windows.window(*form);
  const auto expectFocusShown = [&] {
    for (Control* stop : form->tabOrder()) {
      QWidget& widget = user.widget(stop->name);
      const auto picture = [&](Control* focused) {
        EXPECT_TRUE(form->moveFocus(focused));
        window.sync();
        return widget.grab().toImage();
      };
      Control* other = stop == &form->Check1 ? static_cast<Control*>(&form->Text4) : &form->Check1;
      const QImage without = picture(other);
      EXPECT_NE(picture(stop), without) << stop->name;
    }
  };
  expectFocusShown();
  form->Frame1.Visible = form->Frame6.Visible = true;
  form->Op[2].Value = form->OptWinMode.Value = true;
  for (TextBox* box : {&form->Tst, &form->Tend}) box->Enabled = true;
  expectFocusShown();
  form->unload();
}

}  // namespace paperway
