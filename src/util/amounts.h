#pragma once

#include <string>

#include "paperway/value.h"

namespace paperway {

/// The members of Class1 by these names.
std::string NumToText(double Num);
float Desi(double Kk);
Value round_curr(ValueView currValue);

}  // namespace paperway
