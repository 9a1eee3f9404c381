#include <filesystem>

#include "facade/class1.h"
#include "report_window.h"
#include "util/automation_error.h"

namespace paperway {
namespace {

using Load = ReportWindow;

TEST(PageTable, IsCutAtFormFeedsAlone) {
  struct Case {
    const char* file;
    std::int64_t count;
    std::vector<const char*> elements;
  };
  const Case cases[] = {
      {"", 1, {"", ""}},
      {"one", 1, {"one", ""}},
      {"one\f", 1, {"one", ""}},
      {"one\ftwo", 1, {"one", "two"}},
      {"one\ftwo\f", 2, {"one", "two", ""}},
      {"one\ftwo\f\r\n", 2, {"one", "two", "\r\n"}},
      {"\f\f", 2, {"", "", ""}},
  };
  for (const Case& c : cases) {
    const PageTable table(SharedText::of(c.file));
    EXPECT_EQ(table.PageCount(), c.count) << c.file;
    for (std::size_t i = 0; i < c.elements.size(); ++i) {
      EXPECT_EQ(table[static_cast<std::int64_t>(i)], c.elements[i]) << c.file << " " << i;
    }
    EXPECT_EQ(table.shown(0).view(), std::string(c.elements[0]) + "\f") << c.file;
    EXPECT_THROW(table[-1], AutomationError);
    EXPECT_THROW(table[c.count + 1], AutomationError);
  }
}

TEST_F(Load, ShowsTheFirstPageAndItsNumber) {
  load(pages(3));
  EXPECT_TRUE(runState().ModWindowOpen);
  EXPECT_EQ(form->Rt1.Text, "page 1\r\n\f");
  EXPECT_EQ(form->LbPageNo.Caption, "Page 1/3");
  EXPECT_EQ(form->Rt1.SelLength, 1);
  form->unload();
  EXPECT_FALSE(runState().ModWindowOpen);
}

TEST_F(Load, ComingToTheFrontOrResizingGoesBackToAllPages) {
  open(pages(3));
  EXPECT_EQ(form->Tend.ToolTipText, "  3  : Maximum ");
  EXPECT_TRUE(form->Op[0].Value);
  EXPECT_FALSE(form->CmdBck.Enabled) << "the first time the first page is gone to";
  user().click("CmdLast");
  form->Op[2].Value = true;
  user().resize(16000, 9000);
  EXPECT_TRUE(form->Op[0].Value);
  EXPECT_EQ(form->CurrentPage, 2);
  EXPECT_EQ(form->Rt1.Width, 15900);
  EXPECT_EQ(form->Rt1.Height, 7750);
  EXPECT_EQ(form->Frame8.Top, 8250);
  EXPECT_EQ(form->JeExit.right(), 15800);
  EXPECT_EQ(form->CmdPrint.right(), form->JeExit.Left - 60);
  EXPECT_EQ(form->Check3.right(), form->CmdPrint.Left - 300);
  EXPECT_EQ(form->Image1.Left, form->Check3.Left - 400);
  EXPECT_EQ(form->lb1.Left, (16000 - form->lb1.Width) / 2);
  EXPECT_EQ(form->Frame1.Left, (15360 - form->Frame1.Width) / 2);
}

TEST_F(Load, ThePanelStaysOnAWindowSmallerThanTheScreen) {
  machine.windows.screenSize = {60000, 40000};
  open(pages(1));
  EXPECT_LE(form->Frame1.right(), form->Width);
  EXPECT_LE(form->Frame1.bottom(), form->Height);
}

TEST_F(Load, TakesItsArgumentsFromTheRunState) {
  load(pages(1));
  EXPECT_EQ(form->ComPaperHeight.Text, "6");
  EXPECT_EQ(runState().ModPagelenth, 6);
  runState().ModPagelenth = 11;
  runState().ModCc12 = 1;
  load(pages(1));
  EXPECT_EQ(form->ComPaperHeight.Text, "11");
  EXPECT_EQ(form->Ch12.Value, 1);
  EXPECT_EQ(form->Ch17.Value, 0);
}

TEST_F(Load, SwitchesHideWhatTheyTurnOff) {
  struct Case {
    std::uint8_t RunState::*flag;
    std::vector<const char*> hidden;
  };
  const Case cases[] = {
      {&RunState::ModRCont, {"Check3"}},
      {&RunState::ModREdit, {"Check2"}},
      {&RunState::ModRSearch, {"Text4", "Label7"}},
      {&RunState::ModRImport, {"CmdImport"}},
      {&RunState::ModRExport, {"JeweledButton1"}},
      {&RunState::ModRColor, {"Label4"}},
      {&RunState::ModRPrint, {"CmdPrint", "Label8"}},
  };
  for (const Case& off : cases) {
    runState().*off.flag = 0;
    runState().ModPath1 = write("report.prn", pages(1));
    form = std::make_shared<FrmReport>(machine.platform());
    form->JeweledButton1.onClick = form->Label8.onClick = [] {};
    form->load();
    for (const Case& c : cases) {
      for (const char* name : c.hidden)
        EXPECT_EQ(form->at(name).Visible, c.flag != off.flag) << name;
    }
    EXPECT_EQ(form->Frame6.Top, off.flag == &RunState::ModRColor ? 20000 : 1500);
    runState().*off.flag = 1;
  }
}

TEST_F(Load, WhatIsNotBoundIsNotOffered) {
  load(pages(1));
  for (const char* name : {"JeweledButton1", "Label8", "Label10"}) {
    EXPECT_FALSE(form->at(name).Visible) << name;
  }
}

TEST_F(Load, RunsThePrintStepsInTheirPlaces) {
  runState().ModPath1 = write("report.prn", pages(1));
  form = std::make_shared<FrmReport>(machine.platform());
  std::string log;
  form->printSteps.readTearSettings = [&] { log += form->ReportPath.empty() ? "tear " : ""; };
  form->printSteps.readPrintMode = [&] {
    log += "mode " + std::to_string(form->ColumnMarks.size());
  };
  form->printSteps.FillPrinterList = [&] { log += form->Rt1.buffer().empty() ? " list" : ""; };
  form->load();
  EXPECT_EQ(log, "tear mode 11 list");
}

TEST_F(Load, ColorsComeFromTheSettingsFile) {
  load(pages(1));
  const ReportViewSettings stored = form->settings();
  const Color defaults[] = {8388608, 128, 0, 8388736, 16777215, 33023, 255};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(form->TXt[i].BackColor, defaults[i]) << i;
  EXPECT_EQ(form->ChSearch.Value, 1);
  stored.setColor(ReportViewKey::RepotBackColor, 123);
  stored.setColor(ReportViewKey::Cond, 77);
  stored.setFlag(ReportViewKey::chSearch, false);
  stored.setFlag(ReportViewKey::ChHighlighte, true);
  load(pages(1));
  EXPECT_EQ(form->Rt1.BackColor, 123u);
  EXPECT_EQ(form->Lb[3].ForeColor, 77u);
  EXPECT_EQ(form->ChSearch.Value, 0);
  EXPECT_EQ(form->ChHighlighte.Value, 1);
}

TEST_F(Load, OffersTheGoToBoxFromSixPagesOn) {
  for (const int count : {1, 5, 6, 7}) {
    load(pages(count));
    EXPECT_EQ(form->Text2.Visible, count >= 6) << count;
    EXPECT_EQ(form->SpLebal3.Visible, count >= 6) << count;
  }
}

TEST_F(Load, ReloadShowsPageOneOfTheFileAsItIsNow) {
  open(pages(3));
  user().click("CmdLast");
  write("report.prn", pages(2));
  user().click("Check3");
  user().click("Check3");
  EXPECT_EQ(form->CurrentPage, 0);
  EXPECT_EQ(form->LbPageNo.Caption, "Page 1/2");
  EXPECT_TRUE(form->CmdBck.Enabled);
}

TEST_F(Load, NeitherPrintingNorExportingRemovesNoFile) {
  runState().ModRExport = runState().ModRPrint = 0;
  open(pages(1));
  user().click("Check3");
  user().click("Check3");
  EXPECT_TRUE(std::filesystem::exists(folder.path / "report.prn"));
}

TEST_F(Load, EachPreviewOpensAWindowOfItsOwn) {
  Class1 host(machine.platform());
  host.PreviewReport({.Path1 = write("a.prn", "a"), .RPrint = 1});
  host.PreviewReport({.Path1 = write("b.prn", "b")});
  ASSERT_EQ(machine.windows.forms.size(), 2u);
  const auto text = [&](int i) {
    return machine.windows.forms[static_cast<std::size_t>(i)]->get<RichTextBox>("Rt1").Text.get();
  };
  EXPECT_EQ(text(0), "a\f");
  EXPECT_EQ(text(1), "b\f");
  EXPECT_TRUE(host.RtWindows1());
  machine.windows.forms[0]->click("JeExit");
  EXPECT_FALSE(host.RtWindows1());
  EXPECT_FALSE(machine.windows.forms[0]->loaded());
}

TEST_F(Load, AReportThatCannotBeReadOpensNoWindow) {
  Class1 host(machine.platform());
  try {
    host.PreviewReport({.Path1 = (folder.path / "missing.prn").string()});
    FAIL();
  } catch (const AutomationError& error) {
    EXPECT_NE(std::string(error.description()).find("missing.prn"), std::string::npos);
  }
  EXPECT_TRUE(machine.windows.forms.empty());
  EXPECT_FALSE(host.RtWindows1());
}

}  // namespace
}  // namespace paperway
