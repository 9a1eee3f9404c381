#include "printing/print_panel.h"

#include "backends/headless/user.h"
#include "printing/print_stream.h"
#include "support/class1_test.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

using Answer = MessageBoxes::Answer;
using Key = ReportViewKey;

class Panel : public Class1Test {
 protected:
  FrmReport& open(const std::string& text = "one\r\n\f\r\ntwo\r\n\f\r\nthree\r\n\f\r\n") {
    replaceFile(report_, text, "test");
    class1_.PreviewReport(arguments_);
    form_ = std::dynamic_pointer_cast<FrmReport>(machine_.windows.forms.back());
    return *form_;
  }

  void click(const std::string& control) {
    form_->Frame1.Visible = true;
    headless::User(*form_).click(control);
  }

  void range(const char* first, const char* last) {
    click("Op(2)");
    form_->Tst.Text = first;
    form_->Tend.Text = last;
  }

  /// A click on "&Print" of the panel, with Yes to the question; the job.
  std::string print() {
    machine_.messageBox.answers = {Answer::yes};
    click("CmdOk");
    return machine_.spooler.jobs.empty() ? "no job" : machine_.spooler.jobs.back()->bytes;
  }

  std::string lastMessage() const { return machine_.messageBox.shown.back().text; }
  ReportViewSettings settings() {
    return ReportViewSettings(machine_.storage, settingsPath(machine_.folders, ""));
  }

  std::shared_ptr<FrmReport> form_;
  const std::string report_ = path("report.txt");
  PreviewReportArguments arguments_{
      .Path1 = report_, .RCont = 1, .REdit = 1, .RColor = 1, .RPrint = 1};
  const std::string setup_ = printerSetup({.paperHeight = 6, .draft = true});
};

TEST_F(Panel, StartsInTheStoredModeAndWritesNothing) {
  open();
  EXPECT_EQ(bytesOf(settingsPath(machine_.folders, "")), "");
  const auto chosen = [&](const std::string& mode, const std::string& localDos) {
    settings().setText(Key::PrnDefult, mode);
    settings().setText(Key::Localdos, localDos);
    FrmReport& form = open();
    EXPECT_EQ(form.OptDosLocal.Visible, localDos == "T");
    EXPECT_EQ(form.Check5.Value, localDos == "T" ? 1 : 0);
    EXPECT_EQ(form.FrmWin.Enabled, mode == "W");
    return std::string(form.OptCharMode.Value ? "D" : "") + (form.OptWinMode.Value ? "W" : "") +
           (form.OptDosLocal.Value ? "L" : "");
  };
  expectEach(chosen,
             Row{"D", "F", "D"},
             Row{"W", "F", "W"},
             Row{"L", "F", "D"},
             Row{"L", "T", "L"},
             Row{"D", "T", "D"});
}

TEST_F(Panel, WritesWhatTheUserChooses) {
  FrmReport& form = open();
  form.Frame6.Visible = true;
  const auto stored = [&] {
    return settings().text(Key::Ttt) + settings().text(Key::Localdos) + settings().text(Key::chl) +
           settings().text(Key::PrnDefult);
  };
  headless::User(form).choose("Comtear", "3");
  EXPECT_EQ(stored(), "0300F0D");
  form.ComtearOut.Text = "12";
  EXPECT_EQ(stored(), "0312F0D");
  const auto storedBy = [&](const char* control) {
    click(control);
    return stored();
  };
  expectEach(storedBy,
             Row{"Check5", "0312T0D"},
             Row{"ChL", "0312T1D"},
             Row{"OptDosLocal", "0312T1L"},
             Row{"OptWinMode", "0312T1W"},
             Row{"Check5", "0312F1W"});
  EXPECT_EQ(open().Comtear.Text, "3");
  EXPECT_EQ(form_->ComtearOut.Text, "12");
  EXPECT_EQ(form_->Chtear.Value, 1);
}

