#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace paperway {

inline constexpr int kStickerLines = 5;  // at most, of one sticker

/// The lines of a sticker, UTF-8.
using Sticker = std::array<std::string, kStickerLines>;

/// How stickers stand on a sheet. Lengths count characters and lines.
struct StickerShape {
  std::uint8_t length = 4;      // width of a sticker
  std::int16_t gap = 3;         // behind every sticker of a row, the last one included
  std::uint8_t columns = 6;     // stickers side by side
  std::int16_t rows = 12;       // none when below 1
  std::int16_t blankLines = 3;  // between two rows stands one more than these
  std::uint8_t fields = 1;      // lines of a sticker, 1 to 5
  bool condensed = false;       // 136 columns to the line instead of 80

  std::int64_t width() const { return std::int64_t{columns} * (length + gap); }
  /// With the line that closes the sheet.
  std::int64_t height() const;
  std::int64_t stickers() const { return rows < 1 ? 0 : std::int64_t{columns} * rows; }
};

/// A row of stickers, filled from left to right, as lines of one byte a character.
class StickerRow {
 public:
  explicit StickerRow(const StickerShape& shape) : shape_(shape), lines_(shape.fields), count_(0) {}

  bool isFull() const { return count_ == shape_.columns; }
  bool isEmpty() const { return count_ == 0; }

  /// Each line trimmed of blanks, then padded or cut at the right to the sticker's length. Texts
  /// are UTF-8.
  void add(std::span<const std::string> texts);

  /// Whether a control character stands in the sticker that was added last.
  bool holdsControls() const;

  /// Appends the lines of the row and empties it.
  void take(std::string& out);

 private:
  const StickerShape shape_;
  std::vector<std::string> lines_;
  std::uint8_t count_;
  std::string encoded_;
};

/// Writes sheets: rows apart by blank lines, a form feed behind the last one, each sheet within the
/// pair of codes of condensed print.
class StickerSheet {
 public:
  using Sink = std::function<void(std::string_view bytes)>;

  StickerSheet(const StickerShape& shape, Sink sink) : shape_(shape), sink_(std::move(sink)) {}

  /// The lines of a row, from StickerRow.
  void row(std::string_view lines);
  /// Closes the sheet; the next row begins another.
  void end();

 private:
  const StickerShape shape_;
  const Sink sink_;
  bool begun_ = false;
};

/// A whole sheet of one sticker.
void writeStickerSheet(const StickerShape& shape, const Sticker& sticker,
                       const StickerSheet::Sink& sink);

}  // namespace paperway
