#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "paperway/value.h"
#include "util/decimal.h"
#include "util/format_symbols.h"

namespace paperway {

/// One section of a number pattern. Its slots are, in order, the places before the point, the
/// point, and the places behind it; literals may stand between them.
class NumberSection {
 public:
  explicit NumberSection(Symbols pattern);

  /// Appends the number, behind a minus when it is below zero and `sign` says so. False, and
  /// nothing appended, when a number other than zero would read as zero.
  bool append(std::string& out, std::int64_t number, bool sign) const;
  bool append(std::string& out, double number, bool sign) const;

  /// What the section says where there is no number.
  void appendLiterals(std::string& out) const;

 private:
  struct Inside {
    int slot;  // behind which the text stands
    std::string text;
  };

  void read(Symbols pattern);
  bool readPlace(const Symbol& symbol);
  std::size_t readExponent(Symbols rest);
  void addLiteral(char c);
  void finish(int commas);

  bool appendScaled(std::string& out, std::uint64_t scaled, bool minus) const;
  bool appendDecimal(std::string& out, Decimal decimal, bool minus) const;
  void appendSlots(std::string& out, const Decimal& decimal) const;
  void appendPower(std::string& out, int power) const;
  char* writeWholeBefore(char* end, std::uint64_t number) const;

  std::string before_;
  std::string after_;
  std::vector<Inside> inside_;  // by slot
  int slots_ = 0;               // none: the section says the same of every number
  int places_ = 0;              // before the point
  int minWhole_ = 0;            // digits shown before the point at least
  int decimals_ = 0;            // places behind the point
  int minDecimals_ = 0;         // digits shown behind the point at least
  int shift_ = 0;               // power of ten by which the number is multiplied
  bool point_ = false;
  bool grouped_ = false;
  bool straight_ = false;  // literals at the ends alone, no exponent, few places
  char exponentMark_ = '\0';
  bool exponentPlus_ = false;  // a plus before exponents that are not negative
  int minExponentDigits_ = 0;
};

/// A compiled number pattern.
class NumberFormat {
 public:
  explicit NumberFormat(Symbols pattern);

  void append(std::string& out, const ValueView& value) const;
  void append(std::string& out, double number) const;

  /// The default text, where the pattern asks for it, is that of a decimal: without an exponent.
  void appendDecimal(std::string& out, double number) const;

 private:
  template <class Number>
  void appendNumber(std::string& out, Number number) const;
  void appendZero(std::string& out) const;
  const std::optional<NumberSection>& sectionOf(double number) const;
  void appendText(std::string& out, std::string_view text) const;

  std::optional<NumberSection> positive_;  // none: the default text
  std::optional<NumberSection> negative_;  // none, as with zero_: the section of positive numbers
  std::optional<NumberSection> zero_;
  std::optional<NumberSection> null_;
};

}  // namespace paperway
