#pragma once

#include <ctime>

#include "paperway/value.h"

namespace paperway::desktop {

/// Date and time of day where the user is.
inline Date localTime(std::time_t moment) {
  std::tm local{};
  localtime_r(&moment, &local);
  return {
      static_cast<std::int16_t>(local.tm_year + 1900), static_cast<std::uint8_t>(local.tm_mon + 1),
      static_cast<std::uint8_t>(local.tm_mday),        static_cast<std::uint8_t>(local.tm_hour),
      static_cast<std::uint8_t>(local.tm_min),         static_cast<std::uint8_t>(local.tm_sec)};
}

}  // namespace paperway::desktop
