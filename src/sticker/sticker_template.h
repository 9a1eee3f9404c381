#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/recordset.h"
#include "util/format_pattern.h"

namespace paperway {

/// A line of a sticker with places for fields, compiled once against the rows. An AutomationError
/// names the line whose brace does not close, or the field that the rows lack.
class StickerTemplate {
 public:
  StickerTemplate(std::string_view line, const Recordset& rows);

  /// The line of the row in hand, UTF-8. A text that is none is an error that names field and row
  /// (counted from 1).
  void append(std::string& out, const Recordset& rows, std::int64_t row) const;

 private:
  static constexpr std::size_t kNoField = static_cast<std::size_t>(-1);

  struct Part {
    std::string text{};  // in front of the field
    std::size_t field = kNoField;
    FormatPattern pattern{};
  };

  void addField(std::string_view place, const Recordset& rows);

  std::vector<Part> parts_;
};

}  // namespace paperway
