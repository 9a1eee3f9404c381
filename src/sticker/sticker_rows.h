#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "paperway/arguments.h"
#include "paperway/platform/storage.h"
#include "paperway/recordset.h"
#include "sticker/sticker_sheet.h"

namespace paperway {

/// Stickers from rows, each row its own.
struct StickerRowsArguments {
  Recordset& Rs;  // rewound first, left at its end
  std::filesystem::path file{};
  StickerShape shape{};  // of columns and rows of stickers at least one
  /// Lines of a sticker, at most shape.fields. "{field}" stands for the value of a field of the
  /// row, "{field:pattern}" for the value in a format pattern, "{{" for a brace.
  std::vector<std::string> lines{};
  std::int64_t copies = 1;  // of each sticker, one behind the other
  ReportProgressCallback onProgress{};
};

/// Fills sheets from left to right and from top to bottom; the last one ends behind the last row
/// that holds a sticker. No row gives one empty sheet. A failure is an AutomationError, after which
/// an earlier file of that name stands as it was.
void writeStickers(const StickerRowsArguments& arguments, Storage& storage);

}  // namespace paperway
