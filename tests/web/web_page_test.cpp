#include <QApplication>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

#include "web_fixture.h"

namespace paperway {
namespace {

const std::string kBreak = "<p style = page-break-after:always> </p>";

TEST_F(WebTest, PrintsWindows1252WithHeaderAndFooter) {
  machine_.pageSetup.kept.header = "&w&b&d";
  EXPECT_EQ(machine_.pageSetup.kept.footer, "&b Page &p of &P");
  const std::string text = printed(write("page.html", "<p>Caf\xE9 \x80" + kBreak + "<p>second"));
  EXPECT_EQ(count(text, "\f"), 2u);
  for (const char* part :
       {"Caf\xC3\xA9 \xE2\x82\xAC", "Page 1 of 2", "Page 2 of 2", "page.html", "3/5/2006"}) {
    EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
  }
}

TEST_F(WebTest, ManyPagesGoInPiecesAndAreCountedThrough) {
  std::string document = "<STYLE>p{color:black}</STYLE>";
  for (int i = 1; i <= 60; ++i) document += "<p>sheet " + std::to_string(i) + "." + kBreak;
  const std::string text = printed(write("long.html", document));
  EXPECT_EQ(count(text, "\f"), 60u);
  for (const int i : {1, 25, 26, 60}) {
    EXPECT_EQ(count(text, "sheet " + std::to_string(i) + "."), 1u);
    EXPECT_EQ(count(text, "Page " + std::to_string(i) + " of 60"), 1u);
  }
}

TEST_F(WebTest, AWideTableIsMadeToFit) {
  const std::string document =
      write("wide.html", "<table><tr><td width=1800>first<td width=200>last</table>");
  EXPECT_NE(printed(document).find("last"), std::string::npos);
}

TEST_F(WebTest, WhatCannotBePrintedIsTold) {
  struct : BrowserEvents {
    void BeforeNavigate2() override {}
    void DocumentComplete() override {}
  } events;
  const auto page = web_.open(events);
  EXPECT_NE(errorOf([&] { page->Navigate(path("none.html")); }).find("none.html"),
            std::string::npos);
  page->Navigate(write("page.html", "<p>text"));
  EXPECT_NE(errorOf([&] { page->savePdf(path("page.html")); }).find("page.html"),
            std::string::npos);
  EXPECT_EQ(bytesOf(path("page.html")), "<p>text");
  machine_.printers.infos.clear();
  EXPECT_EQ(errorOf([&] { page->print(); }), "There is no printer.");
  machine_.printers.infos = {{"Laser", "", false}};
  machine_.spooler.answers = false;
  EXPECT_NE(errorOf([&] { page->print(); }).find("No print service"), std::string::npos);
  std::filesystem::remove(path("page.html"));
  EXPECT_NE(errorOf([&] { page->savePdf(path("out.pdf")); }).find("page.html"), std::string::npos);
}

TEST_F(WebWindow, ShowsPrintsAndZooms) {
  machine_.printers.infos = {{"Laser", "", false}};
  frmBrowser& form = open({.Path1 = write("page.html", "<p>text")});
  EXPECT_GT(form.brwWebBrowser.Width, 1000);
  form.Text3.Text = "2";
  form.CmdPrint.click();
  ASSERT_EQ(machine_.spooler.jobs.size(), 2u);
  const headless::Spooler::Job& job = *machine_.spooler.jobs[1];
  EXPECT_EQ(job.format, DocumentFormat::pdf);
  EXPECT_EQ(job.state, headless::Spooler::Job::State::ended);
  EXPECT_NE(textOf(write("job.pdf", job.bytes)).find("text"), std::string::npos);
  form.SpLebal1.click();
  EXPECT_EQ(form.brwWebBrowser.page().zoom(), 3);
  open({.Path1 = write("next.html", "<p>next"), .RPrint = 0});
  EXPECT_FALSE(form.CmdPrint.Enabled);
  form.JeExit.click();
  EXPECT_FALSE(class1_.RtWindows1());
}

/// What the user does with the dialog that opens next.
template <typename Act>
void onDialog(const Act& act) {
  QTimer::singleShot(0, [act] { act(*qobject_cast<QDialog*>(QApplication::activeModalWidget())); });
}

TEST_F(WebWindow, ThePageSetupIsKeptAndLandscapeIsTheWindows) {
  onDialog([](QDialog& dialog) {
    dialog.findChild<QDoubleSpinBox*>("left")->setValue(1.5);
    dialog.findChild<QLineEdit*>("header")->setText("head");
    dialog.accept();
  });
  frmBrowser& form = open({.Path1 = write("page.html", "<p>text"), .PL1 = "L"});
  EXPECT_EQ(machine_.pageSetup.kept.marginLeft, 1.5);
  EXPECT_EQ(machine_.pageSetup.kept.marginTop, 0.75);
  EXPECT_EQ(machine_.printers.kept["Laser"].Orientation, 1);
  form.brwWebBrowser.page().savePdf(path("out.pdf"));
  EXPECT_NE(textOf(path("out.pdf")).find("head"), std::string::npos);
  EXPECT_NE(bytesOf(path("out.pdf")).find("/MediaBox [ 0 0 841.9"), std::string::npos);

  onDialog([](QDialog& dialog) {
    QDoubleSpinBox& top = *dialog.findChild<QDoubleSpinBox*>("top");
    top.setValue(5);
    dialog.findChild<QDoubleSpinBox*>("bottom")->setValue(5);
    for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
      EXPECT_EQ(button->isEnabled(), button->text() != "&OK" && button->text() != "OK");
    }
    dialog.reject();
  });
  form.Command1_Click();
  EXPECT_EQ(machine_.pageSetup.kept.marginTop, 0.75);
}

TEST_F(WebWindow, ThePreviewTurnsPrintsAndSaves) {
  machine_.printers.infos = {{"Laser", "", false}};
  frmBrowser& form = open({.Path1 = write("page.html", "1" + kBreak + "2" + kBreak + "3")});
  form.JeweledButton1.click();
  auto* const preview = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  ASSERT_NE(preview, nullptr);
  std::string pages;
  for (const char* button : {"next", "next", "next", "previous", "first", "last"}) {
    preview->findChild<QPushButton*>(button)->click();
    pages += preview->findChild<QSpinBox*>("page")->text().toStdString();
  }
  EXPECT_EQ(pages, "233213");
  preview->findChild<QPushButton*>("print")->click();
  ASSERT_EQ(machine_.spooler.jobs.size(), 1u);
  machine_.dialogs.files = {path("saved.pdf")};
  preview->findChild<QPushButton*>("save")->click();
  EXPECT_EQ(count(textOf(path("saved.pdf")), "\f"), 3u);
  preview->close();
}

}  // namespace
}  // namespace paperway
