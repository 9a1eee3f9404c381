#pragma once

#include <cstdint>
#include <string>

#include "html/page_measure.h"
#include "paperway/arguments.h"
#include "report/report_plan.h"

namespace paperway {

/// What each page of HTML_Export_Salary begins with: blank lines, titles, the beginning of the
/// table, the band of captions, the headings.
struct SalaryHead {
  std::string text;
  std::int32_t used = 0;  // twips, without the line of headings
};

/// The records have the attributes of their classes (salary_styles.h).
SalaryHead makeSalaryHead(const HtmlExportSalaryArguments& arguments, const ReportPlan& plan,
                          const ReportFormatTable& table, const PageMeasure& measure,
                          bool hasCaptions);

}  // namespace paperway
