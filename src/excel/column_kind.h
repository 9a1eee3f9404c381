#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "excel/column_map.h"

namespace paperway {

/// The number that a cell says, when nothing is lost by taking it: no code with a leading zero, no
/// more than fifteen digits that tell.
std::optional<double> cellNumber(std::string_view text);

/// What the cells of one column have in common, as they come. Empty ones, and dashes that stand for
/// nothing, count for no kind.
class ColumnKind {
 public:
  ColumnKind();

  void add(std::string_view cell);

  bool hasCells() const { return cells_ > 0; }
  bool isNumber() const { return cells_ > 0 && numbers_; }
  bool isDate() const { return cells_ > 0 && !patterns_.empty(); }

  /// Kind and pattern.
  void tell(ReportColumn& column) const;

 private:
  void addNumber(std::string_view cell);
  std::string numberPattern() const;

  std::size_t cells_ = 0;
  bool numbers_ = true;
  std::vector<std::string_view> patterns_;  // that read each cell so far as a date
  std::size_t leastDecimals_ = 0;
  std::size_t mostDecimals_ = 0;
  bool commas_ = false;
  bool brackets_ = false;
  bool percents_ = false;
};

}  // namespace paperway
