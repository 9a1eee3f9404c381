#include "printed/report_extent.h"

#include <cmath>

#include "support/expect_each.h"

namespace paperway {
namespace {

ReportExtent extentOf(std::string_view text, PrinterPitch pitch = {},
                      Pen::Widths widths = Pen::Widths::printed) {
  ExtentScan scan(pitch, widths);
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
  expectEach(widthIn600thsOfAnInch,
             Row{ten, plain, 600},
             Row{ten + "\r\n" + ten + ten + "\r\n", plain, 1200},
             Row{ten, semiCondensed, 500},
             Row{ten, PrinterPitch{false, true}, 350},
             Row{ten, PrinterPitch{true, true}, 300},
             Row{"\033P" + ten, semiCondensed, 600},
             Row{"\033g\017" + ten, plain, 400},
             Row{"\016" + ten + "\r\n" + ten, plain, 1200},
             Row{"\016" + ten + "\024" + ten, plain, 1800},
             Row{"\033W1" + ten + "\n" + ten + ten, plain, 2400},
             Row{"\022\033W \033M" + ten, plain, 500},
             Row{"\033W1\033@" + ten, plain, 600},
             Row{"\033!\045" + ten, plain, 600},
             Row{"\033-1" + ten + "\033-0\033G\033H\033E\033F", plain, 600},
             Row{std::string("\033C\0\014", 4) + ten, plain, 600},
             Row{"x\ty", plain, 540},
             Row{"\016x\ty", plain, 1080},
             Row{"\017\033Mxx\033P\ty", plain, 315},
             Row{ten + "\b\b\x7F" + "xy", plain, 600},
             Row{"\b\bx", plain, 60},
             Row{ten + "\033*\001\003" + std::string("\000ABCx", 5), plain, 675},
             Row{std::string("\033D\004\010\000x", 6) + "\033J\n" + ten, plain, 660},
             Row{ten + "\r" + ten, plain, 600},
             Row{"ab\f\r\n" + ten, plain, 600});
}

TEST(ExtentScan, DrawnPagesKnowNoDoubleWidth) {
  const auto drawn = [](const char* text) {
    return std::lround(extentOf(text, {}, Pen::Widths::drawn).width * 600);
  };
  expectEach(drawn, Row{"\016xx\ty", 540}, Row{"\033W1x", 60}, Row{"ab\fcdef\ngh", 240});
}

TEST(ExtentScan, NamesTheReportsPages) {
  const auto longest = [](const char* chosen) {
    ExtentScan scan({}, Pen::Widths::printed, *PageRanges::read(chosen));
    scan.block("a\f\n\nb\f\f");
    return scan.end().longestPage;
  };
  expectEach(longest, Row{"1-", 2}, Row{"3,9-", 9}, Row{"5-6,8", 6});
}

using Counted = std::pair<std::int64_t, std::int64_t>;  // how many, and on what page

TEST(ExtentScan, FindsTheLongestPage) {
  const auto longest = [](const char* text) {
    return Counted(extentOf(text).lines, extentOf(text).longestPage);
  };
  expectEach(longest,
             Row{"", Counted(0, 0)},
             Row{"a\nb\nc", Counted(3, 1)},
             Row{"a\r\n\f\r\nb\r\nc\r\n\f\r\n", Counted(2, 2)},
             Row{"\n\n\f\n\f", Counted(2, 1)},
             Row{"a\fb\fc\nd\ne\f", Counted(2, 3)},
             Row{"a\r\nlast\r\f\r\n", Counted(2, 1)});
}

TEST(ExtentScan, CountsCharactersThatTheCodePageLacks) {
  const auto foreign = [](const char* text) {
    return Counted(extentOf(text).foreign, extentOf(text).foreignPage);
  };
  expectEach(foreign,
             Row{"caf\xE9 \x80", Counted(0, 0)},
             Row{"\f\x81\x8D and \x9D", Counted(3, 2)},
             Row{"a\fb\fcaf\xC3\xA9 \xE2\x82\xAC", Counted(2, 3)},
             Row{"caf\xC3\xA9\ncaf\xE9", Counted(0, 0)},
             Row{"\xC3\n\xA9 \x81", Counted(1, 1)});
}

}  // namespace
}  // namespace paperway
