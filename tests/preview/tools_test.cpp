#include "report_window.h"

namespace paperway {
namespace {

using Tools = ReportWindow;

TEST_F(Tools, EditingLastsUntilThePageIsShownAnew) {
  open(pages(2));
  user().click("Check2");
  EXPECT_EQ(form->Check1.Value, 0) << "a plain press shows the marks of pages to come";
  EXPECT_TRUE(form->Rt1.typeText("My "));
  EXPECT_EQ(form->Rt1.Text, "My age 1\r\n\f") << "in place of the selected character";
  EXPECT_EQ(form->PageText[0], "page 1\r\n");
  user().click("CmdFst");
  EXPECT_EQ(form->Rt1.Text, "page 1\r\n\f");
  user().click("Check2");
  EXPECT_TRUE(form->Rt1.Locked);
  form->Check2.mouseDown({mbRight, smShift, 0, 0});
  EXPECT_EQ(form->Check1.Value, 1);
}

TEST_F(Tools, ContinuousViewHoldsTheFileAsItStands) {
  const std::string file = "\017a\022\fb\f\r\n";
  open(file);
  user().click("Check3");
  EXPECT_EQ(form->Rt1.Text, file);
  EXPECT_EQ(form->Rt1.formats().runCount(), 0u);
  user().click("CmdNxt");
  EXPECT_EQ(form->Rt1.Text, "b\f") << "the page buttons go on working";
}

TEST_F(Tools, ImportOpensAnyTextFile) {
  open(pages(3));
  user().click("CmdLast");
  user().click("CmdImport");
  EXPECT_EQ(form->LbPageNo.Caption, "Page 3/3") << "cancelled with no earlier name";
  machine.dialogs.files = {write("other.txt", "no form feed")};
  user().click("CmdImport");
  EXPECT_EQ(form->Rt1.Text, "no form feed\f");
  EXPECT_EQ(form->LbPageNo.Caption, "Page 1/1");
  EXPECT_EQ(machine.dialogs.questions.back().title,
            "[ TXT File Only ]Select A File From Which To Retrive Data");
  machine.dialogs.files = {folder.path / "missing.txt"};
  EXPECT_ANY_THROW(user().click("CmdImport"));
  EXPECT_EQ(form->Rt1.Text, "no form feed\f");
}

TEST_F(Tools, MenuCopiesHighlightsAndWhileEditingPastes) {
  open("\033Ebold\033F one\f");
  user().click("Rt1", mbRight);
  EXPECT_THROW(user().chooseFromMenu("pppp"), std::logic_error);
  form->Rt1.SelStart = 0;
  form->Rt1.SelLength = 8;
  user().click("Rt1", mbRight);
  user().chooseFromMenu("cccc");
  EXPECT_EQ(machine.clipboard.content, "bold") << "without the marks that the page hides";
  user().click("Check2");
  form->Rt1.SelStart = 9;
  form->Rt1.SelLength = 3;
  user().click("Rt1", mbRight);
  user().chooseFromMenu("pppp");
  EXPECT_EQ(form->Rt1.Text, "\033Ebold\033F bold\f");
  form->Rt1_MouseDown({mbRight, 0, 100, 200});
  const auto menu = form->takePopup();
  EXPECT_TRUE(menu->x == 150 && menu->y == 725);
  for (const int bold : {0, 1}) {
    form->ChHighlighte.Value = bold;
    form->Rt1.SelStart = 9;
    form->Rt1.SelLength = 1;
    user().click("Rt1", mbRight);
    user().chooseFromMenu("ht");
    EXPECT_EQ(form->Rt1.formats().at(9), (CharFormat{.color = 255, .bold = bold == 1}));
    EXPECT_EQ(form->settings().flag(ReportViewKey::ChHighlighte), bold == 1);
  }
}

TEST_F(Tools, ColorChangesAreKept) {
  open("abc\f");
  user().click("Label4");
  machine.dialogs.colors = {111, 222, 333};
  form->ChSearch.Value = 0;
  EXPECT_TRUE(form->settings().flag(ReportViewKey::chSearch)) << "not written by its click";
  for (const char* box : {"TXt(0)", "TXt(2)", "TXt(4)"}) user().doubleClick(box);
  EXPECT_EQ(form->Lb[2].ForeColor, 222u);
  EXPECT_EQ(form->Rt1.BackColor, kWhite) << "until the next load";
  EXPECT_EQ(form->settings().color(ReportViewKey::BBold), 111u);
  EXPECT_EQ(form->settings().color(ReportViewKey::RepotBackColor), 333u);
  EXPECT_FALSE(form->settings().flag(ReportViewKey::chSearch));
  user().doubleClick("TXt(1)");
  EXPECT_EQ(form->TXt[1].BackColor, 128u) << "cancelled";
  user().click("Command3");
  user().click("lb1");
  EXPECT_TRUE(form->Frame6.Visible);
}

TEST_F(Tools, CalculatorStandsLowerUnderTheMouse) {
  open("abc\f");
  const Geometry place = form->Image1;
  for (int i = 0; i < 2; ++i) user().moveMouseOver("Image1");
  EXPECT_EQ(form->Image1.Top, place.Top + 15);
  EXPECT_EQ(form->Image1.Left, place.Left + 15);
  user().click("Image1");
  EXPECT_EQ(machine.shell.started, (std::vector<std::vector<std::string>>{{"calculator"}}));
  for (int i = 0; i < 2; ++i) user().moveMouseOverForm();
  EXPECT_EQ(form->Image1.Top, place.Top);
  machine.shell.calculatorCommand.reset();
  EXPECT_FALSE(open("abc\f").Image1.Visible);
}

TEST_F(Tools, CaptionSaysWhereTheCaretIs) {
  open("one\r\ntwo\f");
  form->Rt1.SelStart = 6;
  form->Rt1.SelLength = 2;
  user().tick("Timer1");
  EXPECT_EQ(form->Caption, " Report View   [ Col : 1 Line : 2 ]   2   Veldran Computer  [V.1]");
  form->Rt1.SelStart = 0;
  user().tick("Timer1");
  EXPECT_NE(form->Caption.find("Line : 2"), std::string::npos) << "once for each change";
  int key = keyControl;
  form->Rt1.keyDown(key, smCtrl);
  EXPECT_EQ(form->Rt1.MousePointer, 99);
  user().tick("Timer1");
  EXPECT_NE(form->Caption.find("Line : 1"), std::string::npos) << "and for each key";
  form->Rt1.keyUp(key);
  EXPECT_EQ(form->Rt1.MousePointer, 0);
}

TEST_F(Tools, CaretPlacesBecomeColumnMarksWhilePicking) {
  open("0123456789\f");
  form->CmdExelExp.Tag = "1";
  form->ColumnMarkCount = 1;
  for (const int column : {3, 7}) {
    form->Rt1.SelStart = column;
    user().click("Rt1");
    user().tick("Timer1");
    user().tick("Timer1");
  }
  EXPECT_EQ(form->ColumnMarks, (std::vector<std::int16_t>{0, 3, 7, 0}));
  form->ColumnMarkCount = 255;
  form->ColumnMarks.resize(256);
  user().click("Rt1");
  user().tick("Timer1");
  EXPECT_EQ(form->ColumnMarkCount, 0);
  EXPECT_EQ(form->ColumnMarks.size(), 1u);
}

}  // namespace
}  // namespace paperway
