#include "textreport/text_rpt.h"

#include "paperway/automation_error.h"
#include "report/layout.h"
#include "report/report_plan.h"
#include "session/run_state.h"
#include "textreport/report_lines.h"
#include "util/code_page.h"
#include "util/control_strings.h"
#include "util/output_file.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr const char* kSource = "Text_Rpt";
constexpr std::size_t kSerialWidth = 4;
constexpr std::string_view kFirstLineIndent = "                 ";  // 17 blanks
constexpr std::string_view kSerialHeading = "   # ";
constexpr std::string_view kNoSerial = "     ";

/// The value of a group field in one row. Null counts as one blank.
void readGroupText(std::string& out, ValueView value) {
  out.clear();
  if (value.isNull()) {
    out = ' ';
  } else {
    appendDefaultText(out, value);
  }
}

/// One run of Text_Rpt: the state that its lines share.
class TextReport {
 public:
  TextReport(TextRptArguments& arguments, ReportPlan plan, const DOSEFONTcHR& font)
      : rows_(arguments.Rs),
        arguments_(arguments),
        plan_(std::move(plan)),
        file_(arguments.TextFileName, kSource),
        out_(file_),
        font_(font) {
    if (arguments.Srno > 0) {
      emptyPrefix_ = kNoSerial;
      plan_.headRow.insert(0, kSerialHeading);
    }
    lineWidth_ = plan_.headRow.size();
    rule_.assign(lineWidth_, '-');
    pitchCode_ = pitchCode(arguments.C_80_96_136);
  }

  void write() {
    state_.rowsDone = state_.pagesDone = 0;
    out_.append(kFirstLineIndent);
    out_.line(pitchCode_);
    buildHead();
    writeHead();
    headLines_ = lineCount_;
    for (rows_.MoveFirst(); !rows_.Eof(); rows_.MoveNext(), ++state_.rowsDone) writeRow();
    writeClosingFooters();
    writeGrandTotal();
    out_.append(pitchCode_ == font_.Con ? font_.Coff : "");
    out_.line({&kFormFeed, 1});
    out_.flush();
    file_.commit();
    ++state_.pagesDone;
  }

 private:
  // --- page head and page end

  std::string pitchCode(std::uint8_t columns) const {
    switch (columns) {
      case 136:
        return font_.Con;
      case 96:
        return font_.C96;
      case 80:
        return font_.C80;
      default:
        return "";
    }
  }

  void buildHead() {
    titleBlock_.clear();
    appendTitle(arguments_.Tital1, "Tital1", font_.BBon, font_.BBoff);
    appendTitle(arguments_.Tital2, "Tital2", font_.Bon, font_.Boff);
    appendTitle(arguments_.Tital3, "Tital3", font_.Bon, font_.Boff);
    appendTitle(arguments_.Tital4, "Tital4", font_.Bon, font_.Boff);
    pageTitle_ = reportBytes(arguments_.Tital5, "Tital5");
    headBlock_ = rule_ + "\r\n" + font_.Bon + plan_.headRow + font_.Boff + "\r\n" + rule_ + "\r\n";
    lineCount_ += 4;
  }

  void appendTitle(const std::string& title, const char* name, const std::string& on,
                   const std::string& off) {
    if (title.empty()) return;
    titleBlock_ += on + reportBytes(title, name) + off + "\r\n";
    ++lineCount_;
  }

  void writeHead() {
    out_.append(titleBlock_);
    writePageLine();
    out_.append(headBlock_);
  }

  /// Its plain text ends with the last column of the report; a title that fills the line leaves no
  /// room for the number.
  void writePageLine() {
    std::string page = "Page No # ";
    pageNumberPattern_.append(page, ValueView(int{pageNo_}));
    const std::size_t room = lineWidth_ - std::min(pageTitle_.size(), lineWidth_);
    out_.append(font_.Bon);
    out_.append(pageTitle_);
    out_.append(font_.Boff);
    placeCell(out_.blanks(room), room, page, false);
    out_.advance(room);
    out_.endLine();
  }

