#include "excel/shown_number.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "util/digits.h"
#include "util/format_pattern.h"
#include "util/format_symbols.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr double kPercent = 100;
constexpr int kSurelyExactDigits = 15;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool takeFront(std::string_view& text, std::string_view part) {
  if (!text.starts_with(part)) return false;
  text.remove_prefix(part.size());
  return true;
}

bool takeBack(std::string_view& text, std::string_view part) {
  if (!text.ends_with(part)) return false;
  text.remove_suffix(part.size());
  return true;
}

/// Takes a sign, brackets or a percent sign off the ends of the text.
struct Marks {
  bool minus = false;
  bool percent = false;

  bool takeFrom(std::string_view& text) {
    text = trimBlanks(text);
    if (text.size() > 1 && text.front() == '(' && text.back() == ')') {
      text = text.substr(1, text.size() - 2);
      return turn();
    }
    if (takeFront(text, "-") || takeBack(text, "-")) return turn();
    if (takeFront(text, "+") || takeBack(text, "+")) return sign();
    if (percent || !(takeBack(text, "%") || takeFront(text, "%"))) return false;
    return percent = true;
  }

  bool isSound() const { return signs_ <= 1; }

 private:
  bool turn() {
    minus = true;
    return sign();
  }
  bool sign() {
    ++signs_;
    return isSound();
  }

  int signs_ = 0;
};

/// Of any length and with an exponent; commas stand among the first characters alone.
std::optional<double> numberOfDigits(std::string_view text, std::size_t withCommas) {
  std::string plain(text.substr(0, withCommas));
  std::erase(plain, ',');
  plain += text.substr(withCommas);
  const auto mark = plain.find_first_of("Ee");
  if (mark + 1 < plain.size() && plain[mark + 1] == '+') plain.erase(mark + 1, 1);
  double number = 0;
  const char* const end = plain.data() + plain.size();
  const auto read = std::from_chars(plain.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

/// Digits, commas before the point, a point and an exponent, to the end of the text.
std::optional<double> unsignedNumber(std::string_view text) {
  std::int64_t digits = 0;
  int count = 0;  // of digits that tell, from the first that is not 0
  int decimals = 0;
  bool any = false;
  bool point = false;
  std::size_t i = 0;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (isDigit(c)) {
      any = true;
      if (point) ++decimals;
      if (count > 0 || c != '0') ++count;
      if (count <= kSurelyExactDigits) digits = digits * 10 + (c - '0');
    } else if (c == '.' && !point) {
      point = true;
    } else if (c != ',' || point || !any) {
      break;
    }
  }
  if (!any) return std::nullopt;
  if (i == text.size() && count <= kSurelyExactDigits &&
      decimals < static_cast<int>(kPowersOfTen.size())) {
    return static_cast<double>(digits) / kPowersOfTen[static_cast<std::size_t>(decimals)];
  }
  return numberOfDigits(text, i);
}

/// Signs say whether the number is below zero, and are none of the words.
bool isWord(const Symbol& symbol) {
  const char c = symbol.character;
  return c != '-' && c != '+' && c != '(' && c != ')' && !symbol.is('%');
}

bool isPlace(const Symbol& symbol) {
  return symbol.isPlace();
}

std::string wordsOf(Symbols::iterator begin, Symbols::iterator end) {
  std::string words;
  for (auto at = begin; at != end; ++at) {
    if (isWord(*at)) words += at->character;
  }
  return words;
}

}  // namespace

std::optional<double> shownNumber(std::string_view text) {
  Marks marks;
  while (marks.takeFrom(text)) {
  }
  const auto number = marks.isSound() ? unsignedNumber(text) : std::nullopt;
  if (!number) return std::nullopt;
  const double size = marks.percent ? *number / kPercent : *number;
  return marks.minus ? -size : size;
}

ShownNumberReader::ShownNumberReader(std::string_view pattern) {
  const auto symbols = readSymbols(namedPattern(pattern));
  for (const Symbols section : splitSections(symbols)) {
    const auto first = std::find_if(section.begin(), section.end(), isPlace);
    const auto last = std::find_if(section.rbegin(), section.rend(), isPlace).base();
    if (first == section.end()) continue;
    const bool pointFirst = first != section.begin() && (first - 1)->is('.');
    const auto behind = last != section.end() && last->is('.') ? last + 1 : last;
    Words words{wordsOf(section.begin(), pointFirst ? first - 1 : first),
                wordsOf(behind, section.end())};
    saysPercent_ |= (words.before + words.after).find('%') != std::string::npos;
    if (!words.before.empty() || !words.after.empty()) sections_.push_back(std::move(words));
  }
}

std::optional<double> ShownNumberReader::operator()(std::string_view text) const {
  if (saysPercent_ && text.find('%') != text.npos) return readAsWorded(text);
  if (const auto number = shownNumber(text)) return number;
  return readAsWorded(text);
}

std::optional<double> ShownNumberReader::readAsWorded(std::string_view text) const {
  for (const Words& words : sections_) {
    if (const auto number = readWithin(text, words)) return number;
  }
  return std::nullopt;
}

/// What stands between the words, and the signs that stand outside of them.
std::optional<double> ShownNumberReader::readWithin(std::string_view text, const Words& words) {
  const auto begin = words.before.empty() ? 0 : text.find(words.before);
  if (begin == text.npos) return std::nullopt;
  const auto inside = begin + words.before.size();
  const auto end = words.after.empty() ? text.size() : text.rfind(words.after);
  if (end == text.npos || end < inside) return std::nullopt;
  return shownNumber(std::string(text.substr(0, begin))
                         .append(text.substr(inside, end - inside))
                         .append(text.substr(end + words.after.size())));
}

}  // namespace paperway
