#pragma once

#include <cstdint>

namespace paperway {

/// The revision number of the program's version, as hosts and windows show it.
inline constexpr std::int16_t kRevision = 1;

}  // namespace paperway
