#include "util/number_section.h"

#include <algorithm>
#include <cmath>

#include "util/decimal.h"
#include "util/digits.h"
#include "util/value_text.h"

namespace paperway {

namespace {

constexpr std::uint64_t kIntegerPowers[] = {1, 10, 100, 1000, 10000};
constexpr int kMaxIntegerPower = 4;
constexpr std::uint64_t kMaxScalable = 1'000'000'000'000'000;  // × 10^4 still fits 64 bits

/// Below this a double tells ten-thousandths apart, before and after it is cut to 15 digits.
constexpr double kMaxRoundable = 1e11;
constexpr double kSurelyNoTie = 0.499;

/// `number` (not negative) × 10^decimals, rounded half away from zero on its decimal digits; false
/// when only those digits can tell.
bool roundScaled(double number, int decimals, std::uint64_t& rounded) {
  const double product = number * kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (product < kMaxRoundable) {
    rounded = static_cast<std::uint64_t>(product + 0.5);
    if (std::abs(product - static_cast<double>(rounded)) < kSurelyNoTie) return true;
  }
  std::int64_t scaled = 0;
  if (!scaleExactly(number, decimals, scaled)) return false;
  rounded = static_cast<std::uint64_t>(scaled);
  return true;
}

char digitAt(const Decimal& decimal, int place) {
  const int index = decimal.exponent - 1 - place;
  return index >= 0 && index < decimal.count ? decimal.digits[index] : '0';
}

char* writeThreeBefore(char* end, unsigned number) {
  writePair(end - 2, number % 100);
  end[-3] = static_cast<char>('0' + number / 100);
  return end - 3;
}

}  // namespace

void NumberSection::appendLiterals(std::string& out) const {
  out += before_;
  for (const Inside& each : inside_) out += each.text;
  out += after_;
}

bool NumberSection::append(std::string& out, std::int64_t number, bool sign) const {
  const bool minus = sign && number < 0;
  const int power = decimals_ + shift_;
  const std::uint64_t size = magnitude(number);
  if (straight_ && power >= 0 && power <= kMaxIntegerPower && size < kMaxScalable) {
    return appendScaled(out, size * kIntegerPowers[power], minus);
  }
  return appendDecimal(out, Decimal::fromInteger(number), minus);
}

bool NumberSection::append(std::string& out, double number, bool sign) const {
  const bool minus = sign && number < 0;
  const int power = decimals_ + shift_;
  std::uint64_t scaled = 0;
  if (straight_ && power >= 0 && power < static_cast<int>(kPowersOfTen.size()) &&
      roundScaled(std::abs(number), power, scaled)) {
    return (scaled != 0 || number == 0) && appendScaled(out, scaled, minus);
  }
  return appendDecimal(out, Decimal::fromDouble(number), minus);
}

/// scaled / 10^decimals_, in a straight section.
bool NumberSection::appendScaled(std::string& out, std::uint64_t scaled, bool minus) const {
  char buffer[64];
  char* const end = buffer + sizeof buffer;
  char* at = end;
  int shown = decimals_;
  for (; shown > minDecimals_ && scaled % 10 == 0; --shown) scaled /= 10;
  for (; shown >= 2; shown -= 2, scaled /= 100) {
    at -= 2;
    writePair(at, static_cast<unsigned>(scaled % 100));
  }
  if (shown == 1) {
    *--at = static_cast<char>('0' + scaled % 10);
    scaled /= 10;
  }
  if (point_) *--at = '.';
  at = writeWholeBefore(at, scaled);
  if (before_.empty()) {
    if (minus) *--at = '-';
  } else {
    if (minus) out += '-';
    if (!before_.empty()) out += before_;
  }
  out.append(at, static_cast<std::size_t>(end - at));
  if (!after_.empty()) out += after_;
  return true;
}

char* NumberSection::writeWholeBefore(char* end, std::uint64_t number) const {
  char* at = end;
  int digits = 0;
  if (grouped_) {
    for (; number >= 1000; number /= 1000, digits += 3) {
      at = writeThreeBefore(at, static_cast<unsigned>(number % 1000));
      *--at = ',';
    }
  }
  if (number > 0) {
    char* const begin = writeDigitsBefore(at, number);
    digits += static_cast<int>(at - begin);
    at = begin;
  }
  for (; digits < minWhole_; ++digits) {
    if (grouped_ && digits > 0 && digits % 3 == 0) *--at = ',';
    *--at = '0';
  }
  return at;
}

bool NumberSection::appendDecimal(std::string& out, Decimal decimal, bool minus) const {
  if (slots_ > 0 && !decimal.isZero()) {
    decimal.exponent += shift_;
    const int kept = exponentMark_ != '\0' ? places_ + decimals_ : decimal.exponent + decimals_;
    decimal.keepDigits(kept);
    if (decimal.isZero()) return false;
  }
  int power = 0;
  if (exponentMark_ != '\0' && !decimal.isZero()) {
    power = decimal.exponent - places_;
    decimal.exponent = places_;
  }
  if (minus) out += '-';
  out += before_;
  if (slots_ > 0) appendSlots(out, decimal);
  if (exponentMark_ != '\0') appendPower(out, power);
  out += after_;
  return true;
}

void NumberSection::appendSlots(std::string& out, const Decimal& decimal) const {
  auto inside = inside_.begin();
  int slot = 0;
  const auto endSlot = [&] {
    for (; inside != inside_.end() && inside->slot == slot; ++inside) out += inside->text;
    ++slot;
  };
  const int whole = decimal.isZero() ? 0 : std::max(decimal.exponent, 0);
  for (int place = std::max(whole, places_) - 1; place >= 0; --place) {
    if (place < whole || place < minWhole_) {
      out += digitAt(decimal, place);
      if (grouped_ && place > 0 && place % 3 == 0) out += ',';
    }
    if (place < places_) endSlot();
  }
  if (point_) {
    out += '.';
    endSlot();
  }
  const int needed = decimal.isZero() ? 0 : decimal.count - decimal.exponent;
  const int shown = std::max(needed, minDecimals_);
  for (int i = 0; i < decimals_; ++i) {
    if (i < shown) out += digitAt(decimal, -1 - i);
    endSlot();
  }
}

void NumberSection::appendPower(std::string& out, int power) const {
  out += exponentMark_;
  if (power < 0) {
    out += '-';
  } else if (exponentPlus_) {
    out += '+';
  }
  const std::string digits = defaultText(std::abs(power));
  const auto least = static_cast<std::size_t>(minExponentDigits_);
  if (digits.size() < least) out.append(least - digits.size(), '0');
  out += digits;
}

}  // namespace paperway
