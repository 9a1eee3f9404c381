#include "excel/sheet_layout.h"

#include <algorithm>

#include "paperway/automation_error.h"

namespace paperway {
namespace {

constexpr std::size_t kMostColumns = 255;
constexpr double kWidthOfCharacter = 1.2;

/// The place of a format in the plan, which gets it when it lacks it.
std::size_t formatIn(SheetPlan& plan, const CellFormat& format) {
  const auto found = std::find(plan.formats.begin(), plan.formats.end(), format);
  const auto place = static_cast<std::size_t>(found - plan.formats.begin());
  if (found == plan.formats.end()) plan.formats.push_back(format);
  return place;
}

CellFormat formatOf(const ColumnPlan& column, bool bold) {
  CellFormat format{.bold = bold, .grid = true};
  if (isLeftPlain(column)) return format;
  format.font = column.format->FontNm;
  if (column.type == ColumnPlan::Type::number) format.numberFormat = column.format->Frmt;
  return format;
}

void requireRoom(std::size_t columns, bool numbered, const char* caller) {
  const std::size_t most = numbered ? kMostColumns - 1 : kMostColumns;
  if (columns <= most) return;
  throw AutomationError(AutomationError::kOverflow, caller,
                        "The column table has " + std::to_string(columns) +
                            " columns; a sheet takes " + std::to_string(most) +
                            (numbered ? " beside its running numbers." : "."));
}

void addTitle(SheetLayout& layout, const std::string& text, const std::string& font,
              const char* caller) {
  if (text.empty()) return;
  const std::string number = std::to_string(layout.titles.size() + 1);
  requireText(text, "Title line " + number, caller);
  requireText(font, "The font of title line " + number, caller);
  layout.titles.push_back({text, formatIn(layout.plan, {.font = font})});
}

SheetPage pageOf(const ExcelExportArguments& arguments, std::size_t titles) {
  return {.landscape = arguments.PageOriantationPL == "L",
          .topMargin = arguments.PageTopMargin,
          .bottomMargin = arguments.PageBottomMargin,
          .rightMargin = arguments.PageRightMargin,
          .leftMargin = arguments.PageLeftMargin,
          .footerMargin = arguments.PageFooterMargin,
          .leftFooter = arguments.LeftFooter,
          .centerFooter = "Page &P of &N",
          .rightFooter = arguments.RightFooter,
          .titleRows = static_cast<int>(titles) + 1};
}

void addColumn(SheetLayout& layout, const ColumnPlan& column, const char* caller) {
  requireText(column.format->FontNm, "FontNm of the column \"" + column.format->fNM + "\"", caller);
  layout.plan.columnWidths.emplace_back(static_cast<double>(column.width) * kWidthOfCharacter);
  layout.headings.push_back(formatIn(layout.plan, formatOf(column, true)));
  layout.cells.push_back(formatIn(layout.plan, formatOf(column, false)));
}

}  // namespace

bool isLeftPlain(const ColumnPlan& column) {
  return column.format->DupPrintYN == "Y" && column.format->fNM == column.format->DupPrintField;
}

SheetLayout layOutSheet(const ExcelExportArguments& arguments, const ReportPlan& report) {
  SheetLayout layout;
  layout.numbered = arguments.Srno > 0;
  requireRoom(report.columns.size(), layout.numbered, report.caller);
  addTitle(layout, arguments.Tital1, arguments.TFontNM1, report.caller);
  addTitle(layout, arguments.Tital2, arguments.TFontNM2, report.caller);
  addTitle(layout, arguments.Tital3, arguments.TFontNM3, report.caller);
  addTitle(layout, arguments.Tital4, arguments.TFontNM4, report.caller);
  addTitle(layout, arguments.Tital5, arguments.TFontNM5, report.caller);
  requireText(arguments.LeftFooter, "LeftFooter", report.caller);
  requireText(arguments.RightFooter, "RightFooter", report.caller);
  layout.heading = formatIn(layout.plan, {.bold = true});
  layout.numberHeading = formatIn(layout.plan, {.bold = true, .grid = true});
  layout.number = formatIn(layout.plan, {.grid = true});
  if (layout.numbered) layout.plan.columnWidths.emplace_back();
  for (const ColumnPlan& column : report.columns) addColumn(layout, column, report.caller);
  layout.plan.page = pageOf(arguments, layout.titles.size());
  return layout;
}

}  // namespace paperway
