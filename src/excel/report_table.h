#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "excel/column_finder.h"
#include "paperway/arguments.h"
#include "paperway/platform/storage.h"
#include "paperway/platform/workbook.h"

namespace paperway {

/// A text report as a table: a heading row, then each row of the report behind the headers of its
/// groups.
struct ReportTableArguments {
  std::filesystem::path report;
  std::filesystem::path out;
  std::vector<std::filesystem::path> inputs{};  // refused as `out`
  bool totals = false;                          // of groups, and the grand one, as rows
  std::string caller{};                         // whom errors name
  ReportProgressCallback onProgress{};
};

/// What was written, and what a user should look at.
struct ReportTableResult {
  std::int64_t rows = 0;
  std::int64_t crossed = 0;       // lines in which a word stands across a column's edge
  std::int64_t firstCrossed = 0;  // the row of the table, from 1 on, the heading aside
  std::int64_t otherHeads = 0;    // page heads with a heading other than the first page's
};

/// As a workbook: numbers and dates as such, in the patterns of their columns.
ReportTableResult writeReportSheet(const ReportTableArguments& arguments, const FoundReport& report,
                                   Workbooks& workbooks, Storage& storage);

/// As comma-separated values (UTF-8, CR LF): numbers without commas, dates as 2026-03-05.
ReportTableResult writeReportCsv(const ReportTableArguments& arguments, const FoundReport& report,
                                 Storage& storage);

/// The same of every line of the report, cut at marks as the column pick of the window cuts it:
/// cells are texts with their blanks.
ReportTableResult writeCutSheet(const ReportTableArguments& arguments,
                                std::span<const std::int16_t> marks, Workbooks& workbooks,
                                Storage& storage);
ReportTableResult writeCutCsv(const ReportTableArguments& arguments,
                              std::span<const std::int16_t> marks, Storage& storage);

}  // namespace paperway
