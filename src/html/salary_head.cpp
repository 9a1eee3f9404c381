#include "html/salary_head.h"

#include "html/html_text.h"
#include "html/table_export.h"
#include "util/utilities.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr std::int32_t kBlankLine = 95;  // twips

constexpr std::string_view kTableLook =
    " cellpadding='0' cellspacing='0'  style='border-collapse: collapse;   id='AutoNumber1'"
    "  bordercolor='#C0C0C0'  height='10'>\r\n";

class Head {
 public:
  Head(const HtmlExportSalaryArguments& arguments, const ReportPlan& plan,
       const ReportFormatTable& table, const PageMeasure& measure)
      : arguments_(arguments),
        plan_(plan),
        table_(table),
        measure_(measure),
        numbers_(arguments.Srno > 0) {}

  SalaryHead make(bool hasCaptions) {
    for (int line = 0; line < arguments_.Top_margin; ++line) addBlankLine();
    const std::string width = numberText(tableWidth(plan_, measure_.characterWidth, numbers_));
    head_.text += "<table  width = '" + width + "' border='0'" + std::string(kTableLook);
    head_.text += "<td>\r\n";
    addTitles();
    head_.text += "</td>\r\n";
    head_.text += " <table  width = '" + width + "' border='1'" + std::string(kTableLook);
    if (hasCaptions) addCaptions();
    addHeadings();
    return std::move(head_);
  }

 private:
  void addBlankLine() {
    head_.text += "<Q class=Bankline>&nbsp;</q></br>\r\n";
    head_.used += kBlankLine;
  }

  // --- titles

  void addTitles() {
    const std::string* const titles[] = {&arguments_.Tital1, &arguments_.Tital2, &arguments_.Tital3,
                                         &arguments_.Tital4, &arguments_.Tital5};
    int number = 0;
    for (const std::string* title : titles) addTitle(*title, std::to_string(++number));
  }

  void addTitle(std::string title, const std::string& number) {
    requireText(title, "Tital" + number, plan_.caller);
    const std::string paragraph = takeParagraph(title);
    if (title.empty()) return;
    if (arguments_.Unicode_RPT == 1) title = UniToHex(title);
    head_.text += paragraph + "<Q class=at" + number + "><b>" + title + "</b></Q></p>\r\n";
    head_.used += 2 * measure_.rowHeight;
  }

  /// Its last character may say where it stands.
  std::string takeParagraph(std::string& title) const {
    constexpr std::string_view kMarks = "<>^";
    constexpr const char* kPlaces[] = {"left", "right", "center"};
    const std::uint8_t usual = arguments_.CenterHeder1Right2;
    const char* place = usual == 0 ? "left" : usual == 1 ? "center" : "right";
    const std::size_t mark = title.empty() ? kMarks.npos : kMarks.find(title.back());
    if (mark != kMarks.npos) {
      place = kPlaces[mark];
      title.pop_back();
    }
    return std::string("<p align='") + place + "'>";
  }

  // --- captions: neighbours with the same one share a cell

  void addCaptions() {
    if (numbers_) head_.text += "<tr><td align='RIGHT'><Q class=srno1><b>&nbsp;</b></td>\r\n";
    std::string pending;
    int span = 1;
    for (const ColumnPlan& column : plan_.columns) {
      if (column.format->Sz == 0) continue;
      const std::string caption = captionOf(*column.format);
      if (caption == pending) {
        ++span;
      } else if (pending.empty()) {
        pending = caption;
      } else {
        addCaption(pending, span, column.format->GroupClass);
        pending = caption;
        span = 1;
      }
    }
    addCaption(pending, span, table_.records.back().GroupClass);
    head_.text += "</tr>";
  }

  std::string captionOf(const ColumnFormat& format) const {
    return arguments_.Unicode_RPT == 1 ? UniToHex(format.GroupHeader) : escaped(format.GroupHeader);
  }

  void addCaption(const std::string& caption, int span, const std::string& attribute) {
    head_.text += span == 1 ? "<td " : "<td  colspan='" + std::to_string(span) + "'";
    head_.text += attribute + "<b>" + arguments_.Space_Numeric + caption + "</b></td>\r\n";
  }

  // --- headings

  void addHeadings() {
    if (numbers_) head_.text += "<tr><td align='RIGHT'><Q class=srno1><b> # </b></td>\r\n";
    for (const ColumnPlan& column : plan_.columns) {
      if (column.type != ColumnPlan::Type::none) head_.text += heading(column) + "\r\n";
    }
    head_.text += "</tr>\r\n";
  }

  std::string heading(const ColumnPlan& column) const {
    const std::string begin =
        "<td width=" + numberText(column.format->Sz * measure_.characterWidth) +
        column.format->CellClass;
    const std::string name = escaped(column.format->fHeder);
    const std::string& space = arguments_.Space_Numeric;
    if (column.type == ColumnPlan::Type::date) return begin + " <b>" + name + " </b></td>";
    if (column.type == ColumnPlan::Type::text) {
      return begin + "<b>" + (column.left ? space + name : name + space) + "</b></td>";
    }
    return begin + (column.left ? "<b>" + space : " <b>") + name + "</b>" + space + "</td>";
  }

  const HtmlExportSalaryArguments& arguments_;
  const ReportPlan& plan_;
  const ReportFormatTable& table_;
  const PageMeasure& measure_;
  const bool numbers_;
  SalaryHead head_;
};

}  // namespace

SalaryHead makeSalaryHead(const HtmlExportSalaryArguments& arguments, const ReportPlan& plan,
                          const ReportFormatTable& table, const PageMeasure& measure,
                          bool hasCaptions) {
  return Head(arguments, plan, table, measure).make(hasCaptions);
}

}  // namespace paperway
