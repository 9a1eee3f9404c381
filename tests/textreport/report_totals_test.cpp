#include <algorithm>
#include <map>
#include <random>
#include <sstream>

#include "support/report_fixture.h"

namespace paperway {
namespace {

constexpr std::size_t kPrefix = 5;
constexpr std::size_t kCell = 12;
constexpr std::size_t kHeadLines = 5;
enum Field { kTotal = 6, kPageTotal = 7, kInner = 8, kOuter = 9 };  // places in a column's row

using Sums = std::vector<std::int64_t>;  // of each column

/// A report of number columns, read again line by line: every total that it shows is added up anew
/// from the rows above it.
class ReadAgain {
 public:
  ReadAgain(const Columns& columns, std::string text) : columns_(columns) {
    for (const char* mark : {"<Bon>", "<Boff>", "<Con>", "<Coff>", "<BBon>", "<BBoff>"}) {
      replaceAll(text, mark, "");
    }
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines_.push_back(line);
    for (const Field field : {kTotal, kInner, kOuter}) sums_[field].resize(columns.size());
  }

  void check() {
    for (at_ = 0; at_ < lines_.size(); ++at_) {
      const std::string& line = lines_[at_];
      if (isRow(line)) {
        takeRow(line);
      } else if (isGroupRule(line, '=')) {
        checkTotals(lines_[at_ - 1], kOuter, sums_[kOuter]);
      } else if (isGroupRule(line, '-')) {
        checkTotals(lines_[at_ + 1], kInner, sums_[kInner]);
        at_ += 2;  // its figures and its closing rule
      } else if (line == "<FF>") {
        checkPageEnd();
      }
    }
  }

  int rows = 0;
  std::map<Field, int> totals;  // lines of totals

 private:
  bool shows(std::size_t column, Field field) const {
    const std::string& flag = columns_[column][field];
    return field == kTotal || field == kPageTotal ? flag == "Y" : !flag.empty();
  }
  static bool isGroupRule(const std::string& line, char dash) {
    return line.starts_with("     ") && line.find(dash) != std::string::npos &&
           line.find_first_not_of(std::string(" ") + dash) == std::string::npos;
  }
  bool isRow(const std::string& line) const {
    return line.size() == kPrefix + kCell * columns_.size() && line[3] >= '0' && line[3] <= '9' &&
           line[4] == ' ';
  }
  std::string cell(const std::string& line, std::size_t column) const {
    std::string text = line.substr(kPrefix + kCell * column, kCell);
    std::erase_if(text, [](char c) { return c == ' ' || c == ','; });
    return text;
  }

  void takeRow(const std::string& line) {
    ++rows;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::string text = cell(line, i);
      if (text.empty()) continue;  // a duplicate
      for (auto& [field, sums] : sums_) {
        sums[i] += columns_[i][field].starts_with("Count+") ? 1 : std::stoll(text);
      }
    }
  }

  void checkTotals(const std::string& line, Field field, Sums& sums) {
    ++totals[field];
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::string expected = shows(i, field) ? std::to_string(sums[i]) : "";
      EXPECT_EQ(cell(line, i), expected) << "line " << at_ << ": " << line;
    }
    if (field == kInner || field == kOuter) sums.assign(sums.size(), 0);
  }

  void checkPageEnd() {
    const bool last = at_ + 1 == lines_.size();
    const Field field = last ? kTotal : kPageTotal;
    const auto carries = [](const auto& column) { return column[kPageTotal] == "Y"; };
    if (!last && std::none_of(columns_.begin(), columns_.end(), carries)) return;
    checkTotals(lines_[at_ - 2], field, sums_[kTotal]);
    const std::string& carried = last ? lines_[at_ - 2] : lines_[at_ + 1 + kHeadLines];
    EXPECT_EQ(carried, lines_[at_ - 2]) << "line " << at_;
  }

  const Columns& columns_;
  std::vector<std::string> lines_;
  std::size_t at_ = 0;
  std::map<Field, Sums> sums_;
};

using ReportTotals = ReportTest;

TEST_F(ReportTotals, OfRandomReportsAddUpFromTheirRows) {
  std::mt19937 random(20260405);
  const auto upTo = [&random](int n) { return static_cast<int>(random() % (n + 1)); };
  const auto oneOf = [&](std::vector<std::string> texts) { return texts[upTo(texts.size() - 1)]; };
  for (int run = 0; run < 300 && !HasFailure(); ++run) {
    const bool groups = upTo(3) > 0;
    Columns columns;
    std::vector<std::string> names = {"outer", "inner"};
    for (int i = upTo(4); i >= 0; --i) {
      names.push_back("n" + std::to_string(i));
      const std::string total = oneOf({"Y", "N"});
      columns.push_back({names.back(),
                         "Heading",
                         "11",
                         "N",
                         "R",
                         "1",
                         total,
                         total == "Y" ? oneOf({"Y", "N"}) : "N",
                         groups ? oneOf({"", "inner", "Count+inner"}) : "",
                         groups ? oneOf({"", "outer", "Count+outer"}) : "",
                         oneOf({"0", "#,##0"}),
                         "",
                         "",
                         oneOf({"N", "N", "Y"}),
                         "inner"});
    }
    if (groups) columns[0][kInner] = "inner", columns[0][kOuter] = "outer";
    MemoryTable rows(names);
    int outer = 0, inner = 0, innerGroups = 0;
    const int rowCount = upTo(120);
    for (int r = 0; r < rowCount; ++r) {
      const bool outerBegins = r == 0 || upTo(20) == 0;
      const bool innerBegins = r == 0 || upTo(4) == 0;
      innerGroups += outerBegins || innerBegins;
      std::vector<Value> row = {"o" + std::to_string(outer += outerBegins),
                                "i" + std::to_string(inner += innerBegins)};
      for (std::size_t i = 2; i < names.size(); ++i) row.push_back(std::int64_t{upTo(2000) - 1000});
      rows.addRow(row);
    }
    const std::string bytes = report(columns,
                                     {.Rs = rows,
                                      .Tital1 = "Title",
                                      .MPLine = static_cast<std::uint8_t>(upTo(80)),
                                      .Srno = 1,
                                      .C_80_96_136 = static_cast<std::uint8_t>(upTo(1) * 136)});
    ReadAgain again(columns, readable(bytes));
    again.check();
    EXPECT_EQ(again.rows, rowCount);
    EXPECT_EQ(again.totals[kInner], groups ? std::max(innerGroups, 1) : 0);
    EXPECT_EQ(again.totals[kOuter], groups ? outer : 0);
    EXPECT_EQ(again.totals[kTotal], 1);
    if (HasFailure()) ADD_FAILURE() << "run " << run << "\n" << readable(bytes);
  }
}

}  // namespace
}  // namespace paperway
