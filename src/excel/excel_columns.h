#pragma once

#include <cstdint>
#include <string>

namespace paperway {

/// The letters of a sheet's column, from 1 ("A") to 260; none beyond. A number below -64 raises
/// kInvalidCall.
std::string GetExcelCol(std::int32_t col);

}  // namespace paperway
