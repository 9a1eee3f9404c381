#include "controls/form.h"

#include <gtest/gtest.h>

#include "backends/headless/headless.h"
#include "backends/headless/user.h"
#include "controls/boxes.h"
#include "controls/buttons.h"
#include "controls/common_dialog.h"
#include "util/automation_error.h"

namespace paperway {
namespace {

/// Pitch boxes that clear one another, two groups of options, a box with a check, a menu.
struct SampleForm : Form {
  SampleForm() : Form("SampleForm") {
    Width = 6000;
    Height = 4000;
    for (CheckBox* box : {&Ch10, &Ch12, &Ch17}) {
      box->onClick = [this, box] {
        log += box->name + " ";
        for (CheckBox* other : {&Ch10, &Ch12, &Ch17}) {
          if (other != box) other->Value = 0;
        }
      };
    }
    for (OptionButton& option : Op) {
      option.onClick = [this, &option] { log += option.name + " "; };
    }
    Text1.onChange = [this] { log += "change " + Text1.Text.get() + " "; };
    Text1.onKeyPress = [](int& key) {
      if (key >= 'a') key = 1;
    };
    Text1.onLostFocus = [this] { log += "left "; };
    Text1.onValidate = [this](bool& cancel) { cancel = Text1.Text == "bad"; };
    VScroll1.Min = 1;
    VScroll1.Max = 100;
    VScroll1.onChange = [this] { log += "scroll "; };
    CmdOk.onClick = [this] { PopupMenu(AQ, 10, 20); };
    pppp.onClick = [this] { log += "paste "; };
  }
  void Form_Load() override { log += "load "; }
  void Form_Activate() override { log += "activate "; }
  void Form_Unload() override { log += "unload "; }

  std::string takeLog() { return std::exchange(log, ""); }

