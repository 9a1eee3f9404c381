#pragma once

#include <string>
#include <string_view>

namespace paperway {

/// One word of a shell, whatever stands in it.
inline std::string shellQuoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

}  // namespace paperway
