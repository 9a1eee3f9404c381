#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/platform/workbook.h"

namespace paperway::workbook {

enum class XlsPart : std::uint16_t { globals = 0x0005, sheet = 0x0010 };

/// How each part begins.
void putBegin(std::string& out, XlsPart part);

/// The place of a cell's style among those of the file; `kind` 0 as it stands, 1 a day, 2 a day
/// with its time.
unsigned xlsStyle(std::size_t format, unsigned kind);

/// What stands before the sheet: fonts, formats, styles, the sheet's name and print titles, and the
/// texts. `named` counts the cells that name one of them.
std::string xlsGlobals(const SheetPlan& plan, const std::vector<std::string_view>& texts,
                       std::uint32_t named);

/// What stands in a sheet before its cells.
std::string xlsSheetHead(const SheetPlan& plan, const WorkbookTarget& target, std::int64_t rows,
                         std::int64_t columns);

}  // namespace paperway::workbook
