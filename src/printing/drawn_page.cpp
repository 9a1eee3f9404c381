#include "printing/drawn_page.h"

#include <algorithm>

#include "util/code_page.h"

namespace paperway {
namespace {

constexpr int kTab = 8;
constexpr double kRounding = 1e-6;

/// Lays the characters of one line out from left to right.
class LineDrawing {
 public:
  explicit LineDrawing(PrinterPitch& pitch) : pitch_(pitch) {}

  PrintedLine draw(const StyledLine& line) {
    std::string bytes;
    for (const StyledRun& run : line.runs) bytes += run.bytes;
    std::size_t begin = 0;
    std::size_t at = 0;
    for (const StyledRun& run : line.runs) {
      const std::size_t end = begin + run.bytes.size();
      while (at < end) at += step(std::string_view(bytes).substr(at), run);
      flush(run);
      begin = end;
    }
    pitch_.command("\n");
    return std::move(printed_);
  }

 private:
  /// Takes one character, or one command, which may reach into the next run.
  std::size_t step(std::string_view bytes, const StyledRun& run) {
    const bool isControl = static_cast<unsigned char>(bytes[0]) < ' ';
    if (isControl) flush(run);
    if (bytes[0] == '\t') tab();
    if (bytes[0] == '\r') left_ = 0;
    if (bytes[0] == '\b') left_ = std::max(0.0, left_ - 1 / pitch_.singleCpi());
    const std::size_t length = pitch_.command(bytes);
    if (length > 0) return length;
    if (!run.hidden) text_ += bytes[0];
    return 1;
  }

  void flush(const StyledRun& run) {
    if (text_.empty()) return;
    const double cpi = pitch_.singleCpi();
    const Color ink = isSystemColor(run.color) ? 0 : run.color;
    printed_.push_back(
        {CodePage::windows1252().decode(text_), left_, cpi, ink, run.bold, run.underline});
    left_ += static_cast<double>(text_.size()) / cpi;
    text_.clear();
  }

  void tab() {
    const double width = kTab / pitch_.singleCpi();
    left_ = (static_cast<double>(static_cast<int>(left_ / width + kRounding)) + 1) * width;
  }

  PrinterPitch& pitch_;
  PrintedLine printed_;
  std::string text_;  // of one run, at one pitch
  double left_ = 0;
};

}  // namespace

PrintedPage drawnPage(const std::vector<StyledLine>& lines, PrinterPitch& pitch) {
  PrintedPage page;
  for (const StyledLine& line : lines) page.push_back(LineDrawing(pitch).draw(line));
  return page;
}

}  // namespace paperway
