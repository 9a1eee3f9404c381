#include "excel/excel_export.h"

#include "controls/c_open_save_dialog.h"
#include "excel/sheet_layout.h"
#include "excel/shown_number.h"
#include "excel/spooled_workbook.h"
#include "paperway/automation_error.h"
#include "paperway/platform/dialogs.h"
#include "paperway/platform/workbook.h"
#include "platform/workbooks.h"
#include "report/report_run.h"
#include "util/path_text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "Excel_Export";
constexpr const char* kUsualFont = "Arial Narrow";
constexpr std::int32_t kLongestPath = 4096;
constexpr std::size_t kBoldColumns = 256;  // to "IV"

/// The sheet, from its first row to its last. What stands between is written as the run of the
/// report tells of it.
class ExcelExport {
 public:
  ExcelExport(const ReportPlan& plan, const SheetLayout& layout, ExcelExportArguments& arguments,
              Workbook& book)
      : plan_(plan),
        layout_(layout),
        book_(book),
        sums_(plan.columns.size()),
        run_(plan, arguments.Rs, unused_, {plan.rules.page, 0}, arguments.onProgress),
        serial_(arguments.Srno) {
    for (const ColumnPlan& column : plan.columns) readers_.emplace_back(column.format->Frmt);
  }

  void write() {
    writeTitles();
    writeHeadings();
    run_.walk(*this);
    writeTotals();
    run_.finish();
  }

  // Sink of the run

  void beginRow(bool) {
    if (!layout_.numbered) return;
    book_.numberCell(layout_.number, serial_);
    serial_ = static_cast<std::int32_t>(static_cast<std::uint32_t>(serial_) + 1U);
  }

  void blankCell(const ColumnPlan& column) { noCell(column); }
  void noCell(const ColumnPlan& column) { book_.emptyCell(formatOf(column)); }

  void textCell(const ColumnPlan& column, const ValueView& value) {
    switch (value.kind()) {
      case ValueView::Kind::null:
        return noCell(column);
      case ValueView::Kind::text:
        return writeText(column, value.text());
      case ValueView::Kind::date:
        return book_.dateCell(formatOf(column), value.date());
      case ValueView::Kind::integer:
        return book_.numberCell(formatOf(column), static_cast<double>(value.integer()));
      case ValueView::Kind::real:
        return book_.numberCell(formatOf(column), value.real());
    }
  }

  void dateCell(const ColumnPlan& column, const ValueView& value) {
    if (value.isNull()) return noCell(column);
    text_.clear();
    datePattern_.append(text_, value);
    writeText(column, text_);
  }

  void numberCell(const ColumnPlan& column, const ValueView& value, double number) {
    const double shown = column.format->Frmt.empty() ? number : shownOf(column, value, number);
    sums_[indexOf(column)] += shown;
    book_.numberCell(formatOf(column), shown);
  }

  void endRow() {
    book_.endRow();
    ++rows_;
  }

  // The sheet has neither groups nor pages
  void endInnerGroup(GroupEnd) {}
  void endOuterGroup(GroupEnd) {}
  void beginOuterGroup(const std::string&) {}
  void beginInnerGroup(const std::string&, GroupBegin) {}

  std::int32_t nextSerial() const { return serial_; }

 private:
  std::size_t indexOf(const ColumnPlan& column) const {
    return static_cast<std::size_t>(&column - plan_.columns.data());
  }
  std::size_t formatOf(const ColumnPlan& column) const { return layout_.cells[indexOf(column)]; }

  void writeTitles() {
    for (const SheetLayout::Title& title : layout_.titles) {
      book_.textCell(title.format, title.text);
      book_.endRow();
    }
  }

  void writeHeadings() {
    std::size_t written = plan_.columns.size();
    if (layout_.numbered) {
      book_.textCell(layout_.numberHeading, "#");
      ++written;
    }
    for (const ColumnPlan& column : plan_.columns) {
      book_.textCell(layout_.headings[indexOf(column)], column.format->fHeder);
    }
    for (; written < kBoldColumns; ++written) book_.emptyCell(layout_.heading);
    book_.endRow();
  }

