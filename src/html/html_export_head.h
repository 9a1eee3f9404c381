#pragma once

#include <cstdint>
#include <string>

#include "html/page_measure.h"
#include "paperway/arguments.h"
#include "report/report_plan.h"

namespace paperway {

/// What each page of HTML_Export begins with: titles, the beginning of the table, its headings.
struct HtmlExportHead {
  std::string text;
  std::int32_t titles = 0;  // lines
};

HtmlExportHead makeHead(const HtmlExportArguments& arguments, const ReportPlan& plan,
                        const PageMeasure& measure);

}  // namespace paperway
