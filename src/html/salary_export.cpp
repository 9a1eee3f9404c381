#include "html/salary_export.h"

#include <cmath>

#include "html/page_measure.h"
#include "html/salary_head.h"
#include "html/salary_styles.h"
#include "html/table_export.h"
#include "paperway/platform/page_setup.h"
#include "platform/output_file.h"
#include "util/path_text.h"
#include "util/utilities.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "HTML_Export_Salary";

constexpr MeasureRules kMeasures{
    .rowHeights = {232, 260, 310, 310, 310}, .widening = {}, .keptBack = 0.25};

constexpr std::int32_t kRestartingNumbers = 9;  // the running number that stands for them
constexpr int kTwipsPerFixedHeight = 16;

/// In sixteen bits.
std::int16_t fixedHeight(std::int16_t height) {
  return static_cast<std::int16_t>(height * kTwipsPerFixedHeight);
}

/// The attributes of the cells are those that the style sheet has given to the records.
CellLook lookOf(const ColumnPlan& column, const std::string& space) {
  const std::string begin = "<td" + htmlBytes(column.format->CellClass);
  const std::string blank = "<td> &nbsp;" + std::string(column.width, ' ') + " </td>\r\n";
  const std::string spaced = htmlBytes(space) + "</td>\r\n";
  switch (column.type) {
    case ColumnPlan::Type::text:
      if (column.left) return {begin + " ", "</td>\r\n", blank};
      return {begin + "&nbsp", spaced, blank};
    case ColumnPlan::Type::date:
      return {begin + " ", "</td>\r\n", blank};
    case ColumnPlan::Type::number:
      if (column.left) return {begin + " &nbsp;", " </td>\r\n", blank};
      return {begin + " ", spaced, blank};
    case ColumnPlan::Type::none:
      break;
  }
  return {"", "", blank};
}

/// The attribute of a group's headings.
std::string groupClass(const ReportFormatTable& table, const GroupPlan& group) {
  const auto isField = [&](const ColumnFormat& record) {
    return equalIgnoringCase(record.fNM, group.field);
  };
  return lastMatch(table, ">", isField,
                   [](const ColumnFormat& record) { return record.CellClass; });
}

/// The document, from its first line to its last. What stands between is written as the run of the
/// report tells of it.
class SalaryExport : public TableExport {
 public:
  SalaryExport(const HtmlExportSalaryArguments& arguments, const ReportPlan& plan,
               ReportFormatTable& table, const PageMeasure& measure, OutputFile& file)
      : TableExport(plan, arguments.Rs, table.sums, measure.pageHeight, arguments.onProgress, file),
        arguments_(arguments),
        table_(table),
        measure_(measure),
        file_(file),
        restarts_(arguments.Srno == kRestartingNumbers),
        serial_(restarts_ ? 1 : arguments.Srno) {}

  void write() {
    const bool hasCaptions =
        makeSalaryStyles(arguments_, table_, [this](std::string_view line) { out_.line(line); });
    out_.line("<font face='Arial Narrow'>");
    for (int level = 0; level < arguments_.Left_margin; ++level) out_.line("<blockquote>");
    takeStyles();
    beginPages(makeSalaryHead(arguments_, plan_, table_, measure_, hasCaptions));
    run_.walk(*this);
    writeGrandTotal();
    out_.line("</font>");
    out_.flush();
    run_.finish();
    file_.commit();
  }

  // --- groups

  void endInnerGroup(GroupEnd end) {
    if (end == GroupEnd::alone && restarts_) serial_ = 1;
    writeRow(row(
        emptyNumber(), end == GroupEnd::withOuter ? "</tr>" : "\r\n</tr>",
        [&](std::size_t i) { return groupTotal(i, &ColumnFormat::GTot1, &ColumnSums::inner); }));
  }

  void endOuterGroup(GroupEnd end) {
    const bool last = end == GroupEnd::ofReport;
    if (!last) checkPage(PageEnd::atGroup);
    writeRow(row(emptyNumber(), last ? "\r\n</tr>" : "</tr>", [&](std::size_t i) {
      return groupTotal(i, &ColumnFormat::GTot2, &ColumnSums::outer);
    }));
  }

  void beginOuterGroup(const std::string& text) {
    out_.line("<tr>");
    if (breaksAt(kAtOuterGroup)) breakPage();
    writeHeadingCell(outerClass_ + "<b>" + headingText(plan_.outer, text) + "</b></td>");
  }

  void beginInnerGroup(const std::string& text, GroupBegin begin) {
    if (begin == GroupBegin::alone) {
      if (restarts_ && breaksAt(kAtInnerGroup)) breakPage();
      checkPage(PageEnd::atGroup);
    }
    writeHeading(innerClass_ + "<b>&nbsp;" + headingText(plan_.inner, text) + "</b></td>");
  }

