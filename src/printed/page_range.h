#pragma once

#include <cstdint>
#include <filesystem>

namespace paperway {

/// Writes the pages of a report from `first` to `last`, counted from 1, each with its form feed, to
/// a file that takes its place when it is complete. Gives the number of pages that the report has;
/// when `first` is beyond it, nothing is written. An AutomationError when a file fails.
std::int64_t writePages(const std::filesystem::path& report, std::int64_t first, std::int64_t last,
                        const std::filesystem::path& target);

}  // namespace paperway