  bool pageIsFull() const {
    return int{arguments_.MPLine} <= int{lineCount_} + (plan_.pageTotals ? 6 : 3);
  }

  void endPage() {
    out_.line(rule_);
    std::string carried;
    if (plan_.pageTotals) {
      carried = totalLine(&ColumnPlan::pageTotal);
      out_.line(carried);
      out_.line(rule_);
    }
    pageNo_ = static_cast<std::int16_t>(static_cast<std::uint16_t>(pageNo_) + 1u);
    ++state_.pagesDone;
    const bool condensed = pitchCode_ == font_.Con;
    if (condensed) out_.append(font_.Coff);
    out_.append({&kFormFeed, 1});
    out_.line(condensed ? font_.Con : "");
    writeHead();
    lineCount_ = headLines_;
    if (plan_.pageTotals) {
      out_.line(carried);
      ++lineCount_;
    }
  }

  // --- totals

  void placeNumber(char* cell, const ColumnPlan& column, double number) {
    scratch_.clear();
    column.pattern.append(scratch_, number);
    placeCell(cell, column.width, encoded(scratch_), column.left);
  }

  /// The grand totals of the columns that carry `flag`, under their columns.
  std::string totalLine(bool ColumnPlan::*flag) {
    std::string line = emptyPrefix_;
    for (const ColumnPlan& column : plan_.columns) {
      const std::size_t at = line.size();
      line.append(column.width + column.spaces, ' ');
      if (column.*flag) placeNumber(line.data() + at, column, column.format->GrandSum);
    }
    return line;
  }

  struct Footer {
    std::string total;
    std::string rule;
  };

  /// The figures of a finished group and the rule under them. The group's sums begin anew.
  Footer takeFooter(std::string ColumnFormat::*groupField, double ColumnFormat::*sum, char dash) {
    Footer footer{emptyPrefix_, emptyPrefix_};
    for (const ColumnPlan& column : plan_.columns) {
      const std::size_t at = footer.total.size();
      const std::size_t width = column.width + column.spaces;
      const bool shown = !(column.format->*groupField).empty();
      footer.total.append(width, ' ');
      footer.rule.append(width, shown ? dash : ' ');
      if (shown) placeNumber(footer.total.data() + at, column, column.format->*sum);
    }
    for (const ColumnPlan& column : plan_.columns) column.format->*sum = 0;
    return footer;
  }

  void writeFooter1() {
    const Footer footer = takeFooter(&ColumnFormat::GTot1, &ColumnFormat::Group1Sum, '-');
    out_.line(footer.rule);
    out_.line(footer.total);
    out_.line(footer.rule);
  }

  void writeFooter2() {
    const Footer footer = takeFooter(&ColumnFormat::GTot2, &ColumnFormat::Group2Sum, '=');
    out_.line(footer.total);
    out_.line(footer.rule);
  }

  void writeClosingFooters() {
    if (plan_.group1.isUsed()) writeFooter1();
    if (plan_.group2.isUsed() && !group2Key_.empty()) writeFooter2();
  }

  void writeGrandTotal() {
    out_.line(rule_);
    out_.line(totalLine(&ColumnPlan::total));
    out_.line(rule_);
  }

  // --- groups

  /// The groups' texts are those of the row before, byte for byte, as in most rows.
  bool groupsGoOn() const {
    return goesOn(plan_.group2, group2Text_) && goesOn(plan_.group1, group1Text_);
  }

  bool goesOn(const GroupPlan& group, const std::string& before) const {
    if (!group.isUsed()) return true;
    const ValueView value = rows_.value(group.ordinal);
    return value.kind() == ValueView::Kind::text && value.text() == before;
  }

  void readGroups() {
    if (plan_.group2.isUsed()) readGroupText(group2Text_, rows_.value(plan_.group2.ordinal));
    if (!plan_.group1.isUsed()) return;
    readGroupText(group1Text_, rows_.value(plan_.group1.ordinal));
    group1NewKey_.assign(group1Text_).append(group2Text_);
  }

