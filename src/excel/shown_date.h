#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "paperway/value.h"

namespace paperway {

/// Reads dates as a pattern such as "dd/mm/yyyy" or "d-mmm-yy" writes them, the day alone or with
/// "hh:nn" or "hh:nn:ss" behind a blank. Two digits of a year are those from 1930 to 2029.
std::optional<Date> shownDate(std::string_view text, std::string_view pattern);

/// The patterns that dates may have been written in, the likelier first: of those that read every
/// one of several dates, the first is taken.
const std::vector<std::string_view>& datePatterns();

}  // namespace paperway
