#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "paperway/platform/storage.h"
#include "paperway/platform/workbook.h"
#include "platform/output_file.h"

namespace paperway::workbook {

/// What a sheet of a file format holds.
struct SheetLimits {
  std::int64_t rows;
  std::int64_t columns;
  const char* wayOut;  // what else somebody with more rows can do; a sentence
};

/// The letters of a column, from 0 ("A") on.
std::string columnLetters(std::int64_t column);

/// The names by which sums and print titles know the sheet.
inline constexpr const char* kSheetName = "Sheet1";
inline constexpr const char* kUsualFont = "Arial";
inline constexpr int kUsualFontSize = 10;     // points
inline constexpr double kWidestColumn = 255;  // characters

/// The margins of a page in inches, those that are not given as programs have them.
struct PageMargins {
  explicit PageMargins(const SheetPage& page);

  double left;
  double right;
  double top;
  double bottom;
  double header = 0.5;
  double footer;
};

/// What the files of all formats have in common: where the next cell stands, and what it may hold.
class BookFile : public Workbook {
 public:
  BookFile(Storage& storage, const WorkbookTarget& target, const SheetPlan& plan,
           const SheetLimits& limits);

  void emptyCell(std::size_t format) final;
  void textCell(std::size_t format, std::string_view text) final;
  void numberCell(std::size_t format, double number) final;
  void dateCell(std::size_t format, const Date& date) final;
  void sumCell(std::size_t format, std::int64_t rows, double value) final;
  void endRow() final;
  void save() final;

 protected:
  enum class DateKind { day, dayAndTime };

  virtual void putEmpty(std::size_t format) = 0;
  virtual void putText(std::size_t format, std::string_view text) = 0;
  virtual void putNumber(std::size_t format, double number) = 0;
  /// As a serial, which a format of dates shows.
  virtual void putDate(std::size_t format, double serial, DateKind kind) = 0;
  virtual void putSum(std::size_t format, std::int64_t rows, double value) = 0;
  virtual void putRowEnd() = 0;
  /// The rest of the file.
  virtual void putEnd() = 0;

  const SheetPlan plan_;
  const WorkbookTarget target_;
  OutputFile file_;
  std::int64_t row_ = 0;  // of the next cell, from 0 on
  std::int64_t column_ = 0;

 private:
  void requirePlace() const;
  [[noreturn]] void failAtCell(long number, const std::string& reason) const;

  const SheetLimits limits_;
};

/// "&L", "&C" and "&R" with their texts, as a page's footer is kept. Longer than 255 characters it
/// raises an AutomationError.
std::string footerText(const SheetPage& page, const WorkbookTarget& target);

}  // namespace paperway::workbook
