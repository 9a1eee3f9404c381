#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "paperway/platform/workbook.h"

namespace paperway::workbook {

/// Cell styles of a format: as it stands, for a day, for a day with its time.
enum class StyleKind : std::size_t { plain, day, dayAndTime };
inline constexpr std::size_t kStyleKinds = 3;

inline std::size_t styleOf(std::size_t format, StyleKind kind) {
  return format * kStyleKinds + static_cast<std::size_t>(kind);
}

/// The part "xl/styles.xml" for these formats.
std::string stylesXml(const std::vector<CellFormat>& formats);

}  // namespace paperway::workbook
