#pragma once

#include <string>
#include <string_view>

namespace paperway::workbook {

/// Appends a text (UTF-8) as it stands between tags or in quotes of a workbook's XML. What XML
/// cannot carry is "_x0007_", and a text that already looks so gets its "_" written like that; CR
/// LF becomes LF.
void appendXmlText(std::string& out, std::string_view text);

/// Whether readers would drop blanks at the ends of the text.
bool needsSpacePreserved(std::string_view text);

}  // namespace paperway::workbook
