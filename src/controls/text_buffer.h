#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "printed/shared_text.h"

namespace paperway {

/// An editable text of bytes, made of pieces of texts that never change: showing or editing a text
/// of any size copies no more than what is typed.
class TextBuffer {
 public:
  void assign(TextSlice slice);
  void assign(std::string bytes);

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  std::string str() const;
  /// The byte at an offset, which must lie in the text.
  char operator[](std::size_t offset) const { return pieceAt(offset).front(); }
  /// A part of the text; `copy` holds it when it does not lie in one piece. Offsets beyond the text
  /// count as its end.
  std::string_view view(std::size_t begin, std::size_t end, std::string& copy) const;
  /// What lies in one piece from this offset on; empty at the text's end.
  std::string_view pieceAt(std::size_t offset) const;

  void replace(std::size_t at, std::size_t count, std::string_view with);

  /// Offset of the first match that begins at or after `from` and ends at or before `end`; npos
  /// when there is none, and for an empty needle. A needle is any class with size() and
  /// findIn(text, from).
  template <typename Needle>
  std::size_t find(const Needle& needle, std::size_t from, std::size_t end) const;
  /// The same for a text to be met byte by byte.
  std::size_t find(std::string_view bytes, std::size_t from) const;

  /// A line ends behind its line feed; the text behind the last one is a line too.
  std::uint64_t lineCount() const { return lineOf(size_) + 1; }
  std::uint64_t lineOf(std::size_t offset) const;
  /// Offset of a line's first byte; the text's size for a line that it lacks.
  std::size_t lineStart(std::uint64_t line) const;

 private:
  struct Piece {
    TextSlice slice;
    mutable std::optional<std::uint64_t> counted = {};

    std::uint64_t lineEnds() const;
  };

  std::size_t splitAt(std::size_t offset);
  void insertAt(std::size_t number, std::string_view bytes);

  std::vector<Piece> pieces_;
  std::size_t size_ = 0;
};

template <typename Needle>
std::size_t TextBuffer::find(const Needle& needle, std::size_t from, std::size_t end) const {
  if (needle.size() == 0) return std::string_view::npos;
  end = std::min(end, size_);
  const std::size_t reach = needle.size() - 1;  // of a match behind its first byte
  std::string copy;
  while (from < end) {
    const std::size_t pieceEnd = std::min(from + pieceAt(from).size(), end);
    std::size_t found = needle.findIn(view(from, pieceEnd, copy), 0);
    if (found != std::string_view::npos) return from + found;
    // Matches that lie across the end of the piece.
    const std::size_t seam = std::max(from, pieceEnd - std::min(reach, pieceEnd));
    found = needle.findIn(view(seam, std::min(pieceEnd + reach, end), copy), 0);
    if (found != std::string_view::npos) return seam + found;
    from = pieceEnd;
  }
  return std::string_view::npos;
}

}  // namespace paperway
