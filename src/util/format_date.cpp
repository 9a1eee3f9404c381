#include "util/format_date.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>

#include "util/date_text.h"

namespace paperway {

namespace {

constexpr std::string_view kMonths[] = {"January",   "February", "March",    "April",
                                        "May",       "June",     "July",     "August",
                                        "September", "October",  "November", "December"};
constexpr std::string_view kWeekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                          "Thursday", "Friday", "Saturday"};
constexpr std::size_t kAbbreviation = 3;

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
}

bool isLetter(const Symbol& symbol, char letter) {
  return !symbol.literal && lower(symbol.character) == letter;
}

bool startsWith(Symbols symbols, std::string_view word) {
  return symbols.size() >= word.size() &&
         std::equal(word.begin(), word.end(), symbols.begin(),
                    [](char letter, const Symbol& symbol) { return isLetter(symbol, letter); });
}

std::size_t runLength(Symbols symbols) {
  const char letter = lower(symbols[0].character);
  const auto end = std::find_if_not(symbols.begin(), symbols.end(),
                                    [&](const Symbol& each) { return isLetter(each, letter); });
  return static_cast<std::size_t>(end - symbols.begin());
}

char* writeText(char* at, std::string_view text) {
  std::memcpy(at, text.data(), text.size());
  return at + text.size();
}

std::string_view monthName(const Date& date) {
  return kMonths[date.month - 1];
}

std::string_view weekdayName(const Date& date) {
  return kWeekdays[dayOfWeek(date)];
}

/// Weeks begin on Sunday; that of 1 January is the first.
unsigned weekOfYear(const Date& date) {
  return static_cast<unsigned>(dayOfYear(date) - 1 + dayOfWeek({date.year, 1, 1})) / 7 + 1;
}

char* writeDayOfYear(char* at, const Date& date) {
  const auto day = static_cast<unsigned>(dayOfYear(date));
  if (day < 100) return writeSmall(at, day);
  *at++ = static_cast<char>('0' + day / 100);
  return writeTwoDigits(at, day % 100);
}

char* writeLongDate(char* at, const Date& date) {
  at = writeText(writeText(at, weekdayName(date)), ", ");
  at = writeText(writeText(at, monthName(date)), " ");
  return writeYear(writeText(writeSmall(at, date.day), ", "), date);
}

/// The date, the time or both, whichever says something.
char* writeGeneral(char* at, const Date& date) {
  static constexpr Date kNoDay;
  const bool day = Date{date.year, date.month, date.day} != kNoDay;
  if (day) at = writeShortDate(at, date);
  if (day && date.hasTime()) *at++ = ' ';
  return !day || date.hasTime() ? writeLongTime(at, date) : at;
}

constexpr std::string_view kHalvesOfDay[] = {"am/pm", "ampm", "a/p"};

}  // namespace

/// What a letter means when it is repeated once, twice and so on; of longer runs the longest
/// meaning is taken first.
struct DateFormat::Letter {
  char letter;
  std::uint8_t count;
  Part part;
  std::uint8_t room;  // bytes of its longest text
};

const DateFormat::Letter DateFormat::kLetters[] = {
    {'d', 6, Part::longDate, 29},
    {'d', 5, Part::shortDate, 10},
    {'d', 4, Part::weekdayLong, 9},
    {'d', 3, Part::weekdayShort, 3},
    {'d', 2, Part::dayTwoDigits, 2},
    {'d', 1, Part::day, 2},
    {'w', 2, Part::week, 2},
    {'w', 1, Part::weekdayNumber, 1},
    {'m', 4, Part::monthLong, 9},
    {'m', 3, Part::monthShort, 3},
    {'m', 2, Part::monthTwoDigits, 2},
    {'m', 1, Part::month, 2},
    {'q', 1, Part::quarter, 1},
    {'y', 4, Part::year, 4},
    {'y', 2, Part::yearTwoDigits, 2},
    {'y', 1, Part::dayOfYear, 3},
    {'h', 2, Part::hourTwoDigits, 2},
    {'h', 1, Part::hour, 2},
    {'n', 2, Part::minuteTwoDigits, 2},
    {'n', 1, Part::minute, 2},
    {'s', 2, Part::secondTwoDigits, 2},
    {'s', 1, Part::second, 2},
    {'t', 5, Part::longTime, 11},
    {'c', 1, Part::general, 22},
};

bool beginsDateSymbol(Symbols rest) {
  if (rest[0].literal) return false;
  if (std::string_view("dwmqyhnsc").find(lower(rest[0].character)) != std::string_view::npos) {
    return true;
  }
  return startsWith(rest, "ttttt") ||
         std::any_of(std::begin(kHalvesOfDay), std::end(kHalvesOfDay),
                     [&](std::string_view word) { return startsWith(rest, word); });
}

DateFormat::DateFormat(Symbols pattern) {
  while (!pattern.empty()) {
    std::size_t taken = readHalfOfDay(pattern);
    if (taken == 0) taken = readLetters(pattern);
    if (taken == 0) {
      addLiteral(pattern[0].character);
      taken = 1;
    }
    pattern = pattern.subspan(taken);
  }
  useTwelveHours();
}

/// Takes one symbol made of a repeated letter; 0 when none begins here.
std::size_t DateFormat::readLetters(Symbols rest) {
  if (rest[0].literal) return 0;
  const char letter = lower(rest[0].character);
  const std::size_t run = runLength(rest);
  for (const Letter& each : kLetters) {
    if (each.letter != letter || each.count > run) continue;
    add(each.part, each.room);
    return each.count;
  }
  return 0;
}

