#pragma once

#include <string>
#include <string_view>

namespace paperway::workbook {

/// A number pattern of the automation platform as the format code in which a spreadsheet shows the
/// same: words are quoted, sections spelt out. "General" for an empty one.
std::string formatCode(std::string_view pattern);

/// The same of a pattern of dates, of days, months, years and times of 24 hours.
std::string dateCode(std::string_view pattern);

}  // namespace paperway::workbook
