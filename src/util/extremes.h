#pragma once

#include <initializer_list>

#include "util/value.h"

namespace paperway {

/// The greatest, or least, of the values, which are numbers or texts that say a number. No value,
/// or one that is no number, raises an AutomationError that names its place, counted from 1.
double MaximumValue(std::initializer_list<ValueView> Val);
double MinimamValue(std::initializer_list<ValueView> Val);

}  // namespace paperway
