#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "controls/styled_runs.h"
#include "preview/page_styles.h"
#include "printed/page_ranges.h"
#include "printed/page_table.h"
#include "printed/report_extent.h"

namespace paperway {

inline constexpr std::size_t kMeasuredBytes = 16 << 20;

/// A report: its pages as text, and as text styled by the marks in it. Costs nothing to copy.
class ReportDocument {
 public:
  explicit ReportDocument(PageTable pages) : pages_(std::move(pages)) {}
  /// An AutomationError when the file cannot be read.
  static ReportDocument read(Storage& storage, const std::filesystem::path& path);

  const PageTable& pages() const { return pages_; }

  /// What these pages ask of the paper, as far as the report has them, from this pitch on. Measures
  /// no more than their first 16 MB, for the pages of a report are much alike.
  ReportExtent extent(const PageRanges& pages, PrinterPitch pitch, Pen::Widths widths) const;
  /// The pitch in which a page begins: a report says it once, in its first line.
  PrinterPitch pitchOf(std::int64_t index) const;

  /// A page as it leaves the window, without its form feed.
  std::vector<StyledRun> styledPage(std::int64_t index, const PageLook& look) const;

 private:
  PageTable pages_;
};

}  // namespace paperway
