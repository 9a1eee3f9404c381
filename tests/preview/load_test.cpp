#include <filesystem>

#include "paperway/class1.h"
#include "report_window.h"
#include "support/error_of.h"

namespace paperway {
namespace {

using Load = ReportWindow;

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
  EXPECT_EQ(form->Rt1.right(), form->Rt1.Left + 15900);
  EXPECT_EQ(form->JeExit.right(), 15800);
  EXPECT_EQ(form->Frame1.Left, (15360 - form->Frame1.Width) / 2) << "by the screen";
  machine.windows.screenSize = {60000, 40000};
  open(pages(1));
  EXPECT_LE(form->Frame1.right(), form->Width) << "a window smaller than the screen";
  EXPECT_LE(form->Frame1.bottom(), form->Height);
}

TEST_F(Load, HidesWhatIsSwitchedOff) {
  const std::pair<std::uint8_t RunState::*, const char*> cases[] = {
      {&RunState::ModRCont, "Check3 "},
      {&RunState::ModREdit, "Check2 "},
      {&RunState::ModRSearch, "Label7 Text4 "},
      {&RunState::ModRImport, "CmdImport "},
      {&RunState::ModRColor, "Label4 "},
      {&RunState::ModRExport, "JeweledButton1 "},
      {&RunState::ModRPrint, "CmdPrint Label8 "}};
  for (const auto& [flag, names] : cases) {
    runState().*flag = 0;
    make(pages(1));
    form->JeweledButton1.onClick = form->Label8.onClick = [] {};
    form->load();
    std::string hidden;
    for (const char* name : {"Check3",
                             "Check2",
                             "Label7",
                             "Text4",
                             "CmdImport",
                             "Label4",
                             "JeweledButton1",
                             "CmdPrint",
                             "Label8"}) {
      if (!form->at(name).Visible) hidden += std::string(name) + " ";
    }
    EXPECT_EQ(hidden, names);
    EXPECT_EQ(form->Frame6.Top, flag == &RunState::ModRColor ? 20000 : 1500);
    runState().*flag = 1;
  }
  load(pages(1));
  for (const char* idle : {"JeweledButton1", "Label8", "Label10"}) {
    EXPECT_FALSE(form->at(idle).Visible) << idle << " has nothing to do";
  }
}

TEST_F(Load, OffersTheGoToBoxFromSixPagesOn) {
  for (const int count : {1, 5, 6}) {
    load(pages(count));
    EXPECT_EQ(form->Text2.Visible && form->SpLebal3.Visible, count >= 6) << count;
  }
}

TEST_F(Load, ReloadShowsPageOneOfTheFileAsItIsNow) {
  runState().ModRExport = runState().ModRPrint = 0;
  open(pages(3));
  user().click("CmdLast");
  const std::string file = runState().ModPath1;
  replaceFile(file, pages(2), "test");
  user().click("Check3");
  user().click("Check3");
  EXPECT_EQ(form->CurrentPage, 0);
  EXPECT_EQ(form->LbPageNo.Caption, "Page 1/2");
  EXPECT_EQ(form->Tend.ToolTipText, "  2  : Maximum ");
  EXPECT_TRUE(form->CmdBck.Enabled);
  EXPECT_TRUE(std::filesystem::exists(file)) << "even when it can neither be printed nor exported";
}

TEST_F(Load, EachPreviewOpensAWindowOfItsOwn) {
  Class1 host(machine.platform());
  const std::string missing =
      errorOf([&] { host.PreviewReport({.Path1 = (folder.path / "missing.prn").string()}); });
  EXPECT_NE(missing.find("missing.prn"), std::string::npos);
  EXPECT_FALSE(host.RtWindows1());
  host.PreviewReport({.Path1 = write("a.prn", "a"), .RPrint = 1});
  host.PreviewReport({.Path1 = write("b.prn", "b")});
  const auto& forms = machine.windows.forms;
  ASSERT_EQ(forms.size(), 2u);
  EXPECT_EQ(forms[0]->get<RichTextBox>("Rt1").Text, "a\f");
  EXPECT_EQ(forms[1]->get<RichTextBox>("Rt1").Text, "b\f");
  EXPECT_TRUE(host.RtWindows1());
  const auto first = forms[0];
  first->click("JeExit");
  EXPECT_FALSE(host.RtWindows1());
  EXPECT_FALSE(first->loaded());
}

}  // namespace
}  // namespace paperway