  void writeGroupChanges() {
    const bool outerChanged = plan_.group2.isUsed() && !equalIgnoringCase(group2Key_, group2Text_);
    const bool innerChanged =
        plan_.group1.isUsed() && !equalIgnoringCase(group1Key_, group1NewKey_);
    if (outerChanged) {
      if (!group2Key_.empty()) {
        endInnerGroup(innerChanged);
        writeFooter2();
        lineCount_ += 3;
      }
      writeGroupHeader(plan_.group2, group2Text_);
      if (plan_.group1.isUsed()) writeGroupHeader(plan_.group1, group1Text_);
    } else if (innerChanged) {
      endInnerGroup(true);
      writeGroupHeader(plan_.group1, group1Text_);
    }
  }

  void endInnerGroup(bool changed) {
    if (!changed || group1Key_.empty()) return;
    writeFooter1();
    lineCount_ += 3;
  }

  void writeGroupHeader(const GroupPlan& group, const std::string& text) {
    if (group.bold) out_.append(font_.Bon);
    out_.append(encodedText(text, group.field));
    out_.line(group.bold ? font_.Boff : "");
    ++lineCount_;
  }

  void rememberGroups() {
    if (plan_.group1.isUsed()) group1Key_ = group1NewKey_;
    if (plan_.group2.isUsed()) group2Key_ = group2Text_;
  }

  // --- rows

  void writeRow() {
    if (!groupsGoOn()) {
      readGroups();
      writeGroupChanges();
      rememberGroups();
    }
    writeRowLine();
    ++lineCount_;
    if (arguments_.Srno > 0) {
      arguments_.Srno = static_cast<std::int32_t>(static_cast<std::uint32_t>(arguments_.Srno) + 1u);
    }
    if (pageIsFull()) endPage();
  }

  /// The cells are placed on a line of blanks. A column without a type takes no room.
  void writeRowLine() {
    const bool duplicate = isDuplicate();
    char* const line = out_.blanks(lineWidth_);
    char* cell = placeSerial(line);
    for (const ColumnPlan& column : plan_.columns) {
      const bool blank = duplicate && column.blankOnDuplicate;
      if (!blank) takeCell(cell, column);
      if (blank || column.type != ColumnPlan::Type::none) cell += column.width + column.spaces;
    }
    out_.advance(static_cast<std::size_t>(cell - line));
    out_.endLine();
    if (!duplicate) rememberDuplicate();
  }

  char* placeSerial(char* cell) const {
    if (arguments_.Srno <= 0) return cell;
    std::int32_t rest = arguments_.Srno;
    for (std::size_t i = kSerialWidth; i-- > 0 && rest > 0; rest /= 10) {
      cell[i] = static_cast<char>('0' + rest % 10);
    }
    return cell + kSerialWidth + 1;
  }

  void takeCell(char* cell, const ColumnPlan& column) {
    if (column.type != ColumnPlan::Type::none) {
      placeCell(cell, column.width, cellText(column), column.left);
    }
    ColumnFormat& sums = *column.format;
    if (column.feedsGroup1) sums.Group1Sum += sums.Group1Count == 1 ? 1 : numValue_;
    if (column.feedsGroup2) sums.Group2Sum += sums.Group2Count == 1 ? 1 : numValue_;
  }

  /// The cell's text in the code page; it stands until the next one is asked for.
  std::string_view cellText(const ColumnPlan& column) {
    const ValueView value = rows_.value(column.ordinal);
    if (column.type == ColumnPlan::Type::number) {
      numValue_ = columnNumber(value);
      if (column.total) column.format->GrandSum += numValue_;
      scratch_.clear();
      column.pattern.append(scratch_, numValue_);
      return encoded(scratch_);
    }
    if (value.isNull()) return {};
    if (column.type == ColumnPlan::Type::text && value.kind() == ValueView::Kind::text) {
      return encodedText(value.text(), column.format->fNM);
    }
    scratch_.clear();
    if (column.type == ColumnPlan::Type::text) {
      appendDefaultText(scratch_, value);
    } else {
      column.pattern.append(scratch_, value);
    }
    return encodedText(scratch_, column.format->fNM);
  }

