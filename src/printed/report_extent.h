#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "printed/page_ranges.h"
#include "printed/printed_reader.h"

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

/// Characters that windows-1252 lacks: those of UTF-8 when the whole text is such, else the codes
/// to which it gives no character.
class ForeignCharacters {
 public:
  void text(std::string_view bytes, std::int64_t page);
  /// What follows stands apart.
  void endText();
  void writeTo(ReportExtent& extent) const;

 private:
  void countMultibyte(std::string_view bytes, std::int64_t page);

  std::string cut_;  // the beginning of a character
  std::int64_t openCodes_ = 0;
  std::int64_t openPage_ = 0;
  std::int64_t multibyte_ = 0;
  std::int64_t multibytePage_ = 0;
  bool utf8_ = true;
};

/// Measures a report, block by block.
class ExtentScan {
 public:
  /// A report sent to a printer with this pitch, or drawn by a computer; or these pages of it,
  /// which come one after the other.
  explicit ExtentScan(PrinterPitch pitch, Pen::Widths widths = Pen::Widths::printed,
                      PageRanges pages = PageRange{0, PageRanges::kToTheEnd})
      : printed_(widths == Pen::Widths::printed),
        pages_(std::move(pages)),
        reader_(*this, Pen(pitch, widths)) {}
  ExtentScan(const ExtentScan&) = delete;
  ExtentScan& operator=(const ExtentScan&) = delete;

  void block(std::string_view bytes) { reader_.block(bytes); }
  /// The whole report has been seen.
  ReportExtent end();

  // Events.
  void text(std::string_view bytes, const Pen& pen);
  void code(std::string_view, const Pen&) { foreign_.endText(); }
  bool lineEnd(const Pen&);
  void pageEnd(const Pen&);

 private:
  const bool printed_;
  const PageRanges pages_;
  std::int64_t place_ = 0;  // of the page among them
  std::int64_t page_ = pages_.at(0) + 1;
  bool hasText_ = false;    // the line
  bool feedsPage_ = false;  // the line, which then has no end on paper
  std::int64_t lines_ = 0;
  ForeignCharacters foreign_;
  ReportExtent extent_;
  PrintedReader<ExtentScan> reader_;
};

}  // namespace paperway
