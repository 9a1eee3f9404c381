#include "excel/column_kind.h"

#include <algorithm>

#include "excel/shown_date.h"
#include "excel/shown_number.h"

namespace paperway {
namespace {

constexpr std::size_t kMostDigits = 15;

constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::size_t decimalsOf(std::string_view cell) {
  const std::size_t point = cell.find('.');
  if (point == cell.npos) return 0;
  return static_cast<std::size_t>(
      std::count_if(cell.begin() + static_cast<std::ptrdiff_t>(point), cell.end(), isDigit));
}

/// Every digit of it can be kept.
bool isExact(std::string_view cell) {
  std::string digits;
  std::copy_if(cell.begin(), cell.end(), std::back_inserter(digits), isDigit);
  const std::size_t first = digits.find_first_not_of('0');
  if (first == digits.npos) return digits.size() == 1 || cell.find('.') != cell.npos;
  const std::size_t at = cell.find_first_of("0123456789");
  const bool leadingZero =
      cell[at] == '0' && at + 1 < cell.size() && (isDigit(cell[at + 1]) || cell[at + 1] == ',');
  return !leadingZero && digits.size() - first <= kMostDigits;
}

}  // namespace

std::optional<double> cellNumber(std::string_view text) {
  if (text.find_first_of("Ee") != text.npos) return std::nullopt;
  const auto number = shownNumber(text);
  return number && isExact(text) ? number : std::nullopt;
}

ColumnKind::ColumnKind() : patterns_(datePatterns()) {}

void ColumnKind::add(std::string_view cell) {
  if (cell.find_first_not_of('-') == cell.npos) return;
  ++cells_;
  numbers_ = numbers_ && cellNumber(cell).has_value();
  if (numbers_) return addNumber(cell);
  std::erase_if(patterns_, [&](std::string_view pattern) { return !shownDate(cell, pattern); });
}

void ColumnKind::addNumber(std::string_view cell) {
  const std::size_t decimals = decimalsOf(cell);
  leastDecimals_ = cells_ == 1 ? decimals : std::min(leastDecimals_, decimals);
  mostDecimals_ = std::max(mostDecimals_, decimals);
  commas_ = commas_ || cell.find(',') != cell.npos;
  brackets_ = brackets_ || cell.front() == '(';
  percents_ = percents_ || cell.find('%') != cell.npos;
}

void ColumnKind::tell(ReportColumn& column) const {
  if (isNumber()) {
    column.kind = ReportColumn::Kind::number;
    column.pattern = numberPattern();
  } else if (isDate()) {
    column.kind = ReportColumn::Kind::date;
    column.pattern = patterns_.front();
  }
}

std::string ColumnKind::numberPattern() const {
  if (leastDecimals_ != mostDecimals_) return commas_ ? "#,##0.00" : "";
  std::string pattern = commas_ ? "#,##0" : "0";
  if (mostDecimals_ > 0) pattern += "." + std::string(mostDecimals_, '0');
  if (percents_) return pattern + "%";
  return brackets_ ? pattern + ";(" + pattern + ")" : pattern;
}

}  // namespace paperway
