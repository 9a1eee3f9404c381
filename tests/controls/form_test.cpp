#include "controls/form.h"

#include <gtest/gtest.h>

#include "backends/headless/headless.h"
#include "backends/headless/user.h"
#include "controls/boxes.h"
#include "controls/buttons.h"
#include "controls/common_dialog.h"
#include "support/error_of.h"

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
    Text1.onKeyPress = [](int& key) { key = key >= 'a' ? 1 : key; };
    Text1.onLostFocus = [this] { log += "left "; };
    Text1.onValidate = [this](bool& cancel) { cancel = Text1.Text == "bad"; };
    VScroll1.Min = 1;
    VScroll1.Max = 100;
    VScroll1.onChange = [this] { log += "scroll " + std::to_string(VScroll1.Value) + " "; };
    CmdOk.onClick = [this] { PopupMenu(AQ, 10, 20); };
    pppp.onClick = [this] { log += "paste "; };
  }
  void Form_Load() override { log += "load "; }
  void Form_Activate() override { log += "activate "; }
  void Form_Unload() override { log += "unload "; }

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

class FormTest : public testing::Test {
 protected:
  SampleForm form;
  headless::User user{form};
};

TEST_F(FormTest, ActsRunTheirHandlersOnce) {
  const std::pair<std::function<void()>, const char*> acts[] = {
      {[this] { form.Ch12.Value = 1; }, "Ch12 "},
      {[this] { form.Ch17.Value = 1; }, "Ch17 "},
      {[this] { user.click("Ch10"); }, "Ch10 "},
      {[this] { form.Ch10.Value = 1; }, ""},
      {[this] { form.OptElse.Value = true; }, ""},
      {[this] { user.click("Op(1)"); }, "Op(1) "},
      {[this] { form.Op[2].Value = true; }, "Op(2) "},
      {[this] { user.click("Op(2)"); }, ""},
      {[this] { user.type("Text1", "1x2\r3\b"); }, "change 1 change 12 change 123 change 12 "},
      {[this] { form.Text1.Text = "12"; }, ""},
      {[this] { user.scroll("VScroll1", 50); }, "scroll 50 "},
      {[this] { user.scroll("VScroll1", -3); }, "scroll 1 "},
      {[this] { user.scroll("VScroll1", 1000); }, "scroll 100 "},
      {[this] { user.scroll("VScroll1", 100); }, ""},
      {[this] { form.Text1.Text = "bad"; }, "change bad "},
      {[this] { EXPECT_FALSE(user.focusMoves("Combo1")); }, ""},
      {[this] { form.Text1.Text = "good"; }, "change good "},
      {[this] { EXPECT_TRUE(user.focusMoves("Combo1")); }, "left "},
      {[this] { user.alt('t'); }, ""},
      {[this] { user.alt('P'); }, "left "},
      {[this] { user.chooseFromMenu("pppp"); }, "paste "},
  };
  int row = 0;
  for (const auto& [act, log] : acts) {
    act();
    EXPECT_EQ(std::exchange(form.log, ""), log) << "row " << row;
    ++row;
  }
  EXPECT_TRUE(form.Ch10.Value == 1 && form.Ch12.Value == 0 && form.Ch17.Value == 0);
  EXPECT_FALSE(form.Op[1].Value);
  EXPECT_TRUE(form.OptElse.Value) << "another container";
  EXPECT_EQ(form.activeControl(), &form.CmdOk);
  EXPECT_FALSE(form.pressAccessKey('z'));
}

TEST(Form, ControlsOutOfReachDoNothing) {
  const std::pair<const char*, std::function<void(SampleForm&)>> cases[] = {
      {"disabled", [](SampleForm& f) { f.Op[1].Enabled = false; }},
      {"hidden", [](SampleForm& f) { f.Op[1].Visible = false; }},
      {"in a hidden frame", [](SampleForm& f) { f.Frame1.Visible = false; }},
      {"in a disabled frame", [](SampleForm& f) { f.Frame1.Enabled = false; }},
      {"on a disabled form", [](SampleForm& f) { f.Enabled = false; }},
      {"in a frame off the window", [](SampleForm& f) { f.Frame1.Top = 20000; }},
  };
  for (const auto& [what, change] : cases) {
    SampleForm form;
    change(form);
    EXPECT_FALSE(form.click("Op(1)")) << what;
    EXPECT_FALSE(form.Op[1].SetFocus()) << what;
    EXPECT_THROW(headless::User(form).click("Op(1)"), std::logic_error) << what;
    EXPECT_EQ(form.log, "") << what;
  }
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

TEST_F(FormTest, NamesAControlThatItLacks) {
  EXPECT_NE(errorOf([this] { form.click("Op(3)"); }).find("Op(3)"), std::string::npos);
}

TEST_F(FormTest, TextAndListOfAComboBoxFollowEachOther) {
  form.Combo1.Text = "4";
  EXPECT_EQ(form.Combo1.ListIndex, 1);
  form.Combo1.Text = "99";
  EXPECT_EQ(form.Combo1.ListIndex, -1);
  user.choose("Combo1", "6");
  EXPECT_EQ(form.Combo1.Text, "6");
  form.Combo1.Clear();
  EXPECT_EQ(form.Combo1.List(0), "");
}

TEST(Caption, AccessKeysAndPlainTexts) {
  const std::tuple<const char*, char32_t, const char*> cases[] = {{"&First", 'F', "First"},
                                                                  {" C&lose", 'L', " Close"},
                                                                  {"a && b", 0, "a & b"},
                                                                  {"R&&&D", 'D', "R&D"},
                                                                  {"end&", 0, "end"}};
  for (const auto& [caption, key, text] : cases) {
    EXPECT_EQ(accessKeyOf(caption), key) << caption;
    EXPECT_EQ(captionText(caption), text) << caption;
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
  const auto& filters = machine.dialogs.questions.front().filters;
  ASSERT_EQ(filters.size(), 2u);
  EXPECT_EQ(filters[0].description, "Txt File(*.txt)");
  EXPECT_EQ(filters[0].patterns, (std::vector<std::string>{"*.txt", "*.prn"}));
}

}  // namespace
}  // namespace paperway
