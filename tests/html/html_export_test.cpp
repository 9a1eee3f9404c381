#include "html/html_export.h"

#include "support/expect_each.h"
#include "support/table_fixture.h"

namespace paperway {
namespace {

using HtmlExportTest = TableTest;

const Columns kColumns = {
    {"item", "Item", "8", "T", "L", "0", "N", "N", "", "", "", "", "", "Y", "item", "Courier New"},
    {"date", "Date", "11", "D", "L", "0", "N", "N", "", "", "dd-mmm-yyyy"},
    {"qty", "Qty", "6", "N", "L", "0", "Y", "N", "customer", "region", "0", "", "", "N", "", "F"},
    {"customer", "By", "3", "T", "R", "0", "N", "N", "", "", "", "", "", "N", "", "Inner"},
    {"region", "X", "4", "X", "R", "0", "N", "N", "", "", "", "", "", "Y", "", "Outer"},
    {"amount",
     "Amount",
     "10",
     "N",
     "R",
     "0",
     "Y",
     "Y",
     "customer",
     "region",
     "#,##0.00",
     "",
     "",
     "N",
     "",
     "G"}};

MemoryTable sales() {
  MemoryTable rows({"region", "customer", "item", "date", "qty", "amount"});
  const auto add = [&](const char* region,
                       const char* customer,
                       const char* item,
                       int day,
                       std::int64_t qty,
                       Value amount) {
    rows.addRow(
        {region, customer, item, Date{2026, 3, static_cast<std::uint8_t>(day)}, qty, amount});
  };
  add("North", "Adam", "A long item", 1, 2, 10.5);
  add("NORTH", "Adam", "A long item", 2, 3, 1000.25);
  add("North", "Bob", "\xE2\x82\xB9 a<b", 3, 4, Value());
  add("South", "Bob", "Caf\xC3\xA9", 4, 5, 7.0);
  return rows;
}

TEST_F(HtmlExportTest, WritesPagesOfTables) {
  MemoryTable rows = sales();
  EXPECT_EQ(table(kColumns,
                  {.Rs = rows,
                   .Tital1 = "Sales",
                   .Tital3 = "\xE2\x82\xB9 2026",
                   .Srno = 1,
                   .CenterHeder1Right2 = 1,
                   .TFontNM1 = "Arial"}),
            golden("table.html"));
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(machine_.pageSetup.kept.footer, "&b Page &p of &P");
}

}  // namespace
}  // namespace paperway