TEST_F(Panel, ListsThePrintersAndSaysWhenThereIsNone) {
  FrmReport& form = open();
  EXPECT_EQ(form.CboPrinters.List(), (std::vector<std::string>{"Dot Matrix", "Laser"}));
  EXPECT_EQ(form.CboPrinters.Text, "Dot Matrix");
  EXPECT_EQ(form.LaDefult.Caption, "Defult Printer :Dot Matrix");
  click("Check3");
  click("Check3");
  EXPECT_EQ(form.CboPrinters.ListCount(), 4) << "a reload adds the names once more";
  click("CmdPrint");
  EXPECT_TRUE(machine_.messageBox.shown.empty());
  click("CmdCancel");
  EXPECT_FALSE(form.Frame1.Visible);

  class1_.PrinterName = "Gone";
  EXPECT_EQ(open().CboPrinters.Text, "Gone");
  click("CmdPrint");
  EXPECT_EQ(lastMessage(), "Select any of the Printer from  Printers Collection");
  EXPECT_EQ(form_->activeControl(), &form_->CboPrinters);
  machine_.printers.infos.clear();
  open();
  click("CmdPrint");
  EXPECT_EQ(lastMessage(), "No Printers Installed to do the Print job");
  EXPECT_EQ(machine_.messageBox.shown.back().title, "Information Window");
  machine_.printers.infos = {{"First", "", true}, {"Second", "", true}};
  click("CmdPrint");
  EXPECT_EQ(form_->CboPrinters.List(), (std::vector<std::string>{"First", "Second"}))
      << "installed while the window stood open";
  EXPECT_EQ(form_->LaDefult.Caption, "Defult Printer :First");
  machine_.printers.infos.push_back({"Third", "", true});
  click("CmdPrint");
  EXPECT_EQ(form_->CboPrinters.ListCount(), 3);
}

TEST_F(Panel, MarksWhatIsChosen) {
  FrmReport& form = open();
  const auto boldAfter = [&](const char* control) {
    click(control);
    for (const TextBox* box : {&form.Tst, &form.Tend}) {
      EXPECT_EQ(box->Enabled, form.Op[2].Value);
      EXPECT_EQ(box->BackColor, box->Enabled ? 16777215U : 14139134U);
    }
    std::string bold;
    for (const Control* each : form.controls()) {
      const auto* const box = dynamic_cast<const CheckBox*>(each);
      if (each->Font.Bold) bold += each->name + (box && box->Value == 1 ? "* " : " ");
    }
    return bold;
  };
  expectEach(boldAfter,
             Row{"Ch10", "OptCharMode ChDraft* Ch10* Op(0) "},
             Row{"Ch12", "OptCharMode ChDraft* Ch12* Op(0) "},
             Row{"Ch17", "OptCharMode ChDraft* Ch12* Ch17* Op(0) "},
             Row{"Ch10", "OptCharMode ChDraft* Ch10* Op(0) "},
             Row{"ChDraft", "OptCharMode Ch10* Op(0) "},
             Row{"OptWinMode", "OptWinMode Ch10* Op(0) "},
             Row{"Op(2)", "OptWinMode Ch10* Op(2) "},
             Row{"Op(1)", "OptWinMode Ch10* Op(1) "});
  headless::User(form).scroll("VScroll1", 1);
  EXPECT_EQ(form.Text3.Text, "99");
  click("Op(2)");
  headless::User(form).type("Tst", "1a.5.-\bé");
  EXPECT_EQ(form.Tst.Text, "1.");
}

