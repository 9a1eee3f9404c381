#pragma once

#include <optional>
#include <string>

#include "paperway/value.h"
#include "util/format_symbols.h"
#include "util/number_section.h"

namespace paperway {

/// A compiled number pattern.
class NumberFormat {
 public:
  explicit NumberFormat(Symbols pattern);

  void append(std::string& out, const ValueView& value) const;

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
