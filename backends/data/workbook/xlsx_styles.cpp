#include "backends/data/workbook/xlsx_styles.h"

#include "backends/data/workbook/book_file.h"
#include "backends/data/workbook/look_tables.h"
#include "backends/data/workbook/xml_text.h"

namespace paperway::workbook {
namespace {

constexpr std::size_t kFirstOwnNumber = 164;  // those below are the program's
constexpr int kDay = 14;                      // as the user's system writes it
constexpr int kDayAndTime = 22;

std::string fontsXml(const LookTables& tables) {
  std::string xml = "<fonts count=\"" + std::to_string(tables.fonts.size()) + "\">";
  for (const auto& [name, bold] : tables.fonts) {
    xml += bold ? "<font><b/><sz val=\"" : "<font><sz val=\"";
    xml += std::to_string(kUsualFontSize) + "\"/><name val=\"";
    appendXmlText(xml, name.empty() ? kUsualFont : name);
    xml += "\"/></font>";
  }
  return xml + "</fonts>";
}

std::string numbersXml(const LookTables& tables) {
  const std::size_t own = tables.numbers.size() - 1;  // "General" is the program's
  if (own == 0) return "";
  std::string xml = "<numFmts count=\"" + std::to_string(own) + "\">";
  for (std::size_t i = 1; i <= own; ++i) {
    xml += "<numFmt numFmtId=\"" + std::to_string(kFirstOwnNumber + i) + "\" formatCode=\"";
    appendXmlText(xml, tables.numbers[i]);
    xml += "\"/>";
  }
  return xml + "</numFmts>";
}

std::string styleXml(const LookTables::Look& look, std::size_t number) {
  return "<xf numFmtId=\"" + std::to_string(number) + "\" fontId=\"" + std::to_string(look.font) +
         "\" fillId=\"0\" borderId=\"" + (look.grid ? "1" : "0") +
         "\" xfId=\"0\" applyNumberFormat=\"1\" applyFont=\"1\" applyBorder=\"1\"/>";
}

std::string cellStylesXml(const LookTables& tables) {
  std::string xml = "<cellXfs count=\"" + std::to_string(tables.looks.size() * kStyleKinds) + "\">";
  for (const LookTables::Look& look : tables.looks) {
    const std::size_t own = kFirstOwnNumber + look.number;
    const bool general = look.number == 0;
    xml += styleXml(look, general ? 0 : own);
    xml += styleXml(look, general ? kDay : own);
    xml += styleXml(look, general ? kDayAndTime : own);
  }
  return xml + "</cellXfs>";
}

}  // namespace

std::string stylesXml(const std::vector<CellFormat>& formats) {
  const LookTables tables(formats);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
         "<styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">" +
         numbersXml(tables) + fontsXml(tables) +
         "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
         "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
         "<borders count=\"2\"><border><left/><right/><top/><bottom/><diagonal/></border>"
         "<border><left style=\"thin\"/><right style=\"thin\"/><top style=\"thin\"/>"
         "<bottom style=\"thin\"/><diagonal/></border></borders>"
         "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/>"
         "</cellStyleXfs>" +
         cellStylesXml(tables) +
         "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/>"
         "</cellStyles></styleSheet>";
}

}  // namespace paperway::workbook
