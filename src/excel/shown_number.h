#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperway {

/// The number that a formatted text says: digits with commas and a point, a sign on either side or
/// brackets (below zero), an exponent, a percent sign, blanks. Nothing for any other text.
std::optional<double> shownNumber(std::string_view text);

/// The same of what a number pattern made, which may have put words around the number.
class ShownNumberReader {
 public:
  explicit ShownNumberReader(std::string_view pattern);

  std::optional<double> operator()(std::string_view text) const;

 private:
  struct Words {
    std::string before;
    std::string after;
  };

  std::optional<double> readAsWorded(std::string_view text) const;
  static std::optional<double> readWithin(std::string_view text, const Words& words);

  std::vector<Words> sections_;  // of the pattern, where they have any
  bool saysPercent_ = false;     // as a word, which divides nothing
};

}  // namespace paperway
