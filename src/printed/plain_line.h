#pragma once

#include <string>
#include <string_view>

namespace paperway {

/// The characters of a line where they stand, without codes: what a reader of the paper would see,
/// each character at single width.
std::string plainLine(std::string_view line);

}  // namespace paperway
