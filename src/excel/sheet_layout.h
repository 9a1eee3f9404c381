#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "paperway/arguments.h"
#include "paperway/platform/workbook.h"
#include "report/report_plan.h"

namespace paperway {

/// The sheet of an export before its first row: its plan, and the place in it of each cell's
/// format.
struct SheetLayout {
  struct Title {
    std::string text;
    std::size_t format;
  };

  SheetPlan plan;
  std::vector<Title> titles;  // those that are not empty
  bool numbered = false;      // a column of running numbers comes first
  std::size_t heading = 0;    // of cells beside the columns
  std::size_t number = 0;     // of a running number
  std::size_t numberHeading = 0;
  std::vector<std::size_t> headings;  // of each column
  std::vector<std::size_t> cells;
};

/// Lays out the sheet. More columns than it takes raise kOverflow.
SheetLayout layOutSheet(const ExcelExportArguments& arguments, const ReportPlan& report);

/// The column keeps the sheet's own looks and has no total.
bool isLeftPlain(const ColumnPlan& column);

}  // namespace paperway
