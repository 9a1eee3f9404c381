#include "util/date.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace paperway {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr int kSecondsPerDay = 86400;
constexpr sys_days kSerialZero{
    year_month_day{std::chrono::year{1899}, std::chrono::month{12}, std::chrono::day{30}}};
constexpr double kFirstSerial = -657434;  // 1 January 100
constexpr double kLastSerial = 2958465;   // 31 December 9999

year_month_day calendarDay(const Date& date) {
  return {std::chrono::year{date.year}, std::chrono::month{date.month}, std::chrono::day{date.day}};
}

/// Reads `count` digits at `at`; false when one is none.
bool readDigits(const char* at, int count, int& number) {
  number = 0;
  for (int i = 0; i < count; ++i) {
    const unsigned digit = static_cast<unsigned char>(at[i]) - unsigned{'0'};
    if (digit > 9) return false;
    number = number * 10 + static_cast<int>(digit);
  }
  return true;
}

bool takeDigits(std::string_view& text, int count, int& number) {
  if (text.size() < static_cast<std::size_t>(count)) return false;
  if (!readDigits(text.data(), count, number)) return false;
  text.remove_prefix(static_cast<std::size_t>(count));
  return true;
}

bool takeMark(std::string_view& text, char mark) {
  if (text.empty() || text[0] != mark) return false;
  text.remove_prefix(1);
  return true;
}

/// ".123": true also when there is none.
bool skipFraction(std::string_view& text) {
  if (!takeMark(text, '.')) return true;
  const auto end = std::min(text.find_first_not_of("0123456789"), text.size());
  text.remove_prefix(end);
  return end > 0;
}

/// "Z", "+05:30", "+0530", "+05" or nothing.
bool isZone(std::string_view text) {
  if (text.empty() || text == "Z" || text == "z") return true;
  int hour = 0;
  int minute = 0;
  if (!takeMark(text, '+') && !takeMark(text, '-')) return false;
  if (!takeDigits(text, 2, hour)) return false;
  if (text.empty()) return true;
  takeMark(text, ':');
  return takeDigits(text, 2, minute) && text.empty();
}

bool readTime(std::string_view text, Date& date) {
  int hour = 0;
  int minute = 0;
  int second = 0;
  if (!takeDigits(text, 2, hour) || !takeMark(text, ':') || !takeDigits(text, 2, minute)) {
    return false;
  }
  if (takeMark(text, ':') && !(takeDigits(text, 2, second) && skipFraction(text))) return false;
  if (hour > 23 || minute > 59 || second > 59 || !isZone(text)) return false;
  date.hour = static_cast<std::uint8_t>(hour);
  date.minute = static_cast<std::uint8_t>(minute);
  date.second = static_cast<std::uint8_t>(second);
  return true;
}

bool existsDay(int year, int month, int day) {
  if (year < 100 || month < 1 || month > 12 || day < 1) return false;
  if (day <= 28) return true;
  static constexpr std::uint8_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leapDay = month == 2 && year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return day <= kDays[month - 1] + (leapDay ? 1 : 0);
}

}  // namespace

std::optional<Date> parseIsoDate(std::string_view text) {
  int year = 0;
  int month = 0;
  int day = 0;
  const char* at = text.data();
  if (text.size() < 10 || at[4] != '-' || at[7] != '-') return std::nullopt;
  if (!readDigits(at, 4, year) || !readDigits(at + 5, 2, month) || !readDigits(at + 8, 2, day) ||
      !existsDay(year, month, day)) {
    return std::nullopt;
  }
  Date date{static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month),
            static_cast<std::uint8_t>(day)};
  if (text.size() == 10) return date;
  if (at[10] != 'T' && at[10] != 't' && at[10] != ' ') return std::nullopt;
  if (!readTime(text.substr(11), date)) return std::nullopt;
  return date;
}

double dateToSerial(const Date& date) {
  const double day = (sys_days{calendarDay(date)} - kSerialZero).count();
  const int seconds = (date.hour * 60 + date.minute) * 60 + date.second;
  const double fraction = static_cast<double>(seconds) / kSecondsPerDay;
  return day < 0 ? day - fraction : day + fraction;
}

std::optional<Date> serialToDate(double serial) {
  if (!(serial > kFirstSerial - 1 && serial < kLastSerial + 1)) return std::nullopt;
  double day = std::trunc(serial);
  int seconds = static_cast<int>(std::lround(std::abs(serial - day) * kSecondsPerDay));
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    ++day;
  }
  if (day < kFirstSerial || day > kLastSerial) return std::nullopt;
  const year_month_day found{kSerialZero + days{static_cast<int>(day)}};
  return Date{static_cast<std::int16_t>(int{found.year()}),
              static_cast<std::uint8_t>(unsigned{found.month()}),
              static_cast<std::uint8_t>(unsigned{found.day()}),
              static_cast<std::uint8_t>(seconds / 3600),
              static_cast<std::uint8_t>(seconds / 60 % 60),
              static_cast<std::uint8_t>(seconds % 60)};
}

int dayOfWeek(const Date& date) {
  return static_cast<int>(std::chrono::weekday{sys_days{calendarDay(date)}}.c_encoding());
}

int dayOfYear(const Date& date) {
  const sys_days newYear{calendarDay(Date{date.year, 1, 1})};
  return static_cast<int>((sys_days{calendarDay(date)} - newYear).count()) + 1;
}

}  // namespace paperway
