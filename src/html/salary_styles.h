#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "paperway/arguments.h"
#include "report/report_format.h"

namespace paperway {

/// Takes the lines of the style sheet of HTML_Export_Salary: the link to the one that a host may
/// put beside the document, then a class for each column and each caption, and those of titles and
/// numbers. The records get the attributes of their classes, and lose the marks and fonts that went
/// into them. True when a column has a caption.
bool makeSalaryStyles(const HtmlExportSalaryArguments& arguments, ReportFormatTable& table,
                      const std::function<void(std::string_view line)>& take);

}  // namespace paperway
