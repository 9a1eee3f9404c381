#include <algorithm>

#include "excel/column_finder.h"
#include "excel/report_table.h"
#include "fuzz/fuzz.h"
#include "paperway/automation_error.h"
#include "paperway/headless.h"
#include "support/files.h"
#include "support/test_folder.h"

using namespace paperway;

std::vector<std::string> fuzz::seeds() {
  const std::string first = "                 \x0F\r\n\033ESales\033F\r\n";
  const std::string head =
      "\033E\033F   Page No # 0001\r\n---------------------\r\n"
      "\033E   # Name      Amount\033F\r\n---------------------\r\n";
  const std::string rows =
      "\033ENorth\033F\r\n   1 Anna      1,200.50\r\n   2 05/03/26      -7.00\r\n"
      "     ----------------\r\n               1,193.50\r\n     ----------------\r\n"
      "               1,193.50\r\n     ================\r\n";
  const std::string total = "---------------------\r\n 1,193.50\r\n---------------------\r\n";
  return {
      first + head + rows + total + "\x12\f\x0F\r\n" + head + " 1,193.50\r\n" + rows + total +
          "\x12\f\r\n",
      "Item    Qty\n-----------\nPens     12%\nInk       3\n===========\nSum      15\n\f\n\tx\by\n",
      "List 1\nA   B\nx   1\n\fList 2\nA   B\ny   2\n",
      "Name  Age\nAnna   31\n",
      "",
      "\f\f\r\n \r \n--\n---"};
}

/// Both tables have as many rows as are told of, and no more is read into a report than it holds.
void fuzz::check(std::string_view input) {
  static const TestFolder folder;
  static headless::Headless machine(folder.path);
  const auto report = folder.path / "report.txt";
  const auto csv = folder.path / "out.csv";
  replaceFile(report, input);
  machine.workbooks.books.clear();
  const Platform platform = machine.platform();
  try {
    const FoundReport found = findColumns(platform.storage, report, "fuzz");
    const bool headed =
        found.groups > 0 || std::any_of(found.map.columns.begin(),
                                        found.map.columns.end(),
                                        [](const auto& column) { return !column.heading.empty(); });
    const auto file = folder.path / "columns.map";
    saveColumnMap(platform.storage, file, found.map, "fuzz", {});
    require(loadColumnMap(platform.storage, file, "fuzz").marks() == found.map.marks(),
            "a map comes back");
    require(!drawColumns(found, found.map).empty(), "columns are drawn");
    const ReportTableArguments arguments{
        .report = report, .out = csv, .totals = input.size() % 2 == 1, .caller = "fuzz"};
    const auto told = writeReportCsv(arguments, found, platform.storage);
    require(static_cast<std::size_t>(told.rows) <= input.size() + 1, "no row out of nothing");
    writeReportSheet(arguments, found, machine.workbooks, platform.storage);
    const auto& rows = machine.workbooks.books.back().rows;
    const std::size_t others = rows.size() - static_cast<std::size_t>(told.rows);
    require(arguments.totals || others == (headed ? 1 : 0), "each row is written");
  } catch (const AutomationError& error) {
    require(std::string_view(error.description()).find("report.txt") != std::string_view::npos,
            "an error names the report");
  }
}
