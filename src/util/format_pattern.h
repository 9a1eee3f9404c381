#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "paperway/value.h"
#include "util/format_date.h"
#include "util/format_number.h"
#include "util/format_text.h"

namespace paperway {

/// The pattern that a name stands for ("Currency", "Short Date"), in any case; any other text as it
/// is.
std::string_view namedPattern(std::string_view name);

/// A format pattern of the automation platform ("0.00", "#,##0", "dd-mmm-yyyy", "@@@@"), compiled
/// once and applied often. English names, "." as the decimal mark and "," between thousands,
/// whatever the process locale. Any text compiles: what is no symbol stands for itself.
///
/// A date in a number pattern is its serial, a number in a date pattern the date of that serial,
/// and a text that says a number or an ISO date is taken as such; any other text passes unchanged.
/// Null is empty, unless the pattern has a section for it.
class FormatPattern {
 public:
  FormatPattern() = default;
  explicit FormatPattern(std::string_view pattern);

  /// Appends the value in this pattern (UTF-8). An empty pattern gives the default text form.
  void append(std::string& out, const ValueView& value) const;
  void append(std::string& out, double number) const;
  std::string operator()(ValueView value) const;

  /// The same of a total, which is a decimal: where the pattern leaves a number its default text,
  /// it has no exponent.
  void appendDecimal(std::string& out, double number) const;

 private:
  std::variant<std::monostate, NumberFormat, DateFormat, TextFormat> format_;
};

}  // namespace paperway
