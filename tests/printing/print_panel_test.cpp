#include "printing/print_panel.h"

#include <gtest/gtest.h>

#include "backends/headless/headless.h"
#include "backends/headless/user.h"
#include "facade/class1.h"
#include "facade/run_state.h"
#include "printing/print_stream.h"
#include "support/test_folder.h"
#include "util/output_file.h"

namespace paperway {
namespace {

using Answer = MessageBox::Answer;

class Panel : public testing::Test {
 protected:
  Panel() { runState() = RunState(); }

  /// The window of a report of pages "page 1" to "page n".
  FrmReport& open(int pages = 3) {
    std::string text;
    for (int i = 1; i <= pages; ++i) text += "page " + std::to_string(i) + "\r\n\f\r\n";
    return openText(text);
  }

  FrmReport& openText(const std::string& text) {
    replaceFile(report_, text, "test");
    class1_.PreviewReport({.Path1 = report_, .RCont = 1, .REdit = 1, .RColor = 1, .RPrint = 1});
    form_ = std::dynamic_pointer_cast<FrmReport>(machine_.windows.forms.back());
    return *form_;
  }

  headless::User user() { return headless::User(*form_); }

  /// A click on "&Print" of the panel, with Yes to the question; the text of the job.
  std::string print() {
    form_->Frame1.Visible = true;
    machine_.messageBox.answers = {Answer::yes};
    user().click("CmdOk");
    return machine_.spooler.jobs.empty() ? "no job" : machine_.spooler.jobs.back()->bytes;
  }

  ReportViewSettings settings() {
    return ReportViewSettings(settingsPath(machine_.folders, runState().ModGuidComp));
  }

  /// The names of the bold ones among the controls.
  std::string bold() const {
    std::string names;
    for (const Control* control : form_->controls()) {
      if (control->Font.Bold) names += control->name + " ";
    }
    return names;
  }

