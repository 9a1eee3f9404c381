#pragma once

#include <memory>

#include "paperway/arguments.h"
#include "paperway/platform.h"
#include "report/report_format.h"

namespace paperway {

/// Writes the rows as the tables of an HTML document, page by page, under the column table, whose
/// totals it feeds, and leaves the document's footer in the user's page set-up. False without a
/// column table: an earlier document is gone then, and there is no new one. A failure is an
/// AutomationError, after which an earlier document stands.
bool writeHtmlExport(HtmlExportArguments& arguments,
                     const std::shared_ptr<ReportFormatTable>& table, const Platform& platform);

}  // namespace paperway
