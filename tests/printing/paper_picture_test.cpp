#include "printing/paper_picture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <tuple>

#include "paperway/headless.h"
#include "printing/drawn_report.h"
#include "support/files.h"
#include "support/test_folder.h"
#include "util/text.h"

namespace paperway {
namespace {

/// Characters by the place at which they stand: right and down in 1/10000 inch, down counting along
/// the paper.
using Places = std::map<std::tuple<long, long>, std::string>;

void place(Places& places, const std::string& text, double left, double top, double cpi) {
  for (std::size_t at = 0, column = 0; at < text.size(); ++column) {
    const std::size_t begin = at;
    nextCharacter(text, at);
    const std::string character = text.substr(begin, at - begin);
    if (character == " ") continue;
    const double x = left + static_cast<double>(column) / cpi;
    places[{std::lround(x * 1e4), std::lround(top * 1e4)}] = character;
  }
}

/// Pages of words in pitches, at tab stops and behind margins of their own.
std::string randomReport(std::mt19937& random, int pages) {
  const auto below = [&](unsigned end) { return random() % end; };
  const std::vector<std::string> codes = {"\033P",
                                          "\033M",
                                          "\033g",
                                          "\017",
                                          "\022",
                                          "\t",
                                          "\033E",
                                          "\033F",
                                          "\033-1",
                                          "\b",
                                          "\033l\005",
                                          "\033$\074" + std::string(1, '\0'),
                                          "\033 \002"};
  std::string report;
  for (int page = 0; page < pages; ++page) {
    for (unsigned lines = 1 + below(17); lines > 0; --lines) {
      for (unsigned words = below(6); words > 0; --words) {
        if (below(3) == 0) report += codes[below(static_cast<unsigned>(codes.size()))];
        report += std::string(1 + below(5), static_cast<char>('a' + below(26))) + " ";
      }
      report += "\r\n";
    }
    report += "\f\r\n";
  }
  return report;
}

class PaperPicture : public testing::Test {
 protected:
  /// Of the pages that a computer draws, each so many inches below the one before.
  Places drawnPlaces(const PrintStreamSettings& settings) {
    Places places;
    headless::Printers printers;
    headless::PrintDevice device(printers);
    const ReportDocument report = ReportDocument::read(storage_, report_);
    DrawnReport{report, PageRanges(PageRange{0, report.pages().PageCount() - 1}), {.styled = false}}
        .draw({.name = "x", .file = "x.pdf"}, device);
    double top = 0;
    constexpr double kLine = 1.0 / 6;
    for (const PrintedPage& page : device.documents.back()->pages) {
      for (std::size_t line = 0; line < page.size(); ++line) {
        for (const PrintedText& text : page[line]) {
          place(places, text.text, text.left, top + static_cast<double>(line) * kLine, text.cpi);
        }
      }
      // The end of a line with a form feed begins the next page, and does not go to a printer.
      if (&page == &device.documents.back()->pages.front()) top -= kLine;
      top += settings.paperHeight;
    }
    return places;
  }

  Places paperPlaces(const PrintStreamSettings& settings, double height) {
    Places places;
    InputFile file(storage_, report_, "test");
    const PaperShape shape{.width = 60, .height = height, .printable = 50};
    layOutPaper({textOf(file), settings, {.codeTable = 1252}, shape}, [&](const Sheet& sheet) {
      for (const SheetText& text : sheet.texts) {
        place(places,
              text.text,
              text.left - sheet.printableLeft,
              text.top + static_cast<double>(sheet.number - 1) * height,
              text.cpi);
      }
      return true;
    });
    return places;
  }

  TestFolder folder_;
  headless::Storage storage_;
  const std::filesystem::path report_ = folder_.path / "report.txt";
};

TEST_F(PaperPicture, HasEachCharacterWhereTheDrawnPagesHaveIt) {
  std::mt19937 random(20260301);
  for (int round = 0; round < 300; ++round) {
    replaceFile(report_, randomReport(random, 1 + static_cast<int>(random() % 4)));
    const PrintStreamSettings settings{.paperHeight = static_cast<std::int16_t>(3 + random() % 10),
                                       .linesIn = static_cast<std::uint8_t>(random() % 4)};
    const double height = static_cast<double>(6 + random() % 20) / 2;  // a wrong one, mostly
    ASSERT_EQ(paperPlaces(settings, height), drawnPlaces(settings))
        << "round " << round << testing::PrintToString(readFile(report_));
  }
}

TEST(PaperShape, IsThatOfThePrintersPaper) {
  const auto same = [](const std::optional<PageSettings>& settings, const PaperShape& shape) {
    EXPECT_EQ(paperShape(settings, 12), shape);
  };
  same({}, {9.5, 12, 8});
  same(PageSettings{1, 9}, {9.5, 12, 8});
  same(PageSettings{1, 39}, {14.875, 11, 13.6});
  same(PageSettings{1, 40}, {9.5, 12, 8});
  same(PageSettings{2, 9}, {14.875, 12, 13.6});
}

}  // namespace
}  // namespace paperway
