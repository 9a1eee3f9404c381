#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "paperway/value.h"

namespace paperway {

/// The leading-number rule (Val): leading blanks are skipped, then a sign, digits and one "." are
/// read as far as they go; no number gives 0.
double leadingNumber(std::string_view text);

/// The nearest whole number, the even one of two that are as near; none is beyond 1E15.
std::int64_t wholeNumber(double number);

/// The number that a value stands for in a number column: null is 0, a number is itself at 15
/// significant digits, any other value is its default text read by leadingNumber.
double columnNumber(const ValueView& value);

/// The number that the whole of a text says ("12", " -1.5 ", "1E3"), blanks around it allowed;
/// nothing when it says anything else.
std::optional<double> parseNumber(std::string_view text);

}  // namespace paperway
