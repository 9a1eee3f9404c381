#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace paperway {

/// Dots that a code prints, column by column, the highest bit of a column's first byte on top.
struct BitImage {
  double columnsPerInch = 60;
  double rowsPerInch = 72;
  std::size_t columnBytes = 1;
  std::string_view columns;  // of the code
  bool ninePins = false;     // the second byte's lowest bit is the ninth row, and the last

  std::size_t count() const { return columns.size() / columnBytes; }
  std::size_t rows() const { return ninePins ? 9 : 8 * columnBytes; }
  double width() const { return static_cast<double>(count()) / columnsPerInch; }
  double height() const { return static_cast<double>(rows()) / rowsPerInch; }
  bool hasDot(std::size_t column, std::size_t row) const;
};

/// Nothing for another code.
std::optional<BitImage> bitImageOf(std::string_view code);

}  // namespace paperway
