#include "support/column_table.h"
#include "web_fixture.h"

namespace paperway {
namespace {

/// An export's documents are printed on as many sheets as they have page heads.
class PageCount : public WebTest, public testing::WithParamInterface<std::tuple<int, const char*>> {
 protected:
  static MemoryTable rows(int groups) {
    MemoryTable table({"region", "customer", "item", "amount"});
    for (int i = 0; i < 170; ++i) {
      table.addRow({"Region " + std::to_string(groups > 1 ? i / 60 : 0),
                    "Customer " + std::to_string(groups > 0 ? i / 9 : 0),
                    "Item number " + std::to_string(i),
                    1000.5 * i});
    }
    return table;
  }

  void setColumns(int groups, bool salary) {
    Columns columns = {{"item", "Item", "20", "T", "L", "0", "N", "N"},
                       {"customer", "Customer", "15", "T", "L", "0", "N", "N"},
                       {"amount",
                        "Amount",
                        "15",
                        "N",
                        "R",
                        "0",
                        "Y",
                        "Y",
                        groups > 0 ? "customer" : "",
                        groups > 1 ? "region" : "",
                        "#,##0.00"}};
    std::vector<std::string> more;
    if (salary) {
      more = {"FontSize", "GroupHeader", "G_H_FontNm", "G_H_FontSize"};
      for (auto& column : columns) {
        column.resize(kColumnFields.size());
        column.insert(column.end(), {"0", "", "", "0"});
      }
    }
    MemoryTable format = columnTable(columns, more);
    class1_.Set_Repot_Format(format);
  }

  void expectSheets(const std::string& document, const std::string& orientation,
                    const std::string& about) {
    const std::string text = printed(document, orientation == "L");
    const std::size_t heads = count(bytesOf(document), "page-break-after") + 1;
    EXPECT_GT(heads, 2u);
    EXPECT_EQ(count(text, "\f"), heads) << about;
    EXPECT_EQ(count(text, "Item number "), 170u) << about;
  }
};

TEST_P(PageCount, IsThatOfThePageHeads) {
  const auto& [textSize, orientation] = GetParam();
  machine_.pageSetup.kept.textSize = static_cast<std::uint8_t>(textSize);
  machine_.printers.infos = {{"Laser", "", false}};
  for (const int groups : {0, 1, 2}) {
    setColumns(groups, false);
    MemoryTable data = rows(groups);
    HtmlExportArguments table{.Rs = data,
                              .HTML_FileName = path("table.html"),
                              .Tital1 = "Sales",
                              .Srno = 1,
                              .CenterHeder1Right2 = 1,
                              .PortraitLansscape = orientation};
    class1_.HTML_Export(table);
    expectSheets(
        table.HTML_FileName, table.PortraitLansscape, "table, groups " + std::to_string(groups));
    setColumns(groups, true);
    MemoryTable people = rows(groups);
    HtmlExportSalaryArguments salary{.Rs = people,
                                     .HTML_FileName = path("salary.html"),
                                     .Tital1 = "Salaries",
                                     .Srno = 1,
                                     .CenterHeder1Right2 = 1,
                                     .PortraitLansscape = orientation};
    class1_.HTML_Export_Salary(salary);
    expectSheets(
        salary.HTML_FileName, salary.PortraitLansscape, "salary, groups " + std::to_string(groups));
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, PageCount,
                         testing::Combine(testing::Values(0, 1, 2), testing::Values("P", "L")));

}  // namespace
}  // namespace paperway
