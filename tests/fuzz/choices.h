#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/value.h"

namespace paperway::fuzz {

/// The bytes of an input as choices, so that any change of them is another valid case. Behind the
/// last byte every choice is the first one.
class Choices {
 public:
  explicit Choices(std::string_view bytes) : bytes_(bytes) {}

  bool done() const { return bytes_.empty(); }

  unsigned below(unsigned end) {
    if (done()) return 0;
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte % end;
  }

  template <class T>
  T oneOf(const std::vector<T>& any) {
    return any[below(static_cast<unsigned>(any.size()))];
  }

  /// Seldom the bytes as they are, which are hardly ever UTF-8.
  std::string text() {
    const bool raw = below(64) == 1;
    const std::string_view taken = bytes_.substr(0, below(24));
    bytes_.remove_prefix(taken.size());
    return raw ? std::string(taken) : readable(taken);
  }

  Value value();

 private:
  static std::string readable(std::string_view bytes) {
    static const std::vector<std::string> kWide = {"\xC3\xA9", "\xE2\x82\xAC", "\xE2\x82\xB9"};
    std::string text;
    for (const char c : bytes) {
      const auto byte = static_cast<unsigned char>(c);
      text += byte < 0xF0 ? std::string(1, static_cast<char>(' ' + byte % 95)) : kWide[byte % 3];
    }
    return text;
  }

  std::string_view bytes_;
};

inline Value Choices::value() {
  static const std::vector<double> kReals = {
      0.1, -0.0, 1E15, 5.5E-17, 1E300, -1E300, 4.9E-324, 2.345, 1.0 / 0.0, 0.0 / 0.0};
  static const std::vector<std::int64_t> kIntegers = {0, -1, INT64_MAX, INT64_MIN, 999999999999999};
  static const std::vector<Date> kDates = {
      {2006, 3, 5, 14, 7, 9}, {100, 1, 1}, {9999, 12, 31, 23, 59, 59}, {2024, 2, 29}};
  switch (below(8)) {
    case 0:
      return {};
    case 1:
      return oneOf(kReals);
    case 2:
      return oneOf(kIntegers);
    case 3:
      return oneOf(kDates);
    case 4:
      return std::int64_t{below(256)} - 128;
    case 5:
      return std::to_string(below(3));
    default:
      return text();
  }
}

}  // namespace paperway::fuzz
