#include "excel/spooled_workbook.h"

#include <cstring>
#include <system_error>
#include <utility>

#include "platform/file_error.h"
#include "platform/input_file.h"

namespace paperway {
namespace {

constexpr std::size_t kBlock = 128 * 1024;

/// The record of a cell: its kind, its format, then the bytes of what it holds.
template <class Value>
void append(std::string& out, const Value& value) {
  const auto at = out.size();
  out.resize(at + sizeof value);
  std::memcpy(out.data() + at, &value, sizeof value);
}

class RecordReader {
 public:
  explicit RecordReader(std::string_view records) : rest_(records) {}

  /// False when the record is not here to its end.
  template <class Value>
  bool take(Value& value) {
    if (rest_.size() < sizeof value) return false;
    std::memcpy(&value, rest_.data(), sizeof value);
    rest_.remove_prefix(sizeof value);
    return true;
  }
  bool takeText(std::string_view& text) {
    std::size_t size = 0;
    if (!take(size) || rest_.size() < size) return false;
    text = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return true;
  }

  std::size_t left() const { return rest_.size(); }

 private:
  std::string_view rest_;
};

}  // namespace

SpooledWorkbook::SpooledWorkbook(Storage& storage, Folders& folders, std::string caller)
    : storage_(storage), caller_(std::move(caller)) {
  const std::filesystem::path folder = folders.temporary();
  for (int number = 1; file_ == nullptr; ++number) {
    path_ = folder / (".paperway-sheet-" + std::to_string(number));
    withFileError("create", path_, caller_, [&] {
      storage_.removeAbandoned(path_);
      try {
        file_ = storage_.create(path_, FileAccess::owner);
      } catch (const std::system_error& error) {
        if (error.code() != std::errc::file_exists) throw;
      }
    });
  }
}

SpooledWorkbook::~SpooledWorkbook() {
  file_.reset();
  try {
    storage_.remove(path_);
  } catch (const std::system_error&) {
    // The next one removes it.
  }
}

void SpooledWorkbook::put(Kind kind, std::size_t format) {
  if (block_.size() >= kBlock) flush();
  append(block_, kind);
  append(block_, format);
}

void SpooledWorkbook::flush() {
  withFileError("write", path_, caller_, [&] { file_->write(block_); });
  block_.clear();
}

void SpooledWorkbook::emptyCell(std::size_t format) {
  put(Kind::empty, format);
}

void SpooledWorkbook::textCell(std::size_t format, std::string_view text) {
  put(Kind::text, format);
  append(block_, text.size());
  block_ += text;
}

void SpooledWorkbook::numberCell(std::size_t format, double number) {
  put(Kind::number, format);
  append(block_, number);
}

void SpooledWorkbook::dateCell(std::size_t format, const Date& date) {
  put(Kind::date, format);
  append(block_, date);
}

void SpooledWorkbook::sumCell(std::size_t format, std::int64_t rows, double value) {
  put(Kind::sum, format);
  append(block_, rows);
  append(block_, value);
}

void SpooledWorkbook::endRow() {
  put(Kind::endOfRow, 0);
}

void SpooledWorkbook::writeTo(Workbook& book) {
  flush();
  std::string records;
  readBlocks(storage_, path_, caller_, [&](std::string_view block) {
    records += block;
    records.erase(0, replay(records, book));
  });
}

/// Gives the records that are whole to the workbook; their length.
std::size_t SpooledWorkbook::replay(std::string_view records, Workbook& book) {
  RecordReader reader(records);
  for (std::size_t begin = 0;; begin = records.size() - reader.left()) {
    Kind kind{};
    std::size_t format = 0;
    if (!reader.take(kind) || !reader.take(format)) return begin;
    std::string_view text;
    double number = 0;
    std::int64_t rows = 0;
    Date date;
    switch (kind) {
      case Kind::empty:
        book.emptyCell(format);
        break;
      case Kind::text:
        if (!reader.takeText(text)) return begin;
        book.textCell(format, text);
        break;
      case Kind::number:
        if (!reader.take(number)) return begin;
        book.numberCell(format, number);
        break;
      case Kind::date:
        if (!reader.take(date)) return begin;
        book.dateCell(format, date);
        break;
      case Kind::sum:
        if (!reader.take(rows) || !reader.take(number)) return begin;
        book.sumCell(format, rows, number);
        break;
      case Kind::endOfRow:
        book.endRow();
        break;
    }
  }
}

}  // namespace paperway
