#pragma once

#include <string>
#include <string_view>

#include "sticker/sticker_sheet.h"

namespace paperway {

class UserStore;

inline constexpr int kStickerPresets = 5;  // numbered from 1

/// What the user typed, or kept: texts, as the boxes of the sticker window show them. UTF-8.
struct StickerPreset {
  std::string space = "3";       // "SPace Between Col"
  std::string columns = "6";     // "Col"
  std::string rows = "12";       // "Row"
  std::string blankLines = "3";  // "Blank Line"
  std::string length = "4";      // "Max Feild Lenth"
  int fields = 1;                // lines of a sticker, 1 to 5
  int style = 0;                 // 0: 80 columns, 1: condensed
  Sticker lines{" ", " ", " ", " ", " "};

  /// Kept under the number 1 to 5. What was never kept has its default; so have a number of lines
  /// or a style that is none.
  static StickerPreset load(UserStore& store, std::string_view application, int number);
  void save(UserStore& store, std::string_view application, int number) const;

  /// An AutomationError that names the box whose text is not the number that it takes.
  StickerShape shape() const;
};

}  // namespace paperway
