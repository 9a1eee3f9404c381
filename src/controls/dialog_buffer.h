#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace paperway {

/// A buffer of a dialog's: a text of that many characters, of code 0 where nothing was written. A
/// character is a code point; a byte that belongs to no UTF-8, as file names may have, is one too.
class DialogBuffer {
 public:
  /// The size in use unless another is set.
  explicit DialogBuffer(std::int32_t usualSize) : usual_(usualSize) {}

  /// 0: not allocated yet.
  std::int32_t size() const { return size_; }
  std::int32_t sizeInUse() const { return size_ == 0 ? usual_ : size_; }
  /// A size of at least 1 makes the buffer new; any other becomes 0 and leaves what it holds.
  void setSize(std::int32_t size);
  void allocate();

  /// Writes a text and a code 0, in a new buffer where it is longer than this one.
  void setText(std::string_view text);
  /// Writes over the first characters, as far as there is room.
  void put(std::u32string_view characters);

  std::size_t length() const { return length_; }
  char32_t front() const { return written_.empty() ? U'\0' : written_.front(); }
  /// Place of the first code 0 from `place` on; nothing when there is none.
  std::optional<std::size_t> end(std::size_t place) const;
  /// The characters from `begin` up to `end`, and up to the first code 0.
  std::string text(std::size_t begin, std::size_t end) const;
  std::string textFrom(std::size_t begin) const;

  static std::u32string charactersOf(std::string_view text);

 private:
  std::int32_t usual_;
  std::int32_t size_ = 0;
  std::size_t length_ = 0;  // of the buffer, which outlives a size set to 0
  std::u32string written_;  // its characters but for codes 0 at its end
};

}  // namespace paperway
