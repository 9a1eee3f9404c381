#include "report_window.h"

namespace paperway {
namespace {

using Moves = ReportWindow;

TEST_F(Moves, EachButtonDoesItsRow) {
  struct Case {
    const char* click;
    int page;  // counted from 1
    bool back;
    bool next;
  };
  const Case walk[] = {
      {"CmdFst", 1, false, true}, {"CmdNxt", 2, true, true},   {"CmdBck", 1, true, true},
      {"CmdBck", 1, false, true}, {"CmdNxt", 2, true, true},   {"CmdNxt", 3, true, true},
      {"CmdNxt", 3, true, false}, {"CmdBck", 2, true, true},   {"CmdLast", 3, true, false},
      {"CmdFst", 1, false, true}, {"CmdLast", 3, true, false}, {"CmdBck", 2, true, true},
  };
  open(pages(3));
  for (const Case& c : walk) {
    user().click(c.click);
    const std::string number = std::to_string(c.page);
    EXPECT_EQ(form->Rt1.Text, "page " + number + "\r\n\f") << c.click;
    EXPECT_EQ(form->LbPageNo.Caption, "Page " + number + "/3") << c.click;
    EXPECT_EQ(form->LBPage.Caption, number) << c.click;
    EXPECT_EQ(form->CmdBck.Enabled, c.back) << c.click;
    EXPECT_EQ(form->CmdNxt.Enabled, c.next) << c.click;
  }
}

TEST_F(Moves, OnePageShowsAgainAndDisables) {
  open("only\f");
  form->Rt1.Locked = false;
  form->Rt1.typeText("typed ");
  user().click("CmdNxt");
  EXPECT_EQ(form->Rt1.Text, "only\f");
  EXPECT_FALSE(form->CmdNxt.Enabled);
}

TEST_F(Moves, GoToAPage) {
  struct Case {
    const char* keys;
    int page;
    bool message;
  };
  open(pages(6));
  const Case cases[] = {{"4\r", 4, false}, {"0\r", 4, true},   {"7\r", 4, true},
                        {"\r", 4, true},   {"x6\r", 6, false}, {"12\b\r", 1, false}};
  for (const Case& c : cases) {
    machine.messageBox.shown.clear();
    user().focus("Text4");
    EXPECT_EQ(form->Text2.Text, "") << "leaving the box clears it";
    user().type("Text2", c.keys);
    EXPECT_EQ(form->LbPageNo.Caption, "Page " + std::to_string(c.page) + "/6") << c.keys;
    EXPECT_EQ(form->Rt1.Text, "page " + std::to_string(c.page) + "\r\n\f") << c.keys;
    ASSERT_EQ(machine.messageBox.shown.size(), c.message ? 1u : 0u) << c.keys;
    if (!c.message) continue;
    EXPECT_EQ(machine.messageBox.shown[0].text, " Select Valid PageNo...!");
    EXPECT_EQ(machine.messageBox.shown[0].icon, MessageBox::Icon::critical);
  }
  EXPECT_EQ(form->LBPage.Caption, "1") << "from before the first go-to";
  EXPECT_FALSE(form->CmdBck.Enabled) << "untouched since the window opened";
}

std::string hits(const FrmReport& form) {
  std::string map;
  for (std::size_t i = 0; i < form.Rt1.buffer().size(); ++i) {
    const CharFormat f = form.Rt1.formats().at(i);
    map += f.color == form.TXt[5].BackColor ? (f.bold ? 'B' : 'c') : '.';
  }
  return map;
}

TEST_F(Moves, SearchMarksEveryHitButOneAtTheBeginning) {
  struct Case {
    const char* page;
    const char* sought;
    const char* marked;
  };
  const Case cases[] = {
      {"ab AB ab", "ab", "...BB.BB."},
      {"aaaa", "aa", ".BBB."},
      {"x\351y", "\303\211", ".B.."},
      {"abc", "d", "...."},
      {"abc", "", "...."},
  };
  for (const Case& c : cases) {
    open(c.page);
    form->Text4.Text = c.sought;
    user().type("Text4", "\r");
    EXPECT_EQ(hits(*form), c.marked) << c.page;
  }
  form->ChSearch.Value = 0;
  form->Text4.Text = "b";
  user().type("Text4", "\r");
  EXPECT_EQ(hits(*form), ".c..");
  user().click("CmdFst");
  EXPECT_EQ(hits(*form), "....") << "marks last until the page is shown anew";
}

TEST_F(Moves, SearchCoversTheWholeFileInTheContinuousView) {
  open("one\fxone\f");
  user().click("Check3");
  form->Text4.Text = "one";
  user().type("Text4", "\r");
  EXPECT_EQ(hits(*form), ".....BBB.");
}

TEST_F(Moves, EscapeStopsASearchAtTheNextRound) {
  open(" a a a a");
  form->Text4.Text = "a";
  int yields = 0;
  machine.windows.waitingEvents = [&] {
    if (++yields == 2) user().press("Text4", keyEscape);
  };
  user().type("Text4", "\r");
  EXPECT_EQ(hits(*form), ".B.B.....");
  machine.windows.waitingEvents = nullptr;
  user().type("Text4", "\r");
  EXPECT_EQ(hits(*form), ".B.B.B.B.");
}

TEST_F(Moves, AWindowClosedDuringASearchEndsIt) {
  open(" a a a a");
  form->Text4.Text = "a";
  machine.windows.waitingEvents = [&] {
    machine.windows.forms.clear();
    std::shared_ptr<Form> closing = std::move(form);
    if (closing) closing->unload();
  };
  FrmReport* window = form.get();
  int enter = keyReturn;
  window->Text4.keyPress(enter);
  EXPECT_FALSE(runState().ModWindowOpen);
}

}  // namespace
}  // namespace paperway
