#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "support/report_window.h"

namespace paperway {

/// What a person does at the report window, on every backend that shows forms. A Desk has
///   folder                a TestFolder
///   machine               the headless machine, whose boxes, dialogs and clipboard are asked
///   platform()            that machine with the backend's own windows
///   user(form)            a person: the acts of headless::User, done for real where it can be
///   expectAgreement(form) fails when a widget shows anything but what its model says
template <typename Desk>
class ReportWindowContract : public testing::Test {
 protected:
  ReportWindowContract() {
    startRun();
    std::string report;
    for (int i = 1; i <= 7; ++i) {
      report += "\017page " + std::to_string(i) + "\r\nsecond \033Ebold\033F line\r\n\022\f";
    }
    form = openReportWindow(desk.platform(), report);
  }
  ~ReportWindowContract() override {
    desk.expectAgreement(*form);
    form->unload();
  }

  std::string firstLine() {
    std::string line;
    for (const StyledRun& run : form->Rt1.styledLine(0).runs) {
      if (!run.hidden) line += run.bytes;
    }
    return line;
  }

  Desk desk;
  std::shared_ptr<FrmReport> form;
};

TYPED_TEST_SUITE_P(ReportWindowContract);

TYPED_TEST_P(ReportWindowContract, ButtonsAndAccessKeysTurnPages) {
  auto user = this->desk.user(*this->form);
  user.click("CmdNxt");
  EXPECT_EQ(this->firstLine(), "page 2");
  user.alt('l');
  EXPECT_EQ(this->firstLine(), "page 7");
  EXPECT_FALSE(this->form->CmdNxt.Enabled);
  user.alt('B');
  EXPECT_EQ(this->firstLine(), "page 6");
}

TYPED_TEST_P(ReportWindowContract, TheGoToBoxTakesTheNumberOfAPage) {
  auto user = this->desk.user(*this->form);
  const std::tuple<const char*, const char*, bool> cases[] = {{"4\r", "page 4", false},
                                                              {"0\r", "page 4", true},
                                                              {"8\r", "page 4", true},
                                                              {"\r", "page 4", true},
                                                              {"x7\r", "page 7", false},
                                                              {"12\b\r", "page 1", false}};
  auto& shown = this->desk.machine.messageBox.shown;
  for (const auto& [keys, page, message] : cases) {
    shown.clear();
    user.focus("Text4");
    EXPECT_EQ(this->form->Text2.Text, "") << "leaving the box clears it";
    user.type("Text2", keys);
    EXPECT_EQ(this->firstLine(), page) << keys;
    this->desk.expectAgreement(*this->form);
    ASSERT_EQ(shown.size(), message ? 1u : 0u) << keys;
    EXPECT_TRUE(!message || shown[0].text == " Select Valid PageNo...!");
  }
  EXPECT_EQ(this->form->LBPage.Caption, "1") << "from before the first go-to";
  EXPECT_FALSE(this->form->CmdBck.Enabled) << "untouched since the window opened";
}

TYPED_TEST_P(ReportWindowContract, EditingTakesKeysOnceItIsOn) {
  auto user = this->desk.user(*this->form);
  user.press("Rt1", keyHome, smCtrl);
  user.type("Rt1", "x");
  EXPECT_EQ(this->firstLine(), "page 1");
  user.click("Check2");
  user.press("Rt1", keyEnd);
  user.type("Rt1", "!\r2\b");
  EXPECT_EQ(this->firstLine(), "page 1!");
  EXPECT_EQ(this->form->Rt1.lineCount(), 4u);
  user.press("Rt1", 'Z', smCtrl);
  user.press("Rt1", 'A', smCtrl);
  EXPECT_EQ(this->form->Rt1.SelText(), this->form->Rt1.Text.get());
  user.click("CmdFst");
  EXPECT_EQ(this->firstLine().substr(0, 6), "\017page ") << "styles are off while editing";
}

TYPED_TEST_P(ReportWindowContract, SearchAndMenuActOnTheSelection) {
  auto user = this->desk.user(*this->form);
  user.type("Text4", "LINE\r");
  EXPECT_EQ(this->form->Rt1.SelText(), "line");
  EXPECT_EQ(this->form->Rt1.SelColor, 33023);
  EXPECT_TRUE(this->form->Rt1.SelBold);
  user.press("Rt1", keyHome, smCtrl);
  user.press("Rt1", keyEnd, smShift);
  user.click("Rt1", mbRight);
  user.chooseFromMenu("cccc");
  EXPECT_EQ(this->desk.machine.clipboard.content, "page 1");
  user.click("Rt1", mbRight);
  user.chooseFromMenu("ht");
  EXPECT_EQ(this->form->Rt1.formats().at(1).color, 255u);
}

TYPED_TEST_P(ReportWindowContract, ZoomContinuousViewAndExit) {
  auto user = this->desk.user(*this->form);
  user.click("Command2");
  EXPECT_EQ(this->form->Command2.Caption, "Zoom Out");
  this->desk.expectAgreement(*this->form);
  user.click("Rt1", mbLeft, smCtrl);
  EXPECT_EQ(this->form->Command2.Caption, "Zoom");
  user.click("Check3");
  EXPECT_EQ(this->form->Rt1.lineCount(), 15u);
  this->desk.expectAgreement(*this->form);
  user.click("JeExit");
  EXPECT_FALSE(this->form->loaded());
  EXPECT_FALSE(runState().ModWindowOpen);
}

TYPED_TEST_P(ReportWindowContract, ControlsOfThePanelsActOnTheirModels) {
  auto user = this->desk.user(*this->form);
  user.click("Label4");
  this->desk.machine.dialogs.colors = {4711};
  user.doubleClick("TXt(1)");
  EXPECT_EQ(this->form->Lb[1].ForeColor, 4711u);
  this->desk.expectAgreement(*this->form);
  user.click("Command3");
  EXPECT_FALSE(this->form->Frame6.Visible);

  this->form->Frame1.Visible = true;
  user.click("Op(2)");
  EXPECT_FALSE(this->form->Op[0].Value);
  user.scroll("VScroll1", 90);
  EXPECT_EQ(this->form->VScroll1.Value, 90);
  user.type("ComPaperHeight", "\b11");
  EXPECT_EQ(this->form->ComPaperHeight.Text, "11");
}

REGISTER_TYPED_TEST_SUITE_P(ReportWindowContract, ButtonsAndAccessKeysTurnPages,
                            TheGoToBoxTakesTheNumberOfAPage, EditingTakesKeysOnceItIsOn,
                            SearchAndMenuActOnTheSelection, ZoomContinuousViewAndExit,
                            ControlsOfThePanelsActOnTheirModels);

}  // namespace paperway
