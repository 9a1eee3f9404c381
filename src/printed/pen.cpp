#include "printed/pen.h"

#include <algorithm>
#include <cmath>

#include "printed/bit_image.h"
#include "printed/control_codes.h"

namespace paperway {
namespace {

constexpr double kTabColumns = 8;
constexpr double kRounding = 1e-6;     // columns
constexpr double kPlacesPerInch = 60;  // of ESC $
constexpr double kStepsPerInch = 120;  // of ESC \ and ESC SP

constexpr char kShiftOut = '\x0E';
constexpr char kShiftIn = '\x0F';
constexpr int kEscaped = 0x100;

constexpr bool isOn(char parameter) {
  return parameter == 1 || parameter == '1';
}

char byteAt(std::string_view code, std::size_t offset) {
  return offset < code.size() ? code[offset] : '\0';
}

/// The byte that says what a code is for; plus kEscaped when it stands behind an ESC.
int commandOf(std::string_view code) {
  const bool escaped = byteAt(code, 0) == kEscape;
  return escaped ? kEscaped + static_cast<unsigned char>(byteAt(code, 1))
                 : static_cast<unsigned char>(byteAt(code, 0));
}

}  // namespace

void PrinterPitch::obey(std::string_view code) {
  switch (commandOf(code)) {
    case kShiftOut:
    case kEscaped + kShiftOut:
      wideLine_ = true;
      break;
    case kShiftIn:
    case kEscaped + kShiftIn:
      condensed_ = true;
      break;
    case '\x12':
      condensed_ = false;
      break;
    case '\x14':
    case '\r':
    case '\v':
      wideLine_ = false;
      break;
    case kEscaped + 'P':
      base_ = 10;
      break;
    case kEscaped + 'M':
      base_ = 12;
      break;
    case kEscaped + 'g':
      base_ = 15;
      break;
    case kEscaped + 'W':
      wide_ = isOn(byteAt(code, 2));
      break;
    case kEscaped + ' ':
      space_ = numberAt(code, 2);
      break;
    case kEscaped + '!':
      selectAll(static_cast<unsigned char>(byteAt(code, 2)));
      break;
    case kEscaped + '@':
      *this = PrinterPitch();
      break;
    default:
      break;
  }
}

void PrinterPitch::selectAll(unsigned mask) {
  base_ = (mask & 1) != 0 ? 12 : 10;
  condensed_ = (mask & 4) != 0;
  wide_ = (mask & 32) != 0;
}

double PrinterPitch::singleCpi() const {
  const double cpi = !condensed_ || base_ == 15 ? base_ : base_ == 12 ? 20 : 120.0 / 7;
  return space_ == 0 ? cpi : 1 / (1 / cpi + space_ / kStepsPerInch);
}

void PrintedStyle::obey(std::string_view code) {
  if (byteAt(code, 0) != kEscape) return;
  const char parameter = byteAt(code, 2);
  switch (byteAt(code, 1)) {
    case 'E':
    case 'F':
      bold = code[1] == 'E';
      break;
    case 'G':
    case 'H':
      doubleStrike = code[1] == 'G';
      break;
    case '4':
    case '5':
      italic = code[1] == '4';
      break;
    case '-':
      underline = isOn(parameter);
      break;
    case '!':
      bold = (parameter & 8) != 0;
      doubleStrike = (parameter & 16) != 0;
      italic = (parameter & 64) != 0;
      underline = (parameter & 128) != 0;
      break;
    case '@':
      *this = {};
      break;
    default:
      break;
  }
}

void Pen::obey(std::string_view code) {
  switch (byteAt(code, 0)) {
    case '\t':
      return tab();
    case '\b':
      return moveTo(std::max(margin_, left() - 1 / cpi_));
    case '\r':
      moveTo(margin_);
      break;
    default:
      style_.obey(code);
      if (widths_ != Widths::given) obeyMotion(code);
      break;
  }
  pitch_.obey(code);
  if (cpiInForce() == cpi_) return;
  moveTo(left());
  cpi_ = cpiInForce();
}

/// Columns of a margin and of stops are those of the pitch in which they are set.
void Pen::obeyMotion(std::string_view code) {
  const auto columns = [&](std::size_t offset) { return numberAt(code, offset) / cpi_; };
  const int number = numberAt(code, 2) + 256 * numberAt(code, 3);
  if (const auto image = bitImageOf(code)) return moveTo(left() + image->width());
  switch (commandOf(code)) {
    case '\v':
      return moveTo(margin_);
    case kEscaped + '$':
      return moveTo(margin_ + number / kPlacesPerInch);
    case kEscaped + '\\':
      return moveTo(std::max(margin_, left() + static_cast<std::int16_t>(number) / kStepsPerInch));
    case kEscaped + 'l':
      margin_ = columns(2);
      return moveTo(margin_);
    case kEscaped + 'D':
      stopsSet_ = true;
      stops_.clear();
      for (std::size_t at = 2; at + 1 < code.size(); ++at) stops_.push_back(columns(at));
      break;
    case kEscaped + '@':
      margin_ = 0;
      stopsSet_ = false;
      break;
    default:
      break;
  }
}

double Pen::cpiInForce() const {
  switch (widths_) {
    case Widths::printed:
      return pitch_.cpi();
    case Widths::drawn:
      return pitch_.singleCpi();
    default:
      return cpi_;
  }
}

void Pen::giveCpi(double cpi) {
  moveTo(left());
  cpi_ = cpi;
}

void Pen::endLine() {
  pitch_.endLine();
  cpi_ = cpiInForce();
  moveTo(margin_);
}

void Pen::moveTo(double left) {
  from_ = left;
  count_ = 0;
}

void Pen::tab() {
  if (stopsSet_) {
    const auto isBeyond = [&](double stop) { return margin_ + stop > left() + kRounding; };
    const auto next = std::find_if(stops_.begin(), stops_.end(), isBeyond);
    return next == stops_.end() ? void() : moveTo(margin_ + *next);
  }
  const double columns = (left() - margin_) * cpi_;
  moveTo(margin_ + (std::floor(columns / kTabColumns + kRounding) + 1) * kTabColumns / cpi_);
}

}  // namespace paperway
