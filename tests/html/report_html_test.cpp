#include "html/report_html.h"

#include <gtest/gtest.h>

#include "html/report_window_html.h"
#include "support/class1_test.h"
#include "support/expect_each.h"
#include "support/report_window.h"

namespace paperway {
namespace {

const std::string kFont = "<font face ='Courier New'>\r\n";
const std::string kText = "<font size =3> <p style = 'margin-top:0;margin bottom:0; '>\r\n";
const std::string kFoot = "</p></font>\r\n</body>\r\n</HTML>\r\n";

class ReportHtmlTest : public Class1Test {
 protected:
  /// The document of a report, by Class1.
  std::string document(const std::string& report) {
    replaceFile(report_, report);
    class1_.expHTml(report_, html_);
    return bytesOf(html_);
  }

  /// What becomes of one line of text.
  std::string line(const std::string& report) {
    const std::string bytes = document(report + "\r\n");
    const std::size_t begin = bytes.find(kText) + kText.size();
    return bytes.substr(begin, bytes.size() - begin - kFoot.size() - sizeof "<br>\r");
  }

  std::string bodyOf(const std::string& bytes) { return bytes.substr(bytes.find(kText)); }

  const std::string report_ = path("report.txt");
  const std::string html_ = path("report.html");
};

TEST_F(ReportHtmlTest, IsAHeadALineForEachAndAFoot) {
  EXPECT_EQ(document("a\r\n\r\nb <&> c"),
            "<HTML>\r\n<body  bgcolor='rgb( 255, 255, 255)';>\r\n" + kFont + kText +
                "a<br>\r\n<br>\r\nb&nbsp;<&>&nbsp;c<br>\r\n" + kFoot);
  EXPECT_EQ(bodyOf(document("")), kText + kFoot);
  ASSERT_EQ(machine_.messageBox.shown.size(), 2U);
  EXPECT_EQ(machine_.messageBox.shown[0].text, " Export Complete ");
  EXPECT_EQ(machine_.messageBox.shown[0].title, "");
}

TEST_F(ReportHtmlTest, ControlStringsAreTagsAndAllElseStays) {
  const std::string bold = "<b  style = ' color:rgb( 128, 0, 0);'>";
  const std::string wide = "<H2 style = 'margin-top:0;margin bottom:0;  color:rgb( 0, 0, 128);' >";
  const std::string condensed =
      "<h6 style = 'margin-top:0;margin bottom:0 ;  color:rgb( 128, 0, 128);'>";
  const DOSEFONTcHR font;
  expectEach([this](const std::string& report) { return line(report); },
             Row{font.Bon + "a b" + font.Boff, bold + "a&nbsp;b</b>"},
             Row{font.BBon + "x" + font.BBoff, wide + "x</H2>"},
             Row{font.Con + " " + font.Coff, condensed + "&nbsp;</h6>"},
             Row{"a" + font.UnLOn + "b" + font.UnLoff + "c", std::string("abc")},
             Row{font.C96, std::string("</h6>\x1BW&nbsp;\x1BM")},
             Row{font.C80 + "\f", font.C80 + "\f"},
             Row{std::string("\x1B\x1B-1-0x"), std::string("x")},        // what is left is removed
             Row{std::string("\x1B\x1B-0-1x"), std::string("\x1B-1x")},  // but by later steps alone
             Row{std::string("caf\xE9 \x80\x01\r."), std::string("caf\xE9&nbsp;\x80\x01\r.")});
}

TEST_F(ReportHtmlTest, TextColorsAreThoseOfTheSettings) {
  class1_.Guid_comp1("7");
  const std::string settings = path("work/7.ini");
  class1_.WriteIniValue(settings, "ReportView", "Bold", "66051");
  EXPECT_EQ(line("\x1B"
                 "E"),
            "<b  style = ' color:rgb( 3, 2, 1);'>");
  class1_.WriteIniValue(settings, "ReportView", "Bold", "red");
  replaceFile(html_, "earlier");
  EXPECT_NE(errorOf([&] { class1_.expHTml(report_, html_); }).find("\"red\""), std::string::npos);
  EXPECT_EQ(bytesOf(html_), "earlier");
}

TEST_F(ReportHtmlTest, TheWindowsTwoFormsDifferInTagsPageBreaksAndTheMessage) {
  startRun();
  const auto form = makeReportWindow(machine_.platform(),
                                     "\x1BP\x0E\x1B"
                                     "E\x1BG\x1B"
                                     "E\x0F\f\r\n");
  bindReportHtml(*form, machine_.platform());
  form->load();
  form->TXt[0].BackColor = 1;
  form->TXt[1].BackColor = 2;
  form->TXt[3].BackColor = 3;
  form->TXt[4].BackColor = 4;
  form->CommonDialog1.FileName = html_;
  form->expHTml();
  EXPECT_EQ(bytesOf(html_),
            "<HTML>\r\n<body  bgcolor='rgb( 4, 0, 0)';>\r\n" + kFont + kText +
                "\x1BP<H2 style = 'margin-top:0;margin bottom:0;  color:rgb( 1, 0, 0);' >"
                "<b  style = ' color:rgb( 2, 0, 0);'>"
                "<h6 style = 'margin-top:0;margin bottom:0 ;  color:rgb( 3, 0, 0);'>\f<br>\r\n" +
                kFoot);
  EXPECT_EQ(machine_.messageBox.shown.size(), 1U);
  form->expHTml_1(html_, 1);
  EXPECT_EQ(bytesOf(html_),
            "<HTML>\r\n<body  bgcolor='rgb( 4, 0, 0)';>\r\n<STYLE TYPE  = 'text/css'>\r\nh6{\r\n"
            "margin -Top: '0';\r\nmargin -Bottom: '-7';\r\n}\r\n</STYLE>\r\n" +
                kFont + kText +
                "<H2 style = 'margin-top:0;margin bottom:0;  color:rgb( 1, 0, 0);'>"
                "<b style = ' color:rgb( 2, 0, 0);'><h6 style = ' color:rgb( 3, 0, 0);'>"
                "<p style=page-break-after:always></p><br>\r\n" +
                kFoot);
  EXPECT_EQ(machine_.messageBox.shown.size(), 1U);
  form->expHTml_1(html_, 0);
  EXPECT_EQ(machine_.messageBox.shown.size(), 2U);
}

TEST_F(ReportHtmlTest, LinesOfAnyLengthComeWholeAcrossBlocks) {
  const std::string text(700'001, 'x');
  EXPECT_EQ(line(text), text);
  EXPECT_EQ(line("\x1B" + text), "\x1B" + text);
  const std::string bold =
      "\x1B"
      "E";
  EXPECT_EQ(line(text + bold + text), text + line(bold) + text);
}

TEST_F(ReportHtmlTest, AFailureLeavesTheEarlierPage) {
  replaceFile(html_, "earlier");
  EXPECT_NE(errorOf([&] { class1_.expHTml(path("none"), html_); }).find("none"), std::string::npos);
  replaceFile(report_, "a\r\n");
  for (std::size_t step = 1;; ++step) {
    machine_.storage.steps = 0;
    machine_.storage.failAt = step;
    if (errorOf([&] { class1_.expHTml(report_, html_); }) == "no error") break;
    EXPECT_EQ(bytesOf(html_), "earlier") << machine_.storage.failed;
  }
  EXPECT_NE(errorOf([&] { class1_.expHTml(report_, report_); }), "no error");
  EXPECT_EQ(bytesOf(report_), "a\r\n");
}

}  // namespace
}  // namespace paperway
