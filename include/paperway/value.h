#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

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
double dateToSerial(const Date& date);
std::optional<Date> serialToDate(double serial);

/// ISO 8601 "2026-03-05", optionally with "T" or a blank and "14:07", "14:07:09", a fraction of a
/// second (dropped) and "Z" or an offset (dropped: the text's own wall clock counts). Nothing for
/// any other text, or for a day that does not exist.
std::optional<Date> parseIsoDate(std::string_view text);

/// 0 Sunday to 6 Saturday; 1 to 366.
int dayOfWeek(const Date& date);
int dayOfYear(const Date& date);

/// A typed value of a row: null, text (UTF-8), number or date.
using Value = std::variant<std::monostate, std::string, double, std::int64_t, Date>;

/// The same without owning its text, small enough to be passed by value. The text lives as long as
/// whoever gave the view says: for a recordset until its cursor moves.
class ValueView {
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

/// The decimal digits of a number: 0.d1d2d3… × 10^exponent, d1 not 0; zero has no digits.
struct Decimal {
  static constexpr int kMaxDigits = 20;

  bool negative = false;
  int count = 0;            // digits in use, no trailing zeros
  int exponent = 0;         // place of the point, counted from the first digit
  char digits[kMaxDigits];  // '0' to '9', `count` of them

  /// At most 15 significant digits, rounded half away from zero on the shortest decimal form.
  /// A value that is not finite gives zero digits; ask std::isfinite first where it matters.
  static Decimal fromDouble(double number);
  static Decimal fromInteger(std::int64_t number);

  bool isZero() const { return count == 0; }

  /// Rounds to the first `kept` digits, half away from zero. With `kept` 0 the place before the
  /// first digit is what is kept, and below 0 nothing is.
  void keepDigits(int kept);

  /// The nearest double.
  double toDouble() const;
};

/// The default text form (UTF-8). Null is empty. A real has at most 15 significant digits and no
/// trailing zeros, with an exponent ("1E+15", "1E-05") from 1E15 up and below 0.0001; an integer
/// has all its digits. A date is "m/d/yyyy", with " h:mm:ss AM/PM" behind it when it has a time.
void appendDefaultText(std::string& out, const ValueView& value);
std::string defaultText(ValueView value);

/// The text of a number as a decimal: at most 15 significant digits and 28 places, no exponent.
void appendDecimalText(std::string& out, double number);

/// The number text: the default text with one leading blank in place of a plus sign and no zero
/// before the point (" .5", "-.5", " 12").
std::string numberText(double number);

/// The leading-number rule (Val): leading blanks are skipped, then a sign, digits and one "." are
/// read as far as they go; no number gives 0.
double leadingNumber(std::string_view text);

/// The nearest whole number, the even one of two that are as near; none is beyond 1E15.
std::int64_t wholeNumber(double number);

/// The number that a value stands for in a number column: null is 0, a number is itself at 15
/// significant digits, any other value is its default text read by leadingNumber.
double columnNumber(const ValueView& value);

/// The number that the whole of a text says ("12", " -1.5 ", "1E3"), blanks around it allowed;
/// nothing when it says anything else.
std::optional<double> parseNumber(std::string_view text);

}  // namespace paperway
