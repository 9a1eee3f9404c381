#include "backends/data/odbc/odbc_column.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "paperway/automation_error.h"
#include "util/numbers.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::size_t kTextBytes = 512;
constexpr std::size_t kDecimalBytes = 48;

template <typename T>
T as(std::string_view bytes) {
  T result;
  std::memcpy(&result, bytes.data(), sizeof result);
  return result;
}

template <typename T>
bool parseWhole(std::string_view text, T& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

ValueView readInteger(OdbcColumn&, std::string_view bytes) {
  return std::int64_t{as<SQLBIGINT>(bytes)};
}

ValueView readReal(OdbcColumn&, std::string_view bytes) {
  return as<SQLDOUBLE>(bytes);
}

ValueView checkedDate(const OdbcColumn& column, const SQL_TIMESTAMP_STRUCT& given) {
  const Date date{given.year,
                  static_cast<std::uint8_t>(given.month),
                  static_cast<std::uint8_t>(given.day),
                  static_cast<std::uint8_t>(given.hour),
                  static_cast<std::uint8_t>(given.minute),
                  static_cast<std::uint8_t>(given.second)};
  const bool valid = given.year >= 100 && given.year <= 9999 && given.month >= 1 &&
                     given.month <= 12 && given.day >= 1 && given.day <= 31 && given.hour <= 23 &&
                     given.minute <= 59 && given.second <= 59;
  if (!valid) column.fail("holds a date or time outside the calendar's years 100 to 9999");
  return date;
}

ValueView readTimestamp(OdbcColumn& column, std::string_view bytes) {
  return checkedDate(column, as<SQL_TIMESTAMP_STRUCT>(bytes));
}

ValueView readDate(OdbcColumn& column, std::string_view bytes) {
  const auto day = as<SQL_DATE_STRUCT>(bytes);
  return checkedDate(column, {day.year, day.month, day.day, 0, 0, 0, 0});
}

ValueView readTime(OdbcColumn& column, std::string_view bytes) {
  const auto time = as<SQL_TIME_STRUCT>(bytes);
  return checkedDate(column, {1899, 12, 30, time.hour, time.minute, time.second, 0});
}

ValueView readText(OdbcColumn& column, std::string_view bytes) {
  if (validUtf8Length(bytes) != bytes.size()) column.fail("holds a text that is not UTF-8");
  return bytes;
}

ValueView readWideText(OdbcColumn& column, std::string_view bytes) {
  std::string& text = column.converted();
  text.clear();
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t character = as<char16_t>(bytes.substr(at));
    if (character >= 0xD800 && character < 0xDC00 && at + 3 < bytes.size()) {
      const char32_t low = as<char16_t>(bytes.substr(at + 2));
      if (low >= 0xDC00 && low < 0xE000) {
        character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
        at += 2;
      }
    }
    if (character < 0x80) {
      text += static_cast<char>(character);
    } else {
      const bool half = character >= 0xD800 && character < 0xE000;
      appendCharacter(text, half ? 0xFFFD : character);
    }
  }
  return std::string_view(text);
}

ValueView readBinary(OdbcColumn& column, std::string_view bytes) {
  if (validUtf8Length(bytes) != bytes.size()) column.fail("holds bytes that are no text");
  return bytes;
}

// A number as it is written, any other text as a text.
ValueView readNumber(OdbcColumn& column, std::string_view bytes) {
  std::int64_t integer = 0;
  if (parseWhole(bytes, integer)) return integer;
  if (const auto number = parseNumber(bytes)) return *number;
  return readText(column, bytes);
}

// From the first digit that is not 0 to the last one.
std::size_t significantDigits(std::string_view number) {
  std::size_t count = 0;
  std::size_t zeros = 0;
  for (const char c : number) {
    if (c < '0' || c > '9') continue;
    if (c == '0') {
      zeros += count > 0 ? 1 : 0;
    } else {
      count += zeros + 1;
      zeros = 0;
    }
  }
  return count;
}

// Exact: an integer, or a real where its 15 digits suffice, or else a text of all digits.
ValueView readDecimal(OdbcColumn& column, std::string_view bytes) {
  const std::string_view text = trimBlanks(bytes);
  const std::size_t point = text.find('.');
  const bool hasFraction = point != std::string_view::npos &&
                           text.find_first_not_of('0', point + 1) != std::string_view::npos;
  std::int64_t integer = 0;
  if (!hasFraction && parseWhole(text.substr(0, point), integer)) return integer;
  double real = 0;
  const bool hasDigits = text.find_first_of("0123456789") != std::string_view::npos;
  if (hasDigits && significantDigits(text) <= 15 && parseWhole(text, real)) return real;
  return readText(column, text);
}

ValueView readIsoDate(OdbcColumn& column, std::string_view bytes) {
  if (const auto date = parseIsoDate(bytes)) return *date;
  return readNumber(column, bytes);
}

ValueView readIsoTime(OdbcColumn& column, std::string_view bytes) {
  std::string& onFirstDay = column.converted();
  onFirstDay = "1899-12-30 ";
  onFirstDay += bytes;
  if (const auto time = parseIsoDate(onFirstDay)) return *time;
  return readIsoDate(column, bytes);
}

