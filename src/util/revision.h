#pragma once

#include <cstdint>

namespace paperway {

/// The revision of the library, counted up with each release, as hosts and windows show it.
inline constexpr std::int16_t kRevision = 1;

}  // namespace paperway
