#include "excel/report_table.h"

#include <algorithm>
#include <array>
#include <utility>

#include "excel/column_cuts.h"
#include "excel/column_kind.h"
#include "excel/report_lines.h"
#include "excel/report_parts.h"
#include "excel/shown_date.h"
#include "platform/input_file.h"
#include "platform/output_file.h"
#include "platform/output_lines.h"
#include "printed/plain_line.h"
#include "printed/printed_reader.h"
#include "util/code_page.h"
#include "util/format_pattern.h"
#include "util/text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr std::int64_t kTellEvery = 512;  // rows

std::vector<std::string> headingsOf(const FoundReport& report) {
  std::vector<std::string> headings;
  for (std::size_t i = 1; i <= report.groups; ++i) {
    headings.push_back(report.groups == 1 ? "Group" : "Group " + std::to_string(i));
  }
  for (const ReportColumn& column : report.map.columns) headings.push_back(column.heading);
  return headings;
}

/// A cell's bytes as UTF-8, which stand until the next one.
class Decoded {
 public:
  std::string_view operator()(std::string_view bytes) {
    if (isAscii(bytes)) return bytes;
    return text_ = CodePage::windows1252().decode(bytes);
  }

 private:
  std::string text_;
};

/// Two formats of texts, then two for each column.
SheetPlan planOf(const FoundReport& report) {
  constexpr double kWidestGroup = 24;
  constexpr std::size_t kWide = 80;  // characters; beyond them pages lie on their side
  SheetPlan plan{.formats = {CellFormat{}, CellFormat{.bold = true}}};
  plan.page.titleRows = 1;
  plan.page.landscape = report.map.columns.back().end > kWide;
  plan.columnWidths.assign(report.groups, kWidestGroup);
  for (const ReportColumn& column : report.map.columns) {
    CellFormat format;
    const bool dates = column.kind == ReportColumn::Kind::date;
    (dates ? format.dateFormat : format.numberFormat) = column.pattern;
    plan.formats.push_back(format);
    format.bold = true;
    plan.formats.push_back(format);
    const std::size_t heading = characterCount(column.heading);
    plan.columnWidths.push_back(
        static_cast<double>(std::max(column.end - column.begin, heading) + 1));
  }
  return plan;
}

/// The rows of a workbook of that plan.
class SheetRows {
 public:
  SheetRows(Workbooks& workbooks, const ReportTableArguments& arguments, const SheetPlan& plan)
      : book_(workbooks.create({.file = workbooks.fileNamed(arguments.out),
                                .caller = arguments.caller,
                                .inputs = arguments.inputs},
                               plan)) {}

  void heading(std::string_view text) { book_->textCell(kBold, text); }

  void group(std::string_view text, bool bold) { putText(bold ? kBold : kPlain, text); }

  void cell(std::size_t index, const ReportColumn& column, std::string_view bytes, bool bold) {
    if (column.kind == ReportColumn::Kind::number) {
      if (const auto number = cellNumber(bytes)) {
        return book_->numberCell(formatOf(index, bold), *number);
      }
    }
    if (column.kind == ReportColumn::Kind::date) {
      if (const auto date = shownDate(bytes, column.pattern)) {
        return book_->dateCell(formatOf(index, bold), *date);
      }
    }
    putText(bold ? kBold : kPlain, decoded_(bytes));
  }

  void endRow() { book_->endRow(); }
  void finish() { book_->save(); }

 private:
  static constexpr std::size_t kPlain = 0;
  static constexpr std::size_t kBold = 1;

  static std::size_t formatOf(std::size_t index, bool bold) {
    return 2 + 2 * index + (bold ? 1 : 0);
  }

  void putText(std::size_t format, std::string_view text) {
    if (text.empty()) return book_->emptyCell(format);
    book_->textCell(format, text);
  }

  const std::unique_ptr<Workbook> book_;
  Decoded decoded_;
};

/// The digits of a number as it is shown, without its commas, its sign in front. False for what is
/// not digits, commas, a point and a sign in front.
bool appendDigits(std::string& out, std::string_view shown) {
  const std::size_t before = out.size();
  for (const char c : shown) {
    if ((c >= '0' && c <= '9') || c == '.' || (c == '-' && out.size() == before)) {
      out += c;
    } else if (c != ',') {
      out.resize(before);
      return false;
    }
  }
  return true;
}

class CsvRows {
 public:
  CsvRows(Storage& storage, const ReportTableArguments& arguments)
      : file_(storage, arguments.out, arguments.caller, {.inputs = arguments.inputs}),
        out_(file_) {}

  void heading(std::string_view text) { put(text); }
  void group(std::string_view text, bool) { put(text); }

  void cell(std::size_t, const ReportColumn& column, std::string_view bytes, bool) {
    if (column.kind == ReportColumn::Kind::number && putNumber(bytes)) return;
    if (column.kind == ReportColumn::Kind::date) {
      if (const auto date = shownDate(bytes, column.pattern)) return putDate(*date);
    }
    put(decoded_(bytes));
  }

  void endRow() {
    out_.line(line_);
    line_.clear();
    begun_ = false;
  }

  void finish() {
    out_.flush();
    file_.commit();
  }

 private:
  void beginCell() {
    if (std::exchange(begun_, true)) line_ += ',';
  }

  void put(std::string_view text) {
    beginCell();
    appendCsvCell(line_, text);
  }

  bool putNumber(std::string_view shown) {
    const auto number = cellNumber(shown);
    if (!number) return false;
    beginCell();
    if (!appendDigits(line_, shown)) appendDecimalText(line_, *number);
    return true;
  }

  void putDate(const Date& date) {
    beginCell();
    (date.hasTime() ? dayAndTime_ : day_).append(line_, ValueView(date));
  }

