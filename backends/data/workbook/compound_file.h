#pragma once

#include <initializer_list>
#include <string_view>

#include "platform/output_file.h"

namespace paperway::workbook {

/// Writes a compound file, the container of the older formats, with these parts, one behind the
/// other, as its only stream.
void writeCompoundFile(OutputFile& file, std::string_view streamName,
                       std::initializer_list<std::string_view> parts);

}  // namespace paperway::workbook
