#pragma once

#include "paperway/value.h"

namespace paperway {

/// 0 Sunday to 6 Saturday; 1 to 366.
int dayOfWeek(const Date& date);
int dayOfYear(const Date& date);

}  // namespace paperway
