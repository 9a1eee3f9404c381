#pragma once

#include <string>
#include <string_view>

#include "platform/output_file.h"

namespace paperway::workbook {

/// Writes a compound file, the container of the older formats, with these bytes, one part behind
/// the other, as its only stream.
void writeCompoundFile(OutputFile& file, std::string_view streamName, std::string_view firstPart,
                       std::string_view secondPart);

}  // namespace paperway::workbook
