#include "support/expect_each.h"
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

}  // namespace
}  // namespace paperway