  TestFolder folder_;
  headless::Headless machine_{folder_.path};
  Class1 class1_{machine_.platform()};
  std::shared_ptr<FrmReport> form_;
  const std::string report_ = folder_.path / "report.txt";
  const std::string setup_ = printerSetup({.paperHeight = 6, .draft = true});
};

TEST_F(Panel, StartsInTheStoredMode) {
  const struct {
    const char* mode;
    const char* localDos;
    const char* chosen;
    bool offered;
  } cases[] = {
      {"D", "F", "OptCharMode", false}, {"W", "F", "OptWinMode", false},
      {"L", "F", "OptCharMode", false}, {"L", "T", "OptDosLocal", true},
      {"D", "T", "OptCharMode", true},
  };
  for (const auto& row : cases) {
    settings().setText(ReportViewKey::PrnDefult, row.mode);
    settings().setText(ReportViewKey::Localdos, row.localDos);
    FrmReport& form = open();
    EXPECT_TRUE(form.get<OptionButton>(row.chosen).Value) << row.mode << row.localDos;
    EXPECT_EQ(form.OptDosLocal.Visible, row.offered);
    EXPECT_EQ(form.Check5.Value, row.offered ? 1 : 0);
    EXPECT_EQ(form.FrmWin.Enabled, std::string(row.mode) == "W");
  }
}

TEST_F(Panel, OpeningAWindowWritesNoSetting) {
  open();
  EXPECT_EQ(readFile(settingsPath(machine_.folders, ""), "test"), "");
}

TEST_F(Panel, WritesWhatTheUserChooses) {
  FrmReport& form = open();
  user().click("Label4");
  user().choose("Comtear", "3");
  EXPECT_EQ(settings().text(ReportViewKey::Ttt), "0300");
  form.ComtearOut.Text = "12";
  EXPECT_EQ(settings().text(ReportViewKey::Ttt), "0312");
  user().click("Check5");
  EXPECT_EQ(settings().text(ReportViewKey::Localdos), "T");
  EXPECT_TRUE(form.OptDosLocal.Visible);
  user().click("ChL");
  EXPECT_EQ(settings().text(ReportViewKey::chl), "1");
  form.Frame1.Visible = true;
  user().click("OptWinMode");
  EXPECT_EQ(settings().text(ReportViewKey::PrnDefult), "W");
  user().click("Check5");
  EXPECT_EQ(settings().text(ReportViewKey::Localdos), "F");
  EXPECT_FALSE(form.OptDosLocal.Visible);

  EXPECT_EQ(open().Comtear.Text, "3");
  EXPECT_EQ(form_->ComtearOut.Text, "12");
  EXPECT_EQ(form_->Chtear.Value, 1);
  EXPECT_EQ(form_->Comtear.ListCount() + form_->ComtearOut.ListCount(), 18 + 26);
}

TEST_F(Panel, ListsThePrinters) {
  FrmReport& form = open();
  EXPECT_EQ(form.CboPrinters.List(), (std::vector<std::string>{"Dot Matrix", "Laser"}));
  EXPECT_EQ(form.CboPrinters.Text, "Dot Matrix");
  EXPECT_EQ(form.LaDefult.Caption, "Defult Printer :Dot Matrix");
  user().click("Check3");
  user().click("Check3");
  EXPECT_EQ(form.CboPrinters.ListCount(), 4);
  user().click("CmdPrint");
  EXPECT_TRUE(form.Frame1.Visible);
  user().click("CmdCancel");
  EXPECT_FALSE(form.Frame1.Visible);

  class1_.PrinterName = "Gone";
  EXPECT_EQ(open().CboPrinters.Text, "Gone");
  user().click("CmdPrint");
  EXPECT_EQ(form_->activeControl(), &form_->CboPrinters);
  machine_.printers.infos.clear();
  open();
  user().click("CmdPrint");
  EXPECT_TRUE(form_->Frame1.Visible);

  const auto& shown = machine_.messageBox.shown;
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown[0].text, "Select any of the Printer from  Printers Collection");
  EXPECT_EQ(shown[1].text, "No Printers Installed to do the Print job");
  for (const auto& message : shown) {
    EXPECT_EQ(message.title, "Information Window");
    EXPECT_EQ(message.icon, MessageBox::Icon::information);
  }
}

TEST_F(Panel, MarksWhatIsChosen) {
  FrmReport& form = open();
  form.Frame1.Visible = true;
  const struct {
    const char* click;
    std::string bold;
    std::string ticked;
  } cases[] = {
      {"Ch10", "OptCharMode ChDraft Ch10 Op(0) ", "ChDraft Ch10 "},
      {"Ch12", "OptCharMode ChDraft Ch12 Op(0) ", "ChDraft Ch12 "},
      {"Ch17", "OptCharMode ChDraft Ch12 Ch17 Op(0) ", "ChDraft Ch12 Ch17 "},
      {"Ch10", "OptCharMode ChDraft Ch10 Op(0) ", "ChDraft Ch10 "},
      {"ChDraft", "OptCharMode Ch10 Op(0) ", "Ch10 "},
      {"OptWinMode", "OptWinMode Ch10 Op(0) ", "Ch10 "},
      {"Op(2)", "OptWinMode Ch10 Op(2) ", "Ch10 "},
      {"Op(1)", "OptWinMode Ch10 Op(1) ", "Ch10 "},
  };
  for (const auto& row : cases) {
    user().click(row.click);
    std::string ticked;
    for (const CheckBox* box : {&form.ChDraft, &form.Ch10, &form.Ch12, &form.Ch17}) {
      if (box->Value == 1) ticked += box->name + " ";
    }
    EXPECT_EQ(bold(), row.bold) << row.click;
    EXPECT_EQ(ticked, row.ticked) << row.click;
    for (const TextBox* box : {&form.Tst, &form.Tend}) {
      EXPECT_EQ(box->Enabled, form.Op[2].Value);
      EXPECT_EQ(box->BackColor, box->Enabled ? 16777215U : 14139134U);
    }
  }
  user().scroll("VScroll1", 1);
  EXPECT_EQ(form.Text3.Text, "99");
  user().scroll("VScroll1", 100);
  EXPECT_EQ(form.Text3.Text, "0");
}

TEST_F(Panel, NumbersTakeDigitsAlone) {
  FrmReport& form = open();
  form.Frame1.Visible = true;
  user().click("Op(2)");
  user().type("Tst", "1a.5.-\bé");
  EXPECT_EQ(form.Tst.Text, "1.");
  form.Text3.Text = "";
  user().type("Text3", "1.2x\b3");
  EXPECT_EQ(form.Text3.Text, "13");
}

TEST_F(Panel, RangeIsMadeToFitTheReport) {
  FrmReport& form = open(5);
  const struct {
    const char* first;
    const char* last;
    const char* firstAfter;
    const char* lastAfter;
    bool refused;
  } cases[] = {
      {"2", "4", "2", "4", false}, {"4", "2", "4", "4", false}, {"3", "99", "3", "5", false},
      {"", "3", "1", "3", false},  {"0", "2", "1", "2", false}, {"3", "", "3", "3", false},
      {"", "", "1", "", true},     {"0", "0", "1", "0", true},  {"9", "9", "9", "5", false},
  };
  for (const auto& row : cases) {
    machine_.messageBox.shown.clear();
    form.Frame1.Visible = true;
    user().click("Op(2)");
    form.Tst.Text = row.first;
    form.Tend.Text = row.last;
    user().focus("Tend");
    EXPECT_EQ(form.moveFocus(&form.Text3), !row.refused) << row.first << " to " << row.last;
    EXPECT_EQ(form.Tst.Text, row.firstAfter);
    EXPECT_EQ(form.Tend.Text, row.lastAfter);
    ASSERT_EQ(machine_.messageBox.shown.size(), row.refused ? 1U : 0U);
    if (row.refused) {
      EXPECT_EQ(machine_.messageBox.shown[0].text, "plese Check Velue...");
    }
    form.Tend.Text = "1";
    form.moveFocus(nullptr);
  }
}

TEST_F(Panel, PrintsThePagesThatWereChosen) {
  FrmReport& form = open(5);
  EXPECT_EQ(print(), setup_ + "page 1\r\n\fpage 2\r\n\fpage 3\r\n\fpage 4\r\n\fpage 5\r\n\f");
  EXPECT_FALSE(form.Frame1.Visible);
  EXPECT_EQ(form.PrintPartFile, "");
  EXPECT_EQ(machine_.messageBox.shown.at(0).text,
            "Are You Sure You Want To Print & Printer is Ready and Online ...");
  EXPECT_EQ(machine_.messageBox.shown.at(0).title, "Printing.... ");

  user().click("CmdNxt");
  user().click("Check2");
  form.Rt1.typeText("My ");
  EXPECT_EQ(print(), setup_ + "My \r\npage 2\r\n\f");
  EXPECT_EQ(machine_.spooler.jobs.back()->documentName, "Currnt.prn");

  form.Frame1.Visible = true;
  user().click("Op(2)");
  form.Tst.Text = "2";
  form.Tend.Text = "3";
  EXPECT_EQ(print(), setup_ + "\r\npage 2\r\n\fpage 3\r\n\f");
  EXPECT_EQ(readFile(machine_.folders.program() / "RANGE.prn", "test"),
            "\r\npage 2\r\n\f\r\npage 3\r\n\f");
  EXPECT_EQ(form.RT3.Text, "");
}

TEST_F(Panel, PrintsNothingWithoutAYes) {
  FrmReport& form = open();
  form.Frame1.Visible = true;
  user().click("CmdOk");
  user().click("Op(2)");
  form.Tst.Text = form.Tend.Text = "0";
  machine_.messageBox.answers = {Answer::ok, Answer::yes};
  form.CmdOk.onClick();
  form.OptWinMode.Value = true;
  form.CmdOk.onClick();
  EXPECT_TRUE(machine_.spooler.jobs.empty() && machine_.printDevice.documents.empty());
  EXPECT_TRUE(form.Frame1.Visible);
}

TEST_F(Panel, JobHasTheSettingsOfThePanel) {
  settings().setText(ReportViewKey::Ttt, "0101");
  class1_.Pagelenth = 12;
  FrmReport& form = open(1);
  form.Ch12.Value = form.Ch17.Value = 1;
  form.ChDraft.Value = 0;
  form.Text3.Text = "258";
  form.CboPrinters.Text = "Laser";
  const std::string head =
      printerSetup({.paperHeight = 12, .condensed = true, .semiCondensed = true, .linesIn = 1});
  const std::string tail = std::string(40, ' ') + "\r\n";
  EXPECT_EQ(print(), head + "page 1\r\n\fpage 1\r\n\f" + tail);
  EXPECT_EQ(machine_.spooler.jobs.back()->printer, "Laser");
  form.Text3.Text = "0";
  EXPECT_EQ(print(), head + tail);
  form.Chtear.Value = 0;
  form.ComPaperHeight.Text = "long";
  EXPECT_EQ(print(), printerSetup({.condensed = true, .semiCondensed = true}));
}

TEST_F(Panel, LocalDosPrintsTheWholeReport) {
  settings().setText(ReportViewKey::Localdos, "T");
  FrmReport& form = open(2);
  form.OptDosLocal.Value = true;
  form.Op[1].Value = true;
  EXPECT_EQ(print(), "no job");
  EXPECT_EQ(readFile(machine_.folders.work() / "localdos.prn", "test"), readFile(report_, "test"));
  EXPECT_EQ(machine_.shell.started.size(), 1U);
}

TEST_F(Panel, WindowsModeDrawsStyledPages) {
  const std::string first =
      "   \x12\x1BW \x1BM\r\n\x0E\x1B"
      "E\x1BGBig\x14\x1B"
      "F\x1BH \x1B-1u\x1B-0\r\n\f";
  FrmReport& form = openText(first +
                             "\x0F"
                             "cond\x12 caf\xE9\r\n\f\r\n");
  form.OptWinMode.Value = true;
  form.CboPrinters.Text = "Laser";
  form.Text3.Text = "2";
  print();

  ASSERT_EQ(machine_.printDevice.documents.size(), 1U);
  const auto& drawn = *machine_.printDevice.documents[0];
  EXPECT_TRUE(drawn.ended);
  EXPECT_EQ(drawn.document.name, "report.txt");
  EXPECT_EQ(drawn.document.printer, "Laser");
  EXPECT_EQ(machine_.printers.current(), "Laser");
  ASSERT_EQ(drawn.pages.size(), 4U);
  const std::uint32_t bold = 128;
  const std::uint32_t condensed = 8388736;
  const PrintedPage page1 = {{{"   ", 0, 10, 0, false, false}},
                             {{"Big", 0, 12, bold, true, false},
                              {" ", 3 / 12., 12, 0, false, false},
                              {"u", 4 / 12., 12, 0, false, true}}};
  const PrintedPage page2 = {
      {{"cond", 0, 20, condensed, false, false}, {" café", 4 / 20., 12, 0, false, false}}};
  EXPECT_EQ(drawn.pages, (std::vector<PrintedPage>{page1, page1, page2, page2}));
  EXPECT_EQ(form.CmdOk.Tag, "0");
  EXPECT_FALSE(form.Frame1.Visible);

  form.Frame1.Visible = true;
  user().click("Op(2)");
  form.Tst.Text = form.Tend.Text = "2";
  print();
  EXPECT_EQ(machine_.printDevice.documents.at(1)->pages.at(0), page2) << "at the report's pitch";
}

TEST_F(Panel, RawPrinterIsNotSentStyledPages) {
  FrmReport& form = open();
  form.OptWinMode.Value = true;
  print();
  EXPECT_EQ(machine_.messageBox.shown.back().text,
            "The printer \"Dot Matrix\" took nothing of the job: It takes raw text alone.");
  EXPECT_TRUE(form.Frame1.Visible);
  EXPECT_EQ(form.CmdOk.Tag, "0");
}

TEST_F(Panel, SaysQuietlyWhatWillNotFit) {
  FrmReport& form = openText("\f" + std::string(96, 'x') + "\r\n\f" + std::string(38, '\n') + "\f");
  user().click("CmdPrint");
  EXPECT_EQ(form.LbFit.Caption,
            "Will not fit: a line of 9.6 inches on page 2, the paper has 8; "
            "37 lines on page 3, the paper has 36");
  form.ComPaperHeight.Text = "12";
  user().click("Ch12");
  EXPECT_EQ(form.LbFit.Caption, "");
  user().click("Ch10");
  user().click("Op(1)");
  EXPECT_EQ(form.LbFit.Caption, "") << "the first page fits";
  user().click("Op(0)");
  user().click("OptWinMode");
  user().choose("CboPrinters", "Laser");
  EXPECT_EQ(form.LbFit.Caption, "Will not fit: a line of 9.6 inches on page 2, the paper has 8.27");
}

}  // namespace
}  // namespace paperway
