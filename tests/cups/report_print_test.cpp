// Reports on their way through a report window to the queues.

#include <QGuiApplication>
#include <regex>

#include "backends/desktop/cups/cups_printers.h"
#include "backends/desktop/cups/cups_spooler.h"
#include "backends/desktop/qt/print_device.h"
#include "cups/cups_desk.h"
#include "preview/frm_report.h"
#include "printing/print_stream.h"
#include "support/class1_test.h"

namespace paperway {
namespace {

class ReportPrint : public Class1Test {
 protected:
  ReportPrint() {
    replaceFile(report_, text_, "test");
    machine_.messageBox.answers.assign(8, MessageBoxes::Answer::yes);
  }

  std::string run(const std::string& command) {
    EXPECT_EQ(std::system((command + " > " + path("said")).c_str()), 0) << command;
    return bytesOf(path("said"));
  }

  /// Prints pages 2 and 3 twice.
  void print(const std::string& printer, bool drawn) {
    host_.PrinterName = printer;
    host_.PreviewReport({.Path1 = report_, .RPrint = 1});
    FrmReport& form = dynamic_cast<FrmReport&>(*machine_.windows.forms.back());
    form.Op[2].Value = true;
    form.OptWinMode.Value = drawn;
    form.Tst.Text = "2";
    form.Tend.Text = "3";
    form.Text3.Text = "2";
    form.CmdOk.onClick();
    EXPECT_EQ(machine_.messageBox.shown.size(), 1U) << machine_.messageBox.shown.back().text;
  }

  /// The file that the printer got.
  std::string printDrawn() {
    print("Drawn", true);
    replaceFile(path("received.pdf"), desk->drawn.take().value_or(""), "test");
    return path("received.pdf");
  }

  struct Word {  // place in points
    double left, top, right, bottom;
  };
  std::vector<Word> wordsOf(const std::string& pdf) {
    const std::string text = run("pdftotext -bbox " + pdf + " -");
    const std::regex box("<word xMin=\"(.*?)\" yMin=\"(.*?)\" xMax=\"(.*?)\" yMax=\"(.*?)\"");
    std::vector<Word> words;
    for (std::sregex_iterator word(text.begin(), text.end(), box), end; word != end; ++word) {
      const auto number = [&](int group) { return std::stod((*word)[group]); };
      words.push_back({number(1), number(2), number(3), number(4)});
    }
    return words;
  }

  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  QGuiApplication application_{argc_, argv_};
  desktop::CupsSpooler spooler_;
  desktop::CupsPrinters printers_;
  qt::PrintDevice device_{machine_.storage, spooler_};
  Class1 host_{machine_.platform().with(spooler_, printers_, device_)};
  const std::string report_ = path("sales.txt");
  const std::string text_ =
      "first\r\n\f\r\n\033EPage No # 0002\033F\r\n\017caf\xE9 17.5 \022end\r\n\f\r\n"
      "last page\r\n\f\r\n";
};

TEST_F(ReportPrint, RawRangeArrivesOnceACopy) {
  print("P", false);
  std::string pages = text_.substr(text_.find('\f') + 1);
  pages.erase(pages.rfind("\r\n"));          // behind the last form feed
  pages.erase(pages.find("\f\r\n") + 1, 2);  // a line with a form feed has no end
  EXPECT_EQ(desk->raw.take(), printerSetup({.paperHeight = 6, .draft = true}) + pages + pages);
}

TEST_F(ReportPrint, StyledPagesArriveAsPdfWithTheirText) {
  EXPECT_EQ(run("pdftotext -layout " + printDrawn() + " -"),
            "Page No # 0002\ncafé 17.5 end\n\fPage No # 0002\ncafé 17.5 end\n\f"
            "last page\n\flast page\n\f");
}

TEST_F(ReportPrint, OrientationThatWasSetIsReadByTheNextPrint) {
  printers_.setCurrent("Drawn");
  host_.Set_Orientation("L", 9);
  const Word first = wordsOf(printDrawn()).at(0);
  EXPECT_GT(first.bottom - first.top, first.right - first.left) << "turned on an upright sheet";
  EXPECT_NEAR(first.right, 210 / 25.4 * 72 - 30, 5) << "of A4";
  host_.Set_Orientation("P", 1);
}

TEST_F(ReportPrint, CharactersStandAtTheirPitchAndLinesSixToTheInch) {
  const std::string file = path("out.pdf");
  const auto job =
      device_.start({.name = "pitch", .file = file, .settings = {1, 1}, .width = 8, .height = 11});
  job->page({{{.text = std::string(80, 'x'), .left = 0, .cpi = 10}},
             {{.text = std::string(136, 'y'), .left = 0, .cpi = 120 / 7., .bold = true}},
             {{.text = "z", .left = 7.5, .cpi = 12}}});
  job->end();
  const auto words = wordsOf(file);
  ASSERT_EQ(words.size(), 3U);
  const double margin = 18;
  const double near = 0.3;
  EXPECT_NEAR(words[0].right, margin + 8 * 72, near);
  EXPECT_NEAR(words[1].right, margin + 136 / (120 / 7.) * 72, near);
  EXPECT_NEAR(words[2].left, margin + 7.5 * 72, near);
  // Small letters end higher in a line than big ones, by their font's depth.
  EXPECT_NEAR(words[1].bottom - words[0].bottom, 12, 3);
  EXPECT_NEAR(words[2].bottom - words[0].bottom, 24, 3);
}

}  // namespace
}  // namespace paperway
