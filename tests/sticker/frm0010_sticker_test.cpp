#include "sticker/frm0010_sticker.h"

#include <gtest/gtest.h>

#include "paperway/class1.h"
#include "session/run_state.h"
#include "support/error_of.h"
#include "support/expect_each.h"
#include "support/files.h"
#include "support/headless_desk.h"

namespace paperway {
namespace {

class StickerForm : public testing::Test, protected HeadlessDesk {
 protected:
  StickerForm() { runState() = RunState(); }

  void keep(const std::string& key, const std::string& value) {
    machine.userStore.save("paperway", "Sticker", key, value);
  }
  std::string kept(const std::string& key) {
    return machine.userStore.get("PAPERWAY", "sticker", key, "none");
  }

  Frm0010Sticker& open() {
    class1_.StickerPrint();
    form_ = std::dynamic_pointer_cast<Frm0010Sticker>(runState().ModStickerForm.lock());
    return *form_;
  }
  headless::User user() { return headless::User(*form_); }
  std::string last() const {
    return machine.messageBox.shown.empty() ? "" : machine.messageBox.shown.back().text;
  }

  Class1 class1_{platform()};
  std::shared_ptr<Frm0010Sticker> form_;
};

TEST_F(StickerForm, FirstStartShowsTheDefaults) {
  Frm0010Sticker& form = open();
  const std::string boxes = form.TxSp.Text.get() + "," + form.TxCol.Text.get() + "," +
                            form.TxRow.Text.get() + "," + form.TxBlank.Text.get() + "," +
                            form.TxMaxFLenth.Text.get();
  EXPECT_EQ(boxes, "3,6,12,3,4");
  for (const TextBox& line : form.Atxt) EXPECT_EQ(line.Text, " ") << line.name;
  EXPECT_TRUE(form.Op[0].Value);
  EXPECT_TRUE(form.OPF[1].Font.Bold);
  EXPECT_FALSE(form.Frame1.Visible);
  EXPECT_EQ(form.LbSheet.Caption, "42 of 80 characters, 57 of 36 lines (6 inches), 72 stickers");
  EXPECT_FALSE(class1_.RtWindows1());
  EXPECT_EQ(form.Left, (machine.windows.screenSize.Width - form.Width) / 2);
}

TEST_F(StickerForm, APresetFillsTheBoxesAndWhatIsNoneHasItsDefault) {
  keep("2 space", "1"), keep("2 COL", "2"), keep("2 Row", "3"), keep("2 Blankline", "0");
  keep("2 MaxFL", "9"), keep("2 MaxF", "4"), keep("2 PrintStyle", "1"), keep("2 5", "last");
  keep("3 MaxF", "6"), keep("3 PrintStyle", "2");
  Frm0010Sticker& form = open();
  user().click("OPss(2)");
  EXPECT_EQ(form.LbSheet.Caption, "20 of 136 characters, 15 of 36 lines (6 inches), 6 stickers");
  EXPECT_TRUE(form.Op[1].Value);
  EXPECT_TRUE(form.OPF[4].Value && form.OPF[4].Font.Bold && !form.OPF[1].Font.Bold);
  EXPECT_EQ(form.Atxt[4].Text, "last");
  user().type("Atxt(4)", "!");
  user().click("OPss(3)");
  EXPECT_TRUE(form.OPF[1].Value && form.Op[0].Value);
  EXPECT_EQ(kept("2 5"), "last") << "what is left is not saved";
  user().click("OPss(5)");
  EXPECT_EQ(form.OPss[1].Tag, "5");
}

TEST_F(StickerForm, SavesUnderThePresetInUse) {
  open();
  user().click("JeweledButton1");
  user().click("CmdSave");
  EXPECT_EQ(kept("1 PrintStyle"), "1") << "until a style is chosen, whatever is selected";
  EXPECT_EQ(kept("1 1"), " ");
  user().click("OPss(4)");
  user().click("OPF(3)");
  user().click("Op(1)");
  user().click("Op(0)");
  user().type("TxMaxFLenth", "2");
  user().type("Atxt(1)", "two");
  user().click("CmdSave");
  const auto saved = [this](const char* key) { return kept(key); };
  expectEach(saved,
             Row{"4 Space", "3"},
             Row{"4 Col", "6"},
             Row{"4 Row", "12"},
             Row{"4 Blankline", "3"},
             Row{"4 MaxFL", "42"},
             Row{"4 maxf", "3"},
             Row{"4 PrintStyle", "0"},
             Row{"4 2", " two"},
             Row{"4 5", " "},
             Row{"5 Col", "none"});
  EXPECT_EQ(machine.userStore.values.size(), 24u);
  machine.userStore.failure = AutomationError(75, "UserStore", "no store");
  EXPECT_EQ(errorOf([&] { form_->CmdSave_Click(); }), "no store");
  EXPECT_EQ(errorOf([&] { form_->OPss_Click(5); }), "no store");
  EXPECT_EQ(form_->OPss[1].Tag, "5") << "what is selected is what will be saved";
}

TEST_F(StickerForm, CountsInFullRows) {
  Frm0010Sticker& form = open();
  const auto count = [&](const char* columns, const char* stickers) {
    form.TxRow.Text = "-";
    form.TxCol.Text = columns;
    form.TxNos.Text = "";
    form.TxNos.Text = stickers;
    return form.TxRow.Text.get() + " rows, " + form.lb2.Caption;
  };
  expectEach(count,
             Row{"6", "20", "3 rows, 18"},
             Row{"6", "5", "0 rows, 0"},
             Row{"4 wide", "9 or so", "2 rows, 8"},
             Row{"0", "20", "- rows, 0"},
             Row{"", "20", "- rows, 0"},
             Row{"6", "-1", "-1 rows, -6"});
}

TEST_F(StickerForm, TheSettingsOpenBesideTheLines) {
  Frm0010Sticker& form = open();
  const int narrow = form.Width;
  EXPECT_EQ(narrow, form.Frame4.Width + 150);
  user().click("JeweledButton1");
  EXPECT_EQ(form.Width, form.Frame4.Width + form.Frame1.Width + 150);
  EXPECT_TRUE(form.TxCol.reachable());
  user().click("JeweledButton1");
  EXPECT_EQ(form.Width, narrow);
}

TEST_F(StickerForm, ShowsTheSheetInOneReportWindow) {
  Frm0010Sticker& form = open();
  form.Atxt[0].Text = "abc";
  form.TxRow.Text = "1";
  user().click("JBshow");
  auto& report = dynamic_cast<FrmReport&>(*machine.windows.forms.back());
  EXPECT_EQ(report.Rt1.Text.get().substr(0, 8), "abc    a");
  EXPECT_FALSE(report.CmdPrint.Visible) << "the switches of no preview";
  EXPECT_TRUE(class1_.RtWindows1());
  const auto first = runState().ModPath1;
  form.Atxt[0].Text = "new";
  user().click("JBshow");
  EXPECT_EQ(&report, machine.windows.forms.back().get());
  EXPECT_EQ(report.Rt1.Text.get().substr(0, 8), "new    n");
  EXPECT_EQ(report.ReportPath, runState().ModPath1);
  EXPECT_NE(runState().ModPath1, first);
  EXPECT_EQ(readFile(first).substr(0, 3), "abc");
  report.unload();
  user().click("JBshow");
  EXPECT_NE(&report, machine.windows.forms.back().get()) << "a closed window comes back as another";
}

TEST_F(StickerForm, TellsTheBoxThatHoldsNoNumber) {
  Frm0010Sticker& form = open();
  const auto told = [&](TextBox Frm0010Sticker::*box, const char* text) {
    form.OPss_Click(1);
    (form.*box).Text = text;
    machine.messageBox.shown.clear();
    form.JBshow_Click();
    return last();
  };
  using F = Frm0010Sticker;
  expectEach(
      told,
      Row{&F::TxCol, "x", "\"Col\" takes a whole number from 0 to 255, not \"x\"."},
      Row{&F::TxCol, "256", "\"Col\" takes a whole number from 0 to 255, not \"256\"."},
      Row{&F::TxSp,
          "-1",
          "\"SPace Between Col\" takes a whole number from 0 to 32767, not \"-1\"."},
      Row{&F::TxRow, "", "\"Row\" takes a whole number from -32768 to 32767, not \"\"."},
      Row{&F::TxMaxFLenth,
          "255.6",
          "\"Max Feild Lenth\" takes a whole number from 0 to 255, not \"255.6\"."},
      Row{&F::TxBlank, "-1", "\"Blank Line\" takes a whole number from 0 to 32767, not \"-1\"."},
      Row{&F::TxBlank, "", ""},
      Row{&F::TxMaxFLenth, "none", ""},
      Row{&F::TxCol, " 2.5 ", ""});
  EXPECT_EQ(form.LbSheet.Caption.substr(0, 7), "14 of 8") << "half a column to the even number";
  form.TxCol.Text = "&1";
  EXPECT_NE(form.LbSheet.Caption.find("not \"&&1\""), std::string::npos) << "no access key";
  form.TxSp.Text = form.TxRow.Text = "32767";
  form.TxCol.Text = "255";
  user().click("JBshow");
  EXPECT_EQ(last(),
            "The sheet would have 8,356,605 characters by 163,832 lines, which is more than can be "
            "shown.");
  EXPECT_EQ(machine.windows.forms.size(), 2u) << "one report window, of the sheets that could be";
}

TEST_F(StickerForm, TellsFileAndReasonWhenTheSheetCannotBeWritten) {
  open();
  machine.storage.failAt = 1;
  user().click("JBshow");
  EXPECT_NE(last().find("TempDir"), std::string::npos) << last();
  EXPECT_TRUE(runState().ModPath1.empty());
  EXPECT_EQ(machine.windows.forms.size(), 1u);
}

TEST_F(StickerForm, ComesToTheFrontWhileItIsOpen) {
  Frm0010Sticker& form = open();
  form.Atxt[0].Text = "typed";
  EXPECT_EQ(&open(), &form);
  EXPECT_EQ(form.Atxt[0].Text, "typed");
  user().click("CmdExit");
  EXPECT_FALSE(form.loaded());
  EXPECT_NE(&open(), &form);
}

}  // namespace
}  // namespace paperway
