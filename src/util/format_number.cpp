#include "util/format_number.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "util/digits.h"
#include "util/numbers.h"
#include "util/value_text.h"

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

constexpr std::uint64_t kIntegerPowers[] = {1, 10, 100, 1000, 10000};
constexpr int kMaxIntegerPower = 4;
constexpr std::uint64_t kMaxScalable = 1'000'000'000'000'000;  // × 10^4 still fits 64 bits

/// Below this a double tells ten-thousandths apart, before and after it is cut to 15 digits.
constexpr double kMaxRoundable = 1e11;
constexpr double kSurelyNoTie = 0.499;

/// `number` (not negative) × 10^decimals, rounded half away from zero on its decimal digits; false
/// when only those digits can tell.
bool roundScaled(double number, int decimals, std::int64_t& rounded) {
  const double product = number * kPowersOfTen[static_cast<std::size_t>(decimals)];
  if (product < kMaxRoundable) {
    rounded = static_cast<std::int64_t>(product + 0.5);
    if (std::abs(product - static_cast<double>(rounded)) < kSurelyNoTie) return true;
  }
  return scaleExactly(number, decimals, rounded);
}

char digitAt(const Decimal& decimal, int place) {
  const int index = decimal.exponent - 1 - place;
  return index >= 0 && index < decimal.count ? decimal.digits[index] : '0';
}

