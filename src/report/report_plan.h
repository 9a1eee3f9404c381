#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/recordset.h"
#include "report/report_format.h"
#include "report/report_rules.h"
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
  bool takesPlace = true;   // in lines of totals
  bool feedsInner = false;  // names the group that the report uses
  bool feedsOuter = false;
  bool countsInner = false;  // feeds it 1 a row, not its numbers
  bool countsOuter = false;
  std::size_t ordinal = 0;  // of the field; unused when the type is none
  std::size_t width = 0;
  std::size_t spaces = 0;
  FormatPattern pattern;
  const ColumnFormat* format = nullptr;
};

/// One group level: the field whose change begins a group, and the look of its header.
struct GroupPlan {
  std::string field;  // empty: the report has no such level
  std::size_t ordinal = 0;
  bool bold = false;

  bool isUsed() const { return !field.empty(); }
};

/// A report laid out before its first row. The column table lives as long.
struct ReportPlan {
  const char* caller;  // whom errors name
  ReportRules rules;
  std::vector<ColumnPlan> columns{};
  GroupPlan inner{};             // first level
  GroupPlan outer{};             // second level
  bool pageTotals = false;       // a column carries its total from page to page
  std::string duplicateField{};  // empty: no row is a duplicate
  std::size_t duplicateOrdinal = 0;
};

/// Reads columns and group levels off the table, which may be missing. No field is looked for yet.
ReportPlan planReport(const ReportFormatTable* table, const ReportRules& rules, const char* caller);

/// Binds columns, groups and duplicate field to the fields of the data; a missing one raises
/// kItemNotFound.
void bindFields(ReportPlan& plan, const Recordset& rows);

/// Raises the kTypeMismatch of a text that is not UTF-8, which begins with `what` ("Tital1").
[[noreturn]] void raiseNotUtf8(std::string_view text, std::string_view what, const char* caller);

/// The same, unless the text is UTF-8.
void requireText(std::string_view text, std::string_view what, const char* caller);

}  // namespace paperway
