#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "paperway/export.h"
#include "paperway/value.h"

namespace paperway {

/// How a cell looks. Texts are UTF-8.
struct CellFormat {
  std::string font{};  // empty: the workbook's own
  bool bold = false;
  std::string numberFormat{};  // pattern of the automation platform ("#,##0.00"); empty: general
  std::string dateFormat{};    // the same of dates ("dd/mm/yyyy"); empty: as usual
  bool grid = false;           // a thin line on each of its four sides

  bool operator==(const CellFormat&) const = default;
};

/// How the sheet is printed. Margins are in points, 72 to the inch; up to 0: the workbook's own.
struct SheetPage {
  std::int16_t paper = 9;  // published number; A4
  bool landscape = false;
  std::int16_t topMargin = 0;
  std::int16_t bottomMargin = 0;
  std::int16_t rightMargin = 0;
  std::int16_t leftMargin = 0;
  std::int16_t footerMargin = 0;
  std::string leftFooter{};  // "&P" is the page's number, "&N" that of all pages
  std::string centerFooter{};
  std::string rightFooter{};
  int titleRows = 0;  // as many of the first rows head each page
};

/// All that is known of a sheet before its first row.
struct SheetPlan {
  std::vector<CellFormat> formats{CellFormat{}};      // cells name them by their place
  std::vector<std::optional<double>> columnWidths{};  // in characters, 0 hides; none: the usual one
  SheetPage page{};
};

/// A workbook of one sheet, written row by row, from left to right; no row is kept. It appears
/// whole with save(); one that is given up before leaves an earlier file as it was. Failures are
/// AutomationErrors that name the file, and the cell where there is one.
class PAPERWAY_API Workbook {
 public:
  virtual ~Workbook() = default;

  // The next cell of the row in hand

  virtual void emptyCell(std::size_t format) = 0;
  /// UTF-8. Stays a text, whatever it says.
  virtual void textCell(std::size_t format, std::string_view text) = 0;
  virtual void numberCell(std::size_t format, double number) = 0;
  virtual void dateCell(std::size_t format, const Date& date) = 0;
  /// The sum of as many cells above this one, with its value, for programs that do not calculate.
  virtual void sumCell(std::size_t format, std::int64_t rows, double value) = 0;

  virtual void endRow() = 0;

  /// Completes the file and puts it in place. Nothing may be written afterwards.
  virtual void save() = 0;
};

/// Where a workbook goes.
struct WorkbookTarget {
  std::filesystem::path file{};
  std::string caller{};                         // whom errors name ("Excel_Export")
  std::vector<std::filesystem::path> inputs{};  // what the rows come from; refused as the file
};

/// Makes workbooks.
class PAPERWAY_API Workbooks {
 public:
  virtual ~Workbooks() = default;

  /// The file in which a workbook of that name would be: the end of the name decides on the format,
  /// a name without one gets that of the newest. An AutomationError for any other end.
  virtual std::filesystem::path fileNamed(const std::filesystem::path& name) = 0;
  /// The target's file is one that fileNamed() gave.
  virtual std::unique_ptr<Workbook> create(const WorkbookTarget& target, const SheetPlan& plan) = 0;
};

}  // namespace paperway