  const FormatPattern day_{"yyyy-mm-dd"};
  const FormatPattern dayAndTime_{"yyyy-mm-dd hh:nn:ss"};
  OutputFile file_;
  OutputLines out_;
  std::string line_;
  bool begun_ = false;
  Decoded decoded_;
};

/// Tells the rows of a table of what a report has.
template <class Rows>
class TableWriter : public ReportPartsSink {
 public:
  TableWriter(Rows& rows, const FoundReport& report, const ReportTableArguments& arguments)
      : rows_(rows), report_(report), arguments_(arguments), skipsRow_(report.firstRowIsHeading) {
    const auto headings = headingsOf(report);
    const auto isEmpty = [](const std::string& heading) { return heading.empty(); };
    if (std::all_of(headings.begin(), headings.end(), isEmpty)) return;
    for (const std::string& heading : headings) rows_.heading(heading);
    rows_.endRow();
  }

  void heading(std::string_view) override {}
  void footRule(std::string_view) override {}

  void group(std::string_view text) override {
    if (pending_ == waiting_.size()) {
      std::swap(waiting_[0], waiting_[1]);  // a title among the rows; the last two count
      --pending_;
    }
    waiting_[pending_++] = CodePage::windows1252().decode(text);
  }

  void row(std::string_view line) override {
    if (std::exchange(skipsRow_, false)) return;
    takeGroups();
    putRow(line, report_.groups, false);
    ++result.rows;
    if (result.rows % kTellEvery == 0) tell();
  }

  void total(std::string_view line, Total kind) override {
    if (!arguments_.totals) return;
    const std::size_t known = kind == Total::grand ? 0 : kind == Total::outer ? 1 : report_.groups;
    putRow(line, known, true);
  }

  void tell() {
    if (arguments_.onProgress) arguments_.onProgress({.rows = result.rows});
  }

  ReportTableResult result;

 private:
  /// Of two headers the first is the outer group's; one alone is that of the inner.
  void takeGroups() {
    if (pending_ == 0) return;
    if (pending_ == 2) {
      groups_ = std::move(waiting_);
    } else {
      groups_[report_.groups == 2 ? 1 : 0] = std::move(waiting_[0]);
    }
    waiting_ = {};
    pending_ = 0;
  }

  void putRow(std::string_view line, std::size_t groups, bool bold) {
    for (std::size_t i = 0; i < report_.groups; ++i) {
      rows_.group(i < groups ? std::string_view(groups_[i]) : std::string_view(), bold);
    }
    if (!cutCells(line, report_.map, cells_) && result.crossed++ == 0) {
      result.firstCrossed = result.rows + 1;
    }
    const bool plain = isPlain(line);
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      const ReportColumn& column = report_.map.columns[i];
      if (plain) {
        rows_.cell(i, column, cells_[i], bold);
      } else {
        const std::string cell = plainLine(cells_[i]);
        rows_.cell(i, column, trimBlanks(cell), bold);
      }
    }
    rows_.endRow();
  }

  Rows& rows_;
  const FoundReport& report_;
  const ReportTableArguments& arguments_;
  bool skipsRow_;
  std::array<std::string, 2> groups_;
  std::array<std::string, 2> waiting_;
  std::size_t pending_ = 0;
  std::vector<std::string_view> cells_;
};

template <class Rows>
ReportTableResult writeTable(Rows& rows, const ReportTableArguments& arguments,
                             const FoundReport& report, Storage& storage) {
  TableWriter<Rows> table(rows, report, arguments);
  ReportParts parts(report.form, table);
  ReportLines lines;
  const auto line = [&](std::string_view raw) { parts.line(raw); };
  readBlocks(storage, arguments.report, arguments.caller, [&](std::string_view block) {
    lines.block(block, line);
    parts.settle();
    table.tell();
  });
  lines.end(line);
  parts.end();
  table.tell();
  rows.finish();
  table.result.otherHeads = static_cast<std::int64_t>(parts.otherHeads());
  return table.result;
}

template <class Rows>
ReportTableResult writeCuts(Rows& rows, const ReportTableArguments& arguments,
                            std::span<const std::int16_t> marks, Storage& storage) {
  const ColumnCuts cuts(marks);
  const ReportColumn text;
  ReportTableResult result;
  readLines(storage, arguments.report, arguments.caller, [&](std::string_view line) {
    for (std::size_t i = 0; i < cuts.cells(); ++i) {
      rows.cell(i, text, cuts.cell(line, i).value_or(""), false);
    }
    rows.endRow();
    if (++result.rows % kTellEvery == 0 && arguments.onProgress) {
      arguments.onProgress({.rows = result.rows});
    }
    return true;
  });
  rows.finish();
  return result;
}

}  // namespace

ReportTableResult writeReportSheet(const ReportTableArguments& arguments, const FoundReport& report,
                                   Workbooks& workbooks, Storage& storage) {
  SheetRows rows(workbooks, arguments, planOf(report));
  return writeTable(rows, arguments, report, storage);
}

ReportTableResult writeReportCsv(const ReportTableArguments& arguments, const FoundReport& report,
                                 Storage& storage) {
  CsvRows rows(storage, arguments);
  return writeTable(rows, arguments, report, storage);
}

ReportTableResult writeCutSheet(const ReportTableArguments& arguments,
                                std::span<const std::int16_t> marks, Workbooks& workbooks,
                                Storage& storage) {
  SheetRows rows(workbooks, arguments, SheetPlan());
  return writeCuts(rows, arguments, marks, storage);
}

ReportTableResult writeCutCsv(const ReportTableArguments& arguments,
                              std::span<const std::int16_t> marks, Storage& storage) {
  CsvRows rows(storage, arguments);
  return writeCuts(rows, arguments, marks, storage);
}

}  // namespace paperway