TEST_F(Panel, RangeIsMadeToFitTheReport) {
  FrmReport& form = open();
  const auto fitted = [&](const char* first, const char* last) {
    machine_.messageBox.shown.clear();
    range(first, last);
    form.Tend.SetFocus();
    const bool refused = !form.moveFocus(&form.Text3);
    EXPECT_EQ(machine_.messageBox.shown.size(), refused ? 1U : 0U);
    const std::string after = form.Tst.Text.get() + " to " + form.Tend.Text.get();
    form.Tend.Text = "1";
    form.moveFocus(nullptr);
    return refused ? after + ": " + lastMessage() : after;
  };
  expectEach(fitted,
             Row{"2", "3", "2 to 3"},
             Row{"3", "2", "3 to 3"},
             Row{"2", "9", "2 to 3"},
             Row{"", "3", "1 to 3"},
             Row{"0", "2", "1 to 2"},
             Row{"3", "", "3 to 3"},
             Row{"9", "9", "9 to 3"},
             Row{"", "", "1 to : plese Check Velue..."},
             Row{"0", "0", "1 to 0: plese Check Velue..."});
}

TEST_F(Panel, PrintsThePagesThatWereChosen) {
  FrmReport& form = open();
  std::string seen;
  machine_.windows.repainted = [&] {
    seen += form.Frame1.Visible ? "panel" : "page";
    seen += machine_.spooler.jobs.empty() ? " " : " late ";
  };
  EXPECT_EQ(print(), setup_ + "one\r\n\ftwo\r\n\fthree\r\n\f");
  EXPECT_EQ(seen, "page ") << "the job holds the window up";
  EXPECT_FALSE(form.Frame1.Visible);
  EXPECT_EQ(lastMessage(), "Are You Sure You Want To Print & Printer is Ready and Online ...");

  click("CmdNxt");
  click("Check2");
  form.Rt1.typeText("My ");
  EXPECT_EQ(print(), setup_ + "My \r\ntwo\r\n\f");
  EXPECT_EQ(machine_.spooler.jobs.back()->documentName, "Currnt.prn");

  range("2", "3");
  EXPECT_EQ(print(), setup_ + "\r\ntwo\r\n\fthree\r\n\f");
  EXPECT_EQ(machine_.spooler.jobs.back()->documentName, "RANGE.prn");

  form.Frame1.Visible = true;
  for (Control* focus :
       {static_cast<Control*>(&form.CboPrinters), static_cast<Control*>(&form.Op[2])}) {
    machine_.messageBox.answers = {Answer::no, Answer::no};
    focus->SetFocus();
    form.pressAccessKey('p');  // of CmdOk, not of CmdPrint below it nor of a label before the focus
    focus->SetFocus();
    form.pressDefault();
    EXPECT_TRUE(machine_.messageBox.answers.empty()) << "it has asked twice from " << focus->name;
  }
  range("0", "0");
  form.CmdOk.onClick();
  EXPECT_EQ(machine_.spooler.jobs.size(), 3U) << "refused at a question";
  EXPECT_TRUE(form.Frame1.Visible);

  form.OptDosLocal.Value = true;
  click("Op(1)");
  print();
  EXPECT_EQ(bytesOf(machine_.folders.work() / "localdos.prn"), bytesOf(report_));
  EXPECT_EQ(machine_.shell.started.size(), 1U);
}

TEST_F(Panel, JobHasTheSettingsOfThePanel) {
  settings().setText(Key::Ttt, "0101");
  class1_.Pagelenth = 12;
  arguments_.cc12 = 1;
  FrmReport& form = open("page\f");
  EXPECT_EQ(form.Ch17.Value, 0);
  form.Ch17.Value = 1;
  form.ChDraft.Value = 0;
  form.Text3.Text = "2";
  form.CboPrinters.Text = "Laser";
  PrintStreamSettings expected{
      .paperHeight = 12, .condensed = true, .semiCondensed = true, .linesIn = 1};
  const std::string tail = std::string(40, ' ') + "\r\n";
  EXPECT_EQ(print(), printerSetup(expected) + "page\fpage\f" + tail);
  EXPECT_EQ(machine_.spooler.jobs.back()->printer, "Laser");
  form.Frame1.Visible = true;
  form.Text3.Text = "256";
  EXPECT_EQ(form.Text3.Text.get() + ": " + form.LbFit.Caption,
            "255: A job takes 255 copies at most.");
  form.Text3.Text = "0";
  EXPECT_EQ(print(), printerSetup(expected) + tail);
  form.Chtear.Value = 0;
  form.ComPaperHeight.Text = "long";
  expected.linesIn = 0;
  expected.paperHeight = 0;
  EXPECT_EQ(print(), printerSetup(expected));
}

