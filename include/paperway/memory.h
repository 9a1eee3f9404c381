#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/export.h"
#include "paperway/platform/storage.h"
#include "paperway/recordset.h"

namespace paperway {

/// A recordset over rows held in memory. Texts are copied into the table, once for each cell. Rows
/// may be added while the cursor stands anywhere; the cursor of a new table stands on row 1.
class PAPERWAY_API MemoryTable final : public Recordset {
 public:
  explicit MemoryTable(std::vector<std::string> names);
  MemoryTable(std::vector<std::string> names, const std::vector<std::vector<Value>>& rows);
  MemoryTable(MemoryTable&&) = default;
  MemoryTable& operator=(MemoryTable&&) = default;

  /// One value for each field, in their order; another number of them raises kInvalidCall.
  void addRow(std::span<const ValueView> cells);
  void addRow(std::initializer_list<ValueView> cells) {
    addRow(std::span(cells.begin(), cells.size()));
  }
  void addRow(const std::vector<Value>& cells);
  void reserveRows(std::size_t rows) { cells_.reserve(rows * names_.size()); }

  void MoveFirst() override { row_ = 0; }
  void MoveLast() override {
    if (rowCount_ == 0) raiseNoRow();
    row_ = rowCount_ - 1;
  }
  void MoveNext() override {
    if (row_ >= rowCount_) raiseNoRow();
    ++row_;
  }
  bool Eof() const override { return row_ >= rowCount_; }
  std::int64_t RecordCount() const override { return static_cast<std::int64_t>(rowCount_); }

  /// The file that the rows were read from.
  void setSourceFile(std::filesystem::path file) { sourceFiles_ = {std::move(file)}; }
  std::vector<std::filesystem::path> sourceFiles() const override { return sourceFiles_; }

  std::size_t fieldCount() const override { return names_.size(); }
  std::string_view fieldName(std::size_t ordinal) const override { return names_[ordinal]; }
  ValueView value(std::size_t ordinal) const override {
    if (row_ >= rowCount_) raiseNoRow();
    return cells_[row_ * names_.size() + ordinal].view();
  }

 private:
  // 16 bytes: the number, the date or the text's place in a block; the text's length; the kind.
  class Cell {
   public:
    explicit Cell(ValueView value) : integer_(0), kind_(value.kind()) {
      if (kind_ == ValueView::Kind::real) real_ = value.real();
      if (kind_ == ValueView::Kind::integer) integer_ = value.integer();
      if (kind_ == ValueView::Kind::date) date_ = value.date();
    }
    Cell(const char* text, std::uint32_t length)
        : text_(text), length_(length), kind_(ValueView::Kind::text) {}

    ValueView view() const {
      switch (kind_) {
        case ValueView::Kind::text:
          return std::string_view(text_, length_);
        case ValueView::Kind::real:
          return real_;
        case ValueView::Kind::integer:
          return integer_;
        case ValueView::Kind::date:
          return date_;
        case ValueView::Kind::null:
          break;
      }
      return {};
    }

   private:
    union {
      const char* text_;
      double real_;
      std::int64_t integer_;
      Date date_;
    };
    std::uint32_t length_ = 0;
    ValueView::Kind kind_;
  };

  [[noreturn]] static void raiseNoRow();
  Cell stored(ValueView value);
  char* room(std::size_t bytes);

  std::vector<std::filesystem::path> sourceFiles_;
  std::vector<std::string> names_;
  std::vector<Cell> cells_;  // row by row
  std::size_t rowCount_ = 0;
  std::size_t row_ = 0;
  std::vector<std::unique_ptr<char[]>> blocks_;  // the texts; never moved, so cells point into them
  std::size_t used_ = 0;                         // bytes of the last block
};

/// A table of texts from comma-separated values (UTF-8, a byte order mark allowed; lines end in LF
/// or CR LF). The first line names the columns. A cell that holds a comma, a quote or a line end
/// stands in quotes, a quote within it doubled. An empty cell is null, one of two quotes an empty
/// text. Empty lines do not count. Anything else is an AutomationError that names `fileName`, the
/// line and the reason.
PAPERWAY_API MemoryTable parseCsv(std::string_view text, std::string_view fileName);

/// The same from a file, which is too large when it has more than `most` bytes.
PAPERWAY_API MemoryTable readCsvFile(Storage& storage, const std::filesystem::path& path,
                                     std::size_t most = PTRDIFF_MAX);

}  // namespace paperway
