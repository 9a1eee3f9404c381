#include "printing/page_fit.h"

#include "support/expect_each.h"

namespace paperway {
namespace {

TEST(FitWarnings, CompareTheReportWithThePaper) {
  const auto warning = [](const ReportExtent& report, const PaperRoom& paper) {
    return fitLine(fitWarnings(report, paper));
  };
  const PaperRoom fanfold = rawRoom(PageSettings{1, 39}, 11);
  expectEach(
      warning,
      Row{ReportExtent{8, 1, 72, 1, 0, 0}, rawRoom(std::nullopt, 12), ""},
      Row{ReportExtent{13.6, 1, 66, 1, 0, 0}, fanfold, ""},
      Row{ReportExtent{13.7, 9, 0, 0, 0, 0},
          fanfold,
          "Will not fit: a line of 13.7 inches on page 9, the paper has 13.6"},
      Row{ReportExtent{11.6, 1, 50, 3, 2, 8},
          sheetRoom({2, 9}),
          "Will not fit: 50 lines on page 3, the paper has 49; 2 characters outside windows-1252, "
          "the first on page 8"},
      Row{ReportExtent{8, 1, 5000, 3, 0, 0}, rawRoom(PageSettings{1, 9}, 0), ""});
}

}  // namespace
}  // namespace paperway
