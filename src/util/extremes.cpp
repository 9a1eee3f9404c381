#include "util/extremes.h"

#include <cmath>
#include <functional>
#include <string>

#include "paperway/automation_error.h"
#include "util/numbers.h"
#include "util/value_text.h"

namespace paperway {
namespace {

std::optional<double> asNumber(ValueView value) {
  switch (value.kind()) {
    case ValueView::Kind::real:
      if (std::isnan(value.real())) return std::nullopt;
      return value.real();
    case ValueView::Kind::integer:
      return static_cast<double>(value.integer());
    case ValueView::Kind::text:
      return parseNumber(value.text());
    default:
      return std::nullopt;
  }
}

double numberAt(std::size_t place, ValueView value, const char* member) {
  if (const auto number = asNumber(value)) return *number;
  const std::string text = value.isNull() ? "null" : "\"" + defaultText(value) + "\"";
  throw AutomationError(
      AutomationError::kTypeMismatch, member,
      "Value " + std::to_string(place + 1) + " is " + text + ", which is no number.");
}

template <class KeepsCurrent>
double choose(std::span<const ValueView> values, const char* member, KeepsCurrent keeps) {
  if (values.empty()) {
    throw AutomationError(AutomationError::kSubscript, member, "Value 1 is missing.");
  }
  double chosen = numberAt(0, values.front(), member);
  for (std::size_t place = 1; place < values.size(); ++place) {
    const double number = numberAt(place, values[place], member);
    if (!keeps(chosen, number)) chosen = number;
  }
  return chosen;
}

}  // namespace

double MaximumValue(std::span<const ValueView> Val) {
  return choose(Val, "MaximumValue", std::greater<>());
}

double MinimamValue(std::span<const ValueView> Val) {
  return choose(Val, "MinimamValue", std::less<>());
}

}  // namespace paperway
