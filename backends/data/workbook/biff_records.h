#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace paperway::workbook {

/// The records of the older format (BIFF8), by what they hold.
enum class Biff : std::uint16_t {
  formula = 0x0006,
  endOfPart = 0x000A,
  header = 0x0014,
  footer = 0x0015,
  externSheet = 0x0017,
  name = 0x0018,
  dateMode = 0x0022,
  leftMargin = 0x0026,
  rightMargin = 0x0027,
  topMargin = 0x0028,
  bottomMargin = 0x0029,
  font = 0x0031,
  continued = 0x003C,
  window1 = 0x003D,
  codePage = 0x0042,
  usualColumnWidth = 0x0055,
  columnInfo = 0x007D,
  sheetOptions = 0x0081,
  sheet = 0x0085,
  setup = 0x00A1,
  blanks = 0x00BE,
  cellStyle = 0x00E0,
  texts = 0x00FC,
  textCell = 0x00FD,
  externBook = 0x01AE,
  dimensions = 0x0200,
  blank = 0x0201,
  number = 0x0203,
  row = 0x0208,
  window2 = 0x023E,
  shortNumber = 0x027E,
  style = 0x0293,
  format = 0x041E,
  beginOfPart = 0x0809,
};

/// What a record takes; more of it goes on in the next.
inline constexpr std::size_t kMostOfRecord = 8224;

void putRecord(std::string& out, Biff id, std::string_view data);

/// A text of the format: UTF-16, or its low bytes alone where all high ones are 0.
class BiffText {
 public:
  explicit BiffText(std::string_view utf8);

  unsigned units() const { return units_; }
  /// 1 when each unit has two bytes.
  unsigned flag() const { return wide_ ? 1 : 0; }
  std::size_t unitBytes() const { return wide_ ? 2 : 1; }
  const std::string& bytes() const { return bytes_; }

  /// Flag and text.
  void putTo(std::string& out) const;

 private:
  unsigned units_ = 0;
  bool wide_ = false;
  std::string bytes_;
};

/// The texts that cells name by their place.
class BiffTextsWriter {
 public:
  /// `total` counts what the cells name, `unique` what is here.
  BiffTextsWriter(std::string& out, std::uint32_t total, std::uint32_t unique);
  void add(std::string_view utf8);
  void finish();

 private:
  std::size_t room() const { return kMostOfRecord - record_.size(); }
  void next();

  std::string& out_;
  std::string record_;
  bool first_ = true;
};

}  // namespace paperway::workbook