/// "AM/PM" and its kin: the words to write are the pattern's own; "AMPM" is the system's.
std::size_t DateFormat::readHalfOfDay(Symbols rest) {
  for (const std::string_view word : kHalvesOfDay) {
    if (!startsWith(rest, word)) continue;
    const bool small = rest[0].character == 'a' && word != "ampm";
    const std::string_view halves =
        word == "a/p" ? (small ? "ap" : "AP") : (small ? "ampm" : "AMPM");
    add(Part::halfOfDay, halves.size() / 2);
    steps_.back().text = static_cast<std::uint32_t>(texts_.size());
    steps_.back().length = static_cast<std::uint8_t>(halves.size() / 2);
    texts_ += halves;
    return word.size();
  }
  return 0;
}

void DateFormat::addLiteral(char c) {
  constexpr std::uint8_t kLongest = std::numeric_limits<std::uint8_t>::max();
  if (steps_.empty() || steps_.back().part != Part::literal || steps_.back().length == kLongest) {
    steps_.push_back({Part::literal, 0, static_cast<std::uint32_t>(texts_.size())});
  }
  ++steps_.back().length;
  texts_ += c;
  ++room_;
}

/// Right behind hours, months are minutes.
void DateFormat::add(Part part, std::size_t room) {
  const auto last = std::find_if(steps_.rbegin(), steps_.rend(),
                                 [](const Step& step) { return step.part != Part::literal; });
  if (last != steps_.rend() && (last->part == Part::hour || last->part == Part::hourTwoDigits)) {
    if (part == Part::month) part = Part::minute;
    if (part == Part::monthTwoDigits) part = Part::minuteTwoDigits;
  }
  steps_.push_back({part});
  room_ += room;
}

void DateFormat::useTwelveHours() {
  if (std::none_of(steps_.begin(), steps_.end(),
                   [](const Step& step) { return step.part == Part::halfOfDay; })) {
    return;
  }
  for (Step& step : steps_) {
    if (step.part == Part::hour) step.part = Part::hourOfTwelve;
    if (step.part == Part::hourTwoDigits) step.part = Part::hourOfTwelveTwoDigits;
  }
}

void DateFormat::append(std::string& out, const ValueView& value) const {
  std::optional<Date> date;
  switch (value.kind()) {
    case ValueView::Kind::null:
      return;
    case ValueView::Kind::date:
      append(out, value.date());
      return;
    case ValueView::Kind::real:
      date = serialToDate(value.real());
      break;
    case ValueView::Kind::integer:
      date = serialToDate(static_cast<double>(value.integer()));
      break;
    case ValueView::Kind::text:
      date = parseIsoDate(value.text());
      if (!date) {
        const auto number = parseNumber(value.text());
        if (number) date = serialToDate(*number);
      }
      break;
  }
  if (date) {
    append(out, *date);
  } else {
    appendDefaultText(out, value);
  }
}

void DateFormat::append(std::string& out, const Date& date) const {
  const std::size_t before = out.size();
  out.resize(before + room_);
  char* at = out.data() + before;
  for (const Step& step : steps_) at = write(at, step, date);
  out.resize(static_cast<std::size_t>(at - out.data()));
}

char* DateFormat::write(char* at, const Step& step, const Date& date) const {
  switch (step.part) {
    case Part::literal:
      return writeText(at, {texts_.data() + step.text, step.length});
    case Part::day:
      return writeSmall(at, date.day);
    case Part::dayTwoDigits:
      return writeTwoDigits(at, date.day);
    case Part::weekdayShort:
      return writeText(at, weekdayName(date).substr(0, kAbbreviation));
    case Part::weekdayLong:
      return writeText(at, weekdayName(date));
    case Part::weekdayNumber:
      return writeSmall(at, static_cast<unsigned>(dayOfWeek(date)) + 1);
    case Part::week:
      return writeSmall(at, weekOfYear(date));
    case Part::month:
      return writeSmall(at, date.month);
    case Part::monthTwoDigits:
      return writeTwoDigits(at, date.month);
    case Part::monthShort:
      return writeText(at, monthName(date).substr(0, kAbbreviation));
    case Part::monthLong:
      return writeText(at, monthName(date));
    case Part::quarter:
      return writeSmall(at, (date.month + 2u) / 3);
    case Part::dayOfYear:
      return writeDayOfYear(at, date);
    case Part::yearTwoDigits:
      return writeTwoDigits(at, static_cast<unsigned>(date.year % 100));
    case Part::year:
      return writeYear(at, date);
    case Part::hour:
      return writeSmall(at, date.hour);
    case Part::hourTwoDigits:
      return writeTwoDigits(at, date.hour);
    case Part::hourOfTwelve:
      return writeSmall(at, twelveHours(date));
    case Part::hourOfTwelveTwoDigits:
      return writeTwoDigits(at, twelveHours(date));
    case Part::minute:
      return writeSmall(at, date.minute);
    case Part::minuteTwoDigits:
      return writeTwoDigits(at, date.minute);
    case Part::second:
      return writeSmall(at, date.second);
    case Part::secondTwoDigits:
      return writeTwoDigits(at, date.second);
    case Part::halfOfDay:
      return writeText(
          at, {texts_.data() + step.text + (date.hour < 12 ? 0 : step.length), step.length});
    case Part::shortDate:
      return writeShortDate(at, date);
    case Part::longDate:
      return writeLongDate(at, date);
    case Part::longTime:
      return writeLongTime(at, date);
    case Part::general:
      return writeGeneral(at, date);
  }
  return at;
}

}  // namespace paperway
