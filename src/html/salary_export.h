#pragma once

#include <memory>

#include "paperway/arguments.h"
#include "paperway/platform.h"
#include "report/report_format.h"

namespace paperway {

/// writeHtmlExport (html_export.h) with a style sheet and finer control of the page. The column
/// table keeps what the style sheet makes of it. The printer is left as it is.
bool writeSalaryExport(HtmlExportSalaryArguments& arguments,
                       const std::shared_ptr<ReportFormatTable>& table, const Platform& platform);

}  // namespace paperway