char* writeThreeBefore(char* end, unsigned number) {
  writePair(end - 2, number % 100);
  end[-3] = static_cast<char>('0' + number / 100);
  return end - 3;
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

void NumberSection::appendLiterals(std::string& out) const {
  out += before_;
  for (const Inside& each : inside_) out += each.text;
  out += after_;
}

bool NumberSection::append(std::string& out, std::int64_t number, bool sign) const {
  const bool minus = sign && number < 0;
  const int power = decimals_ + shift_;
  const std::uint64_t size = magnitude(number);
  if (straight_ && power >= 0 && power <= kMaxIntegerPower && size < kMaxScalable) {
    return appendScaled(out, size * kIntegerPowers[power], minus);
  }
  return appendDecimal(out, Decimal::fromInteger(number), minus);
}

bool NumberSection::append(std::string& out, double number, bool sign) const {
  const bool minus = sign && number < 0;
  const int power = decimals_ + shift_;
  std::int64_t scaled = 0;
  if (straight_ && power >= 0 && power < static_cast<int>(kPowersOfTen.size()) &&
      roundScaled(std::abs(number), power, scaled)) {
    return (scaled != 0 || number == 0) &&
           appendScaled(out, static_cast<std::uint64_t>(scaled), minus);
  }
  return appendDecimal(out, Decimal::fromDouble(number), minus);
}

inline char* NumberSection::writeWholeBefore(char* end, std::uint64_t number) const {
  char* at = end;
  int digits = 0;
  if (grouped_) {
    for (; number >= 1000; number /= 1000, digits += 3) {
      at = writeThreeBefore(at, static_cast<unsigned>(number % 1000));
      *--at = ',';
    }
  }
  if (number > 0) {
    char* const begin = writeDigitsBefore(at, number);
    digits += static_cast<int>(at - begin);
    at = begin;
  }
  for (; digits < minWhole_; ++digits) {
    if (grouped_ && digits > 0 && digits % 3 == 0) *--at = ',';
    *--at = '0';
  }
  return at;
}

/// scaled / 10^decimals_, in a straight section.
bool NumberSection::appendScaled(std::string& out, std::uint64_t scaled, bool minus) const {
  char buffer[64];
  char* const end = buffer + sizeof buffer;
  char* at = end;
  int shown = decimals_;
  for (; shown > minDecimals_ && scaled % 10 == 0; --shown) scaled /= 10;
  for (; shown >= 2; shown -= 2, scaled /= 100) {
    at -= 2;
    writePair(at, static_cast<unsigned>(scaled % 100));
  }
  if (shown == 1) {
    *--at = static_cast<char>('0' + scaled % 10);
    scaled /= 10;
  }
  if (point_) *--at = '.';
  at = writeWholeBefore(at, scaled);
  if (before_.empty()) {
    if (minus) *--at = '-';
  } else {
    if (minus) out += '-';
    out += before_;
  }
  out.append(at, static_cast<std::size_t>(end - at));
  if (!after_.empty()) out += after_;
  return true;
}

bool NumberSection::appendDecimal(std::string& out, Decimal decimal, bool minus) const {
  if (slots_ > 0 && !decimal.isZero()) {
    decimal.exponent += shift_;
    const int kept = exponentMark_ != '\0' ? places_ + decimals_ : decimal.exponent + decimals_;
    decimal.keepDigits(kept);
    if (decimal.isZero()) return false;
  }
  int power = 0;
  if (exponentMark_ != '\0' && !decimal.isZero()) {
    power = decimal.exponent - places_;
    decimal.exponent = places_;
  }
  if (minus) out += '-';
  out += before_;
  if (slots_ > 0) appendSlots(out, decimal);
  if (exponentMark_ != '\0') appendPower(out, power);
  out += after_;
  return true;
}

void NumberSection::appendSlots(std::string& out, const Decimal& decimal) const {
  auto inside = inside_.begin();
  int slot = 0;
  const auto endSlot = [&] {
    for (; inside != inside_.end() && inside->slot == slot; ++inside) out += inside->text;
    ++slot;
  };
  const int whole = decimal.isZero() ? 0 : std::max(decimal.exponent, 0);
  for (int place = std::max(whole, places_) - 1; place >= 0; --place) {
    if (place < whole || place < minWhole_) {
      out += digitAt(decimal, place);
      if (grouped_ && place > 0 && place % 3 == 0) out += ',';
    }
    if (place < places_) endSlot();
  }
  if (point_) {
    out += '.';
    endSlot();
  }
  const int needed = decimal.isZero() ? 0 : decimal.count - decimal.exponent;
  const int shown = std::max(needed, minDecimals_);
  for (int i = 0; i < decimals_; ++i) {
    if (i < shown) out += digitAt(decimal, -1 - i);
    endSlot();
  }
}

void NumberSection::appendPower(std::string& out, int power) const {
  out += exponentMark_;
  if (power < 0) {
    out += '-';
  } else if (exponentPlus_) {
    out += '+';
  }
  const std::string digits = defaultText(std::abs(power));
  const auto least = static_cast<std::size_t>(minExponentDigits_);
  if (digits.size() < least) out.append(least - digits.size(), '0');
  out += digits;
}

NumberFormat::NumberFormat(Symbols pattern) {
  const auto sections = splitSections(pattern);
  std::optional<NumberSection>* const members[] = {&positive_, &negative_, &zero_, &null_};
  for (std::size_t i = 0; i < std::min(sections.size(), std::size(members)); ++i) {
    if (!sections[i].empty()) members[i]->emplace(sections[i]);
  }
}

void NumberFormat::append(std::string& out, const ValueView& value) const {
  switch (value.kind()) {
    case ValueView::Kind::real:
      appendNumber(out, value.real());
      break;
    case ValueView::Kind::integer:
      appendNumber(out, value.integer());
      break;
    case ValueView::Kind::date:
      appendNumber(out, dateToSerial(value.date()));
      break;
    case ValueView::Kind::text:
      appendText(out, value.text());
      break;
    case ValueView::Kind::null:
      if (null_) null_->appendLiterals(out);
      break;
  }
}

void NumberFormat::append(std::string& out, double number) const {
  appendNumber(out, number);
}

void NumberFormat::appendDecimal(std::string& out, double number) const {
  if (number == 0 || sectionOf(number)) {
    appendNumber(out, number);
  } else {
    appendDecimalText(out, number);
  }
}

const std::optional<NumberSection>& NumberFormat::sectionOf(double number) const {
  return number < 0 && negative_ ? negative_ : positive_;
}

/// A number that rounds to zero is shown as zero is.
template <class Number>
inline void NumberFormat::appendNumber(std::string& out, Number number) const {
  if (number == 0) {
    appendZero(out);
    return;
  }
  const bool ownSign = number < 0 && negative_;
  const auto& section = sectionOf(static_cast<double>(number));
  if (!section || !std::isfinite(static_cast<double>(number))) {
    appendDefaultText(out, number);
  } else if (!section->append(out, number, !ownSign)) {
    appendZero(out);
  }
}

void NumberFormat::appendZero(std::string& out) const {
  const auto& section = zero_ ? zero_ : positive_;
  if (section) {
    section->append(out, std::int64_t{0}, false);
  } else {
    out += '0';
  }
}

void NumberFormat::appendText(std::string& out, std::string_view text) const {
  if (const auto number = parseNumber(text)) {
    appendNumber(out, *number);
  } else if (const auto date = parseIsoDate(text)) {
    appendNumber(out, dateToSerial(*date));
  } else {
    out += text;
  }
}

}  // namespace paperway
