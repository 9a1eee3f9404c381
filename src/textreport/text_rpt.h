#pragma once

#include <cstdint>
#include <string>

#include "paperway/arguments.h"
#include "paperway/platform/message_box.h"
#include "report/report_format.h"
#include "util/control_strings.h"

namespace paperway {

/// Writes the report of the rows under the table, whose totals it feeds. False when a group field
/// is missing from the rows: a message has said so, and nothing was touched. Every other failure is
/// an AutomationError, after which an earlier report of that name stands as it was.
bool writeTextReport(TextRptArguments& arguments, ReportFormatTable& table, const DOSEFONTcHR& font,
                     MessageBox& messageBox);

}  // namespace paperway
