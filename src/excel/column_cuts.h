#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "paperway/platform/storage.h"

namespace paperway {

/// Cuts a line at marks, which count characters from its beginning: a cell from each mark to the
/// next, untrimmed, as much of it as the line has. None where the next mark stands to the left.
class ColumnCuts {
 public:
  /// The first mark is where the first cell begins; the last one ends the last cell.
  explicit ColumnCuts(std::span<const std::int16_t> marks) : marks_(marks) {}

  std::size_t cells() const { return marks_.empty() ? 0 : marks_.size() - 1; }
  std::optional<std::string_view> cell(std::string_view line, std::size_t index) const;

 private:
  std::span<const std::int16_t> marks_;
};

/// The lines of a file, which end in CR LF, LF or CR, as far as marks can reach. False from `take`
/// ends the reading.
void readLines(Storage& storage, const std::filesystem::path& file, const std::string& caller,
               const std::function<bool(std::string_view line)>& take);

}  // namespace paperway
