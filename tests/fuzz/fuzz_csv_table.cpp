#include <optional>

#include "fuzz/fuzz.h"
#include "paperway/automation_error.h"
#include "paperway/memory.h"
#include "report/report_format.h"

using namespace paperway;

std::vector<std::string> fuzz::seeds() {
  return {
      "fNM,fHeder,Sz,Dtyp,Ali,Lt,AllPageTot,GTot1,GTot2,Frmt,Spc,BoldGroup1,BoldGroup2,FontNm\n"
      "qty,Quantity,10,N,R,Y,N,Count+customer,,\"#,##0\",1,,Y,\n"
      "item,\"It\"\"em\",32767,T,L,N,,,,,255,Y,,Arial\r\n",
      "\xEF\xBB\xBF"
      "a,b\r\n\"x\ny\",\"\"\n\n,\n",
      "name\n\"\"\n\xE2\x82\xB9",
      ""};
}

namespace {

std::optional<MemoryTable> parsed(std::string_view text) {
  try {
    return parseCsv(text, "f.csv");
  } catch (const AutomationError& error) {
    fuzz::require(std::string_view(error.description()).starts_with("\"f.csv\", line "),
                  "an error names file and line");
    return std::nullopt;
  }
}

void append(std::string& csv, ValueView cell, bool first) {
  if (!first) csv += ',';
  if (cell.isNull()) return;
  csv += '"';
  for (const char c : cell.text()) csv += c == '"' ? "\"\"" : std::string(1, c);
  csv += '"';
}

std::string csvOf(MemoryTable& table) {
  std::string csv;
  for (std::size_t i = 0; i < table.fieldCount(); ++i) append(csv, table.fieldName(i), i == 0);
  for (table.MoveFirst(); !table.Eof(); table.MoveNext()) {
    csv += '\n';
    for (std::size_t i = 0; i < table.fieldCount(); ++i) append(csv, table.value(i), i == 0);
  }
  return csv;
}

}  // namespace

void fuzz::check(std::string_view input) {
  auto table = parsed(input);
  if (!table) return;
  const std::string csv = csvOf(*table);
  auto again = parsed(csv);
  fuzz::require(again && csvOf(*again) == csv, "a table written out reads as the same table");
  std::shared_ptr<ReportFormatTable> columns;
  try {
    readReportFormat(*table, columns);
  } catch (const AutomationError&) {
    return;
  }
  fuzz::require(columns->columnCount() == static_cast<std::size_t>(table->RecordCount()),
                "each row is a column");
}
