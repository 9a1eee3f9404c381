#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "paperway/platform/folders.h"
#include "paperway/platform/storage.h"
#include "paperway/platform/workbook.h"

namespace paperway {

/// The rows of a workbook that has no name yet, in a temporary file that goes with the object.
class SpooledWorkbook : public Workbook {
 public:
  /// `caller` is whom errors name.
  SpooledWorkbook(Storage& storage, Folders& folders, std::string caller);
  ~SpooledWorkbook() override;

  void emptyCell(std::size_t format) override;
  void textCell(std::size_t format, std::string_view text) override;
  void numberCell(std::size_t format, double number) override;
  void dateCell(std::size_t format, const Date& date) override;
  void sumCell(std::size_t format, std::int64_t rows, double value) override;
  void endRow() override;
  void save() override {}

  /// Gives the rows to a workbook that has its name. Nothing may be spooled afterwards.
  void writeTo(Workbook& book);

 private:
  enum class Kind : char { empty, text, number, date, sum, endOfRow };

  void put(Kind kind, std::size_t format);
  void flush();
  static std::size_t replay(std::string_view records, Workbook& book);

  Storage& storage_;
  const std::string caller_;
  std::filesystem::path path_;
  std::unique_ptr<StoredFile> file_;
  std::string block_;
};

}  // namespace paperway
