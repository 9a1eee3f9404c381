#include <QDialog>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QTimer>

#include "web_fixture.h"

namespace paperway {
namespace {

/// A landscape report asks for the set-up before it is printed; what is changed there is kept, and
/// reaches the paper.
TEST_F(WebWindow, PageSetUpIsAskedForKeptAndPrinted) {
  machine_.printers.infos = {{"Laser", "", false}};
  int asked = 0;
  QTimer answers;
  QObject::connect(&answers, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog->objectName() != "PageSetup") return;
    if (++asked == 1) {
      dialog->findChild<QDoubleSpinBox*>("left")->setValue(2.5);
      dialog->findChild<QLineEdit*>("footer")->setText("&bEnd of page &p");
    }
    dialog->accept();
  });
  answers.start(10);
  frmBrowser& form = open({.Path1 = write("page.html", "<p>text"), .PL1 = "L"});
  form.CmdPrint.click();
  EXPECT_EQ(asked, 2) << "when the window opens, and before the print";
  EXPECT_EQ(machine_.pageSetup.kept.marginLeft, 2.5);
  EXPECT_EQ(machine_.pageSetup.kept.footer, "&bEnd of page &p");
  ASSERT_EQ(machine_.spooler.jobs.size(), 1u);
  const std::string pdf = write("job.pdf", machine_.spooler.jobs.front()->bytes);
  EXPECT_NE(textOf(pdf).find("End of page 1"), std::string::npos);
  EXPECT_EQ(std::system(("pdfinfo " + pdf + " | grep -q 'Page size: *84.* x 59'").c_str()), 0);
  const std::string box = "pdftotext -bbox " + pdf + " - | grep -q 'yMin=\"180.*>text<'";
  EXPECT_EQ(std::system(box.c_str()), 0) << "the sheet is turned with its margins";
}

}  // namespace
}  // namespace paperway
