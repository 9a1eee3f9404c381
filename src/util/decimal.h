#pragma once

#include <cstdint>

namespace paperway {

/// The decimal digits of a number: 0.d1d2d3… × 10^exponent, d1 not 0; zero has no digits.
struct Decimal {
  static constexpr int kMaxDigits = 20;
  static constexpr int kSignificantDigits = 15;  // of a real number

  bool negative = false;
  int count = 0;            // digits in use, no trailing zeros
  int exponent = 0;         // place of the point, counted from the first digit
  char digits[kMaxDigits];  // '0' to '9', `count` of them

  /// At most 15 significant digits, rounded half away from zero on the shortest decimal form.
  /// A value that is not finite gives zero digits; ask std::isfinite first where it matters.
  static Decimal fromDouble(double number);
  static Decimal fromInteger(std::int64_t number);

  bool isZero() const { return count == 0; }

  /// Rounds to the first `kept` digits, half away from zero. With `kept` 0 the place before the
  /// first digit is what is kept, and below 0 nothing is.
  void keepDigits(int kept);

  /// The nearest double.
  double toDouble() const;
};

}  // namespace paperway
