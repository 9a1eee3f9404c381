#include "html/html_export.h"

#include "html/html_export_head.h"
#include "html/page_measure.h"
#include "html/table_export.h"
#include "paperway/platform/page_setup.h"
#include "platform/output_file.h"
#include "util/path_text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "HTML_Export";

constexpr MeasureRules kMeasures{
    .rowHeights = {230, 260, 310, 310, 310}, .widening = {0, 1, 1.5, 2, 2.5}, .keptBack = 0.5};

constexpr std::string_view kStyle[] = {"<STYLE TYPE  = 'text/css'>",
                                       "p{",
                                       "    font-family:Arial Narrow;",
                                       "    margin-top: 1;",
                                       "    margin-bottom:1;",
                                       "    }",
                                       "</STYLE>",
                                       "<font face='Arial Narrow'>"};

CellLook lookOf(const ColumnPlan& column) {
  const std::string font = htmlBytes(fontTag(*column.format));
  const std::string blank = "<td>&nbsp;&nbsp;" + std::string(column.width, ' ') + "&nbsp;</td>\r\n";
  switch (column.type) {
    case ColumnPlan::Type::text:
      if (column.left) return {"<td>&nbsp;&nbsp;" + font, "&nbsp;</font></td>\r\n", blank};
      return {"<td align='right'>&nbsp" + font, "&nbsp;&nbsp;</font></td>\r\n", blank};
    case ColumnPlan::Type::date:
      return {"<td>&nbsp;&nbsp;" + font, "</font></td>\r\n", blank};
    case ColumnPlan::Type::number:
      if (column.left) return {"<td>&nbsp;&nbsp; " + font, "&nbsp;</font></td>\r\n", blank};
      return {"<td align='right'>&nbsp;" + font, "&nbsp;&nbsp;</font></td>\r\n", blank};
    case ColumnPlan::Type::none:
      break;
  }
  return {"", "", blank};
}

/// The font of the group's field, as its headings show it.
std::string groupFont(const ReportFormatTable& table, const GroupPlan& group) {
  const auto isField = [&](const ColumnFormat& record) { return record.fNM == group.field; };
  return lastMatch(table, "", isField, fontTag);
}

/// The document, from its first line to its last. What stands between is written as the run of the
/// report tells of it.
class HtmlExport : public TableExport {
 public:
  HtmlExport(HtmlExportArguments& arguments, const ReportPlan& plan, ReportFormatTable& table,
             const PageMeasure& measure, OutputFile& file)
      : TableExport(plan, arguments.Rs, table.sums, measure.pageHeight, arguments.onProgress, file),
        measure_(measure),
        head_(makeHead(arguments, plan, measure)),
        file_(file),
        serial_(arguments.Srno),
        span_("<td align='left' colspan = " + numberText(visibleCount(table))),
        innerFont_(groupFont(table, plan.inner)),
        outerFont_(groupFont(table, plan.outer)) {
    for (const ColumnPlan& column : plan.columns) {
      looks_.push_back(paperway::lookOf(column));
      fonts_.push_back(fontTag(*column.format));
    }
  }

  void write() {
    for (const std::string_view line : kStyle) out_.line(line);
    beginFirstPage(head_.text, measure_.rowHeight, head_.titles * measure_.rowHeight);
    if (plan_.pageTotals) run_.page.add(rowHeight_);
    run_.walk(*this);
    out_.line(grandTotal());
    out_.line("</font>");
    out_.flush();
    run_.finish();
    file_.commit();
  }

  // --- groups

  void endInnerGroup(GroupEnd end) {
    const bool within = end == GroupEnd::withOuter;
    writeRow(row(emptyNumber(), within ? "</tr>" : "\r\n</tr>", [&](std::size_t i) {
      const ColumnPlan& column = plan_.columns[i];
      if (column.format->GTot1.empty()) return kEmptyCell;
      return aligned(column) + "<b>" + fonts_[i] + total(column, run_.sums()[i].inner) +
             "&nbsp;&nbsp;</b>" + (within ? "</Font></td>\r\n" : "</td>\r\n");
    }));
  }

  void endOuterGroup(GroupEnd end) {
    const bool last = end == GroupEnd::ofReport;
    writeRow(row(emptyNumber(), last ? "\r\n</tr>" : "</tr>", [&](std::size_t i) {
      const ColumnPlan& column = plan_.columns[i];
      if (column.format->GTot2.empty()) return kEmptyCell;
      return aligned(column) + fonts_[i] + "<b>" + (last ? fonts_[i] : "") +
             total(column, run_.sums()[i].outer) + "&nbsp;&nbsp;</b>" +
             (last ? "</td>\r\n" : "</Font></td>\r\n");
    }));
  }

