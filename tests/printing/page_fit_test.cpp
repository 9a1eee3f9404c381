#include "printing/page_fit.h"

#include <cmath>

#include "support/expect_each.h"

namespace paperway {
namespace {

ReportExtent extentOf(std::string_view text, PrinterPitch pitch = {}) {
  ExtentScan scan(pitch);
  scan.block(text);
  return scan.end();
}

TEST(ExtentScan, MeasuresLinesByTheirCommands) {
  const std::string ten(10, 'x');
  const PrinterPitch plain{};
  const PrinterPitch semiCondensed{true, false};
  const auto widthIn600thsOfAnInch = [](const std::string& text, PrinterPitch pitch) {
    return std::lround(extentOf(text, pitch).width * 600);
  };
  expectEach(
      widthIn600thsOfAnInch, Row{ten, plain, 600},
      Row{ten + "\r\n" + ten + ten + "\r\n", plain, 1200}, Row{ten, semiCondensed, 500},
      Row{ten, PrinterPitch{false, true}, 350}, Row{ten, PrinterPitch{true, true}, 300},
      Row{"\033P" + ten, semiCondensed, 600}, Row{"\033g\017" + ten, plain, 400},
      Row{"\016" + ten + "\r\n" + ten, plain, 1200}, Row{"\016" + ten + "\024" + ten, plain, 1800},
      Row{"\033W1" + ten + "\n" + ten + ten, plain, 2400}, Row{"\022\033W \033M" + ten, plain, 500},
      Row{"\033W1\033@" + ten, plain, 600}, Row{"\033!\045" + ten, plain, 600},
      Row{"\033-1" + ten + "\033-0\033G\033H\033E\033F", plain, 600},
      Row{std::string("\033C\0\014", 4) + ten, plain, 600}, Row{"x\ty", plain, 540},
      Row{ten + "\r" + ten, plain, 600}, Row{"ab\f\r\n" + ten, plain, 600});
}

using Counted = std::pair<std::int64_t, std::int64_t>;  // how many, and on what page

TEST(ExtentScan, FindsTheLongestPage) {
  const auto longest = [](const char* text) {
    return Counted(extentOf(text).lines, extentOf(text).longestPage);
  };
  expectEach(longest, Row{"", Counted(0, 0)}, Row{"a\nb\nc", Counted(3, 1)},
             Row{"a\r\n\f\r\nb\r\nc\r\n\f\r\n", Counted(2, 2)}, Row{"\n\n\f\n\f", Counted(2, 1)},
             Row{"a\fb\fc\nd\ne\f", Counted(2, 3)}, Row{"a\r\nlast\f\r\n", Counted(2, 1)});
}

TEST(ExtentScan, CountsCharactersThatTheCodePageLacks) {
  const auto foreign = [](const char* text) {
    return Counted(extentOf(text).foreign, extentOf(text).foreignPage);
  };
  expectEach(foreign, Row{"caf\xE9 \x80", Counted(0, 0)}, Row{"\f\x81\x8D and \x9D", Counted(3, 2)},
             Row{"a\fb\fcaf\xC3\xA9 \xE2\x82\xAC", Counted(2, 3)},
             Row{"caf\xC3\xA9\ncaf\xE9", Counted(0, 0)});
}

TEST(FitWarnings, CompareTheReportWithThePaper) {
  const auto warning = [](const ReportExtent& report, const PaperRoom& paper) {
    return fitLine(fitWarnings(report, paper));
  };
  const PaperRoom fanfold = rawRoom(PageSettings{1, 39}, 11);
  expectEach(
      warning, Row{ReportExtent{8, 1, 72, 1, 0, 0}, rawRoom(std::nullopt, 12), ""},
      Row{ReportExtent{13.6, 1, 66, 1, 0, 0}, fanfold, ""},
      Row{ReportExtent{13.7, 9, 0, 0, 0, 0}, fanfold,
          "Will not fit: a line of 13.7 inches on page 9, the paper has 13.6"},
      Row{ReportExtent{11.6, 1, 50, 3, 2, 8}, sheetRoom({2, 9}),
          "Will not fit: 50 lines on page 3, the paper has 49; 2 characters outside windows-1252, "
          "the first on page 8"},
      Row{ReportExtent{8, 1, 5000, 3, 0, 0}, rawRoom(PageSettings{1, 9}, 0), ""});
}

}  // namespace
}  // namespace paperway
