#include "report_window.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

using Moves = ReportWindow;

TEST_F(Moves, EachButtonDoesItsRow) {
  const std::tuple<const char*, int, bool, bool> walk[] = {
      {"CmdFst", 1, false, true},
      {"CmdNxt", 2, true, true},
      {"CmdBck", 1, true, true},
      {"CmdBck", 1, false, true},
      {"CmdNxt", 2, true, true},
      {"CmdNxt", 3, true, true},
      {"CmdNxt", 3, true, false},
      {"CmdBck", 2, true, true},
      {"CmdLast", 3, true, false},
      {"CmdFst", 1, false, true},
      {"CmdLast", 3, true, false},
      {"CmdBck", 2, true, true},
  };
  open(pages(3));
  for (const auto& [click, page, back, next] : walk) {
    user().click(click);
    const std::string number = std::to_string(page);
    EXPECT_EQ(form->Rt1.Text, "page " + number + "\r\n\f") << click;
    EXPECT_EQ(form->LbPageNo.Caption, "Page " + number + "/3") << click;
    EXPECT_EQ(form->LBPage.Caption, number) << click;
    EXPECT_EQ(form->CmdBck.Enabled, back) << click;
    EXPECT_EQ(form->CmdNxt.Enabled, next) << click;
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

TEST_F(Moves, GoToRoundsAHalfPageToTheEvenIndex) {
  open(pages(7));
  const auto goTo = [&](const char* number) {
    form->Text2.Text = number;
    user().type("Text2", "\r");
    return form->CurrentPage + 1;
  };
  expectEach(goTo, Row{"1.5", 1}, Row{"2.5", 3}, Row{"3.5", 3}, Row{"6.6", 7});
}

class Search : public ReportWindow {
 protected:
  /// What a search for the text marks: 'B' bold, 'c' coloured only, '.' nothing.
  std::string search(const std::string& text) {
    form->Text4.Text = text;
    user().type("Text4", "\r");
    return hits();
  }
  std::string hits() {
    std::string map;
    for (std::size_t i = 0; i < form->Rt1.buffer().size(); ++i) {
      const CharFormat f = form->Rt1.formats().at(i);
      map += f.color == form->TXt[5].BackColor ? (f.bold ? 'B' : 'c') : '.';
    }
    return map;
  }
};

TEST_F(Search, MarksEveryHitButOneAtTheBeginning) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"ab AB ab", "ab", "...BB.BB."},
      {"aaaa", "aa", ".BBB."},
      {"x\351y", "\303\211", ".B.."},
      {"a?c", "\u20B9", "...."},  // no report can hold it
      {"abc", "d", "...."},
      {"abc", "", "...."},
  };
  for (const auto& [page, sought, marked] : cases) {
    open(page);
    EXPECT_EQ(search(sought), marked) << page;
  }
  form->ChSearch.Value = 0;
  EXPECT_EQ(search("b"), ".c..");
  user().click("CmdFst");
  EXPECT_EQ(hits(), "....") << "marks last until the page is shown anew";

  open("one\fxone\f");
  user().click("Check3");
  EXPECT_EQ(search("one"), ".....BBB.") << "the whole file in the continuous view";
  user().click("CmdNxt");
  EXPECT_EQ(form->Rt1.Text, "xone\f") << "the page buttons go on working";
  user().press("Rt1", keyHome, smCtrl);
  EXPECT_EQ(form->Rt1.Text, "one\f") << "and the keys go by what is on show";
}

TEST_F(Search, EscapeStopsItAtTheNextRound) {
  open(" a a a a");
  int yields = 0;
  machine.windows.waitingEvents = [&] {
    if (++yields == 2) user().press("Text4", keyEscape);
  };
  EXPECT_EQ(search("a"), ".B.B.....");
  machine.windows.waitingEvents = nullptr;
  EXPECT_EQ(search("a"), ".B.B.B.B.");
}

TEST_F(Search, AWindowClosedMeanwhileEndsIt) {
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
