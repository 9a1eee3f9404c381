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
  form->unload();
}

}  // namespace paperway
