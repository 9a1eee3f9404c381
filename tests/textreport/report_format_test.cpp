#include "textreport/report_format.h"

#include <gtest/gtest.h>

#include "textreport/report_fixture.h"

namespace paperway {
namespace {

using Names = std::vector<std::string>;
const Names kRequired = {"fNM",        "fHeder",     "Sz",         "Dtyp",  "Ali",
                         "Spc",        "Lt",         "GTot1",      "GTot2", "Frmt",
                         "BoldGroup1", "BoldGroup2", "AllPageTot", "FontNm"};
const std::vector<Value> kRow = {"item",
                                 "Item",
                                 std::int64_t{10},
                                 "Text",
                                 "Left",
                                 "2",
                                 "Yes",
                                 std::monostate{},
                                 std::monostate{},
                                 std::monostate{},
                                 std::monostate{},
                                 std::monostate{},
                                 std::monostate{},
                                 std::monostate{}};

/// The required fields in one row, with one of them changed and others added.
MemoryTable table(const std::string& changed, const Value& value, Names moreNames = {},
                  const std::vector<Value>& more = {}) {
  Names names = kRequired;
  std::vector<Value> row = kRow;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] == changed) row[i] = value;
  }
  names.insert(names.end(), moreNames.begin(), moreNames.end());
  row.insert(row.end(), more.begin(), more.end());
  return MemoryTable(names, {row});
}

ReportFormatTable read(MemoryTable rows) {
  ReportFormatTable columns;
  readReportFormat(rows, columns);
  EXPECT_TRUE(rows.Eof());
  return columns;
}

TEST(ReportFormat, NullsAndMissingFieldsTakeTheirDefaults) {
  const ReportFormatTable columns = read(table("", {}));
  ASSERT_EQ(columns.size(), 2u);  // one empty record behind the columns
  const ColumnFormat& c = columns[0];
  EXPECT_EQ(c.Dtyp, U'T');
  EXPECT_EQ(c.Ali, U'L');
  EXPECT_EQ(c.Lt, U'Y');
  EXPECT_EQ(c.Spc, 2);
  EXPECT_EQ(c.AllPageTot, U'N');
  EXPECT_EQ(c.BoldGroup1, U' ');
  EXPECT_EQ(c.FontNm, "<font face='Arial Narrow'>");
  EXPECT_EQ(c.DupPrintYN, "N");
  EXPECT_EQ(c.CellClass + c.GroupHeader + c.G_H_FontNm + c.GTot1 + c.Frmt, "");

  const ReportFormatTable salary = read(
      table("Dtyp", "", {"FONTSIZE", "groupheader", "G_H_FontNm", "G_H_fontsize", "dupprintyn"},
            {std::monostate{}, std::monostate{}, "Arial", "7.5", std::monostate{}}));
  EXPECT_EQ(salary[0].Dtyp, U' ');
  EXPECT_EQ(salary[0].CellClass, "<Q>");
  EXPECT_EQ(salary[0].GroupHeader, "0");
  EXPECT_EQ(salary[0].G_H_FontNm, "Arial");
  EXPECT_EQ(salary[0].G_H_FontSize, 7.5);
  EXPECT_EQ(salary[0].DupPrintYN, "N");
}

TEST(ReportFormat, TheCountMarkerIsTakenOutOfTheGroupsName) {
  const struct {
    const char* field;
    const char* group;
    int counts;
  } cases[] = {{"customer", "customer", 0},
               {"Count+customer", "customer", 1},
               {"COUNT+Customer", "Customer", 1},
               {"count+cusCount+tomer", "customer", 1},
               {"Count+", "", 1},
               {"Count +customer", "Count +customer", 0}};
  for (const auto& c : cases) {
    const ColumnFormat column = read(table("GTot1", c.field))[0];
    EXPECT_EQ(column.GTot1, c.group) << c.field;
    EXPECT_EQ(column.Group1Count, c.counts) << c.field;
    EXPECT_EQ(column.Group2Count, 0) << c.field;
  }
}

class ReportFormatMessage : public ReportTest {};

TEST_F(ReportFormatMessage, TellsNumberFieldRowAndReason) {
  const struct {
    const char* field;
    Value value;
    const char* number;
    const char* reason;
  } cases[] = {
      {"Sz", std::int64_t{40000}, " 6\r\n", "-32768 to 32767"},
      {"Spc", std::int64_t{-1}, " 6\r\n", "\"Spc\" of row 1"},
      {"Sz", "wide", " 13\r\n", "\"wide\", no number"},
      {"fNM", std::monostate{}, " 94\r\n", "\"fNM\" of row 1"},
  };
  for (const auto& c : cases) {
    MemoryTable rows = table(c.field, c.value);
    machine_.messageBox.shown.clear();
    class1_.Set_Repot_Format(rows);
    ASSERT_EQ(machine_.messageBox.shown.size(), 1u) << c.field;
    const auto& box = machine_.messageBox.shown[0];
    EXPECT_TRUE(box.text.starts_with(c.number)) << box.text;
    EXPECT_NE(box.text.find(c.reason), std::string::npos) << box.text;
    EXPECT_EQ(box.title, "");
  }
}

TEST_F(ReportFormatMessage, AFailureBeforeTheFirstRowLeavesTheTableThatStoodThere) {
  MemoryTable good = columnTable({{"item", "Item", "4", "T", "L", "1", "N"}});
  class1_.Set_Repot_Format(good);
  MemoryTable empty(kRequired);
  class1_.Set_Repot_Format(empty);
  ASSERT_EQ(machine_.messageBox.shown.size(), 1u);
  EXPECT_EQ(machine_.messageBox.shown[0].text, " 3021\r\nThe column table has no rows.");
  MemoryTable rows({"item"}, {{"Pen"}});
  class1_.Text_Rpt({.Rs = rows, .TextFileName = file("out.txt"), .MPLine = 60});
  EXPECT_NE(bytesOf(file("out.txt")).find("\r\nPen  \r\n"), std::string::npos);
}

}  // namespace
}  // namespace paperway
