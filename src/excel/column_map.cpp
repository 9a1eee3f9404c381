#include "excel/column_map.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "paperway/automation_error.h"
#include "platform/file_error.h"
#include "platform/input_file.h"
#include "platform/output_file.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::size_t kReach = std::numeric_limits<std::int16_t>::max();
constexpr std::array<std::string_view, 3> kKinds = {"text", "number", "date"};

bool isInk(std::string_view line, std::size_t at) {
  return at < line.size() && line[at] != ' ';
}

/// Where the column begins in this line: beside its own begin when letters stand on both sides of
/// that, and a blank is as near as the slack allows.
std::size_t cutOf(std::string_view line, const ReportColumn& column, bool& whole) {
  const std::size_t at = column.begin;
  if (at == 0 || !isInk(line, at) || !isInk(line, at - 1)) return at;
  for (std::size_t by = 1; by <= std::max(column.leftSlack, column.rightSlack); ++by) {
    if (by <= column.rightSlack && !isInk(line, at + by)) return at + by;
    if (by <= column.leftSlack && !isInk(line, at - by - 1)) return at - by;
  }
  whole = false;
  return at;
}

// "  6 | 15 | date | dd/mm/yyyy | Bill date"

constexpr std::string_view kTop =
    "# The columns of a text report: first and last character, what the cells say (text, number "
    "or\n"
    "# date), the pattern of numbers and dates, and the heading.\n";

std::string padded(std::size_t number) {
  const std::string digits = std::to_string(number);
  return std::string(digits.size() < 4 ? 4 - digits.size() : 0, ' ') + digits;
}

std::string_view takePart(std::string_view& line) {
  const std::size_t end = line.find('|');
  const std::string_view part = line.substr(0, end);
  line.remove_prefix(end == line.npos ? line.size() : end + 1);
  return trimBlanks(part);
}

bool readNumber(std::string_view text, std::size_t& number) {
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size() && number >= 1 &&
         number <= kReach;
}

/// What is wrong with the line, if anything is.
std::string readColumn(std::string_view line, ReportColumn& column) {
  std::size_t first = 0;
  if (!readNumber(takePart(line), first)) return "the first character is no number from 1 to 32767";
  if (!readNumber(takePart(line), column.end)) return "the last character is no number up to 32767";
  if (column.end < first) return "the last character stands before the first";
  column.begin = first - 1;
  const auto kind = std::find(kKinds.begin(), kKinds.end(), takePart(line));
  if (kind == kKinds.end()) return "the cells are none of text, number, date";
  column.kind = static_cast<ReportColumn::Kind>(kind - kKinds.begin());
  column.pattern = takePart(line);
  if (column.kind == ReportColumn::Kind::date && column.pattern.empty()) {
    return "a date needs a pattern, such as dd/mm/yyyy";
  }
  column.heading = trimBlanks(line);
  return "";
}

}  // namespace

std::vector<std::int16_t> ColumnMap::marks() const {
  std::vector<std::int16_t> marks;
  for (const ReportColumn& column : columns) {
    marks.push_back(static_cast<std::int16_t>(std::min(column.end, kReach)));
  }
  return marks;
}

bool cutCells(std::string_view line, const ColumnMap& map, std::vector<std::string_view>& cells) {
  bool whole = true;
  cells.clear();
  std::size_t begin = map.columns.empty() ? 0 : cutOf(line, map.columns.front(), whole);
  for (std::size_t i = 0; i < map.columns.size(); ++i) {
    const ReportColumn& column = map.columns[i];
    const ReportColumn* const next = i + 1 < map.columns.size() ? &map.columns[i + 1] : nullptr;
    const std::size_t nextBegin = next == nullptr ? column.end : cutOf(line, *next, whole);
    const std::size_t end = next != nullptr && next->begin == column.end ? nextBegin : column.end;
    cells.push_back(begin < line.size() && begin < end ? trimBlanks(line.substr(begin, end - begin))
                                                       : std::string_view());
    begin = nextBegin;
  }
  return whole;
}

void saveColumnMap(Storage& storage, const std::filesystem::path& file, const ColumnMap& map,
                   const std::string& caller, const std::vector<std::filesystem::path>& inputs) {
  std::string text(kTop);
  for (const ReportColumn& column : map.columns) {
    text += padded(column.begin + 1) + " | " + padded(column.end) + " | " +
            std::string(kKinds[static_cast<std::size_t>(column.kind)]) + " | " + column.pattern +
            " | " + column.heading + "\n";
  }
  replaceFile(storage, file, text, caller, {.inputs = inputs});
}

ColumnMap loadColumnMap(Storage& storage, const std::filesystem::path& file,
                        const std::string& caller) {
  constexpr std::size_t kMost = 1 << 20;
  const std::string text = readFile(storage, file, caller, kMost);
  const auto refuse = [&](std::size_t line, const std::string& reason) {
    throw AutomationError(AutomationError::kApplicationDefined, caller,
                          "\"" + textOf(file) + "\" is no column map: " +
                              (line > 0 ? "line " + std::to_string(line) + ": " : "") + reason);
  };
  ColumnMap map;
  std::size_t number = 0;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view line = takeLine(rest);
    ++number;
    if (trimBlanks(line).empty() || trimBlanks(line).starts_with('#')) continue;
    ReportColumn column;
    if (const std::string wrong = readColumn(line, column); !wrong.empty()) refuse(number, wrong);
    if (!map.columns.empty() && column.begin < map.columns.back().end) {
      refuse(number, "the column begins within the one before");
    }
    map.columns.push_back(std::move(column));
  }
  if (map.columns.empty()) refuse(0, "it names no column");
  return map;
}

}  // namespace paperway
