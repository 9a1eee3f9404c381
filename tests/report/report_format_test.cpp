#include "report/report_format.h"

#include "support/expect_each.h"
#include "support/report_fixture.h"

namespace paperway {
namespace {

using Names = std::vector<std::string>;

/// A column with its required fields, one of them changed, and others added.
MemoryTable changed(const std::string& field, const Value& value, const Names& moreNames = {},
                    const std::vector<Value>& more = {}) {
  Names names = {"fNM",
                 "fHeder",
                 "Sz",
                 "Dtyp",
                 "Ali",
                 "Spc",
                 "Lt",
                 "GTot1",
                 "GTot2",
                 "Frmt",
                 "BoldGroup1",
                 "BoldGroup2",
                 "AllPageTot",
                 "FontNm"};
  std::vector<Value> row = {"item", "Item", std::int64_t{10}, "Text", "Left", "2", "Yes"};
  row.resize(names.size());
  names.insert(names.end(), moreNames.begin(), moreNames.end());
  row.insert(row.end(), more.begin(), more.end());
  const auto found = std::find(names.begin(), names.end(), field);
  if (found != names.end()) row[found - names.begin()] = value;
  return MemoryTable(names, {row});
}

std::vector<ColumnFormat> read(MemoryTable rows) {
  std::shared_ptr<ReportFormatTable> table;
  readReportFormat(rows, table);
  EXPECT_TRUE(rows.Eof());
  return table->records;
}

TEST(ReportFormat, NullsAndMissingFieldsTakeTheirDefaults) {
  const std::vector<ColumnFormat> columns = read(changed("", {}));
  ASSERT_EQ(columns.size(), 2u);  // one empty record behind the columns
  const ColumnFormat& c = columns[0];
  EXPECT_EQ(std::u32string({c.Dtyp, c.Ali, c.Lt, c.AllPageTot, c.BoldGroup1}), U"TLYN ");
  EXPECT_EQ(c.Spc, 2);
  EXPECT_EQ(c.FontNm, "Arial Narrow");
  EXPECT_EQ(c.DupPrintYN, "N");
  EXPECT_EQ(c.CellClass + c.GroupHeader + c.G_H_FontNm + c.GTot1 + c.Frmt, "");

  const std::vector<ColumnFormat> salary =
      read(changed("Dtyp",
                   "",
                   {"FONTSIZE", "groupheader", "G_H_FontNm", "G_H_fontsize", "dupprintyn"},
                   {std::monostate{}, std::monostate{}, "Arial", "7.5", std::monostate{}}));
  EXPECT_EQ(salary[0].Dtyp, U' ');
  EXPECT_EQ(salary[0].CellClass + salary[0].GroupHeader, "<Q>0");
  EXPECT_EQ(salary[0].G_H_FontNm + salary[0].DupPrintYN, "ArialN");
  EXPECT_EQ(salary[0].G_H_FontSize, 7.5);
}

TEST(ReportFormat, TheCountMarkerIsTakenOutOfTheGroupsName) {
  const auto group = [](const char* field) {
    const ColumnFormat column = read(changed("GTot1", field))[0];
    EXPECT_EQ(column.Group2Count, 0) << field;
    return column.GTot1 + (column.Group1Count == 1 ? ", counted" : "");
  };
  expectEach(group,
             Row{"customer", "customer"},
             Row{"Count+customer", "customer, counted"},
             Row{"COUNT+Customer", "Customer, counted"},
             Row{"count+cusCount+tomer", "customer, counted"},
             Row{"Count+", ", counted"},
             Row{"Count +customer", "Count +customer"});
}

using ReportFormatMessage = ReportTest;

TEST_F(ReportFormatMessage, TellsNumberFieldRowAndReason) {
  const std::tuple<const char*, Value, const char*, const char*> cases[] = {
      {"Sz", std::int64_t{40000}, " 6\r\n", "-32768 to 32767"},
      {"Spc", std::int64_t{-1}, " 6\r\n", "\"Spc\" of row 1"},
      {"Sz", "wide", " 13\r\n", "\"wide\", no number"},
      {"fNM", std::monostate{}, " 94\r\n", "\"fNM\" of row 1"}};
  for (const auto& [field, value, number, reason] : cases) {
    MemoryTable rows = changed(field, value);
    class1_.Set_Repot_Format(rows);
    const auto box = machine_.messageBox.shown.back();
    EXPECT_TRUE(box.text.starts_with(number)) << box.text;
    EXPECT_NE(box.text.find(reason), std::string::npos) << box.text;
    EXPECT_EQ(box.title, "");
    EXPECT_FALSE(class1_.formatIsWhole());
    EXPECT_NE(box.text.find(class1_.lastFailure()->description()), std::string::npos);
  }
  EXPECT_EQ(machine_.messageBox.shown.size(), std::size(cases));
}

TEST_F(ReportFormatMessage, AFailureBeforeTheFirstRowLeavesTheTableThatStoodThere) {
  setColumns({{"item", "Item", "4", "T", "L", "1", "N"}});
  EXPECT_TRUE(class1_.formatIsWhole());
  EXPECT_EQ(class1_.lastFailure(), nullptr);
  setColumns({});
  ASSERT_EQ(machine_.messageBox.shown.size(), 1u);
  EXPECT_EQ(machine_.messageBox.shown[0].text, " 3021\r\nThe column table has no rows.");
  MemoryTable rows({"item"}, {{"Pen"}});
  class1_.Text_Rpt({.Rs = rows, .TextFileName = file_, .MPLine = 60});
  EXPECT_NE(bytesOf(file_).find("\r\nPen  \r\n"), std::string::npos);
}

}  // namespace
}  // namespace paperway
