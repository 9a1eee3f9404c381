#include <algorithm>
#include <limits>

#include "paperway/automation_error.h"
#include "paperway/memory.h"

namespace paperway {
namespace {

constexpr std::size_t kBlockSize = 64 * 1024;

}  // namespace

MemoryTable::MemoryTable(std::vector<std::string> names) : names_(std::move(names)) {}

MemoryTable::MemoryTable(std::vector<std::string> names,
                         const std::vector<std::vector<Value>>& rows)
    : MemoryTable(std::move(names)) {
  reserveRows(rows.size());
  for (const auto& row : rows) addRow(row);
}

void MemoryTable::addRow(std::span<const ValueView> cells) {
  if (cells.size() != names_.size() || cells.empty()) {
    throw AutomationError(AutomationError::kInvalidCall, "MemoryTable",
                          "A row of " + std::to_string(cells.size()) +
                              " values does not fit a table of " + std::to_string(names_.size()) +
                              " fields.");
  }
  for (const ValueView& cell : cells) cells_.push_back(stored(cell));
  ++rowCount_;
}

void MemoryTable::addRow(const std::vector<Value>& cells) {
  const std::vector<ValueView> views(cells.begin(), cells.end());
  addRow(std::span(views));
}

MemoryTable::Cell MemoryTable::stored(ValueView value) {
  if (value.kind() != ValueView::Kind::text) return Cell(value);
  const std::string_view text = value.text();
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw AutomationError(
        AutomationError::kOverflow, "MemoryTable",
        "A text of " + std::to_string(text.size()) + " bytes is too long for a table in memory.");
  }
  char* copy = room(text.size());
  std::copy(text.begin(), text.end(), copy);
  return {copy, static_cast<std::uint32_t>(text.size())};
}

char* MemoryTable::room(std::size_t bytes) {
  if (blocks_.empty() || bytes > kBlockSize - used_) {
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(std::max(bytes, kBlockSize)));
    used_ = 0;
  }
  char* place = blocks_.back().get() + used_;
  used_ = std::min(used_ + bytes, kBlockSize);
  return place;
}

void MemoryTable::raiseNoRow() {
  throw AutomationError(AutomationError::kNoCurrentRow, "MemoryTable",
                        "The recordset has no current row.");
}

}  // namespace paperway