  void beginOuterGroup(const std::string& text) {
    writeHeading(span_ + "><b>" + outerFont_ + headingText(plan_.outer, text) + "</b></Font></td>");
  }

  void beginInnerGroup(const std::string& text, GroupBegin begin) {
    writeHeading(span_ + ">" + innerFont_ + "<b>" + headingText(plan_.inner, text) +
                 (begin == GroupBegin::alone ? "</b></td>" : "</b></font></td>"));
  }

  // --- rows

  void beginRow(bool) {
    if (serial_ <= 0) return out_.bytes("<tr>\r\n");
    out_.cell("<tr>\r\n<td align='right'>  ", std::to_string(serial_), "&nbsp;&nbsp;</td>\r\n");
    serial_ = static_cast<std::int32_t>(static_cast<std::uint32_t>(serial_) + 1u);
  }

  void textCell(const ColumnPlan& column, const ValueView& value) {
    const CellLook& look = lookOf(column);
    out_.paddedCell(look.before, textOf(column, value), column.width, look.after);
  }

  /// A page ends within its last row, whose end comes after the head of the next one.
  void endRow() {
    run_.page.add(rowHeight_);
    run_.endPageIfFull(*this);
    out_.bytes("</tr>\r\n");
  }

  void endPage() { turnPage(plan_.pageTotals ? carriedTotals() : ""); }

 private:
  inline static const std::string kEmptyCell = "<td></td>\r\n";
  inline static const std::string kNoTotal = "<td align='right'>&nbsp</td>\r\n";

  std::string_view emptyNumber() const { return serial_ > 0 ? "<td align='right'></td>\r\n" : ""; }

  static std::string aligned(const ColumnPlan& column) {
    return column.left ? "<td align='left'>" : "<td align='right'>";
  }

  std::string carriedTotals() const {
    return row(emptyNumber(), "</tr>", [&](std::size_t i) {
      const ColumnPlan& column = plan_.columns[i];
      if (!column.pageTotal) return kNoTotal;
      const std::string sum = fonts_[i] + total(column, run_.sums()[i].grand);
      return column.left ? "<td>&nbsp;&nbsp; " + sum + "&nbsp;</font></td>\r\n"
                         : "<td align='right'>&nbsp;" + sum + "&nbsp;&nbsp;</font></td>\r\n";
    });
  }

  std::string grandTotal() const {
    return row(emptyNumber(), "</tr>", [&](std::size_t i) {
      const ColumnPlan& column = plan_.columns[i];
      if (!column.total) return kNoTotal;
      const std::string sum = fonts_[i] + total(column, run_.sums()[i].grand);
      return column.left ? "<td>&nbsp;&nbsp;" + sum + "&nbsp;</Font></td>\r\n"
                         : "<td align='right'><b>&nbsp;" + sum + "&nbsp;&nbsp;</b></Font></td>\r\n";
    });
  }

  const PageMeasure& measure_;
  const HtmlExportHead head_;
  OutputFile& file_;
  std::int32_t serial_;     // of the next row; up to 0: rows are not numbered
  const std::string span_;  // of a group's heading
  const std::string innerFont_;
  const std::string outerFont_;
  std::vector<std::string> fonts_;  // of each column
};

}  // namespace

bool writeHtmlExport(HtmlExportArguments& arguments,
                     const std::shared_ptr<ReportFormatTable>& table, const Platform& platform) {
  if (table == nullptr) {
    removeExport(platform.storage, arguments.HTML_FileName, arguments.Rs, kSource);
    return false;
  }
  const std::shared_ptr<ReportFormatTable> kept = table;  // a report within this one may read anew
  checkTable(*kept, kSource);
  ReportPlan plan = planReport(kept.get(), kHtmlRules, kSource);
  bindFields(plan, arguments.Rs);
  const PageMeasure measure =
      measurePage(kMeasures, preparePageSetup(platform.pageSetup), sheetOf(platform.printers),
                  arguments.ChrWidth, arguments.PortraitLansscape == "L");
  arguments.PortraitLansscape = measure.turned ? "L" : "P";
  OutputFile file(platform.storage, pathOf(arguments.HTML_FileName), kSource,
                  {.inputs = sourceFiles(arguments.Rs, *kept)});
  HtmlExport(arguments, plan, *kept, measure, file).write();
  return true;
}

}  // namespace paperway
