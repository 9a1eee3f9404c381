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
  explicit PageDrawing(Pen pen) : reader_(*this, std::move(pen)) {}
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

  const Pen& pen() const { return reader_.pen(); }

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
/// and what the page hides leave no trace. `pen` is that of the page's beginning, and afterwards
/// of the next one's: pitch, margin and tab stops last.
PrintedPage drawnPage(const std::vector<StyledRun>& runs, Pen& pen) {
  PageDrawing drawing(pen);
  for (const StyledRun& run : runs) drawing.add(run);
  PrintedPage page = drawing.end();
  pen = drawing.pen();
  pen.endLine();
  return page;
}

[[noreturn]] void refuse(const std::string& reason) {
  throw AutomationError(AutomationError::kInvalidCall, "PrintExport", reason);
}

/// Draws a page as often as it is asked for.
class PageByPage {
 public:
  PageByPage(const DrawnReport& drawn, StyledJob& job)
      : drawn_(drawn),
        job_(job),
        pen_(drawn.report.pitchOf(drawn.pages.at(0)), Pen::Widths::drawn) {}

  void draw(std::int64_t index) {
    if (drawn_.report.pages()[index].empty()) return;
    const PrintedPage page = drawnPage(drawn_.report.styledPage(index, drawn_.look), pen_);
    for (std::int64_t copy = 0; copy < drawn_.copies; ++copy) job_.page(page);
    isBlank_ = false;
  }

  /// No page held anything.
  bool isBlank() const { return isBlank_; }

 private:
  const DrawnReport& drawn_;
  StyledJob& job_;
  Pen pen_;
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
