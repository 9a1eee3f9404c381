#pragma once

#include <cstdint>
#include <string>

#include "paperway/platform.h"
#include "paperway/platform/print_device.h"
#include "preview/frm_report.h"
#include "printed/printer_pitch.h"
#include "printing/page_fit.h"

namespace paperway {

/// Pages of a report window by index, both included.
struct PageRange {
  std::int64_t first = 0;
  std::int64_t last = -1;
};

/// The pages that Op, Tst and Tend say.
PageRange chosenPages(const FrmReport& form);

/// What they ask of the paper: printed from this pitch on, or drawn at that of the report. Measures
/// no more than their first 16 MB, for the pages of a report are much alike.
ReportExtent extentOfChosen(const FrmReport& form, PrinterPitch pitch);
ReportExtent drawnExtentOfChosen(const FrmReport& form);

/// Draws them, each as often as Text3 says, to the printer or the file of the document; its size is
/// worked out here. An AutomationError also when there is nothing to draw.
void drawChosenPages(FrmReport& form, StyledDocument document, PrintDevice& device);

}  // namespace paperway
