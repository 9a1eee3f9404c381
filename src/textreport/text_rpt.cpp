#include "textreport/text_rpt.h"

#include <algorithm>
#include <utility>

#include "platform/output_file.h"
#include "report/layout.h"
#include "report/report_run.h"
#include "textreport/page_head.h"
#include "util/code_page.h"
#include "util/path_text.h"
#include "util/text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "Text_Rpt";
constexpr std::string_view kFirstLineIndent = "                 ";  // 17 blanks
constexpr std::size_t kSerialWidth = 4;
constexpr std::string_view kNoSerial = "     ";

/// A page ends while its foot still fits: a rule, or totals between two and as many again.
PageBudget linesOfPage(const TextRptArguments& arguments, const ReportPlan& plan) {
  return {plan.rules.page, int{arguments.MPLine} - (plan.pageTotals ? 6 : 3) - 1.0};
}

/// The document, from its first line to its last. What stands between is written as the run of the
/// report tells of it.
class TextReport {
 public:
  TextReport(TextRptArguments& arguments, const ReportPlan& plan, std::vector<ColumnSums>& sums,
             const DOSEFONTcHR& font, OutputFile& file)
      : arguments_(arguments),
        plan_(plan),
        font_(font),
        file_(file),
        out_(file_),
        head_(plan, arguments, font),
        run_(plan, arguments.Rs, sums, linesOfPage(arguments, plan), arguments.onProgress),
        pitchCode_(pitchCode(arguments.C_80_96_136)),
        emptyPrefix_(arguments.Srno > 0 ? kNoSerial : "") {}

  void write() {
    out_.append(kFirstLineIndent);
    out_.line(pitchCode_);
    beginPage();
    run_.walk(*this);
    writeTotalBetweenRules(totalLine(&ColumnPlan::total));
    out_.append(isCondensed() ? font_.Coff : "");
    out_.line({&kFormFeed, 1});
    out_.flush();
    run_.finish();
    file_.commit();
  }

  // --- groups

  void endInnerGroup(GroupEnd) {
    const Footer footer = groupFooter(&ColumnFormat::GTot1, &ColumnSums::inner, '-');
    out_.line(footer.rule);
    out_.line(footer.total);
    out_.line(footer.rule);
    run_.page.add(3);
  }

  void endOuterGroup(GroupEnd) {
    const Footer footer = groupFooter(&ColumnFormat::GTot2, &ColumnSums::outer, '=');
    out_.line(footer.total);
    out_.line(footer.rule);
    run_.page.add(3);  // though these are two
  }

  void beginOuterGroup(const std::string& text) { writeGroupHeader(plan_.outer, text); }
  void beginInnerGroup(const std::string& text, GroupBegin) { writeGroupHeader(plan_.inner, text); }

  // --- rows: cells are placed on a line of blanks

  void beginRow(bool) {
    line_ = cell_ = out_.blanks(head_.rule().size());
    if (arguments_.Srno > 0) placeSerial();
  }

  void blankCell(const ColumnPlan& column) { cell_ += column.width + column.spaces; }

  void noCell(const ColumnPlan&) {}

  void textCell(const ColumnPlan& column, const ValueView& value) {
    if (value.kind() == ValueView::Kind::text) {
      placeText(column, value.text());
    } else {
      scratch_.clear();
      appendDefaultText(scratch_, value);
      place(column, scratch_);
    }
  }

  void dateCell(const ColumnPlan& column, const ValueView& value) {
    scratch_.clear();
    if (!value.isNull()) column.pattern.append(scratch_, value);
    placeText(column, scratch_);
  }

  void numberCell(const ColumnPlan& column, const ValueView&, double number) {
    scratch_.clear();
    column.pattern.append(scratch_, number);
    place(column, encoded(scratch_));
  }

  void endRow() {
    out_.advance(static_cast<std::size_t>(cell_ - line_));
    out_.endLine();
    run_.page.add(1);
    if (arguments_.Srno > 0) {
      arguments_.Srno = static_cast<std::int32_t>(static_cast<std::uint32_t>(arguments_.Srno) + 1u);
    }
    run_.endPageIfFull(*this);
  }

  // --- pages

  void endPage() {
    std::string carried;
    if (plan_.pageTotals) {
      carried = totalLine(&ColumnPlan::pageTotal);
      writeTotalBetweenRules(carried);
    } else {
      out_.line(head_.rule());
    }
    if (isCondensed()) out_.append(font_.Coff);
    out_.append({&kFormFeed, 1});
    out_.line(isCondensed() ? font_.Con : "");
    pageNumber_ = static_cast<std::int16_t>(static_cast<std::uint16_t>(pageNumber_) + 1u);
    beginPage();
    if (!plan_.pageTotals) return;
    out_.line(carried);
    run_.page.add(1);
  }

 private:
  const std::string& pitchCode(std::uint8_t columns) const {
    static const std::string kNone;
    switch (columns) {
      case 136:
        return font_.Con;
      case 96:
        return font_.C96;
      case 80:
        return font_.C80;
      default:
        return kNone;
    }
  }

