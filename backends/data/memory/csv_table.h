#pragma once

#include <filesystem>
#include <string_view>

#include "backends/data/memory/memory_table.h"

namespace paperway {

/// A table of texts from comma-separated values (UTF-8, a byte order mark allowed; lines end in LF
/// or CR LF). The first line names the columns. A cell that holds a comma, a quote or a line end
/// stands in quotes, a quote within it doubled. An empty cell is null, one of two quotes an empty
/// text. Empty lines do not count. Anything else is an AutomationError that names `fileName`, the
/// line and the reason.
MemoryTable parseCsv(std::string_view text, std::string_view fileName);

/// The same from a file.
MemoryTable readCsvFile(const std::filesystem::path& path);

}  // namespace paperway