TEST_F(Panel, WindowsModeDrawsStyledPages) {
  FrmReport& form = open(
      "   \022\033W \033M\r\n\016\033E\033GBig\024\033F\033H \033-1u\033-0\r\n\f"
      "\f\017cond\022 caf\xE9\r\n\f\r\n");
  form.OptWinMode.Value = true;
  print();
  EXPECT_EQ(lastMessage(),
            "The printer \"Dot Matrix\" took nothing of the job: It takes raw text alone.");
  EXPECT_TRUE(form.Frame1.Visible);

  form.CboPrinters.Text = "Laser";
  form.Text3.Text = "2";
  print();
  const auto& drawn = *machine_.printDevice.documents.at(0);
  EXPECT_TRUE(drawn.ended && !form.Frame1.Visible && form.CmdOk.Tag == "0");
  EXPECT_EQ(drawn.document.name, "report.txt");
  EXPECT_EQ(machine_.printers.current(), "Laser");
  const PrintedPage page1 = {{{"   ", 0, 10, 0, false, false}},
                             {{"Big", 0, 12, 128, true, false},
                              {" ", 3 / 12., 12, 0, false, false},
                              {"u", 4 / 12., 12, 0, false, true}}};
  const PrintedPage page2 = {
      {{"cond", 0, 20, 8388736, false, false}, {" café", 4 / 20., 12, 0, false, false}}};
  EXPECT_EQ(drawn.pages, (std::vector<PrintedPage>{page1, page1, page2, page2}))
      << "an empty page prints nothing";

  range("3", "3");
  print();
  EXPECT_EQ(machine_.printDevice.documents.at(1)->pages.at(0), page2) << "at the report's pitch";

  const auto refusal = [&](const char* first, const char* last, const char* copies) {
    range(first, last);
    form.Text3.Text = copies;
    print();
    EXPECT_TRUE(form.Frame1.Visible && form.CmdOk.Tag == "0");
    return lastMessage();
  };
  expectEach(refusal,
             Row{"3",
                 "4",
                 "1",
                 "The pages \"3\" to \"4\" cannot be drawn: the report has the pages 1 to 3."},
             Row{"1", "32769", "1", "A range can reach to page 32768, not to \"32769\"."},
             Row{"2", "2", "1", "There is nothing to print: the pages are empty."},
             Row{"1", "1", "0", "There is nothing to print: no page, or no copy."});
  EXPECT_EQ(machine_.printDevice.documents.size(), 3U) << "one was begun";
}

TEST_F(Panel, SaysQuietlyWhatWillNotFit) {
  FrmReport& form = open("\f" + std::string(96, 'x') + "\r\n\f" + std::string(38, '\n') + "\f");
  const std::string line = "Will not fit: a line of 9.6 inches on page 2, the paper has 8";
  click("CmdPrint");
  EXPECT_EQ(form.LbFit.Caption, line + "; 37 lines on page 3, the paper has 36");
  form.ComPaperHeight.Text = "12";
  EXPECT_EQ(form.LbFit.Caption, line);
  const auto said = [&](const char* control) {
    click(control);
    return form.LbFit.Caption;
  };
  expectEach(said,
             Row{"Ch12", ""},
             Row{"Ch10", line},
             Row{"Op(1)", ""},
             Row{"Op(0)", line},
             Row{"OptWinMode", line + ".27"});
}

}  // namespace
}  // namespace paperway
