#include <string>

#include "backends/data/memory/csv_table.h"
#include "backends/headless/headless.h"
#include "facade/class1.h"
#include "odbc_fixture.h"
#include "util/output_file.h"

namespace paperway {
namespace {

std::string reportOf(Recordset& rows) {
  const TestFolder folder;
  headless::Headless machine(folder.path);
  Class1 report(machine.platform());
  MemoryTable columns =
      readCsvFile(std::string(PAPERWAY_SOURCE_DIR) + "/examples/ledger/columns.csv");
  report.Set_Repot_Format(columns);
  report.Text_Rpt({.Rs = rows,
                   .TextFileName = (folder.path / "ledger.txt").string(),
                   .Tital1 = "Sales ledger",
                   .MPLine = 40,
                   .Srno = 1,
                   .C_80_96_136 = 136});
  return readFile(folder.path / "ledger.txt", "test");
}

// Vouchers of one to four lines, of 24 customers in 3 regions; some cells null.
std::string salesOf(int vouchers) {
  std::string values;
  for (int i = 0; i < vouchers; ++i) {
    const std::string number = std::to_string(i);
    const std::string date = "'2026-0" + std::to_string(1 + i % 9) + "-15'";
    for (int line = 0; line <= i % 4; ++line) {
      const std::string amount = std::to_string(i * (line + 1)) + ".1";
      values +=
          std::string(values.empty() ? "" : ", ") + "('Région " + std::to_string(i * 3 / vouchers) +
          "', 'Customer " + std::to_string(10 + i * 24 / vouchers) + "', 'V" + number + "', " +
          (i % 11 == 0 ? "NULL" : date) + ", 'Café €" + number + "', " + std::to_string(i % 50) +
          ", " + number + ".25, " + (i % 13 == 0 ? "NULL" : amount) + ")";
    }
  }
  return values;
}

TEST(OdbcReport, IsTheSameFromEveryDatabase) {
  const TwoDatabases databases;
  const std::string table = ownName("sales");
  databases.runOnBoth("CREATE TABLE " + table +
                      "(region VARCHAR(30), customer TEXT, voucher TEXT, date DATE, item TEXT,"
                      " quantity INTEGER, rate NUMERIC(12,2), amount NUMERIC(12,2))");
  databases.runOnBoth("INSERT INTO " + table + " VALUES " + salesOf(600));
  std::string expected;
  for (const Way& way : kWays) {
    const auto rows = way.open(
        databases, "SELECT * FROM " + table + " ORDER BY region, customer, voucher, rate, amount");
    const std::string report = reportOf(*rows);
    if (expected.empty()) expected = report;
    EXPECT_GT(report.size(), 100'000U) << way.name;
    EXPECT_TRUE(report == expected) << way.name;
  }
}

}  // namespace
}  // namespace paperway
