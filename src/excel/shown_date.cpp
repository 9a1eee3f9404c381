#include "excel/shown_date.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "util/text.h"

namespace paperway {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

/// Takes a date off a text, part by part of its pattern.
class DateReader {
 public:
  DateReader(std::string_view text, std::string_view pattern) : text_(text), pattern_(pattern) {}

  std::optional<Date> read() {
    date_.hour = 0;
    while (!pattern_.empty()) {
      const std::size_t length =
          std::min(pattern_.find_first_not_of(pattern_.front()), pattern_.size());
      if (!take(pattern_.front(), length)) return std::nullopt;
      pattern_.remove_prefix(length);
    }
    if (!text_.empty() || !isDay()) return std::nullopt;
    return date_;
  }

 private:
  bool take(char part, std::size_t length) {
    switch (part) {
      case 'd':
        return number(date_.day, length);
      case 'm':
        return length < 3 ? number(date_.month, length) : month(length);
      case 'y':
        return year(length);
      case 'h':
        return number(date_.hour, length) && date_.hour < 24;
      case 'n':
        return number(date_.minute, length) && date_.minute < 60;
      case 's':
        return number(date_.second, length) && date_.second < 60;
      default:
        if (!text_.starts_with(part)) return false;
        text_.remove_prefix(1);
        return true;
    }
  }

  /// Of two digits, or of one or two.
  bool number(std::uint8_t& part, std::size_t digits) {
    const char* const begin = text_.data();
    const auto read = std::from_chars(begin, begin + std::min<std::size_t>(2, text_.size()), part);
    const auto length = static_cast<std::size_t>(read.ptr - begin);
    if (read.ec != std::errc() || length < digits) return false;
    text_.remove_prefix(length);
    return true;
  }

  bool year(std::size_t digits) {
    constexpr std::int16_t kFirstOfThe1900s = 30;
    const char* const begin = text_.data();
    const auto read = std::from_chars(begin, begin + std::min(digits, text_.size()), date_.year);
    if (read.ec != std::errc() || read.ptr != begin + digits || date_.year < 0) return false;
    text_.remove_prefix(digits);
    if (digits == 2) {
      date_.year =
          static_cast<std::int16_t>(date_.year + (date_.year < kFirstOfThe1900s ? 2000 : 1900));
    }
    return true;
  }

  /// By its name, or by three letters of it.
  bool month(std::size_t letters) {
    for (std::size_t i = 0; i < kMonths.size(); ++i) {
      const std::string_view name = letters == 3 ? kMonths[i].substr(0, 3) : kMonths[i];
      if (!equalIgnoringCase(text_.substr(0, name.size()), name)) continue;
      date_.month = static_cast<std::uint8_t>(i + 1);
      text_.remove_prefix(name.size());
      return true;
    }
    return false;
  }

  bool isDay() const {
    return date_.year >= 100 && date_.month >= 1 && date_.month <= 12 && date_.day >= 1 &&
           date_.day <= 31 && serialToDate(dateToSerial(date_)) == date_;
  }

  std::string_view text_;
  std::string_view pattern_;
  Date date_;
};

}  // namespace

std::optional<Date> shownDate(std::string_view text, std::string_view pattern) {
  return DateReader(text, pattern).read();
}

const std::vector<std::string_view>& datePatterns() {
  static const std::vector<std::string_view> kPatterns = {"dd/mm/yyyy",
                                                          "mm/dd/yyyy",
                                                          "dd-mm-yyyy",
                                                          "mm-dd-yyyy",
                                                          "dd.mm.yyyy",
                                                          "yyyy-mm-dd",
                                                          "yyyy/mm/dd",
                                                          "dd-mmm-yyyy",
                                                          "dd-mmm-yy",
                                                          "dd mmm yyyy",
                                                          "dd/mmm/yyyy",
                                                          "dd mmmm yyyy",
                                                          "dd/mm/yy",
                                                          "mm/dd/yy",
                                                          "dd-mm-yy",
                                                          "mm-dd-yy",
                                                          "dd.mm.yy",
                                                          "d/m/yyyy",
                                                          "m/d/yyyy",
                                                          "d-m-yyyy",
                                                          "d.m.yyyy",
                                                          "d-mmm-yyyy",
                                                          "d-mmm-yy",
                                                          "d mmm yyyy",
                                                          "d mmmm yyyy",
                                                          "d/m/yy",
                                                          "m/d/yy",
                                                          "d-m-yy",
                                                          "d.m.yy",
                                                          "dd/mm/yyyy hh:nn",
                                                          "mm/dd/yyyy hh:nn",
                                                          "dd-mm-yyyy hh:nn",
                                                          "dd-mmm-yyyy hh:nn",
                                                          "yyyy-mm-dd hh:nn",
                                                          "dd/mm/yyyy hh:nn:ss",
                                                          "dd-mm-yyyy hh:nn:ss",
                                                          "dd-mmm-yyyy hh:nn:ss",
                                                          "yyyy-mm-dd hh:nn:ss"};
  return kPatterns;
}

}  // namespace paperway
