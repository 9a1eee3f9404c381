#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/recordset.h"
#include "report/report_format.h"
#include "util/format_pattern.h"

namespace paperway {

/// A column bound to its field, its pattern compiled: all that a row needs to know of it.
struct ColumnPlan {
  enum class Type : char { none, text, date, number };

  Type type = Type::none;
  bool left = false;
  bool total = false;      // feeds and shows the grand total
  bool pageTotal = false;  // shows the running total at each page's end and top
  bool blankOnDuplicate = false;
  bool feedsGroup1 = false;  // names the group that the report uses
  bool feedsGroup2 = false;
  std::size_t ordinal = 0;  // of the field; unused when the type is none
  std::size_t width = 0;
  std::size_t spaces = 0;
  FormatPattern pattern;
  ColumnFormat* format = nullptr;  // holds the running totals
};

/// One group level: the field whose change begins a group, and the look of its header.
struct GroupPlan {
  std::string field;  // empty: the report has no such level
  std::size_t ordinal = 0;
  bool bold = false;

  bool isUsed() const { return !field.empty(); }
};

/// A report laid out before its first row.
struct ReportPlan {
  std::vector<ColumnPlan> columns;
  GroupPlan group1;  // inner
  GroupPlan group2;  // outer
  bool pageTotals = false;
  bool hasDuplicates = false;
  std::size_t duplicateOrdinal = 0;
  std::string headRow;  // bytes of the code page, without serial-number column
};

/// Reads columns, group levels and headings off the table. No field is looked for yet.
ReportPlan planReport(ReportFormatTable& table);

/// Binds columns and duplicate field to the fields of the data; a missing one raises kItemNotFound.
void bindFields(ReportPlan& plan, const ReportFormatTable& table, const Recordset& rows);

/// The bytes of a text in the report's code page. A text that is not UTF-8 raises kTypeMismatch,
/// which begins with `what` ("The title Tital1").
std::string reportBytes(std::string_view text, std::string_view what);

}  // namespace paperway
