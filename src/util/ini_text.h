#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace paperway {

/// The text of a settings file, all of it windows-1252: lines ended by CR LF (or LF), "[section]"
/// lines with "key=value" lines below them, no comments, no blanks trimmed. Sections and keys match
/// without regard to case.

/// The value; nothing when there is none. A line that holds a "[" ends the section, even when the
/// "[" stands in a value.
std::optional<std::string> findSetting(std::string_view file, std::string_view section,
                                       std::string_view key);

/// The text with the setting in place of its old line, or right below the section's line, or in a
/// new section at the end. Blank lines in a row become one, those at the ends vanish.
std::string withSetting(std::string_view file, std::string_view section, std::string_view key,
                        std::string_view value);

}  // namespace paperway
