#pragma once

#include <cstddef>

#include "controls/format_runs.h"
#include "controls/text_buffer.h"

namespace paperway {

/// What characters are to a reader who goes by words.
enum class CharacterClass { blank, word, other };
CharacterClass classOf(char byte);

/// Where a caret stands as it moves: neither inside a line end or a hidden mark, nor behind the
/// form feed that closes the text.
class CaretStops {
 public:
  CaretStops(const TextBuffer& text, const FormatRuns& formats) : text_(text), formats_(formats) {}

  /// Where the user's text ends: before the form feed that closes it.
  std::size_t textEnd() const;
  bool insideLineEnd(std::size_t offset) const;
  std::size_t nextStop(std::size_t offset) const;
  std::size_t previousStop(std::size_t offset) const;
  std::size_t wordStop(std::size_t offset, bool forward) const;

 private:
  const TextBuffer& text_;
  const FormatRuns& formats_;
};

}  // namespace paperway
