#include "backends/data/workbook/book_file.h"

#include <cmath>
#include <utility>

#include "paperway/automation_error.h"
#include "util/format_pattern.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway::workbook {
namespace {

constexpr std::size_t kMostText = 32767;  // UTF-16 units
constexpr std::size_t kMostFooter = 255;
constexpr double kPointsOfInch = 72;
constexpr double kFirstSurely = 61;  // 1 March 1900; spreadsheets disagree on the days before

double inches(std::int16_t points, double usual) {
  return points > 0 ? points / kPointsOfInch : usual;
}

/// Of UTF-16: those beyond 65,535 are two.
std::size_t unitCount(std::string_view text) {
  std::size_t count = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80 || byte >= 0xC0) ++count;
    if (byte >= 0xF0) ++count;
  }
  return count;
}

std::string grouped(std::int64_t number) {
  return FormatPattern("#,##0")(ValueView(number));
}

}  // namespace

std::string columnLetters(std::int64_t column) {
  constexpr std::int64_t kLetters = 26;
  std::string letters;
  for (; column >= 0; column = column / kLetters - 1) {
    letters.insert(letters.begin(), static_cast<char>('A' + column % kLetters));
  }
  return letters;
}

PageMargins::PageMargins(const SheetPage& page)
    : left(inches(page.leftMargin, 0.75)),
      right(inches(page.rightMargin, 0.75)),
      top(inches(page.topMargin, 1)),
      bottom(inches(page.bottomMargin, 1)),
      footer(inches(page.footerMargin, 0.5)) {}

BookFile::BookFile(Storage& storage, const WorkbookTarget& target, const SheetPlan& plan,
                   const SheetLimits& limits)
    : plan_(plan),
      target_(target),
      file_(storage, target.file, target.caller, {.inputs = target.inputs}),
      limits_(limits) {}

void BookFile::emptyCell(std::size_t format) {
  requirePlace();
  putEmpty(format);
  ++column_;
}

void BookFile::textCell(std::size_t format, std::string_view text) {
  requirePlace();
  if (text.size() > kMostText && unitCount(text) > kMostText) {
    failAtCell(AutomationError::kOverflow,
               "has a text of " + grouped(static_cast<std::int64_t>(characterCount(text))) +
                   " characters; a cell holds " + grouped(kMostText));
  }
  if (text.empty()) {
    putEmpty(format);
  } else {
    putText(format, text);
  }
  ++column_;
}

void BookFile::numberCell(std::size_t format, double number) {
  requirePlace();
  if (!std::isfinite(number)) {
    failAtCell(AutomationError::kTypeMismatch, "has a value that is no number a sheet can hold");
  }
  putNumber(format, number);
  ++column_;
}

void BookFile::dateCell(std::size_t format, const Date& date) {
  const double serial = dateToSerial(date);
  if (serial < kFirstSurely) {
    const FormatPattern pattern(date.hasTime() ? "dd-mmm-yyyy hh:nn:ss" : "dd-mmm-yyyy");
    return textCell(format, pattern(date));
  }
  requirePlace();
  putDate(format, serial, date.hasTime() ? DateKind::dayAndTime : DateKind::day);
  ++column_;
}

/// The sum of no cells would be that of its own.
void BookFile::sumCell(std::size_t format, std::int64_t rows, double value) {
  if (rows <= 0) return numberCell(format, 0);
  requirePlace();
  if (!std::isfinite(value)) {
    failAtCell(AutomationError::kOverflow, "has a sum beyond what a sheet can hold");
  }
  putSum(format, rows, value);
  ++column_;
}

void BookFile::endRow() {
  requirePlace();
  putRowEnd();
  ++row_;
  column_ = 0;
}

void BookFile::save() {
  putEnd();
  file_.commit();
}

void BookFile::requirePlace() const {
  if (row_ < limits_.rows && column_ <= limits_.columns) return;
  const std::string beyond = row_ < limits_.rows ? "columns than the " + grouped(limits_.columns)
                                                 : "rows than the " + grouped(limits_.rows);
  throw AutomationError(AutomationError::kOverflow, target_.caller,
                        "Cannot write \"" + textOf(target_.file) + "\": the sheet has more " +
                            beyond + " of its file format. " + limits_.wayOut);
}

void BookFile::failAtCell(long number, const std::string& reason) const {
  throw AutomationError(number, target_.caller,
                        "Cannot write \"" + textOf(target_.file) + "\": cell " +
                            columnLetters(column_) + std::to_string(row_ + 1) + " " + reason + ".");
}

std::string footerText(const SheetPage& page, const WorkbookTarget& target) {
  std::string text;
  for (const auto& [place, part] :
       {std::pair("&L", &page.leftFooter), {"&C", &page.centerFooter}, {"&R", &page.rightFooter}}) {
    if (!part->empty()) text += place + *part;
  }
  if (characterCount(text) <= kMostFooter) return text;
  throw AutomationError(AutomationError::kOverflow, target.caller,
                        "Cannot write \"" + textOf(target.file) + "\": its page footer has " +
                            std::to_string(characterCount(text)) +
                            " characters, with the marks of its three parts; a workbook takes " +
                            std::to_string(kMostFooter) + ".");
}

}  // namespace paperway::workbook
