#pragma once

#include <string>

#include "paperway/value.h"

namespace paperway {

/// The default text form (UTF-8). Null is empty. A real has at most 15 significant digits and no
/// trailing zeros, with an exponent ("1E+15", "1E-05") from 1E15 up and below 0.0001; an integer
/// has all its digits. A date is "m/d/yyyy", with " h:mm:ss AM/PM" behind it when it has a time.
void appendDefaultText(std::string& out, const ValueView& value);
std::string defaultText(ValueView value);

/// The text of a number as a decimal: at most 15 significant digits and 28 places, no exponent.
void appendDecimalText(std::string& out, double number);

/// The number text: the default text with one leading blank in place of a plus sign and no zero
/// before the point (" .5", "-.5", " 12").
std::string numberText(double number);

}  // namespace paperway
