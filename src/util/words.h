#pragma once

#include <cstdint>
#include <string>

#include "paperway/value.h"

namespace paperway {

/// An amount in words, grouped in hundreds, thousands, lakhs and crores: "One Crore Twelve Thousand
/// Three Hundred Forty-Five and Fifty- Paisa Only". Below 1 it is "zero ", above 999999999 the
/// words are "# Error #". Paise are rounded to the nearest, ties to even; 100 of them carry into
/// the whole. A number that is not finite raises an AutomationError.
std::string NumToText(double Num);

/// The part behind the point, counted up from the next lower whole number: 0.75 for -2.25.
float Desi(double Kk);

/// A number at 15 significant digits, or the number that any other value's text begins with (which
/// reads no exponent), rounded to two decimals, halves towards plus infinity. Zero gives the empty
/// value; null raises an AutomationError.
Value round_curr(ValueView currValue);

/// Name of the month, 1 to 12; any other number raises an AutomationError.
std::string MonName(std::uint8_t Mon);

}  // namespace paperway