  bool isDuplicate() const {
    if (!plan_.hasDuplicates || state_.rowsDone == 0) return false;
    const ValueView value = rows_.value(plan_.duplicateOrdinal);
    if (value.kind() == ValueView::Kind::text) return value.text() == duplicateKey_;
    return !value.isNull() && defaultText(value) == duplicateKey_;
  }

  void rememberDuplicate() {
    if (!plan_.hasDuplicates) return;
    duplicateKey_.clear();
    appendDefaultText(duplicateKey_, rows_.value(plan_.duplicateOrdinal));
  }

  // --- bytes

  /// A text of ours in the code page.
  std::string_view encoded(std::string_view text) {
    if (isAscii(text)) return text;
    encoded_.clear();
    CodePage::windows1252().encode(text, encoded_);
    return encoded_;
  }

  /// A text of the host's in the code page.
  std::string_view encodedText(std::string_view text, const std::string& field) {
    if (isAscii(text)) return text;
    if (validUtf8Length(text) != text.size()) raiseNotText(text, field);
    return encoded(text);
  }

  [[noreturn]] void raiseNotText(std::string_view text, const std::string& field) const {
    throw AutomationError(AutomationError::kTypeMismatch, kSource,
                          "Field \"" + field + "\" of row " + std::to_string(state_.rowsDone + 1) +
                              " of the data is not UTF-8 text: see byte " +
                              std::to_string(validUtf8Length(text) + 1) + " of it.");
  }

  Recordset& rows_;
  TextRptArguments& arguments_;
  ReportPlan plan_;
  OutputFile file_;
  ReportLines out_;
  RunState& state_ = runState();
  const DOSEFONTcHR& font_;
  const FormatPattern pageNumberPattern_{"0000"};

  std::string pitchCode_;
  std::string emptyPrefix_;
  std::size_t lineWidth_ = 0;
  std::string rule_;
  std::string titleBlock_;
  std::string pageTitle_;
  std::string headBlock_;

  std::uint8_t lineCount_ = 0;  // wraps at 256
  std::uint8_t headLines_ = 0;
  std::int16_t pageNo_ = 1;
  double numValue_ = 0;  // of the last number cell, kept from row to row

  std::string group1Text_;  // of the row in hand, or of the row before when it is the same
  std::string group2Text_;
  std::string group1NewKey_;  // both texts in a row
  std::string group1Key_;     // of the row before; empty: no group has begun
  std::string group2Key_;
  std::string duplicateKey_;

  std::string scratch_;
  std::string encoded_;
};

/// False, with a message, when the rows lack the field of a group level.
bool hasGroupField(const GroupPlan& group, const Recordset& rows, MessageBox& messageBox) {
  if (!group.isUsed() || rows.findField(group.field) >= 0) return true;
  messageBox.show(" Please Check for RecordSet \r\n" + group.field + "\r\n Not found ");
  return false;
}

}  // namespace

bool writeTextReport(TextRptArguments& arguments, ReportFormatTable& table, const DOSEFONTcHR& font,
                     MessageBox& messageBox) {
  if (table.empty()) {
    throw AutomationError(AutomationError::kSubscript, kSource,
                          "There is no report format table: call Set_Repot_Format first.");
  }
  ReportPlan plan = planReport(table);
  if (!hasGroupField(plan.group1, arguments.Rs, messageBox)) return false;
  if (!hasGroupField(plan.group2, arguments.Rs, messageBox)) return false;
  bindFields(plan, table, arguments.Rs);
  TextReport(arguments, std::move(plan), font).write();
  return true;
}

}  // namespace paperway
