#include <algorithm>

#include "fuzz/choices.h"
#include "fuzz/fuzz.h"
#include "paperway/storage.h"
#include "support/column_table.h"
#include "support/files.h"
#include "support/test_folder.h"
#include "textreport/text_rpt.h"

using namespace paperway;

std::vector<std::string> fuzz::seeds() {
  std::vector<std::string> seeds(12);
  for (std::size_t i = 0; i < seeds.size(); ++i) {
    for (std::size_t byte = 0; byte < 400; ++byte) {
      seeds[i] += static_cast<char>((byte * 167 + i * 71) ^ (byte * byte >> 3));
    }
  }
  return seeds;
}

namespace {

using fuzz::Choices;

constexpr std::size_t kFields = 4;

std::vector<std::string> anyColumn(Choices& choices) {
  const auto yes = [&] { return choices.oneOf<std::string>({"", "Y", "N"}); };
  const auto totals = [&] { return choices.oneOf<std::string>({"Y", "N"}); };
  const auto group = [&] {
    return choices.oneOf<std::string>({"", "", "f0", "f1", "Count+f0", "Count+f1"});
  };
  return {
      "f" + std::to_string(choices.below(kFields)),
      choices.oneOf<std::string>({"Head", " ", "A long heading", "Cr\xC3\xA8me"}),
      choices.oneOf<std::string>({"5", "12", "60", "1", "0", "255", "3"}),
      choices.oneOf<std::string>({"T", "N", "D", "X"}),
      choices.oneOf<std::string>({"L", "R"}),
      choices.oneOf<std::string>({"0", "1", "3"}),
      totals(),
      yes(),
      group(),
      group(),
      choices.oneOf<std::string>({"", "0", "#,##0.00", "dd/mm/yyyy", ">", "0.0E+0", "[", "%;-"}),
      yes(),
      yes(),
      yes(),
      choices.oneOf<std::string>({"", "f0", "f1"})};
}

/// The last column counts, wide enough for all that a run can add up.
MemoryTable anyColumns(Choices& choices) {
  Columns columns;
  for (unsigned i = choices.below(5); i > 0; --i) columns.push_back(anyColumn(choices));
  columns.push_back({"count", "Count", "20", "N", "R", "0", "Y", "N", "", "", "0"});
  if (columns.size() > 1 && columns[0][14].empty()) columns.back().resize(11);
  return columnTable(columns);
}

std::int64_t addRows(Choices& choices, MemoryTable& rows) {
  std::int64_t sum = 0;
  while (!choices.done()) {
    std::vector<Value> row;
    for (std::size_t i = 0; i < kFields; ++i) row.push_back(choices.value());
    const std::int64_t count = choices.below(256) * std::int64_t{1000003};
    sum += count;
    row.emplace_back(count);
    rows.addRow(row);
  }
  return sum;
}

struct Written {
  std::string bytes;
  ReportProgress progress;
};

Written written(MemoryTable& columns, TextRptArguments arguments) {
  static desktop::Storage storage;
  Written result;
  std::shared_ptr<ReportFormatTable> table;
  readReportFormat(columns, table);
  arguments.onProgress = [&](const ReportProgress& progress) { result.progress = progress; };
  writeTextReport(arguments, table, DOSEFONTcHR(), storage);
  result.bytes = readFile(arguments.TextFileName);
  return result;
}

/// The third line from the end: behind it stand a rule and the line of the form feed.
std::string_view grandTotal(std::string_view bytes) {
  std::size_t end = bytes.size() - 2;
  for (int line = 0; line < 2; ++line) end = bytes.rfind("\r\n", end - 1);
  const std::size_t begin = bytes.rfind("\r\n", end - 1) + 2;
  return bytes.substr(begin, end - begin);
}

/// Each page's number stands once, in order; the heads have room for it.
void checkPageNumbers(std::string_view bytes, std::int64_t pages) {
  std::size_t at = 0;
  for (std::int64_t page = 1; page <= std::min<std::int64_t>(pages, 9999); ++page) {
    std::string number = std::to_string(page);
    number.insert(0, 4 - number.size(), '0');
    at = bytes.find("Page No # " + number, at);
    fuzz::require(at != std::string_view::npos, "each page has its number");
  }
}

void checkReport(const Written& report, const MemoryTable& rows, std::int64_t sum) {
  fuzz::require(report.progress.rows == rows.RecordCount(), "each row is read once");
  fuzz::require(report.bytes.ends_with("\f\r\n"), "a report ends with a form feed");
  fuzz::require(grandTotal(report.bytes).ends_with(" " + std::to_string(sum)),
                "the grand total is the sum of the rows");
  if (report.progress.controlRows > 0) return;
  fuzz::require(std::count(report.bytes.begin(), report.bytes.end(), '\f') == report.progress.pages,
                "each page ends with a form feed");
  checkPageNumbers(report.bytes, report.progress.pages);
}

}  // namespace

void fuzz::check(std::string_view input) {
  static const TestFolder folder;
  Choices choices(input);
  MemoryTable rows({"f0", "f1", "f2", "f3", "count"});
  TextRptArguments arguments{
      .Rs = rows,
      .TextFileName = (folder.path / "report.txt").string(),
      .Tital1 = choices.oneOf<std::string>({"", "Title"}),
      .Tital5 = choices.oneOf<std::string>({"", "Left"}),
      .MPLine = static_cast<std::uint8_t>(choices.below(choices.below(2) == 0 ? 24 : 256)),
      .Srno = static_cast<std::int32_t>(choices.below(3)),
      .C_80_96_136 = choices.oneOf<std::uint8_t>({0, 80, 96, 136})};
  MemoryTable columns = anyColumns(choices);
  const std::int64_t sum = addRows(choices, rows);
  try {
    const Written report = written(columns, arguments);
    checkReport(report, rows, sum);
    fuzz::require(written(columns, arguments).bytes == report.bytes, "a second run is the same");
  } catch (const AutomationError& error) {
    fuzz::require(!std::string_view(error.description()).empty(), "an error says what it is");
  }
}