  // --- rows

  void beginRow(bool duplicate) {
    out_.bytes(rowTag_);
    if (serial_ <= 0) return;
    out_.bytes("<td align='right'><Q class=srno> ");
    if (!(duplicate && blanksDuplicates_)) {
      out_.bytes(" ");
      out_.bytes(std::to_string(serial_));
      serial_ = static_cast<std::int32_t>(static_cast<std::uint32_t>(serial_) + 1u);
    }
    out_.bytes(spacedEnd_);
  }

  void textCell(const ColumnPlan& column, const ValueView& value) {
    const CellLook& look = lookOf(column);
    const std::string_view text = escapedText(column, textOf(column, value));
    if (column.left) return out_.cell(look.before, text, look.after);
    out_.paddedCell(look.before, text, column.width, look.after);
  }

  void endRow() {
    run_.page.add(rowHeight_);
    out_.bytes("</tr>\r\n");
    checkPage(PageEnd::atRow);
  }

  void endPage() { turnPage(plan_.pageTotals ? carriedTotals() : ""); }

 private:
  /// Where a page ends shows in the carried totals.
  enum class PageEnd { atGroup, atRow };

  static constexpr std::uint8_t kAtInnerGroup = 1;  // of PageBrack_When_GroupChange
  static constexpr std::uint8_t kAtOuterGroup = 2;

  inline static const std::string kEmptyCell = "<td></td>\r\n";
  inline static const std::string kNoTotal = "<td>&nbsp</td>\r\n";

  // --- what the style sheet has made of the columns

  void takeStyles() {
    const std::string span = "<td align='left' colspan = " + numberText(visibleCount(table_));
    innerClass_ = span + groupClass(table_, plan_.inner);
    outerClass_ = span + groupClass(table_, plan_.outer);
    for (const ColumnPlan& column : plan_.columns) {
      looks_.push_back(paperway::lookOf(column, arguments_.Space_Numeric));
      references_.push_back(arguments_.Unicode_RPT == 1 &&
                            column.format->FontNm.find("unicode") != std::string::npos);
      blanksDuplicates_ |= column.blankOnDuplicate;
    }
    rowTag_ = arguments_.FixRow_Height > 0
                  ? "<tr valign=top height='" + plainNumber(arguments_.FixRow_Height) + "'>\r\n"
                  : "<tr>\r\n";
    spacedEnd_ = htmlBytes(arguments_.Space_Numeric) + "</td>\r\n";
  }

  // --- pages

  void beginPages(const SalaryHead& head) {
    beginFirstPage(head.text, measure_.rowHeight, head.used);
    if (arguments_.FixHeder_Row_Height > 0) {
      headHeight_ = fixedHeight(arguments_.FixHeder_Row_Height);
      run_.page.restart(headHeight_);
    }
    if (arguments_.FixRow_Height > 0) rowHeight_ = fixedHeight(arguments_.FixRow_Height);
    if (plan_.pageTotals) run_.page.add(rowHeight_);
  }

  void checkPage(PageEnd where) {
    pageEnd_ = where;
    run_.endPageIfFull(*this);
  }

  /// The first record never begins a page of its own.
  bool breaksAt(std::uint8_t level) const {
    return arguments_.PageBrack_When_GroupChange == level && run_.rowNumber() != 1;
  }

  std::string carriedTotals() const {
    return row(emptyNumber(), "</tr>", [&](std::size_t i) {
      const ColumnPlan& column = plan_.columns[i];
      if (!column.pageTotal) return kNoTotal;
      const std::string sum = total(column, run_.sums()[i].grand);
      const std::string begin = "<td" + column.format->CellClass;
      if (!column.left) return begin + " " + sum + arguments_.Space_Numeric + "</td>\r\n";
      return begin + (pageEnd_ == PageEnd::atGroup ? " " : " &nbsp;") + sum + " </td>\r\n";
    });
  }

  // --- totals

  std::string_view emptyNumber() const { return serial_ > 0 ? "<td></td>\r\n" : ""; }

  std::string groupTotal(std::size_t i, std::string ColumnFormat::*field,
                         double ColumnSums::*sum) const {
    const ColumnPlan& column = plan_.columns[i];
    if ((column.format->*field).empty()) return kEmptyCell;
    return "<td" + column.format->CellClass + "<b>" + total(column, run_.sums()[i].*sum) +
           arguments_.Space_Numeric + "</b></td>\r\n";
  }

  void writeGrandTotal() {
    if (arguments_.DoubleLine_LastTotal != 0) return writeTwoLineTotal();
    out_.line(row(emptyNumber(), "</tr>", [&](std::size_t i) {
      return plan_.columns[i].total ? grandTotal(i, "<td") : kNoTotal;
    }));
  }