  std::string log;
  JeweledButton CmdOk{*this, "CmdOk", "&Print"};
  Frame Frame1{*this, "Frame1"};
  CheckBox Ch10{*this, "Ch10", "10 Cpi", &Frame1};
  CheckBox Ch12{*this, "Ch12", "12 Cpi", &Frame1};
  CheckBox Ch17{*this, "Ch17", "17 Cpi", &Frame1};
  ControlArray<OptionButton> Op{*this, "Op", {"All", "Current", "Range"}, &Frame1};
  OptionButton OptElse{*this, "OptElse", "Else"};
  Label Label1{*this, "Label1", "&Text :"};
  TextBox Text1{*this, "Text1"};
  ComboBox Combo1{*this, "Combo1", {"3", "4", "6"}};
  ScrollBar VScroll1{*this, "VScroll1"};
  Menu AQ{*this, "AQ"};
  MenuItem pppp{AQ, "pppp", "Paste"};
};

using headless::User;

TEST(CheckBox, BoxesThatClearOneAnotherKeepTheOneThatWasClicked) {
  SampleForm form;
  User user(form);
  form.Ch12.Value = 1;
  form.Ch17.Value = 1;
  user.click("Ch10");
  EXPECT_EQ(form.Ch10.Value, 1);
  EXPECT_EQ(form.Ch12.Value, 0);
  EXPECT_EQ(form.Ch17.Value, 0);
  EXPECT_EQ(form.takeLog(), "Ch12 Ch17 Ch10 ");
  form.Ch10.Value = 1;
  EXPECT_EQ(form.takeLog(), "") << "an unchanged value runs nothing";
}

TEST(OptionButton, OneOfItsContainerIsSelected) {
  SampleForm form;
  User user(form);
  form.OptElse.Value = true;
  user.click("Op(1)");
  form.Op[2].Value = true;
  form.Op[2].Value = true;
  user.click("Op(2)");
  EXPECT_EQ(form.takeLog(), "Op(1) Op(2) ");
  EXPECT_FALSE(form.Op[1].Value);
  EXPECT_TRUE(form.OptElse.Value) << "another container";
}

TEST(TextBox, KeysPassTheFilterAndChangesAreTold) {
  SampleForm form;
  User user(form);
  user.type("Text1", "1x2\r3\b");
  EXPECT_EQ(form.takeLog(), "change 1 change 12 change 123 change 12 ");
  form.Text1.Text = "12";
  EXPECT_EQ(form.takeLog(), "");
}

TEST(Form, FocusStaysWhileTheBoxDoesNotValidate) {
  SampleForm form;
  User user(form);
  user.focus("Text1");
  form.Text1.Text = "bad";
  EXPECT_FALSE(user.focusMoves("Combo1"));
  EXPECT_EQ(form.activeControl(), &form.Text1);
  form.Text1.Text = "good";
  EXPECT_TRUE(user.focusMoves("Combo1"));
  EXPECT_EQ(form.takeLog(), "change bad change good left ");
}

TEST(Form, ControlsOutOfReachDoNothing) {
  struct Case {
    const char* what;
    std::function<void(SampleForm&)> change;
  };
  const Case cases[] = {
      {"disabled", [](SampleForm& f) { f.Op[1].Enabled = false; }},
      {"hidden", [](SampleForm& f) { f.Op[1].Visible = false; }},
      {"in a hidden frame", [](SampleForm& f) { f.Frame1.Visible = false; }},
      {"in a disabled frame", [](SampleForm& f) { f.Frame1.Enabled = false; }},
      {"on a disabled form", [](SampleForm& f) { f.Enabled = false; }},
      {"in a frame off the window", [](SampleForm& f) { f.Frame1.Top = 20000; }},
  };
  for (const Case& c : cases) {
    SampleForm form;
    c.change(form);
    EXPECT_FALSE(form.click("Op(1)")) << c.what;
    EXPECT_FALSE(form.Op[1].SetFocus()) << c.what;
    EXPECT_THROW(User(form).click("Op(1)"), std::logic_error) << c.what;
    EXPECT_EQ(form.log, "") << c.what;
  }
}

TEST(Form, AccessKeysPressOrMoveTheFocusBehindTheLabel) {
  SampleForm form;
  User user(form);
  user.alt('t');
  EXPECT_EQ(form.activeControl(), &form.Text1);
  user.alt('P');
  EXPECT_EQ(form.activeControl(), &form.CmdOk);
  user.chooseFromMenu("pppp");
  EXPECT_EQ(form.takeLog(), "left paste ");
  EXPECT_FALSE(form.pressAccessKey('z'));
}

TEST(Form, LoadsAndUnloadsOnce) {
  const auto form = std::make_shared<SampleForm>();
  headless::Headless machine("unused");
  form->activate();
  form->load();
  form->load();
  machine.windows.show(form);
  form->unload();
  form->unload();
  form->activate();
  EXPECT_EQ(form->log, "load activate unload ");
}

TEST(Form, NamesAControlThatItLacks) {
  SampleForm form;
  try {
    form.click("Op(3)");
    FAIL();
  } catch (const AutomationError& error) {
    EXPECT_NE(std::string(error.description()).find("Op(3)"), std::string::npos);
  }
}

TEST(ComboBox, TextAndListFollowEachOther) {
  SampleForm form;
  form.Combo1.Text = "4";
  EXPECT_EQ(form.Combo1.ListIndex, 1);
  form.Combo1.Text = "99";
  EXPECT_EQ(form.Combo1.ListIndex, -1);
  User(form).choose("Combo1", "6");
  EXPECT_EQ(form.Combo1.Text, "6");
  form.Combo1.Clear();
  EXPECT_EQ(form.Combo1.List(0), "");
}

TEST(ScrollBar, StaysBetweenItsEnds) {
  SampleForm form;
  for (const auto& [to, value] : {std::pair{50, 50}, {-3, 1}, {1000, 100}, {100, 100}}) {
    User(form).scroll("VScroll1", to);
    EXPECT_EQ(form.VScroll1.Value, value);
  }
  EXPECT_EQ(form.takeLog(), "scroll scroll scroll ");
}

TEST(Caption, AccessKeysAndPlainTexts) {
  struct Case {
    const char* caption;
    char32_t key;
    const char* text;
  };
  for (const Case& c : {Case{"&First", 'F', "First"},
                        {" C&lose", 'L', " Close"},
                        {"a && b", 0, "a & b"},
                        {"R&&&D", 'D', "R&D"},
                        {"end&", 0, "end"}}) {
    EXPECT_EQ(accessKeyOf(c.caption), c.key) << c.caption;
    EXPECT_EQ(captionText(c.caption), c.text) << c.caption;
  }
}

TEST(CommonDialog, KeepsItsAnswersWhenCancelled) {
  headless::Headless machine("unused");
  CommonDialog dialog(machine.dialogs);
  dialog.Filter = " Txt File(*.txt)|*.txt;*.prn|All|*";
  machine.dialogs.files = {"/tmp/a.txt", std::nullopt};
  machine.dialogs.colors = {255, std::nullopt};
  for (int i = 0; i < 2; ++i) {
    dialog.ShowOpen();
    dialog.ShowColor();
    EXPECT_EQ(dialog.FileName, "/tmp/a.txt");
    EXPECT_EQ(dialog.Color, 255u);
  }
  ASSERT_EQ(machine.dialogs.questions.front().filters.size(), 2u);
  EXPECT_EQ(machine.dialogs.questions.front().filters[0].description, "Txt File(*.txt)");
  EXPECT_EQ(machine.dialogs.questions.front().filters[0].patterns,
            (std::vector<std::string>{"*.txt", "*.prn"}));
}

}  // namespace
}  // namespace paperway
