#pragma once

#include <string>
#include <string_view>

#include "report/report_format.h"

namespace paperway {

/// The texts of the documents that show a table. They are UTF-8; the file is windows-1252.

/// Appends the bytes of a text; a character that the code page lacks is a reference to its number.
void appendHtmlBytes(std::string& out, std::string_view utf8);
std::string htmlBytes(std::string_view utf8);

/// The number text without its leading blank.
std::string plainNumber(double number);

/// "&lt;", "&gt;" and "&quot;" for the three signs; an "&" stays.
void appendEscaped(std::string& out, std::string_view text);
std::string escaped(std::string_view text);

/// The font of a column: "<font face='Arial Narrow'>".
std::string fontTag(const ColumnFormat& column);

/// A font's name without what makes it a tag.
std::string fontFamily(std::string tag);

}  // namespace paperway
