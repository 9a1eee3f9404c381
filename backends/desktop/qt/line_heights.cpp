#include "backends/desktop/qt/line_heights.h"

#include <algorithm>

namespace paperway::qt {
namespace {

/// Offset behind the first line feed in [begin, end); `end` when there is none.
std::size_t behindLineFeed(const TextBuffer& text, std::size_t begin, std::size_t end) {
  while (begin < end) {
    const std::string_view piece = text.pieceAt(begin).substr(0, end - begin);
    const std::size_t feed = piece.find('\n');
    if (feed != std::string_view::npos) return begin + feed + 1;
    begin += piece.size();
  }
  return end;
}

/// Walks the runs of a text and tells the greatest size of each line.
class SizeWalk {
 public:
  using Found = std::function<void(std::uint64_t lines, double size)>;

  SizeWalk(const RichTextBox& box, Found found) : box_(box), found_(std::move(found)) {}

  void run() {
    for (const FormatRuns::Run& run : box_.formats().runs(0, box_.buffer().size())) {
      const CharFormat& format = run.format;
      walk(run.begin, run.end,
           format.hidden()   ? 0
           : format.size > 0 ? format.size
                             : box_.Font.Size);
    }
    found_(1, greatest_);
  }

 private:
  void walk(std::size_t begin, std::size_t end, double size) {
    std::uint64_t whole = 0;  // lines that lie in this run alone
    bool first = true;
    while (begin < end) {
      begin = behindLineFeed(box_.buffer(), begin, end);
      greatest_ = std::max(greatest_, size);
      if (box_.buffer()[begin - 1] != '\n') break;
      if (first || greatest_ != size) {
        found_(1, greatest_);
      } else {
        ++whole;
      }
      first = false;
      greatest_ = 0;
    }
    if (whole > 0) found_(whole, size);
  }

  const RichTextBox& box_;
  Found found_;
  double greatest_ = 0;  // of the line that is being read
};

}  // namespace

void LineHeights::measure(const RichTextBox& box, const std::function<int(double)>& heightOf) {
  stretches_.clear();
  count_ = 0;
  if (box.oneFontSize()) {
    add(box.lineCount(), heightOf(box.Font.Size));
    return;
  }
  SizeWalk(box, [&](std::uint64_t lines, double size) {
    add(lines, heightOf(size > 0 ? size : box.Font.Size));
  }).run();
}

void LineHeights::add(std::uint64_t lines, int height) {
  if (stretches_.empty() || stretches_.back().height != height) {
    stretches_.push_back({count_, stretches_.empty() ? 0 : top(count_), height});
  }
  count_ += lines;
}

const LineHeights::Stretch& LineHeights::stretchOf(std::uint64_t line) const {
  const auto behind =
      std::upper_bound(stretches_.begin(), stretches_.end(), line,
                       [](std::uint64_t value, const Stretch& s) { return value < s.line; });
  return *std::prev(behind);
}

std::int64_t LineHeights::top(std::uint64_t line) const {
  if (stretches_.empty()) return 0;
  const Stretch& stretch = stretchOf(line);
  return stretch.top + static_cast<std::int64_t>(line - stretch.line) * stretch.height;
}

int LineHeights::height(std::uint64_t line) const {
  return stretches_.empty() ? 0 : stretchOf(line).height;
}

std::uint64_t LineHeights::lineAt(std::int64_t y) const {
  if (y <= 0 || count_ == 0) return 0;
  const auto behind =
      std::upper_bound(stretches_.begin(), stretches_.end(), y,
                       [](std::int64_t value, const Stretch& s) { return value < s.top; });
  const Stretch& stretch = *std::prev(behind);
  const auto line = stretch.line + static_cast<std::uint64_t>((y - stretch.top) / stretch.height);
  return std::min(line, count_ - 1);
}

}  // namespace paperway::qt
