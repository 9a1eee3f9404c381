#include "printing/drawn_report.h"

#include <string>

#include "paperway/automation_error.h"
#include "printed/printed_reader.h"
#include "util/code_page.h"

namespace paperway {
namespace {

/// Takes the page's text run by run, and makes a text to draw of what stands in one run at one
/// pitch.
class PageDrawing : public NoEvents {
 public:
  explicit PageDrawing(PrinterPitch pitch) : reader_(*this, Pen(pitch, Pen::Widths::drawn)) {}
  PageDrawing(const PageDrawing&) = delete;
  PageDrawing& operator=(const PageDrawing&) = delete;

  void add(const StyledRun& run) {
    run_ = &run;
    reader_.block(run.bytes);
  }

  PrintedPage end() {
    reader_.end();
    if (!line_.empty()) page_.push_back(std::move(line_));
    return std::move(page_);
  }

  const PrinterPitch& pitch() const { return reader_.pen().pitch(); }

  // Events.
  void text(std::string_view bytes, const Pen& pen) {
    if (run_->hidden) return;
    const Color ink = isSystemColor(run_->color) ? 0 : run_->color;
    line_.push_back({CodePage::windows1252().decode(bytes), pen.left(), pen.cpi(), ink, run_->bold,
                     run_->underline});
  }
  bool lineEnd(const Pen&) {
    page_.push_back(std::exchange(line_, {}));
    return true;
  }

 private:
  const StyledRun* run_ = nullptr;
  PrintedLine line_;
  PrintedPage page_;
  PrintedReader<PageDrawing> reader_;
};

/// Each character stands at the pitch that the page's codes ask for, in the look of its run; codes
/// and what the page hides leave no trace. `pitch` is that of the page's beginning, and afterwards
/// of its end.
PrintedPage drawnPage(const std::vector<StyledRun>& runs, PrinterPitch& pitch) {
  PageDrawing drawing(pitch);
  for (const StyledRun& run : runs) drawing.add(run);
  PrintedPage page = drawing.end();
  pitch = drawing.pitch();
  return page;
}

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
