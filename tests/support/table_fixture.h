#pragma once

#include <string>
#include <vector>

#include "support/report_fixture.h"

namespace paperway {

/// Exports of tables on A4 with margins that leave 3158 twips of an upright page, which are ten
/// rows of text size 2.
class TableTest : public ReportTest {
 protected:
  TableTest() {
    machine_.pageSetup.kept.marginTop = 5;
    machine_.pageSetup.kept.marginBottom = 4;
  }

  /// The document of HTML_Export, as its bytes.
  std::string table(const Columns& columns, HtmlExportArguments arguments) {
    setColumns(columns);
    arguments.HTML_FileName = html_;
    class1_.HTML_Export(arguments);
    orientation_ = arguments.PortraitLansscape;
    return bytesOf(html_);
  }

  /// The document of HTML_Export_Salary, as its bytes. The columns have its own fields, too.
  std::string salary(const Columns& columns, HtmlExportSalaryArguments arguments) {
    MemoryTable format =
        columnTable(columns, {"FontSize", "GroupHeader", "G_H_FontNm", "G_H_FontSize"});
    class1_.Set_Repot_Format(format);
    arguments.HTML_FileName = html_;
    class1_.HTML_Export_Salary(arguments);
    orientation_ = arguments.PortraitLansscape;
    return bytesOf(html_);
  }

  /// What stands in a document from the first `begin` to the `end` behind it, without them.
  static std::string between(const std::string& bytes, const std::string& begin,
                             const std::string& end) {
    const std::size_t at = bytes.find(begin);
    if (at == bytes.npos) return "none";
    const std::size_t first = at + begin.size();
    return bytes.substr(first, bytes.find(end, first) - first);
  }

  static std::size_t count(const std::string& bytes, const std::string& part) {
    std::size_t found = 0;
    for (std::size_t at = 0; (at = bytes.find(part, at)) != bytes.npos; ++at) ++found;
    return found;
  }

  const std::string html_ = path("table.html");
  std::string orientation_;
};

}  // namespace paperway
