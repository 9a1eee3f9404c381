#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/recordset.h"

namespace paperway {

/// One column of a report. A field of one letter takes the first character of its value; an empty
/// value becomes a blank. Texts are UTF-8.
struct ColumnFormat {
  std::string fNM;             // field of the data recordset
  std::string fHeder;          // heading
  std::int16_t Sz = 0;         // width in characters
  char32_t Dtyp = U' ';        // 'T' text, 'D' date, 'N' number
  char32_t Ali = U' ';         // 'L' left; any other right
  char32_t Lt = U' ';          // 'Y': has a grand total
  char32_t AllPageTot = U' ';  // 'Y': the running total shows at each page's end and top
  std::string GTot1;           // first-level group field, on the columns that total in it
  std::string GTot2;           // second-level group field
  std::string Frmt;            // format pattern of numbers and dates
  std::uint8_t Spc = 0;        // blanks behind the column
  char32_t BoldGroup1 = U' ';  // 'Y' on any column: first-level group headers are bold
  char32_t BoldGroup2 = U' ';
  std::string FontNm;            // font of the exports
  std::string DupPrintYN;        // "Y": blank on a duplicate row
  std::string DupPrintField;     // the field that tells duplicates; of the first column alone
  std::uint8_t Group1Count = 0;  // 1: counts rows instead of adding values
  std::uint8_t Group2Count = 0;

  // Of the export with a style sheet alone.
  double FontSize = 0;      // points; 0: the page's own size
  std::string CellClass;    // "<Q>" for a font size of 0; the export puts its class attribute here
  std::string GroupHeader;  // caption above columns; neighbours with the same one share it. A "<"
                            // or ">" in front puts it to the left or right
  std::string G_H_FontNm;   // font of the caption, as an HTML font tag
  double G_H_FontSize = 0;  // points
  std::string GroupClass;   // the caption's class attribute, from the export
};

/// The fields of a format recordset whose values may be null, though the recordset has to have
/// them.
inline constexpr std::array<std::string_view, 7> kNullableFields{
    "AllPageTot", "GTot1", "GTot2", "Frmt", "BoldGroup1", "BoldGroup2", "FontNm"};

/// Running totals of a column.
struct ColumnSums {
  double grand = 0;
  double inner = 0;  // of the first-level group in hand
  double outer = 0;  // of the second-level group in hand
};

/// The columns of a report, and the totals that one run leaves to the next.
struct ReportFormatTable {
  explicit ReportFormatTable(std::size_t columns) : records(columns + 1), sums(columns) {}

  std::size_t columnCount() const { return sums.size(); }

  std::vector<ColumnFormat> records;  // in order, and an empty one behind them
  std::vector<ColumnSums> sums;
  std::vector<std::filesystem::path> sourceFiles;  // that the table comes from
};

/// The files that a report of these rows under this table is made of, and must not take the place
/// of.
std::vector<std::filesystem::path> sourceFiles(const Recordset& rows,
                                               const ReportFormatTable& table);

/// Puts a new table in the place of `table` and fills it from the rows of a format recordset, which
/// it leaves at its end. On a failure (an AutomationError that names field and row) the new table
/// stays as far as it was filled; the old one when the rows cannot be counted.
void readReportFormat(Recordset& rst, std::shared_ptr<ReportFormatTable>& table);

}  // namespace paperway
