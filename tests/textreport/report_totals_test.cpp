#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <vector>

#include "textreport/report_fixture.h"

namespace paperway {
namespace {

constexpr std::size_t kPrefix = 5;
constexpr std::size_t kCell = 12;

/// A report of random number columns, read again line by line: every total that it shows is added
/// up anew from the rows above it.
class ReadAgain {
 public:
  ReadAgain(const std::vector<Column>& columns, std::string text) : columns_(columns) {
    for (const char* mark : {"<Bon>", "<Boff>", "<Con>", "<Coff>", "<BBon>", "<BBoff>"}) {
      const std::string name = mark;
      for (std::size_t at; (at = text.find(name)) != std::string::npos;)
        text.erase(at, name.size());
    }
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines_.push_back(line);
    all_.resize(columns.size());
    inner_ = outer_ = all_;
  }

  void check() {
    for (at_ = 0; at_ < lines_.size(); ++at_) {
      const std::string& line = lines_[at_];
      if (isRow(line)) {
        takeRow(line);
      } else if (isGroupRule(line, '=')) {
        checkTotals(lines_[at_ - 1], outer_, [](const Column& c) { return !c.GTot2.empty(); });
      } else if (isGroupRule(line, '-')) {
        checkTotals(lines_[at_ + 1], inner_, [](const Column& c) { return !c.GTot1.empty(); });
        ++at_;  // and its closing rule
        ++at_;
      } else if (line == "<FF>") {
        checkPageEnd();
      }
    }
  }

  int rows = 0;
  int checked = 0;

 private:
  static bool isGroupRule(const std::string& line, char dash) {
    return line.starts_with("     ") && line.find(dash) != std::string::npos &&
           line.find_first_not_of(std::string(" ") + dash) == std::string::npos;
  }
  bool isRow(const std::string& line) const {
    return line.size() == kPrefix + kCell * columns_.size() && line[3] >= '0' && line[3] <= '9' &&
           line[4] == ' ';
  }
  std::int64_t cell(const std::string& line, std::size_t column) const {
    return std::stoll(line.substr(kPrefix + kCell * column, kCell));
  }

  void takeRow(const std::string& line) {
    ++rows;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::int64_t value = cell(line, i);
      all_[i] += value;
      inner_[i] += columns_[i].GTot1.starts_with("Count+") ? 1 : value;
      outer_[i] += value;
    }
  }

  template <typename Shows>
  void checkTotals(const std::string& line, std::vector<std::int64_t>& sums, Shows shows) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::string text = line.substr(kPrefix + kCell * i, kCell);
      if (shows(columns_[i])) {
        EXPECT_EQ(std::stoll(text), sums[i]) << "line " << at_ << ": " << line;
        ++checked;
      } else {
        EXPECT_EQ(text.find_first_not_of(' '), std::string::npos) << line;
      }
    }
    if (&sums != &all_) sums.assign(sums.size(), 0);
  }

  /// The totals above a form feed: of the page, or of the report above the last one.
  void checkPageEnd() {
    const bool last = at_ + 1 == lines_.size();
    const auto shows = [last](const Column& c) { return (last ? c.Lt : c.AllPageTot) == "Y"; };
    if (!std::any_of(columns_.begin(), columns_.end(), shows) && !last) return;
    checkTotals(lines_[at_ - 2], all_, shows);
  }

  const std::vector<Column>& columns_;
  std::vector<std::string> lines_;
  std::size_t at_ = 0;
  std::vector<std::int64_t> all_, inner_, outer_;
};

class ReportTotals : public ReportTest {};

TEST_F(ReportTotals, OfRandomReportsAddUpFromTheirRows) {
  std::mt19937 random(20260405);
  const auto upTo = [&random](int n) { return static_cast<int>(random() % (n + 1)); };
  for (int run = 0; run < 200; ++run) {
    const bool groups = upTo(3) > 0;
    std::vector<Column> columns;
    std::vector<std::string> names = {"outer", "inner"};
    for (int i = upTo(4); i >= 0; --i) {
      const std::string name = "n" + std::to_string(i);
      names.push_back(name);
      columns.push_back({.fNM = name,
                         .fHeder = name,
                         .Sz = kCell - 1,
                         .Dtyp = "N",
                         .Ali = "R",
                         .Lt = upTo(1) ? "Y" : "N",
                         .GTot1 = !groups || upTo(2) == 0 ? ""
                                  : upTo(2)               ? "inner"
                                                          : "Count+inner",
                         .GTot2 = groups && upTo(1) ? "outer" : "",
                         .Frmt = "0"});
      if (columns.back().Lt == "Y" && upTo(1)) columns.back().AllPageTot = "Y";
    }
    columns[0].GTot1 = groups ? "inner" : "";
    columns[0].GTot2 = groups ? "outer" : "";
    MemoryTable rows(names);
    const int rowCount = upTo(120);
    int outer = 0;
    int inner = 0;
    for (int r = 0; r < rowCount; ++r) {
      if (upTo(20) == 0) ++outer;
      if (upTo(4) == 0) ++inner;
      std::vector<Value> row = {"o" + std::to_string(outer), "i" + std::to_string(inner)};
      for (std::size_t i = 2; i < names.size(); ++i) row.push_back(std::int64_t{upTo(2000) - 1000});
      rows.addRow(row);
    }
    const std::string bytes =
        report(columns, {.Rs = rows,
                         .Tital1 = "Title",
                         .MPLine = static_cast<std::uint8_t>(upTo(80)),
                         .Srno = 1,
                         .C_80_96_136 = static_cast<std::uint8_t>(upTo(1) * 136)});
    ReadAgain again(columns, readable(bytes));
    again.check();
    EXPECT_EQ(again.rows, rowCount) << "run " << run;
    if (HasFailure()) {
      ADD_FAILURE() << "run " << run << "\n" << readable(bytes);
      return;
    }
  }
}

}  // namespace
}  // namespace paperway
