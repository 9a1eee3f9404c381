#include "printing/page_fit.h"

#include <algorithm>
#include <cstdio>

#include "util/control_strings.h"
#include "util/paper.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::size_t kLongLine = 64 * 1024;  // measured in pieces
constexpr double kLinesPerInch = 6;
constexpr double kRounding = 1e-6;  // inches

constexpr int kTab = 8;

bool isControl(char byte) {
  return static_cast<unsigned char>(byte) < ' ';
}

struct Kinds {
  bool controls;
  bool high;
};

/// Two sums, so that a compiler can look at many bytes at a time.
Kinds kindsOf(std::string_view bytes) {
  unsigned controls = 0;
  unsigned high = 0;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    controls |= code < ' ' ? 1U : 0U;
    high |= code & 0x80U;
  }
  return {controls != 0, high != 0};
}

/// Codes to which windows-1252 gives no character.
bool isOpenCode(char byte) {
  switch (static_cast<unsigned char>(byte)) {
    case 0x81:
    case 0x8D:
    case 0x8F:
    case 0x90:
    case 0x9D:
      return true;
    default:
      return false;
  }
}

bool isContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string shortNumber(double number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3g", number);
  return text;
}

std::string onPage(std::int64_t page) {
  return " on page " + std::to_string(page);
}

}  // namespace

void ExtentScan::block(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos) {
      held_ += bytes;
      if (held_.size() > kLongLine) {
        measure(held_);
        held_.clear();
      }
      return;
    }
    if (held_.empty()) {
      line(bytes.substr(0, end));
    } else {
      held_ += bytes.substr(0, end);
      line(held_);
      held_.clear();
    }
    bytes.remove_prefix(end + 1);
  }
}

/// A line with a form feed has no line end on paper: what follows stands right behind it. A drawn
/// page begins with the rest of that line.
void ExtentScan::line(std::string_view bytes) {
  if (bytes.ends_with('\r')) bytes.remove_suffix(1);
  measure(bytes);
  if (!drawn_ && bytes.find(kFormFeed) != std::string_view::npos) return;
  ++lines_;
  width_ = 0;
  pitch_.command("\n");
}

void ExtentScan::measure(std::string_view bytes) {
  const Kinds kinds = kindsOf(bytes);
  if (kinds.controls) return measureCommands(bytes);
  if (kinds.high) noteForeign(bytes);
  width_ += static_cast<double>(bytes.size()) / (drawn_ ? pitch_.singleCpi() : pitch_.cpi());
  if (width_ > extent_.width + kRounding) {
    extent_.width = width_;
    extent_.widestPage = page_;
  }
}

void ExtentScan::measureCommands(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto text = static_cast<std::size_t>(std::find_if(bytes.begin(), bytes.end(), isControl) -
                                               bytes.begin());
    measure(bytes.substr(0, text));
    bytes.remove_prefix(text);
    if (bytes.empty()) return;
    if (bytes[0] == kFormFeed) closePage();
    if (bytes[0] == '\r') width_ = 0;
    if (bytes[0] == '\t') {
      const double tab = kTab / pitch_.cpi();
      width_ = (static_cast<double>(static_cast<std::int64_t>(width_ / tab + kRounding)) + 1) * tab;
    }
    bytes.remove_prefix(pitch_.command(bytes));
  }
}

void ExtentScan::noteForeign(std::string_view bytes) {
  const auto open = std::count_if(bytes.begin(), bytes.end(), isOpenCode);
  if (open > 0 && openCodes_ == 0) openPage_ = page_;
  openCodes_ += open;
  if (!utf8_) return;
  utf8_ = validUtf8Length(bytes) == bytes.size();
  if (multibyte_ == 0) multibytePage_ = page_;
  for (std::size_t at = 1; at < bytes.size(); ++at) {
    if (isContinuation(bytes[at]) && !isContinuation(bytes[at - 1])) ++multibyte_;
  }
}

void ExtentScan::closePage() {
  const std::int64_t lines = lines_ + (width_ > 0 ? 1 : 0);
  if (lines > extent_.lines) {
    extent_.lines = lines;
    extent_.longestPage = page_;
  }
  ++page_;
  lines_ = 0;
  width_ = 0;
}

ReportExtent ExtentScan::end() {
  measure(held_);
  held_.clear();
  closePage();
  const bool isUtf8 = utf8_ && multibyte_ > 0;
  extent_.foreign = isUtf8 ? multibyte_ : openCodes_;
  extent_.foreignPage = isUtf8 ? multibytePage_ : openPage_;
  return extent_;
}

PaperRoom rawRoom(const std::optional<PageSettings>& settings, std::int16_t paperHeight) {
  constexpr double kNarrow = 8;
  constexpr double kWide = 13.6;
  constexpr double kNarrowPaper = 8.6;
  double width = settings ? sheetRoom(*settings).width : kNarrow;
  width = std::min(width, width <= kNarrowPaper ? kNarrow : kWide);
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
