#include "controls/text_buffer.h"

namespace paperway {
namespace {

constexpr std::size_t kSmallPiece = 4096;  // typing goes on in the piece before it up to this size

struct ExactNeedle {
  std::string_view bytes;
  std::size_t size() const { return bytes.size(); }
  std::size_t findIn(std::string_view text, std::size_t from) const {
    return text.find(bytes, from);
  }
};

TextSlice whole(std::string bytes) {
  const std::size_t size = bytes.size();
  return {SharedText::of(std::move(bytes)), 0, size};
}

}  // namespace

std::uint64_t TextBuffer::Piece::lineEnds() const {
  if (!counted) counted = slice.lineEndsBefore(slice.size());
  return *counted;
}

void TextBuffer::assign(TextSlice slice) {
  pieces_.clear();
  size_ = slice.size();
  if (size_ > 0) pieces_.push_back({std::move(slice)});
}

void TextBuffer::assign(std::string bytes) {
  assign(whole(std::move(bytes)));
}

std::string TextBuffer::str() const {
  std::string text;
  text.reserve(size_);
  for (const Piece& piece : pieces_) text += piece.slice.view();
  return text;
}

std::string_view TextBuffer::pieceAt(std::size_t offset) const {
  for (const Piece& piece : pieces_) {
    if (offset < piece.slice.size()) return piece.slice.view().substr(offset);
    offset -= piece.slice.size();
  }
  return {};
}

std::string_view TextBuffer::view(std::size_t begin, std::size_t end, std::string& copy) const {
  end = std::min(end, size_);
  if (begin >= end) return {};
  std::string_view piece = pieceAt(begin);
  if (piece.size() >= end - begin) return piece.substr(0, end - begin);
  copy.clear();
  while (begin < end) {
    piece = pieceAt(begin);
    copy += piece.substr(0, end - begin);
    begin += piece.size();
  }
  return copy;
}

/// The number of the piece that begins at the offset, once one does.
std::size_t TextBuffer::splitAt(std::size_t offset) {
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    if (offset == 0) return i;
    const TextSlice slice = pieces_[i].slice;
    if (offset < slice.size()) {
      const std::size_t middle = slice.begin + offset;
      pieces_[i] = Piece{{slice.text, slice.begin, middle}};
      pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                     Piece{{slice.text, middle, slice.end}});
      return i + 1;
    }
    offset -= slice.size();
  }
  return pieces_.size();
}

void TextBuffer::insertAt(std::size_t number, std::string_view bytes) {
  if (number > 0 && pieces_[number - 1].slice.size() + bytes.size() <= kSmallPiece) {
    Piece& before = pieces_[number - 1];
    before = Piece{whole(std::string(before.slice.view()).append(bytes))};
    return;
  }
  pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(number),
                 Piece{whole(std::string(bytes))});
}

void TextBuffer::replace(std::size_t at, std::size_t count, std::string_view with) {
  at = std::min(at, size_);
  count = std::min(count, size_ - at);
  const std::size_t first = splitAt(at);
  const std::size_t behind = splitAt(at + count);
  pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(first),
                pieces_.begin() + static_cast<std::ptrdiff_t>(behind));
  if (!with.empty()) insertAt(first, with);
  size_ = size_ - count + with.size();
}

std::size_t TextBuffer::find(std::string_view bytes, std::size_t from) const {
  return find(ExactNeedle{bytes}, from, size_);
}

std::uint64_t TextBuffer::lineOf(std::size_t offset) const {
  std::uint64_t line = 0;
  for (const Piece& piece : pieces_) {
    if (offset < piece.slice.size()) return line + piece.slice.lineEndsBefore(offset);
    line += piece.lineEnds();
    offset -= piece.slice.size();
  }
  return line;
}

std::size_t TextBuffer::lineStart(std::uint64_t line) const {
  if (line == 0) return 0;
  --line;  // the number of the line end before it
  std::size_t base = 0;
  for (const Piece& piece : pieces_) {
    if (line < piece.lineEnds()) return base + piece.slice.lineEnd(line) + 1;
    line -= piece.lineEnds();
    base += piece.slice.size();
  }
  return size_;
}

}  // namespace paperway
