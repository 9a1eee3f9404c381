#include "backends/data/memory/csv_table.h"

#include "support/error_of.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

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
  expectEach(flat, Row{"a,b\n1,2\n", "a|b/1|2"}, Row{"a,b\r\n1,2\r\n3,4", "a|b/1|2/3|4"},
             Row{"\uFEFFa\nx\n", "a/x"}, Row{"a,b\n,\n1,\n", "a|b/-|-/1|-"},
             Row{"a,b\n\"\",2\n", "a|b/|2"},
             Row{"a,b\n\"x,\"\"y\"\"\r\nz\",2\n", "a|b/x,\"y\"\r\nz|2"},
             Row{" a ,b\n x ,y\n", "a|b/ x |y"}, Row{"\n\r\na,b\n\n1,2\r\n\n", "a|b/1|2"},
             Row{"Betrag,Größe\n1,\xE2\x82\xB9\n", "Betrag|Größe/1|₹"}, Row{"a,b", "a|b"},
             Row{"a\nx\ry\n", "a/x\ry"});
}

TEST(CsvTable, NamesFileLineAndReason) {
  const auto error = [](const char* csv) {
    const std::string whole = errorOf([&] { parseCsv(csv, "f.csv"); });
    EXPECT_TRUE(whole.starts_with("\"f.csv\", line ")) << whole;
    return whole.substr(14);
  };
  expectEach(error, Row{"", "1: the line that names the columns is missing."},
             Row{"\n\n", "3: the line that names the columns is missing."},
             Row{"a,b\n1\n", "2: 1 cell for 2 columns."},
             Row{"a,b\n\n\"x\ny\",2\n1,2,3\n", "5: 3 cells for 2 columns."},
             Row{"a\n\"x\nyy", "2: a quoted cell that does not end."},
             Row{"a\nx\"y\"\n", "2: a quote within a cell that does not begin with one."},
             Row{"a\n\"x\ny\"z\n", "3: text behind a quoted cell."},
             Row{"a\nb\n\xE9\n", "3: text that is not UTF-8."},
             Row{"a,,c\n", "1: column 2 has no name."},
             Row{"Amount,b,AMOUNT\n", "1: two columns have the name \"AMOUNT\"."});
  EXPECT_EQ(errorOf([] { readCsvFile("/nowhere/f.csv"); }),
            "Cannot read \"/nowhere/f.csv\": No such file or directory.");
}

}  // namespace
}  // namespace paperway
