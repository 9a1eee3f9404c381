#include "report/report_plan.h"

#include "paperway/automation_error.h"
#include "report/layout.h"
#include "util/code_page.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "Text_Rpt";

ColumnPlan::Type typeOf(const ColumnFormat& format) {
  switch (format.Dtyp) {
    case U'T':
      return ColumnPlan::Type::text;
    case U'D':
      return ColumnPlan::Type::date;
    case U'N':
      return ColumnPlan::Type::number;
    default:
      return ColumnPlan::Type::none;
  }
}

ColumnPlan planColumn(ColumnFormat& format) {
  if (format.Sz < 0) {
    throw AutomationError(AutomationError::kInvalidCall, kSource,
                          "Sz of the column \"" + format.fNM + "\" is a width and cannot be " +
                              std::to_string(format.Sz) + ".");
  }
  ColumnPlan column;
  column.type = typeOf(format);
  column.left = format.Ali == U'L';
  column.total = format.Lt == U'Y';
  column.pageTotal = format.AllPageTot == U'Y';
  column.blankOnDuplicate = format.DupPrintYN == "Y";
  column.width = static_cast<std::size_t>(format.Sz);
  column.spaces = format.Spc;
  column.pattern = FormatPattern(format.Frmt);
  column.format = &format;
  return column;
}

void takeGroup(GroupPlan& group, const std::string& field, char32_t bold) {
  if (!field.empty()) group.field = field;
  if (bold == U'Y') group.bold = true;
}

void appendHeading(std::string& headRow, const ColumnPlan& column) {
  const std::string heading = reportBytes(
      column.format->fHeder, "The heading of the column \"" + column.format->fNM + "\"");
  const std::size_t at = headRow.size();
  headRow.append(column.width + column.spaces, ' ');
  placeCell(headRow.data() + at, column.width, heading, column.left);
}

}  // namespace

ReportPlan planReport(ReportFormatTable& table) {
  ReportPlan plan;
  plan.columns.reserve(columnCount(table));
  for (std::size_t i = 0; i < columnCount(table); ++i) {
    ColumnFormat& format = table[i];
    plan.columns.push_back(planColumn(format));
    appendHeading(plan.headRow, plan.columns.back());
    if (plan.columns.back().pageTotal) plan.pageTotals = true;
    takeGroup(plan.group1, format.GTot1, format.BoldGroup1);
    takeGroup(plan.group2, format.GTot2, format.BoldGroup2);
  }
  for (ColumnPlan& column : plan.columns) {
    column.feedsGroup1 =
        plan.group1.isUsed() && equalIgnoringCase(column.format->GTot1, plan.group1.field);
    column.feedsGroup2 =
        plan.group2.isUsed() && equalIgnoringCase(column.format->GTot2, plan.group2.field);
  }
  return plan;
}

void bindFields(ReportPlan& plan, const ReportFormatTable& table, const Recordset& rows) {
  if (plan.group1.isUsed()) plan.group1.ordinal = rows.fieldOrdinal(plan.group1.field);
  if (plan.group2.isUsed()) plan.group2.ordinal = rows.fieldOrdinal(plan.group2.field);
  for (ColumnPlan& column : plan.columns) {
    if (column.type != ColumnPlan::Type::none) {
      column.ordinal = rows.fieldOrdinal(column.format->fNM);
    }
  }
  const std::string& duplicateField = table.front().DupPrintField;
  plan.hasDuplicates = !plan.columns.empty() && !duplicateField.empty();
  if (plan.hasDuplicates) plan.duplicateOrdinal = rows.fieldOrdinal(duplicateField);
}

std::string reportBytes(std::string_view text, std::string_view what) {
  const std::size_t valid = validUtf8Length(text);
  if (valid != text.size()) {
    throw AutomationError(AutomationError::kTypeMismatch, kSource,
                          std::string(what) + " is not UTF-8 text: see byte " +
                              std::to_string(valid + 1) + " of it.");
  }
  return CodePage::windows1252().encode(text);
}

}  // namespace paperway
