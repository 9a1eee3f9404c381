#pragma once

#include <memory>

#include "paperway/arguments.h"
#include "paperway/platform.h"
#include "report/report_format.h"

namespace paperway {

/// Writes the rows as a workbook: titles, headings, a row for each of the data, a row of totals.
/// The column table is read alone. A failure is an AutomationError, after which an earlier workbook
/// stands. False when the user was asked for a name and gave none.
bool writeExcelExport(ExcelExportArguments& arguments,
                      const std::shared_ptr<ReportFormatTable>& table, const Platform& platform);

}  // namespace paperway
