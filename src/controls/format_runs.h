#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "controls/appearance.h"

namespace paperway {

/// How characters look. What is not set comes from the control's font and colour.
struct CharFormat {
  double size = 0;  // points; 0 is the control's
  std::optional<Color> color = {};
  bool bold = false;
  bool underline = false;

  bool operator==(const CharFormat&) const = default;
  /// Shrunk to a speck, as the marks of a styled page are.
  bool hidden() const { return size > 0 && size <= 1; }
};

/// What a change of format sets; the rest stays as it is.
struct FormatChange {
  std::optional<double> size = {};
  std::optional<Color> color = {};
  std::optional<bool> bold = {};
  std::optional<bool> underline = {};

  CharFormat appliedTo(CharFormat format) const;
};

/// The formats of a text as runs in the order of the text. The runs before the place of the last
/// change and those behind it are two stacks, so that changes made in the order of the text, and
/// edits near one another, cost the same however many runs there are.
class FormatRuns {
 public:
  struct Run {
    std::size_t begin;
    std::size_t end;
    CharFormat format;
  };

  /// A text of this size in the control's own look.
  void reset(std::size_t textSize);

  void change(std::size_t begin, std::size_t end, const FormatChange& change);
  /// The bytes [at, at + removed) give way to `inserted` others, which look like the character
  /// before them, or, where that is hidden, like the one behind.
  void replaced(std::size_t at, std::size_t removed, std::size_t inserted);

  CharFormat at(std::size_t offset) const;
  /// The runs that meet [begin, end), cut to it.
  std::vector<Run> runs(std::size_t begin, std::size_t end) const;
  void set(const std::vector<Run>& runs);

  std::size_t runCount() const { return before_.size() + behind_.size(); }
  /// Every format in use since the last reset.
  const std::vector<CharFormat>& formats() const { return formats_; }

 private:
  using FormatId = std::uint32_t;
  struct Entry {               // a run without its end, which is the next one's begin
    std::uint64_t place : 40;  // begin; behind the place of change the distance from the text's end
    std::uint64_t format : 24;
  };

  std::size_t beginOf(std::size_t number) const;
  FormatId formatOf(std::size_t number) const;
  std::size_t runAt(std::size_t offset) const;
  void moveTo(std::size_t offset);
  FormatId idOf(const CharFormat& format);
  FormatId lastId() const { return before_.empty() ? 0 : before_.back().format; }
  void append(std::size_t begin, FormatId format);
  void joinBehind(std::size_t begin, FormatId format);
  template <typename NewFormat>
  void rewrite(std::size_t begin, std::size_t end, const NewFormat& newFormat);

  std::vector<CharFormat> formats_{CharFormat{}};
  std::vector<Entry> before_;
  std::vector<Entry> behind_;  // the nearest last
  std::size_t textSize_ = 0;
};

}  // namespace paperway
