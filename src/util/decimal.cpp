#include "util/decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "util/digits.h"

namespace paperway {

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

}  // namespace paperway
