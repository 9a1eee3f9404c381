#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "html/html_lines.h"
#include "platform/output_file.h"
#include "report/report_run.h"

namespace paperway {

/// What stands around the values of a column; bytes, a whole line each.
struct CellLook {
  std::string before;
  std::string after;
  std::string blank;  // on a duplicate row
};

/// What the documents that show the rows of a report as tables have in common: their cells, their
/// rows of totals, and how one page follows another. The document goes to the disk piece by piece.
class TableExport {
 public:
  // Sink of the run

  void blankCell(const ColumnPlan& column) { out_.bytes(lookOf(column).blank); }
  void noCell(const ColumnPlan&) {}
  void dateCell(const ColumnPlan& column, const ValueView& value);
  void numberCell(const ColumnPlan& column, const ValueView& value, double number);

 protected:
  TableExport(const ReportPlan& plan, Recordset& rows, std::vector<ColumnSums>& sums,
              double pageHeight, ReportProgressCallback progress, OutputFile& file);

  const CellLook& lookOf(const ColumnPlan& column) const {
    return looks_[static_cast<std::size_t>(&column - plan_.columns.data())];
  }
  /// The text of a value; it stands until the next one is asked for.
  std::string_view textOf(const ColumnPlan& column, const ValueView& value);

  // Rows

  /// "<tr>", the cell of the running number (which may be empty), then what `cell` makes of each
  /// column that takes a place, by its index.
  template <class Cell>
  std::string row(std::string_view serial, std::string_view end, const Cell& cell) const {
    std::string text = "<tr>\r\n";
    text += serial;
    for (std::size_t i = 0; i < plan_.columns.size(); ++i) {
      if (plan_.columns[i].takesPlace) text += cell(i);
    }
    return text.append(end);
  }

  static std::string total(const ColumnPlan& column, double sum);

  void writeRow(std::string_view text) {
    out_.line(text);
    run_.page.add(rowHeight_);
  }
  void writeHeading(std::string_view cell) {
    out_.line("<tr>");
    writeHeadingCell(cell);
  }
  /// Behind "<tr>".
  void writeHeadingCell(std::string_view cell) {
    out_.line(cell);
    writeRow("</tr>");
  }

  /// The text of a group's heading, checked like those of the cells.
  const std::string& headingText(const GroupPlan& group, const std::string& text) const {
    run_.requireRowText(text, group.field);
    return text;
  }

  // Pages

  /// `used` are the twips that the head takes without its line of headings.
  void beginFirstPage(std::string_view head, std::int16_t rowHeight, std::int32_t used);

  /// The end of this page and the head of the next, with the carried totals on both, if any.
  void turnPage(const std::string& carried);
  /// The same where a page is not full.
  void breakPage();

  const ReportPlan& plan_;
  HtmlLines out_;
  ReportRun run_;
  std::vector<CellLook> looks_;  // of each column
  std::int16_t rowHeight_ = 0;   // twips
  std::int16_t headHeight_ = 0;

 private:
  void divide();

  std::string head_;
  std::string scratch_;
};

/// Raises the kOverflow of a table with more columns than a document takes, and the kTypeMismatch
/// of a font or caption that is not UTF-8.
void checkTable(const ReportFormatTable& table, const char* caller);

/// The text of the last record that `matches`; `otherwise` for none.
template <class Matches, class Text>
std::string lastMatch(const ReportFormatTable& table, std::string otherwise, const Matches& matches,
                      const Text& text) {
  for (const ColumnFormat& record : table.records) {
    if (matches(record)) otherwise = text(record);
  }
  return otherwise;
}

/// Columns that are shown, and one: what a heading of a group spans.
double visibleCount(const ReportFormatTable& table);

/// Of all columns, and of the running numbers, if any.
double tableWidth(const ReportPlan& plan, double characterWidth, bool hasNumbers);

/// Where no table was ever set, an export leaves no document: the earlier one goes.
void removeExport(Storage& storage, const std::string& document, const Recordset& rows,
                  const char* caller);

}  // namespace paperway
