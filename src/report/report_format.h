#pragma once

#include <cstdint>
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
  double GrandSum = 0;
  std::string GTot1;           // first-level group field, on the columns that total in it
  std::string GTot2;           // second-level group field
  std::string Frmt;            // format pattern of numbers and dates
  std::uint8_t Spc = 0;        // blanks behind the column
  char32_t BoldGroup1 = U' ';  // 'Y' on any column: first-level group headers are bold
  char32_t BoldGroup2 = U' ';
  double Group1Sum = 0;
  double Group2Sum = 0;
  std::string FontNm;            // HTML font tag
  std::string DupPrintYN;        // "Y": blank on a duplicate row
  std::string DupPrintField;     // the field that tells duplicates; of the first column alone
  std::uint8_t Group1Count = 0;  // 1: counts rows instead of adding values
  std::uint8_t Group2Count = 0;

  // Of the HTML export with styles alone.
  double FontSize = 0;      // points; 0: the page's own size
  std::string CellClass;    // "<Q>" for a font size of 0; the export puts its class attribute here
  std::string GroupHeader;  // caption above columns; neighbours with the same one share it. A "<"
                            // or ">" in front puts it to the left or right
  std::string G_H_FontNm;   // HTML font tag of the caption
  double G_H_FontSize = 0;  // points
  std::string GroupClass;   // the caption's class attribute, from the export
};

/// The columns of a report in order, and one empty record behind them. Empty: never filled.
using ReportFormatTable = std::vector<ColumnFormat>;

inline std::size_t columnCount(const ReportFormatTable& table) {
  return table.empty() ? 0 : table.size() - 1;
}

/// Fills the table from the rows of a format recordset, which it leaves at its end. On a failure
/// (an AutomationError that names field and row) the table stays as far as it was filled.
void readReportFormat(Recordset& rst, ReportFormatTable& table);

}  // namespace paperway
