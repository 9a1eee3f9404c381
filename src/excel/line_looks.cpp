#include "excel/line_looks.h"

#include <algorithm>

#include "util/text.h"

namespace paperway {
namespace {

constexpr bool isDash(char c) {
  return c == '-' || c == '=' || c == '_';
}

}  // namespace

bool isBlank(std::string_view text) {
  return text.find_first_not_of(' ') == text.npos;
}

bool isRule(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == text.npos || !isDash(text[first])) return false;
  std::size_t dashes = 0;
  for (const char c : text.substr(first)) {
    if (isDash(c)) {
      ++dashes;
    } else if (c != ' ') {
      return false;
    }
  }
  return dashes >= 3;
}

bool isFullRule(std::string_view text) {
  return isRule(text) && trimBlanks(text).find(' ') == text.npos;
}

std::size_t pieces(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = text.find_first_not_of(' '); at != text.npos;
       at = text.find_first_not_of(' ', at)) {
    ++count;
    at = text.find("  ", at);
    if (at == text.npos) break;
  }
  return count;
}

bool saysHeading(std::string_view text) {
  std::size_t words = 0;
  std::size_t numbers = 0;
  for (std::size_t at = text.find_first_not_of(' '); at != text.npos;
       at = text.find_first_not_of(' ', at)) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    const bool digits = text.substr(at, end - at).find_first_of("0123456789") != text.npos;
    ++(digits ? numbers : words);
    at = end;
  }
  return words > numbers;
}

bool equalButDigits(std::string_view one, std::string_view other) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), [&](char a, char b) {
    return a == b || (isDigit(a) && isDigit(b)) || (isDigit(a) && b == ' ') ||
           (a == ' ' && isDigit(b));
  });
}

bool holdsStyles(std::string_view raw) {
  return raw.find_first_of("\x1B\x0E\x0F\x12\x14") != raw.npos;
}

}  // namespace paperway
