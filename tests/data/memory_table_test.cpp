#include "paperway/headless.h"
#include "paperway/memory.h"
#include "support/error_of.h"
#include "support/expect_each.h"
#include "support/shown.h"

namespace paperway {
namespace {

constexpr char kNoRow[] = "The recordset has no current row.";

TEST(MemoryTable, GivesBackEveryKindOfValueAndWalksLikeAnyRecordset) {
  MemoryTable table({"Name", "Qty", "Rate", "On"},
                    {{"Asha", 3, 2.5, Date{2026, 3, 5}}, {{}, {}, {}, {}}, {"", -1, 0.0, Date{}}});
  std::string cells;
  for (; !table.Eof(); table.MoveNext()) {
    for (std::size_t i = 0; i < table.fieldCount(); ++i) cells += shown(table.value(i)) + ", ";
  }
  EXPECT_EQ(cells, "t Asha, i 3, r 2.5, d 3/5/2026, - , - , - , - , t , i -1, r 0, d 12/30/1899, ");
  EXPECT_EQ(errorOf([&] { table.MoveNext(); }), kNoRow);
  EXPECT_EQ(errorOf([&] { table.value(0); }), kNoRow);
  table.MoveLast();
  EXPECT_EQ(table.value(1).integer(), -1);
  EXPECT_EQ(table.RecordCount(), 3);
  table.MoveFirst();
  EXPECT_EQ(table.Fields().Item("NAME").Value().text(), "Asha");
  EXPECT_EQ(errorOf([&] { table.Fields().Item("Nmae"); }),
            "There is no field \"Nmae\"; the fields are Name, Qty, Rate, On.");
}

TEST(MemoryTable, AnEmptyOneIsAtItsEnd) {
  MemoryTable table({"Name"});
  table.MoveFirst();
  EXPECT_TRUE(table.Eof());
  EXPECT_EQ(table.RecordCount(), 0);
  EXPECT_EQ(errorOf([&] { table.MoveLast(); }), kNoRow);
  const std::vector<Value> row = {"a", "b"};
  EXPECT_EQ(errorOf([&] { table.addRow(row); }),
            "A row of 2 values does not fit a table of 1 fields.");
}

TEST(MemoryTable, TextsStayWhereTheyAreWhileRowsAreAdded) {
  MemoryTable table({"Short", "Long"});
  const std::string longText(100'000, 'x');
  table.addRow({"first", longText});
  const std::string_view first = table.value(0).text();
  for (int i = 0; i < 20'000; ++i) table.addRow({"filler text", i});
  MemoryTable moved = std::move(table);
  EXPECT_EQ(first, "first");
  EXPECT_EQ(moved.value(0).text().data(), first.data());
  EXPECT_EQ(moved.value(1).text(), longText);
}

// "a|b/c|-": cells by bar, rows by slash, the names first, a null as "-".
std::string flat(const char* csv) {
  MemoryTable table = parseCsv(csv, "f.csv");
  std::string result;
  for (std::size_t i = 0; i < table.fieldCount(); ++i) {
    result += (i > 0 ? "|" : "") + std::string(table.fieldName(i));
  }
  for (; !table.Eof(); table.MoveNext()) {
    for (std::size_t i = 0; i < table.fieldCount(); ++i) {
      const ValueView value = table.value(i);
      result += (i > 0 ? "|" : "/") + (value.isNull() ? "-" : std::string(value.text()));
    }
  }
  return result;
}

TEST(CsvTable, Reads) {
  expectEach(flat,
             Row{"a,b\n1,2\n", "a|b/1|2"},
             Row{"a,b\r\n1,2\r\n3,4", "a|b/1|2/3|4"},
             Row{"\uFEFFa\nx\n", "a/x"},
             Row{"a,b\n,\n1,\n", "a|b/-|-/1|-"},
             Row{"a,b\n\"\",2\n", "a|b/|2"},
             Row{"a,b\n\"x,\"\"y\"\"\r\nz\",2\n", "a|b/x,\"y\"\r\nz|2"},
             Row{" a ,b\n x ,y\n", "a|b/ x |y"},
             Row{"\n\r\na,b\n\n1,2\r\n\n", "a|b/1|2"},
             Row{"Betrag,Größe\n1,\xE2\x82\xB9\n", "Betrag|Größe/1|₹"},
             Row{"a,b", "a|b"},
             Row{"a\nx\ry\n", "a/x\ry"});
}

TEST(CsvTable, NamesFileLineAndReason) {
  const auto error = [](const char* csv) {
    const std::string whole = errorOf([&] { parseCsv(csv, "f.csv"); });
    EXPECT_TRUE(whole.starts_with("\"f.csv\", line ")) << whole;
    return whole.substr(14);
  };
  expectEach(error,
             Row{"", "1: the line that names the columns is missing."},
             Row{"\n\n", "3: the line that names the columns is missing."},
             Row{"a,b\n1\n", "2: 1 cell for 2 columns."},
             Row{"a,b\n\n\"x\ny\",2\n1,2,3\n", "5: 3 cells for 2 columns."},
             Row{"a\n\"x\nyy", "2: a quoted cell that does not end."},
             Row{"a\nx\"y\"\n", "2: a quote within a cell that does not begin with one."},
             Row{"a\n\"x\ny\"z\n", "3: text behind a quoted cell."},
             Row{"a\nb\n\xE9\n", "3: text that is not UTF-8."},
             Row{"a,,c\n", "1: column 2 has no name."},
             Row{"Amount,b,AMOUNT\n", "1: two columns have the name \"AMOUNT\"."});
  EXPECT_EQ(errorOf([] {
              headless::Storage storage;
              readCsvFile(storage, "/nowhere/f.csv");
            }),
            "Cannot read \"/nowhere/f.csv\": No such file or directory.");
}

}  // namespace
}  // namespace paperway
