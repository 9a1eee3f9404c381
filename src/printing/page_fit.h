#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/platform/printers.h"
#include "printed/printer_pitch.h"

namespace paperway {

/// What a report asks of the paper. Pages count from 1.
struct ReportExtent {
  double width = 0;  // inches of its widest line
  std::int64_t widestPage = 0;
  std::int64_t lines = 0;  // of its longest page
  std::int64_t longestPage = 0;
  std::int64_t foreign = 0;  // characters that the code page lacks
  std::int64_t foreignPage = 0;

  double height() const { return static_cast<double>(lines) / 6; }
};

/// Measures a report, block by block, by the commands that stand in it.
class ExtentScan {
 public:
  /// Drawn pages know no double width.
  explicit ExtentScan(PrinterPitch pitch, bool drawn = false, std::int64_t firstPage = 1)
      : pitch_(pitch), drawn_(drawn), page_(firstPage) {}

  void block(std::string_view bytes);
  /// The whole report has been seen.
  ReportExtent end();

 private:
  void line(std::string_view bytes);
  void measure(std::string_view bytes);
  void measureCommands(std::string_view bytes);
  void noteForeign(std::string_view bytes);
  void closePage();

  PrinterPitch pitch_;
  const bool drawn_;
  std::int64_t page_;
  std::string held_;  // a line that is not complete
  double width_ = 0;  // of the line, so far
  std::int64_t lines_ = 0;
  std::int64_t openCodes_ = 0;
  std::int64_t openPage_ = 0;
  std::int64_t multibyte_ = 0;  // characters, when the text is UTF-8 and no code page's
  std::int64_t multibytePage_ = 0;
  bool utf8_ = true;
  ReportExtent extent_;
};

/// Inches of paper that can be printed on.
struct PaperRoom {
  double width = 0;
  double height = 0;
};

/// Of a dot-matrix printer: 8 inches, or 13.6 on wide paper; the page is as long as it is told.
PaperRoom rawRoom(const std::optional<PageSettings>& settings, std::int16_t paperHeight);
/// Of a sheet for drawn pages.
PaperRoom sheetRoom(const PageSettings& settings);

/// What will not fit, in a few words each.
std::vector<std::string> fitWarnings(const ReportExtent& report, const PaperRoom& paper);

/// "Will not fit: …" or nothing.
std::string fitLine(const std::vector<std::string>& warnings);

}  // namespace paperway
