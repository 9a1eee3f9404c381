#include "excel/report_table.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <random>

#include "support/error_of.h"
#include "support/files.h"
#include "support/report_fixture.h"
#include "util/format_pattern.h"
#include "util/text.h"

namespace paperway {
namespace {

class ReportTableTest : public ReportTest {
 protected:
  FoundReport found() { return findColumns(machine_.platform().storage, file_, "test"); }

  /// The table of the report as comma-separated values, its line ends as LF.
  std::string csv(bool totals = false) {
    const FoundReport report = found();
    writeReportCsv({.report = file_, .out = path("out.csv"), .totals = totals, .caller = "test"},
                   report,
                   machine_.platform().storage);
    return readable(bytesOf(path("out.csv")));
  }

  std::string csvOf(const std::string& text, bool totals = false) {
    replaceFile(file_, text);
    return csv(totals);
  }
};

// --- reports of other programs

TEST_F(ReportTableTest, FindsTheRowsOfAnyReport) {
  const std::string ruled =
      "Stock list\n\nItem        Qty     Price\n-------------------------\n"
      "Rice          2    12.50\nSugar fine    1 1,101.25\n-------------------------\n"
      "Total         3 1,113.75\n";
  struct Case {
    const char* name;
    std::string report;
    bool totals;
    std::string csv;
  };
  const std::vector<Case> cases = {
      {"heading above a rule",
       ruled,
       false,
       "Item,Qty,Price\nRice,2,12.50\nSugar fine,1,1101.25\n"},
      {"with its total",
       ruled,
       true,
       "Item,Qty,Price\nRice,2,12.50\nSugar fine,1,1101.25\nTotal,3,1113.75\n"},
      {"two heading lines between rules",
       "=============\nBill    Amount\nNo.         Rs\n==============\n"
       "A1        5.00\nA2       -7.00\n",
       false,
       "Bill No.,Amount Rs\nA1,5.00\nA2,-7.00\n"},
      {"a heading as first row",
       "Name   Age\nAnna    31\nBert     7\n",
       false,
       "Name,Age\nAnna,31\nBert,7\n"},
      {"pages that begin alike",
       "List  page 1\nName   Age\nAnna    31\n\fList  page 2\nName   Age\nBert     7\n",
       false,
       "Name,Age\nAnna,31\nBert,7\n"},
      {"groups, quotes and codes",
       "Name   Age\n----------\nNorth\nAn\"na   31\nBe,rt  007\n\x1B"
       "ESouth\x1B"
       "F\nCleo     7\n",
       false,
       "Group,Name,Age\nNorth,\"An\"\"na\",31\nNorth,\"Be,rt\",007\nSouth,Cleo,7\n"},
      {"dates, brackets, percent",
       "Day         Sum  Part\n---------------------\n05/03/2026  (5)   5%\n"
       "28/02/2026   7   12%\n",
       false,
       "Day,Sum,Part\n2026-03-05,-5,0.05\n2026-02-28,7,0.12\n"},
      {"one column",
       "Names\n-----\nprose of one column\nand no more\n",
       false,
       "Names\nprose of one column\nand no more\n"},
  };
  for (const Case& one : cases) EXPECT_EQ(csvOf(one.report, one.totals), one.csv) << one.name;
  EXPECT_NE(errorOf([&] { csvOf(""); }).find("No columns were found in"), std::string::npos);
}

// --- random reports, there and back

/// A report of random columns and rows, and the table that it shows.
class RandomReport {
 public:
  explicit RandomReport(unsigned seed) : random_(seed) {
    groups_ = below(3);
    const unsigned count = 2 + below(8);
    for (unsigned i = 0; i < count; ++i) addColumn(i);
    for (unsigned i = 0; i < groups_; ++i) fields_.push_back("g" + std::to_string(i));
    rows_ = 3 + below(below(3) == 0 ? 400 : 40);
  }

  Columns columns;

  MemoryTable rows() {
    MemoryTable table(fields_);
    std::vector<Value> groups(groups_);
    for (unsigned r = 0; r < rows_; ++r) {
      std::vector<Value> row;
      for (const Columns::value_type& column : columns) row.push_back(valueOf(column));
      for (unsigned g = 0; g < groups_; ++g) {
        if (r == 0 || below(6 + 6 * (groups_ - g)) == 0) groups[g] = words(2) + std::to_string(r);
        row.push_back(groups[g]);
      }
      shown_.push_back(shownRow(row, r));
      table.addRow(row);
    }
    return table;
  }

  TextRptArguments arguments(Recordset& rows) {
    return {.Rs = rows,
            .Tital1 = "A report",
            .Tital5 = below(2) ? "Of this month" : "",
            .MPLine = static_cast<std::uint8_t>(20 + below(60)),
            .Srno = serial_ ? 1 : 0,
            .C_80_96_136 = static_cast<std::uint8_t>(below(2) ? 136 : 80)};
  }

  /// Behind the heading row; columns that print nothing are left out.
  std::string csv() const {
    std::string csv;
    for (const auto& row : shown_) {
      std::string line;
      for (std::size_t i = 0; i < row.size(); ++i) {
        if (printsNothing(i)) continue;
        line += (line.empty() && i == 0 ? "" : ",") + row[i];
      }
      csv += line + "\n";
    }
    return csv;
  }

