#include "backends/data/memory/csv_table.h"

#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/table.h"

namespace paperway {
namespace {

// "a|b/c|-": cells by bar, rows by slash, the names first, a null as "-".
std::string flat(MemoryTable table) {
  std::string result;
  for (std::size_t i = 0; i < table.fieldCount(); ++i) {
    if (i > 0) result += '|';
    result += table.fieldName(i);
  }
  for (; !table.Eof(); table.MoveNext()) {
    result += '/';
    for (std::size_t i = 0; i < table.fieldCount(); ++i) {
      if (i > 0) result += '|';
      result += table.value(i).isNull() ? "-" : table.value(i).text();
    }
  }
  return result;
}

TEST(CsvTable, Reads) {
  using Row = std::tuple<const char*, const char*, const char*>;
  const auto cases = table(
      Row{"line feeds", "a,b\n1,2\n", "a|b/1|2"},
      Row{"carriage returns, no end of the last line", "a,b\r\n1,2\r\n3,4", "a|b/1|2/3|4"},
      Row{"a byte order mark", "\uFEFFa\nx\n", "a/x"},
      Row{"an empty cell is null", "a,b\n,\n1,\n", "a|b/-|-/1|-"},
      Row{"an empty quoted cell is not", "a,b\n\"\",2\n", "a|b/|2"},
      Row{"commas, quotes and line ends in quotes", "a,b\n\"x,\"\"y\"\"\r\nz\",2\n",
          "a|b/x,\"y\"\r\nz|2"},
      Row{"blanks are kept in cells, not in names", " a ,b\n x ,y\n", "a|b/ x |y"},
      Row{"empty lines do not count", "\n\r\na,b\n\n1,2\r\n\n", "a|b/1|2"},
      Row{"letters beyond ASCII", "Betrag,Größe\n1,\xE2\x82\xB9\n", "Betrag|Größe/1|₹"},
      Row{"no rows", "a,b", "a|b"}, Row{"a carriage return alone is text", "a\nx\ry\n", "a/x\ry"});
  for (const auto& [name, text, expected] : cases)
    EXPECT_EQ(flat(parseCsv(text, "f.csv")), expected) << name;
}

TEST(CsvTable, NamesFileLineAndReason) {
  using Row = std::pair<const char*, const char*>;
  const auto cases =
      table(Row{"", "line 1: the line that names the columns is missing."},
            Row{"\n\n", "line 3: the line that names the columns is missing."},
            Row{"a,b\n1\n", "line 2: 1 cell for 2 columns."},
            Row{"a,b\n\n\"x\ny\",2\n1,2,3\n", "line 5: 3 cells for 2 columns."},
            Row{"a\n\"x\nyy", "line 2: a quoted cell that does not end."},
            Row{"a\nx\"y\"\n", "line 2: a quote within a cell that does not begin with one."},
            Row{"a\n\"x\ny\"z\n", "line 3: text behind a quoted cell."},
            Row{"a\nb\n\xE9\n", "line 3: text that is not UTF-8."},
            Row{"a,,c\n", "line 1: column 2 has no name."},
            Row{"Amount,b,AMOUNT\n", "line 1: two columns have the name \"AMOUNT\"."});
  for (const auto& [text, message] : cases) {
    EXPECT_EQ(errorOf([csv = text] { parseCsv(csv, "f.csv"); }),
              std::string("\"f.csv\", ") + message)
        << text;
  }
  EXPECT_EQ(errorOf([] { readCsvFile("/nowhere/f.csv"); }),
            "Cannot read \"/nowhere/f.csv\": No such file or directory.");
}

}  // namespace
}  // namespace paperway
