#pragma once

#include <cstdint>

#include "paperway/platform/print_device.h"
#include "preview/report_document.h"
#include "printed/page_ranges.h"
#include "printed/report_extent.h"

namespace paperway {

/// Pages of a report that are to be drawn.
struct DrawnReport {
  ReportDocument report;
  PageRanges pages;
  PageLook look;
  std::int64_t copies = 1;  // each page comes so often, before the next one

  /// What they ask of the paper.
  ReportExtent extent() const {
    return report.extent(pages, report.pitchOf(pages.at(0)), Pen::Widths::drawn);
  }

  /// To the printer or the file of the document; its size is worked out here. An AutomationError
  /// also when there is nothing to draw, or a page that the report lacks.
  void draw(StyledDocument document, PrintDevice& device) const;
};

}  // namespace paperway
