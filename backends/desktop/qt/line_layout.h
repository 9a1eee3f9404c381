#pragma once

#include <QColor>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "backends/desktop/qt/text_face.h"
#include "controls/rich_text.h"

namespace paperway::qt {

/// Characters of one look and kind in a line.
struct LinePiece {
  enum class Kind { text, symbol, tab, nothing };

  Kind kind;
  std::size_t begin;  // offset in the text
  std::string bytes;
  double x;
  double cell;  // width of a character; 0 for what takes no room
  const TextFace* face;
  std::optional<Color> color;  // none: the control's
  bool underline;

  std::size_t end() const { return begin + bytes.size(); }
  double width() const { return cell * static_cast<double>(bytes.size()); }
  double right() const { return x + width(); }
};

/// Where the characters of a line stand. A line longer than kLongest bytes ends
/// there in an ellipsis.
struct LineLayout {
  static constexpr std::size_t kLongest = 65536;

  std::size_t begin;
  std::size_t end;   // of what is drawn
  std::size_t next;  // begin of the line after it
  std::vector<LinePiece> pieces = {};
  double width = 0;
  double ascent = 0;
  std::optional<std::size_t> pageBreak = {};  // a form feed within the text

  double xOf(std::size_t offset) const;
  /// The offset whose place is nearest.
  std::size_t offsetAt(double x) const;
  /// The character under a place; none beside the text.
  std::optional<std::size_t> characterAt(double x) const;
};

/// The letter that stands for a control character, as in "^[" for escape.
char controlLetter(char byte);
/// "ESC (27)".
QString controlName(char byte);

LineLayout layOut(const RichTextBox& box, std::uint64_t line, TextFaces& faces);

}  // namespace paperway::qt
