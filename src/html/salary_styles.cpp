#include "html/salary_styles.h"

#include <algorithm>
#include <utility>

#include "html/html_text.h"
#include "util/utilities.h"
#include "util/value_text.h"

namespace paperway {
namespace {

using TakeLine = std::function<void(std::string_view)>;

/// The document's name without folders, and without all that follows its first point.
std::string styleSheetName(std::string document) {
  std::replace(document.begin(), document.end(), '/', '\\');
  return ParseFileName(document, 1) + ".css";
}

/// A missing brace is part of the sheet.
void linkAndDefaults(const std::string& document, const TakeLine& take) {
  take("<LINK href='" + styleSheetName(document) + "' rel='stylesheet' type='Text/css'>");
  take("<STYLE TYPE  = 'text/css'>");
  take(" p  {font-family:Arial Narrow;margin-top: 1;margin-bottom:1;");
  take(" td {table-layout:fixed; overflow:hidden; white-space:nowrap;}");
  take("</STYLE>");
}

std::string sizeStyle(double size) {
  return " font-size: " + plainNumber(size) + "pt;";
}

void columnStyle(ColumnFormat& record, const std::string& number, const TakeLine& take) {
  take(".a" + number + " {" + (record.FontSize != 0 ? sizeStyle(record.FontSize) : "") +
       " font-family:" + fontFamily(record.FontNm) + " ;" +
       (record.Ali == U'R' ? " Text-Align:right;}" : " Text-Align: Left; }"));
  record.CellClass = " class=a" + number + ">";
}

std::string takeAlignment(std::string& caption) {
  const char mark = caption.empty() ? ' ' : caption.front();
  if (mark != '<' && mark != '>') return " Text-Align:center;";
  caption.erase(0, 1);
  return mark == '<' ? " Text-Align:Left;" : " Text-Align:Right;";
}

/// Its number is one above that of the class, so that a caption has the style of the last column
/// that it stands over: its cell is closed by the next one.
void captionStyle(ColumnFormat& record, std::size_t index, const TakeLine& take) {
  take(".aG" + std::to_string(index + 1) + " {" +
       (record.FontSize != 0 ? sizeStyle(record.G_H_FontSize) : "") + " font-family:" +
       fontFamily(record.G_H_FontNm) + " ;" + takeAlignment(record.GroupHeader) + " }");
  record.GroupClass = " class=aG" + std::to_string(index) + ">";
  record.G_H_FontNm.clear();
}

void fixedStyles(const HtmlExportSalaryArguments& arguments, const TakeLine& take) {
  const std::string size =
      arguments.Tital_FontSize == 0 ? "" : plainNumber(arguments.Tital_FontSize);
  const std::string* const fonts[] = {&arguments.TFontNM1, &arguments.TFontNM2, &arguments.TFontNM3,
                                      &arguments.TFontNM4, &arguments.TFontNM5};
  int title = 0;
  for (const std::string* font : fonts) {
    take("Q.at" + std::to_string(++title) + " { font-size: " + size + "pt; font-family:" + *font +
         "; }");
  }
  const std::string numbers = numberText(arguments.SrNo_FontSZ);
  take("Q.Bankline { font-size: 5pt; font-family:Arial; }");
  take("Q.srno1 { font-size: " + numbers + "pt; font-family:Arial; }");
  take("Q.Srno { font-size: " + numbers + "pt; font-family:" + arguments.SrNo_FontName + "; }");
  for (const auto& [letter, family] :
       {std::pair{'G', "GujratiLys 030 Thin"}, std::pair{'H', "TORANGAMILO"}}) {
    for (const std::string points : {"12", "14", "16"}) {
      take(std::string("Q.") + letter + points + " { font-size: " + points +
           "pt; font-family:" + family + "; }");
    }
  }
}

}  // namespace

bool makeSalaryStyles(const HtmlExportSalaryArguments& arguments, ReportFormatTable& table,
                      const TakeLine& take) {
  linkAndDefaults(arguments.HTML_FileName, take);
  take("<style>");
  std::size_t index = 0;
  for (ColumnFormat& record : table.records) columnStyle(record, std::to_string(index++), take);
  bool hasCaptions = false;
  index = 0;
  for (ColumnFormat& record : table.records) {
    hasCaptions |= !record.GroupHeader.empty();
    captionStyle(record, index++, take);
  }
  fixedStyles(arguments, take);
  take("</style>");
  return hasCaptions;
}

}  // namespace paperway
