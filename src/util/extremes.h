#pragma once

#include <initializer_list>
#include <span>

#include "paperway/value.h"

namespace paperway {

/// The greatest, or least, of the values, which are numbers or texts that say a number. No value,
/// or one that is no number, raises an AutomationError that names its place, counted from 1.
double MaximumValue(std::span<const ValueView> Val);
double MinimamValue(std::span<const ValueView> Val);

inline double MaximumValue(std::initializer_list<ValueView> Val) {
  return MaximumValue(std::span(Val.begin(), Val.size()));
}
inline double MinimamValue(std::initializer_list<ValueView> Val) {
  return MinimamValue(std::span(Val.begin(), Val.size()));
}

}  // namespace paperway
