#include "util/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "util/decimal.h"
#include "util/digits.h"

namespace paperway {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

double atFifteenDigits(double number) {
  std::int64_t scaled = 0;
  if (scaleExactly(number, 2, scaled) || scaleExactly(number, 0, scaled)) return number;
  return std::isfinite(number) ? Decimal::fromDouble(number).toDouble() : number;
}

double atFifteenDigits(std::int64_t number) {
  if (magnitude(number) < static_cast<std::uint64_t>(kMaxFifteenDigits)) {
    return static_cast<double>(number);
  }
  Decimal decimal = Decimal::fromInteger(number);
  decimal.keepDigits(Decimal::kSignificantDigits);
  return decimal.toDouble();
}

/// The end of the digits, with one point among them, that begin at `from`.
const char* endOfNumber(const char* from, const char* end) {
  bool point = false;
  for (; from != end; ++from) {
    if (*from == '.' && !point) {
      point = true;
    } else if (!isDigit(*from)) {
      break;
    }
  }
  return from;
}

/// The value of digits with at most one point among them.
double readFixed(const char* from, const char* end) {
  std::uint64_t mantissa = 0;
  int decimals = 0;
  bool point = false;
  if (end - from <= Decimal::kSignificantDigits + 1) {
    for (const char* c = from; c != end; ++c) {
      if (*c == '.') {
        point = true;
        continue;
      }
      mantissa = mantissa * 10 + static_cast<std::uint64_t>(*c - '0');
      decimals += point ? 1 : 0;
    }
    return static_cast<double>(mantissa) / kPowersOfTen[static_cast<std::size_t>(decimals)];
  }
  double number = 0;
  const auto result = std::from_chars(from, end, number, std::chars_format::fixed);
  if (result.ec != std::errc::result_out_of_range) return number;
  const std::string_view whole(from, static_cast<std::size_t>(end - from));
  const auto first = whole.find_first_of("123456789");
  return first < whole.find('.') ? std::numeric_limits<double>::infinity() : 0;
}

}  // namespace

double leadingNumber(std::string_view text) {
  const char* c = text.data();
  const char* const end = c + text.size();
  while (c != end && *c == ' ') ++c;
  const bool negative = c != end && *c == '-';
  if (c != end && (*c == '-' || *c == '+')) ++c;
  const double number = readFixed(c, endOfNumber(c, end));
  return negative && number != 0 ? -number : number;
}

std::int64_t wholeNumber(double number) {
  constexpr double kFar = 1e15;
  return static_cast<std::int64_t>(std::nearbyint(std::clamp(number, -kFar, kFar)));
}

double columnNumber(const ValueView& value) {
  switch (value.kind()) {
    case ValueView::Kind::real:
      return atFifteenDigits(value.real());
    case ValueView::Kind::integer:
      return atFifteenDigits(value.integer());
    case ValueView::Kind::text:
      return leadingNumber(value.text());
    case ValueView::Kind::date:
      return value.date().month;  // "m/d/yyyy" ends its number at "/"
    case ValueView::Kind::null:
      break;
  }
  return 0;
}

std::optional<double> parseNumber(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::nullopt;
  const char* c = text.data() + first;
  const char* const end = text.data() + text.find_last_not_of(' ') + 1;
  const bool negative = *c == '-';
  if (*c == '-' || *c == '+') ++c;
  if (c == end || (!isDigit(*c) && *c != '.')) return std::nullopt;
  double number = 0;
  const auto result = std::from_chars(c, end, number);
  if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
  return negative ? -number : number;
}

}  // namespace paperway
