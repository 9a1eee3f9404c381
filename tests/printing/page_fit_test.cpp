#include "printing/page_fit.h"

#include <gtest/gtest.h>
#include <tuple>

namespace paperway {
namespace {

ReportExtent extentOf(const std::string& text, PrinterPitch pitch = {}, std::size_t block = 1000) {
  ExtentScan scan(pitch);
  for (std::size_t at = 0; at < text.size(); at += block) {
    scan.block(std::string_view(text).substr(at, block));
  }
  return scan.end();
}

TEST(ExtentScan, MeasuresLinesByTheirCommands) {
  const std::string ten(10, 'x');
  const std::tuple<std::string, PrinterPitch, double> cases[] = {
      {ten, {}, 1},
      {ten + "\r\n" + ten + ten + "\r\n", {}, 2},
      {ten, {true, false}, 10 / 12.},
      {ten, {false, true}, 10 / (120 / 7.)},
      {ten, {true, true}, 0.5},
      {"\x1BP" + ten, {true, false}, 1},
      {"\x1Bg\x0F" + ten, {}, 10 / 15.},
      {"\x0E" + ten + "\r\n" + ten, {}, 2},
      {"\x0E" + ten + "\x14" + ten, {}, 3},
      {"\x1BW1" + ten + "\n" + ten + ten, {}, 4},
      {"\x12\x1BW \x1BM" + ten, {}, 10 / 12.},
      {"\x1BW1\x1B@" + ten, {}, 1},
      {"\x1B!\x25" + ten, {}, 1},
      {"\x1B-1" + ten +
           "\x1B-0\x1BG\x1BH\x1B"
           "E\x1B"
           "F",
       {},
       1},
      {"\x1B"
       "C" +
           std::string(1, '\0') + "\x0C" + ten,
       {},
       1},
      {"x\ty", {}, 0.9},
      {ten + "\r" + ten, {}, 1},
      {"ab\f\r\n" + ten, {}, 1},
  };
  for (const auto& [text, pitch, width] : cases) {
    for (const std::size_t block : {1, 7, 1000}) {
      EXPECT_NEAR(extentOf(text, pitch, block).width, width, 1e-9) << text;
    }
  }
}

TEST(ExtentScan, FindsTheLongestPage) {
  const std::tuple<const char*, int, int> cases[] = {
      {"", 0, 0},           {"a\nb\nc", 3, 1},         {"a\r\n\f\r\nb\r\nc\r\n\f\r\n", 2, 2},
      {"\n\n\f\n\f", 2, 1}, {"a\fb\fc\nd\ne\f", 2, 3}, {"a\r\nlast\f\r\n", 2, 1}};
  for (const auto& [text, lines, page] : cases) {
    EXPECT_EQ(extentOf(text).lines, lines) << text;
    EXPECT_EQ(extentOf(text).longestPage, page) << text;
  }
}

TEST(ExtentScan, CountsCharactersThatTheCodePageLacks) {
  const std::tuple<const char*, int, int> cases[] = {{"caf\xE9 \x80", 0, 0},
                                                     {"\f\x81\x8D and \x9D", 3, 2},
                                                     {"a\fb\fcaf\xC3\xA9 \xE2\x82\xAC", 2, 3},
                                                     {"caf\xC3\xA9\ncaf\xE9", 0, 0}};
  for (const auto& [text, count, page] : cases) {
    EXPECT_EQ(extentOf(text).foreign, count) << text;
    EXPECT_EQ(extentOf(text).foreignPage, page) << text;
  }
}

TEST(FitWarnings, CompareTheReportWithThePaper) {
  const PageSettings a4{1, 9};
  const PageSettings fanfold{1, 39};
  const std::tuple<ReportExtent, PaperRoom, const char*> cases[] = {
      {{8, 1, 72, 1, 0, 0}, rawRoom(std::nullopt, 12), ""},
      {{13.6, 1, 66, 1, 0, 0}, rawRoom(fanfold, 11), ""},
      {{13.7, 9, 0, 0, 0, 0},
       rawRoom(fanfold, 11),
       "Will not fit: a line of 13.7 inches on page 9, the paper has 13.6"},
      {{11.6, 1, 50, 3, 2, 8},
       sheetRoom({2, 9}),
       "Will not fit: 50 lines on page 3, the paper has 49; 2 characters outside windows-1252, "
       "the first on page 8"},
      {{8, 1, 5000, 3, 0, 0}, rawRoom(a4, 0), ""}};
  for (const auto& [report, paper, line] : cases) {
    EXPECT_EQ(fitLine(fitWarnings(report, paper)), line);
  }
}

}  // namespace
}  // namespace paperway
