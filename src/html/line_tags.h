#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/output_lines.h"

namespace paperway {

/// What becomes of the text of a line: "&nbsp;" for each blank, and then each text of a list is
/// replaced by another, one after the other, every time on what the ones before have left. A text
/// that is looked for is a control string; an empty one is never found.
class LineTags {
 public:
  using Replacements = std::vector<std::pair<std::string, std::string>>;

  explicit LineTags(Replacements replacements);

  /// Appends what becomes of a text.
  void append(OutputLines& out, std::string_view text);

  /// How many bytes from the beginning of a text on become what they become whatever follows: up to
  /// `wanted` of them, or the fewest beyond it, or all.
  std::size_t part(std::string_view text, std::size_t wanted) const;

  /// Behind the last byte that tells what stands before it from what follows; 0 without one.
  std::size_t lastPart(std::string_view text) const;

 private:
  /// What a byte becomes where nothing is to be replaced.
  struct Piece {
    char text[8];
    std::uint8_t length;
    bool mayBegin;  // a text that is looked for
    bool divides;   // stands in none of them
  };

  const Piece& pieceOf(char byte) const { return pieces_[static_cast<unsigned char>(byte)]; }
  bool appendPlain(OutputLines& out, std::string_view text) const;

  Replacements replacements_;
  std::array<Piece, 256> pieces_{};
  std::string line_;
  std::string replaced_;
};

}  // namespace paperway
