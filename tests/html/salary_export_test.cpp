#include "html/salary_export.h"

#include "support/expect_each.h"
#include "support/table_fixture.h"

namespace paperway {
namespace {

using SalaryExportTest = TableTest;

const Columns kColumns = {{"name",
                           "Na<me",
                           "6",
                           "T",
                           "L",
                           "0",
                           "N",
                           "N",
                           "",
                           "",
                           "",
                           "",
                           "",
                           "Y",
                           "name",
                           "Courier New",
                           "9",
                           ">Person",
                           "<font face='Cap'>",
                           "8.5"},
                          {"joined",    "Joined", "9", "D", "L", "0", "N", "N",       "", "",
                           "dd-mmm-yy", "",       "",  "N", "",  "F", "0", ">Person", "", "7"},
                          {"unit", "Unit", "0", "T", "L", "0",     "N", "N",  "", "",
                           "",     "",     "",  "N", "",  "Inner", "0", "no", "", "0"},
                          {"basic",    "Basic", "8", "N", "R", "0", "Y",  "Y",   "unit", "site",
                           "#,##0.00", "",      "",  "N", "",  "F", "10", "Pay", "",     "0"},
                          {"extra", "Ex", "6", "N", "L", "0", "Y",  "Y",   "unit", "site",
                           "0",     "",   "",  "N", "",  "F", "10", "Pay", "",     "0"},
                          {"site", "Site", "4", "T", "R", "0",       "N",  "N", "", "",
                           "",     "",     "",  "N", "",  "unicode", "10", "",  "", "0"}};

MemoryTable people() {
  MemoryTable rows({"site", "unit", "name", "joined", "basic", "extra"});
  const auto add = [&](const char* site,
                       const char* unit,
                       const char* name,
                       int year,
                       double basic,
                       std::int64_t extra) {
    rows.addRow({site, unit, name, Date{static_cast<std::int16_t>(year), 3, 5}, basic, extra});
  };
  add("Pune", "Mill", "A <b> \"c\"", 2001, 10000.5, 5);
  add("Pune", "Mill", "A <b> \"c\"", 2002, 2000, 6);
  add("Pune", "Shop", "Ren\xC3\xA9", 2003, 300, 7);
  add("Agra", "Shop", "\xE2\x82\xB9", 2004, 4, 8);
  return rows;
}

TEST_F(SalaryExportTest, WritesPagesWithAStyleSheet) {
  MemoryTable rows = people();
  EXPECT_EQ(salary(kColumns,
                   {.Rs = rows,
                    .Tital1 = "Salaries^",
                    .Tital2 = "\xE2\x82\xB9 <2026>",
                    .Srno = 9,
                    .SrNo_FontName = "Arial",
                    .SrNo_FontSZ = 7.5,
                    .TFontNM1 = "Big",
                    .ChrWidth = 6.3F,
                    .Space_Numeric = "&nbsp;",
                    .Tital_FontSize = 14,
                    .Top_margin = 1,
                    .Left_margin = 2,
                    .DoubleLine_LastTotal = 1,
                    .FixRow_Height = 20}),
            golden("salary.html"));
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(machine_.pageSetup.kept.footer, "&b Page &p of &P");
}

}  // namespace
}  // namespace paperway