// SQLite's own way to write a number: no needless zero, and a real always has a point.
bool isSqliteNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  if (text.empty() || text.front() < '0' || text.front() > '9') return false;
  const std::size_t point = text.find('.');
  if (text.front() == '0' && point != 1) return text.size() == 1;
  const std::string_view fraction = text.substr(std::min(point, text.size() - 1) + 1);
  return point == std::string_view::npos || fraction == "0" || !fraction.ends_with('0') ||
         fraction.find('e') != std::string_view::npos;
}

// The driver hands over the results of expressions as texts, numbers too.
ValueView readExpression(OdbcColumn& column, std::string_view bytes) {
  return isSqliteNumber(bytes) ? readNumber(column, bytes) : readText(column, bytes);
}

struct Shape {
  SQLSMALLINT cType;
  OdbcColumn::Read read;
  std::size_t cellBytes;
};

constexpr Shape kInteger{SQL_C_SBIGINT, readInteger, sizeof(SQLBIGINT)};
constexpr Shape kReal{SQL_C_DOUBLE, readReal, sizeof(SQLDOUBLE)};
constexpr Shape kDate{SQL_C_TYPE_DATE, readDate, sizeof(SQL_DATE_STRUCT)};
constexpr Shape kTime{SQL_C_TYPE_TIME, readTime, sizeof(SQL_TIME_STRUCT)};
constexpr Shape kTimestamp{SQL_C_TYPE_TIMESTAMP, readTimestamp, sizeof(SQL_TIMESTAMP_STRUCT)};
constexpr Shape kDecimal{SQL_C_CHAR, readDecimal, kDecimalBytes};
constexpr Shape kBinary{SQL_C_BINARY, readBinary, kTextBytes};

// A short text takes just its room; what the driver says of long ones counts for nothing.
Shape textShape(const OdbcDescription& column, bool wide) {
  const std::size_t declared = column.size == 0 ? kTextBytes : (column.size + 2) * 4;
  const std::size_t room = std::min<std::size_t>(kTextBytes, (declared + 7) / 8 * 8);
  if (wide) return {SQL_C_WCHAR, readWideText, room};
  return {SQL_C_CHAR, readText, room};
}

bool isAnyOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::any_of(names.begin(), names.end(),
                     [name](std::string_view one) { return equalIgnoringCase(one, name); });
}

// Whatever a column declares, any cell may hold anything: as texts they all arrive whole.
Shape looseShape(const OdbcDescription& column) {
  const auto textual = [](OdbcColumn::Read read) { return Shape{SQL_C_CHAR, read, kTextBytes}; };
  switch (column.type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return textual(readNumber);
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return textual(readIsoDate);
    case SQL_TYPE_TIME:
      return textual(readIsoTime);
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return kBinary;
    default:
      if (isAnyOf(column.typeName, {"decimal"})) return textual(readNumber);
      return textual(column.isExpression ? readExpression : readText);
  }
}

Shape shapeOf(const OdbcDescription& column, const OdbcDriver& driver) {
  if (driver.looseTypes) return looseShape(column);
  switch (column.type) {
    case SQL_BIGINT:
      return column.isUnsigned ? kDecimal : kInteger;
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
      return kInteger;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return kReal;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return kDecimal;
    case SQL_TYPE_DATE:
      return kDate;
    case SQL_TYPE_TIME:
      return kTime;
    case SQL_TYPE_TIMESTAMP:
      return kTimestamp;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return kBinary;
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR:
      return textShape(column, true);
    default:
      if (isAnyOf(column.typeName, {"bool", "boolean"})) return kDecimal;
      return textShape(column, driver.wideText);
  }
}

std::size_t endMarkOf(SQLSMALLINT cType) {
  if (cType == SQL_C_WCHAR) return sizeof(SQLWCHAR);
  return cType == SQL_C_CHAR ? 1 : 0;
}

bool hasFixedSize(SQLSMALLINT cType) {
  return cType != SQL_C_CHAR && cType != SQL_C_WCHAR && cType != SQL_C_BINARY;
}

}  // namespace

OdbcColumn::OdbcColumn(const OdbcDescription& description, const OdbcDriver& driver)
    : name_(description.name) {
  const Shape shape = shapeOf(description, driver);
  cType_ = shape.cType;
  read_ = shape.read;
  fixedSize_ = hasFixedSize(shape.cType);
  cellBytes_ = shape.cellBytes;
  endMarkBytes_ = endMarkOf(shape.cType);
}

void OdbcColumn::reserveRows(std::size_t rows) {
  cells_.resize(rows * cellBytes_);
  lengths_.resize(rows);
}

void OdbcColumn::fail(const std::string& what) const {
  throw AutomationError(
      AutomationError::kTypeMismatch, "OdbcRecordset",
      "The field \"" + name_ + "\" of row " + std::to_string(number_) + " " + what + ".");
}

}  // namespace paperway
