#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/platform/storage.h"

namespace paperway {

/// A column of a text report: its place in the lines, and what its cells say.
struct ReportColumn {
  enum class Kind { text, number, date };

  std::size_t begin = 0;  // its first character, from 0 on, and behind its last
  std::size_t end = 0;
  std::size_t leftSlack = 0;  // characters by which its begin may move where a cell needs it
  std::size_t rightSlack = 0;
  Kind kind = Kind::text;
  std::string pattern{};  // of numbers ("0.00"; empty: as they come) and dates ("dd/mm/yyyy")
  std::string heading{};  // UTF-8
};

struct ColumnMap {
  std::vector<ReportColumn> columns;

  /// Where the columns end, as marks of the column pick.
  std::vector<std::int16_t> marks() const;
};

/// The cells of a line, without blanks around them. False when letters stand on both sides of an
/// edge, so that a word was cut.
bool cutCells(std::string_view line, const ColumnMap& map, std::vector<std::string_view>& cells);

/// A map as a text file that people can read and change; UTF-8. Failures are AutomationErrors that
/// name the file, and the line where there is one.
void saveColumnMap(Storage& storage, const std::filesystem::path& file, const ColumnMap& map,
                   const std::string& caller, const std::vector<std::filesystem::path>& inputs);
ColumnMap loadColumnMap(Storage& storage, const std::filesystem::path& file,
                        const std::string& caller);

}  // namespace paperway
