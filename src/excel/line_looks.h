#pragma once

#include <cstddef>
#include <string_view>

namespace paperway {

// What the lines of a text report look like. A rule is three dashes or more, of "-", "=" or "_",
// and blanks.

inline constexpr std::size_t kMostHeadings = 4;  // lines between the rules of a head

bool isBlank(std::string_view text);
bool isRule(std::string_view text);
/// Without a blank within.
bool isFullRule(std::string_view text);

/// Pieces of a line that two blanks divide.
std::size_t pieces(std::string_view text);

/// Words, and fewer numbers than words: what a heading says, and a row hardly.
bool saysHeading(std::string_view text);

/// Page numbers and times differ from page to page.
bool equalButDigits(std::string_view one, std::string_view other);

/// A code that changes how characters look; a tab does not.
bool holdsStyles(std::string_view raw);

}  // namespace paperway
