#include "paperway/value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "util/date_text.h"
#include "util/digits.h"

namespace paperway {

namespace {

constexpr int kSignificantDigits = 15;
constexpr int kDecimalPlaces = 28;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

void appendInteger(std::string& out, std::int64_t number) {
  char buffer[20];
  char* const end = buffer + sizeof buffer;
  char* begin = writeDigitsBefore(end, magnitude(number));
  if (number < 0) *--begin = '-';
  out.append(begin, end);
}

/// number / 10^decimals, without trailing zeros.
void appendScaled(std::string& out, std::int64_t number, int decimals) {
  while (decimals > 0 && number % 10 == 0) {
    number /= 10;
    --decimals;
  }
  char buffer[40];
  char* const end = buffer + sizeof buffer;
  std::memset(buffer, '0', sizeof buffer);
  char* begin = writeDigitsBefore(end, magnitude(number));
  if (decimals > 0) {
    if (begin > end - decimals) begin = end - decimals;
    std::memmove(begin - 1, begin, static_cast<std::size_t>(end - decimals - begin));
    --begin;
    *(end - decimals - 1) = '.';
    if (*begin == '.') *--begin = '0';
  }
  if (number < 0) *--begin = '-';
  out.append(begin, end);
}

void appendScientific(std::string& out, const Decimal& decimal) {
  out += decimal.digits[0];
  if (decimal.count > 1) {
    out += '.';
    out.append(decimal.digits + 1, static_cast<std::size_t>(decimal.count - 1));
  }
  const int exponent = decimal.exponent - 1;
  out += exponent < 0 ? "E-" : "E+";
  if (std::abs(exponent) < 10) out += '0';
  appendInteger(out, std::abs(exponent));
}

void appendPlain(std::string& out, const Decimal& decimal) {
  const auto count = static_cast<std::size_t>(decimal.count);
  if (decimal.exponent <= 0) {
    out += "0.";
    out.append(static_cast<std::size_t>(-decimal.exponent), '0');
    out.append(decimal.digits, count);
    return;
  }
  const auto whole = static_cast<std::size_t>(decimal.exponent);
  out.append(decimal.digits, std::min(count, whole));
  if (whole >= count) {
    out.append(whole - count, '0');
  } else {
    out += '.';
    out.append(decimal.digits + whole, count - whole);
  }
}

void appendNotFinite(std::string& out, double number) {
  out += std::isnan(number) ? "-1.#IND" : number < 0 ? "-1.#INF" : "1.#INF";
}

void appendReal(std::string& out, double number) {
  std::int64_t scaled = 0;
  if (scaleExactly(number, 0, scaled)) {
    appendInteger(out, scaled);
    return;
  }
  if (std::abs(number) >= 0.01 && scaleExactly(number, 2, scaled)) {
    appendScaled(out, scaled, 2);
    return;
  }
  if (!std::isfinite(number)) {
    appendNotFinite(out, number);
    return;
  }
  const Decimal decimal = Decimal::fromDouble(number);
  if (decimal.negative) out += '-';
  if (decimal.exponent > kSignificantDigits || decimal.exponent < -3) {
    appendScientific(out, decimal);
  } else {
    appendPlain(out, decimal);
  }
}

void appendDate(std::string& out, const Date& date) {
  char buffer[kDateTextLength];
  char* at = writeShortDate(buffer, date);
  if (date.hasTime()) {
    *at++ = ' ';
    at = writeLongTime(at, date);
  }
  out.append(buffer, at);
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
  decimal.keepDigits(kSignificantDigits);
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
  if (end - from <= kSignificantDigits + 1) {
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

ValueView::ValueView(const Value& value) : ValueView() {
  switch (value.index()) {
    case 1:
      *this = ValueView(std::string_view(std::get<std::string>(value)));
      break;
    case 2:
      *this = ValueView(std::get<double>(value));
      break;
    case 3:
      *this = ValueView(std::get<std::int64_t>(value));
      break;
    case 4:
      *this = ValueView(std::get<Date>(value));
      break;
    default:
      break;
  }
}

Value ValueView::toValue() const {
  switch (kind_) {
    case Kind::text:
      return std::string(text_);
    case Kind::real:
      return real_;
    case Kind::integer:
      return integer_;
    case Kind::date:
      return date_;
    case Kind::null:
      break;
  }
  return std::monostate{};
}

Decimal Decimal::fromDouble(double number) {
  Decimal decimal;
  if (number == 0 || !std::isfinite(number)) return decimal;
  char text[32];  // "d.ddde±xx"
  const auto end =
      std::to_chars(text, text + sizeof text, std::abs(number), std::chars_format::scientific).ptr;
  const char* c = text;
  for (; *c != 'e'; ++c) {
    if (*c != '.') decimal.digits[decimal.count++] = *c;
  }
  if (*++c == '+') ++c;
  std::from_chars(c, end, decimal.exponent);
  ++decimal.exponent;
  decimal.negative = number < 0;
  decimal.keepDigits(kSignificantDigits);
  return decimal;
}

Decimal Decimal::fromInteger(std::int64_t number) {
  Decimal decimal;
  if (number == 0) return decimal;
  char buffer[20];
  char* const end = buffer + sizeof buffer;
  const char* const begin = writeDigitsBefore(end, magnitude(number));
  decimal.negative = number < 0;
  decimal.exponent = decimal.count = static_cast<int>(end - begin);
  std::memcpy(decimal.digits, begin, static_cast<std::size_t>(decimal.count));
  while (decimal.digits[decimal.count - 1] == '0') --decimal.count;
  return decimal;
}

void Decimal::keepDigits(int kept) {
  if (kept >= count) return;
  const bool up = kept >= 0 && digits[kept] >= '5';
  count = std::max(kept, 0);
  const char dropped = up ? '9' : '0';  // 199.5 carries to 2, 100.2 leaves 1
  while (count > 0 && digits[count - 1] == dropped) --count;
  if (!up) return;
  if (count > 0) {
    ++digits[count - 1];
  } else {
    digits[count++] = '1';
    ++exponent;
  }
}

double Decimal::toDouble() const {
  char text[kMaxDigits + 16] = "-0.";
  std::memcpy(text + 3, digits, static_cast<std::size_t>(count));
  char* at = text + 3 + count;
  *at++ = 'e';
  at = std::to_chars(at, text + sizeof text, exponent).ptr;
  double number = 0;
  std::from_chars(negative ? text : text + 1, at, number);
  return number;
}

void appendDefaultText(std::string& out, const ValueView& value) {
  switch (value.kind()) {
    case ValueView::Kind::text:
      out += value.text();
      break;
    case ValueView::Kind::real:
      appendReal(out, value.real());
      break;
    case ValueView::Kind::integer:
      appendInteger(out, value.integer());
      break;
    case ValueView::Kind::date:
      appendDate(out, value.date());
      break;
    case ValueView::Kind::null:
      break;
  }
}

std::string defaultText(ValueView value) {
  std::string text;
  appendDefaultText(text, value);
  return text;
}

void appendDecimalText(std::string& out, double number) {
  if (!std::isfinite(number)) return appendNotFinite(out, number);
  Decimal decimal = Decimal::fromDouble(number);
  decimal.keepDigits(decimal.exponent + kDecimalPlaces);
  if (decimal.isZero()) {
    out += '0';
    return;
  }
  if (decimal.negative) out += '-';
  appendPlain(out, decimal);
}

std::string numberText(double number) {
  std::string text = defaultText(number);
  if (text[0] != '-') text.insert(0, 1, ' ');
  if (text.size() > 2 && text[1] == '0' && text[2] == '.') text.erase(1, 1);
  return text;
}

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
