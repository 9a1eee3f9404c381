#include "backends/data/workbook/xls_file.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "backends/data/workbook/biff_records.h"
#include "backends/data/workbook/book_file.h"
#include "backends/data/workbook/compound_file.h"
#include "backends/data/workbook/little_endian.h"
#include "backends/data/workbook/xls_globals.h"
#include "util/digits.h"

namespace paperway::workbook {
namespace {

constexpr SheetLimits kLimits{65'536, 256, "A name that ends in \".xlsx\" takes 1,048,576 rows."};

/// A whole number, or one of hundredths, in 30 bits.
std::optional<std::uint32_t> shortNumber(double number) {
  constexpr std::int64_t kMost = std::int64_t{1} << 29;
  constexpr unsigned kInteger = 2;
  constexpr unsigned kHundredths = 1;
  std::int64_t scaled = 0;
  for (const unsigned mark : {kInteger, kInteger | kHundredths}) {
    if (scaleExactly(number, mark == kInteger ? 0 : 2, scaled) && scaled >= -kMost &&
        scaled < kMost) {
      return static_cast<std::uint32_t>(static_cast<std::uint64_t>(scaled) << 2U) | mark;
    }
  }
  return std::nullopt;
}

class XlsFile : public BookFile {
 public:
  XlsFile(Storage& storage, const WorkbookTarget& target, const SheetPlan& plan)
      : BookFile(storage, target, plan, kLimits) {}

 protected:
  void putEmpty(std::size_t format) override {
    if (blanks_.empty()) firstBlank_ = column_;
    blanks_.push_back(xlsStyle(format, 0));
  }

  void putText(std::size_t format, std::string_view text) override {
    std::string data = cell(xlsStyle(format, 0));
    put32(data, placeOf(text));
    putRecord(cells_, Biff::textCell, data);
    ++named_;
  }

  void putNumber(std::size_t format, double number) override {
    putNumberIn(xlsStyle(format, 0), number);
  }

  void putDate(std::size_t format, double serial, DateKind kind) override {
    putNumberIn(xlsStyle(format, kind == DateKind::day ? 1 : 2), serial);
  }

  void putSum(std::size_t format, std::int64_t rows, double value) override {
    constexpr unsigned kArea = 0x25;
    constexpr unsigned kFunction = 0x42;
    constexpr unsigned kSum = 4;
    constexpr unsigned kRelative = 0xC000;
    constexpr unsigned kFormulaBytes = 13;
    std::string data = cell(xlsStyle(format, 0));
    putDouble(data, value);
    put16(data, 0);
    put32(data, 0);
    put16(data, kFormulaBytes);
    put8(data, kArea);
    put16(data, static_cast<unsigned>(row_ - rows));
    put16(data, static_cast<unsigned>(row_ - 1));
    put16(data, static_cast<unsigned>(column_) | kRelative);
    put16(data, static_cast<unsigned>(column_) | kRelative);
    put8(data, kFunction);
    put8(data, 1);
    put16(data, kSum);
    putRecord(cells_, Biff::formula, data);
  }

  void putRowEnd() override {
    constexpr unsigned kUsualHeight = 0x80FF;
    constexpr std::uint32_t kUsualLook = 0xF0100;
    putBlanks();
    std::string row;
    for (const unsigned field :
         {static_cast<unsigned>(row_), 0U, static_cast<unsigned>(column_), kUsualHeight, 0U, 0U}) {
      put16(row, field);
    }
    put32(row, kUsualLook);
    putRecord(rows_, Biff::row, row);
    rows_ += cells_;
    cells_.clear();
    columns_ = std::max(columns_, column_);
  }

  void putEnd() override {
    std::string end;
    std::string window;
    for (const unsigned field : {0x06B6, 0, 0, 0x40, 0, 0, 0, 0, 0}) put16(window, field);
    putRecord(end, Biff::window2, window);
    putRecord(end, Biff::endOfPart, "");
    const std::vector<std::string_view> texts(texts_.begin(), texts_.end());
    writeCompoundFile(file_, "Workbook",
                      {xlsGlobals(plan_, texts, named_),
                       xlsSheetHead(plan_, target_, row_, columns_), rows_, end});
  }

 private:
  /// Row, column and style of the cell in hand, behind the blanks before it.
  std::string cell(unsigned style) {
    putBlanks();
    std::string data;
    put16(data, static_cast<unsigned>(row_));
    put16(data, static_cast<unsigned>(column_));
    put16(data, style);
    return data;
  }

  void putNumberIn(unsigned style, double number) {
    std::string data = cell(style);
    if (const auto small = shortNumber(number)) {
      put32(data, *small);
      return putRecord(cells_, Biff::shortNumber, data);
    }
    putDouble(data, number);
    putRecord(cells_, Biff::number, data);
  }

  void putBlanks() {
    if (blanks_.empty()) return;
    std::string data;
    put16(data, static_cast<unsigned>(row_));
    put16(data, static_cast<unsigned>(firstBlank_));
    for (const unsigned style : blanks_) put16(data, style);
    const bool many = blanks_.size() > 1;
    if (many) put16(data, static_cast<unsigned>(firstBlank_) + blanks_.size() - 1);
    putRecord(cells_, many ? Biff::blanks : Biff::blank, data);
    blanks_.clear();
  }

  std::uint32_t placeOf(std::string_view text) {
    const auto found = places_.find(text);
    if (found != places_.end()) return found->second;
    const auto place = static_cast<std::uint32_t>(texts_.size());
    places_.emplace(texts_.emplace_back(text), place);
    return place;
  }

  std::string rows_;
  std::string cells_;             // of the row in hand
  std::vector<unsigned> blanks_;  // styles of those that wait for the next cell
  std::int64_t firstBlank_ = 0;
  std::int64_t columns_ = 0;
  std::deque<std::string> texts_;  // each once, where it stays
  std::unordered_map<std::string_view, std::uint32_t> places_;
  std::uint32_t named_ = 0;
};

}  // namespace

std::unique_ptr<Workbook> createXls(Storage& storage, const WorkbookTarget& target,
                                    const SheetPlan& plan) {
  return std::make_unique<XlsFile>(storage, target, plan);
}

}  // namespace paperway::workbook
