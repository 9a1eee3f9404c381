#include "report_window.h"

namespace paperway {
namespace {

using Tools = ReportWindow;

TEST_F(Tools, EditingLastsUntilThePageIsShownAnew) {
  open(pages(2));
  user().click("Check2");
  EXPECT_EQ(form->Check1.Value, 0) << "a plain press shows the marks of pages to come";
  user().type("Rt1", "My ");
  EXPECT_EQ(form->Rt1.Text, "My age 1\r\n\f") << "in place of the selected character";
  user().click("CmdFst");
  EXPECT_EQ(form->Rt1.Text, "page 1\r\n\f");
  user().click("Check2");
  EXPECT_TRUE(form->Rt1.Locked);
  form->Check2.mouseDown({mbRight, smShift, 0, 0});
  EXPECT_EQ(form->Check1.Value, 1);
}

TEST_F(Tools, ImportOpensAnyTextFile) {
  open(pages(3));
  user().click("CmdLast");
  user().click("CmdImport");
  EXPECT_EQ(form->LbPageNo.Caption, "Page 3/3") << "cancelled with no earlier name";
  machine.dialogs.files = {folder.path / "other.txt"};
  for (const char* text : {"no form feed", "cancelled: the name before holds"}) {
    write("other.txt", text);
    user().click("CmdImport");
    EXPECT_EQ(form->Rt1.Text, std::string(text) + "\f");
  }
  EXPECT_EQ(form->LbPageNo.Caption, "Page 1/1");
  machine.dialogs.files = {folder.path / "missing.txt"};
  EXPECT_ANY_THROW(user().click("CmdImport"));
  const FileQuestion& asked = machine.dialogs.questions.back();
  EXPECT_EQ(asked.title, "[ TXT File Only ]Select A File From Which To Retrive Data");
  EXPECT_EQ(asked.filters[0].description, "Txt File(*.txt)");
  EXPECT_EQ(asked.filters[0].patterns, std::vector<std::string>{"*.txt"});
}

TEST_F(Tools, MenuHighlightsAndWhileEditingPastes) {
  open("\033Ebold\033F one\f");
  form->Rt1_MouseDown({mbRight, 0, 100, 200});
  const auto menu = form->takePopup();
  EXPECT_TRUE(menu->x == 150 && menu->y == 725);
  const auto choose = [this](const char* item) {
    form->Rt1.SelStart = 9;
    form->Rt1.SelLength = 3;
    user().click("Rt1", mbRight);
    user().chooseFromMenu(item);
  };
  for (const int bold : {0, 1}) {
    form->ChHighlighte.Value = bold;
    choose("ht");
    EXPECT_EQ(form->Rt1.formats().at(9), (CharFormat{.color = 255, .bold = bold == 1}));
    EXPECT_EQ(form->settings().flag(ReportViewKey::ChHighlighte), bold == 1);
  }
  machine.clipboard.content = "bold";
  EXPECT_THROW(choose("pppp"), std::logic_error);
  user().click("Check2");
  choose("pppp");
  EXPECT_EQ(form->Rt1.Text, "\033Ebold\033F bold\f");
  choose("ht");
  EXPECT_TRUE(form->Rt1.undo());
  EXPECT_EQ(form->Rt1.formats().at(9), CharFormat{}) << "the highlight goes before the paste";
}

TEST_F(Tools, ColorChangesAreKept) {
  open("abc\f");
  const Color defaults[] = {8388608, 128, 0, 8388736, 16777215, 33023, 255};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(form->TXt[i].BackColor, defaults[i]) << i;
  EXPECT_EQ(form->ChSearch.Value, 1);
  user().click("Label4");
  machine.dialogs.colors = {111, 333};
  form->ChSearch.Value = 0;
  EXPECT_TRUE(form->settings().flag(ReportViewKey::chSearch)) << "not written by its click";
  for (const char* box : {"TXt(3)", "TXt(4)", "TXt(1)"}) user().doubleClick(box);
  EXPECT_EQ(form->TXt[1].BackColor, 128u) << "cancelled";
  EXPECT_EQ(form->Rt1.BackColor, kWhite) << "until the next load";
  for (int i = 0; i < 7; ++i) {
    if (i == 3 || i == 4) continue;
    machine.dialogs.colors = {1000U + static_cast<unsigned>(i)};
    user().doubleClick("TXt(" + std::to_string(i) + ")");
    EXPECT_TRUE(form->TXt[i].Locked) << "its text is its color";
  }
  load("abc\f");
  const Color kept[] = {1000, 1001, 0, 111, 333, 1005, 1006};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(form->TXt[i].BackColor, kept[i]) << i;
  EXPECT_EQ(form->Rt1.BackColor, 333u);
  EXPECT_EQ(form->Lb[3].ForeColor, 111u);
  EXPECT_EQ(form->ChSearch.Value, 0);
}

TEST_F(Tools, CalculatorStandsLowerUnderTheMouse) {
  open("abc\f");
  const int top = form->Image1.Top;
  for (int i = 0; i < 2; ++i) user().moveMouseOver("Image1");
  EXPECT_EQ(form->Image1.Top, top + 15);
  user().click("Image1");
  EXPECT_EQ(machine.shell.started, (std::vector<std::vector<std::string>>{{"calculator"}}));
  for (int i = 0; i < 2; ++i) user().moveMouseOverForm();
  EXPECT_EQ(form->Image1.Top, top);
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
  user().press("Rt1", keyControl, smCtrl);
  user().tick("Timer1");
  EXPECT_NE(form->Caption.find("Line : 1"), std::string::npos) << "and for each key";
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
  user().click("Rt1");
  user().tick("Timer1");
  EXPECT_EQ(form->ColumnMarkCount, 0);
}

}  // namespace
}  // namespace paperway