 private:
  unsigned below(unsigned end) { return random_() % end; }

  std::string words(unsigned most) {
    static const std::vector<std::string> kWords = {
        "Ram", "Sharma",   "and",     "Sons",    "Oil",  "tin",   "M-30", "24",
        "x",   "of",       "Trading", "Co.",     "12%",  "Bhatt", "Iron", "Steel",
        "No",  "Supplies", "Ltd",     "Basmati", "rice", "Q"};
    std::string text;
    for (unsigned n = 1 + below(most); n > 0; --n) {
      if (!text.empty()) text += ' ';
      text += kWords[below(static_cast<unsigned>(kWords.size()))];
    }
    return text;
  }

  void addColumn(unsigned index) {
    static const std::vector<std::string> kNumbers = {"0", "0.00", "#,##0.00", "#,##0"};
    static const std::vector<std::string> kDates = {"dd-mmm-yyyy", "dd/mm/yyyy", "dd-mmm-yy"};
    static const std::string kTypes = "TTNND";
    const char type = kTypes[below(5)];
    const std::string spaces = std::to_string(1 + below(3));
    const std::string name = "f" + std::to_string(index);
    fields_.push_back(name);
    const unsigned width = type == 'T' ? 3 + below(28) : type == 'D' ? 11 : 9 + below(8);
    const std::string pattern = type == 'N'   ? kNumbers[below(4)]
                                : type == 'D' ? kDates[below(3)]
                                              : "";
    const bool right = type == 'N' || (type == 'T' && below(8) == 0);
    const auto group = [&](unsigned level) {
      if (level >= groups_) return std::string();
      const std::string field = "g" + std::to_string(level);
      return index == 0 || (type == 'N' && below(2) == 0) ? field : "";
    };
    const std::string total = type == 'N' && below(2) ? "Y" : "N";
    columns.push_back({name,
                       below(20) == 0 ? " " : words(2).substr(0, width),
                       std::to_string(width),
                       std::string(1, type),
                       right ? "R" : "L",
                       spaces,
                       total,
                       total,
                       groups_ == 2 ? group(1) : group(0),
                       groups_ == 2 ? group(0) : "",
                       pattern,
                       below(2) ? "Y" : "N",
                       below(2) ? "Y" : "N"});
  }

  Value valueOf(const Columns::value_type& column) {
    if (below(10) == 0) return {};
    switch (column[3][0]) {
      case 'N':
        return static_cast<double>(below(2'000'000)) / 100 - (below(10) == 0 ? 5000 : 0);
      case 'D':
        return Date{static_cast<std::int16_t>(2020 + below(8)),
                    static_cast<std::uint8_t>(1 + below(12)),
                    static_cast<std::uint8_t>(1 + below(28))};
      default:
        return words(4);
    }
  }

  std::vector<std::string> shownRow(const std::vector<Value>& row, unsigned index) const {
    std::vector<std::string> shown;
    for (unsigned g = 0; g < groups_; ++g) {
      shown.push_back(std::get<std::string>(row[columns.size() + g]));
    }
    if (serial_) shown.push_back(std::to_string(index + 1));
    for (std::size_t i = 0; i < columns.size(); ++i) shown.push_back(shownCell(columns[i], row[i]));
    return shown;
  }

  static std::string shownCell(const Columns::value_type& column, const Value& value) {
    const std::size_t width = std::stoul(column[2]);
    if (column[3] == "N") {
      const auto* const number = std::get_if<double>(&value);
      std::string text = FormatPattern(column[10])(ValueView(number == nullptr ? 0 : *number));
      std::erase(text, ',');
      return text;
    }
    if (std::holds_alternative<std::monostate>(value)) return "";
    if (column[3] == "D") return FormatPattern("yyyy-mm-dd")(ValueView(value));
    const std::string text = std::get<std::string>(value);
    if (text.size() <= width) return text;
    const std::string cut =
        column[4] == "L" ? text.substr(0, width) : text.substr(text.size() - width);
    return std::string(trimBlanks(cut));
  }

  bool printsNothing(std::size_t index) const {
    const std::size_t before = groups_ + (serial_ ? 1 : 0);
    if (index < before || columns[index - before][1] != " ") return false;
    return std::all_of(
        shown_.begin(), shown_.end(), [&](const auto& row) { return row[index].empty(); });
  }

  std::mt19937 random_;
  unsigned groups_ = 0;
  unsigned rows_ = 0;
  bool serial_ = below(2) == 0;
  std::vector<std::string> fields_;
  std::vector<std::vector<std::string>> shown_;
};

TEST_F(ReportTableTest, RandomReportsComeBackAsTheyWereShown) {
  constexpr int kReports = 400;
  int whole = 0;
  for (unsigned seed = 1; seed <= kReports; ++seed) {
    RandomReport random(seed);
    MemoryTable rows = random.rows();
    report(random.columns, random.arguments(rows));
    const std::string table = csv();
    const bool same = table.substr(table.find('\n') + 1) == random.csv();
    whole += same ? 1 : 0;
  }
  printf("layouts found whole: %d of %d\n", whole, kReports);
  EXPECT_GE(whole, kReports * 95 / 100);
}

}  // namespace
}  // namespace paperway
