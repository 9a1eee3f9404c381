#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "util/format_symbols.h"
#include "util/value.h"

namespace paperway {

/// A compiled date pattern.
class DateFormat {
 public:
  explicit DateFormat(Symbols pattern);

  void append(std::string& out, const ValueView& value) const;
  void append(std::string& out, const Date& date) const;

 private:
  enum class Part : std::uint8_t {
    literal,
    day,
    dayTwoDigits,
    weekdayShort,
    weekdayLong,
    weekdayNumber,
    week,
    month,
    monthTwoDigits,
    monthShort,
    monthLong,
    quarter,
    dayOfYear,
    yearTwoDigits,
    year,
    hour,
    hourTwoDigits,
    hourOfTwelve,
    hourOfTwelveTwoDigits,
    minute,
    minuteTwoDigits,
    second,
    secondTwoDigits,
    halfOfDay,
    shortDate,
    longDate,
    longTime,
    general,
  };

  /// A literal, or the words for the halves of the day, are texts_[text, text + length).
  struct Step {
    Part part;
    std::uint8_t length = 0;
    std::uint32_t text = 0;
  };

  struct Letter;

  std::size_t readLetters(Symbols rest);
  std::size_t readHalfOfDay(Symbols rest);
  void addLiteral(char c);
  void add(Part part, std::size_t room);
  void useTwelveHours();
  char* write(char* at, const Step& step, const Date& date) const;

  static const Letter kLetters[];

  std::vector<Step> steps_;
  std::string texts_;
  std::size_t room_ = 0;  // bytes that the longest date takes
};

/// Whether a date symbol begins there.
bool beginsDateSymbol(Symbols rest);

}  // namespace paperway
