#include "printing/drawn_report.h"

#include <string>

#include "paperway/automation_error.h"
#include "printing/drawn_page.h"

namespace paperway {
namespace {

[[noreturn]] void refuse(const std::string& reason) {
  throw AutomationError(AutomationError::kInvalidCall, "PrintExport", reason);
}

/// Draws a page as often as it is asked for.
class PageByPage {
 public:
  PageByPage(const DrawnReport& drawn, StyledJob& job)
      : drawn_(drawn), job_(job), pitch_(drawn.report.pitchOf(drawn.pages.at(0))) {}

  void draw(std::int64_t index) {
    if (drawn_.report.pages()[index].empty()) return;
    const PrintedPage page = drawnPage(drawn_.report.styledPage(index, drawn_.look), pitch_);
    for (std::int64_t copy = 0; copy < drawn_.copies; ++copy) job_.page(page);
    isBlank_ = false;
  }

  /// No page held anything.
  bool isBlank() const { return isBlank_; }

 private:
  const DrawnReport& drawn_;
  StyledJob& job_;
  PrinterPitch pitch_;
  bool isBlank_ = true;
};

}  // namespace

void DrawnReport::draw(StyledDocument document, PrintDevice& device) const {
  if (pages.empty() || copies < 1) refuse("There is nothing to print: no page, or no copy.");
  const ReportExtent size = extent();
  document.width = size.width;
  document.height = size.height();
  const auto job = device.start(document);
  PageByPage drawing(*this, *job);
  for (const PageRange& range : pages.ranges()) {
    for (std::int64_t page = range.first; page <= range.last; ++page) drawing.draw(page);
  }
  if (drawing.isBlank()) refuse("There is nothing to print: the pages are empty.");
  job->end();
}

}  // namespace paperway
