#include "util/value_text.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "util/date.h"
#include "util/decimal.h"
#include "util/digits.h"

namespace paperway {
namespace {

constexpr int kDecimalPlaces = 28;

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
  if (decimal.exponent > Decimal::kSignificantDigits || decimal.exponent < -3) {
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

}  // namespace

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

}  // namespace paperway