  std::string grandTotal(std::size_t i, const std::string& begin) const {
    const ColumnPlan& column = plan_.columns[i];
    const std::string cell = begin + column.format->CellClass;
    const std::string sum = total(column, run_.sums()[i].grand);
    if (column.left) return cell + " &nbsp;" + sum + " </td>\r\n";
    return cell + "<b> " + sum + arguments_.Space_Numeric + "</b></td>\r\n";
  }

  /// Each total takes two columns, and those of neighbours stand on different lines.
  void writeTwoLineTotal() {
    std::size_t fillers = 0;
    for (const ColumnPlan& column : plan_.columns) {
      if (column.format->Sz != 0 && !column.total) ++fillers;
    }
    const std::size_t odd = fillers % 2;
    out_.line(totalLine(fillers == 0 ? 0 : fillers - 1, 1 - odd));
    out_.line(totalLine(fillers, odd));
  }

  /// The totals of every other column.
  std::string totalLine(std::size_t fillers, std::size_t parity) const {
    std::string number;
    if (serial_ > 0) {
      number = emptyNumber();
      for (std::size_t i = 0; i < fillers; ++i) number += "<td></td>";
    }
    return row(number, "</tr>", [&](std::size_t i) {
      return plan_.columns[i].total && i % 2 == parity ? grandTotal(i, "<td colspan='2' ")
                                                       : std::string();
    });
  }

  /// It stands until the next one is asked for.
  std::string_view escapedText(const ColumnPlan& column, std::string_view text) {
    const bool asReferences = references_[static_cast<std::size_t>(&column - plan_.columns.data())];
    if (!asReferences && text.find_first_of("<>\"") == text.npos) return text;
    escaped_.clear();
    appendEscaped(escaped_, text);
    if (asReferences) escaped_ = UniToHex(escaped_);
    return escaped_;
  }

  const HtmlExportSalaryArguments& arguments_;
  ReportFormatTable& table_;
  const PageMeasure& measure_;
  OutputFile& file_;
  const bool restarts_;     // the numbers, in each first-level group
  std::int32_t serial_;     // of the next row; up to 0: rows are not numbered
  std::string innerClass_;  // of a group's headings: their cells, up to the text
  std::string outerClass_;
  std::string rowTag_;            // bytes
  std::string spacedEnd_;         // bytes
  std::vector<bool> references_;  // whether the texts of a column are written as such
  bool blanksDuplicates_ = false;
  PageEnd pageEnd_ = PageEnd::atRow;
  std::string escaped_;
};

PageMeasure measureFor(const HtmlExportSalaryArguments& arguments, const Platform& platform) {
  PageMeasure measure =
      measurePage(kMeasures, preparePageSetup(platform.pageSetup), sheetOf(platform.printers),
                  arguments.ChrWidth, arguments.PortraitLansscape == "L");
  measure.characterWidth = std::nearbyint(measure.characterWidth * 100) / 100;
  if (arguments.Row_Height != 0) measure.rowHeight = arguments.Row_Height;
  return measure;
}

void checkTexts(const HtmlExportSalaryArguments& arguments) {
  requireText(arguments.Space_Numeric, "Space_Numeric", kSource);
  requireText(arguments.SrNo_FontName, "SrNo_FontName", kSource);
  requireText(arguments.HTML_FileName, "HTML_FileName", kSource);
  for (const std::string* font : {&arguments.TFontNM1, &arguments.TFontNM2, &arguments.TFontNM3,
                                  &arguments.TFontNM4, &arguments.TFontNM5}) {
    requireText(*font, "The font of a title", kSource);
  }
}

}  // namespace

bool writeSalaryExport(HtmlExportSalaryArguments& arguments,
                       const std::shared_ptr<ReportFormatTable>& table, const Platform& platform) {
  if (table == nullptr) {
    removeExport(platform.storage, arguments.HTML_FileName, arguments.Rs, kSource);
    return false;
  }
  const std::shared_ptr<ReportFormatTable> kept = table;  // a report within this one may read anew
  checkTable(*kept, kSource);
  checkTexts(arguments);
  ReportPlan plan = planReport(kept.get(), kSalaryHtmlRules, kSource);
  bindFields(plan, arguments.Rs);
  const PageMeasure measure = measureFor(arguments, platform);
  arguments.PortraitLansscape = measure.turned ? "L" : "P";
  OutputFile file(platform.storage, pathOf(arguments.HTML_FileName), kSource,
                  {.inputs = sourceFiles(arguments.Rs, *kept)});
  SalaryExport(arguments, plan, *kept, measure, file).write();
  return true;
}

}  // namespace paperway
