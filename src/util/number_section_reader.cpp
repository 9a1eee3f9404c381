#include <algorithm>
#include <memory>

#include "util/number_section.h"

namespace paperway {

namespace {

/// What appendScaled has room for.
constexpr int kStraightWhole = 18;
constexpr int kStraightDecimals = 15;

constexpr int kPercentShift = 2;
constexpr int kThousandShift = 3;

bool isPlace(const Symbol& symbol) {
  return symbol.isPlace();
}

bool isPoint(const Symbol& symbol) {
  return symbol.is('.');
}

/// The first point behind a place, else one that stands right before a place: that of "Rs. 0.00" is
/// the second. None: the end.
Symbols::iterator findPoint(Symbols pattern) {
  const auto firstPlace = std::find_if(pattern.begin(), pattern.end(), isPlace);
  const auto behind = std::find_if(firstPlace, pattern.end(), isPoint);
  if (behind != pattern.end() || firstPlace == pattern.begin()) return behind;
  return isPoint(firstPlace[-1]) ? firstPlace - 1 : pattern.end();
}

}  // namespace

NumberSection::NumberSection(Symbols pattern) {
  if (std::any_of(pattern.begin(), pattern.end(), isPlace)) {
    read(pattern);
  } else {
    for (const Symbol& symbol : pattern) before_ += symbol.character;
  }
}

void NumberSection::read(Symbols pattern) {
  int commas = 0;  // since the last place: they group when a place follows, else they scale
  const Symbol* const point = std::to_address(findPoint(pattern));
  while (!pattern.empty()) {
    const Symbol& symbol = pattern[0];
    std::size_t taken = 1;
    if (readPlace(symbol)) {
      if (commas > 0 && !point_) {
        grouped_ = true;
        commas = 0;
      }
    } else if (&symbol == point && exponentMark_ == '\0') {
      point_ = true;
      ++slots_;
    } else if (symbol.is(',') && !point_ && exponentMark_ == '\0') {
      ++commas;
    } else if (const std::size_t exponent = readExponent(pattern); exponent > 0) {
      taken = exponent;
    } else {
      if (symbol.is('%')) shift_ += kPercentShift;
      addLiteral(symbol.character);
    }
    pattern = pattern.subspan(taken);
  }
  finish(commas);
}

bool NumberSection::readPlace(const Symbol& symbol) {
  if (!symbol.isPlace() || exponentMark_ != '\0') return false;
  ++slots_;
  if (point_) {
    ++decimals_;
    if (symbol.character == '0') minDecimals_ = decimals_;
  } else {
    ++places_;
    if (symbol.character == '0' || minWhole_ > 0) ++minWhole_;
  }
  return true;
}

/// "E+00" behind a place; gives its length, or 0 when there is none.
std::size_t NumberSection::readExponent(Symbols rest) {
  const bool mark = rest[0].is('E') || rest[0].is('e');
  if (!mark || exponentMark_ != '\0' || places_ + decimals_ == 0 || rest.size() < 3) return 0;
  if (!(rest[1].is('+') || rest[1].is('-')) || !rest[2].isPlace()) return 0;
  exponentMark_ = rest[0].character;
  exponentPlus_ = rest[1].character == '+';
  const Symbols digits = rest.subspan(2);
  const auto end = std::find_if_not(digits.begin(), digits.end(), isPlace);
  minExponentDigits_ = static_cast<int>(
      std::count_if(digits.begin(), end, [](const Symbol& s) { return s.is('0'); }));
  return 2 + static_cast<std::size_t>(end - digits.begin());
}

void NumberSection::addLiteral(char c) {
  if (slots_ == 0) {
    before_ += c;
  } else if (exponentMark_ != '\0') {
    after_ += c;
  } else if (!inside_.empty() && inside_.back().slot == slots_ - 1) {
    inside_.back().text += c;
  } else {
    inside_.push_back({slots_ - 1, std::string(1, c)});
  }
}

void NumberSection::finish(int commas) {
  shift_ -= kThousandShift * commas;
  if (exponentMark_ == '\0' && !inside_.empty() && inside_.back().slot == slots_ - 1) {
    after_ = std::move(inside_.back().text);
    inside_.pop_back();
  }
  straight_ = inside_.empty() && exponentMark_ == '\0' && minWhole_ <= kStraightWhole &&
              decimals_ <= kStraightDecimals;
}

}  // namespace paperway
