#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace paperway {

/// The path that a text of a host's (UTF-8) names, and the text that names a path.
inline std::filesystem::path pathOf(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

inline std::string textOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace paperway