  void writeTotals() {
    if (layout_.numbered) book_.emptyCell(layout_.number);
    for (const ColumnPlan& column : plan_.columns) {
      if (column.type == ColumnPlan::Type::number && column.total && !isLeftPlain(column)) {
        book_.sumCell(formatOf(column), rows_, columnNumber(sums_[indexOf(column)]));
      } else {
        noCell(column);
      }
    }
    book_.endRow();
  }

  void writeText(const ColumnPlan& column, std::string_view text) {
    if (!isAscii(text)) run_.requireRowText(text, column.format->fNM);
    book_.textCell(formatOf(column), text);
  }

  /// The number that the cell's pattern shows.
  double shownOf(const ColumnPlan& column, const ValueView& value, double number) {
    text_.clear();
    column.pattern.append(text_, number);
    if (const auto shown = readers_[indexOf(column)](text_)) return *shown;
    throw AutomationError(AutomationError::kTypeMismatch, kSource,
                          "Field \"" + column.format->fNM + "\" of row " +
                              std::to_string(run_.rowNumber()) + " of the data, \"" +
                              defaultText(value) + "\", is \"" + text_ + "\" in the pattern \"" +
                              column.format->Frmt + "\", which is no number.");
  }

  const ReportPlan& plan_;
  const SheetLayout& layout_;
  Workbook& book_;
  std::vector<double> sums_;  // of what the cells of each column hold
  std::vector<ColumnSums> unused_ = std::vector<ColumnSums>(plan_.columns.size());
  ReportRun run_;
  std::vector<ShownNumberReader> readers_;  // of each column's pattern
  const FormatPattern datePattern_{"dd-mmm-yyyy"};
  std::int32_t serial_;    // of the next row
  std::int64_t rows_ = 0;  // of the data
  std::string text_;
};

void takeUsualFonts(ExcelExportArguments& arguments) {
  for (std::string* font : {&arguments.TFontNM1, &arguments.TFontNM2, &arguments.TFontNM3,
                            &arguments.TFontNM4, &arguments.TFontNM5}) {
    if (font->empty()) *font = kUsualFont;
  }
}

std::string askForFile(Dialogs& dialogs, Workbooks& workbooks) {
  cOpenSaveDialog dialog(dialogs);
  dialog.DialogTitle = "Please Enter New Excel File";
  dialog.DefaultExt = textOf(workbooks.fileNamed("book").extension()).erase(0, 1);
  dialog.Flags = cOpenSaveDialog::kOverwritePrompt | cOpenSaveDialog::kPathMustExist;
  dialog.MaxFileSize = kLongestPath;
  dialog.ShowSave(0);
  return dialog.FileName;
}

}  // namespace

bool writeExcelExport(ExcelExportArguments& arguments,
                      const std::shared_ptr<ReportFormatTable>& table, const Platform& platform) {
  const std::shared_ptr<ReportFormatTable> kept = table;  // a report within this one may read anew
  ReportPlan plan = planReport(kept.get(), kWorkbookRules, kSource);
  bindFields(plan, arguments.Rs);
  Workbooks& workbooks = requireWorkbooks(platform.workbooks, kSource);
  takeUsualFonts(arguments);
  const SheetLayout layout = layOutSheet(arguments, plan);
  const auto create = [&] {
    return workbooks.create({.file = workbooks.fileNamed(pathOf(arguments.Excel_FileName)),
                             .caller = kSource,
                             .inputs = sourceFiles(arguments.Rs, *kept)},
                            layout.plan);
  };
  const auto writeTo = [&](Workbook& book) {
    ExcelExport sheet(plan, layout, arguments, book);
    sheet.write();
    if (layout.numbered) arguments.Srno = sheet.nextSerial();
  };

  if (!arguments.Excel_FileName.empty()) {
    const auto book = create();
    writeTo(*book);
    book->save();
    return true;
  }
  SpooledWorkbook spool(platform.storage, platform.folders, kSource);
  writeTo(spool);
  arguments.Excel_FileName = askForFile(platform.dialogs, workbooks);
  if (arguments.Excel_FileName.empty()) return false;
  const auto book = create();
  spool.writeTo(*book);
  book->save();
  return true;
}

}  // namespace paperway
