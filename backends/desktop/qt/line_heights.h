#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "controls/rich_text.h"

namespace paperway::qt {

/// How high each line is, and so where it stands. Lines of one height in a row are kept as one
/// entry: a text without sizes of its own costs nothing, whatever its length.
class LineHeights {
 public:
  /// `heightOf` gives the height of a line whose greatest font size is the one given.
  void measure(const RichTextBox& box, const std::function<int(double)>& heightOf);

  std::int64_t top(std::uint64_t line) const;
  int height(std::uint64_t line) const;
  /// The line at a height from the text's top; the first or last one beyond the ends.
  std::uint64_t lineAt(std::int64_t y) const;
  std::int64_t total() const { return top(count_); }
  std::uint64_t count() const { return count_; }

 private:
  struct Stretch {
    std::uint64_t line;  // the first
    std::int64_t top;
    int height;
  };

  void add(std::uint64_t lines, int height);
  const Stretch& stretchOf(std::uint64_t line) const;

  std::vector<Stretch> stretches_;
  std::uint64_t count_ = 0;
};

}  // namespace paperway::qt
