#include "printing/page_fit.h"

#include <algorithm>
#include <cstdio>

#include "util/paper.h"

namespace paperway {
namespace {

constexpr double kLinesPerInch = 6;
constexpr double kRounding = 1e-6;  // inches

std::string shortNumber(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3g", number);
  return text;
}

std::string onPage(std::int64_t page) {
  return " on page " + std::to_string(page);
}

}  // namespace

PaperRoom rawRoom(const std::optional<PageSettings>& settings, std::int16_t paperHeight) {
  constexpr double kNarrowPaper = 8.6;
  double width = settings ? sheetRoom(*settings).width : kNarrowRoom;
  width = std::min(width, width <= kNarrowPaper ? kNarrowRoom : kWideRoom);
  return {width, static_cast<double>(paperHeight & 0xFF)};
}

PaperRoom sheetRoom(const PageSettings& settings) {
  const Paper* paper = paperByNumber(settings.PaperSize);
  if (paper == nullptr) paper = paperByNumber(PageSettings{}.PaperSize);
  const PaperRoom upright{paper->width / 2540.0, paper->height / 2540.0};
  return settings.Orientation == 2 ? PaperRoom{upright.height, upright.width} : upright;
}

std::vector<std::string> fitWarnings(const ReportExtent& report, const PaperRoom& paper) {
  std::vector<std::string> warnings;
  if (report.width > paper.width + kRounding) {
    warnings.push_back("a line of " + shortNumber(report.width) + " inches" +
                       onPage(report.widestPage) + ", the paper has " + shortNumber(paper.width));
  }
  const auto room = static_cast<std::int64_t>(paper.height * kLinesPerInch + kRounding);
  if (room > 0 && report.lines > room) {
    warnings.push_back(std::to_string(report.lines) + " lines" + onPage(report.longestPage) +
                       ", the paper has " + std::to_string(room));
  }
  if (report.foreign > 0) {
    warnings.push_back(std::to_string(report.foreign) +
                       (report.foreign == 1 ? " character" : " characters") +
                       " outside windows-1252, the first" + onPage(report.foreignPage));
  }
  return warnings;
}

std::string fitLine(const std::vector<std::string>& warnings) {
  std::string line;
  for (const std::string& warning : warnings) {
    line += (line.empty() ? "Will not fit: " : "; ") + warning;
  }
  return line;
}

}  // namespace paperway
