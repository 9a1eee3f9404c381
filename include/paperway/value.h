#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "paperway/export.h"

namespace paperway {

/// A day of the Gregorian calendar (years 100 to 9999) with a time of day to the second.
struct Date {
  std::int16_t year = 1899;
  std::uint8_t month = 12;
  std::uint8_t day = 30;
  std::uint8_t hour = 0;
  std::uint8_t minute = 0;
  std::uint8_t second = 0;

  auto operator<=>(const Date&) const = default;
  bool hasTime() const { return hour != 0 || minute != 0 || second != 0; }
};

/// Days since 30 December 1899 with the time of day as the fraction, and back. Before that day the
/// fraction still counts forward from midnight, as the automation platform keeps it.
PAPERWAY_API double dateToSerial(const Date& date);
PAPERWAY_API std::optional<Date> serialToDate(double serial);

/// ISO 8601 "2026-03-05", optionally with "T" or a blank and "14:07", "14:07:09", a fraction of a
/// second (dropped) and "Z" or an offset (dropped: the text's own wall clock counts). Nothing for
/// any other text, or for a day that does not exist.
PAPERWAY_API std::optional<Date> parseIsoDate(std::string_view text);

/// A typed value of a row: null, text (UTF-8), number or date.
using Value = std::variant<std::monostate, std::string, double, std::int64_t, Date>;

/// The same without owning its text, small enough to be passed by value. The text lives as long as
/// whoever gave the view says: for a recordset until its cursor moves.
class PAPERWAY_API ValueView {
 public:
  enum class Kind : std::uint8_t { null, text, real, integer, date };

  ValueView() : kind_(Kind::null), integer_(0) {}
  ValueView(std::string_view text) : kind_(Kind::text), text_(text) {}
  ValueView(const char* text) : ValueView(std::string_view(text)) {}
  ValueView(const std::string& text) : ValueView(std::string_view(text)) {}
  ValueView(double number) : kind_(Kind::real), real_(number) {}
  ValueView(std::int64_t number) : kind_(Kind::integer), integer_(number) {}
  ValueView(int number) : ValueView(std::int64_t{number}) {}
  ValueView(const Date& date) : kind_(Kind::date), date_(date) {}
  ValueView(const Value& value);

  Kind kind() const { return kind_; }
  bool isNull() const { return kind_ == Kind::null; }

  /// Each is valid for its own kind only.
  std::string_view text() const { return text_; }
  double real() const { return real_; }
  std::int64_t integer() const { return integer_; }
  const Date& date() const { return date_; }

  Value toValue() const;

 private:
  Kind kind_;
  union {
    std::string_view text_;
    double real_;
    std::int64_t integer_;
    Date date_;
  };
};

}  // namespace paperway
