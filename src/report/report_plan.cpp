#include "report/report_plan.h"

#include "paperway/automation_error.h"
#include "util/text.h"

namespace paperway {
namespace {

ColumnPlan::Type typeOf(const ColumnFormat& format, const ReportRules& rules) {
  if (format.Sz == 0 && !rules.zeroWidthTakesPlace) return ColumnPlan::Type::none;
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

bool takesPlace(const ColumnFormat& format, const ReportRules& rules) {
  const bool typeX = format.Dtyp == U'X' || format.Dtyp == U'x';
  return (!typeX || rules.typeXTakesPlace) && (format.Sz != 0 || rules.zeroWidthTakesPlace);
}

void checkColumn(const ColumnFormat& format, const char* caller) {
  if (format.Sz < 0) {
    throw AutomationError(AutomationError::kInvalidCall, caller,
                          "Sz of the column \"" + format.fNM + "\" is a width and cannot be " +
                              std::to_string(format.Sz) + ".");
  }
  requireText(format.fHeder, "The heading of the column \"" + format.fNM + "\"", caller);
}

ColumnPlan planColumn(const ColumnFormat& format, const ReportRules& rules) {
  ColumnPlan column;
  column.type = typeOf(format, rules);
  column.left = format.Ali == U'L';
  column.total = format.Lt == U'Y';
  column.pageTotal = format.AllPageTot == U'Y';
  column.blankOnDuplicate = rules.blanksDuplicates && format.DupPrintYN == "Y";
  column.takesPlace = takesPlace(format, rules);
  column.countsInner = format.Group1Count == 1;
  column.countsOuter = format.Group2Count == 1;
  column.width = static_cast<std::size_t>(format.Sz);
  column.spaces = format.Spc;
  column.pattern = FormatPattern(format.Frmt);
  column.format = &format;
  return column;
}

/// The last column that names a field decides.
void takeGroup(GroupPlan& group, const std::string& field, char32_t bold) {
  if (!field.empty()) group.field = field;
  if (bold == U'Y') group.bold = true;
}

bool feeds(const std::string& field, const GroupPlan& group) {
  return group.isUsed() && equalIgnoringCase(field, group.field);
}

void planGroups(ReportPlan& plan) {
  for (const ColumnPlan& column : plan.columns) {
    takeGroup(plan.inner, column.format->GTot1, column.format->BoldGroup1);
    takeGroup(plan.outer, column.format->GTot2, column.format->BoldGroup2);
  }
  for (ColumnPlan& column : plan.columns) {
    column.feedsInner = feeds(column.format->GTot1, plan.inner);
    column.feedsOuter = feeds(column.format->GTot2, plan.outer);
  }
}

}  // namespace

ReportPlan planReport(const ReportFormatTable* table, const ReportRules& rules,
                      const char* caller) {
  if (table == nullptr) {
    throw AutomationError(AutomationError::kSubscript, caller,
                          "There is no report format table: call Set_Repot_Format first.");
  }
  ReportPlan plan{.caller = caller, .rules = rules};
  for (std::size_t i = 0; i < table->columnCount(); ++i) {
    const ColumnFormat& format = table->records[i];
    checkColumn(format, caller);
    plan.columns.push_back(planColumn(format, rules));
    if (plan.columns.back().pageTotal) plan.pageTotals = true;
  }
  if (rules.hasGroups) planGroups(plan);
  if (rules.blanksDuplicates) plan.duplicateField = table->records.front().DupPrintField;
  return plan;
}

void bindFields(ReportPlan& plan, const Recordset& rows) {
  for (GroupPlan* group : {&plan.inner, &plan.outer}) {
    if (group->isUsed()) group->ordinal = rows.fieldOrdinal(group->field);
  }
  for (ColumnPlan& column : plan.columns) {
    if (column.type == ColumnPlan::Type::none) continue;
    column.ordinal = rows.fieldOrdinal(column.format->fNM);
  }
  if (!plan.duplicateField.empty()) {
    plan.duplicateOrdinal = rows.fieldOrdinal(plan.duplicateField);
  }
}

void raiseNotUtf8(std::string_view text, std::string_view what, const char* caller) {
  throw AutomationError(AutomationError::kTypeMismatch, caller,
                        std::string(what) + " is not UTF-8 text: see byte " +
                            std::to_string(validUtf8Length(text) + 1) + " of it.");
}

void requireText(std::string_view text, std::string_view what, const char* caller) {
  if (validUtf8Length(text) != text.size()) raiseNotUtf8(text, what, caller);
}

}  // namespace paperway
