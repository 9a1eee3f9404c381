#include "util/utilities.h"

#include <array>
#include <cmath>
#include <functional>
#include <optional>

#include "paperway/automation_error.h"
#include "util/code_page.h"
#include "util/numbers.h"
#include "util/text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

/// As published, the second one too.
constexpr std::array<std::string_view, 12> kMonths = {
    "January", "Febuary", "March",     "April",   "May",      "June",
    "July",    "August",  "September", "October", "November", "December"};

constexpr std::size_t kLongestText = 32767;

bool isDigit(int code) {
  return code >= '0' && code <= '9';
}

void appendUnit(std::string& out, char32_t unit) {
  out += "&#";
  out += std::to_string(static_cast<std::int16_t>(unit));
  out += ';';
}

std::string codesOf(std::string_view text, const char* member, const char* argument) {
  std::string codes = CodePage::windows1252().encode(text);
  if (codes.size() <= kLongestText) return codes;
  throw AutomationError(AutomationError::kOverflow, member,
                        std::string(argument) + " has " + std::to_string(codes.size()) +
                            " characters; 32767 are the most.");
}

std::string shift(std::string_view text, std::string_view password, int sign, const char* member) {
  if (password.empty()) return std::string(text);
  std::string codes = codesOf(text, member, "strText");
  const std::string keys = codesOf(password, member, "strPwd");
  for (std::size_t i = 0; i < codes.size(); ++i) {
    codes[i] = static_cast<char>(codes[i] + sign * keys[(i + 1) % keys.size()]);
  }
  return CodePage::windows1252().decode(codes);
}

std::optional<double> asNumber(ValueView value) {
  switch (value.kind()) {
    case ValueView::Kind::real:
      if (std::isnan(value.real())) return std::nullopt;
      return value.real();
    case ValueView::Kind::integer:
      return static_cast<double>(value.integer());
    case ValueView::Kind::text:
      return parseNumber(value.text());
    default:
      return std::nullopt;
  }
}

double numberAt(std::size_t place, ValueView value, const char* member) {
  if (const auto number = asNumber(value)) return *number;
  const std::string text = value.isNull() ? "null" : "\"" + defaultText(value) + "\"";
  throw AutomationError(
      AutomationError::kTypeMismatch, member,
      "Value " + std::to_string(place + 1) + " is " + text + ", which is no number.");
}

template <class KeepsCurrent>
double choose(std::span<const ValueView> values, const char* member, KeepsCurrent keeps) {
  if (values.empty()) {
    throw AutomationError(AutomationError::kSubscript, member, "Value 1 is missing.");
  }
  double chosen = numberAt(0, values.front(), member);
  for (std::size_t place = 1; place < values.size(); ++place) {
    const double number = numberAt(place, values[place], member);
    if (!keeps(chosen, number)) chosen = number;
  }
  return chosen;
}

}  // namespace

std::int16_t OnlyNum(std::int16_t KEY) {
  return isDigit(KEY) || KEY == 8 || KEY == 13 ? KEY : std::int16_t{1};
}

std::string ReverseName(std::string_view str) {
  std::string reversed(str.size(), '\0');
  std::size_t room = str.size();
  for (std::size_t start = 0, end = 0; start < str.size(); start = end) {
    nextCharacter(str, end);
    room -= end - start;
    reversed.replace(room, end - start, str.substr(start, end - start));
  }
  return reversed;
}

std::string Allow_Only_azAZ_01(std::string_view STr1) {
  std::string kept;
  for (const char c : STr1) {
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (letter || isDigit(c) || c == ' ' || c == '|') kept += c;
  }
  return kept;
}

std::string UniToHex(ValueView strSource) {
  const std::string text = defaultText(strSource);
  std::string out;
  for (std::size_t offset = 0; offset < text.size();) {
    const char32_t character = nextCharacter(text, offset);
    if (character < 0x10000) {
      appendUnit(out, character);
    } else {
      appendUnit(out, 0xD800 + ((character - 0x10000) >> 10));
      appendUnit(out, 0xDC00 + ((character - 0x10000) & 0x3FF));
    }
  }
  return out;
}

std::string ParseFileName(std::string_view PstrFileIn, std::uint8_t NoExtention) {
  std::string_view name = PstrFileIn.substr(PstrFileIn.rfind('\\') + 1);
  if (NoExtention == 1) name = name.substr(0, name.find('.'));
  return std::string(name);
}

std::string EncryptText(std::string_view strText, std::string_view strPwd) {
  return shift(strText, strPwd, 1, "EncryptText");
}

std::string DecryptText(std::string_view strText, std::string_view strPwd) {
  return shift(strText, strPwd, -1, "DecryptText");
}

std::string MonName(std::uint8_t Mon) {
  if (Mon < 1 || Mon > kMonths.size()) {
    throw AutomationError(AutomationError::kInvalidCall, "MonName",
                          "Mon is " + std::to_string(Mon) + "; months are 1 to 12.");
  }
  return std::string(kMonths[Mon - 1]);
}

double MaximumValue(std::span<const ValueView> Val) {
  return choose(Val, "MaximumValue", std::greater<>());
}

double MinimamValue(std::span<const ValueView> Val) {
  return choose(Val, "MinimamValue", std::less<>());
}

}  // namespace paperway
