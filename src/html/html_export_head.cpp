#include "html/html_export_head.h"

#include "html/html_text.h"
#include "html/table_export.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr std::string_view kTableLook =
    " cellpadding='0' cellspacing='0'  style='border-collapse: collapse;   id='AutoNumber1'"
    "  bordercolor='#000000'  height='10'>\r\n";

struct Title {
  const char* name;
  std::string HtmlExportArguments::*text;
  std::string HtmlExportArguments::*font;
};

constexpr Title kTitles[] = {
    {"Tital1", &HtmlExportArguments::Tital1, &HtmlExportArguments::TFontNM1},
    {"Tital2", &HtmlExportArguments::Tital2, &HtmlExportArguments::TFontNM2},
    {"Tital3", &HtmlExportArguments::Tital3, &HtmlExportArguments::TFontNM3},
    {"Tital4", &HtmlExportArguments::Tital4, &HtmlExportArguments::TFontNM4},
    {"Tital5", &HtmlExportArguments::Tital5, &HtmlExportArguments::TFontNM5}};

class Head {
 public:
  Head(const HtmlExportArguments& arguments, const ReportPlan& plan, const PageMeasure& measure)
      : arguments_(arguments),
        plan_(plan),
        measure_(measure),
        left_(arguments.CenterHeder1Right2 == 0),
        numbers_(arguments.Srno > 0) {}

  HtmlExportHead make() {
    const double width = left_ ? 0 : tableWidth(plan_, measure_.characterWidth, numbers_);
    if (left_) {
      addTitles("<p><b>", "</b></p>\r\n");
    } else {
      beginTable(width, '0');
      head_.text += "<td>\r\n";
      addTitles(arguments_.CenterHeder1Right2 == 1 ? "<p align='center'>" : "<p align='right'>",
                "</b></font></p>\r\n");
      head_.text += "</td>\r\n";
    }
    beginTable(width, '1');
    head_.text += "<tr>\r\n";
    addHeadings();
    head_.text += "</tr>\r\n";
    return std::move(head_);
  }

 private:
  void beginTable(double width, char border) {
    head_.text += " <table  width = '" + numberText(width) + "' border='" + border + "'";
    head_.text += kTableLook;
  }

  void addTitles(const std::string& before, const std::string& after) {
    for (const Title& title : kTitles) {
      const std::string& text = arguments_.*title.text;
      requireText(text, title.name, plan_.caller);
      if (text.empty()) continue;
      head_.text +=
          before + (left_ ? "" : titleFont(arguments_.*title.font) + "<b>") + text + after;
      ++head_.titles;
    }
  }

  std::string titleFont(const std::string& name) const {
    requireText(name, "The font of a title", plan_.caller);
    return "<font face='" + (name.empty() ? "Arial Narrow" : name) + "'>";
  }

  void addHeadings() {
    if (numbers_) {
      head_.text += "<td>" + (left_ ? fontTag(*plan_.columns.front().format) : "") +
                    "<b>&nbsp;#&nbsp;</b></font></td>\r\n";
    }
    for (const ColumnPlan& column : plan_.columns) {
      if (column.type != ColumnPlan::Type::none) head_.text += heading(column) + "\r\n";
    }
  }

  std::string heading(const ColumnPlan& column) const {
    const std::string width = numberText(column.format->Sz * measure_.characterWidth);
    const std::string font = fontTag(*column.format);
    const std::string& name = column.format->fHeder;
    if (column.type == ColumnPlan::Type::date) {
      return "<td width=" + width + ">&nbsp;&nbsp;" + font + "<b>" + name +
             "&nbsp;</b></Font></td>";
    }
    if (!column.left) {
      const char* const end = column.type == ColumnPlan::Type::text ? " >&nbsp;" : ">&nbsp;";
      return "<td align='right' width=" + width + end + font + "<b>" + name +
             "</b>&nbsp;&nbsp;</Font></td>";
    }
    if (column.type == ColumnPlan::Type::text) {
      return "<td width=" + width + "  >&nbsp;&nbsp;" + font + "<b>" + name +
             "</b>&nbsp;</Font></td>";
    }
    return "<td width=" + width + ">&nbsp;&nbsp;" + font + "<b>" + font + name +
           "</b>&nbsp;&nbsp;</Font></td>";
  }

  const HtmlExportArguments& arguments_;
  const ReportPlan& plan_;
  const PageMeasure& measure_;
  const bool left_;
  const bool numbers_;
  HtmlExportHead head_;
};

}  // namespace

HtmlExportHead makeHead(const HtmlExportArguments& arguments, const ReportPlan& plan,
                        const PageMeasure& measure) {
  return Head(arguments, plan, measure).make();
}

}  // namespace paperway
