#include "excel/report_export.h"

#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/files.h"
#include "support/headless_desk.h"
#include "support/report_window.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr const char* kReport =
    "Item      Qty  Price\r\n\x0FPens       12  1.50\r\n\r\n\fpage 2\r\nInk 3\r\n\f";
constexpr const char* kComplete = " Export Complete ";

class ReportExportTest : public testing::Test, protected HeadlessDesk {
 protected:
  ReportExportTest() {
    startRun();
    form = makeReportWindow(platform(), kReport);
    form->expHTml = [this] { html = form->CommonDialog1.FileName.filename(); };
    bindReportExport(*form, platform());
    form->load();
    machine.windows.show(form);
  }

  void exportAs(const char* name) {
    machine.dialogs.files = {folder.path / name};
    user(*form).click("JeweledButton1");
  }
  void mark(std::int64_t column) {
    form->Rt1.SelStart = column;
    form->Rt1_Click();
    form->Timer1_Timer();
  }
  /// A pick of these marks, and the click that makes the workbook.
  void pick(std::initializer_list<std::int64_t> columns) {
    exportAs("book.xls");
    user(*form).click("CmdExelExp");
    for (const std::int64_t column : columns) mark(column);
    user(*form).click("CmdExelExp");
  }
  /// Rows of the last workbook a line, cells in brackets.
  std::string sheet() const {
    std::string text;
    for (const auto& row : machine.workbooks.books.back().rows) {
      for (const auto& cell : row) text += "[" + defaultText(cell.value) + "]";
      text += "\n";
    }
    return text;
  }
  std::string last() const {
    return machine.messageBox.shown.empty() ? "" : machine.messageBox.shown.back().text;
  }
  std::string state() const {
    return (form->CmdExelExp.Visible ? "shown " : "hidden ") + form->CmdExelExp.Caption + " " +
           form->CmdExelExp.Tag;
  }

  std::shared_ptr<FrmReport> form;
  std::string html;
};

TEST_F(ReportExportTest, TheEndOfTheNameDecides) {
  exportAs("a.rtf");
  EXPECT_EQ(readFile(folder.path / "a.rtf").substr(0, 5), "{\\rtf");
  exportAs("a.TXT");
  EXPECT_EQ(readFile(folder.path / "a.TXT").substr(0, 5), "{\\rtf");
  exportAs("page.HTML");
  EXPECT_EQ(html, "page.HTML");
  exportAs("a.txt");
  EXPECT_EQ(readFile(folder.path / "a.txt"), kReport);
  form->Op[1].Value = true;
  exportAs("page.txt");
  EXPECT_EQ(readFile(folder.path / "page.txt"),
            "Item      Qty  Price\r\n\x0FPens       12  1.50\r\n\r\n\f");
  for (OptionButton& option : form->Op) option.Value.setQuietly(false);
  exportAs("copy.txt");
  EXPECT_EQ(readFile(folder.path / "copy.txt"), kReport);
  machine.dialogs.files = {std::nullopt};
  user(*form).click("JeweledButton1");
  EXPECT_EQ(state(), "hidden Exel Export ") << "a cancelled dialog does nothing";
}

TEST_F(ReportExportTest, APickCutsEveryLine) {
  exportAs("book.XLS");
  EXPECT_EQ(state(), "shown Exel Export ");
  EXPECT_EQ(last(),
            " Click Excel Export Button Then click for Column Width on Text and then Click 'Finsh "
            "Record Click'");
  user(*form).click("CmdExelExp");
  EXPECT_EQ(state(), "shown Finsh Record Click 1");
  mark(10);
  mark(15);
  EXPECT_EQ(form->Rt1.Guides, (std::vector<std::int16_t>{10, 15}));
  user(*form).click("CmdExelExp");
  EXPECT_EQ(sheet(),
            "[Item      ][Qty  ]\n[\x0FPens     ][  12 ]\n[][]\n[\fpage 2][]\n[Ink 3][]\n[\f][]\n");
  EXPECT_EQ(machine.workbooks.books.back().file.filename(), "book.XLS");
  EXPECT_EQ(last(), kComplete);
  EXPECT_EQ(state(), "hidden Excel Export 0");
  EXPECT_TRUE(form->Enabled && form->Text4.Text == "" && form->Rt1.Guides.empty());
}

TEST_F(ReportExportTest, MarksGoInTheOrderInWhichTheyAreMade) {
  pick({5, 5, 3, 6});
  EXPECT_EQ(sheet().substr(0, 15), "[Item ][][][m  ");
  pick({2});
  EXPECT_EQ(sheet().substr(0, 11), "[It][em ]\n[") << "the array keeps the second mark of before";
}

TEST_F(ReportExportTest, ThePickFindsTheColumnsItself) {
  replaceFile(form->ReportPath, "Item      Qty\n-------------\nPens       12\nInk         3\n");
  const auto menu = [this] {
    form->Rt1_MouseDown({.button = mbRight});
    return bool{form->FindColumns.Visible};
  };
  EXPECT_FALSE(menu());
  exportAs("book.xls");
  user(*form).click("CmdExelExp");
  mark(3);
  EXPECT_TRUE(menu());
  form->FindColumns.click();
  EXPECT_EQ(form->Rt1.Guides, (std::vector<std::int16_t>{7, 13}));
  form->Timer1_Timer();
  user(*form).click("CmdExelExp");
  EXPECT_EQ(sheet(),
            "[Item   ][   Qty]\n[-------][------]\n[Pens   ][    12]\n[Ink    ][     3]\n");
}

TEST_F(ReportExportTest, EscGivesUpAPickOrAWorkbook) {
  int escape = keyEscape;
  exportAs("book.xls");
  user(*form).click("CmdExelExp");
  mark(4);
  form->Form_KeyDown(escape, 0);
  EXPECT_EQ(state(), "hidden Exel Export 0");
  EXPECT_TRUE(form->Rt1.Guides.empty());
  machine.windows.waitingEvents = [&] {
    EXPECT_FALSE(form->Enabled);
    if (form->Text4.Text == "2") form->Form_KeyDown(escape = keyEscape, 0);
  };
  const std::size_t told = machine.messageBox.shown.size();
  pick({4});
  EXPECT_EQ(state(), "hidden Exel Export 0");
  EXPECT_TRUE(machine.workbooks.books.empty() && form->Enabled);
  EXPECT_EQ(machine.messageBox.shown.size(), told + 1) << "nothing is complete";
}

TEST_F(ReportExportTest, FailuresAreToldAndTheFormIsEnabledAgain) {
  machine.workbooks.failure.emplace(AutomationError::kDiskFull, "test", "the disk is full");
  pick({4});
  EXPECT_EQ(machine.messageBox.shown[1].text, "the disk is full");
  EXPECT_EQ(last(), kComplete) << "the click goes on";
  std::filesystem::remove(form->ReportPath);
  EXPECT_NE(errorOf([&] { pick({4}); }).find("report.prn"), std::string::npos);
  EXPECT_TRUE(form->Enabled);
}

}  // namespace
}  // namespace paperway
