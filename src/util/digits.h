#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace paperway {

/// 10^0 to 10^22, the powers of ten that a double holds exactly.
inline constexpr std::array<double, 23> kPowersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

inline constexpr double kMaxFifteenDigits = 1e15;

/// Whether `number` at 15 significant digits has no more than `decimals` decimals; if so, `scaled`
/// is number × 10^decimals. Below 10^15 the division back is correctly rounded, so that the one
/// decimal of at most 15 digits that reads as `number` is the one found.
inline bool scaleExactly(double number, int decimals, std::int64_t& scaled) {
  const double power = kPowersOfTen[static_cast<std::size_t>(decimals)];
  const double product = number * power;
  if (!(product < kMaxFifteenDigits && product > -kMaxFifteenDigits)) return false;
  scaled = static_cast<std::int64_t>(product + (product < 0 ? -0.5 : 0.5));
  return static_cast<double>(scaled) / power == number;
}

inline std::uint64_t magnitude(std::int64_t number) {
  return number < 0 ? std::uint64_t{0} - static_cast<std::uint64_t>(number)
                    : static_cast<std::uint64_t>(number);
}

/// "00" to "99", one after the other.
inline constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

inline void writePair(char* at, unsigned number) {
  std::memcpy(at, &kDigitPairs[2 * number], 2);
}

/// Writes the digits of `number` so that they end before `end`; gives their beginning. Zero is "0".
inline char* writeDigitsBefore(char* end, std::uint64_t number) {
  while (number >= 100) {
    end -= 2;
    writePair(end, static_cast<unsigned>(number % 100));
    number /= 100;
  }
  if (number < 10) {
    *--end = static_cast<char>('0' + number);
    return end;
  }
  end -= 2;
  writePair(end, static_cast<unsigned>(number));
  return end;
}

}  // namespace paperway
