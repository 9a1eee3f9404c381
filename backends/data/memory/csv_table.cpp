#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "paperway/automation_error.h"
#include "paperway/memory.h"
#include "platform/input_file.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

using Cells = std::vector<std::optional<std::string>>;

class CsvReader {
 public:
  CsvReader(std::string_view text, std::string_view fileName) : text_(text), fileName_(fileName) {}

  MemoryTable table();

 private:
  bool nextRecord(Cells& cells);
  std::optional<std::string> cell();
  std::string quotedCell();
  std::vector<std::string> columnNames();

  bool atEnd() const { return place_ == text_.size(); }
  bool atLineEnd() const {
    return text_.substr(place_).starts_with('\n') || text_.substr(place_).starts_with("\r\n");
  }
  void skipLineEnd();
  void checkUtf8();
  [[noreturn]] void fail(std::size_t line, const std::string& reason) const;

  std::string_view text_;
  std::string_view fileName_;
  std::size_t place_ = 0;
  std::size_t line_ = 1;        // of place_
  std::size_t recordLine_ = 1;  // on which the record in hand begins
};

MemoryTable CsvReader::table() {
  checkUtf8();
  if (text_.starts_with(kByteOrderMark)) place_ = kByteOrderMark.size();
  MemoryTable result(columnNames());
  Cells cells;
  std::vector<ValueView> views;
  while (nextRecord(cells)) {
    if (cells.size() != result.fieldCount()) {
      fail(recordLine_, std::to_string(cells.size()) + (cells.size() == 1 ? " cell" : " cells") +
                            " for " + std::to_string(result.fieldCount()) + " columns");
    }
    views.clear();
    for (const auto& each : cells) {
      views.push_back(each ? ValueView(std::string_view(*each)) : ValueView());
    }
    result.addRow(views);
  }
  return result;
}

void CsvReader::checkUtf8() {
  const std::size_t valid = validUtf8Length(text_);
  if (valid == text_.size()) return;
  const auto lineEnds = std::count(text_.begin(), text_.begin() + static_cast<long>(valid), '\n');
  fail(static_cast<std::size_t>(lineEnds) + 1, "text that is not UTF-8");
}

std::vector<std::string> CsvReader::columnNames() {
  Cells cells;
  if (!nextRecord(cells)) fail(line_, "the line that names the columns is missing");
  std::vector<std::string> names;
  for (auto& each : cells) {
    std::string name(trimBlanks(each.value_or("")));
    if (name.empty()) {
      fail(recordLine_, "column " + std::to_string(names.size() + 1) + " has no name");
    }
    const auto same = [&name](const std::string& other) { return equalIgnoringCase(name, other); };
    if (std::any_of(names.begin(), names.end(), same)) {
      fail(recordLine_, "two columns have the name \"" + name + "\"");
    }
    names.push_back(std::move(name));
  }
  return names;
}

bool CsvReader::nextRecord(Cells& cells) {
  while (atLineEnd()) skipLineEnd();
  if (atEnd()) return false;
  recordLine_ = line_;
  cells.clear();
  cells.push_back(cell());
  while (text_.substr(place_).starts_with(',')) {
    ++place_;
    cells.push_back(cell());
  }
  if (!atEnd()) skipLineEnd();
  return true;
}

std::optional<std::string> CsvReader::cell() {
  if (text_.substr(place_).starts_with('"')) return quotedCell();
  const std::size_t start = place_;
  while (!atEnd() && text_[place_] != ',' && !atLineEnd()) {
    if (text_[place_] == '"') fail(line_, "a quote within a cell that does not begin with one");
    ++place_;
  }
  if (place_ == start) return std::nullopt;
  return std::string(text_.substr(start, place_ - start));
}

std::string CsvReader::quotedCell() {
  const std::size_t firstLine = line_;
  std::string result;
  ++place_;
  while (true) {
    const std::size_t quote = text_.find('"', place_);
    if (quote == std::string_view::npos) fail(firstLine, "a quoted cell that does not end");
    const std::string_view part = text_.substr(place_, quote - place_);
    result += part;
    line_ += static_cast<std::size_t>(std::count(part.begin(), part.end(), '\n'));
    place_ = quote + 1;
    if (!text_.substr(place_).starts_with('"')) break;
    result += '"';
    ++place_;
  }
  if (!atEnd() && text_[place_] != ',' && !atLineEnd()) fail(line_, "text behind a quoted cell");
  return result;
}

void CsvReader::skipLineEnd() {
  place_ += text_[place_] == '\r' ? 2 : 1;
  ++line_;
}

void CsvReader::fail(std::size_t line, const std::string& reason) const {
  throw AutomationError(
      AutomationError::kDataProvider, "CsvTable",
      "\"" + std::string(fileName_) + "\", line " + std::to_string(line) + ": " + reason + ".");
}

}  // namespace

MemoryTable parseCsv(std::string_view text, std::string_view fileName) {
  return CsvReader(text, fileName).table();
}

MemoryTable readCsvFile(Storage& storage, const std::filesystem::path& path, std::size_t most) {
  MemoryTable table = parseCsv(readFile(storage, path, "CsvTable", most), path.string());
  table.setSourceFile(path);
  return table;
}

}  // namespace paperway
