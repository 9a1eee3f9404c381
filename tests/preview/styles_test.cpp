#include "report_window.h"

namespace paperway {
namespace {

using Styles = ReportWindow;

/// One letter a character: '.' plain, 'h' hidden, 'B' bold, 'C' condensed, 'D' double, 'u'
/// underlined (upper case when bold too), '?' anything else.
std::string looks(const RichTextBox& box) {
  const std::pair<CharFormat, char> known[] = {
      {{}, '.'},
      {{.color = 128, .bold = true}, 'B'},
      {{.size = 7, .color = 8388736}, 'C'},
      {{.size = 20, .color = 8388608, .bold = true}, 'D'},
      {{.underline = true}, 'u'},
      {{.color = 128, .bold = true, .underline = true}, 'U'},
      {{.size = 7, .color = 128, .bold = true}, 'b'},
  };
  std::string map;
  for (std::size_t i = 0; i < box.buffer().size(); ++i) {
    const CharFormat f = box.formats().at(i);
    char look = f.hidden() ? 'h' : '?';
    for (const auto& [format, letter] : known) look = f == format ? letter : look;
    map += look;
  }
  return map;
}

TEST_F(Styles, MarksAreHiddenAndTheTextBetweenThemStyled) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"condensed", "A\017bc\022D", ".hCCh.."},
      {"bold", "a\033Ebc\033Fd", ".hhBBhh.."},
      {"underline", "\033-1ab\033-0", "hhhuuhhh."},
      {"underline and bold", "\033-1a\033Eb\033F\033-0", "hhhuhhUhhhhh."},
      {"double goes over bold", "\016\033E\033Gab\024\033F\033H", "hhhhhDDhhhhh."},
      {"bold in condensed", "\017a\033Eb\033Fc\022", "hChhbhhCh."},
      {"twelve to the inch", "a\022\033W \033Mb\033Pc", ".hhhhhh.hh.."},
      {"double strike", "\033Ga\033H", "hh.hh."},
      {"start without end", "a\033Ebc", ".hh..."},
      {"the rest of the pass is dropped", "\033Ea\033Fb\033Ec", "hhBhh.hh.."},
      {"end without start", "a\033Fb", "....."},
      {"two pairs", "\033Ea\033Fb\033Ec\033F", "hhBhh.hhBhh."},
      {"start after start", "\033Ea\033Eb\033Fc", "hhBBBBhh.."},
      {"nothing", "", "."},
  };
  for (const auto& [what, page, expected] : cases) {
    open(std::string(page) + "\f");
    EXPECT_EQ(looks(form->Rt1), expected) << what;
    EXPECT_EQ(form->Rt1.SelStart, 0);
    EXPECT_EQ(form->Rt1.SelLength, 1);
  }
}

TEST_F(Styles, MarksAreWhiteOnAnyBackgroundWhileTheVisualSwitchIsOn) {
  load("x");
  form->settings().setColor(ReportViewKey::RepotBackColor, 0);
  open("\033Ea\033F\f\017b\022\f");
  EXPECT_EQ(form->Rt1.formats().at(0), (CharFormat{.size = 1, .color = 16777215}));
  user().click("Check1");
  user().click("CmdNxt");
  EXPECT_EQ(looks(form->Rt1), "....");
}

TEST_F(Styles, ZoomSizes) {
  open("\017a\022\016\033E\033Gb\024\033F\033H\f");
  const std::tuple<double, double, double, const char*> zooms[] = {
      {7, 20, 11.25, "Zoom"}, {9.25, 29, 15, "Zoom Out"}, {7, 20, 12, "Zoom"}};
  for (const auto& [condensed, wide, font, caption] : zooms) {
    EXPECT_EQ(form->Rt1.formats().at(1).size, condensed);
    EXPECT_EQ(form->Rt1.formats().at(8).size, wide);
    EXPECT_EQ(form->Rt1.Font.Size, font);
    EXPECT_EQ(form->Command2.Caption, caption);
    user().click("Command2");
  }
}

TEST_F(Styles, ExportCopyOfTheChosenPages) {
  const std::tuple<int, const char*, const char*, const char*> cases[] = {
      {0, "", "", "a\fb\fc\fd\f"}, {1, "", "", "b\f"}, {2, "2", "3", "b\fc\f"}, {2, "3", "2", ""}};
  open("a\fb\fc\fd\f");
  user().click("CmdNxt");
  for (const auto& [option, from, to, text] : cases) {
    form->Op[option].Value = true;
    form->Tst.Text = from;
    form->Tend.Text = to;
    form->PrintExport();
    EXPECT_EQ(form->RT3.Text, text) << option;
  }
  open("\016\033E\033Ga\024\033F\033H\017b\022\033Gc\f");
  form->PrintExport();
  EXPECT_EQ(looks(form->RT3), "hhhhhBhhhhhhCh....") << "no look for double width";
}

}  // namespace
}  // namespace paperway
