#include "printing/drawn_page.h"

#include <string>

#include "printed/printed_reader.h"
#include "util/code_page.h"

namespace paperway {
namespace {

/// Takes the page's text run by run, and makes a text to draw of what stands in one run at one
/// pitch.
class PageDrawing {
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

 private:
  friend class PrintedReader<PageDrawing>;
  void text(std::string_view bytes, const Pen& pen) {
    if (run_->hidden) return;
    const Color ink = isSystemColor(run_->color) ? 0 : run_->color;
    line_.push_back({CodePage::windows1252().decode(bytes), pen.left(), pen.cpi(), ink, run_->bold,
                     run_->underline});
  }
  void code(std::string_view, const Pen&) {}
  bool lineEnd(const Pen&) {
    page_.push_back(std::exchange(line_, {}));
    return true;
  }
  void pageEnd(const Pen&) {}

  const StyledRun* run_ = nullptr;
  PrintedLine line_;
  PrintedPage page_;
  PrintedReader<PageDrawing> reader_;
};

}  // namespace

PrintedPage drawnPage(const std::vector<StyledRun>& runs, PrinterPitch& pitch) {
  PageDrawing drawing(pitch);
  for (const StyledRun& run : runs) drawing.add(run);
  PrintedPage page = drawing.end();
  pitch = drawing.pitch();
  return page;
}

}  // namespace paperway
