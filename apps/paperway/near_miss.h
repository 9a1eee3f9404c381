#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace paperway::command {

/// The name that was probably meant: one that `word` begins, or the nearest of those that a slip or
/// two of the keyboard lead to. Empty when there is none. Case does not count.
std::string nearMiss(std::string_view word, const std::vector<std::string>& names);

/// " Did you mean NAME?", or nothing.
std::string didYouMean(std::string_view word, const std::vector<std::string>& names);

}  // namespace paperway::command
