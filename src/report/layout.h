#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "util/text.h"

namespace paperway {

/// Texts in fixed positions. Texts are UTF-8, widths count characters; to trim is to take blanks
/// (character 32 alone) off both ends. An argument outside its limits raises kInvalidCall, which
/// names it.

/// Trimmed, then padded or cut at the right to exactly `sp1` characters.
std::string TxtL(std::string_view DispField, std::int16_t sp1);

/// Trimmed, then padded or cut at the left to exactly `sp1` characters.
std::string TxtR(std::string_view DispField, std::int16_t sp1);

/// Half of the blanks that the trimmed text leaves free of `maxlen`, then the text; nothing at the
/// right. A half blank goes to the even number.
std::string StrCenter(std::string_view strTxt, std::uint8_t maxlen);

/// `Print_str`, blanks up to `Start_pos` characters, then `Data_str`.
std::string Print_line(std::int16_t Start_pos, std::string_view Print_str,
                       std::string_view Data_str);

/// TxtL, or TxtR, of a text of one byte a character, straight onto `width` blanks at `cell`.
inline void placeCell(char* cell, std::size_t width, std::string_view text, bool left) {
  if (text.empty()) return;
  if (text.front() == ' ' || text.back() == ' ') text = trimBlanks(text);
  const std::size_t length = std::min(text.size(), width);
  if (left) {
    std::copy_n(text.begin(), length, cell);
  } else {
    std::copy_n(text.end() - static_cast<std::ptrdiff_t>(length), length, cell + width - length);
  }
}

}  // namespace paperway
