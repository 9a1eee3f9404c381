#include "util/amounts.h"

#include <array>
#include <cmath>
#include <string_view>

#include "paperway/automation_error.h"
#include "util/numbers.h"

namespace paperway {
namespace {

constexpr std::array<std::string_view, 20> kOnes = {
    "",         "One",     "Two",     "Three",     "Four",     "Five",    "Six",
    "Seven",    "Eight",   "Nine",    "Ten",       "Eleven",   "Twelve",  "Thirteen",
    "Fourteen", "Fifteen", "Sixteen", "Seventeen", "Eighteen", "Nineteen"};

constexpr std::array<std::string_view, 10> kTens = {
    "", "Ten", "Twenty", "Thirty", "Forty", "Fifty", "Sixty", "Seventy", "Eighty", "Ninety"};

constexpr double kLargestInWords = 999999999;

void requireFinite(double number, const char* member, const char* argument) {
  if (std::isfinite(number)) return;
  throw AutomationError(AutomationError::kInvalidCall, member,
                        std::string(argument) + " is not a finite number.");
}

/// An amount taken apart: whole + paise / 100.
struct Amount {
  double whole;
  int paise;
};

int toPaise(double fraction) {
  const double scaled = fraction * 100;
  const int below = static_cast<int>(scaled);
  const double rest = scaled - below;
  const bool odd = below % 2 != 0;
  return rest > 0.5 || (rest == 0.5 && odd) ? below + 1 : below;
}

Amount takeApart(double number) {
  const double whole = std::floor(number * 100 / 100);
  const double fraction = number - whole;
  if (!(fraction > 0 && fraction < 1)) return {whole, 0};
  const int paise = toPaise(fraction);
  return paise == 100 ? Amount{whole + 1, 0} : Amount{whole, paise};
}

/// Has room for the longest text, of 118 characters.
class Words {
 public:
  void add(std::string_view text) {
    for (const char c : text) buffer_[size_++] = c;
  }
  void addPair(int value) {
    if (value < 20) return add(kOnes[value]);
    add(kTens[value / 10]);
    add("-");
    add(kOnes[value % 10]);
  }
  void addGroup(int value, std::string_view name) {
    if (value == 0) return;
    addPair(value);
    add(name);
  }
  std::string text() const { return {buffer_.data(), size_}; }

 private:
  std::array<char, 160> buffer_;
  std::size_t size_ = 0;
};

void addWhole(Words& words, int whole) {
  words.addGroup(whole / 10'000'000, " Crore ");
  words.addGroup(whole / 100'000 % 100, " Lack ");
  words.addGroup(whole / 1000 % 100, " Thousand ");
  words.addGroup(whole / 100 % 10, " Hundred ");
  words.addPair(whole % 100);
}

}  // namespace

std::string NumToText(double Num) {
  requireFinite(Num, "NumToText", "Num");
  if (Num < 1) return "zero ";
  const Amount amount = takeApart(Num);
  Words words;
  if (amount.whole > kLargestInWords) {
    words.add("# Error #");
  } else {
    addWhole(words, static_cast<int>(amount.whole));
  }
  if (amount.paise > 0) {
    words.add(" and ");
    words.addPair(amount.paise);
    words.add(" Paisa Only");
  } else {
    words.add(" Only");
  }
  return words.text();
}

float Desi(double Kk) {
  requireFinite(Kk, "Desi", "Kk");
  return static_cast<float>(Kk - std::floor(Kk));
}

Value round_curr(ValueView currValue) {
  if (currValue.isNull()) {
    throw AutomationError(AutomationError::kInvalidUseOfNull, "round_curr", "currValue is null.");
  }
  if (currValue.kind() == ValueView::Kind::real) {
    requireFinite(currValue.real(), "round_curr", "currValue");
  }
  const double number = columnNumber(currValue);
  requireFinite(number * 100, "round_curr", "currValue");
  if (number == 0) return {};
  return std::floor(number * 100 + 0.5) / 100;
}

}  // namespace paperway
