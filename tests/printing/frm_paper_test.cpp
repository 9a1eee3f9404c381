#include "printing/frm_paper.h"

#include "preview/frm_report.h"
#include "support/class1_test.h"

namespace paperway {
namespace {

class FrmPaperTest : public Class1Test {
 protected:
  FrmPaperTest() {
    machine_.printers.infos = {{"Matrix", "", true, true}};
    std::string report;
    for (int page = 1; page <= 120; ++page) report += "page " + std::to_string(page) + "\r\n\f\r\n";
    replaceFile(path("report.txt"), report, "test");
    class1_.PreviewReport({.Path1 = path("report.txt"), .RPrint = 1});
    window_ = std::dynamic_pointer_cast<FrmReport>(machine_.windows.forms.back());
    window_->CmdPrint.click();
  }

  FrmPaper& paper() {
    window_->CmdPaper.click();
    return dynamic_cast<FrmPaper&>(*machine_.windows.forms.back());
  }

  static std::string firstText(const FrmPaper& paper) {
    return paper.Sheet1.Shown->texts.empty() ? "" : paper.Sheet1.Shown->texts[0].text;
  }

  std::shared_ptr<FrmReport> window_;
};

TEST_F(FrmPaperTest, ShowsTheSheetsOfTheJobInAnyOrder) {
  FrmPaper& shown = paper();
  EXPECT_EQ(shown.LbSheet.Caption, "Sheet 1 of 120");
  EXPECT_FALSE(shown.CmdBck.Enabled);
  shown.CmdLast.click();
  EXPECT_EQ(firstText(shown), "page 120");
  EXPECT_FALSE(shown.CmdNxt.Enabled);
  shown.Sheet1.onTurn(true);
  EXPECT_EQ(shown.current(), 119);
  for (int i = 0; i < 70; ++i) shown.CmdBck.click();
  EXPECT_EQ(firstText(shown), "page 50");
  shown.CmdNxt.click();
  EXPECT_EQ(firstText(shown), "page 51");
  shown.CmdFst.click();
  EXPECT_EQ(firstText(shown), "page 1");
}

TEST_F(FrmPaperTest, ShowsWhatThePanelAsksFor) {
  window_->Op[2].click();
  window_->Tst.Text = "7";
  window_->Tend.Text = "9";
  EXPECT_EQ(firstText(paper()), "page 7");
  EXPECT_EQ(paper().count(), 3);
  window_->Tst.Text = "999";
  EXPECT_EQ(firstText(paper()), "");
  window_->Op[1].click();
  window_->Rt1.Text = "edited \xE8";
  EXPECT_EQ(firstText(paper()), "edited \xCE\xA6");
  window_->CboLetters.Text = "437";
  EXPECT_EQ(firstText(paper()), "edited \xC3\xA8");
  window_->OptWinMode.click();
  EXPECT_FALSE(window_->CmdPaper.Enabled);
}

TEST_F(FrmPaperTest, TellsOfPaperThatDoesNotMatchAndSavesIt) {
  FrmPaper& shown = paper();
  EXPECT_EQ(shown.LbTold.Caption, "");
  shown.CboPaper.ListIndex = 1;
  shown.CboPaper.click();
  EXPECT_NE(shown.LbTold.Caption.find("each begins"), std::string::npos) << shown.LbTold.Caption;
  machine_.dialogs.files = {path("paper.pdf")};
  shown.CmdSave.click();
  ASSERT_EQ(machine_.printDevice.pictures.size(), 1);
  EXPECT_TRUE(machine_.printDevice.pictures[0]->ended);
  EXPECT_EQ(static_cast<std::int64_t>(machine_.printDevice.pictures[0]->sheets.size()),
            shown.count());
}

}  // namespace
}  // namespace paperway
