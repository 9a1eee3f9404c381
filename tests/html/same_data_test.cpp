#include <random>

#include "support/table_fixture.h"
#include "util/text.h"

namespace paperway {
namespace {

/// Texts of the cells of a row, without tags and what stands beside them.
using Cells = std::vector<std::string>;

/// What one document says of its data: rows, totals of groups, the grand total, carried totals; a
/// carried total at the number of rows above it.
struct Said {
  std::vector<Cells> rows, inner, outer, grand;
  std::vector<std::pair<std::size_t, std::string>> carried;

  bool operator==(const Said&) const = default;
};

std::string plain(std::string text) {
  for (std::size_t at; (at = text.find('<')) != text.npos;) {
    text.erase(at, text.find('>', at) - at + 1);
  }
  replaceAll(text, "&nbsp;", " ");
  replaceAll(text, "&nbsp", " ");
  replaceAll(text, "\r\n", "");
  return std::string(trimBlanks(text));
}

/// The rows of a table: the kinds of them are told by their cells. The first column of the rows
/// holds "row", that of totals what the patterns of the columns put there.
class TableReader {
 public:
  explicit TableReader(const std::string& bytes) : bytes_(bytes) {
    for (std::size_t at = 0; (at = bytes.find("<tr", at)) != bytes.npos;) {
      std::size_t end = bytes.find("<tr", at + 1);
      end = std::min({end, bytes.find("</tr>", at), bytes.find("<p style", at)});
      read(bytes.substr(at, end - at));
      at = end;
      if (at == bytes.npos) break;
    }
  }

  Said said;

 private:
  void read(const std::string& row) {
    Cells cells;
    for (std::size_t at = 0; (at = row.find("<td", at)) != row.npos;) {
      std::size_t next = std::min(row.find("<td", at + 1), row.size());
      cells.push_back(plain(row.substr(at, next - at)));
      at = next;
    }
    if (cells.size() < 4) return;
    take(cells);
  }

  void take(Cells cells) {
    if (cells[0] == "row") return said.rows.push_back(cells);
    const std::string first = std::exchange(cells[0], "");
    if (first == "H0") return;
    if (first.starts_with("I")) return said.inner.push_back({first, cells[2], cells[3]});
    if (first.starts_with("O")) return said.outer.push_back({first, cells[2], cells[3]});
    if (!cells[2].empty()) return said.grand.push_back({cells[2], cells[3]});
    said.carried.emplace_back(said.rows.size(), cells[3]);
  }

  const std::string& bytes_;
};

/// The lines of a text report whose columns stand ten characters apart.
Said readText(const std::string& bytes) {
  Said said;
  std::size_t begin = 0;
  for (std::size_t end; (end = bytes.find("\r\n", begin)) != bytes.npos; begin = end + 2) {
    const std::string line = bytes.substr(begin, end - begin);
    const bool isRule = line.find("--") != line.npos || line.find("==") != line.npos;
    if (line.size() != 80 || isRule || line.find('\x1B') != line.npos) continue;
    Cells cells;
    for (std::size_t at = 0; at < 80; at += 20) {
      cells.emplace_back(trimBlanks(std::string_view(line).substr(at, 20)));
    }
    if (cells[0] == "row") {
      said.rows.push_back(cells);
    } else if (cells[0].starts_with("I")) {
      said.inner.push_back({cells[0], cells[2], cells[3]});
    } else if (cells[0].starts_with("O")) {
      said.outer.push_back({cells[0], cells[2], cells[3]});
    } else if (!cells[2].empty()) {
      said.grand.push_back({cells[2], cells[3]});
    } else if (!cells[3].empty()) {
      said.carried.emplace_back(said.rows.size(), cells[3]);
    }
  }
  return said;
}

class SameDataTest : public TableTest {
 protected:
  int below(int end) { return std::uniform_int_distribution(0, end - 1)(random_); }

  void makeRows() {
    rows_ = MemoryTable({"row", "inner", "outer", "n", "m"});
    sums_.assign(1, 0);
    int inner = 0, outer = 0;
    for (int row = below(80); row > 0; --row) {
      if (rows_.RecordCount() == 0 || below(6) == 0) ++inner;
      if (rows_.RecordCount() == 0 || below(20) == 0) ++outer;
      const std::int64_t n = below(2000) - 1000;
      const std::int64_t m = below(2000) - 1000;
      rows_.addRow({"row", "i" + std::to_string(inner), "o" + std::to_string(outer), n, m});
      sums_.push_back(sums_.back() + m);
    }
  }

  void expectCarried(const Said& said) {
    for (const auto& [row, text] : said.carried) {
      EXPECT_EQ(text, std::to_string(sums_[row])) << "behind row " << row;
    }
  }

  std::mt19937 random_{20260305};
  MemoryTable rows_{{"row"}};
  std::vector<std::int64_t> sums_;  // of "m", behind each row
};

/// The first column shows which total a line is: its pattern counts the rows of a group, and the
/// groups of one level are wanted in one run.
Columns columnsFor(const std::string& first, const std::string& inner, const std::string& outer) {
  return {{"row",
           "H0",
           "20",
           "T",
           "L",
           "0",
           "N",
           "N",
           inner.empty() ? "" : "Count+inner",
           outer.empty() ? "" : "Count+outer",
           first},
          {"inner", "H1", "20", "T", "L", "0", "N", "N"},
          {"n", "H2", "20", "N", "R", "0", "Y", "N", inner, outer, "0"},
          {"m", "H3", "20", "N", "R", "0", "Y", "Y", inner, outer, "0"}};
}

TEST_F(SameDataTest, TextTablesAndSalarySheetSayTheSame) {
  struct Groups {
    const char *pattern, *inner, *outer;
  };
  for (int run = 0; run < 60; ++run) {
    makeRows();
    for (const Groups& groups :
         {Groups{"", "", ""}, Groups{"\"I\"0", "inner", ""}, Groups{"\"O\"0", "", "outer"}}) {
      const Columns columns = columnsFor(groups.pattern, groups.inner, groups.outer);
      rows_.MoveFirst();
      Said text = readText(report(columns, {.Rs = rows_, .MPLine = 20}));
      if (rows_.RecordCount() == 0) text.inner.clear();  // that a report without rows closes
      rows_.MoveFirst();
      Said html = TableReader(table(columns, {.Rs = rows_})).said;
      rows_.MoveFirst();
      Columns styled = columns;
      for (auto& column : styled) {
        column.resize(kColumnFields.size());
        column.insert(column.end(), {"9", "", "", "0"});
      }
      Said sheet = TableReader(salary(styled, {.Rs = rows_})).said;
      for (Said* said : {&text, &html, &sheet}) {
        expectCarried(*said);
        said->carried.clear();  // pages end elsewhere
      }
      EXPECT_EQ(text.rows, html.rows);
      EXPECT_EQ(text.inner, html.inner);
      EXPECT_EQ(text.outer, html.outer);
      EXPECT_EQ(text.grand, html.grand);
      EXPECT_EQ(html, sheet);
      EXPECT_EQ(html.rows.size(), static_cast<std::size_t>(rows_.RecordCount()));
      EXPECT_EQ(html.grand.size(), 1U);
      if (HasFailure()) return;
    }
  }
}

}  // namespace
}  // namespace paperway