  bool isCondensed() const { return pitchCode_ == font_.Con; }

  void beginPage() {
    head_.write(out_, pageNumber_);
    run_.page.restart(head_.lines());
  }

  void writeGroupHeader(const GroupPlan& group, const std::string& text) {
    if (group.bold) out_.append(font_.Bon);
    const std::string_view bytes = encodedText(text, group.field);
    if (holdsControls(bytes)) run_.noteControls();
    out_.append(bytes);
    out_.line(group.bold ? font_.Boff : "");
    run_.page.add(1);
  }

  // --- totals, under their columns

  struct Footer {
    std::string total;
    std::string rule;
  };

  /// The figures of a group in the columns that name one, and the rule for them.
  Footer groupFooter(std::string ColumnFormat::*field, double ColumnSums::*sum, char dash) {
    Footer footer{emptyPrefix_, emptyPrefix_};
    for (std::size_t i = 0; i < plan_.columns.size(); ++i) {
      const ColumnPlan& column = plan_.columns[i];
      const bool shown = !(column.format->*field).empty();
      appendTotal(footer.total, column, shown, run_.sums()[i].*sum);
      footer.rule.append(column.width + column.spaces, shown ? dash : ' ');
    }
    return footer;
  }

  /// The running totals of the columns that carry `flag`.
  std::string totalLine(bool ColumnPlan::*flag) {
    std::string line = emptyPrefix_;
    for (std::size_t i = 0; i < plan_.columns.size(); ++i) {
      const ColumnPlan& column = plan_.columns[i];
      appendTotal(line, column, column.*flag, run_.sums()[i].grand);
    }
    return line;
  }

  void appendTotal(std::string& line, const ColumnPlan& column, bool shown, double total) {
    const std::size_t at = line.size();
    line.append(column.width + column.spaces, ' ');
    if (!shown) return;
    scratch_.clear();
    column.pattern.appendDecimal(scratch_, total);
    placeCell(line.data() + at, column.width, encoded(scratch_), column.left);
  }

  void writeTotalBetweenRules(const std::string& total) {
    out_.line(head_.rule());
    out_.line(total);
    out_.line(head_.rule());
  }

  // --- bytes

  /// The last four digits.
  void placeSerial() {
    std::int32_t rest = arguments_.Srno;
    for (std::size_t i = kSerialWidth; i-- > 0 && rest > 0; rest /= 10) {
      cell_[i] = static_cast<char>('0' + rest % 10);
    }
    cell_ += kSerialWidth + 1;
  }

  void place(const ColumnPlan& column, std::string_view bytes) {
    placeCell(cell_, column.width, bytes, column.left);
    cell_ += column.width + column.spaces;
  }

  /// A text of the host's, whose control characters the cell keeps.
  void placeText(const ColumnPlan& column, std::string_view text) {
    if (isPrintableAscii(text)) return place(column, text);
    const char* const cell = cell_;
    place(column, encodedText(text, column.format->fNM));
    if (holdsControls({cell, column.width})) run_.noteControls();
  }

  /// A text of ours in the code page; it stands until the next one is asked for.
  std::string_view encoded(std::string_view text) {
    if (isAscii(text)) return text;
    encoded_.clear();
    CodePage::windows1252().encode(text, encoded_);
    return encoded_;
  }

  /// A text of the host's in the code page.
  std::string_view encodedText(std::string_view text, const std::string& field) {
    if (isAscii(text)) return text;
    run_.requireRowText(text, field);
    return encoded(text);
  }

  TextRptArguments& arguments_;
  const ReportPlan& plan_;
  const DOSEFONTcHR& font_;
  OutputFile& file_;
  OutputLines out_;
  const PageHead head_;
  ReportRun run_;
  const std::string& pitchCode_;
  const std::string emptyPrefix_;
  std::int16_t pageNumber_ = 1;
  char* line_ = nullptr;  // of the row in hand
  char* cell_ = nullptr;  // the next one
  std::string scratch_;
  std::string encoded_;
};

void requireField(const GroupPlan& group, const Recordset& rows, const char* caller) {
  if (group.isUsed() && rows.findField(group.field) < 0) {
    throw MissingGroupField(group.field, caller);
  }
}

}  // namespace

void writeTextReport(TextRptArguments& arguments, const std::shared_ptr<ReportFormatTable>& table,
                     const DOSEFONTcHR& font, Storage& storage) {
  const std::shared_ptr<ReportFormatTable> kept = table;  // a report within this one may read anew
  ReportPlan plan = planReport(kept.get(), kTextRules, kSource);
  requireField(plan.inner, arguments.Rs, plan.caller);
  requireField(plan.outer, arguments.Rs, plan.caller);
  bindFields(plan, arguments.Rs);
  OutputFile file(storage, pathOf(arguments.TextFileName), kSource,
                  {.inputs = sourceFiles(arguments.Rs, *kept)});
  TextReport(arguments, plan, kept->sums, font, file).write();
}

}  // namespace paperway
