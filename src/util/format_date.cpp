#include "util/format_date.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "util/date.h"
#include "util/numbers.h"
#include "util/value_text.h"

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

char* writeShort(char* at, std::string_view name) {
  return writeText(at, name.substr(0, kAbbreviation));
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

/// What a letter means when it is repeated so many times; of longer runs the longest meaning is
/// taken first. No pattern can say the letters 'H' and 'a': they are hours of twelve and the half
/// of the day, which has no writer.
struct DateFormat::Part {
  char letter;
  std::uint8_t count;
  std::uint8_t room;  // bytes of its longest text
  char* (*write)(char* at, const Date& date);
};

const DateFormat::Part DateFormat::kParts[] = {
    {'d', 6, 29, writeLongDate},
    {'d', 5, 10, writeShortDate},
    {'d', 4, 9, [](char* at, const Date& date) { return writeText(at, weekdayName(date)); }},
    {'d', 3, 3, [](char* at, const Date& date) { return writeShort(at, weekdayName(date)); }},
    {'d', 2, 2, [](char* at, const Date& date) { return writeTwoDigits(at, date.day); }},
    {'d', 1, 2, [](char* at, const Date& date) { return writeSmall(at, date.day); }},
    {'w', 2, 2, [](char* at, const Date& date) { return writeSmall(at, weekOfYear(date)); }},
    {'w', 1, 1, [](char* at, const Date& date) { return writeSmall(at, dayOfWeek(date) + 1u); }},
    {'m', 4, 9, [](char* at, const Date& date) { return writeText(at, monthName(date)); }},
    {'m', 3, 3, [](char* at, const Date& date) { return writeShort(at, monthName(date)); }},
    {'m', 2, 2, [](char* at, const Date& date) { return writeTwoDigits(at, date.month); }},
    {'m', 1, 2, [](char* at, const Date& date) { return writeSmall(at, date.month); }},
    {'q', 1, 1, [](char* at, const Date& date) { return writeSmall(at, (date.month + 2u) / 3); }},
    {'y', 4, 4, writeYear},
    {'y', 2, 2, [](char* at, const Date& date) { return writeTwoDigits(at, date.year % 100u); }},
    {'y', 1, 3, writeDayOfYear},
    {'h', 2, 2, [](char* at, const Date& date) { return writeTwoDigits(at, date.hour); }},
    {'h', 1, 2, [](char* at, const Date& date) { return writeSmall(at, date.hour); }},
    {'H', 2, 2, [](char* at, const Date& date) { return writeTwoDigits(at, twelveHours(date)); }},
    {'H', 1, 2, [](char* at, const Date& date) { return writeSmall(at, twelveHours(date)); }},
    {'n', 2, 2, [](char* at, const Date& date) { return writeTwoDigits(at, date.minute); }},
    {'n', 1, 2, [](char* at, const Date& date) { return writeSmall(at, date.minute); }},
    {'s', 2, 2, [](char* at, const Date& date) { return writeTwoDigits(at, date.second); }},
    {'s', 1, 2, [](char* at, const Date& date) { return writeSmall(at, date.second); }},
    {'t', 5, 11, writeLongTime},
    {'c', 1, 22, writeGeneral},
    {'a', 1, 2, nullptr},
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
  char letter = lower(rest[0].character);
  const std::size_t run = runLength(rest);
  if (letter == 'a') return 0;
  if (letter == 'm' && run <= 2 && followsHour()) letter = 'n';
  for (const Part& part : kParts) {
    if (part.letter != letter || part.count > run) continue;
    add(part);
    return part.count;
  }
  return 0;
}

/// "AM/PM" and its kin: the words to write are the pattern's own; "AMPM" is the system's.
std::size_t DateFormat::readHalfOfDay(Symbols rest) {
  for (const std::string_view word : kHalvesOfDay) {
    if (!startsWith(rest, word)) continue;
    const bool lower = rest[0].character == 'a' && word != "ampm";
    const std::string_view halves =
        word == "a/p" ? (lower ? "ap" : "AP") : (lower ? "ampm" : "AMPM");
    add(*std::find_if(std::begin(kParts), std::end(kParts),
                      [](const Part& part) { return part.letter == 'a'; }));
    steps_.back().text = static_cast<std::uint32_t>(texts_.size());
    steps_.back().length = static_cast<std::uint32_t>(halves.size() / 2);
    texts_ += halves;
    return word.size();
  }
  return 0;
}

void DateFormat::addLiteral(char c) {
  if (steps_.empty() || steps_.back().part != nullptr) {
    steps_.push_back({nullptr, static_cast<std::uint32_t>(texts_.size())});
  }
  ++steps_.back().length;
  texts_ += c;
  ++room_;
}

void DateFormat::add(const Part& part) {
  steps_.push_back({&part});
  room_ += part.room;
}

/// Right behind hours, months are minutes.
bool DateFormat::followsHour() const {
  const auto last = std::find_if(steps_.rbegin(), steps_.rend(),
                                 [](const Step& step) { return step.part != nullptr; });
  return last != steps_.rend() && last->part->letter == 'h';
}

void DateFormat::useTwelveHours() {
  if (std::none_of(steps_.begin(), steps_.end(), [](const Step& step) {
        return step.part != nullptr && step.part->letter == 'a';
      })) {
    return;
  }
  for (Step& step : steps_) {
    if (step.part == nullptr || step.part->letter != 'h') continue;
    step.part = std::find_if(std::begin(kParts), std::end(kParts), [&](const Part& part) {
      return part.letter == 'H' && part.count == step.part->count;
    });
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
  for (const Step& step : steps_) {
    if (step.part != nullptr && step.part->write != nullptr) {
      at = step.part->write(at, date);
    } else {
      const bool secondHalf = step.part != nullptr && date.hour >= 12;
      at = writeText(at, {texts_.data() + step.text + (secondHalf ? step.length : 0), step.length});
    }
  }
  out.resize(static_cast<std::size_t>(at - out.data()));
}

}  // namespace paperway
