#include "backends/data/workbook/number_format.h"

#include "backends/data/workbook/book_file.h"
#include "backends/data/workbook/xml_text.h"
#include "support/expect_each.h"

namespace paperway::workbook {
namespace {

TEST(FormatCode, ShowsWhatThePatternShows) {
  expectEach(formatCode,
             Row{"", "General"},
             Row{"General Number", "General"},
             Row{"#,##0.00", "#,##0.00"},
             Row{"standard", "#,##0.00"},
             Row{"Currency", "\"$\"#,##0.00;\"($\"#,##0.00\")\""},
             Row{"0.00;;", "0.00;-0.00;0.00"},
             Row{";-0", "General"},
             Row{"Rs. 0.00", "\"Rs. \"0.00"},
             Row{"#,##", "#,###"},
             Row{"#,#.0", "#,###.0"},
             Row{"##,##,##0", "##,####0"},
             Row{"#,##0,", "#,##0,"},
             Row{"0.0,,", "0.0"},
             Row{"0.0%", "0.0%"},
             Row{"0.0E+00 m", "0.0E+00\" m\""},
             Row{"0 \\\"in", "0\" \"\\\"\"in\""},
             Row{"_0/[h]*", "\"_\"0\"/[h]*\""},
             Row{"\"Yes\";\"No\"", "\"Yes\";\"No\""});
}

TEST(XmlText, CarriesWhatXmlCannot) {
  const auto xml = [](std::string_view text) {
    std::string out;
    appendXmlText(out, text);
    return out;
  };
  expectEach(xml,
             Row{"a<b>&\"", "a&lt;b&gt;&amp;&quot;"},
             Row{"\x07\x1F", "_x0007__x001F_"},
             Row{"_x0007_", "_x005F_x0007_"},
             Row{"_x00G7_ _x1", "_x00G7_ _x1"},
             Row{"a\r\nb\rc\td", "a\nb\nc\td"},
             Row{"\xEF\xBF\xBE\xEF\xBF\xBD", "_xFFFE_\xEF\xBF\xBD"});
}

TEST(Columns, HaveLettersToTheLast) {
  expectEach(
      columnLetters, Row{0, "A"}, Row{25, "Z"}, Row{26, "AA"}, Row{702, "AAA"}, Row{16383, "XFD"});
}

}  // namespace
}  // namespace paperway::workbook
