#include "html/table_export.h"

#include <algorithm>
#include <system_error>

#include "paperway/automation_error.h"
#include "platform/file_error.h"
#include "util/path_text.h"
#include "util/value_text.h"

namespace paperway {

namespace {

constexpr std::size_t kMostColumns = 254;
constexpr double kCharactersOfNumber = 6;

/// The number of a column is the value's own, with no digit lost.
bool isItself(const ValueView& value, double number) {
  constexpr double kExact = 1E15;
  if (value.kind() == ValueView::Kind::integer) return number < kExact && number > -kExact;
  return value.kind() == ValueView::Kind::real;
}

}  // namespace

TableExport::TableExport(const ReportPlan& plan, Recordset& rows, std::vector<ColumnSums>& sums,
                         double pageHeight, ReportProgressCallback progress, OutputFile& file)
    : plan_(plan),
      out_(file),
      run_(plan, rows, sums, {plan.rules.page, pageHeight}, std::move(progress)) {}

void TableExport::dateCell(const ColumnPlan& column, const ValueView& value) {
  const CellLook& look = lookOf(column);
  scratch_.clear();
  if (!value.isNull()) column.pattern.append(scratch_, value);
  if (!isAscii(scratch_)) run_.requireRowText(scratch_, column.format->fNM);
  out_.paddedCell(look.before, scratch_, column.width, look.after);
}

void TableExport::numberCell(const ColumnPlan& column, const ValueView& value, double number) {
  const CellLook& look = lookOf(column);
  scratch_.clear();
  if (isItself(value, number)) {
    column.pattern.append(scratch_, number);
  } else {
    column.pattern.append(scratch_, value);
    run_.requireRowText(scratch_, column.format->fNM);
  }
  out_.cell(look.before, scratch_, look.after);
}

std::string_view TableExport::textOf(const ColumnPlan& column, const ValueView& value) {
  if (value.kind() != ValueView::Kind::text) {
    scratch_.clear();
    appendDefaultText(scratch_, value);
    return scratch_;
  }
  if (!isAscii(value.text())) run_.requireRowText(value.text(), column.format->fNM);
  return value.text();
}

std::string TableExport::total(const ColumnPlan& column, double sum) {
  std::string text;
  column.pattern.appendDecimal(text, sum);
  return text;
}

void TableExport::beginFirstPage(std::string_view head, std::int16_t rowHeight, std::int32_t used) {
  head_ = htmlBytes(head) + "\r\n";
  rowHeight_ = rowHeight;
  headHeight_ = static_cast<std::int16_t>(used + rowHeight);
  out_.bytes(head_);
  run_.page.restart(used + rowHeight);
}

void TableExport::turnPage(const std::string& carried) {
  run_.page.restart(headHeight_);
  if (!carried.empty()) writeRow(carried);
  divide();
  if (!carried.empty()) writeRow(carried);
}

void TableExport::breakPage() {
  run_.countPage();
  divide();
  run_.page.restart(headHeight_);
}

void TableExport::divide() {
  out_.line("</table> ");
  out_.line("<p style = page-break-after:always> </p>");
  out_.bytes(head_);
}

void checkTable(const ReportFormatTable& table, const char* caller) {
  if (table.columnCount() > kMostColumns) {
    throw AutomationError(AutomationError::kOverflow, caller,
                          "The column table has " + std::to_string(table.columnCount()) +
                              " columns; a document takes " + std::to_string(kMostColumns) + ".");
  }
  for (const ColumnFormat& record : table.records) {
    const std::string of = " of the column \"" + record.fNM + "\"";
    requireText(record.FontNm, "FontNm" + of, caller);
    requireText(record.GroupHeader, "GroupHeader" + of, caller);
    requireText(record.G_H_FontNm, "G_H_FontNm" + of, caller);
  }
}

double visibleCount(const ReportFormatTable& table) {
  return static_cast<double>(std::count_if(
      table.records.begin(), table.records.end(),
      [](const ColumnFormat& record) { return record.Dtyp != U'X' && record.Dtyp != U'x'; }));
}

double tableWidth(const ReportPlan& plan, double characterWidth, bool hasNumbers) {
  double width = hasNumbers ? characterWidth * kCharactersOfNumber : 0;
  for (const ColumnPlan& column : plan.columns) width += column.format->Sz * characterWidth;
  return width;
}

void removeExport(Storage& storage, const std::string& document, const Recordset& rows,
                  const char* caller) {
  removeOutput(storage, pathOf(document), caller, {.inputs = rows.sourceFiles()});
}

}  // namespace paperway
